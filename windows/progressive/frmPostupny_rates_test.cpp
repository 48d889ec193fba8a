#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/rate_folder.h"
#include "windows/progressive/frmPostupny_test.h"

namespace velta {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kToRepo = "Měním na REPO sazbu";
constexpr const char* kToDiscount = "Měním na DISKONTNÍ sazbu";

struct KindCase {
  const char* name;
  const char* rounding;
  const char* kind;
  const char* payment;
  const char* rate;
  int days;
  const char* interest;
};

class KindTest : public frmPostupnyTest, public ::testing::WithParamInterface<KindCase> {};

TEST_P(KindTest, RecordsTheInterestOfThePayment) {
  const KindCase& c = GetParam();
  SetRounding(c.rounding);
  Open();
  form_->txtData[kTotal].UserEdit("900000000000");
  const Date due = Day(2004, 1, 1);
  form_->dtpSplatnost.UserPick(due);
  form_->cboDruhSazby.UserEdit(c.kind);
  form_->txtData[kRate].UserEdit(c.rate);
  Pay(AddDays(due, c.days), c.payment);
  EXPECT_THAT(Rows(form_->List4), ElementsAre(c.interest));
  EXPECT_EQ(state().RateKindText, c.kind);
  EXPECT_THAT(Shown(), IsEmpty());
}

// Figures in exact fractions from the formulas, with the rate as the nearest single.
INSTANTIATE_TEST_SUITE_P(
    Figures, KindTest,
    ::testing::Values(
        KindCase{"PercentYearly", "presne", "% ročně", "4000", "8,5", 102, "95,013698630137"},
        KindCase{"YearOf365DaysAlsoInALeapYear", "NE", "% ročně", "10000", "10", 366, "1002,74"},
        KindCase{"PercentDaily", "presne", "% denně", "10000000", "0,05", 100, "500000,007450581"},
        KindCase{"PerMilleYearly", "presne", "‰ ročně", "10000", "85", 30, "69,8630136986301"},
        KindCase{"PerMilleDaily", "presne", "‰ denně", "10000", "0,5", 30, "150"},
        KindCase{"CrownsDaily", "NE", "částka Kč denně", "5000", "15", 10, "150"},
        KindCase{"CrownsDailyOfAnotherPayment", "NE", "částka Kč denně", "1", "15", 10, "150"},
        KindCase{"CrownsYearly", "halere", "částka Kč ročně", "5000", "1500", 10, "41,1"},
        KindCase{"CrownsYearlyExact", "presne", "částka Kč ročně", "1", "1500", 30,
                 "123,287671232877"},
        KindCase{"PickedTextTyped", "NE", "% denně", "100", "1", 3, "3"},
        KindCase{"OneDay", "presne", "% ročně", "3650", "1", 1, "0,1"},
        // Ties: two decimals away from zero on the decimal text, crowns to the even one.
        KindCase{"TieNe", "NE", "% denně", "1,005", "100", 1, "1,01"},
        KindCase{"TieDownKoruny", "koruny", "% ročně", "4562,50", "1", 100, "12"},
        KindCase{"TieUpKoruny", "koruny", "% ročně", "4927,50", "1", 100, "14"},
        KindCase{"ZeroRate", "halere", "% ročně", "5000", "0", 30, "0"},
        KindCase{"ZeroPayment", "NE", "% ročně", "0", "10", 30, "0"},
        KindCase{"NegativeRateHalere", "halere", "% ročně", "1000", "-9,9", 31, "-8,4"},
        KindCase{"NegativeRateNe", "NE", "% denně", "1,005", "-100", 1, "-1,01"},
        KindCase{"NegativePayment", "NE", "% ročně", "-1000", "10", 30, "-8,22"},
        KindCase{"PaymentToFourDecimals", "presne", "% denně", "0,00015", "100", 1, "0,0002"}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(frmPostupnyTest, UnknownKindComputesNothing) {
  Open();
  EnterSampleInvoice();
  form_->cboDruhSazby.UserEdit("% měsíčně");
  Pay(Day(2004, 1, 31), "5000");
  Pay(Day(2004, 3, 1), "5000");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("0", "0"));
  EXPECT_THAT(form_->txtPostup.text(), HasSubstr("Úroková sazba:\t\t10 % měsíčně\r\n"));
}

TEST_F(frmPostupnyTest, UnknownKindNeedsARateThatIsANumber) {
  Open();
  form_->txtData[kTotal].UserEdit("10000");
  form_->dtpSplatnost.UserPick(Day(2004, 1, 1));
  form_->cboDruhSazby.UserEdit("% měsíčně");
  form_->txtData[kRate].UserEdit("x");
  Pay(Day(2004, 1, 31), "5000");
  EXPECT_THAT(Shown(), IsEmpty());
  ExpectNothingRecorded();
}

TEST_F(frmPostupnyTest, DiscountRateOfTheDueDateHoldsForAllPayments) {
  Open();
  // 2 × 1,25 % was in force on 10.3.2005; it changed on 1.4.2005.
  EnterInvoice("10000", Day(2005, 3, 10), kDiscount, "");
  Pay(Day(2005, 6, 20), "4000");
  EXPECT_EQ(form_->txtData[kRate].text(), "2,5");
  EXPECT_EQ(state().RateValue, 2.5F);
  EXPECT_THAT(Rows(form_->List4), ElementsAre("27,95"));  // 4 000 × 2,5 % × 102 ÷ 365
  Pay(Day(2005, 6, 30), "6000");
  EXPECT_EQ(form_->txtData[kRate].text(), "2,5");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("27,95", "46,03"));  // 6 000 × 2,5 % × 112 ÷ 365
  EXPECT_THAT(Rows(form_->List5), ElementsAre("73,98 Kč"));
  EXPECT_THAT(form_->txtPostup.text(), HasSubstr("Úroková sazba:\t\t2,5 %\r\n"));
  EXPECT_TRUE(state().CalculationFinished);
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmPostupnyTest, TypedRateIsNoHindranceToTheDiscountRate) {
  Open();
  EnterInvoice("10000", Day(2005, 3, 10), kPercentYearly, "abc");
  form_->cboDruhSazby.UserPick(kDiscount);
  Pay(Day(2005, 6, 20), "10000");
  EXPECT_EQ(form_->txtData[kRate].text(), "2,5");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("69,86"));
}

TEST_F(frmPostupnyTest, DueDateWithoutADiscountRateIsToldAndNothingRecorded) {
  RateFolder folder;
  folder.Write("cnb.dat", CrLf({CnbLine("01.01.2003", "30.06.2003", "1,75", "3,50"),
                                CnbLine("01.07.2003", "31.12.2003", "1,25", "2,50"),
                                CnbLine("01.02.2004", "", "1,00", "2,00")}));
  folder.Write("repo.dat", "");
  memory_.program_folder.path = folder.path();
  Open();
  EnterInvoice("10000", Day(2004, 1, 15), kDiscount, "");
  for (int i = 0; i < 2; ++i) {
    Pay(Day(2004, 6, 20), "5000");
    EXPECT_THAT(Shown(), ElementsAre(kNoRate));
    ExpectNothingRecorded();
    ExpectInvoiceLocked(true);
  }
  EXPECT_EQ(form_->txtData[kRate].text(), "");
}

TEST_F(frmPostupnyTest, KindThatTheDueDateAsksForIsLockedAndRecorded) {
  struct Row {
    const char* kind;
    Date due;
    const char* final_kind;
    Texts messages;
    const char* interest;  // of 10 000 Kč to 20.6.2005
  };
  const char* const discount = "Dle Diskontní sazby ČNB";
  const char* const repo = "Dle Repo sazby ČNB";
  const char* const crowns = "částka Kč denně";
  // 10 000 × 9,5 % × 53 ÷ 365, 10 000 × 2 % × 54 ÷ 365 and 10 × 53
  for (const Row& row : {Row{discount, Day(2005, 4, 28), repo, {kToRepo}, "137,9452"},
                         Row{repo, Day(2005, 4, 27), discount, {kToDiscount}, "29,59"},
                         Row{crowns, Day(2005, 4, 28), crowns, {}, "530"}}) {
    Open();
    form_->txtData[kTotal].UserEdit("10000");
    form_->txtData[kRate].UserEdit("10");
    form_->dtpSplatnost.UserPick(row.due);
    form_->cboDruhSazby.UserEdit(row.kind);
    Pay(Day(2005, 6, 20), "10000");
    EXPECT_EQ(Shown(), row.messages);
    EXPECT_EQ(form_->cboDruhSazby.text(), row.final_kind);
    EXPECT_FALSE(form_->cboDruhSazby.enabled());
    EXPECT_FALSE(form_->txtData[kRate].enabled());
    EXPECT_THAT(Rows(form_->List4), ElementsAre(row.interest));
    windows().Unload("frmPostupny");
  }
}

}  // namespace
}  // namespace velta
