/// The rates that README.md and the help tell people to type are those of the program's own
/// functions and tables.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include "calc/single_calculation.h"
#include "engine/bank_tables.h"
#include "engine/lawful_rate.h"
#include "tests/support/day.h"
#include "values/file.h"

namespace velta {
namespace {

const LocaleFormat kCzech;
const std::string kRoot = VELTA_SOURCE_DIR;

const BankTables& Supplied() {
  static const BankTables kTables = ReadBankTables(kRoot + "/data", Day(2026, 11, 21), kCzech);
  return kTables;
}

/// A row of either table: all delays that began on these days have this rate.
struct RateToType {
  Date first;
  Date last;
  Rate rate;
};

std::vector<std::smatch> Rows(const std::string& text, const std::regex& form) {
  return {std::sregex_iterator(text.begin(), text.end(), form), std::sregex_iterator()};
}

/// "1st" and "2005" are 1.1.2005.
Date FirstDay(const std::string& half, const std::string& year) {
  return Day(std::stoi(year), half == "1st" ? 1 : 7, 1);
}

Date LastDay(const std::string& half, const std::string& year) {
  return AddDays(AddMonths(FirstDay(half, year), 6), -1);
}

Date HelpDate(const std::string& text) { return ParseShortDate(text, kCzech); }

/// "2nd half 2010 – 1st half 2012 | 7,75", or one half-year alone.
std::vector<RateToType> ReadmeRates(const std::string& readme) {
  const std::regex form(R"((1st|2nd) half (\d{4})(?: – (1st|2nd) half (\d{4}))? \| (\d+,\d\d) )");
  std::vector<RateToType> rates;
  for (const std::smatch& row : Rows(readme, form)) {
    const bool one = !row[3].matched;
    rates.push_back({FirstDay(row[1], row[2]), LastDay(row[one ? 1 : 3], row[one ? 2 : 4]),
                     ToRate(row[5].str(), kCzech)});
  }
  return rates;
}

/// The due dates, the first days of delay, the rate.
std::vector<RateToType> HelpRates(const std::string& page) {
  const std::string date = R"((\d+\.\d+\.\d{4}))";
  const std::string dates = "<td>" + date + " – " + date + "</td>";
  const std::regex form("<tr>" + dates + dates + R"(<td class="cislo">([\d,]+)</td></tr>)");
  std::vector<RateToType> rates;
  for (const std::smatch& row : Rows(page, form)) {
    const RateToType rate{HelpDate(row[3]), HelpDate(row[4]), ToRate(row[5].str(), kCzech)};
    EXPECT_EQ(HelpDate(row[1]), AddDays(rate.first, -1)) << row.str();
    EXPECT_EQ(HelpDate(row[2]), AddDays(rate.last, -1)) << row.str();
    rates.push_back(rate);
  }
  return rates;
}

/// Every day for which the program knows a fixed lawful rate has that rate, and no other day one.
void ExpectLawful(const std::vector<RateToType>& rates) {
  std::map<Date, Rate> stated;
  for (const RateToType& row : rates) {
    for (Date day = row.first; day <= row.last; day = AddDays(day, 1)) {
      EXPECT_TRUE(stated.emplace(day, row.rate).second) << ShortDateText(day, kCzech) << " twice";
    }
  }
  for (Date day = Day(1990, 1, 1); day <= Day(2050, 12, 31); day = AddDays(day, 1)) {
    const auto row = stated.find(day);
    const auto rate = row == stated.end() ? std::nullopt : std::optional(row->second);
    ASSERT_EQ(rate, LawfulRate(day, Supplied().repo)) << ShortDateText(day, kCzech);
  }
}

TEST(RatesToTypeTest, OfTheReadmeAreTheLawfulOnes) {
  ExpectLawful(ReadmeRates(ReadFile(kRoot + "/README.md")));
}

TEST(RatesToTypeTest, OfTheHelpAreTheLawfulOnes) {
  ExpectLawful(HelpRates(ReadFile(kRoot + "/help/zakonna-sazba.html")));
}

/// For a due date: the rate that the program takes, and the one of the first day of delay.
using Eves = std::map<std::string, std::pair<Rate, Rate>>;

TEST(RatesToTypeTest, OnTheEveOfAChangeOfTheDiscountRateTheHelpNamesBothRates) {
  Eves eves;
  for (Date due = Day(1994, 7, 14); due < Day(2005, 4, 27); due = AddDays(due, 1)) {
    const auto rate = DiscountRate(Supplied().discount, due);
    const auto lawful = DiscountRate(Supplied().discount, AddDays(due, 1));
    ASSERT_TRUE(rate && lawful);
    ASSERT_EQ(LawfulRegimeOf(AddDays(due, 1))->rule, LawfulRule::kDiscount);
    if (*rate != *lawful) eves[ShortDateText(due, kCzech)] = {*rate, *lawful};
  }
  const std::regex form(R"(<tr><td>(\d+\.\d+\.\d{4})</td><td class="cislo">([\d,]+)</td>)"
                        R"(<td class="cislo">([\d,]+)</td></tr>)");
  const std::string page = ReadFile(kRoot + "/help/zakonna-sazba.html");
  Eves stated;
  for (const std::smatch& row : Rows(page, form)) {
    stated[row[1]] = {ToRate(row[2].str(), kCzech), ToRate(row[3].str(), kCzech)};
  }
  EXPECT_THAT(stated, testing::ContainerEq(eves));
}

}  // namespace
}  // namespace velta
