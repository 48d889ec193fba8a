#include "windows/progressive/progressive_printout.h"

#include <string_view>

#include "app/page.h"
#include "calc/account_texts.h"
#include "calc/progressive_report.h"

namespace velta {

namespace {

/// Behind the longest label of the report.
constexpr int kReportValueColumn = 33;

void AddLine(Page& page, std::string_view label, const std::string& value = "") {
  page.WriteAt(kLabelColumn, label);
  if (!value.empty()) page.WriteAt(kValueColumn, value);
  page.EndLine();
}

/// The labels differ from those of the report on purpose.
void AddPayment(Page& page, const ProgressiveResult& result, const Payment& payment,
                const LocaleFormat& locale) {
  const int first_line = page.LineCount();
  AddLine(page, kPrintoutRule);
  page.EmptyLines(1);
  AddLine(page, "Úrok z prodlení ode dne:", ShortDateText(result.due_date, locale));
  AddLine(page, "Úrok z prodlení ke dni:", ShortDateText(payment.date, locale));
  AddLine(page, "Počet dnů prodlení:", std::to_string(payment.days));
  AddLine(page, "Částečná výše úhrady:", PlainText(payment.amount, locale));
  AddLine(page, "Úroková sazba:", RateText(result, locale));
  AddLine(page, "Úrok z prodlení:", CurrencyText(payment.interest, locale));
  page.KeepTogether(first_line);
}

/// The amount that was owed: what was paid first and what was left then.
Money OwedAmount(const ProgressiveResult& result) {
  if (result.payments.empty()) return {};
  return result.payments.front().amount + result.payments.front().balance;
}

}  // namespace

ui::PrintedDocument ProgressivePrintout(const ProgressiveResult& result, const std::string& report,
                                        const LocaleFormat& locale) {
  Page page(PrintoutName(OwedAmount(result), result.due_date, locale));
  if (result.kind == RateKind::kRepo) {
    page.WriteLines(report, kReportValueColumn);
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
