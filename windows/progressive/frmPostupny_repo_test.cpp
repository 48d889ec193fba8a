#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "windows/progressive/frmPostupny_test.h"

namespace velta {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kDueTooHigh = "Nelze najít sazbu, zadali jste vysoké datum splatnosti";

TEST_F(frmPostupnyTest, RepoPaymentIsRecordedOnceItsRowsAreReady) {
  Open().txtData[kRate].UserEdit("77");
  EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
  int completions = 0;
  form_->tmrRepo.Tick.Connect([&] { ++completions; });
  Press(Day(2006, 5, 20), "4000");
  ExpectNothingRecorded();
  ExpectInvoiceLocked(true);
  ASSERT_TRUE(memory_.event_loop.RunNext());  // the engine's timer
  EXPECT_TRUE(form_->tmrRepo.enabled());
  ExpectNothingRecorded();
  memory_.event_loop.RunUntilIdle();
  EXPECT_FALSE(form_->tmrRepo.enabled());
  EXPECT_EQ(completions, 1);
  EXPECT_THAT(Rows(form_->List1), ElementsAre("4000"));
  EXPECT_THAT(Rows(form_->List2), ElementsAre("20.5.2006"));
  EXPECT_THAT(Rows(form_->List3), ElementsAre("6000"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("65,0959"));  // 4 000 × 9 % × 66 ÷ 365
  EXPECT_THAT(Rows(form_->List5), IsEmpty());
  EXPECT_EQ(Balance(), "6000");
  EXPECT_EQ(state().DaysLate, 66);
  EXPECT_EQ(state().BaseAmount, Money::FromUnits(100'000'000));
  EXPECT_DOUBLE_EQ(state().InterestAmount, 65.1);
  EXPECT_EQ(state().AmountWithInterest, Money::FromUnits(100'651'000));
  EXPECT_EQ(form_->txtData[kRate].text(), "77") << "there is no one rate that could stand there";
}

TEST_F(frmPostupnyTest, DueOnTheLastDayOfAHalfYearGivesARowWithoutInterest) {
  Open();
  EnterInvoice("10000", Day(2006, 6, 30), kRepo, "");
  Pay(Day(2006, 7, 10), "10000");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("0,0000", "24,6575"));
  EXPECT_THAT(Rows(form_->List5), ElementsAre("24,66 Kč"));
}

TEST_F(frmPostupnyTest, RepoPaymentLargerThanTheBalanceIsRefusedWhenItsRowsAreReady) {
  Open();
  EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
  Pay(Day(2006, 5, 20), "4000");
  const std::string report = form_->txtPostup.text();
  form_->cmdPridat.SetFocus();
  Press(Day(2006, 5, 20), "6000,01");
  EXPECT_THAT(Shown(), IsEmpty());
  memory_.event_loop.RunUntilIdle();
  EXPECT_EQ(Shown(), Texts{kTooMuch});
  EXPECT_EQ(form_->txtData[kPayment].text(), "");
  EXPECT_EQ(form_->focused(), &form_->txtData[kPayment]);
  EXPECT_THAT(Rows(form_->List1), ElementsAre("4000"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("65,0959"));
  EXPECT_EQ(form_->txtPostup.text(), report);
  Pay(Day(2006, 5, 20), "6000");
  EXPECT_TRUE(state().CalculationFinished);
}

TEST_F(frmPostupnyTest, RepoOverflowIsReportedUnderTheTimer) {
  Open();
  EnterInvoice("922337203685477", Day(2006, 3, 15), kRepo, "");
  Pay(Day(2006, 5, 20), "1000");
  EXPECT_THAT(Shown(), ElementsAre("Chyba 6 (Přetečení) v proceduře\r\n"
                                   "(tmrRepo_Timer) of (frmPostupny.frm)."));
  ExpectNothingRecorded();
  Pay(Day(2006, 5, 20), "1000");
  EXPECT_EQ(Shown().size(), 1U) << "the next press is taken";
}

TEST_F(frmPostupnyTest, SecondPressWhileAPaymentIsPendingIsIgnored) {
  Open();
  EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
  Press(Day(2006, 5, 20), "4000");
  Press(Day(2006, 5, 21), "1000");  // before the engine has computed
  ASSERT_TRUE(memory_.event_loop.RunNext());
  Press(Day(2006, 5, 22), "2000");  // and before its rows are taken
  Press(Day(2005, 1, 1), "");       // not even looked at
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_THAT(Rows(form_->List1), ElementsAre("4000"));
  EXPECT_THAT(Rows(form_->List2), ElementsAre("20.5.2006"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("65,0959"));
  Pay(Day(2006, 5, 20), "6000");
  EXPECT_THAT(Rows(form_->List1), ElementsAre("4000", "6000"));
}

TEST_F(frmPostupnyTest, InputsThatAreChangedWhileAPaymentIsPendingDoNotLeakIntoIt) {
  Open();
  EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
  Press(Day(2006, 5, 20), "4000");
  form_->dtpZaplaceni.UserPick(Day(2006, 6, 20));
  form_->txtData[kPayment].UserEdit("abc");
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_THAT(Rows(form_->List1), ElementsAre("4000"));
  EXPECT_THAT(Rows(form_->List2), ElementsAre("20.5.2006"));
  EXPECT_EQ(Balance(), "6000");
  EXPECT_EQ(state().DaysLate, 66);
  EXPECT_EQ(form_->txtData[kPayment].text(), "abc");
}

TEST_F(frmPostupnyTest, NewCalculationWhileAPaymentIsPendingDropsIt) {
  for (const bool rows_ready : {false, true}) {
    Open();
    EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
    Press(Day(2006, 5, 20), "10000");
    if (rows_ready) {
      ASSERT_TRUE(memory_.event_loop.RunNext());
    }
    form_->cmdNovy.UserClick();
    memory_.event_loop.RunUntilIdle();
    ExpectNothingRecorded();
    EXPECT_EQ(Balance(), "");
    form_->txtData[kTotal].UserEdit("4000");
    Pay(Day(2006, 5, 20), "4000");
    EXPECT_THAT(Rows(form_->List4), ElementsAre("65,0959")) << "and the next one is taken";
    windows().Unload("frmPostupny");
  }
}

TEST_F(frmPostupnyTest, RepoPaymentBeyondTheTableIsToldAndTheNextOneTaken) {
  Open();
  EnterInvoice("10000", Day(2026, 7, 15), kRepo, "");
  Pay(Day(2026, 9, 20), "4000");
  const std::string report = form_->txtPostup.text();
  Pay(Day(2027, 1, 1), "6000");
  EXPECT_EQ(memory_.message_box.shown.at(0).icon, ui::Icon::kCritical);
  EXPECT_THAT(Shown(), ElementsAre(kDueTooHigh));
  EXPECT_THAT(Rows(form_->List1), ElementsAre("4000"));
  EXPECT_EQ(form_->txtPostup.text(), report);
  EXPECT_EQ(Balance(), "6000");
  EXPECT_FALSE(state().CalculationFinished);
  Pay(Day(2026, 12, 31), "6000");
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_THAT(Rows(form_->List1), ElementsAre("4000", "6000"));
  EXPECT_TRUE(state().CalculationFinished);
}

TEST_F(frmPostupnyTest, DueYearOutsideTheRepoTableIsToldWithEveryPress) {
  Open();
  EnterInvoice("10000", Day(2027, 1, 15), kRepo, "");
  for (int i = 0; i < 2; ++i) {
    Pay(Day(2027, 2, 15), "5000");
    EXPECT_THAT(Shown(), ElementsAre(kNoRate));
    ExpectNothingRecorded();
  }
  form_->cmdNovy.UserClick();
  EnterInvoice("10000", Day(2026, 3, 15), kRepo, "");
  Pay(Day(2026, 5, 15), "5000");
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_THAT(Rows(form_->List1), ElementsAre("5000"));
}

TEST_F(frmPostupnyTest, CommandCarriesThePendingPaymentThroughFirst) {
  Open();
  EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
  Press(Day(2006, 5, 20), "4000");
  EXPECT_FALSE(state().CalculationFinished);
  form_->cmdTiskFa.UserClick();
  EXPECT_THAT(Shown(), ElementsAre(kNotPrintable)) << "recorded, but not the last one";
  EXPECT_THAT(Rows(form_->List3), ElementsAre("6000"));
  Press(Day(2006, 5, 20), "6000");
  form_->cmdTiskVyp.UserClick();
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_EQ(memory_.printer.printed.size(), 1U);
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Rows(form_->List3), ElementsAre("6000", "0")) << "one press, one record";
}

}  // namespace
}  // namespace velta
