#include "calc/progressive/progressive_printout.h"

#include <string_view>

#include "calc/account_texts.h"
#include "calc/progressive/progressive_report.h"
#include "shell/common/page.h"

namespace velta {

namespace {

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

}  // namespace

ui::PrintedDocument ProgressivePrintout(const ProgressiveResult& result, const std::string& report,
                                        const ui::LocaleFormat& locale) {
  Page page(kPrintoutName);
  if (result.kind == RateKind::kRepo) {
    page.WriteLines(report);
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
