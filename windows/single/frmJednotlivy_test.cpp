#include "windows/single/frmJednotlivy.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "calc/single_report.h"
#include "tests/support/english_locale.h"
#include "tests/support/program_test.h"
#include "tests/support/rate_folder.h"

namespace velta {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::HasSubstr;

constexpr int kDiscount = 4;
constexpr int kRepo = 5;
constexpr const char* kReversedDates = "Datum zaplacení je chybně zadáno";
constexpr const char* kToRepo = "Měním na REPO sazbu";
constexpr const char* kToDiscount = "Měním na DISKONTNÍ sazbu";
constexpr const char* kNoRate = "Nenalezena sazba pro zadané období";
constexpr const char* kDueTooHigh = "Nelze najít sazbu, zadali jste vysoké datum splatnosti";

// What it has in common with the progressive window is tried in calculation_form_test.cpp.
class frmJednotlivyTest : public ProgramTest {
 protected:
  frmJednotlivyTest() {
    windows().Register("frmJednotlivy", [this] {
      return std::make_unique<frmJednotlivy>(program_, settings_, calculations_);
    });
    RegisterOther("frmFaktura");
  }

  frmJednotlivy& Open() {
    form_ = &Opened<frmJednotlivy>("frmJednotlivy");
    return *form_;
  }

  /// Types as a user would: the whole text at once into an empty box.
  void Enter(Date due, Date paid, const std::string& amount, int kind, const std::string& rate) {
    form_->dtpSplatnost.UserPick(due);
    form_->dtpZaplaceni.UserPick(paid);
    form_->cboDruhSazby.UserPick(kind);
    form_->txtDluznaCastka.UserEdit(amount);
    form_->txtVyseSazby.UserEdit(rate);
    memory_.event_loop.RunUntilIdle();
    Shown();
  }

  Calculations calculations_{program_.state};
  frmJednotlivy* form_ = nullptr;
};

// --- the window -------------------------------------------------------------------------------

TEST_F(frmJednotlivyTest, OpensWithItsCaptions) {
  const frmJednotlivy& form = Open();
  EXPECT_EQ(form.caption(), "Jednotlivý výpočet");
  EXPECT_EQ(form.fraDatJed.caption(), "Zadání data");
  EXPECT_EQ(form.fraDluJed.caption(), "Zadání dlužné částky a sazby");
  EXPECT_EQ(form.fraVysJed.caption(), "Výsledek");
  std::vector<std::string> labels;
  for (const ui::Label& label : form.lblPopis) labels.push_back(label.caption());
  EXPECT_THAT(labels,
              ElementsAre("Zadejte datum splatnosti faktury", "Zadejte datum zaplacení faktury",
                          "Trvání dluhu ve dnech", "Dlužná částka", "Druh sazby",
                          "Penále za zadané období", "Penále + dlužná částka", "Výše sazby"));
}

TEST_F(frmJednotlivyTest, OpensWithFifteenDaysAndWithoutAMessage) {
  const frmJednotlivy& form = Open();
  EXPECT_EQ(form.dtpSplatnost.day(), Day(2026, 11, 6));
  EXPECT_EQ(form.dtpZaplaceni.day(), Day(2026, 11, 21));
  EXPECT_EQ(form.lblPocetDnu.caption(), "15");
  EXPECT_EQ(form.lblPenale.caption(), "");
  EXPECT_EQ(form.lblPenaleDluh.caption(), "");
  EXPECT_EQ(form.txtDluznaCastka.text(), "");
  EXPECT_EQ(form.txtVyseSazby.text(), "");
  EXPECT_TRUE(form.txtVyseSazby.enabled());
  EXPECT_EQ(form.txtReport.text(), "");
  EXPECT_TRUE(form.txtReport.read_only());
  EXPECT_THAT(form.txtReport.tab_stops(), ElementsAre(5, 108));
  EXPECT_THAT(Shown(), ElementsAre());
  EXPECT_EQ(HintText(), "Datum vyberte klepnutím na šipku, nebo přepište ručně")
      << "the first input has the focus";
}

TEST_F(frmJednotlivyTest, ChosenKindIsToldInTheStatusLine) {
  Open().cboDruhSazby.UserPick(0);
  EXPECT_EQ(HintText(), "Vybraná sazba : % denně");
}

// --- computing with a typed rate ----------------------------------------------------------------

struct TypedCase {
  const char* name;
  const char* rounding;
  const char* amount;
  int kind;
  const char* rate;
  int days;
  const char* interest;
  const char* total;
};

class TypedRateTest : public frmJednotlivyTest, public ::testing::WithParamInterface<TypedCase> {};

TEST_P(TypedRateTest, ShowsInterestAndTotal) {
  const TypedCase& c = GetParam();
  SetRounding(c.rounding);
  Open();
  const Date due = Day(2023, 1, 10);
  Enter(due, AddDays(due, c.days), c.amount, c.kind, c.rate);
  EXPECT_EQ(form_->lblPocetDnu.caption(), std::to_string(c.days));
  EXPECT_EQ(form_->lblPenale.caption(), c.interest);
  EXPECT_EQ(form_->lblPenaleDluh.caption(), c.total);
  EXPECT_TRUE(state().CalculationFinished);
  EXPECT_EQ(form_->txtReport.text(), state().ReportText);
  EXPECT_THAT(state().ReportText, HasSubstr(std::string("Úrok z prodlení\t") + c.interest));
}

// Figures of the rounding and formula rules' worked examples, counted by hand.
INSTANTIATE_TEST_SUITE_P(
    Figures, TypedRateTest,
    ::testing::Values(
        TypedCase{"Year", "NE", "10000", 1, "10", 365, "1 000,00 Kč", "11 000,00 Kč"},
        TypedCase{"LeapYear", "NE", "10000", 1, "10", 366, "1 002,74 Kč", "11 002,74 Kč"},
        TypedCase{"LeapYearHalere", "halere", "10000", 1, "10", 366, "1 002,80 Kč", "11 002,80 Kč"},
        TypedCase{"LeapYearKoruny", "koruny", "10000", 1, "10", 366, "1 003,00 Kč", "11 003,00 Kč"},
        TypedCase{"UnknownWord", "HALERE", "10000", 1, "10", 366, "1 002,74 Kč", "11 002,74 Kč"},
        TypedCase{"Daily", "NE", "1000000", 0, "0,05", 100, "50 000,00 Kč", "1 050 000,00 Kč"},
        // The single-precision rate lies above 0,05, which rounding up makes visible.
        TypedCase{"DailyHalere", "halere", "10000000", 0, "0,05", 100, "500 000,10 Kč",
                  "10 500 000,10 Kč"},
        TypedCase{"PerMilleYearly", "NE", "10000", 3, "85", 365, "850,00 Kč", "10 850,00 Kč"},
        TypedCase{"PerMilleDaily", "NE", "10000", 2, "0,5", 45, "225,00 Kč", "10 225,00 Kč"},
        TypedCase{"TieDown", "koruny", "4562,50", 1, "1", 100, "12,00 Kč", "4 574,50 Kč"},
        TypedCase{"TieUp", "koruny", "4927,50", 1, "1", 100, "14,00 Kč", "4 941,50 Kč"},
        TypedCase{"Ninety", "NE", "10000", 1, "8", 90, "197,26 Kč", "10 197,26 Kč"},
        TypedCase{"FiftyEight", "NE", "10000", 1, "8,5", 58, "135,07 Kč", "10 135,07 Kč"},
        TypedCase{"Thirty", "NE", "15000", 1, "10", 30, "123,29 Kč", "15 123,29 Kč"},
        TypedCase{"GroupedAmount", "NE", "10 000,50", 1, "10", 365, "1 000,05 Kč", "11 000,55 Kč"},
        TypedCase{"NoBreakSpace", "NE", "10\u00a0000,50", 1, "10", 365, "1 000,05 Kč",
                  "11 000,55 Kč"},
        // Where another order of the operations would show another amount.
        TypedCase{"OrderDaily", "halere", "11185,65", 0, "23", 398, "1 023 934,40 Kč",
                  "1 035 120,05 Kč"},
        TypedCase{"OrderPerMilleYearly", "halere", "7358,75", 3, "23", 292, "135,50 Kč",
                  "7 494,25 Kč"},
        TypedCase{"OrderPerMilleDaily", "halere", "14755,88", 2, "8,25", 100, "12 173,70 Kč",
                  "26 929,58 Kč"},
        TypedCase{"OrderYearlyDivisions", "halere", "13496,50", 1, "19", 219, "1 538,60 Kč",
                  "15 035,10 Kč"},
        TypedCase{"OrderYearlyDays", "halere", "15491,01", 1, "10", 365, "1 549,10 Kč",
                  "17 040,11 Kč"},
        TypedCase{"OrderYearlyRate", "halere", "3028,85", 1, "26", 365, "787,50 Kč", "3 816,35 Kč"},
        // 0.00496 to four decimals would be 0.0050 and show as 0,01.
        TypedCase{"InterestIsShownFromItsOwnDigits", "NE", "0,496", 0, "1", 1, "0,00 Kč",
                  "0,50 Kč"},
        // The sum is made of amounts; a double of that size has no haléř to spare.
        TypedCase{"LargeAmountKeepsItsHaler", "NE", "90000000000000,01", 1, "0", 10, "0,00 Kč",
                  "90 000 000 000 000,01 Kč"},
        TypedCase{"ZeroRate", "NE", "10000", 1, "0", 365, "0,00 Kč", "10 000,00 Kč"},
        TypedCase{"NegativeRate", "NE", "10000", 1, "-1", 365, "-100,00 Kč", "9 900,00 Kč"}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(frmJednotlivyTest, DatesThatAreNotInOrderAreRefused) {
  Open();
  Enter(Day(2023, 1, 1), Day(2024, 1, 1), "10000", 1, "10");
  form_->dtpSplatnost.UserPick(Day(2024, 1, 1));
  EXPECT_THAT(Shown(), ElementsAre(kReversedDates));
  form_->dtpSplatnost.UserPick(Day(2024, 5, 1));
  EXPECT_EQ(memory_.message_box.shown.at(0).icon, ui::Icon::kCritical);
  EXPECT_EQ(memory_.message_box.shown.at(0).caption, "Velta");
  EXPECT_THAT(Shown(), ElementsAre(kReversedDates));
  EXPECT_EQ(form_->lblPocetDnu.caption(), "365");
  EXPECT_EQ(form_->lblPenale.caption(), "1 000,00 Kč");
  EXPECT_TRUE(state().CalculationFinished) << "the last result stays";
  form_->dtpSplatnost.UserPick(Day(2023, 12, 31));
  EXPECT_EQ(form_->lblPocetDnu.caption(), "1");
  EXPECT_THAT(Shown(), ElementsAre());
}

TEST_F(frmJednotlivyTest, DueDayIsNotCountedAndPaymentDayIs) {
  Open();
  form_->dtpSplatnost.UserPick(Day(2005, 3, 10));
  form_->dtpZaplaceni.UserPick(Day(2005, 6, 20));
  EXPECT_EQ(form_->lblPocetDnu.caption(), "102");
}

TEST_F(frmJednotlivyTest, WithoutAmountOnlyTheDaysChange) {
  Open();
  form_->dtpSplatnost.UserPick(Day(2026, 1, 1));
  EXPECT_EQ(form_->lblPocetDnu.caption(), "324");
  EXPECT_EQ(form_->lblPenale.caption(), "");
  EXPECT_THAT(Shown(), ElementsAre());
  EXPECT_FALSE(state().CalculationFinished);
}

TEST_F(frmJednotlivyTest, WithoutARateNothingIsComputed) {
  Open();
  form_->txtDluznaCastka.UserEdit("10000");
  EXPECT_EQ(form_->lblPenale.caption(), "");
  EXPECT_THAT(Shown(), ElementsAre());
}

TEST_F(frmJednotlivyTest, RateThatIsNoNumberStopsSilentlyAndKeepsTheResult) {
  Open();
  Enter(Day(2023, 1, 1), Day(2024, 1, 1), "10000", 1, "10");
  form_->txtVyseSazby.UserEdit("10x");
  EXPECT_EQ(form_->lblPenale.caption(), "1 000,00 Kč");
  EXPECT_TRUE(state().CalculationFinished);
  EXPECT_THAT(Shown(), ElementsAre());
}

TEST_F(frmJednotlivyTest, ComputesWithEveryKeyOfTheRate) {
  Open();
  Enter(Day(2023, 1, 1), Day(2024, 1, 1), "10000", 1, "");
  std::vector<std::string> seen;
  for (const char* text : {"8", "8,", "8,5"}) {
    form_->txtVyseSazby.UserEdit(text);
    seen.push_back(form_->lblPenale.caption());
  }
  EXPECT_THAT(seen, ElementsAre("800,00 Kč", "800,00 Kč", "850,00 Kč"));
  EXPECT_THAT(Shown(), ElementsAre());
}

TEST_F(frmJednotlivyTest, SecondCalculationReplacesTheReport) {
  Open();
  Enter(Day(2023, 1, 1), Day(2024, 1, 1), "10000", 1, "10");
  const std::string first = form_->txtReport.text();
  form_->txtDluznaCastka.UserEdit("20000");
  EXPECT_EQ(form_->txtReport.text().size(), first.size());
  EXPECT_NE(form_->txtReport.text(), first);
  EXPECT_EQ(form_->txtReport.text(), state().ReportText);
}

// --- the bank's regimes
// ---------------------------------------------------------------------------

TEST_F(frmJednotlivyTest, DiscountRateOfTheDueDateHoldsForTheWholeDelay) {
  Open();
  // 2 × 1,25 % was in force on 10.3.2005; 10 000 × 2,5 ÷ 100 × 102 ÷ 365 = 69,8630
  Enter(Day(2005, 3, 10), Day(2005, 6, 20), "10000", kDiscount, "");
  EXPECT_EQ(form_->txtVyseSazby.text(), "2,5");
  EXPECT_FALSE(form_->txtVyseSazby.enabled());
  EXPECT_EQ(form_->txtVyseSazby.background(), ui::Background::kFace);
  EXPECT_EQ(form_->lblPenale.caption(), "69,86 Kč");
  EXPECT_EQ(form_->lblPenaleDluh.caption(), "10 069,86 Kč");
  EXPECT_EQ(state().RateValue, 2.5F);
  EXPECT_THAT(form_->txtReport.text(), HasSubstr("\tÚroková sazba:\t2,5 %\r\n"));

  // On 27.4.2005 it was 2 × 1,00 %: 253 days to 5.1.2006 make 138,6301 although rates changed.
  Enter(Day(2005, 4, 27), Day(2006, 1, 5), "10000", kDiscount, "");
  EXPECT_EQ(form_->lblPocetDnu.caption(), "253");
  EXPECT_EQ(form_->lblPenale.caption(), "138,63 Kč");
}

TEST_F(frmJednotlivyTest, DiscountKindReplacesATypedRateWithoutEndlessComputing) {
  Open();
  Enter(Day(2005, 3, 10), Day(2005, 6, 20), "10000", 1, "10");
  form_->cboDruhSazby.UserPick(kDiscount);
  EXPECT_EQ(form_->txtVyseSazby.text(), "2,5");
  EXPECT_EQ(form_->lblPenale.caption(), "69,86 Kč");
  EXPECT_EQ(HintText(), "Vybraná sazba : Dle Diskontní sazby ČNB");
  EXPECT_THAT(Shown(), ElementsAre());
}

TEST_F(frmJednotlivyTest, DueDateInNoRowIsToldAndTheResultsStay) {
  RateFolder folder;
  folder.Write("cnb.dat",
               "01.01.2003         30.06.2003          1,75                 3,50\r\n"
               "01.07.2003         31.12.2003          1,25                 2,50\r\n"
               "01.02.2004                             1,00                 2,00\r\n");
  folder.Write("repo.dat", "010120052,50\r\n");
  memory_.program_folder.path = folder.path();
  Open();
  Enter(Day(2003, 3, 10), Day(2003, 6, 20), "10000", kDiscount, "");
  form_->dtpZaplaceni.UserPick(Day(2004, 6, 20));
  Shown();
  const std::string report = form_->txtReport.text();
  form_->dtpSplatnost.UserPick(Day(2004, 1, 15));
  EXPECT_EQ(memory_.message_box.shown.at(0).icon, ui::Icon::kCritical);
  EXPECT_THAT(Shown(), Contains(kNoRate));
  EXPECT_EQ(form_->lblPenale.caption(), "448,77 Kč") << "of the delay before";
  EXPECT_EQ(form_->txtReport.text(), report);
  EXPECT_TRUE(state().CalculationFinished);
}

TEST_F(frmJednotlivyTest, RateOfAnEarlierSearchIsNoAnswerToTheNextOne) {
  RateFolder folder;
  folder.Write("cnb.dat", CrLf({CnbLine("01.01.2003", "31.12.2003", "1,00", "2,00"),
                                CnbLine("01.01.2005", "", "2,00", "4,00")}));
  folder.Write("repo.dat", "");
  memory_.program_folder.path = folder.path();
  Open();
  Enter(Day(2003, 6, 1), Day(2005, 3, 1), "10000", kDiscount, "");
  const std::string interest = form_->lblPenale.caption();
  ASSERT_NE(interest, "");
  form_->dtpSplatnost.UserPick(Day(2004, 6, 1));  // in the gap of two rows
  EXPECT_THAT(Shown(), ElementsAre(kNoRate));
  EXPECT_EQ(form_->lblPenale.caption(), interest);
}

TEST_F(frmJednotlivyTest, EmptyTablesAreToldWithEveryChangeAndTypedRatesWork) {
  RateFolder folder;
  folder.Write("cnb.dat", "");
  folder.Write("repo.dat", "");
  memory_.program_folder.path = folder.path();
  Open();
  form_->txtDluznaCastka.UserEdit("10000");
  form_->dtpSplatnost.UserPick(Day(2005, 3, 10));
  form_->cboDruhSazby.UserPick(kDiscount);
  EXPECT_THAT(Shown(), ElementsAre("Chyba 13 (Neshoda typů) v proceduře\r\n"
                                   "(StanoveniPrvniSazby) of (frmPocitejCNB.frm)."));
  form_->dtpSplatnost.UserPick(Day(2005, 5, 10));
  EXPECT_THAT(Shown(), ElementsAre(kToRepo, kNoRate, kNoRate))
      << "the nested and the outer run both ask";
  form_->cboDruhSazby.UserPick(1);
  form_->txtVyseSazby.UserEdit("10");
  EXPECT_NE(form_->lblPenale.caption(), "") << "typed rates work";
}

TEST_F(frmJednotlivyTest, ChangedDueDateSwitchesTheRegime) {
  Open();
  Enter(Day(2005, 4, 28), Day(2005, 6, 20), "10000", kRepo, "");
  form_->dtpSplatnost.UserPick(Day(2005, 4, 27));
  EXPECT_THAT(Shown(), ElementsAre(kToDiscount));
  EXPECT_EQ(form_->cboDruhSazby.index(), kDiscount);
  EXPECT_EQ(HintText(), "Vybraná sazba : Dle Diskontní sazby ČNB");
  EXPECT_EQ(form_->txtVyseSazby.text(), "2");
  form_->dtpSplatnost.UserPick(Day(2005, 4, 28));
  EXPECT_THAT(Shown(), ElementsAre(kToRepo));
  EXPECT_EQ(form_->cboDruhSazby.index(), kRepo);
  EXPECT_EQ(form_->txtVyseSazby.text(), "");
}

TEST_F(frmJednotlivyTest, TypedKindIsNeverSwitched) {
  Open();
  Enter(Day(2005, 4, 27), Day(2005, 6, 20), "10000", 1, "10");
  form_->dtpSplatnost.UserPick(Day(2005, 4, 28));
  EXPECT_THAT(Shown(), ElementsAre());
  EXPECT_EQ(form_->cboDruhSazby.index(), 1);
}

TEST_F(frmJednotlivyTest, SwitchIsToldOnceAlsoWithReversedDates) {
  Open();
  form_->dtpZaplaceni.UserPick(Day(2005, 4, 20));
  form_->dtpSplatnost.UserPick(Day(2005, 4, 27));
  Shown();
  form_->cboDruhSazby.UserPick(kRepo);
  const auto shown = Shown();
  EXPECT_EQ(std::count(shown.begin(), shown.end(), kToDiscount), 1);
  EXPECT_GE(std::count(shown.begin(), shown.end(), kReversedDates), 1);
}

TEST_F(frmJednotlivyTest, BankKindWithoutAmountOnlyEmptiesTheRate) {
  Open();
  form_->txtVyseSazby.UserEdit("10");
  form_->cboDruhSazby.UserPick(kRepo);
  EXPECT_EQ(form_->txtVyseSazby.text(), "");
  EXPECT_FALSE(form_->txtVyseSazby.enabled());
  EXPECT_EQ(form_->txtVyseSazby.background(), ui::Background::kFace);
  EXPECT_EQ(state().RateValue, 0.0F);
  form_->cboDruhSazby.UserPick(0);
  EXPECT_TRUE(form_->txtVyseSazby.enabled());
  EXPECT_EQ(form_->txtVyseSazby.background(), ui::Background::kWindow);
  EXPECT_EQ(form_->txtVyseSazby.text(), "");
}

TEST_F(frmJednotlivyTest, BankKindForgetsTheTypedRate) {
  Open();
  Enter(Day(2006, 3, 15), Day(2006, 5, 20), "10000", 1, "10");
  ASSERT_EQ(state().RateValue, 10.0F);
  form_->cboDruhSazby.UserPick(kRepo);
  EXPECT_EQ(state().RateValue, 0.0F);
}

TEST_F(frmJednotlivyTest, LongestDelayIsCountedAndComputed) {
  Open();
  Enter(Day(1900, 1, 1), Day(9999, 12, 31), "1", 1, "100");
  EXPECT_EQ(form_->lblPocetDnu.caption(), "2958463");
  EXPECT_EQ(form_->lblPenale.caption(), "8 105,38 Kč");  // 2958463 / 365
}

TEST_F(frmJednotlivyTest, TypedKindAfterADiscountResultComputesWithTheFoundRate) {
  Open();
  Enter(Day(2005, 3, 10), Day(2006, 3, 10), "10000", kDiscount, "");
  form_->cboDruhSazby.UserPick(3);
  EXPECT_TRUE(form_->txtVyseSazby.enabled());
  EXPECT_EQ(form_->txtVyseSazby.text(), "2,5");
  EXPECT_EQ(form_->lblPenale.caption(), "25,00 Kč");
}

struct RepoCase {
  const char* name;
  const char* rounding;
  Date due;
  Date paid;
  const char* interest;
  const char* total;
};

class RepoTest : public frmJednotlivyTest, public ::testing::WithParamInterface<RepoCase> {};

TEST_P(RepoTest, SumsTheHalfYears) {
  const RepoCase& c = GetParam();
  SetRounding(c.rounding);
  Open();
  Enter(c.due, c.paid, "10000", kRepo, "");
  EXPECT_EQ(form_->lblPenale.caption(), c.interest);
  EXPECT_EQ(form_->lblPenaleDluh.caption(), c.total);
  EXPECT_THAT(form_->txtReport.text(),
              HasSubstr(std::string("\tÚrok z prodlení celkem\t") + c.interest + "\r\n"));
  EXPECT_EQ(form_->txtReport.text(), state().ReportText);
  EXPECT_TRUE(state().CalculationFinished);
}

// One period: 10 000 × 9 ÷ 100 × 66 ÷ 365 = 162,7397. Three: 132,7397 + 441,0959 + 320,5479,
// rounded after each, so that 132,80 + 441,0959 makes 573,90 and with 320,5479 894,50.
INSTANTIATE_TEST_SUITE_P(Figures, RepoTest,
                         ::testing::Values(RepoCase{"OneNe", "NE", Day(2006, 3, 15),
                                                    Day(2006, 5, 20), "162,74 Kč", "10 162,74 Kč"},
                                           RepoCase{"OneHalere", "halere", Day(2006, 3, 15),
                                                    Day(2006, 5, 20), "162,80 Kč", "10 162,80 Kč"},
                                           RepoCase{"OneKoruny", "koruny", Day(2006, 3, 15),
                                                    Day(2006, 5, 20), "163,00 Kč", "10 163,00 Kč"},
                                           RepoCase{"ThreeNe", "NE", Day(2005, 5, 10),
                                                    Day(2006, 5, 10), "894,38 Kč", "10 894,38 Kč"},
                                           RepoCase{"ThreeHalere", "halere", Day(2005, 5, 10),
                                                    Day(2006, 5, 10), "894,50 Kč", "10 894,50 Kč"},
                                           RepoCase{"ThreeKoruny", "koruny", Day(2005, 5, 10),
                                                    Day(2006, 5, 10), "895,00 Kč", "10 895,00 Kč"}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(frmJednotlivyTest, RepoShowsThePreviousInterestUntilTheLoopTurns) {
  Open();
  Enter(Day(2006, 3, 15), Day(2006, 5, 20), "10000", kRepo, "");
  form_->txtDluznaCastka.UserEdit("20000");
  EXPECT_EQ(form_->lblPenale.caption(), "162,74 Kč");
  EXPECT_EQ(form_->lblPenaleDluh.caption(), "20 162,74 Kč");
  memory_.event_loop.RunUntilIdle();
  EXPECT_EQ(form_->lblPenale.caption(), "325,48 Kč");
  EXPECT_EQ(form_->lblPenaleDluh.caption(), "20 325,48 Kč");
}

TEST_F(frmJednotlivyTest, PaymentBeyondTheTableIsToldAndTheResultsStay) {
  Open();
  Enter(Day(2026, 7, 15), Day(2026, 9, 20), "10000", kRepo, "");
  const std::string interest = form_->lblPenale.caption();
  const std::string report = form_->txtReport.text();
  ASSERT_NE(interest, "");
  form_->dtpZaplaceni.UserPick(Day(2027, 2, 1));
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Shown(), ElementsAre(kDueTooHigh));
  EXPECT_EQ(form_->lblPenale.caption(), interest);
  EXPECT_EQ(form_->txtReport.text(), report);
  EXPECT_TRUE(state().CalculationFinished);
  EXPECT_EQ(state().InterestAmount, 0);
}

TEST_F(frmJednotlivyTest, DueYearOutsideTheTableIsToldAndTheResultsStay) {
  Open();
  Enter(Day(2026, 7, 15), Day(2026, 9, 20), "10000", kRepo, "");
  const std::string interest = form_->lblPenale.caption();
  form_->dtpZaplaceni.UserPick(Day(2028, 1, 1));
  Shown();
  form_->dtpSplatnost.UserPick(Day(2027, 2, 1));
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Shown(), ElementsAre(kNoRate));
  EXPECT_EQ(form_->lblPenale.caption(), interest);
}

TEST_F(frmJednotlivyTest, PendingRepoResultNeverOverwritesALaterOne) {
  Open();
  Enter(Day(2006, 3, 15), Day(2006, 5, 20), "10000", kRepo, "");
  form_->txtDluznaCastka.UserEdit("20000");
  form_->cboDruhSazby.UserPick(1);
  form_->txtVyseSazby.UserEdit("10");
  const std::string typed = form_->lblPenale.caption();
  memory_.event_loop.RunUntilIdle();
  EXPECT_EQ(form_->lblPenale.caption(), typed);
  EXPECT_THAT(form_->txtReport.text(), HasSubstr("10 % ročně"));
}

TEST_F(frmJednotlivyTest, PendingRepoResultSurvivesAnInputThatIsIncomplete) {
  Open();
  Enter(Day(2006, 3, 15), Day(2006, 5, 20), "10000", kRepo, "");
  form_->txtDluznaCastka.UserEdit("20000");
  form_->cboDruhSazby.UserPick(1);  // no rate yet: nothing new is computed
  form_->txtDluznaCastka.UserEdit("30000");
  memory_.event_loop.RunUntilIdle();
  EXPECT_EQ(form_->lblPenale.caption(), "325,48 Kč") << "of the last complete input";
  EXPECT_EQ(form_->lblPenaleDluh.caption(), "20 325,48 Kč");
  EXPECT_THAT(form_->txtReport.text(), HasSubstr("\tDlužná částka:\t20 000,00 Kč\r\n"));
}

TEST_F(frmJednotlivyTest, TwoQuickChangesGiveOneCompletion) {
  Open();
  Enter(Day(2006, 3, 15), Day(2006, 5, 20), "10000", kRepo, "");
  int completions = 0;
  form_->tmrRepo.Tick.Connect([&] { ++completions; });
  form_->txtDluznaCastka.UserEdit("20000");
  form_->txtDluznaCastka.UserEdit("30000");
  memory_.event_loop.RunUntilIdle();
  EXPECT_EQ(completions, 1);
  EXPECT_EQ(form_->lblPenale.caption(), "488,22 Kč");
}

TEST_F(frmJednotlivyTest, RepoResultIsSupersededAlsoWhenItsRowsAreReady) {
  Open();
  Enter(Day(2006, 3, 15), Day(2006, 5, 20), "10000", kRepo, "");
  form_->txtDluznaCastka.UserEdit("20000");
  ASSERT_TRUE(memory_.event_loop.RunNext());  // the engine's timer
  ASSERT_TRUE(form_->tmrRepo.enabled());
  form_->cboDruhSazby.UserPick(1);
  form_->txtVyseSazby.UserEdit("10");
  const std::string typed = form_->lblPenale.caption();
  EXPECT_FALSE(form_->tmrRepo.enabled());
  memory_.event_loop.RunUntilIdle();
  EXPECT_EQ(form_->lblPenale.caption(), typed);

  form_->cboDruhSazby.UserPick(kRepo);
  ASSERT_TRUE(memory_.event_loop.RunNext());
  ASSERT_TRUE(form_->tmrRepo.enabled());
  program_.windows.Unload("frmJednotlivy");
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Shown(), ElementsAre());
  EXPECT_FALSE(state().CalculationFinished);
}

// 10 000 Kč at 9,5 % for 50 days: 130,1369… Kč; 20 000 and 30 000 Kč two and three times as much.
TEST_F(frmJednotlivyTest, CommandCarriesThePendingRepoResultThroughFirst) {
  Open();
  Enter(Day(2005, 5, 1), Day(2005, 6, 20), "10000", kRepo, "");
  EXPECT_EQ(form_->lblPenale.caption(), "130,14 Kč");
  form_->txtDluznaCastka.UserEdit("20000");
  form_->cmdTiskVyp.UserClick();
  EXPECT_EQ(form_->lblPenale.caption(), "260,27 Kč");
  ASSERT_EQ(memory_.printer.printed.size(), 1U);
  EXPECT_THAT(memory_.printer.printed[0].document.lines,
              Contains(Field(&ui::PrintedLine::text, HasSubstr("20 260,27 Kč"))));
  const std::string report = form_->txtReport.text();
  EXPECT_THAT(report, HasSubstr("\tÚrok z prodlení celkem\t260,27 Kč\r\n"));
  memory_.event_loop.RunUntilIdle();
  EXPECT_EQ(form_->txtReport.text(), report) << "it does not come a second time";

  form_->txtDluznaCastka.UserEdit("30000");
  form_->cmdTiskFa.UserClick();
  EXPECT_EQ(form_->lblPenale.caption(), "390,41 Kč");
}

TEST_F(frmJednotlivyTest, DateWithWhichNothingCanBeComputedIsRefused) {
  Open();
  Enter(Day(2026, 7, 15), Day(2026, 9, 20), "10000", kRepo, "");
  form_->dtpZaplaceni.UserPick(Day(2026, 7, 1));
  EXPECT_THAT(Shown(), ElementsAre(kReversedDates));
  EXPECT_TRUE(form_->dtpZaplaceni.refused());
  form_->dtpZaplaceni.UserPick(Day(2027, 2, 1));
  EXPECT_THAT(Shown(), ElementsAre(kDueTooHigh));
  EXPECT_TRUE(form_->dtpZaplaceni.refused());
  form_->dtpZaplaceni.UserPick(Day(2026, 9, 21));
  EXPECT_FALSE(form_->dtpZaplaceni.refused());
  form_->dtpSplatnost.UserPick(Day(2026, 10, 1));
  EXPECT_TRUE(form_->dtpSplatnost.refused());
  form_->dtpSplatnost.UserPick(Day(2026, 7, 15));
  EXPECT_FALSE(form_->dtpSplatnost.refused());
  form_->txtDluznaCastka.UserEdit("");
  form_->dtpZaplaceni.UserPick(Day(2026, 9, 22));
  EXPECT_FALSE(form_->dtpZaplaceni.refused()) << "what is still missing is no reason";
}

// --- input
// ------------------------------------------------------------------------------------------

TEST_F(frmJednotlivyTest, EnterMovesOnFromTheAmountOnly) {
  Open();
  form_->txtDluznaCastka.SetFocus();
  ui::KeyPress enter{"\r"};
  form_->txtDluznaCastka.UserKey(enter);
  EXPECT_EQ(enter.text, "");
  EXPECT_EQ(form_->focused(), &form_->cboDruhSazby);
  form_->txtVyseSazby.SetFocus();
  ui::KeyPress other{"\r"};
  form_->txtVyseSazby.UserKey(other);
  EXPECT_EQ(other.text, "\r");
  EXPECT_EQ(form_->focused(), &form_->txtVyseSazby);
}

TEST_F(frmJednotlivyTest, AmountThatIsNoNumberIsEmptied) {
  Open();
  for (const char* text : {"abc", "-", ",", "1.5", "5 %", "1e3"}) {
    form_->txtDluznaCastka.UserEdit(text);
    EXPECT_EQ(form_->txtDluznaCastka.text(), "") << text;
    ASSERT_EQ(memory_.message_box.shown.size(), 1U) << text;
    EXPECT_EQ(
        memory_.message_box.shown[0],
        (ui::MemoryMessageBox::Shown{ui::Icon::kCritical, "Velta", "Zde je nutné zadat číslo"}));
    Shown();
  }
}

TEST_F(frmJednotlivyTest, DeletingTheAmountDoesNothing) {
  Open();
  Enter(Day(2023, 1, 1), Day(2024, 1, 1), "10000", 1, "10");
  form_->txtDluznaCastka.UserEdit("");
  EXPECT_EQ(form_->lblPenale.caption(), "1 000,00 Kč");
  EXPECT_THAT(Shown(), ElementsAre());
}

TEST_F(frmJednotlivyTest, AmountIsKeptToFourDecimalsTiesToEven) {
  Open();
  form_->txtDluznaCastka.UserEdit("12,00005");
  EXPECT_EQ(state().BaseAmount, Money::FromUnits(120000));
  form_->txtDluznaCastka.UserEdit("12,00015");
  EXPECT_EQ(state().BaseAmount, Money::FromUnits(120002));
  form_->txtDluznaCastka.UserEdit("5,");
  EXPECT_EQ(state().BaseAmount, Money::FromUnits(50000));
}

TEST_F(frmJednotlivyTest, TooLargeAnAmountIsReplacedByTheLargest) {
  Open();
  form_->txtDluznaCastka.UserEdit("922337203685478");
  EXPECT_THAT(Shown(),
              ElementsAre("Maximální hodnota proměnné typu měna je 922 337 203 685 477,58 Kč\r\n"
                          " pro větší hodnotu nelze použít"));
  EXPECT_EQ(form_->txtDluznaCastka.text(), "922 337 203 685 477,58");
  EXPECT_EQ(state().BaseAmount, Money::FromUnits(9'223'372'036'854'775'800));
}

TEST_F(frmJednotlivyTest, TooLargeAnAmountInAPointLocale) {
  memory_.locale = EnglishLocale();
  Open();
  form_->txtDluznaCastka.UserEdit("922337203685478");
  EXPECT_EQ(Shown().size(), 1U);
  EXPECT_EQ(form_->txtDluznaCastka.text(), "922 337 203 685 477.58");
  EXPECT_EQ(state().BaseAmount, Money::FromUnits(9'223'372'036'854'775'800));
}

TEST_F(frmJednotlivyTest, AmountJustBeyondTheLimitOverflows) {
  Open();
  form_->txtDluznaCastka.UserEdit("922337203685477,99");
  EXPECT_THAT(Shown(), ElementsAre("Chyba 6 (Přetečení) v proceduře\r\n"
                                   "(VypocitejJednotlivy) of (frmJednotlivy.frm)."));
}

TEST_F(frmJednotlivyTest, SumBeyondTheLimitOverflows) {
  Open();
  Enter(Day(2023, 1, 1), Day(2024, 1, 1), "10000", 1, "10");
  form_->txtDluznaCastka.UserEdit("922337203685477");
  EXPECT_THAT(Shown(), ElementsAre("Chyba 6 (Přetečení) v proceduře\r\n"
                                   "(VypocitejJednotlivy) of (frmJednotlivy.frm)."));
  EXPECT_EQ(form_->lblPenale.caption(), "1 000,00 Kč") << "the window shows its last result";
  EXPECT_EQ(state().BaseAmount, Money::FromUnits(9'223'372'036'854'770'000))
      << "what was done before the fault stays done";
  form_->txtDluznaCastka.UserEdit("20000");
  EXPECT_EQ(form_->lblPenale.caption(), "2 000,00 Kč") << "and goes on";
}

// 920 000 000 000 000 Kč at 9 % for 66 days bear more than fits beside them.
TEST_F(frmJednotlivyTest, RepoResultThatOverflowsLeavesTheCalculationBefore) {
  Open();
  Enter(Day(2006, 3, 15), Day(2006, 5, 20), "10000", kRepo, "");
  const std::string report = form_->txtReport.text();
  form_->txtDluznaCastka.UserEdit("920000000000000");
  EXPECT_EQ(form_->lblPenaleDluh.caption(), "920 000 000 000 162,74 Kč") << "for a moment";
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 6 (Přetečení) v proceduře\r\n"
                                   "(tmrRepo_Timer) of (frmJednotlivy.frm)."));
  EXPECT_EQ(form_->lblPenale.caption(), "162,74 Kč");
  EXPECT_EQ(form_->lblPenaleDluh.caption(), "10 162,74 Kč");
  EXPECT_EQ(form_->txtReport.text(), report);
  EXPECT_TRUE(state().CalculationFinished);
  EXPECT_EQ(SingleReport(*std::get<const SingleResult*>(form_->finished().value()), memory_.locale),
            report);
}

TEST_F(frmJednotlivyTest, FirstRepoResultThatOverflowsLeavesNone) {
  Open();
  Enter(Day(2006, 3, 15), Day(2006, 5, 20), "920000000000000", kRepo, "");
  EXPECT_EQ(form_->lblPenale.caption(), "");
  EXPECT_EQ(form_->lblPenaleDluh.caption(), "");
  EXPECT_EQ(form_->txtReport.text(), "");
  EXPECT_FALSE(state().CalculationFinished);
  EXPECT_EQ(form_->finished(), std::nullopt);
}

TEST_F(frmJednotlivyTest, RepoResultThatOverflowsAfterANewCalculationLeavesTheEmptyWindow) {
  Open();
  Enter(Day(2006, 3, 15), Day(2006, 5, 20), "10000", kRepo, "");
  form_->cmdNovy.UserClick();
  Enter(Day(2006, 3, 15), Day(2006, 5, 20), "920000000000000", kRepo, "");
  EXPECT_EQ(form_->lblPenale.caption(), "");
  EXPECT_EQ(form_->lblPenaleDluh.caption(), "");
  EXPECT_TRUE(state().CalculationFinished);
}

// --- commands
// ---------------------------------------------------------------------------------------

TEST_F(frmJednotlivyTest, NewCalculationEmptiesTheWindow) {
  Open();
  Enter(Day(2023, 1, 1), Day(2024, 1, 1), "10000", 3, "10");
  form_->cmdNovy.UserClick();
  EXPECT_EQ(form_->txtDluznaCastka.text(), "");
  EXPECT_EQ(form_->txtVyseSazby.text(), "");
  EXPECT_EQ(form_->txtReport.text(), "");
  EXPECT_EQ(form_->lblPenale.caption(), "");
  EXPECT_EQ(form_->lblPenaleDluh.caption(), "");
  EXPECT_EQ(form_->dtpZaplaceni.day(), Day(2026, 11, 21));
  EXPECT_EQ(form_->dtpSplatnost.day(), Day(2023, 1, 1));
  EXPECT_EQ(form_->cboDruhSazby.index(), 3);
  EXPECT_EQ(state().RateValue, 0.0F);
  EXPECT_EQ(state().BaseAmount, Money());
  EXPECT_EQ(state().InterestAmount, 0);
  EXPECT_EQ(state().AmountWithInterest, Money());
  EXPECT_EQ(state().DaysLate, 1420) << "counted anew to the day of today";
  EXPECT_EQ(form_->lblPocetDnu.caption(), "1420");
  EXPECT_TRUE(state().CalculationFinished);
  EXPECT_THAT(Shown(), ElementsAre());
}

TEST_F(frmJednotlivyTest, NewCalculationDoesNotRefillTheDiscountRate) {
  Open();
  Enter(Day(2005, 3, 10), Day(2005, 6, 20), "10000", kDiscount, "");
  form_->cmdNovy.UserClick();
  EXPECT_EQ(form_->txtVyseSazby.text(), "");
  EXPECT_EQ(form_->lblPenale.caption(), "");
  EXPECT_FALSE(form_->txtVyseSazby.enabled());
}

TEST_F(frmJednotlivyTest, NewCalculationDropsAPendingRepoResult) {
  Open();
  Enter(Day(2006, 3, 15), Day(2006, 5, 20), "10000", kRepo, "");
  form_->txtDluznaCastka.UserEdit("20000");
  form_->cmdNovy.UserClick();
  memory_.event_loop.RunUntilIdle();
  EXPECT_EQ(form_->lblPenale.caption(), "");
  EXPECT_EQ(form_->txtReport.text(), "");
}

TEST_F(frmJednotlivyTest, NewCalculationLeavesNothingOfTheCaseBeforeToPrint) {
  for (const int kind : {1, kRepo}) {
    SCOPED_TRACE(kind);
    Open();
    Enter(Day(2006, 3, 15), Day(2006, 5, 20), "10000", kind, "10");
    ASSERT_TRUE(state().CalculationFinished);
    form_->cmdNovy.UserClick();
    const SingleResult& record = *std::get<const SingleResult*>(form_->finished().value());
    EXPECT_EQ(record.due_date, Day(2006, 3, 15));
    EXPECT_EQ(record.payment_date, Day(2026, 11, 21)) << "the dates that the window shows";
    EXPECT_EQ(static_cast<int>(record.kind), kind);
    EXPECT_EQ(record.days, 0);
    EXPECT_EQ(record.rate, 0.0F);
    EXPECT_THAT(record.periods, ElementsAre());
    EXPECT_EQ(record.base_amount, Money());
    EXPECT_EQ(record.interest, 0);
    EXPECT_EQ(record.amount_with_interest, Money());
    form_->cmdTiskVyp.UserClick();
    EXPECT_THAT(Shown(), ElementsAre());
  }
  EXPECT_EQ(memory_.printer.printed.size(), 2U);
}

TEST_F(frmJednotlivyTest, NewCalculationBeforeAnyResultLeavesNoRecord) {
  Open();
  form_->cmdNovy.UserClick();
  EXPECT_EQ(form_->finished(), std::nullopt);
  EXPECT_FALSE(state().CalculationFinished);
}

TEST_F(frmJednotlivyTest, NewCalculationTellsADueDateInTheFuture) {
  Open();
  form_->dtpZaplaceni.UserPick(Day(2027, 1, 1));
  form_->dtpSplatnost.UserPick(Day(2026, 12, 1));
  Shown();
  form_->cmdNovy.UserClick();
  EXPECT_THAT(Shown(), ElementsAre(kReversedDates));
}

TEST_F(frmJednotlivyTest, ReportComesFromTheFinishedRecord) {
  Open();
  Enter(Day(2006, 3, 15), Day(2006, 5, 20), "10000", kRepo, "");
  const auto* const result = std::get<const SingleResult*>(form_->finished().value());
  EXPECT_EQ(result->periods.size(), 1U);
  EXPECT_EQ(SingleReport(*result, memory_.locale), form_->txtReport.text());
  EXPECT_EQ(result->amount_with_interest, state().AmountWithInterest);
}

}  // namespace
}  // namespace velta
