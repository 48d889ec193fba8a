#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "windows/progressive/frmPostupny_test.h"

namespace velta {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::IsEmpty;

struct RoundingCase {
  const char* name;
  const char* rounding;
  Texts rows;  // 5 000 Kč after 30 days and 5 000 Kč after 60 days: 41,0958… and 82,1917…
  const char* total;  // List5
  std::int64_t units;
};

class RoundingTest : public frmPostupnyTest, public ::testing::WithParamInterface<RoundingCase> {};

TEST_P(RoundingTest, RoundsEveryPaymentAndSumsTheRows) {
  const RoundingCase& c = GetParam();
  SetRounding(c.rounding);
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  Pay(Day(2004, 3, 1), "5000");
  EXPECT_EQ(Rows(form_->List4), c.rows);
  EXPECT_THAT(Rows(form_->List5), ElementsAre(c.total));
  EXPECT_EQ(state().InterestTotal, Money::FromUnits(c.units));
  EXPECT_EQ(Balance(), "0");
  EXPECT_TRUE(state().CalculationFinished);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, RoundingTest,
    ::testing::Values(
        RoundingCase{"Ne", "NE", {"41,1", "82,19"}, "123,29 Kč", 1'232'900},
        RoundingCase{"Halere", "halere", {"41,1", "82,2"}, "123,30 Kč", 1'233'000},
        RoundingCase{"Koruny", "koruny", {"41", "82"}, "123,00 Kč", 1'230'000},
        // Any other word rounds nothing, not even to two decimals; rows are summed to four.
        RoundingCase{
            "Unknown", "HALERE", {"41,0958904109589", "82,1917808219178"}, "123,29 Kč", 1'232'877},
        RoundingCase{"EmptyIsNe", "", {"41,1", "82,19"}, "123,29 Kč", 1'232'900}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(frmPostupnyTest, TotalRunsFromTheSecondPaymentOn) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "3000");
  EXPECT_THAT(Rows(form_->List5), IsEmpty());
  Pay(Day(2004, 1, 31), "3000");
  EXPECT_THAT(Rows(form_->List5), ElementsAre("49,32 Kč"));
  Pay(Day(2004, 1, 31), "3000");
  EXPECT_THAT(Rows(form_->List5), ElementsAre("73,98 Kč")) << "three times 24,66";
  EXPECT_EQ(state().InterestTotal, Money::FromUnits(739'800));
}

TEST_F(frmPostupnyTest, SinglePaymentIsItsOwnTotalInPlainText) {
  SetRounding("halere");
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "10000");
  EXPECT_THAT(Rows(form_->List3), ElementsAre("0"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("82,2"));
  EXPECT_THAT(Rows(form_->List5), ElementsAre("82,2"));
  EXPECT_EQ(state().InterestTotal, Money::FromUnits(822'000));
}

struct RepoTotalCase {
  const char* name;
  const char* rounding;
  const char* one_row;     // List5 of 10 000 Kč from 15.3. to 20.5.2006: 162,7397
  std::int64_t one_units;  // its total
};

class RepoTotalTest : public frmPostupnyTest,
                      public ::testing::WithParamInterface<RepoTotalCase> {};

TEST_P(RepoTotalTest, OneRowsTotalIsRounded) {
  SetRounding(GetParam().rounding);
  Open();
  EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
  Pay(Day(2006, 5, 20), "10000");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("162,7397"));
  EXPECT_THAT(Rows(form_->List5), ElementsAre(GetParam().one_row));
  EXPECT_EQ(state().InterestTotal, Money::FromUnits(GetParam().one_units));
  EXPECT_EQ(Record().total, state().InterestTotal);
  EXPECT_TRUE(state().CalculationFinished);
  EXPECT_FALSE(form_->cmdPridat.enabled());
  EXPECT_EQ(form_->focused(), &form_->cmdTiskVyp);
}

TEST_P(RepoTotalTest, SumOfManyRowsIsNotRounded) {
  SetRounding(GetParam().rounding);
  Open();
  EnterInvoice("10000", Day(2006, 5, 10), kRepo, "");
  Pay(Day(2006, 6, 10), "4000");
  EXPECT_THAT(Rows(form_->List5), IsEmpty());
  Pay(Day(2006, 9, 1), "2500");
  EXPECT_THAT(Rows(form_->List5), ElementsAre("100,85 Kč"));
  Pay(Day(2007, 1, 15), "3500");
  EXPECT_THAT(Rows(form_->List1), ElementsAre("4000", "2500", "3500"));
  EXPECT_THAT(Rows(form_->List2), ElementsAre("10.6.2006", "1.9.2006", "15.1.2007"));
  EXPECT_THAT(Rows(form_->List3), ElementsAre("6000", "3500", "0"));
  EXPECT_THAT(Rows(form_->List4),
              ElementsAre("30,5753", "31,4384", "38,8356", "44,0137", "158,7945", "13,6644"));
  EXPECT_THAT(Rows(form_->List5), ElementsAre("317,32 Kč"));
  EXPECT_EQ(state().InterestTotal, Money::FromUnits(3'173'219));
  EXPECT_THAT(form_->txtPostup.text(), EndsWith("\r\nÚrok z prodlení celkem\t317,32 Kč"));
  EXPECT_TRUE(state().CalculationFinished);
}

INSTANTIATE_TEST_SUITE_P(Rules, RepoTotalTest,
                         ::testing::Values(RepoTotalCase{"Ne", "NE", "162,74", 1'627'400},
                                           RepoTotalCase{"Halere", "halere", "162,8", 1'628'000},
                                           RepoTotalCase{"Koruny", "koruny", "163", 1'630'000},
                                           RepoTotalCase{"Unknown", "jinak", "162,7397",
                                                         1'627'397}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(frmPostupnyTest, RepoPaymentOverTwoHalfYearsShowsItsTotalAtOnce) {
  SetRounding("halere");
  Open();
  EnterInvoice("10000", Day(2005, 6, 20), kRepo, "");
  Pay(Day(2005, 7, 10), "5000");
  EXPECT_THAT(Rows(form_->List1), ElementsAre("5000"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("13,0137", "11,9863"));
  EXPECT_THAT(Rows(form_->List5), ElementsAre("25,00 Kč"));
  EXPECT_EQ(state().InterestTotal, Money::FromUnits(250'000));
  EXPECT_FALSE(state().CalculationFinished);
}

TEST_F(frmPostupnyTest, RepoInterestIsRoundedOnceOverAllHalfYears) {
  // 13,0137 + 11,9863: each rounded up to 10 haléř would make 25,10, the sum stays 25,00.
  SetRounding("halere");
  Open();
  EnterInvoice("5000", Day(2005, 6, 20), kRepo, "");
  Pay(Day(2005, 7, 10), "5000");
  EXPECT_DOUBLE_EQ(state().InterestAmount, 25.0);
  SetRounding("koruny");
  form_->cmdNovy.UserClick();
  EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
  Pay(Day(2006, 5, 20), "4000");
  EXPECT_DOUBLE_EQ(state().InterestAmount, 65.0);
}

TEST_F(frmPostupnyTest, RepoRowsAreSummedAsTheyAreListed) {
  // 15 digits is all that the first row shows of its interest: 12 486 274 745 628,9000.
  Open();
  EnterInvoice("767254256254974", Day(2006, 3, 15), kRepo, "");
  Pay(Day(2006, 5, 20), "767254256254973");
  Pay(Day(2006, 5, 20), "1");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("12486274745628,9000", "0,0163"));
  EXPECT_EQ(state().InterestTotal, Money::FromUnits(124'862'747'456'289'163));
}

TEST_F(frmPostupnyTest, ARowThatIsPickedIsMarkedInAllLists) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  Pay(Day(2004, 2, 1), "3000");
  for (ui::ListBox* list : {&form_->List1, &form_->List2, &form_->List3, &form_->List4}) {
    for (const int row : {0, 1}) {
      list->UserPick(row);
      EXPECT_THAT(Marked(), ElementsAre(row, row, row, row)) << list->name();
    }
  }
  Pay(Day(2004, 2, 2), "1000");
  EXPECT_THAT(Marked(), ElementsAre(1, 1, 1, 1)) << "a new payment marks nothing";
  form_->cmdNovy.UserClick();
  EXPECT_THAT(Marked(), ElementsAre(-1, -1, -1, -1));
}

TEST_F(frmPostupnyTest, APaymentOfManyHalfYearsIsMarkedByItsFirstRow) {
  Open();
  EnterInvoice("10000", Day(2006, 5, 10), kRepo, "");
  Pay(Day(2006, 6, 10), "4000");  // one half-year: row 0 of the interest
  Pay(Day(2006, 9, 1), "2500");   // two: rows 1 and 2
  Pay(Day(2007, 1, 15), "3500");  // three: rows 3 to 5
  ASSERT_EQ(form_->List4.items().size(), 6U);
  form_->List1.UserPick(2);
  EXPECT_THAT(Marked(), ElementsAre(2, 2, 2, 3));
  form_->List4.UserPick(2);
  EXPECT_THAT(Marked(), ElementsAre(1, 1, 1, 2)) << "the picked row stays";
  form_->List4.UserPick(5);
  EXPECT_THAT(Marked(), ElementsAre(2, 2, 2, 5));
  form_->List3.UserPick(0);
  EXPECT_THAT(Marked(), ElementsAre(0, 0, 0, 0));
}

}  // namespace
}  // namespace velta
