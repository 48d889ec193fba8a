#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>
#include <variant>

#include "shell/velta.h"
#include "tests/support/day.h"
#include "ui/memory/memory_platform.h"
#include "windows/progressive/frmPostupny.h"
#include "windows/progressive/progressive_printout.h"

namespace velta {
namespace {

/// A progressive calculation on the supplied rate files, without a screen.
class Bench {
 public:
  /// An invoice due on 10.5.2006 that is paid by 1 000 Kč on 15.1.2007, again and again; in the
  /// repo regime each payment has three half-years.
  Bench(RateKind kind, int payments) {
    memory_.program_folder.path = VELTA_SOURCE_DIR "/data";
    velta_.program().windows.Open("frmPostupny");
    form_ = dynamic_cast<frmPostupny*>(velta_.program().windows.Find("frmPostupny"));
    form_->txtData[0].UserEdit("1000000000");
    form_->dtpSplatnost.UserPick(Day(2006, 5, 10));
    form_->cboDruhSazby.UserPick(static_cast<int>(kind));
    form_->txtData[2].UserEdit("8,5");
    form_->dtpZaplaceni.UserPick(Day(2007, 1, 15));
    form_->txtData[1].UserEdit("1000");
    for (int i = 0; i < payments; ++i) Add();
    if (form_->List1.items().size() != static_cast<std::size_t>(payments)) {
      throw std::logic_error("a payment is missing");
    }
  }

  void Add() {
    form_->cmdPridat.UserClick();
    memory_.event_loop.RunUntilIdle();
  }

  /// Pays the rest.
  const ProgressiveResult& Finish() {
    form_->txtData[1].UserEdit(form_->txtData[0].text());
    Add();
    return *std::get<const ProgressiveResult*>(form_->finished().value());
  }
  const std::string& Report() const { return form_->ReportBoxText(); }

 private:
  ui::MemoryPlatform memory_;
  Velta velta_{memory_.platform(), {}};
  frmPostupny* form_ = nullptr;
};

/// One more payment where so many have been added.
void AddPayment(benchmark::State& state, RateKind kind) {
  Bench bench(kind, static_cast<int>(state.range(0)));
  for ([[maybe_unused]] auto _ : state) bench.Add();
}
BENCHMARK_CAPTURE(AddPayment, typed_rate, RateKind::kPercentYearly)
    ->Arg(100)
    ->Arg(10'000)
    ->Iterations(100)
    ->Repetitions(20)
    ->ReportAggregatesOnly();
BENCHMARK_CAPTURE(AddPayment, repo_rate, RateKind::kRepo)
    ->Arg(100)
    ->Arg(10'000)
    ->Iterations(100)
    ->Repetitions(20)
    ->ReportAggregatesOnly();

/// The printout of 10 000 payments, as data.
void PageModel(benchmark::State& state, RateKind kind) {
  Bench bench(kind, 9'999);
  const ProgressiveResult& result = bench.Finish();
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(ProgressivePrintout(result, bench.Report(), {}));
  }
}
BENCHMARK_CAPTURE(PageModel, typed_rate, RateKind::kPercentYearly)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PageModel, repo_rate, RateKind::kRepo)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velta
