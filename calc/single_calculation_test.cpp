#include "calc/single_calculation.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "tests/support/day.h"
#include "tests/support/thrown.h"

namespace velta {
namespace {

using testing::Thrown;

const LocaleFormat kCzech;

const BankTables& Supplied() {
  static const BankTables kTables =
      ReadBankTables(VELTA_SOURCE_DIR "/data", Day(2026, 11, 21), kCzech);
  return kTables;
}

Money Crowns(const char* amount) { return ToMoney(amount, kCzech); }

SingleResult Computed(const SingleInputs& inputs, Rounding rounding,
                      const BankTables& tables = Supplied()) {
  return std::get<SingleResult>(SingleCalculation(inputs, tables, rounding));
}

std::optional<Refusal> Refused(const SingleInputs& inputs, const BankTables& tables = Supplied()) {
  const auto outcome = SingleCalculation(inputs, tables, Rounding::kNone);
  const auto* const refusal = std::get_if<Refusal>(&outcome);
  return refusal == nullptr ? std::nullopt : std::optional(*refusal);
}

// --- A typed rate ------------------------------------------------------------------------------

struct TypedCase {
  const char* name;
  const char* amount;
  RateKind kind;
  Rate rate;
  int days;
  Rounding rounding;
  const char* interest;
  const char* total;
};

using Kind = RateKind;
using Rule = Rounding;

// The worked examples of the formulas and of the rounding, counted by hand.
const TypedCase kTyped[] = {
    {"a year", "10000", Kind::kPercentYearly, 10, 365, Rule::kNone, "1 000,00 Kč", "11 000,00 Kč"},
    {"a leap year", "10000", Kind::kPercentYearly, 10, 366, Rule::kNone, "1 002,74 Kč",
     "11 002,74 Kč"},
    {"up to 10 haléř", "10000", Kind::kPercentYearly, 10, 366, Rule::kUpToTenHaler, "1 002,80 Kč",
     "11 002,80 Kč"},
    {"to crowns", "10000", Kind::kPercentYearly, 10, 366, Rule::kToCrowns, "1 003,00 Kč",
     "11 003,00 Kč"},
    {"a foreign word rounds nothing", "10000", Kind::kPercentYearly, 10, 366, Rule::kUnknown,
     "1 002,74 Kč", "11 002,74 Kč"},
    {"a rate by the day", "1000000", Kind::kPercentDaily, 0.05F, 100, Rule::kNone, "50 000,00 Kč",
     "1 050 000,00 Kč"},
    {"the single lies above 0,05", "10000000", Kind::kPercentDaily, 0.05F, 100, Rule::kUpToTenHaler,
     "500 000,10 Kč", "10 500 000,10 Kč"},
    {"per mille a year", "10000", Kind::kPerMilleYearly, 85, 365, Rule::kNone, "850,00 Kč",
     "10 850,00 Kč"},
    {"per mille a day", "10000", Kind::kPerMilleDaily, 0.5F, 45, Rule::kNone, "225,00 Kč",
     "10 225,00 Kč"},
    {"crowns a day", "10000", Kind::kCrownsDaily, 15, 10, Rule::kNone, "150,00 Kč", "10 150,00 Kč"},
    {"crowns a year", "5000", Kind::kCrownsYearly, 1500, 10, Rule::kUpToTenHaler, "41,10 Kč",
     "5 041,10 Kč"},
    {"a tie to the even crown below", "4562,50", Kind::kPercentYearly, 1, 100, Rule::kToCrowns,
     "12,00 Kč", "4 574,50 Kč"},
    {"a tie to the even crown above", "4927,50", Kind::kPercentYearly, 1, 100, Rule::kToCrowns,
     "14,00 Kč", "4 941,50 Kč"},
    {"90 days", "10000", Kind::kPercentYearly, 8, 90, Rule::kNone, "197,26 Kč", "10 197,26 Kč"},
    {"58 days", "10000", Kind::kPercentYearly, 8.5F, 58, Rule::kNone, "135,07 Kč", "10 135,07 Kč"},
    {"30 days", "15000", Kind::kPercentYearly, 10, 30, Rule::kNone, "123,29 Kč", "15 123,29 Kč"},
    // Where another order of the operations would show another amount.
    {"order, by the day", "11185,65", Kind::kPercentDaily, 23, 398, Rule::kUpToTenHaler,
     "1 023 934,40 Kč", "1 035 120,05 Kč"},
    {"order, per mille a year", "7358,75", Kind::kPerMilleYearly, 23, 292, Rule::kUpToTenHaler,
     "135,50 Kč", "7 494,25 Kč"},
    {"order, per mille a day", "14755,88", Kind::kPerMilleDaily, 8.25F, 100, Rule::kUpToTenHaler,
     "12 173,70 Kč", "26 929,58 Kč"},
    {"order, divisions", "13496,50", Kind::kPercentYearly, 19, 219, Rule::kUpToTenHaler,
     "1 538,60 Kč", "15 035,10 Kč"},
    {"order, days", "15491,01", Kind::kPercentYearly, 10, 365, Rule::kUpToTenHaler, "1 549,10 Kč",
     "17 040,11 Kč"},
    {"order, rate", "3028,85", Kind::kPercentYearly, 26, 365, Rule::kUpToTenHaler, "787,50 Kč",
     "3 816,35 Kč"},
    {"interest is shown from its own digits", "0,496", Kind::kPercentDaily, 1, 1, Rule::kNone,
     "0,00 Kč", "0,50 Kč"},
    {"a large amount keeps its haléř", "90000000000000,01", Kind::kPercentYearly, 0, 10,
     Rule::kNone, "0,00 Kč", "90 000 000 000 000,01 Kč"},
    {"no interest", "10000", Kind::kPercentYearly, 0, 365, Rule::kNone, "0,00 Kč", "10 000,00 Kč"},
    {"a negative rate", "10000", Kind::kPercentYearly, -1, 365, Rule::kNone, "-100,00 Kč",
     "9 900,00 Kč"},
    {"interest and sum may differ by a haléř", "12345", Kind::kPercentYearly, 8.25F, 81,
     Rule::kNone, "226,01 Kč", "12 571,02 Kč"},
};

TEST(SingleCalculationTest, OfATypedRate) {
  for (const TypedCase& c : kTyped) {
    SCOPED_TRACE(c.name);
    const Date due = Day(2023, 1, 10);
    const SingleResult result =
        Computed({due, AddDays(due, c.days), Crowns(c.amount), c.kind, c.rate}, c.rounding);
    EXPECT_EQ(CurrencyText(result.interest, kCzech), c.interest);
    EXPECT_EQ(CurrencyText(result.amount_with_interest, kCzech), c.total);
    EXPECT_EQ(result.days, c.days);
    EXPECT_EQ(result.due_date, due);
    EXPECT_EQ(result.payment_date, AddDays(due, c.days));
    EXPECT_EQ(result.base_amount, Crowns(c.amount));
    EXPECT_EQ(result.kind, c.kind);
    EXPECT_EQ(result.rate, c.rate);
    EXPECT_TRUE(result.periods.empty());
  }
}

TEST(SingleCalculationTest, OfTheLongestDelay) {
  const SingleResult result = Computed(
      {Day(1900, 1, 1), Day(9999, 12, 31), Crowns("1"), Kind::kPercentYearly, 100}, Rule::kNone);
  EXPECT_EQ(result.days, 2958463);
  EXPECT_EQ(CurrencyText(result.interest, kCzech), "8 105,38 Kč");  // 2958463 / 365
}

TEST(SingleCalculationTest, ATypedKindNeedsNoTables) {
  const SingleResult result =
      Computed({Day(2005, 4, 28), Day(2006, 4, 28), Crowns("10000"), Kind::kPercentYearly, 10},
               Rule::kNone, BankTables());
  EXPECT_EQ(result.interest, 1000);
}

// --- The bank's regimes ------------------------------------------------------------------------

struct BankCase {
  const char* name;
  Date due;
  Date paid;
  RateKind kind;
  Rounding rounding;
  RateKind kind_taken;
  Rate rate;
  std::size_t periods;
  const char* interest;
  const char* total;
};

// Discount: 2 × 1,25 % on 10.3.2005 and 2 × 1,00 % on 27.4.2005; 102 and 253 days.
// Repo, one half-year: 10 000 × 9 ÷ 100 × 66 ÷ 365 = 162,7397. Three: 132,7397 + 441,0959 +
// 320,5479, rounded after each, so that 132,80 + 441,0959 makes 573,90 and with 320,5479 894,50.
const BankCase kBank[] = {
    {"discount", Day(2005, 3, 10), Day(2005, 6, 20), Kind::kDiscount, Rule::kNone, Kind::kDiscount,
     2.5F, 0, "69,86 Kč", "10 069,86 Kč"},
    {"discount, up to 10 haléř", Day(2005, 3, 10), Day(2005, 6, 20), Kind::kDiscount,
     Rule::kUpToTenHaler, Kind::kDiscount, 2.5F, 0, "69,90 Kč", "10 069,90 Kč"},
    {"the rate of the due date holds for the whole delay", Day(2005, 4, 27), Day(2006, 1, 5),
     Kind::kDiscount, Rule::kNone, Kind::kDiscount, 2, 0, "138,63 Kč", "10 138,63 Kč"},
    {"the last due date of the discount regime", Day(2005, 4, 27), Day(2005, 6, 20), Kind::kRepo,
     Rule::kNone, Kind::kDiscount, 2, 0, "29,59 Kč", "10 029,59 Kč"},
    {"the first due date of the repo regime", Day(2005, 4, 28), Day(2005, 6, 20), Kind::kDiscount,
     Rule::kNone, Kind::kRepo, 0, 1, "137,95 Kč", "10 137,95 Kč"},
    {"repo, one half-year", Day(2006, 3, 15), Day(2006, 5, 20), Kind::kRepo, Rule::kNone,
     Kind::kRepo, 0, 1, "162,74 Kč", "10 162,74 Kč"},
    {"repo, one half-year, up to 10 haléř", Day(2006, 3, 15), Day(2006, 5, 20), Kind::kRepo,
     Rule::kUpToTenHaler, Kind::kRepo, 0, 1, "162,80 Kč", "10 162,80 Kč"},
    {"repo, one half-year, to crowns", Day(2006, 3, 15), Day(2006, 5, 20), Kind::kRepo,
     Rule::kToCrowns, Kind::kRepo, 0, 1, "163,00 Kč", "10 163,00 Kč"},
    {"repo, three half-years", Day(2005, 5, 10), Day(2006, 5, 10), Kind::kRepo, Rule::kNone,
     Kind::kRepo, 0, 3, "894,38 Kč", "10 894,38 Kč"},
    {"repo, three half-years, up to 10 haléř", Day(2005, 5, 10), Day(2006, 5, 10), Kind::kRepo,
     Rule::kUpToTenHaler, Kind::kRepo, 0, 3, "894,50 Kč", "10 894,50 Kč"},
    {"repo, three half-years, to crowns", Day(2005, 5, 10), Day(2006, 5, 10), Kind::kRepo,
     Rule::kToCrowns, Kind::kRepo, 0, 3, "895,00 Kč", "10 895,00 Kč"},
};

TEST(SingleCalculationTest, OfTheBanksRates) {
  for (const BankCase& c : kBank) {
    SCOPED_TRACE(c.name);
    // The typed rate counts for nothing.
    const SingleResult result = Computed({c.due, c.paid, Crowns("10000"), c.kind, 77}, c.rounding);
    EXPECT_EQ(result.kind, c.kind_taken);
    if (c.kind_taken == Kind::kDiscount) {
      EXPECT_EQ(result.rate, c.rate);
    }
    EXPECT_EQ(result.periods.size(), c.periods);
    EXPECT_EQ(CurrencyText(result.interest, kCzech), c.interest);
    EXPECT_EQ(CurrencyText(result.amount_with_interest, kCzech), c.total);
  }
}

TEST(SingleCalculationTest, TheHalfYearsStandInTheResult) {
  const SingleResult result = Computed(
      {Day(2005, 5, 10), Day(2006, 5, 10), Crowns("10000"), Kind::kRepo, 0}, Rule::kToCrowns);
  ASSERT_EQ(result.periods.size(), 3U);
  EXPECT_EQ(result.days, 365);
  struct Row {
    Date from;
    Date to;
    Rate rate;
    int days;
    double interest;  // not rounded by the rule
  };
  const Row rows[] = {{Day(2005, 5, 10), Day(2005, 6, 30), 9.5F, 51, 132.7397},
                      {Day(2005, 7, 1), Day(2005, 12, 31), 8.75F, 184, 441.0959},
                      {Day(2006, 1, 1), Day(2006, 5, 10), 9.0F, 130, 320.5479}};
  for (std::size_t i = 0; i < 3; ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(result.periods[i].from, rows[i].from);
    EXPECT_EQ(result.periods[i].to, rows[i].to);
    EXPECT_EQ(result.periods[i].rate, rows[i].rate);
    EXPECT_EQ(result.periods[i].days, rows[i].days);
    EXPECT_EQ(result.periods[i].interest, rows[i].interest);
  }
}

// --- Why there is no result --------------------------------------------------------------------

struct RefusedCase {
  const char* name;
  RateKind kind;
  Date due;
  Date paid;
  std::optional<Refusal> refusal;
};

TEST(SingleCalculationTest, WhatIsRefused) {
  const RefusedCase cases[] = {
      {"paid on the due date", Kind::kPercentYearly, Day(2005, 3, 10), Day(2005, 3, 10),
       Refusal::kDatesReversed},
      {"paid before the due date", Kind::kRepo, Day(2006, 3, 10), Day(2006, 3, 9),
       Refusal::kDatesReversed},
      {"paid on the next day", Kind::kPercentYearly, Day(2005, 3, 10), Day(2005, 3, 11),
       std::nullopt},
      {"due behind the table", Kind::kRepo, Day(2027, 1, 1), Day(2027, 2, 1), Refusal::kNoRate},
      {"paid on the table's last day", Kind::kRepo, Day(2026, 7, 15), Day(2026, 12, 31),
       std::nullopt},
      {"paid behind the table", Kind::kRepo, Day(2026, 7, 15), Day(2027, 1, 1),
       Refusal::kBeyondTable},
      {"a discount of long ago", Kind::kDiscount, Day(1950, 1, 1), Day(1950, 2, 1), std::nullopt},
  };
  for (const RefusedCase& c : cases) {
    EXPECT_EQ(Refused({c.due, c.paid, Crowns("10000"), c.kind, 10}), c.refusal) << c.name;
  }
}

TEST(SingleCalculationTest, ADiscountTableMayHaveNoRate) {
  const auto row = [](Date from, Date to, std::optional<Rate> rate) {
    return CnbRow{from, to, "", "", rate};
  };
  const BankTables tables = {
      {row(Day(2003, 1, 1), Day(2003, 6, 30), 3.5F), row(Day(2003, 7, 1), Day(2003, 12, 31), 0),
       row(Day(2004, 2, 1), Day(2004, 12, 31), std::nullopt),
       row(Day(2005, 1, 1), Day(2026, 11, 21), 2.0F)},
      {}};
  const auto inputs = [](Date due) {
    return SingleInputs{due, AddDays(due, 10), Crowns("10000"), Kind::kDiscount, 0};
  };
  EXPECT_EQ(Refused(inputs(Day(2003, 3, 1)), tables), std::nullopt);
  EXPECT_EQ(Refused(inputs(Day(2004, 1, 15)), tables), Refusal::kNoRate) << "a gap";
  EXPECT_EQ(Refused(inputs(Day(2003, 9, 1)), tables), Refusal::kNoRate) << "a rate of 0";
  EXPECT_EQ(Thrown([&] { Refused(inputs(Day(2004, 3, 1)), tables); }), ErrorNumber::kTypeMismatch)
      << "no number";
  EXPECT_EQ(Thrown([&] { Refused(inputs(Day(2003, 3, 1)), BankTables()); }),
            ErrorNumber::kTypeMismatch)
      << "no rows";
}

TEST(SingleCalculationTest, ATableOfHalfYearsMayLackAJuly) {
  const BankTables tables = {{}, {{Day(2006, 1, 1), 9.0F}}};
  const auto inputs = [](Date due) {
    return SingleInputs{due, AddDays(due, 10), Crowns("10000"), Kind::kRepo, 0};
  };
  EXPECT_EQ(Refused(inputs(Day(2006, 6, 20)), tables), std::nullopt);
  EXPECT_EQ(Refused(inputs(Day(2006, 6, 21)), tables), Refusal::kBeyondTable);
  EXPECT_EQ(Thrown([&] { Refused(inputs(Day(2006, 7, 1)), tables); }),
            ErrorNumber::kBadPropertyValue);
}

TEST(SingleCalculationTest, AnAmountOutOfRangeIsAnOverflow) {
  const auto compute = [](const char* amount, RateKind kind, Rate rate) {
    Refused({Day(2006, 3, 15), Day(2006, 5, 20), Crowns(amount), kind, rate});
  };
  EXPECT_EQ(Thrown([&] { compute("922337203685477,58", Kind::kPercentYearly, 0); }), std::nullopt);
  EXPECT_EQ(Thrown([&] { compute("922337203685477,58", Kind::kPercentYearly, 10); }),
            ErrorNumber::kOverflow);
  EXPECT_EQ(Thrown([&] { compute("922337203685477,58", Kind::kRepo, 0); }), ErrorNumber::kOverflow);
  EXPECT_EQ(Thrown([&] { compute("1", Kind::kCrownsDaily, 3e38F); }), ErrorNumber::kOverflow);
}

// --- The steps ---------------------------------------------------------------------------------

TEST(InterestOfTest, RoundsAfterEveryHalfYear) {
  std::vector<InterestPeriod> periods(3);
  EXPECT_EQ(InterestOf({}, Rule::kUpToTenHaler), 0);
  periods[0].interest = 132.7397;
  periods[1].interest = 441.0959;
  periods[2].interest = 320.5479;
  EXPECT_DOUBLE_EQ(InterestOf(periods, Rule::kNone), 894.3835);
  EXPECT_DOUBLE_EQ(InterestOf(periods, Rule::kUpToTenHaler), 894.5);
  EXPECT_DOUBLE_EQ(InterestOf(periods, Rule::kToCrowns), 895);  // 133, 574, 895
  // Once more at the end: where a double has no haléř to spare, rounding up again is another step.
  periods.resize(1);
  periods[0].interest = 100000000000000.3;
  EXPECT_EQ(InterestOf(periods, Rule::kUpToTenHaler), 100000000000000.5);
}

TEST(CompleteTest, WhereTheSumIsOutOfRangeTheRecordKeepsWhatItHad) {
  SingleResult result;
  result.base_amount = Crowns("922337203685477");
  Complete(result, 0.5);
  EXPECT_EQ(result.amount_with_interest, Crowns("922337203685477,5"));
  EXPECT_EQ(Thrown([&] { Complete(result, 1); }), ErrorNumber::kOverflow);
  EXPECT_EQ(Thrown([&] { Complete(result, 1e300); }), ErrorNumber::kOverflow);
  EXPECT_EQ(result.interest, 0.5);
  EXPECT_EQ(result.amount_with_interest, Crowns("922337203685477,5"));
}

}  // namespace
}  // namespace velta
