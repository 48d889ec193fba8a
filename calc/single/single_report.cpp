#include "calc/single/single_report.h"

#include <string_view>
#include <utility>

namespace velta {

namespace {

constexpr std::string_view kHeading = "Podklady pro výpočet úroku z prodlení\r\n";
constexpr std::string_view kRule = "****************************************************\r\n";

class Lines {
 public:
  void Add(std::string_view line) { text_ += line; }
  void Add(std::string_view label, std::string_view value) {
    text_.append("\t").append(label).append("\t").append(value).append("\r\n");
  }
  std::string Take() { return std::move(text_); }

 private:
  std::string text_;
};

// Here the bank's rate reads "3 %", with one blank; the printout has two, which is meant.
std::string RateText(const CalculationResult& result, const ui::LocaleFormat& locale) {
  std::string rate = PlainText(result.rate, locale) + " ";
  rate += result.kind == RateKind::kDiscount
              ? "%"
              : kRateKindTexts.at(static_cast<std::size_t>(result.kind));
  return rate;
}

void AddSingleRate(Lines& lines, const CalculationResult& result, const ui::LocaleFormat& locale) {
  lines.Add("Úrok z prodlení ode dne:", ShortDateText(result.due_date, locale));
  lines.Add("Úrok z prodlení ke dni:", ShortDateText(result.payment_date, locale));
  lines.Add("Počet dnů prodlení:", std::to_string(result.days));
  lines.Add("Úroková sazba:", RateText(result, locale));
  lines.Add("Dlužná částka:", CurrencyText(result.base_amount, locale));
  lines.Add("Úrok z prodlení", CurrencyText(result.interest, locale));
}

void AddPeriods(Lines& lines, const CalculationResult& result, const ui::LocaleFormat& locale) {
  for (const InterestPeriod& period : result.periods) {
    lines.Add("Úrok z prodlení ode dne:", ShortDateText(period.from, locale));
    lines.Add("Úrok z prodlení ke dni:", ShortDateText(period.to, locale));
    lines.Add("Dlužná částka:", CurrencyText(result.base_amount, locale));
    lines.Add("Počet dnů prodlení:", std::to_string(period.days));
    lines.Add("Úroková sazba:", PlainText(period.rate, locale) + " %");
    lines.Add("Úrok z prodlení", CurrencyText(period.interest, locale));
    lines.Add("\r\n");
  }
  lines.Add("\r\n");
  lines.Add("Úrok z prodlení celkem", CurrencyText(result.interest, locale));
}

}  // namespace

std::string SingleReport(const CalculationResult& result, const ui::LocaleFormat& locale) {
  Lines lines;
  lines.Add(kHeading);
  lines.Add(kRule);
  if (result.kind == RateKind::kRepo) {
    AddPeriods(lines, result, locale);
  } else {
    AddSingleRate(lines, result, locale);
  }
  lines.Add("Úrok z prodlení + dlužná částka", CurrencyText(result.amount_with_interest, locale));
  lines.Add(kRule);
  return lines.Take();
}

}  // namespace velta
