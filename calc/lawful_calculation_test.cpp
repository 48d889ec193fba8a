#include "calc/lawful_calculation.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/day.h"
#include "values/locale.h"
#include "values/number_text.h"

namespace velta {
namespace {

const BankTables& Tables() {
  static const BankTables tables = ReadBankTables(VELTA_SOURCE_DIR "/data", Day(2026, 11, 21), {});
  return tables;
}

Money Crowns(int crowns) { return Money::FromUnits(crowns * Money::kUnitsPerCrown); }

struct LawfulRow {
  const char* name;
  Date due;
  Date paid;
  RateKind kind;
  double rate;
  std::string_view regulation;
  int days;
  const char* interest;  // on 100 000 Kč, not rounded; worked out by hand from the published rates
};

const LawfulRow kRows[] = {
    {"the first day of the law: twice 8 %", Day(1994, 7, 14), Day(1994, 7, 24), RateKind::kDiscount,
     16, "nařízení vlády č. 142/1994 Sb.", 10, "438,36"},
    {"the discount rate of the first day, not of the due date", Day(2005, 3, 31), Day(2005, 6, 30),
     RateKind::kDiscount, 2, "nařízení vlády č. 142/1994 Sb.", 91, "498,63"},
    {"the last day of the discount rule", Day(2005, 4, 26), Day(2005, 12, 31), RateKind::kDiscount,
     2, "nařízení vlády č. 142/1994 Sb.", 249, "1364,38"},
    // 64 days at 9,5 % and 184 at 8,75 %
    {"the first day of the half-years' rule", Day(2005, 4, 27), Day(2005, 12, 31), RateKind::kRepo,
     0, "nařízení vlády č. 163/2005 Sb.", 248, "6076,71"},
    // one day at 8 % and 184 at 7,75 %
    {"the last day of the half-years' rule", Day(2010, 6, 29), Day(2010, 12, 31), RateKind::kRepo,
     0, "nařízení vlády č. 163/2005 Sb.", 185, "3928,77"},
    {"the first day of a fixed rate", Day(2010, 6, 30), Day(2010, 12, 31), RateKind::kPercentYearly,
     7.75, "nařízení vlády č. 33/2010 Sb.", 184, "3906,85"},
    {"the last day of seven points", Day(2013, 6, 29), Day(2014, 6, 29), RateKind::kPercentYearly,
     7.05, "nařízení vlády č. 33/2010 Sb.", 365, "7050,00"},
    {"the first day of eight points", Day(2013, 6, 30), Day(2014, 6, 30), RateKind::kPercentYearly,
     8.05, "nařízení vlády č. 180/2013 Sb.", 365, "8050,00"},
    {"the first day of today's regulation", Day(2013, 12, 31), Day(2014, 12, 31),
     RateKind::kPercentYearly, 8.05, "nařízení vlády č. 351/2013 Sb.", 365, "8050,00"},
    {"one rate for three years", Day(2020, 12, 31), Day(2023, 12, 31), RateKind::kPercentYearly,
     8.25, "nařízení vlády č. 351/2013 Sb.", 1095, "24750,00"},
    {"a fixed rate needs no later half-year", Day(2026, 12, 30), Day(2028, 12, 29),
     RateKind::kPercentYearly, 11.75, "nařízení vlády č. 351/2013 Sb.", 730, "23500,00"},
};

TEST(LawfulCalculationTest, TheFirstDayOfDelayDecides) {
  for (const LawfulRow& row : kRows) {
    const auto computed =
        LawfulCalculation(row.due, row.paid, Crowns(100000), Tables(), Rounding::kNone);
    const auto* const lawful = std::get_if<LawfulResult>(&computed);
    ASSERT_NE(lawful, nullptr) << row.name;
    const SingleResult& result = lawful->calculation;
    EXPECT_EQ(result.due_date, row.due) << row.name;
    EXPECT_EQ(result.payment_date, row.paid) << row.name;
    EXPECT_EQ(result.days, row.days) << row.name;
    EXPECT_EQ(result.kind, row.kind) << row.name;
    EXPECT_EQ(result.rate, static_cast<Rate>(row.rate)) << row.name;
    EXPECT_EQ(result.base_amount, Crowns(100000)) << row.name;
    EXPECT_EQ(lawful->regulation, row.regulation) << row.name;
    EXPECT_EQ(FixedText(result.interest, 2, LocaleFormat()), row.interest) << row.name;
    EXPECT_EQ(result.amount_with_interest, Money::FromDouble(result.interest) + Crowns(100000))
        << row.name;
  }
}

TEST(LawfulCalculationTest, RoundsAsTheSingleCalculationDoes) {
  struct Row {
    Date due;
    Date paid;
    Rounding rounding;
    const char* interest;
  };
  const Row rows[] = {
      {Day(2020, 12, 31), Day(2021, 3, 31), Rounding::kUpToTenHaler,
       "2034,30"},  // 90 days of 8,25 %: 2034,2466
      {Day(2020, 12, 31), Day(2021, 3, 31), Rounding::kToCrowns, "2034,00"},
      // 64 days of 9,5 %: 1665,7534, up to 1665,80; and 90 of 8,75 %: 2157,5342
      {Day(2005, 4, 27), Day(2005, 9, 28), Rounding::kUpToTenHaler, "3823,40"},
  };
  for (const Row& row : rows) {
    const auto computed =
        LawfulCalculation(row.due, row.paid, Crowns(100000), Tables(), row.rounding);
    EXPECT_EQ(FixedText(std::get<LawfulResult>(computed).calculation.interest, 2, LocaleFormat()),
              row.interest);
  }
}

TEST(LawfulCalculationTest, HalfYearsBeginWithTheFirstDayOfDelay) {
  const auto computed = LawfulCalculation(Day(2005, 6, 30), Day(2006, 1, 1), Crowns(100000),
                                          Tables(), Rounding::kNone);
  const auto& periods = std::get<LawfulResult>(computed).calculation.periods;
  ASSERT_EQ(periods.size(), 2U);
  EXPECT_EQ(periods[0].from, Day(2005, 7, 1));
  EXPECT_EQ(periods[0].to, Day(2005, 12, 31));
  EXPECT_EQ(periods[0].days, 184);
  EXPECT_EQ(periods[0].rate, 8.75F);
  EXPECT_EQ(periods[1].days, 1);
}

TEST(LawfulCalculationTest, RefusesWhatTheLawOrTheTablesDoNotSay) {
  struct Row {
    const char* name;
    Date due;
    Date paid;
    Refusal refusal;
  };
  const Row rows[] = {
      {"paid on the due date", Day(2020, 1, 1), Day(2020, 1, 1), Refusal::kDatesReversed},
      {"a day before the law", Day(1994, 7, 13), Day(2020, 1, 1), Refusal::kBeforeTheLaw},
      {"began after the table", Day(2026, 12, 31), Day(2027, 2, 1), Refusal::kNotPublished},
      {"half-years beyond the table", Day(2009, 1, 1), Day(2027, 1, 1), Refusal::kBeyondTable},
  };
  for (const Row& row : rows) {
    const auto computed =
        LawfulCalculation(row.due, row.paid, Crowns(1), Tables(), Rounding::kNone);
    const auto* const refusal = std::get_if<Refusal>(&computed);
    ASSERT_NE(refusal, nullptr) << row.name;
    EXPECT_EQ(*refusal, row.refusal) << row.name;
    EXPECT_FALSE(Text(*refusal).empty()) << row.name;
  }
}

TEST(LawfulCalculationTest, ADiscountTableWithAGapHasNoRate) {
  BankTables tables;
  tables.discount = {{Day(2003, 1, 1), Day(2003, 1, 31), "", "", 3.5F},
                     {Day(2003, 3, 1), Day(2003, 3, 31), "", "", 3.0F},
                     {Day(2003, 5, 1), Day(2003, 5, 31), "", "", 2.0F}};
  const auto terms = LawfulTermsOf(Day(2003, 2, 10), tables);
  ASSERT_TRUE(std::holds_alternative<Refusal>(terms));
  EXPECT_EQ(std::get<Refusal>(terms), Refusal::kNoRate);
}

}  // namespace
}  // namespace velta
