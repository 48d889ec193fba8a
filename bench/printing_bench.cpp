#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTemporaryDir>

#include "tests/support/day.h"
#include "ui/qt/printer.h"
#include "ui/qt/run.h"
#include "windows/single/single_printout.h"

namespace velta {
namespace {

SingleResult OnePage() {
  SingleResult result;
  result.due_date = Day(2005, 3, 10);
  result.payment_date = Day(2005, 6, 20);
  result.days = 102;
  result.base_amount = Money::FromUnits(100'000'000);
  result.kind = RateKind::kDiscount;
  result.rate = 2.5F;
  result.interest = 69.9;
  result.amount_with_interest = Money::FromUnits(100'699'000);
  return result;
}

SingleResult FortyHalfYears() {
  SingleResult result = OnePage();
  result.kind = RateKind::kRepo;
  for (int year = 2006; year < 2026; ++year) {
    result.periods.push_back({Day(year, 1, 1), Day(year, 6, 30), 9.05F, 181, 448.7808});
    result.periods.push_back({Day(year, 7, 1), Day(year, 12, 31), 9.05F, 184, 456.2192});
  }
  return result;
}

void PageModel(benchmark::State& state, const SingleResult& result) {
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(SinglePrintout(result, {}));
}
BENCHMARK_CAPTURE(PageModel, one_page, OnePage());
BENCHMARK_CAPTURE(PageModel, forty_half_years, FortyHalfYears());

void Pdf(benchmark::State& state, const SingleResult& result) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static int argc = 1;
  static char name[] = "printing_bench";
  static char* argv[] = {name, nullptr};
  static const QApplication application(argc, argv);
  const ui::PrintedDocument document = SinglePrintout(result, {});
  const QTemporaryDir folder;
  for ([[maybe_unused]] auto _ : state) {
    auto printer = qt::MakePagePrinter();
    printer->setOutputFileName(folder.filePath("velta.pdf"));
    if (!qt::PrintJob(std::move(printer)).Print(document)) state.SkipWithError("not printed");
  }
}
BENCHMARK_CAPTURE(Pdf, one_page, OnePage())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Pdf, forty_half_years, FortyHalfYears())->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velta
