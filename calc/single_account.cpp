#include "calc/single_account.h"

#include <string_view>

#include "calc/account_texts.h"

namespace velta {

namespace {

std::string_view Unit(RateKind kind, AccountForm form) {
  if (kind != RateKind::kDiscount) return Text(kind);
  return form == AccountForm::kReport ? "%" : " %";
}

std::vector<AccountLine> SingleRateLines(const SingleResult& result, AccountForm form,
                                         const LocaleFormat& locale) {
  return {{"Úrok z prodlení ode dne:", ShortDateText(result.due_date, locale)},
          {"Úrok z prodlení ke dni:", ShortDateText(result.payment_date, locale)},
          {"Počet dnů prodlení:", std::to_string(result.days)},
          {"Úroková sazba:", RateWithUnit(result.rate, Unit(result.kind, form), locale)},
          {"Dlužná částka:", CurrencyText(result.base_amount, locale)},
          {"Úrok z prodlení", CurrencyText(result.interest, locale)}};
}

std::vector<AccountLine> PeriodLines(const InterestPeriod& period, Money base_amount,
                                     AccountForm form, const LocaleFormat& locale) {
  const bool report = form == AccountForm::kReport;
  std::vector<AccountLine> lines = {
      {"Úrok z prodlení ode dne:", ShortDateText(period.from, locale)},
      {"Úrok z prodlení ke dni:", ShortDateText(period.to, locale)}};
  if (report) lines.push_back({"Dlužná částka:", CurrencyText(base_amount, locale)});
  lines.push_back({"Počet dnů prodlení:", std::to_string(period.days)});
  lines.push_back({"Úroková sazba:", PlainText(period.rate, locale) + (report ? " %" : "")});
  lines.push_back({"Úrok z prodlení", CurrencyText(period.interest, locale)});
  return lines;
}

}  // namespace

SingleAccount MakeSingleAccount(const SingleResult& result, AccountForm form,
                                const LocaleFormat& locale) {
  SingleAccount account;
  if (result.kind == RateKind::kRepo) {
    for (const InterestPeriod& period : result.periods) {
      account.periods.push_back(PeriodLines(period, result.base_amount, form, locale));
    }
    account.sums = {{"Úrok z prodlení celkem", CurrencyText(result.interest, locale)}};
  } else {
    account.sums = SingleRateLines(result, form, locale);
  }
  account.sums.push_back(
      {"Úrok z prodlení + dlužná částka", CurrencyText(result.amount_with_interest, locale)});
  return account;
}

}  // namespace velta
