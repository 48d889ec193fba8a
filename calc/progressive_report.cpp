#include "calc/progressive_report.h"

#include <string_view>

#include "calc/account_texts.h"

namespace velta {

namespace {

// Labels are followed by one tab, or by two where they are short, so that the values line up.
void AddLine(std::string& text, std::string_view label, const std::string& value) {
  text.append(label).append(value).append(kReportLineEnd);
}

/// Whether the debt was paid at once, at one rate: the total is then that one interest.
bool HasOneInterest(const ProgressiveResult& result) {
  return result.payments.size() == 1 && result.payments.front().periods.size() <= 1;
}

}  // namespace

std::string RateText(const ProgressiveResult& result, const LocaleFormat& locale) {
  return RateWithUnit(result.rate, result.kind == RateKind::kDiscount ? "%" : result.kind_text,
                      locale);
}

std::string TotalText(const ProgressiveResult& result, const LocaleFormat& locale) {
  return HasOneInterest(result) ? CurrencyText(result.payments.front().interest, locale)
                                : CurrencyText(result.total, locale);
}

std::string PaymentReport(const ProgressiveResult& result, const Payment& payment,
                          const LocaleFormat& locale) {
  const std::string amount = CurrencyText(payment.amount, locale);
  std::string text;
  // The blanks in these labels are meant: the colons line up, as they do not in the block below.
  for (const InterestPeriod& period : payment.periods) {
    AddLine(text, "Úrok z prodlení ode dne:\t", ShortDateText(period.from, locale));
    AddLine(text, "Úrok z prodlení ke dni :\t", ShortDateText(period.to, locale));
    AddLine(text, "Částečná úhrada ve výši:\t", amount);
    AddLine(text, "Počet dnů prodlení     :\t", std::to_string(period.days));
    AddLine(text, "Úroková sazba          :\t", PlainText(period.rate, locale));
    AddLine(text, "Úrok z prodlení        :\t", CurrencyText(period.interest, locale));
    text.append(kReportLineEnd);
  }
  if (!payment.periods.empty()) return text;
  AddLine(text, "Úrok z prodlení ode dne:\t", ShortDateText(result.due_date, locale));
  AddLine(text, "Úrok z prodlení ke dni:\t", ShortDateText(payment.date, locale));
  AddLine(text, "Částečná úhrada ve výši:\t", amount);
  AddLine(text, "Počet dnů prodlení:\t\t", std::to_string(payment.days));
  AddLine(text, "Úroková sazba:\t\t", RateText(result, locale));
  AddLine(text, "Úrok z prodlení\t\t", CurrencyText(payment.interest, locale));
  return text.append(kReportRule).append(kReportLineEnd);
}

std::string ClosingReport(const ProgressiveResult& result, const LocaleFormat& locale) {
  const bool repo = result.kind == RateKind::kRepo;
  std::string text(kReportLineEnd);
  if (HasOneInterest(result)) {
    text.append(repo ? "Úrok z prodlení celkem  :\t" : "Úrok z prodlení celkem\t");
  } else {
    if (repo) text.append(kReportRule).append(kReportLineEnd);
    text.append("Úrok z prodlení celkem\t");
  }
  return text.append(TotalText(result, locale));
}

}  // namespace velta
