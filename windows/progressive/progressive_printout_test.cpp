#include "windows/progressive/progressive_printout.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/day.h"
#include "tests/support/english_locale.h"
#include "ui/memory/memory_platform.h"

namespace velta {
namespace {

using Lines = std::vector<std::string>;

/// The lines as they are printed; a bold one begins with an asterisk in place of its first blank.
Lines Printed(const ProgressiveResult& result, const std::string& report = "",
              const LocaleFormat& locale = {}) {
  const ui::PrintedDocument document = ProgressivePrintout(result, report, locale);
  EXPECT_EQ(document.font, "Courier New CE");
  EXPECT_EQ(document.point_size, 10);
  Lines lines;
  for (const ui::PrintedLine& line : document.lines) {
    lines.push_back(line.text);
    if (line.bold) lines.back().replace(0, 1, "*");
  }
  return lines;
}

/// Label at column 5, value at column 65; `width` is the label's in characters.
std::string Row(const std::string& label, std::size_t width, const std::string& value) {
  return "    " + label + std::string(60 - width, ' ') + value;
}

const std::string kRule = "    " + std::string(73, '*');
const std::string kHeading = "    Podklady pro výpočet úroku z prodlení";

Lines PaymentLines(const std::string& paid, const std::string& days, const std::string& amount,
                   const std::string& rate, const std::string& interest) {
  return {kRule,
          "",
          Row("Úrok z prodlení ode dne:", 24, "10.3.2005"),
          Row("Úrok z prodlení ke dni:", 23, paid),
          Row("Počet dnů prodlení:", 19, days),
          Row("Částečná výše úhrady:", 21, amount),
          Row("Úroková sazba:", 14, rate),
          Row("Úrok z prodlení:", 16, interest)};
}

std::string TotalLine(const std::string& total) {
  return "*" + Row("Úrok z prodlení celkem :", 24, total).substr(1);
}

Lines Joined(const std::vector<Lines>& parts) {
  Lines all;
  for (const Lines& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

Payment Paid(int days, std::int64_t units, double interest) {
  Payment payment;
  payment.date = Day(2005, 3, 10) + std::chrono::days(days);
  payment.days = days;
  payment.amount = Money::FromUnits(units);
  payment.interest = interest;
  return payment;
}

ProgressiveResult AtRate(RateKind kind, Rate rate, std::vector<Payment> payments,
                         std::int64_t total_units) {
  ProgressiveResult result;
  result.due_date = Day(2005, 3, 10);
  result.kind = kind;
  result.kind_text = Text(kind);
  result.rate = rate;
  result.payments = std::move(payments);
  result.total = Money::FromUnits(total_units);
  return result;
}

TEST(ProgressivePrintoutTest, ListsEveryPaymentAndTheTotalInBold) {
  EXPECT_EQ(Printed(AtRate(RateKind::kPercentYearly, 8.5F,
                           {Paid(102, 40'000'000, 95.1), Paid(112, 60'000'050, 156.5)}, 2'516'000)),
            Joined({{kHeading, ""},
                    PaymentLines("20.6.2005", "102", "4000", "8,5 % ročně", "95,10 Kč"),
                    PaymentLines("30.6.2005", "112", "6000,005", "8,5 % ročně", "156,50 Kč"),
                    {"", TotalLine("251,60 Kč")}}));
}

TEST(ProgressivePrintoutTest, OnePaymentsTotalIsItsInterest) {
  EXPECT_EQ(Printed(AtRate(RateKind::kPerMilleYearly, 85, {Paid(102, 100'000'000, 82.2)}, 822'000)),
            Joined({{kHeading, ""},
                    PaymentLines("20.6.2005", "102", "10000", "85 ‰ ročně", "82,20 Kč"),
                    {"", TotalLine("82,20 Kč")}}));
}

TEST(ProgressivePrintoutTest, DiscountRateIsPerCent) {
  EXPECT_EQ(Printed(AtRate(RateKind::kDiscount, 2.5F, {Paid(102, 100'000'000, 69.9)}, 699'000)),
            Joined({{kHeading, ""},
                    PaymentLines("20.6.2005", "102", "10000", "2,5 %", "69,90 Kč"),
                    {"", TotalLine("69,90 Kč")}}));
}

TEST(ProgressivePrintoutTest, NumbersAndDatesFollowTheLocale) {
  const Lines lines =
      Printed(AtRate(RateKind::kPercentYearly, 8.5F, {Paid(102, 40'000'050, 1095.1)}, 10'951'000),
              "", EnglishLocale());
  EXPECT_EQ(lines[5], Row("Úrok z prodlení ke dni:", 23, "6/20/2005"));
  EXPECT_EQ(lines[7], Row("Částečná výše úhrady:", 21, "4000.005"));
  EXPECT_EQ(lines[8], Row("Úroková sazba:", 14, "8.5 % ročně"));
  EXPECT_EQ(lines.back(), TotalLine("1,095.10 Kč"));
}

TEST(ProgressivePrintoutTest, RepoRegimePrintsTheReportAsItStandsWithItsValuesInOneColumn) {
  EXPECT_EQ(Printed(AtRate(RateKind::kRepo, 0, {Paid(102, 40'000'000, 95.1)}, 951'000),
                    "Nadpis\r\n***\r\nÚrok z prodlení ode dne:\t1.7.2005\r\n\r\n"
                    "Úrok z prodlení celkem\t50,00 Kč"),
            (Lines{"Nadpis", "***", "Úrok z prodlení ode dne:        1.7.2005", "",
                   "Úrok z prodlení celkem          50,00 Kč"}));
}

TEST(ProgressivePrintoutTest, IsNamedAfterTheAmountOwedAndItsDueDate) {
  const std::int64_t crown = Money::kUnitsPerCrown;
  ProgressiveResult result = AtRate(RateKind::kPercentYearly, 8.5F, {}, 0);
  result.payments = {Paid(1, 4000 * crown, 1), Paid(2, 6000 * crown, 1)};
  result.payments[0].balance = Money::FromUnits(6000 * crown);
  EXPECT_EQ(ProgressivePrintout(result, "", {}).name,
            "Výpočet úroku z prodlení 10 000 Kč 10.3.2005");
  result.kind = RateKind::kRepo;
  EXPECT_EQ(ProgressivePrintout(result, "", {}).name,
            "Výpočet úroku z prodlení 10 000 Kč 10.3.2005");
}

TEST(ProgressivePrintoutTest, PaymentIsNotPartedByTheEndOfAPage) {
  ProgressiveResult result = AtRate(RateKind::kPercentYearly, 8.5F, {}, 0);
  for (int days = 1; days <= 9; ++days) result.payments.push_back(Paid(days, 1, 1));
  const auto lines = ProgressivePrintout(result, "", {}).lines;
  // Two lines of the heading and eight for each payment: of the eighth a line would not fit.
  EXPECT_EQ(ui::PageStarts(lines), (std::vector<std::size_t>{0, 2 + 7 * 8}));
  EXPECT_EQ(lines[2 + 7 * 8].text, kRule);
}

TEST(ProgressivePrintoutTest, LongPrintoutLosesNoPayment) {
  ProgressiveResult result = AtRate(RateKind::kPercentYearly, 8.5F, {}, 0);
  for (int days = 1; days <= 200; ++days)
    result.payments.push_back(Paid(days, std::int64_t{days} * Money::kUnitsPerCrown, 1));
  const Lines lines = Printed(result);
  ASSERT_EQ(lines.size(), 2U + 200 * 8 + 2);
  for (int days = 1; days <= 200; ++days) {
    const std::size_t at = 2 + static_cast<std::size_t>(days - 1) * 8;
    EXPECT_EQ(lines[at + 4], Row("Počet dnů prodlení:", 19, std::to_string(days)));
    EXPECT_EQ(lines[at + 5], Row("Částečná výše úhrady:", 21, std::to_string(days)));
  }
}

}  // namespace
}  // namespace velta
