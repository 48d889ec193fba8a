/// The rates that README.md and the help tell people to type are those of the program's own
/// functions and tables, and so is what the help says of the tables' end.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <filesystem>
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
#include "values/number_text.h"

namespace velta {
namespace {

const LocaleFormat kCzech;
const std::string kRoot = VELTA_SOURCE_DIR;

const BankTables& Supplied() {
  static const BankTables kTables = ReadBankTables(kRoot + "/data", Day(2026, 11, 21), kCzech);
  return kTables;
}

std::string HelpPage(const std::string& name) { return ReadFile(kRoot + "/help/" + name); }

const RepoRow& LastHalfYear() { return Supplied().repo.back(); }

/// The last day for which the table of half-years has a rate.
Date LastKnownDay() { return AddDays(AddMonths(LastHalfYear().start, 6), -1); }

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
std::regex HelpRow() {
  const std::string date = R"((\d+\.\d+\.\d{4}))";
  const std::string dates = "<td>" + date + " – " + date + "</td>";
  return std::regex("<tr>" + dates + dates + R"(<td class="cislo">([\d,]+)</td></tr>)");
}

std::vector<RateToType> HelpRates(const std::string& page) {
  std::vector<RateToType> rates;
  for (const std::smatch& row : Rows(page, HelpRow())) {
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
  ExpectLawful(HelpRates(HelpPage("zakonna-sazba.html")));
}

/// The table's rows as they stand in a page.
std::vector<std::string> HelpRowTexts(const std::string& page) {
  std::vector<std::string> texts;
  for (const std::smatch& row : Rows(page, HelpRow())) texts.push_back(row.str());
  return texts;
}

TEST(RatesToTypeTest, OfThePagesReadFirstAreTheNewestTwo) {
  const std::string page = HelpPage("zakonna-sazba.html");
  std::vector<std::string> newest = HelpRowTexts(page);
  ASSERT_GE(newest.size(), 2U);
  newest.resize(2);
  for (const char* first : {"obsah.html", "jednotlivy-vypocet.html"}) {
    EXPECT_EQ(HelpRowTexts(HelpPage(first)), newest) << first;
  }
  EXPECT_EQ(HelpRates(page).front().last, LastKnownDay());
}

/// The months in English, and in Czech as they follow the day: "4. října".
const std::array<std::pair<std::string, std::string>, 12> kMonths = {{
    {"January", "ledna"},
    {"February", "února"},
    {"March", "března"},
    {"April", "dubna"},
    {"May", "května"},
    {"June", "června"},
    {"July", "července"},
    {"August", "srpna"},
    {"September", "září"},
    {"October", "října"},
    {"November", "listopadu"},
    {"December", "prosince"},
}};

/// "31. prosince 2026"
std::string LongCzechDate(Date day) {
  const std::chrono::year_month_day date(day);
  return std::to_string(static_cast<unsigned>(date.day())) + ". " +
         kMonths.at(static_cast<unsigned>(date.month()) - 1).second + " " +
         std::to_string(static_cast<int>(date.year()));
}

/// Up to which day the bank's published histories were read, in the same form.
std::string StateOfTheRates() {
  const std::string readme = ReadFile(kRoot + "/data/README.md");
  const std::regex form(R"(in\s+their\s+state\s+of\s+(\d+)\s+(\w+)\s+(\d{4}))");
  std::smatch date;
  EXPECT_TRUE(std::regex_search(readme, date, form));
  for (const auto& [english, czech] : kMonths) {
    if (date[2] == english) return date[1].str() + ". " + czech + " " + date[3].str();
  }
  return "unknown";
}

/// The texts of the help's pages that are marked with a class, and their pages.
std::vector<std::pair<std::string, std::string>> Marked(const std::string& mark) {
  const std::regex form("class=\"" + mark + "\">([^<]*)");
  std::vector<std::pair<std::string, std::string>> found;
  for (const auto& file : std::filesystem::directory_iterator(kRoot + "/help")) {
    if (file.path().extension() != ".html") continue;
    const std::string page = ReadFile(file.path().string());
    for (const std::smatch& span : Rows(page, form)) {
      const std::string text = std::regex_replace(span[1].str(), std::regex(R"(\s+)"), " ");
      found.emplace_back(file.path().filename().string(), text);
    }
  }
  return found;
}

TEST(RatesToTypeTest, WhatTheHelpSaysOfTheTablesEndIsStillSo) {
  const auto lawful = LawfulRate(LastHalfYear().start, Supplied().repo);
  ASSERT_TRUE(lawful);
  const std::map<std::string, std::string> wanted = {
      {"konec-tabulky", LongCzechDate(LastKnownDay())},
      {"posledni-repo", PlainText(LastHalfYear().rate, kCzech)},
      {"zakonna-nyni", PlainText(*lawful, kCzech)},
  };
  for (const auto& [mark, now] : wanted) {
    const auto marked = Marked(mark);
    EXPECT_FALSE(marked.empty()) << mark;
    for (const auto& [page, text] : marked) EXPECT_EQ(text, now) << page << ", " << mark;
  }
  for (const auto& [page, text] : Marked("ke-dni")) EXPECT_EQ(text, StateOfTheRates()) << page;
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
  const std::string page = HelpPage("starsi-prodleni.html");
  Eves stated;
  for (const std::smatch& row : Rows(page, form)) {
    stated[row[1]] = {ToRate(row[2].str(), kCzech), ToRate(row[3].str(), kCzech)};
  }
  EXPECT_THAT(stated, testing::ContainerEq(eves));
}

}  // namespace
}  // namespace velta
