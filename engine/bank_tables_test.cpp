#include "engine/bank_tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/day.h"
#include "tests/support/english_locale.h"
#include "tests/support/rate_folder.h"
#include "tests/support/thrown.h"

namespace velta {
namespace {

using testing::Thrown;

constexpr Date kToday = Day(2026, 11, 21);
const LocaleFormat kCzech;

CnbRow Discount(Date from, Date to) { return {from, to, "", "", std::nullopt}; }

// --- Reading both tables -----------------------------------------------------------------------

TEST(ReadBankTablesTest, ReadsTheSuppliedTables) {
  for (const std::string folder : {VELTA_SOURCE_DIR "/data", VELTA_SOURCE_DIR "/data/"}) {
    SCOPED_TRACE(folder);
    const BankTables tables = ReadBankTables(folder, kToday, kCzech);
    ASSERT_EQ(tables.discount.size(), 77U);
    EXPECT_EQ(tables.discount.front().valid_from, Day(1990, 1, 1));
    EXPECT_EQ(tables.discount.back().valid_to, kToday);
    EXPECT_EQ(tables.discount.back().rate, 5.5F);
    ASSERT_EQ(tables.repo.size(), 44U);
    EXPECT_EQ(tables.repo.front().start, Day(2005, 1, 1));
    EXPECT_EQ(tables.repo.back().rate, 10.75F);
  }
}

TEST(ReadBankTablesTest, NoFolderIsTheCurrentOne) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(VELTA_SOURCE_DIR "/data");
  EXPECT_EQ(ReadBankTables("", kToday, kCzech).repo.size(), 44U);
  std::filesystem::current_path(before);
}

TEST(ReadBankTablesTest, TheLocaleChangesNoRate) {
  const std::string folder = VELTA_SOURCE_DIR "/data";
  const BankTables czech = ReadBankTables(folder, kToday, kCzech);
  const BankTables english = ReadBankTables(folder, kToday, EnglishLocale());
  ASSERT_EQ(english.discount.size(), czech.discount.size());
  for (std::size_t row = 0; row < czech.discount.size(); ++row) {
    ASSERT_TRUE(czech.discount[row].rate.has_value()) << row;
    EXPECT_EQ(english.discount[row].rate, czech.discount[row].rate) << row;
  }
  ASSERT_EQ(english.repo.size(), czech.repo.size());
  for (std::size_t row = 0; row < czech.repo.size(); ++row) {
    EXPECT_EQ(english.repo[row].rate, czech.repo[row].rate) << row;
  }
}

TEST(ReadBankTablesTest, AFaultOfEitherFileIsTheCallersError) {
  const RateFolder folder;
  const auto read = [&] { ReadBankTables(folder.path(), kToday, kCzech); };
  EXPECT_EQ(Thrown(read), ErrorNumber::kFileNotFound);
  folder.Write(kCnbFile, CrLf({CnbLine("01.01.2003", "", "1,75", "3,50")}));
  EXPECT_EQ(Thrown(read), ErrorNumber::kFileNotFound);
  folder.Write(kRepoFile, CrLf({"010120052,50", "leden 2006"}));
  EXPECT_EQ(Thrown(read), ErrorNumber::kTypeMismatch);
  folder.Write(kRepoFile, CrLf({"010120052,50"}));
  EXPECT_EQ(Thrown(read), std::nullopt);
  folder.Write(kCnbFile, CrLf({CnbLine("leden 2003", "", "1,75", "3,50")}));
  EXPECT_EQ(Thrown(read), ErrorNumber::kTypeMismatch);
}

// --- The discount row of a day -----------------------------------------------------------------

struct DiscountCase {
  const char* name;
  Date day;
  std::optional<std::size_t> row;
};

void ExpectRows(const std::vector<CnbRow>& rows, const std::vector<DiscountCase>& cases) {
  for (const DiscountCase& c : cases) EXPECT_EQ(DiscountRow(rows, c.day), c.row) << c.name;
}

TEST(DiscountRowTest, OfRowsWithoutGap) {
  const std::vector<CnbRow> rows = {
      Discount(Day(2003, 1, 1), Day(2003, 1, 30)), Discount(Day(2003, 1, 31), Day(2003, 6, 25)),
      Discount(Day(2003, 6, 26), Day(2003, 12, 31)), Discount(Day(2004, 1, 1), kToday)};
  ExpectRows(rows, {{"long before the table", Day(1950, 1, 1), 0},
                    {"before the table", Day(2002, 12, 31), 0},
                    {"the first row begins", Day(2003, 1, 1), 0},
                    {"the first row ends", Day(2003, 1, 30), 0},
                    {"the second row begins", Day(2003, 1, 31), 1},
                    {"the second row ends", Day(2003, 6, 25), 1},
                    {"the third row begins", Day(2003, 6, 26), 2},
                    {"the third row ends", Day(2003, 12, 31), 2},
                    {"the last row begins", Day(2004, 1, 1), 3},
                    {"today", kToday, 3},
                    {"after today", Day(2050, 1, 1), 3}});
}

TEST(DiscountRowTest, OfOverlappingRowsTheLastThenTheFirstThenTheLowestWins) {
  const std::vector<CnbRow> rows = {
      Discount(Day(2003, 1, 1), Day(2003, 3, 31)), Discount(Day(2003, 2, 1), Day(2003, 8, 31)),
      Discount(Day(2003, 5, 1), Day(2003, 12, 31)), Discount(Day(2003, 8, 1), kToday)};
  ExpectRows(rows, {{"the first and the second", Day(2003, 3, 1), 0},
                    {"the second alone", Day(2003, 4, 1), 1},
                    {"the second and the third", Day(2003, 6, 1), 1},
                    {"all but the first", Day(2003, 8, 15), 3}});
  // A first row that reaches into the last gives way to it.
  ExpectRows({Discount(Day(2003, 1, 1), Day(2004, 12, 31)), Discount(Day(2004, 1, 1), kToday)},
             {{"before the last", Day(2003, 12, 31), 0}, {"in both", Day(2004, 1, 1), 1}});
}

TEST(DiscountRowTest, ADayInAGapHasNone) {
  const std::vector<CnbRow> rows = {Discount(Day(2003, 1, 1), Day(2003, 1, 30)),
                                    Discount(Day(2003, 3, 1), Day(2003, 6, 25)),
                                    Discount(Day(2004, 1, 1), kToday)};
  ExpectRows(rows, {{"behind the first row", Day(2003, 1, 31), std::nullopt},
                    {"before the second row", Day(2003, 2, 28), std::nullopt},
                    {"the second row begins", Day(2003, 3, 1), 1},
                    {"behind the second row", Day(2003, 6, 26), std::nullopt},
                    {"before the last row", Day(2003, 12, 31), std::nullopt},
                    {"the last row begins", Day(2004, 1, 1), 2}});
}

TEST(DiscountRowTest, OfFewRows) {
  const CnbRow first = Discount(Day(2003, 1, 1), Day(2003, 1, 30));
  const CnbRow last = Discount(Day(2004, 1, 1), kToday);
  ExpectRows({last}, {{"one row, before it", Day(1950, 1, 1), 0},
                      {"one row, in it", Day(2004, 1, 1), 0},
                      {"one row, after it", Day(2050, 1, 1), 0}});
  ExpectRows({first, last}, {{"two rows, the first ends", Day(2003, 1, 30), 0},
                             {"two rows, between", Day(2003, 9, 30), std::nullopt},
                             {"two rows, the last begins", Day(2004, 1, 1), 1}});
  EXPECT_EQ(Thrown([] { DiscountRow({}, kToday); }), ErrorNumber::kTypeMismatch);
}

// --- The half-year of a day --------------------------------------------------------------------

// 9 %, 9,5 % | 8 %, 7,05 % | 9,05 %, 10 % (a leap year)
const std::vector<RepoRow> kThreeYears = {{Day(2006, 1, 1), 9.0F},  {Day(2006, 7, 1), 9.5F},
                                          {Day(2007, 1, 1), 8.0F},  {Day(2007, 7, 1), 7.05F},
                                          {Day(2008, 1, 1), 9.05F}, {Day(2008, 7, 1), 10.0F}};

TEST(HalfYearRowTest, IsTheFirstOrSecondOfTheYear) {
  struct Row {
    const char* name;
    Date day;
    std::optional<std::size_t> row;
  };
  const Row rows[] = {{"the year before the table", Day(2005, 12, 31), std::nullopt},
                      {"the table begins", Day(2006, 1, 1), 0},
                      {"30 June", Day(2006, 6, 30), 0},
                      {"1 July", Day(2006, 7, 1), 1},
                      {"New Year's Eve", Day(2006, 12, 31), 1},
                      {"New Year", Day(2007, 1, 1), 2},
                      {"29 February", Day(2008, 2, 29), 4},
                      {"the table ends", Day(2008, 12, 31), 5},
                      {"the year after the table", Day(2009, 1, 1), std::nullopt}};
  for (const Row& row : rows) EXPECT_EQ(HalfYearRow(kThreeYears, row.day), row.row) << row.name;
  EXPECT_EQ(HalfYearRow({}, Day(2006, 1, 1)), std::nullopt);
}

TEST(HalfYearRowTest, AMissingJulyOfTheLastYearIsAnError) {
  const std::vector<RepoRow> rows = {
      {Day(2006, 1, 1), 9.0F}, {Day(2006, 7, 1), 9.5F}, {Day(2007, 1, 1), 8.0F}};
  EXPECT_EQ(HalfYearRow(rows, Day(2007, 6, 30)), 2U);
  EXPECT_EQ(Thrown([&] { HalfYearRow(rows, Day(2007, 7, 1)); }), ErrorNumber::kBadPropertyValue);
}

// --- The split of a delay ----------------------------------------------------------------------

struct Piece {
  Date from;
  Date to;
  Rate rate;
  int days;
};

struct Split {
  const char* name;
  Date due;
  Date paid;
  std::vector<Piece> pieces;
};

void ExpectPieces(const std::vector<InterestPeriod>& periods, const std::vector<Piece>& pieces) {
  ASSERT_EQ(periods.size(), pieces.size());
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(periods[i].from, pieces[i].from);
    EXPECT_EQ(periods[i].to, pieces[i].to);
    EXPECT_EQ(periods[i].rate, pieces[i].rate);
    EXPECT_EQ(periods[i].days, pieces[i].days);
    EXPECT_EQ(periods[i].interest, 0);
  }
}

HalfYears SplitFrom(const std::vector<RepoRow>& rows, Date due, Date paid) {
  return SplitIntoHalfYears(rows, HalfYearRow(rows, due).value(), due, paid);
}

// The days counted by hand from the lengths of the months.
TEST(SplitIntoHalfYearsTest, GivesEachHalfYearItsDays) {
  const Split splits[] = {
      {"inside a half-year",
       Day(2006, 3, 15),
       Day(2006, 5, 20),
       {{Day(2006, 3, 15), Day(2006, 5, 20), 9.0F, 66}}},
      {"over midyear",
       Day(2006, 6, 20),
       Day(2006, 7, 10),
       {{Day(2006, 6, 20), Day(2006, 6, 30), 9.0F, 10},
        {Day(2006, 7, 1), Day(2006, 7, 10), 9.5F, 10}}},
      {"due on the last day of June",
       Day(2006, 6, 30),
       Day(2006, 7, 1),
       {{Day(2006, 6, 30), Day(2006, 6, 30), 9.0F, 0},
        {Day(2006, 7, 1), Day(2006, 7, 1), 9.5F, 1}}},
      {"due on the first of July",
       Day(2006, 7, 1),
       Day(2006, 7, 2),
       {{Day(2006, 7, 1), Day(2006, 7, 2), 9.5F, 1}}},
      {"due on New Year's Eve",
       Day(2006, 12, 31),
       Day(2007, 1, 1),
       {{Day(2006, 12, 31), Day(2006, 12, 31), 9.5F, 0},
        {Day(2007, 1, 1), Day(2007, 1, 1), 8.0F, 1}}},
      {"paid on the last day of June",
       Day(2006, 6, 1),
       Day(2006, 6, 30),
       {{Day(2006, 6, 1), Day(2006, 6, 30), 9.0F, 29}}},
      {"paid on New Year's Eve",
       Day(2006, 12, 1),
       Day(2006, 12, 31),
       {{Day(2006, 12, 1), Day(2006, 12, 31), 9.5F, 30}}},
      {"all of the table; 2008 has 366 days",
       Day(2006, 1, 1),
       Day(2008, 12, 31),
       {{Day(2006, 1, 1), Day(2006, 6, 30), 9.0F, 180},
        {Day(2006, 7, 1), Day(2006, 12, 31), 9.5F, 184},
        {Day(2007, 1, 1), Day(2007, 6, 30), 8.0F, 181},
        {Day(2007, 7, 1), Day(2007, 12, 31), 7.05F, 184},
        {Day(2008, 1, 1), Day(2008, 6, 30), 9.05F, 182},
        {Day(2008, 7, 1), Day(2008, 12, 31), 10.0F, 184}}},
  };
  for (const Split& split : splits) {
    SCOPED_TRACE(split.name);
    const HalfYears found = SplitFrom(kThreeYears, split.due, split.paid);
    EXPECT_TRUE(found.complete);
    ExpectPieces(found.periods, split.pieces);
  }
}

TEST(SplitIntoHalfYearsTest, ThePiecesJoinWithoutGapAndTheirDaysAddUpToTheDelay) {
  const Date due = Day(2006, 5, 17);
  for (Date paid = due + std::chrono::days(1); paid <= Day(2008, 12, 31);
       paid += std::chrono::days(1)) {
    const HalfYears split = SplitFrom(kThreeYears, due, paid);
    ASSERT_TRUE(split.complete);
    int days = 0;
    Date from = due;
    for (const InterestPeriod& period : split.periods) {
      ASSERT_EQ(period.from, from);
      days += period.days;
      from = period.to + std::chrono::days(1);
    }
    ASSERT_EQ(split.periods.back().to, paid);
    ASSERT_EQ(days, (paid - due).count());
  }
}

TEST(SplitIntoHalfYearsTest, APaymentBehindTheTableLeavesItIncomplete) {
  const HalfYears split = SplitFrom(kThreeYears, Day(2008, 6, 20), Day(2009, 1, 1));
  EXPECT_FALSE(split.complete);
  ExpectPieces(split.periods, {{Day(2008, 6, 20), Day(2008, 6, 30), 9.05F, 10},
                               {Day(2008, 7, 1), Day(2008, 12, 31), 10.0F, 184}});
  EXPECT_TRUE(SplitFrom(kThreeYears, Day(2008, 6, 20), Day(2008, 12, 31)).complete);
}

// --- The interest ------------------------------------------------------------------------------

struct InterestCase {
  const char* name;
  Rate rate;
  int days;
  double amount;
  double interest;
};

// Exact fractions of a separate program, rounded to four decimals; the order of the steps by the
// same program in double precision.
constexpr InterestCase kInterests[] = {
    {"10 000 at 9 % for 66 days", 9.0F, 66, 10000, 162.7397},
    {"a leap half-year; the year has 365 days all the same", 9.05F, 181, 10000, 448.7808},
    {"no days", 9.0F, 0, 36500, 0},
    {"a day", 9.5F, 1, 36500, 9.5},
    {"the rate as written; the single 7.0500001907 gives 349602.7492", 7.05F, 181, 1e7,
     349602.7397},
    {"any other order of the steps ends in .2860", 9.05F, 181, 19090255949978.89,
     856734075585.2850},
    {"nothing owed", 9.0F, 66, 0, 0},
    {"a credit", 9.0F, 66, -10000, -162.7397},
};

TEST(ComputeInterestTest, IsRoundedToFourDecimals) {
  for (const InterestCase& c : kInterests) {
    std::vector<InterestPeriod> periods(1);
    periods[0].rate = c.rate;
    periods[0].days = c.days;
    ComputeInterest(periods, Money::FromDouble(c.amount));
    EXPECT_EQ(periods[0].interest, c.interest) << c.name;
  }
}

TEST(ComputeInterestTest, EveryHalfYearBearsItsOwn) {
  std::vector<InterestPeriod> periods =
      SplitFrom(kThreeYears, Day(2007, 6, 20), Day(2007, 7, 10)).periods;
  ComputeInterest(periods, Money::FromUnits(100000000));
  ASSERT_EQ(periods.size(), 2U);
  EXPECT_EQ(periods[0].interest, 21.9178);  // 10000 × 8 × 10 / 36500 = 21.91780…
  EXPECT_EQ(periods[1].interest, 19.3151);  // 10000 × 7.05 × 10 / 36500 = 19.31506…
}

TEST(ComputeInterestTest, WhereTheRateStaysTheSplitChangesNothing) {
  const std::vector<RepoRow> rows = {{Day(2006, 1, 1), 9.0F},
                                     {Day(2006, 7, 1), 9.0F},
                                     {Day(2007, 1, 1), 9.0F},
                                     {Day(2007, 7, 1), 9.0F}};
  std::vector<InterestPeriod> periods = SplitFrom(rows, Day(2006, 1, 1), Day(2007, 12, 31)).periods;
  ComputeInterest(periods, Money::FromUnits(365000000));
  double sum = 0;
  for (const InterestPeriod& period : periods) sum += period.interest;
  EXPECT_EQ(sum, 6561);  // 36500 × 9 % / 365 is 9 for each of the 729 days
}

}  // namespace
}  // namespace velta
