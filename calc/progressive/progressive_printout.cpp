#include "calc/progressive/progressive_printout.h"

#include <string_view>

#include "calc/account_texts.h"
#include "calc/progressive/progressive_report.h"
#include "shell/common/page.h"

namespace velta {

namespace {

/// Behind the longest label of the report.
constexpr int kReportValueColumn = 33;

void AddLine(Page& page, std::string_view label, const std::string& value = "") {
  page.MoveTo(kLabelColumn);
  page.Write(label);
  if (!value.empty()) {
    page.MoveTo(kValueColumn);
    page.Write(value);
  }
  page.EndLine();
}

/// The labels differ from those of the report on purpose.
void AddPayment(Page& page, const ProgressiveResult& result, const Payment& payment,
                const ui::LocaleFormat& locale) {
  AddLine(page, kPrintoutRule);
  page.EmptyLines(1);
  AddLine(page, "Úrok z prodlení ode dne:", ShortDateText(result.due_date, locale));
  AddLine(page, "Úrok z prodlení ke dni:", ShortDateText(payment.date, locale));
  AddLine(page, "Počet dnů prodlení:", std::to_string(payment.days));
  AddLine(page, "Částečná výše úhrady:", PlainText(payment.amount, locale));
  AddLine(page, "Úroková sazba:", RateText(result, locale));
  AddLine(page, "Úrok z prodlení:", CurrencyText(payment.interest, locale));
}

/// The report as it stands, line for line, with its values in one column.
void AddReport(Page& page, std::string_view report) {
  while (!report.empty()) {
    const std::size_t end = report.find(kReportLineEnd);
    const std::string_view line = report.substr(0, end);
    report.remove_prefix(end == std::string_view::npos ? report.size()
                                                       : end + kReportLineEnd.size());
    const std::size_t tab = line.find('\t');
    page.Write(line.substr(0, tab));
    if (tab != std::string_view::npos) {
      page.MoveTo(kReportValueColumn);
      page.Write(line.substr(tab + 1));
    }
    page.EndLine();
  }
}

}  // namespace

ui::PrintedDocument ProgressivePrintout(const ProgressiveResult& result, const std::string& report,
                                        const ui::LocaleFormat& locale) {
  Page page(kPrintoutName);
  if (result.kind == RateKind::kRepo) {
    AddReport(page, report);
    return page.Take();
  }
  AddLine(page, kAccountHeading);
  page.EmptyLines(1);
  for (const Payment& payment : result.payments) AddPayment(page, result, payment, locale);
  page.EmptyLines(1);
  page.SetBold(true);
  AddLine(page, "Úrok z prodlení celkem :", TotalText(result, locale));
  page.SetBold(false);
  return page.Take();
}

}  // namespace velta
