#include "engine/lawful_rate.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "engine/bank_tables.h"
#include "tests/support/day.h"

namespace velta {
namespace {

const LocaleFormat kCzech;
const std::string kData = VELTA_SOURCE_DIR "/data";

std::vector<RepoRow> SuppliedHalfYears() {
  return ReadBankTables(kData, Day(2026, 11, 21), kCzech).repo;
}

/// The bank's repo rate from each day on which it changed it, in hundredths of a per cent.
std::map<Date, int> PublishedRates() {
  std::map<Date, int> rates;
  std::ifstream file(kData + "/repo.csv");
  std::string line;
  std::getline(file, line);  // the heading
  while (std::getline(file, line)) {
    // "2005-04-29,1.75,V2"
    const Date day =
        Day(std::stoi(line.substr(0, 4)), static_cast<unsigned>(std::stoi(line.substr(5, 2))),
            static_cast<unsigned>(std::stoi(line.substr(8, 2))));
    const std::size_t point = line.find('.');
    rates[day] =
        std::stoi(line.substr(11, point - 11)) * 100 + std::stoi(line.substr(point + 1, 2));
  }
  return rates;
}

int PublishedRate(const std::map<Date, int>& rates, Date day) {
  return std::prev(rates.upper_bound(day))->second;
}

/// The first days of the half-years from the 2nd one of 2010 to the last one of the table.
std::vector<Date> FixedHalfYears() {
  std::vector<Date> days;
  for (Date day = Day(2010, 7, 1); day <= Day(2026, 7, 1); day = AddMonths(day, 6)) {
    days.push_back(day);
  }
  return days;
}

struct RegimeCase {
  const char* name;
  Date first_day;
  LawfulRule rule;
  Rate surcharge;
  const char* regulation;
};

TEST(LawfulRegimeTest, ChangesWithTheRegulations) {
  const RegimeCase cases[] = {
      {"142/1994 begins", Day(1994, 7, 15), LawfulRule::kDiscount, 0, "142/1994"},
      {"142/1994 ends", Day(2005, 4, 27), LawfulRule::kDiscount, 0, "142/1994"},
      {"163/2005 begins", Day(2005, 4, 28), LawfulRule::kHalfYears, 7, "163/2005"},
      {"163/2005 ends", Day(2010, 6, 30), LawfulRule::kHalfYears, 7, "163/2005"},
      {"33/2010 begins", Day(2010, 7, 1), LawfulRule::kFixed, 7, "33/2010"},
      {"33/2010 ends", Day(2013, 6, 30), LawfulRule::kFixed, 7, "33/2010"},
      {"180/2013 begins", Day(2013, 7, 1), LawfulRule::kFixed, 8, "180/2013"},
      {"180/2013 ends", Day(2013, 12, 31), LawfulRule::kFixed, 8, "180/2013"},
      {"351/2013 begins", Day(2014, 1, 1), LawfulRule::kFixed, 8, "351/2013"},
      {"351/2013 goes on", Day(9999, 12, 31), LawfulRule::kFixed, 8, "351/2013"},
  };
  for (const RegimeCase& c : cases) {
    SCOPED_TRACE(c.name);
    const LawfulRegime* const regime = LawfulRegimeOf(c.first_day);
    ASSERT_NE(regime, nullptr);
    EXPECT_EQ(regime->rule, c.rule);
    EXPECT_EQ(regime->surcharge, c.surcharge);
    EXPECT_EQ(regime->regulation, "nařízení vlády č. " + std::string(c.regulation) + " Sb.");
  }
  EXPECT_EQ(LawfulRegimeOf(Day(1994, 7, 14)), nullptr);
  EXPECT_EQ(LawfulRegimeOf(Day(100, 1, 1)), nullptr);
}

struct RateCase {
  Date first_day;
  std::optional<Rate> rate;
};

// The repo rates of the bank's history with 7 and 8 points, by hand.
TEST(LawfulRateTest, IsThatOfTheHalfYearInWhichTheDelayBegan) {
  const std::vector<RepoRow> half_years = SuppliedHalfYears();
  const RateCase cases[] = {
      {Day(1994, 7, 14), std::nullopt}, {Day(2005, 4, 28), std::nullopt},
      {Day(2010, 6, 30), std::nullopt}, {Day(2010, 7, 1), 7.75F},
      {Day(2012, 6, 30), 7.75F},        {Day(2012, 7, 1), 7.5F},
      {Day(2012, 12, 31), 7.5F},        {Day(2013, 1, 1), 7.05F},
      {Day(2013, 6, 30), 7.05F},        {Day(2013, 7, 1), 8.05F},
      {Day(2013, 12, 31), 8.05F},       {Day(2014, 1, 1), 8.05F},
      {Day(2017, 12, 31), 8.05F},       {Day(2018, 1, 1), 8.5F},
      {Day(2021, 12, 31), 8.5F},        {Day(2022, 1, 1), 11.75F},
      {Day(2022, 7, 1), 15.0F},         {Day(2024, 2, 29), 14.75F},
      {Day(2026, 6, 30), 11.5F},        {Day(2026, 7, 1), 11.75F},
      {Day(2026, 11, 16), 11.75F},      {Day(2026, 12, 31), 11.75F},
      {Day(2027, 1, 1), std::nullopt},  {Day(9999, 12, 31), std::nullopt},
  };
  for (const RateCase& c : cases) {
    EXPECT_EQ(LawfulRate(c.first_day, half_years), c.rate) << ShortDateText(c.first_day, kCzech);
  }
}

// The regulations name the half-year's first day from 2014 on, and the day before it until then.
TEST(LawfulRateTest, FollowsFromThePublishedRates) {
  const std::map<Date, int> published = PublishedRates();
  ASSERT_GT(published.size(), 100U);
  const std::vector<RepoRow> half_years = SuppliedHalfYears();
  for (const Date first : FixedHalfYears()) {
    const Date decisive = first < Day(2014, 1, 1) ? AddDays(first, -1) : first;
    const int points = first < Day(2013, 7, 1) ? 700 : 800;
    const double rate = (PublishedRate(published, decisive) + points) / 100.0;
    for (const Date day : {first, AddDays(AddMonths(first, 6), -1)}) {
      EXPECT_EQ(LawfulRate(day, half_years), static_cast<Rate>(rate)) << ShortDateText(day, kCzech);
    }
  }
}

// So one table of half-years serves both ways of the regulations.
TEST(LawfulRateTest, Until2014TheRateOfAHalfYearIsThatOfItsEve) {
  const std::map<Date, int> published = PublishedRates();
  for (const Date first : FixedHalfYears()) {
    if (first > Day(2014, 1, 1)) break;
    EXPECT_EQ(PublishedRate(published, AddDays(first, -1)), PublishedRate(published, first))
        << ShortDateText(first, kCzech);
  }
}

TEST(LawfulRateTest, IsTheSingleNextToTheDecimalRate) {
  for (int hundredths = 0; hundredths <= 3000; ++hundredths) {
    const std::string digits = std::to_string(hundredths % 100);
    const std::string line = "01072013" + std::to_string(hundredths / 100) + "," +
                             (digits.size() == 1 ? "0" + digits : digits);
    EXPECT_EQ(LawfulRate(Day(2013, 7, 1), {ParseRepoRow(line, kCzech)}),
              static_cast<Rate>((hundredths + 800) / 100.0))
        << line;
  }
}

TEST(LawfulRateTest, ATableWithoutTheHalfYearHasNone) {
  const RepoRow january{Day(2020, 1, 1), 9.0F};
  const RepoRow next_january{Day(2021, 1, 1), 7.25F};
  EXPECT_EQ(LawfulRate(Day(2020, 1, 1), {}), std::nullopt);
  EXPECT_EQ(LawfulRate(Day(2019, 12, 31), {january, next_january}), std::nullopt);
  EXPECT_EQ(LawfulRate(Day(2020, 6, 30), {january, next_january}), 10.0F);
  EXPECT_EQ(LawfulRate(Day(2020, 7, 1), {january, next_january}), std::nullopt);
  EXPECT_EQ(LawfulRate(Day(2021, 6, 30), {january, next_january}), 8.25F);
  EXPECT_EQ(LawfulRate(Day(2021, 7, 1), {january, next_january}), std::nullopt);
}

}  // namespace
}  // namespace velta
