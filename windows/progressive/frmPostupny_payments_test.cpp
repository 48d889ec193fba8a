#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/english_locale.h"
#include "windows/progressive/frmPostupny_test.h"

namespace velta {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kFinished =
    "Výpočet již byl dokončen, chcete - li počítat další,\r\nstiskněte tlačítko nový výpočet";
constexpr const char* kWrongDates = "Datum zaplacení je chybně zadáno";
constexpr const char* kNoTotal = "Nezadali jste částku dluhu!";
constexpr const char* kNoPayment = "Nezadali jste částečnou úhradu!";
constexpr const char* kNoTypedRate = "Nezadali jste sazbu pro výpočet";

struct RefusedCase {
  const char* name;
  Date paid;  // the invoice is due on 1.1.2004
  const char* total;
  const char* payment;
  const char* kind;
  const char* rate;
  const char* message;
  const char* focus;
};

class RefusedTest : public frmPostupnyTest, public ::testing::WithParamInterface<RefusedCase> {};

TEST_P(RefusedTest, IsToldAndLeavesTheInvoiceOpen) {
  const RefusedCase& c = GetParam();
  Open();
  form_->txtData[kTotal].UserEdit(c.total);
  form_->dtpSplatnost.UserPick(Day(2004, 1, 1));
  form_->cboDruhSazby.UserEdit(c.kind);
  form_->txtData[kRate].SetText(c.rate);
  form_->cmdPridat.SetFocus();
  Pay(c.paid, c.payment);
  ASSERT_EQ(memory_.message_box.shown.size(), 1U);
  EXPECT_EQ(memory_.message_box.shown[0],
            (ui::MemoryMessageBox::Shown{ui::Icon::kCritical, "Velta", c.message}));
  EXPECT_EQ(form_->focused()->name(), c.focus);
  ExpectInvoiceLocked(false);
  EXPECT_EQ(form_->txtData[kTotal].text(), c.total);
  EXPECT_EQ(form_->txtData[kPayment].text(), c.payment);
  EXPECT_EQ(state().DebtBeforeLastPayment, Money());
  ExpectNothingRecorded();
}

constexpr const char* kNotANumber =
    "Chyba 13 (Neshoda typů) v proceduře\r\n(cmdPridat_Click) of (frmPostupny.frm).";
constexpr const char* kOverflow =
    "Chyba 6 (Přetečení) v proceduře\r\n(cmdPridat_Click) of (frmPostupny.frm).";

// Where several inputs are wrong, the first in the order dates, total, payment, rate is told.
INSTANTIATE_TEST_SUITE_P(
    Inputs, RefusedTest,
    ::testing::Values(RefusedCase{"PaidOnTheDueDate", Day(2004, 1, 1), "10000", "5000", "% ročně",
                                  "10", kWrongDates, "cmdPridat"},
                      RefusedCase{"PaidBeforeTheDueDate", Day(2003, 12, 31), "10000", "5000",
                                  "% ročně", "10", kWrongDates, "cmdPridat"},
                      RefusedCase{"NoTotal", Day(2004, 1, 2), "", "5000", "% ročně", "10", kNoTotal,
                                  "txtData(0)"},
                      RefusedCase{"NoPayment", Day(2004, 1, 2), "10000", "", "% ročně", "10",
                                  kNoPayment, "txtData(1)"},
                      RefusedCase{"NoRate", Day(2004, 1, 2), "10000", "5000", "% ročně", "",
                                  kNoTypedRate, "txtData(2)"},
                      RefusedCase{"NoRateOfATypedKind", Day(2004, 1, 2), "10000", "5000",
                                  "částka Kč denně", "", kNoTypedRate, "txtData(2)"},
                      RefusedCase{"NoRateOfAnUnknownKind", Day(2004, 1, 2), "10000", "5000",
                                  "zcela jinak", "", kNoTypedRate, "txtData(2)"},
                      RefusedCase{"AllWrong", Day(2004, 1, 1), "", "", "% ročně", "", kWrongDates,
                                  "cmdPridat"},
                      RefusedCase{"AllButTheDates", Day(2004, 1, 2), "", "", "% ročně", "",
                                  kNoTotal, "txtData(0)"},
                      RefusedCase{"PaymentAndRate", Day(2004, 1, 2), "10000", "", "% ročně", "",
                                  kNoPayment, "txtData(1)"},
                      RefusedCase{"TotalNoNumber", Day(2004, 1, 2), "abc", "5000", "% ročně", "10",
                                  kNotANumber, "cmdPridat"},
                      RefusedCase{"TotalNoNumberAndNoPayment", Day(2004, 1, 2), "abc", "",
                                  "% ročně", "10", kNotANumber, "cmdPridat"},
                      RefusedCase{"TotalABlank", Day(2004, 1, 2), " ", "5000", "% ročně", "10",
                                  kNotANumber, "cmdPridat"},
                      RefusedCase{"TotalWithTheOtherSeparator", Day(2004, 1, 2), "1.5", "1",
                                  "% ročně", "10", kNotANumber, "cmdPridat"},
                      RefusedCase{"PaymentNoNumber", Day(2004, 1, 2), "10000", "abc", "% ročně",
                                  "10", kNotANumber, "cmdPridat"},
                      RefusedCase{"PaymentNoNumberAndNoRate", Day(2004, 1, 2), "10000", "5 %",
                                  "% ročně", "", kNotANumber, "cmdPridat"},
                      RefusedCase{"TotalTooLarge", Day(2004, 1, 2), "922337203685477,5808", "1",
                                  "% ročně", "10", kOverflow, "cmdPridat"},
                      RefusedCase{"PaymentTooLarge", Day(2004, 1, 2), "1", "922337203685478",
                                  "% ročně", "10", kOverflow, "cmdPridat"}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(frmPostupnyTest, FinishedCalculationTakesNoMorePayments) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "10000");
  EXPECT_FALSE(form_->cmdPridat.enabled());
  form_->dtpZaplaceni.UserPick(Day(2003, 1, 1));  // this is told before any other fault
  form_->txtData[kPayment].UserEdit("");
  const std::string report = form_->txtPostup.text();
  form_->cmdPridat.Click.Raise();  // a press that waited while the last payment was recorded
  EXPECT_EQ(memory_.message_box.shown.at(0).icon, ui::Icon::kCritical);
  EXPECT_THAT(Shown(), ElementsAre(kFinished));
  EXPECT_EQ(form_->txtPostup.text(), report);
  EXPECT_THAT(Rows(form_->List1), ElementsAre("10000"));
}

TEST_F(frmPostupnyTest, PaymentLargerThanTheBalanceIsEmptiedAndChangesNothing) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  const std::string report = form_->txtPostup.text();
  form_->cmdPridat.SetFocus();
  Pay(Day(2004, 3, 1), "5000,0001");
  EXPECT_EQ(memory_.message_box.shown.at(0).icon, ui::Icon::kCritical);
  EXPECT_THAT(Shown(), ElementsAre(kTooMuch));
  EXPECT_EQ(form_->txtData[kPayment].text(), "");
  EXPECT_EQ(form_->focused(), &form_->txtData[kPayment]);
  EXPECT_THAT(Rows(form_->List1), ElementsAre("5000"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("41,1"));
  EXPECT_THAT(Rows(form_->List5), IsEmpty());
  EXPECT_EQ(Balance(), "5000");
  EXPECT_EQ(form_->txtPostup.text(), report);
  EXPECT_FALSE(state().CalculationFinished);
  ExpectInvoiceLocked(true);

  Pay(Day(2004, 3, 1), "5000");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("41,1", "82,19"));
  EXPECT_TRUE(state().CalculationFinished);
}

TEST_F(frmPostupnyTest, FirstPaymentThatIsTooLargeLocksTheInvoiceAllTheSame) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "10000,01");
  EXPECT_THAT(Shown(), ElementsAre(kTooMuch));
  ExpectInvoiceLocked(true);
  ExpectNothingRecorded();
}

TEST_F(frmPostupnyTest, TypedRateThatIsNoNumberStopsSilentlyWithTheInvoiceLocked) {
  Open();
  EnterInvoice("10000", Day(2004, 1, 1), kPercentYearly, "abc");
  Pay(Day(2004, 1, 31), "5000");
  EXPECT_THAT(Shown(), IsEmpty());
  ExpectInvoiceLocked(true);
  EXPECT_FALSE(form_->txtData[kRate].enabled());
  ExpectNothingRecorded();
  EXPECT_EQ(Balance(), "10000");
  form_->cmdNovy.UserClick();
  ExpectInvoiceLocked(false);
}

// What the routine itself refuses; the button has refused it before.
TEST_F(frmPostupnyTest, CalculationCalledByItselfLooksAtItsInputsAgain) {
  Open();
  EnterSampleInvoice();
  form_->dtpZaplaceni.UserPick(Day(2004, 1, 1));
  form_->UdelejVypocet();
  EXPECT_THAT(Shown(), ElementsAre(kWrongDates));
  form_->dtpZaplaceni.UserPick(Day(2004, 1, 2));
  form_->txtData[kTotal].UserEdit("abc");
  form_->UdelejVypocet();
  EXPECT_THAT(Shown(), IsEmpty());
  ExpectNothingRecorded();
  EXPECT_EQ(state().DaysLate, 1);
}

TEST_F(frmPostupnyTest, FirstPaymentIsRecordedAndLocksTheInvoice) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  EXPECT_THAT(Rows(form_->List1), ElementsAre("5000"));
  EXPECT_THAT(Rows(form_->List2), ElementsAre("31.1.2004"));
  EXPECT_THAT(Rows(form_->List3), ElementsAre("5000"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("41,1"));
  EXPECT_THAT(Rows(form_->List5), IsEmpty());
  EXPECT_EQ(Balance(), "5000");
  EXPECT_EQ(form_->txtData[kPayment].text(), "5000");
  ExpectInvoiceLocked(true);
  EXPECT_FALSE(form_->txtData[kRate].enabled());
  EXPECT_EQ(form_->txtData[kRate].background(), ui::Background::kWindow)
      << "only the total is grey";
  EXPECT_TRUE(form_->cmdPridat.enabled());
  EXPECT_FALSE(state().CalculationFinished);
  EXPECT_EQ(form_->finished(), std::nullopt);
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmPostupnyTest, PublishesTheSharedValues) {
  Open();
  state().InterestTotal = Money::FromUnits(1);
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "4000");
  EXPECT_EQ(state().DueDate, Day(2004, 1, 1));
  EXPECT_EQ(state().PaymentDate, Day(2004, 1, 31));
  EXPECT_EQ(state().DaysLate, 30);
  EXPECT_EQ(state().BaseAmount, Money::FromUnits(100'000'000)) << "the balance, not the payment";
  EXPECT_EQ(state().RateValue, 10.0F);
  EXPECT_EQ(state().RateKindText, "% ročně");
  EXPECT_DOUBLE_EQ(state().InterestAmount, 32.88);
  EXPECT_EQ(state().AmountWithInterest, Money::FromUnits(100'328'800));
  EXPECT_EQ(state().DebtBeforeLastPayment, Money::FromUnits(100'000'000));
  EXPECT_EQ(state().InterestTotal, Money()) << "one row is no total before the end";

  Pay(Day(2004, 3, 1), "1000");
  EXPECT_EQ(state().DaysLate, 60);
  EXPECT_EQ(state().BaseAmount, Money::FromUnits(60'000'000));
  EXPECT_EQ(state().DebtBeforeLastPayment, Money::FromUnits(60'000'000));
  EXPECT_EQ(state().AmountWithInterest, Money::FromUnits(60'164'400));
  EXPECT_EQ(state().InterestTotal, Money::FromUnits(493'200)) << "32,88 + 16,44";
}

TEST_F(frmPostupnyTest, PaymentThatIsTooLargeStillCountsAsTheLatest) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "4000");
  Pay(Day(2004, 3, 1), "7000");
  EXPECT_EQ(state().DebtBeforeLastPayment, Money::FromUnits(60'000'000));
  EXPECT_DOUBLE_EQ(state().InterestAmount, 115.07);
}

TEST_F(frmPostupnyTest, LastPaymentEndsTheCalculationOnThePrintCommand) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  Pay(Day(2004, 3, 1), "5000");
  EXPECT_TRUE(state().CalculationFinished);
  EXPECT_FALSE(form_->cmdPridat.enabled());
  EXPECT_EQ(form_->focused(), &form_->cmdTiskVyp);
  EXPECT_EQ(HintText(), "Tisk výpočtu");
  ExpectInvoiceLocked(true);
}

TEST_F(frmPostupnyTest, ThreeThirdsEndAtZero) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "3333,33");
  EXPECT_EQ(Balance(), "6666,67");
  Pay(Day(2004, 1, 31), "3333,33");
  EXPECT_FALSE(state().CalculationFinished);
  Pay(Day(2004, 1, 31), "3333,34");
  EXPECT_THAT(Rows(form_->List1), ElementsAre("3333,33", "3333,33", "3333,34"));
  EXPECT_THAT(Rows(form_->List3), ElementsAre("6666,67", "3333,34", "0"));
  EXPECT_EQ(Balance(), "0");
  EXPECT_TRUE(state().CalculationFinished);
}

TEST_F(frmPostupnyTest, AmountsOfAnyFormAreComparedToFourDecimals) {
  struct Row {
    const char* total;
    const char* payment;
    const char* balance;
    bool finished;
  };
  for (const Row& row : {Row{"10 000,50 Kč", "10000,5", "0", true},
                         Row{"10\u00a0000", "+10 000,", "0", true}, Row{"1", ",5", "0,5", false},
                         // The fifth decimal goes before amounts are compared, ties to even.
                         Row{"1,00005", "1", "0", true}, Row{"1", "1,00005", "0", true},
                         Row{"1,0001", "1", "0,0001", false}, Row{"0", "0", "0", true},
                         Row{"100", "0", "100", false}, Row{"100", "-50", "150", false},
                         Row{"-100", "-100", "0", true}, Row{"-100", "-150", "50", false}}) {
    Open();
    EnterInvoice(row.total, Day(2004, 1, 1), kPercentYearly, "10");
    Pay(Day(2004, 1, 31), row.payment);
    EXPECT_THAT(Shown(), IsEmpty()) << row.total;
    EXPECT_EQ(Balance(), row.balance) << row.total;
    EXPECT_EQ(state().CalculationFinished, row.finished) << row.total;
    windows().Unload("frmPostupny");
  }
}

TEST_F(frmPostupnyTest, LaterPaymentMayBeOfAnEarlierDay) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 3, 1), "5000");
  Pay(Day(2004, 1, 31), "5000");
  EXPECT_THAT(Rows(form_->List2), ElementsAre("1.3.2004", "31.1.2004"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("82,19", "41,1"));
}

TEST_F(frmPostupnyTest, EnglishUserSeesHisOwnNumbersAndDates) {
  memory_.locale = EnglishLocale();
  SetRounding("NE");
  Open();
  EnterInvoice("10,000.50", Day(2004, 1, 1), kPercentYearly, "8.5");
  Pay(Day(2004, 1, 31), "5,000.25");
  EXPECT_THAT(Rows(form_->List1), ElementsAre("5000.25"));
  EXPECT_THAT(Rows(form_->List2), ElementsAre("1/31/2004"));
  EXPECT_THAT(Rows(form_->List3), ElementsAre("5000.25"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("34.93"));
  EXPECT_EQ(Balance(), "5000.25");
  Pay(Day(2004, 3, 1), "5000.25");
  EXPECT_THAT(Rows(form_->List5), ElementsAre("104.80 Kč"));
  EXPECT_THAT(form_->txtPostup.text(), HasSubstr("Částečná úhrada ve výši:\t5,000.25 Kč\r\n"));
  EXPECT_THAT(form_->txtPostup.text(), HasSubstr("Úroková sazba:\t\t8.5 % ročně\r\n"));
}

TEST_F(frmPostupnyTest, LargestAmountIsPaidWhereItBearsNoInterest) {
  Open();
  EnterInvoice("922337203685477,5807", Day(2004, 1, 1), kPercentYearly, "0");
  Pay(Day(2004, 1, 31), "922 337 203 685 477,5807");
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_THAT(Rows(form_->List1), ElementsAre("922337203685477,5807"));
  EXPECT_TRUE(state().CalculationFinished);
}

TEST_F(frmPostupnyTest, AmountWithInterestBeyondTheLimitRecordsNothing) {
  Open();
  EnterInvoice("922337203685477,58", Day(2004, 1, 1), kPercentYearly, "10");
  Pay(Day(2004, 1, 31), "1000");
  EXPECT_THAT(Shown(), ElementsAre("Chyba 6 (Přetečení) v proceduře\r\n"
                                   "(UdelejVypocet) of (frmPostupny.frm)."));
  ExpectInvoiceLocked(true);
  ExpectNothingRecorded();
  EXPECT_EQ(Balance(), "922337203685477,58");
}

TEST_F(frmPostupnyTest, BalanceBelowTheLimitRecordsNothing) {
  Open();
  EnterInvoice("-900000000000000", Day(2004, 1, 1), kPercentYearly, "0");
  Pay(Day(2004, 1, 31), "900000000000000");
  EXPECT_THAT(Shown(), ElementsAre("Chyba 6 (Přetečení) v proceduře\r\n"
                                   "(UdelejVypocet) of (frmPostupny.frm)."));
  ExpectNothingRecorded();
}

TEST_F(frmPostupnyTest, TotalBeyondTheLimitRecordsNothingOfThePayment) {
  Open();
  // 10 Kč at 50 000 000 000 000 000 % bear 5 000 000 000 000 000 Kč a day; a tenth of it fits
  // twice.
  EnterInvoice("10", Day(2004, 1, 1), 0, "50000000000000000");
  Pay(Day(2004, 1, 2), "1");
  EXPECT_THAT(Shown(), IsEmpty());
  const std::string report = form_->txtPostup.text();
  Pay(Day(2004, 1, 2), "1");
  EXPECT_THAT(Shown(), ElementsAre("Chyba 6 (Přetečení) v proceduře\r\n"
                                   "(UdelejVypocet) of (frmPostupny.frm)."));
  EXPECT_THAT(Rows(form_->List1), ElementsAre("1"));
  EXPECT_THAT(Rows(form_->List2), ElementsAre("2.1.2004"));
  EXPECT_THAT(Rows(form_->List3), ElementsAre("9"));
  EXPECT_EQ(form_->List4.items().size(), 1U);
  EXPECT_THAT(Rows(form_->List5), IsEmpty());
  EXPECT_EQ(form_->txtPostup.text(), report);
  EXPECT_EQ(Balance(), "9");
  Pay(Day(2004, 1, 2), "0,5");
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_THAT(Rows(form_->List1), ElementsAre("1", "0,5"));
}

TEST_F(frmPostupnyTest, NextPaymentBeginsWithItsDay) {
  Open();
  EnterSampleInvoice();
  form_->txtData[kPayment].SetFocus();
  Pay(Day(2004, 1, 31), "5000");
  EXPECT_EQ(form_->focused(), &form_->dtpZaplaceni);
  Pay(Day(2004, 1, 31), "6000");
  EXPECT_EQ(form_->focused(), &form_->txtData[kPayment]) << "it was too much";
  Pay(Day(2004, 1, 31), "5000");
  EXPECT_EQ(form_->focused(), &form_->cmdTiskVyp) << "it was the last one";
}

}  // namespace
}  // namespace velta
