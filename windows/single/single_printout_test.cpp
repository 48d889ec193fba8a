#include "windows/single/single_printout.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/day.h"

namespace velta {
namespace {

using Lines = std::vector<std::string>;

Lines Printed(const SingleResult& result) {
  const ui::PrintedDocument document = SinglePrintout(result, {});
  EXPECT_EQ(document.font, "Courier New CE");
  EXPECT_EQ(document.point_size, 10);
  Lines lines;
  for (const ui::PrintedLine& line : document.lines) {
    EXPECT_FALSE(line.bold);
    lines.push_back(line.text);
  }
  return lines;
}

/// Label at column 5, value at column 65; `width` is the label's in characters.
std::string Row(const std::string& label, std::size_t width, const std::string& value) {
  return "    " + label + std::string(60 - width, ' ') + value;
}

const std::string kRule = "    " + std::string(73, '*');

Lines SingleRatePage(const std::string& rate) {
  return {"", "",
          "", "    Podklady pro výpočet úroku z prodlení",
          "", kRule,
          "", Row("Úrok z prodlení ode dne:", 24, "10.3.2005"),
          "", Row("Úrok z prodlení ke dni:", 23, "20.6.2005"),
          "", Row("Počet dnů prodlení:", 19, "102"),
          "", Row("Úroková sazba:", 14, rate),
          "", Row("Dlužná částka:", 14, "10 000,00 Kč"),
          "", Row("Úrok z prodlení", 15, "285,07 Kč"),
          "", Row("Úrok z prodlení + dlužná částka", 31, "10 285,07 Kč"),
          "", kRule,
          ""};
}

SingleResult SingleRate(RateKind kind, Rate rate) {
  return {Day(2005, 3, 10),
          Day(2005, 6, 20),
          102,
          Money::FromUnits(100'000'000),
          kind,
          rate,
          {},
          285.0684931506849,
          Money::FromUnits(102'850'685)};
}

TEST(SinglePrintoutTest, TypedRate) {
  EXPECT_EQ(Printed(SingleRate(RateKind::kPercentYearly, 8.5F)), SingleRatePage("8,5 % ročně"));
}

TEST(SinglePrintoutTest, IsNamedAfterTheAmountAndItsDueDate) {
  SingleResult result = SingleRate(RateKind::kPercentYearly, 8.5F);
  EXPECT_EQ(SinglePrintout(result, {}).name, "Výpočet úroku z prodlení 10 000 Kč 10.3.2005");
  result.base_amount = Money::FromUnits(12'345'678'900);
  EXPECT_EQ(SinglePrintout(result, {",", "\u00A0", "d.M.yyyy"}).name,
            "Výpočet úroku z prodlení 1 234 567,89 Kč 10.3.2005");
  EXPECT_EQ(SinglePrintout(result, {".", ",", "M/d/yyyy"}).name,
            "Výpočet úroku z prodlení 1 234 567.89 Kč 3/10/2005");
}

TEST(SinglePrintoutTest, PeriodsAndSumsAreNotPartedByTheEndOfAPage) {
  SingleResult result = SingleRate(RateKind::kRepo, 0);
  result.periods.resize(8);
  const auto lines = SinglePrintout(result, {}).lines;
  // Three empty lines and four of the heading, then eleven for each period: five and their empty
  // lines, and one more. The page's 65th line is in the sixth period, which begins at line 62.
  EXPECT_EQ(ui::PageStarts(lines), (std::vector<std::size_t>{0, 62}));
  EXPECT_TRUE(lines[62].text.starts_with("    Úrok z prodlení ode dne:"));
}

TEST(SinglePrintoutTest, DiscountRateHasTwoBlanksBeforeItsSign) {
  EXPECT_EQ(Printed(SingleRate(RateKind::kDiscount, 3)), SingleRatePage("3  %"));
}

TEST(SinglePrintoutTest, RepoRegimeListsItsPeriodsWithoutTheAmount) {
  SingleResult result;
  result.due_date = Day(2005, 6, 20);
  result.payment_date = Day(2005, 7, 10);
  result.days = 20;
  result.base_amount = Money::FromUnits(100'000'000);
  result.kind = RateKind::kRepo;
  result.periods = {{Day(2005, 6, 20), Day(2005, 6, 30), 9.5F, 10, 26.0274},
                    {Day(2005, 7, 1), Day(2005, 7, 10), 8.75F, 10, 23.9726}};
  result.interest = 50.1;
  result.amount_with_interest = Money::FromUnits(100'501'000);
  EXPECT_EQ(Printed(result), (Lines{"",
                                    "",
                                    "",
                                    "    Podklady pro výpočet úroku z prodlení",
                                    "",
                                    kRule,
                                    "",
                                    Row("Úrok z prodlení ode dne:", 24, "20.6.2005"),
                                    "",
                                    Row("Úrok z prodlení ke dni:", 23, "30.6.2005"),
                                    "",
                                    Row("Počet dnů prodlení:", 19, "10"),
                                    "",
                                    Row("Úroková sazba:", 14, "9,5"),
                                    "",
                                    Row("Úrok z prodlení", 15, "26,03 Kč"),
                                    "",
                                    "",
                                    Row("Úrok z prodlení ode dne:", 24, "1.7.2005"),
                                    "",
                                    Row("Úrok z prodlení ke dni:", 23, "10.7.2005"),
                                    "",
                                    Row("Počet dnů prodlení:", 19, "10"),
                                    "",
                                    Row("Úroková sazba:", 14, "8,75"),
                                    "",
                                    Row("Úrok z prodlení", 15, "23,97 Kč"),
                                    "",
                                    "",
                                    "",
                                    Row("Úrok z prodlení celkem", 22, "50,10 Kč"),
                                    "",
                                    Row("Úrok z prodlení + dlužná částka", 31, "10 050,10 Kč"),
                                    "",
                                    kRule,
                                    ""}));
}

TEST(SinglePrintoutTest, LargestAmountFitsIntoTheLine) {
  SingleResult result = SingleRate(RateKind::kPercentYearly, 0);
  result.base_amount = Money::FromUnits(9'223'372'036'854'775'807);
  const Lines lines = Printed(result);
  EXPECT_EQ(lines.size(), SingleRatePage("").size());
  EXPECT_EQ(lines[15], Row("Dlužná částka:", 14, "922 337 203 685 477,58 Kč"));
}

}  // namespace
}  // namespace velta
