#include "engine/check_rates.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/support/rate_folder.h"

namespace velta {
namespace {

using testing::HasSubstr;

const std::string kFirst = CnbLine("01.01.2003", "30.01.2003", "1,75", "3,50");
const std::string kSecond = CnbLine("31.01.2003", "25.06.2003", "1,50", "3,00");
const std::string kOpen = CnbLine("26.06.2003", "", "1,25", "2,50");

/// "2: text" for a problem, "2: note: text" for a remark.
std::vector<std::string> Texts(const std::vector<RateFileRemark>& remarks) {
  std::vector<std::string> texts;
  texts.reserve(remarks.size());
  for (const RateFileRemark& remark : remarks) {
    texts.push_back(std::to_string(remark.line) + ": " + (remark.is_problem ? "" : "note: ") +
                    remark.text);
  }
  return texts;
}

struct Sample {
  std::string name;
  std::string bytes;
  std::vector<std::string> remarks;
};

void PrintTo(const Sample& sample, std::ostream* out) { *out << sample.name; }

std::string SampleName(const testing::TestParamInfo<Sample>& info) { return info.param.name; }

class CheckCnbTest : public testing::TestWithParam<Sample> {};

TEST_P(CheckCnbTest, NamesWhatIsWrongAndWhere) {
  EXPECT_EQ(Texts(CheckCnb(GetParam().bytes)), GetParam().remarks);
}

INSTANTIATE_TEST_SUITE_P(
    Samples, CheckCnbTest,
    testing::Values(
        Sample{"InOrder", CrLf({kFirst, kSecond, kOpen}), {}},
        Sample{"OneOpenRow", CrLf({kOpen}), {}},
        Sample{
            "BlankLinesAndTrailingBlanksAreAllowed", CrLf({kFirst, "", kSecond, kOpen + "  "}), {}},
        Sample{"LeadingZerosAreOptional",
               CrLf({CnbLine("1.1.2003", "25.6.2003", "1,75", "3,50"), kOpen}),
               {}},
        Sample{"Empty", "", {"0: has no rows"}},
        Sample{
            "LineFeedAlone", kFirst + "\n" + CrLf({kSecond, kOpen}), {"1: does not end in CR LF"}},
        Sample{"LastLineUnended", CrLf({kFirst, kSecond}) + kOpen, {"3: does not end in CR LF"}},
        Sample{"ByteOrderMark",
               "\xEF\xBB\xBF" + CrLf({kFirst, kSecond, kOpen}),
               {"1: has a character that is not plain ASCII",
                "1: has no discount rate such as 1,75 from column 40 on",
                "1: has no rate of interest such as 3,50 from column 61 on",
                "1: has no valid-from date from column 1 on"}},
        Sample{"HardBlank",
               CrLf({kFirst, kSecond, kOpen + "\xC2\xA0"}),
               {"3: has a character that is not plain ASCII",
                "3: has no rate of interest such as 3,50 from column 61 on"}},
        Sample{"Tab",
               CrLf({kFirst + "\t", kSecond, kOpen}),
               {"1: has a character that is not plain ASCII",
                "1: has no rate of interest such as 3,50 from column 61 on"}},
        Sample{"Column39",
               CrLf({std::string(kFirst).replace(38, 1, "x"), kSecond, kOpen}),
               {"1: column 39 is not blank"}},
        Sample{"Column59",
               CrLf({kFirst, std::string(kSecond).replace(58, 1, "0"), kOpen}),
               {"2: column 59 is not blank"}},
        Sample{"Column60",
               CrLf({kFirst, kSecond, std::string(kOpen).replace(59, 1, "1")}),
               {"3: column 60 is not blank"}},
        Sample{"RowBeginsInColumn2",
               CrLf({" " + kOpen}),
               {"1: has no discount rate such as 1,75 from column 40 on",
                "1: has no rate of interest such as 3,50 from column 61 on",
                "1: has no valid-from date from column 1 on"}},
        Sample{"ValidToBeginsInColumn21",
               CrLf({CnbLine("01.01.2003", " 25.06.2003", "1,75", "3,50"), kOpen}),
               {"1: has no valid-to date from column 20 on"}},
        Sample{"NoSuchDay",
               CrLf({kFirst, CnbLine("31.02.2003", "25.06.2003", "1,50", "3,00"), kOpen}),
               {"2: has no valid-from date from column 1 on"}},
        Sample{"YearOfTwoDigits",
               CrLf({CnbLine("01.01.03", "", "1,75", "3,50")}),
               {"1: has no valid-from date from column 1 on"}},
        Sample{"ZeroForAnOpenEnd",
               CrLf({CnbLine("01.01.2003", "0", "1,75", "3,50")}),
               {"1: has no valid-to date from column 20 on"}},
        Sample{"DecimalPoint",
               CrLf({CnbLine("01.01.2003", "", "1.75", "3.50")}),
               {"1: has no discount rate such as 1,75 from column 40 on",
                "1: has no rate of interest such as 3,50 from column 61 on"}},
        Sample{"InterestMissing",
               CrLf({CnbLine("01.01.2003", "", "1,75", "")}),
               {"1: has no rate of interest such as 3,50 from column 61 on"}},
        Sample{"InterestNotTwice",
               CrLf({kFirst, CnbLine("31.01.2003", "25.06.2003", "1,50", "3,01"), kOpen}),
               {"2: the rate of interest is not twice the discount rate"}},
        Sample{"Gap",
               CrLf({kFirst, CnbLine("01.02.2003", "25.06.2003", "1,50", "3,00"), kOpen}),
               {"2: leaves a gap after the row before it, which ends on 30.1.2003"}},
        Sample{"Overlap",
               CrLf({kFirst, CnbLine("30.01.2003", "25.06.2003", "1,50", "3,00"), kOpen}),
               {"2: overlaps the row before it, which ends on 30.1.2003"}},
        Sample{"Descending",
               CrLf({kSecond, kFirst}),
               {"2: is not in ascending order: begins on 1.1.2003 after a row of 31.1.2003",
                "2: is the last row and has a valid-to date"}},
        Sample{"Twice",
               CrLf({kFirst, kFirst, kSecond, kOpen}),
               {"2: is not in ascending order: begins on 1.1.2003 after a row of 1.1.2003"}},
        Sample{"EndsBeforeItBegins",
               CrLf({CnbLine("26.06.2003", "25.06.2003", "1,25", "2,50"), kOpen}),
               {"1: ends before it begins",
                "2: is not in ascending order: begins on 26.6.2003 after a row of 26.6.2003"}},
        Sample{"OpenRowInTheMiddle",
               CrLf({CnbLine("01.01.2003", "", "1,75", "3,50"), kOpen}),
               {"2: follows an open row"}},
        Sample{"LastRowNotOpen",
               CrLf({kFirst, kSecond}),
               {"2: is the last row and has a valid-to date"}}),
    SampleName);

constexpr std::chrono::sys_days kToday{std::chrono::year{2006} / 6 / 30};

class CheckRepoTest : public testing::TestWithParam<Sample> {};

TEST_P(CheckRepoTest, NamesWhatIsWrongAndWhere) {
  EXPECT_EQ(Texts(CheckRepo(GetParam().bytes, kToday)), GetParam().remarks);
}

INSTANTIATE_TEST_SUITE_P(
    Samples, CheckRepoTest,
    testing::Values(
        Sample{
            "InOrder", CrLf({"010120052,50", "010720051,75", "010120062,00", "010720062,00"}), {}},
        Sample{"EarlierFirstYear",
               CrLf({"010120043,00", "010720043,00", "010120052,50", "010720051,75"}),
               {}},
        Sample{"BlankBeforeTheRate", CrLf({"01012005 2,50", "0107200510,75"}), {}},
        Sample{"Empty", "", {"0: has no rows"}},
        Sample{"LineFeedAlone", "010120052,50\n010720051,75\r\n", {"1: does not end in CR LF"}},
        Sample{"NotAscii",
               CrLf({"01012005\xC2\xA0"
                     "2,50",
                     "010720051,75"}),
               {"1: has a character that is not plain ASCII",
                "1: is not a row such as 010120052,50: ddmmyyyy and the rate"}},
        Sample{"DottedDate",
               CrLf({"01.01.20052,50", "010720051,75"}),
               {"1: is not a row such as 010120052,50: ddmmyyyy and the rate"}},
        Sample{"DecimalPoint",
               CrLf({"010120052,50", "010720051.75"}),
               {
                   "2: is not a row such as 010120052,50: ddmmyyyy and the rate",
               }},
        Sample{"NoRate",
               CrLf({"010120052,50", "01072005"}),
               {"2: is not a row such as 010120052,50: ddmmyyyy and the rate"}},
        Sample{"NoSuchMonth",
               CrLf({"010120052,50", "011320051,75"}),
               {"2: is dated neither 1 January nor 1 July"}},
        Sample{"NotAHalfYear",
               CrLf({"010120052,50", "020720051,75"}),
               {"2: is dated neither 1 January nor 1 July"}},
        Sample{"FirstRowInJuly",
               CrLf({"010720051,75", "010120062,00", "010720062,00"}),
               {"1: is the first row, but not 1 January of 2005 or an earlier year"}},
        Sample{"BeginsTooLate",
               CrLf({"010120062,00", "010720062,00"}),
               {"1: is the first row, but not 1 January of 2005 or an earlier year"}},
        Sample{"JulyMissing",
               CrLf({"010120052,50", "010120062,00", "010720062,00"}),
               {"2: leaves a gap: 1.1.2006 after 1.1.2005"}},
        Sample{"JanuaryMissing",
               CrLf({"010120052,50", "010720051,75", "010720062,00"}),
               {"3: leaves a gap: 1.7.2006 after 1.7.2005"}},
        Sample{"Twice",
               CrLf({"010120052,50", "010120052,50", "010720051,75"}),
               {"2: is not in ascending order: 1.1.2005 after 1.1.2005"}},
        Sample{"Descending",
               CrLf({"010120052,50", "010720051,75", "010120052,50", "010720051,75"}),
               {"3: is not in ascending order: 1.1.2005 after 1.7.2005"}},
        Sample{"JulyNotPublishedYet",
               CrLf({"010120052,50", "010720051,75", "010120062,00"}),
               {"3: note: is the last row: its year has no row of 1 July yet"}}),
    SampleName);

TEST(CheckRepoDayTest, FromJulyOnTheYearNeedsItsJulyRow) {
  EXPECT_EQ(Texts(CheckRepo(CrLf({"010120052,50", "010720051,75", "010120062,00"}),
                            kToday + std::chrono::days(1))),
            std::vector<std::string>{"3: is the last row: its year has no row of 1 July"});
}

class CheckRatesTest : public testing::Test {
 protected:
  int Check(const std::vector<std::string>& arguments) {
    return CheckRates(arguments, kToday, out, err);
  }

  RateFolder folder;
  std::ostringstream out;
  std::ostringstream err;
};

TEST_F(CheckRatesTest, AFileInOrderEndsWith0) {
  folder.Write("cnb.dat", CrLf({kFirst, kSecond, kOpen}));
  EXPECT_EQ(Check({"cnb", folder.File("cnb.dat")}), 0);
  EXPECT_EQ(out.str(), folder.File("cnb.dat") + ": in order\n");
  EXPECT_EQ(err.str(), "");
}

TEST_F(CheckRatesTest, ProblemsArePrintedWithTheirLinesAndEndWith1) {
  folder.Write("cnb.dat", CrLf({kFirst, kSecond}));
  EXPECT_EQ(Check({"cnb", folder.File("cnb.dat")}), 1);
  EXPECT_EQ(out.str(),
            folder.File("cnb.dat") + ": line 2: is the last row and has a valid-to date\n");
}

TEST_F(CheckRatesTest, ANoteIsPrintedAndIsNoProblem) {
  folder.Write("repo.dat", CrLf({"010120052,50", "010720051,75", "010120062,00"}));
  EXPECT_EQ(Check({"repo", folder.File("repo.dat")}), 0);
  EXPECT_THAT(out.str(), HasSubstr("line 3: note: is the last row"));
}

TEST_F(CheckRatesTest, AnEmptyFileIsAProblemOfTheFile) {
  folder.Write("repo.dat", "");
  EXPECT_EQ(Check({"repo", folder.File("repo.dat")}), 1);
  EXPECT_EQ(out.str(), folder.File("repo.dat") + ": has no rows\n");
}

TEST_F(CheckRatesTest, EachFileIsCheckedAsWhatItIsSaidToBe) {
  folder.Write("repo.dat", CrLf({"010120052,50", "010720051,75"}));
  EXPECT_EQ(Check({"repo", folder.File("repo.dat")}), 0);
  EXPECT_EQ(Check({"cnb", folder.File("repo.dat")}), 1);
}

TEST_F(CheckRatesTest, WhatCannotBeReadEndsWith2) {
  EXPECT_EQ(Check({"cnb", folder.File("none.dat")}), 2);
  EXPECT_EQ(Check({"cnb", folder.path()}), 2);  // a folder
  EXPECT_THAT(err.str(), HasSubstr(folder.File("none.dat") + ": cannot be read"));
  EXPECT_EQ(out.str(), "");
}

TEST_F(CheckRatesTest, WrongUsageEndsWith2) {
  EXPECT_EQ(Check({}), 2);
  EXPECT_EQ(Check({"cnb"}), 2);
  EXPECT_EQ(Check({"repa", folder.File("repo.dat")}), 2);
  EXPECT_EQ(Check({"cnb", "a", "b"}), 2);
  EXPECT_THAT(err.str(), HasSubstr("usage: velta-check-rates cnb|repo FILE"));
}

}  // namespace
}  // namespace velta
