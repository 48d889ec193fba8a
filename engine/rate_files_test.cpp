#include "engine/rate_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "tests/support/day.h"
#include "tests/support/english_locale.h"
#include "tests/support/rate_folder.h"
#include "values/error.h"

namespace velta {
namespace {

using testing::ElementsAre;

constexpr Date kToday = Day(2026, 11, 21);
const LocaleFormat kCzech;
const LocaleFormat kEnglish = EnglishLocale();

/// The number of the Error that `act` throws; 0 for none.
int ErrorOf(const std::function<void()>& act) {
  try {
    act();
  } catch (const Error& error) {
    return static_cast<int>(error.number());
  }
  return 0;
}

// ForEachLine

struct FileSample {
  std::string name;
  std::string bytes;
  std::vector<std::string> lines;
};

void PrintTo(const FileSample& sample, std::ostream* out) { *out << sample.name; }

class ForEachLineTest : public testing::TestWithParam<FileSample> {};

TEST_P(ForEachLineTest, HandsOutTheLinesThatCount) {
  RateFolder folder;
  folder.Write("file.dat", GetParam().bytes);
  std::vector<std::string> lines;
  ForEachLine(folder.File("file.dat"), [&](std::string_view line) { lines.emplace_back(line); });
  EXPECT_EQ(lines, GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(
    Files, ForEachLineTest,
    testing::Values(FileSample{"CrLf", "a\r\nb\r\n", {"a", "b"}},
                    FileSample{"LineFeedOnly", "a\nb\n", {"a", "b"}},
                    FileSample{"LastLineUnended", "a\r\nb", {"a", "b"}},
                    FileSample{"ByteOrderMark",
                               "\xEF\xBB\xBF"
                               "a\r\nb\r\n",
                               {"a", "b"}},
                    FileSample{"ByteOrderMarkOnly", "\xEF\xBB\xBF", {}},
                    FileSample{"CtrlZOnItsOwnLine", "a\r\nb\r\n\x1A", {"a", "b"}},
                    FileSample{"CtrlZBehindTheLastRow", "a\r\nb\x1A", {"a", "b"}},
                    FileSample{"BlankLines", "\r\na\r\n  \t\r\n\r\nb\r\n\r\n", {"a", "b"}},
                    FileSample{"BlanksAroundAndInside", "  a  b \t\r\n", {"a  b"}},
                    FileSample{"Empty", "", {}}),
    [](const auto& sample) { return sample.param.name; });

TEST(ForEachLineTest, AMissingFileIsError53) {
  RateFolder folder;
  EXPECT_EQ(ErrorOf([&] { ForEachLine(folder.File("cnb.dat"), [](std::string_view) {}); }), 53);
}

TEST(ForEachLineTest, AFolderInTheFilesPlaceIsAReadError) {
  RateFolder folder;
  EXPECT_EQ(ErrorOf([&] { ForEachLine(folder.path(), [](std::string_view) {}); }), 57);
}

TEST(ForEachLineTest, TheFileIsClosedAfterwardsAndNeverWritten) {
  RateFolder folder;
  folder.Write("cnb.dat", "a\r\n");
  ForEachLine(folder.File("cnb.dat"), [](std::string_view) {});
  std::ifstream file(folder.File("cnb.dat"), std::ios::binary);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "a\r\n");
  folder.Write("cnb.dat", "b\r\n");
  std::vector<std::string> lines;
  ForEachLine(folder.File("cnb.dat"), [&](std::string_view line) { lines.emplace_back(line); });
  EXPECT_THAT(lines, ElementsAre("b"));
}

TEST(ForEachLineTest, WhatWasHandedOutBeforeAnErrorStays) {
  RateFolder folder;
  folder.Write("cnb.dat", "a\r\nbad\r\nc\r\n");
  std::vector<std::string> lines;
  EXPECT_EQ(ErrorOf([&] {
              ForEachLine(folder.File("cnb.dat"), [&](std::string_view line) {
                if (line == "bad") throw Error(ErrorNumber::kTypeMismatch);
                lines.emplace_back(line);
              });
            }),
            13);
  EXPECT_THAT(lines, ElementsAre("a"));
}

// Columns

TEST(ColumnsTest, CountFromOneAndEndWithTheLine) {
  const std::string line = CnbLine("01.01.2003", "30.06.2003", "1,75", "3,50");
  EXPECT_EQ(Columns(line, 1, 10), "01.01.2003");
  EXPECT_EQ(Columns(line, 20, 19), "30.06.2003         ");
  EXPECT_EQ(Columns(line, 60, 19), " 3,50");
  EXPECT_EQ(Columns(line, 61, 19), "3,50");
  EXPECT_EQ(Columns(line, 65, 19), "");
  EXPECT_EQ(Columns(line, 200, 19), "");
}

// cnb.dat

TEST(ParseCnbRowTest, TakesTheFourFieldsFromTheirColumns) {
  const CnbRow row =
      ParseCnbRow(CnbLine("01.01.2003", "30.06.2003", "1,75", "3,50"), kToday, kCzech);
  EXPECT_EQ(row.valid_from, Day(2003, 1, 1));
  EXPECT_EQ(row.valid_to, Day(2003, 6, 30));
  EXPECT_EQ(row.discount_rate, "1,75");
  EXPECT_EQ(row.interest_rate, "3,50");
}

TEST(ParseCnbRowTest, TheInterestBeginsAtColumn61AndHas19Columns) {
  std::string line = CnbLine("01.01.2003", "", "1,75", "3,50");
  line[59] = '9';  // column 60 parts the fields; only the settings' view of the table reads it
  line.resize(79, ' ');
  line += "77";  // from column 80 on
  EXPECT_EQ(ParseCnbRow(line, kToday, kCzech).interest_rate, "3,50");
}

TEST(ParseCnbRowTest, AShortRowLacksItsLastFields) {
  const CnbRow row = ParseCnbRow("01.01.2003", kToday, kCzech);
  EXPECT_EQ(row.valid_to, kToday);
  EXPECT_EQ(row.discount_rate, "");
  EXPECT_EQ(row.interest_rate, "");
}

TEST(ParseCnbRowTest, TheFirstCommaOfTheInterestBecomesAPointWhereTheUserHasPoints) {
  const std::string line = CnbLine("1.1.2003", "", "1,75", "3,50");
  EXPECT_EQ(ParseCnbRow(line, kToday, kEnglish).interest_rate, "3.50");
  EXPECT_EQ(ParseCnbRow(line, kToday, kEnglish).discount_rate, "1,75");  // for show only
  EXPECT_EQ(ParseCnbRow(CnbLine("1.1.2003", "", "", "3,5,0"), kToday, kEnglish).interest_rate,
            "3.5,0");
}

struct DateSample {
  std::string name;
  std::string text;
  Date date;      // where error is 0
  int error = 0;  // otherwise its number
};

void PrintTo(const DateSample& sample, std::ostream* out) { *out << sample.text; }

class ValidFromTest : public testing::TestWithParam<DateSample> {};

TEST_P(ValidFromTest, IsDecoded) {
  const DateSample& sample = GetParam();
  CnbRow row;
  EXPECT_EQ(ErrorOf([&] {
              row = ParseCnbRow(CnbLine(sample.text, "31.12.2020", "1,75", "3,50"), kToday, kCzech);
            }),
            sample.error);
  if (sample.error == 0) {
    EXPECT_EQ(row.valid_from, sample.date);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Dates, ValidFromTest,
    testing::Values(
        DateSample{"LeadingZeros", "01.02.2003", Day(2003, 2, 1)},
        DateSample{"NoLeadingZeros", "1.2.2003", Day(2003, 2, 1)},
        DateSample{"TrailingBlanks", "1.2.2003     ", Day(2003, 2, 1)},
        DateSample{"BlanksAroundTheParts", "1 . 2 . 2003", Day(2003, 2, 1)},
        DateSample{"DayRollsForward", "31.2.2005", Day(2005, 3, 3)},
        DateSample{"MonthRollsForward", "1.13.2005", Day(2006, 1, 1)},
        DateSample{"DayRollsBack", "0.3.2005", Day(2005, 2, 28)},
        DateSample{"MonthRollsBack", "1.0.2005", Day(2004, 12, 1)},
        DateSample{"YearAsWritten", "1.1.105", Day(105, 1, 1)},
        DateSample{"NoDots", "01012003", {}, 13}, DateSample{"OneDot", "01.2003", {}, 13},
        DateSample{"ThreeDots", "1.2.2003.", {}, 13}, DateSample{"Letters", "1.ledna.2003", {}, 13},
        DateSample{"LettersBehind", "1.1.2003x", {}, 13},
        DateSample{"DayMissing", ".1.2003", {}, 13}, DateSample{"YearMissing", "1.1.", {}, 13},
        DateSample{"BeforeTheCalendar", "1.1.99", {}, 5},
        DateSample{"BehindTheCalendar", "1.1.10000", {}, 5},
        DateSample{"YearOfFiveNines", "1.1.99999", {}, 5},
        DateSample{"TooManyDigits", "1.1.99999999999", {}, 6}),
    [](const auto& sample) { return sample.param.name; });

class ValidToTest : public testing::TestWithParam<DateSample> {};

TEST_P(ValidToTest, IsDecodedWhereItBeginsWithANumberAboveZeroAndTodayOtherwise) {
  const DateSample& sample = GetParam();
  CnbRow row;
  EXPECT_EQ(ErrorOf([&] {
              row = ParseCnbRow(CnbLine("1.1.2003", sample.text, "1,75", "3,50"), kToday, kCzech);
            }),
            sample.error);
  if (sample.error == 0) {
    EXPECT_EQ(row.valid_to, sample.date);
  }
}

INSTANTIATE_TEST_SUITE_P(Dates, ValidToTest,
                         testing::Values(DateSample{"ADate", "31.12.2005", Day(2005, 12, 31)},
                                         DateSample{"Rolls", "31.2.2005", Day(2005, 3, 3)},
                                         DateSample{"Blank", "", kToday},
                                         DateSample{"Zero", "0", kToday},
                                         DateSample{"Letters", "abc", kToday},
                                         DateSample{"NumberOnly", "12", {}, 13},
                                         DateSample{"NumberAndLetters", "12x", {}, 13}),
                         [](const auto& sample) { return sample.param.name; });

// repo.dat

struct RepoSample {
  std::string name;
  std::string line;
  Date start;
  Rate rate = 0;
  int error = 0;
};

void PrintTo(const RepoSample& sample, std::ostream* out) { *out << sample.line; }

class ParseRepoRowTest : public testing::TestWithParam<RepoSample> {};

TEST_P(ParseRepoRowTest, GivesTheSameInEveryLocale) {
  const RepoSample& sample = GetParam();
  for (const LocaleFormat& locale : {kCzech, kEnglish}) {
    SCOPED_TRACE(locale.decimal);
    RepoRow row;
    EXPECT_EQ(ErrorOf([&] { row = ParseRepoRow(sample.line, locale); }), sample.error);
    if (sample.error == 0) {
      EXPECT_EQ(row.start, sample.start);
      EXPECT_EQ(row.rate, sample.rate);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ParseRepoRowTest,
    testing::Values(RepoSample{"RateAtOnce", "010120052,50", Day(2005, 1, 1), 9.5F},
                    RepoSample{"RateAfterABlank", "01012005 2,50", Day(2005, 1, 1), 9.5F},
                    RepoSample{"July", "010720130,05", Day(2013, 7, 1), 7.05F},
                    RepoSample{"WholeRate", "010720227", Day(2022, 7, 1), 14.0F},
                    // 7 + 0.53 added in single precision would be 7.5299997.
                    RepoSample{"SumInDouble", "010120050,53", Day(2005, 1, 1), 7.53F},
                    RepoSample{"MonthRolls", "011320052,50", Day(2006, 1, 1), 9.5F},
                    // A single holds 38 digits before the point.
                    RepoSample{"RateBeyondRates", "01072022" + std::string(40, '9'), {}, 0, 6},
                    RepoSample{"NoRate", "01012005", {}, 0, 13},
                    RepoSample{"RateOfLetters", "01012005dva", {}, 0, 13},
                    RepoSample{"DottedDate", "01.01.20052,50", {}, 0, 13},
                    RepoSample{"TooShort", "0101", {}, 0, 13},
                    RepoSample{"YearBeforeTheCalendar", "010100052,50", {}, 0, 5}),
    [](const auto& sample) { return sample.param.name; });

}  // namespace
}  // namespace velta
