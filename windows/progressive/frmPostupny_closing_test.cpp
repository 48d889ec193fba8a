#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "windows/progressive/frmPostupny_test.h"

namespace velta {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(frmPostupnyTest, NewCalculationEmptiesAndOpensTheWindow) {
  SetRounding("halere");
  Open();
  EnterInvoice("10000", Day(2004, 1, 1), 3, "10");
  Pay(Day(2004, 1, 31), "4000");
  Pay(Day(2004, 3, 1), "6000");
  form_->cmdNovy.UserClick();
  for (const ui::TextBox& box : form_->txtData) {
    EXPECT_EQ(box.text(), "");
    EXPECT_TRUE(box.enabled());
    EXPECT_EQ(box.background(), ui::Background::kWindow);
  }
  ExpectInvoiceLocked(false);
  EXPECT_TRUE(form_->cmdPridat.enabled());
  ExpectNothingRecorded();
  EXPECT_EQ(state().ReportText, kHeading);
  EXPECT_EQ(form_->cboDruhSazby.index(), 3);
  EXPECT_EQ(form_->dtpSplatnost.day(), Day(2004, 1, 1));
  EXPECT_EQ(form_->dtpZaplaceni.day(), Day(2004, 3, 1));
  EXPECT_EQ(form_->focused(), &form_->txtData[kTotal]);
  EXPECT_EQ(state().RateValue, 0.0F);
  EXPECT_EQ(state().DaysLate, 0);
  EXPECT_EQ(state().BaseAmount, Money());
  EXPECT_EQ(state().InterestAmount, 0);
  EXPECT_EQ(state().AmountWithInterest, Money());
  EXPECT_EQ(state().DebtBeforeLastPayment, Money());
  EXPECT_EQ(state().EngineRate, 0.0F);
  EXPECT_TRUE(state().ProgressiveFormOpen);
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmPostupnyTest, NewCalculationStartsFromNothing) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  Pay(Day(2004, 3, 1), "5000");
  form_->cmdNovy.UserClick();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("41,1"));
  EXPECT_THAT(Rows(form_->List5), IsEmpty());
  Pay(Day(2004, 3, 1), "5000");
  EXPECT_THAT(Rows(form_->List5), ElementsAre("123,29 Kč"));
  EXPECT_EQ(Record().payments.size(), 2U);
}

TEST_F(frmPostupnyTest, NewCalculationForgetsTheLatestPayment) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  form_->cmdNovy.UserClick();
  EnterSampleInvoice();
  form_->UdelejVypocet();  // which takes the payment that the button has read, and now none
  EXPECT_THAT(Rows(form_->List1), ElementsAre("0"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("0"));
}

TEST_F(frmPostupnyTest, NewCalculationOpensTheRateBoxOfABankKindToo) {
  Open();
  EnterInvoice("10000", Day(2005, 3, 10), kDiscount, "");
  Pay(Day(2005, 6, 20), "10000");
  EXPECT_EQ(state().EngineRate, 2.5F);
  form_->cmdNovy.UserClick();
  EXPECT_EQ(form_->cboDruhSazby.index(), kDiscount);
  EXPECT_EQ(form_->txtData[kRate].text(), "");
  EXPECT_TRUE(form_->txtData[kRate].enabled());
  EXPECT_EQ(form_->txtData[kRate].background(), ui::Background::kWindow);
  EXPECT_EQ(state().EngineRate, 0.0F);
  form_->txtData[kTotal].UserEdit("10000");
  form_->txtData[kRate].UserEdit("nic");
  Pay(Day(2005, 6, 20), "10000");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("69,86")) << "what stands there counts for nothing";
}

TEST_F(frmPostupnyTest, ClosingClearsTheTotals) {
  Open();
  EnterInvoice("10000", Day(2005, 3, 10), kDiscount, "");
  Pay(Day(2005, 6, 20), "4000");
  Pay(Day(2005, 6, 30), "6000");
  ASSERT_NE(state().InterestTotal, Money());
  form_->cmdKonec.UserClick();
  EXPECT_EQ(state().EngineRate, 0.0F);
  EXPECT_EQ(state().InterestTotal, Money());
  EXPECT_EQ(state().DebtBeforeLastPayment, Money());
}

TEST_F(frmPostupnyTest, ReopenedWindowIsEmpty) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "10000");
  form_->CloseRequested.Raise();
  EXPECT_FALSE(windows().IsLoaded("frmPostupny"));
  memory_.event_loop.RunUntilIdle();
  Open();
  ExpectNothingRecorded();
  ExpectInvoiceLocked(false);
  EXPECT_EQ(Balance(), "");
  EXPECT_EQ(form_->cboDruhSazby.index(), kPercentYearly);
  EXPECT_EQ(form_->dtpSplatnost.day(), Day(2026, 11, 21));
}

}  // namespace
}  // namespace velta
