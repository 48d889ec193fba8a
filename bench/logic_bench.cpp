#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>

#include "shell/velta.h"
#include "tests/support/day.h"
#include "ui/memory/memory_platform.h"
#include "windows/calculation/bank_rates.h"
#include "windows/single/frmJednotlivy.h"

namespace velta {
namespace {

/// The single calculation on the supplied rate files, without a screen.
class Bench {
 public:
  Bench() {
    memory_.program_folder.path = VELTA_SOURCE_DIR "/data";
    velta_.program().windows.Open("frmJednotlivy");
    form_ = dynamic_cast<frmJednotlivy*>(velta_.program().windows.Find("frmJednotlivy"));
  }

  void Enter(Date due, Date paid, RateKind kind, const std::string& rate) {
    form_->dtpSplatnost.UserPick(due);
    form_->dtpZaplaceni.UserPick(paid);
    form_->cboDruhSazby.UserPick(static_cast<int>(kind));
    form_->txtVyseSazby.UserEdit(rate);
    Recompute();
    if (!velta_.program().state.CalculationFinished) throw std::logic_error("nothing computed");
  }

  /// Another amount each time, as with every key typed.
  void Recompute() {
    form_->txtDluznaCastka.UserEdit(odd_ ? "123456" : "12345");
    odd_ = !odd_;
    memory_.event_loop.RunUntilIdle();
  }

 private:
  ui::MemoryPlatform memory_;
  Velta velta_{memory_.platform(), {}};
  frmJednotlivy* form_ = nullptr;
  bool odd_ = false;
};

void Measure(benchmark::State& state, Date due, Date paid, RateKind kind, const std::string& rate) {
  Bench bench;
  bench.Enter(due, paid, kind, rate);
  for ([[maybe_unused]] auto _ : state) bench.Recompute();
}

void RecomputeTyped(benchmark::State& state) {
  Measure(state, Day(2025, 1, 10), Day(2025, 6, 20), RateKind::kPercentYearly, "12");
}
BENCHMARK(RecomputeTyped);

void RecomputeDiscount(benchmark::State& state) {
  Measure(state, Day(2004, 3, 10), Day(2005, 6, 20), RateKind::kDiscount, "");
}
BENCHMARK(RecomputeDiscount);

void RecomputeFortyHalfYears(benchmark::State& state) {
  Measure(state, Day(2006, 7, 10), Day(2026, 6, 20), RateKind::kRepo, "");
}
BENCHMARK(RecomputeFortyHalfYears);

void LoadBothTables(benchmark::State& state) {
  ui::MemoryPlatform memory;
  memory.program_folder.path = VELTA_SOURCE_DIR "/data";
  Program program(memory.platform(), {});
  BankRates rates(program, [] {});
  for ([[maybe_unused]] auto _ : state) rates.Load();
}
BENCHMARK(LoadBothTables);

}  // namespace
}  // namespace velta
