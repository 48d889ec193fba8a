#include "windows/calculation/calculation_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/english_locale.h"
#include "tests/support/program_test.h"
#include "tests/support/rate_folder.h"
#include "windows/progressive/frmPostupny.h"
#include "windows/single/frmJednotlivy.h"

// What both calculation windows do, tried on both. A user meets the same controls in them, but the
// single one computes by itself, the progressive one when its button is pressed.
namespace velta {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Texts = std::vector<std::string>;

constexpr int kPercentYearly = 1;
constexpr int kDiscount = 4;
constexpr int kRepo = 5;

constexpr const char* kUnfinished = "Výpočet ještě není dokončen, nelze tisknout";
constexpr const char* kToRepo = "Měním na REPO sazbu";
constexpr const char* kToDiscount = "Měním na DISKONTNÍ sazbu";
constexpr const char* kNoRate = "Nenalezena sazba pro zadané období";

// Where no rounding is chosen, the progressive window still rounds to haléř.
constexpr double kHalfHaler = 0.005;

constexpr const char* kUnchanged = "(beze změny)";
constexpr const char* kDateHint = "Datum vyberte klepnutím na šipku, nebo přepište ručně";

struct HintRow {
  const char* control;
  const char* on_focus;
  const char* under_pointer;
};

/// One of the windows: where it has its own names and texts.
struct TestedWindow {
  const char* name;
  const char* other;
  CalculationKind kind;
  const char* routine;  // under whose name it reports a computation that failed
  const char* first_input;
  const char* amount;
  const char* payment;  // none where there is one amount
  const char* rate;
  const char* report;
  const char* empty_report;
  std::optional<int> help_topic;
  bool takes_other_kinds;
  std::vector<HintRow> hints;
};

const TestedWindow kSingle = {
    "frmJednotlivy",
    "frmPostupny",
    CalculationKind::kSingle,
    "VypocitejJednotlivy",
    "dtpSplatnost",
    "txtDluznaCastka",
    nullptr,
    "txtVyseSazby",
    "txtReport",
    "",
    70,
    false,
    {
        {"dtpSplatnost", kDateHint, "Vyberte datum klepnutím na šipku"},
        {"dtpZaplaceni", kDateHint, "Vyberte datum klepnutím na šipku"},
        {"txtDluznaCastka", "Zadejte dlužnou částku", kUnchanged},
        {"txtVyseSazby", "Zadejte výši úrokové sazby", kUnchanged},
        {"lblPocetDnu", kUnchanged, "Trvání dluhu ve dnech"},
        {"lblPenale", kUnchanged, "Vypočtený úrok z prodlení"},
        {"lblPenaleDluh", kUnchanged, "Úrok z prodlení s dlužnou částkou"},
        {"fraDatJed", kUnchanged, "Připraven"},
        {"fraDluJed", kUnchanged, "Připraven"},
        {"fraVysJed", kUnchanged, "Připraven"},
        {"txtReport", kUnchanged, kUnchanged},
        {"lblPopis(0)", kUnchanged, kUnchanged},
    },
};

const TestedWindow kProgressive = {
    "frmPostupny",
    "frmJednotlivy",
    CalculationKind::kProgressive,
    "UdelejVypocet",
    "txtData(0)",
    "txtData(0)",
    "txtData(1)",
    "txtData(2)",
    "txtPostup",
    "Podklady pro výpočet úroku z prodlení\r\n"
    "****************************************************\r\n",
    std::nullopt,
    true,
    {
        {"txtData(0)", "Zadejte celkovou částku faktury", "Zadejte celkovou částku faktury"},
        {"txtData(1)", "Zadejte výši částečné platby", "Zadejte výši částečné platby"},
        {"txtData(2)", "Zadejte výši úrokové sazby", "Zadejte výši úrokové sazby"},
        {"dtpSplatnost", kDateHint, kDateHint},
        {"dtpZaplaceni", kDateHint, kDateHint},
        {"cmdPridat", "Provede výpočet pro částečnou úhradu a vybranou sazbu",
         "Provede výpočet pro částečnou úhradu a vybranou sazbu"},
        {"fraFaktura", kUnchanged, "Připraven"},
        {"fraUdaje", kUnchanged, "Připraven"},
        {"fraPostupny", kUnchanged, "Připraven"},
        {"txtPostup", kUnchanged, kUnchanged},
        {"List1", kUnchanged, kUnchanged},
        {"List5", kUnchanged, kUnchanged},
        {"lblPopis(0)", kUnchanged, kUnchanged},
    },
};

class CalculationFormTest : public ProgramTest,
                            public ::testing::WithParamInterface<const TestedWindow*> {
 protected:
  CalculationFormTest() {
    windows().Register("frmJednotlivy", [this] {
      ++opened_["frmJednotlivy"];
      return std::make_unique<frmJednotlivy>(program_, settings_, calculations_);
    });
    windows().Register("frmPostupny", [this] {
      ++opened_["frmPostupny"];
      return std::make_unique<frmPostupny>(program_, settings_, calculations_);
    });
    RegisterOther("frmFaktura");
  }

  const TestedWindow& tested() const { return *GetParam(); }
  bool IsSingle() const { return tested().kind == CalculationKind::kSingle; }

  CalculationForm& Open() {
    form_ = &Opened<CalculationForm>(tested().name);
    return *form_;
  }

  bool IsOpen() { return windows().IsLoaded(tested().name); }
  CalculationWindow* Current() const { return calculations_.current(); }

  ui::TextBox& Box(const char* name) const {
    return dynamic_cast<ui::TextBox&>(*form_->Find(name));
  }
  ui::TextBox& Rate() const { return Box(tested().rate); }
  const std::string& Report() const { return Box(tested().report).text(); }

  /// Enters one debt that was paid at once, and has it computed. What the computation has left to
  /// the event loop still waits.
  void Enter(Date due, Date paid, const std::string& amount, int kind, const std::string& rate) {
    form_->dtpSplatnost.UserPick(due);
    form_->dtpZaplaceni.UserPick(paid);
    Box(tested().amount).UserEdit(amount);
    Rate().UserEdit(rate);
    form_->cboDruhSazby.UserPick(kind);
    if (tested().payment == nullptr) return;
    Box(tested().payment).UserEdit(amount);
    dynamic_cast<ui::Button&>(*form_->Find("cmdPridat")).UserClick();
  }
  void Compute(Date due, Date paid, const std::string& amount, int kind, const std::string& rate) {
    Enter(due, paid, amount, kind, rate);
    memory_.event_loop.RunUntilIdle();
  }

  /// 10 000 Kč at 10 % for a year: 1 000 Kč.
  void ComputeSample() {
    Compute(Day(2023, 1, 1), Day(2024, 1, 1), "10000", kPercentYearly, "10");
    ASSERT_TRUE(state().CalculationFinished);
  }
  /// 10 000 Kč at 9 % for 66 days; the result waits for the event loop.
  void EnterRepo() { Enter(Day(2006, 3, 15), Day(2006, 5, 20), "10000", kRepo, ""); }

  /// The report of an error in the window's procedure.
  std::string Fault(const char* what, const char* procedure) const {
    return std::string("Chyba ") + what + " v proceduře\r\n(" + procedure + ") of (" +
           tested().name + ".frm).";
  }

  Calculations calculations_{program_.state};
  CalculationForm* form_ = nullptr;
  std::map<std::string, int> opened_;  // how often each window has been made
};

INSTANTIATE_TEST_SUITE_P(Windows, CalculationFormTest, ::testing::Values(&kSingle, &kProgressive),
                         [](const auto& window) { return std::string(window.param->name); });

// --- the window -------------------------------------------------------------------------------

TEST_P(CalculationFormTest, CommandsHaveTheirCaptions) {
  const CalculationForm& form = Open();
  EXPECT_EQ(form.cmdNovy.caption(), "Nový &výpočet");
  EXPECT_EQ(form.cmdTiskVyp.caption(), "&Tisk výpočtu");
  EXPECT_EQ(form.cmdTiskFa.caption(), "Tisk &faktury");
  EXPECT_EQ(form.cmdHelp.caption(), "&Nápověda");
  EXPECT_EQ(form.cmdKonec.caption(), "&Konec");
}

TEST_P(CalculationFormTest, OffersTheSixKindsOfRate) {
  const CalculationForm& form = Open();
  EXPECT_THAT(form.cboDruhSazby.items(),
              ElementsAre("% denně", "% ročně", "‰ denně", "‰ ročně", "Dle Diskontní sazby ČNB",
                          "Dle Repo sazby ČNB"));
  EXPECT_EQ(form.cboDruhSazby.index(), kPercentYearly);
  EXPECT_EQ(form.cboDruhSazby.editable(), tested().takes_other_kinds);
  EXPECT_EQ(form.cboDruhSazby.tool_tip(), "Vyberte si z nabídky sazbu");
}

TEST_P(CalculationFormTest, LoadSetsTheSharedFlags) {
  state().CalculationFinished = true;
  state().ReportText = "starý";
  Open();
  EXPECT_FALSE(state().CalculationFinished);
  EXPECT_EQ(state().SingleFormOpen, IsSingle());
  EXPECT_EQ(state().SingleIsCurrent, IsSingle());
  EXPECT_EQ(state().ProgressiveFormOpen, !IsSingle());
  EXPECT_EQ(state().LastCalculationKind, tested().kind);
  EXPECT_EQ(state().ReportText, tested().empty_report);
  EXPECT_EQ(Current(), form_);
}

// Did the other window unload last, the calculation that has just been opened would be none.
TEST_P(CalculationFormTest, LoadClosesTheOtherWindowFirst) {
  windows().Open(tested().other);
  ASSERT_TRUE(windows().IsLoaded(tested().other));
  Open();
  EXPECT_FALSE(windows().IsLoaded(tested().other));
  EXPECT_EQ(state().SingleIsCurrent, IsSingle());
  EXPECT_EQ(state().SingleFormOpen, IsSingle());
  EXPECT_EQ(state().ProgressiveFormOpen, !IsSingle());
  EXPECT_EQ(state().ReportText, tested().empty_report);
  EXPECT_EQ(Current(), form_);
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_P(CalculationFormTest, OtherWindowThatWasClosedBeforeIsNotOpenedToBeClosed) {
  windows().Open(tested().other);
  windows().Unload(tested().other);
  Open();
  EXPECT_EQ(opened_[tested().other], 1);
  EXPECT_EQ(state().SingleFormOpen, IsSingle()) << "the single window leaves it as it is";
  EXPECT_EQ(Current(), form_);
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_P(CalculationFormTest, OpeningAgainKeepsTheContents) {
  Open();
  ComputeSample();
  const CalculationForm* const first = form_;
  const std::string report = Report();
  ASSERT_NE(report, tested().empty_report);
  EXPECT_EQ(&Open(), first);
  EXPECT_EQ(Report(), report);
  EXPECT_EQ(Rate().text(), "10");
  EXPECT_TRUE(state().CalculationFinished);
}

TEST_P(CalculationFormTest, FocusAndPointerHints) {
  CalculationForm& form = Open();
  std::vector<HintRow> rows = {
      {"cboDruhSazby", "Vyberte z nabídky druh sazby ", kUnchanged},
      {"cmdNovy", "Nový výpočet", "Nový výpočet"},
      {"cmdTiskVyp", "Tisk výpočtu", "Tisk výpočtu"},
      {"cmdTiskFa", "Tisk faktury", "Tisk faktury"},
      {"cmdHelp", "Vyvolá nápovědu s tématem", "Vyvolá nápovědu s tématem"},
      {"cmdKonec", "Zavřít okno", "Zavřít okno"},
  };
  rows.insert(rows.end(), tested().hints.begin(), tested().hints.end());
  for (const HintRow& row : rows) {
    ui::Control& control = *form.Find(row.control);
    form.cmdKonec.SetFocus();
    if (&control == &form.cmdKonec) form.cmdHelp.SetFocus();
    lblMSG_.SetCaption(kUnchanged);
    control.SetFocus();
    EXPECT_EQ(HintText(), row.on_focus) << row.control << " on focus";
    lblMSG_.SetCaption(kUnchanged);
    control.UserHover();
    EXPECT_EQ(HintText(), row.under_pointer) << row.control << " under the pointer";
  }
  lblMSG_.SetCaption(kUnchanged);
  form.MouseMove.Raise();
  EXPECT_EQ(HintText(), "Připraven");
}

TEST_P(CalculationFormTest, RateOfABankKindIsNotTyped) {
  Open();
  for (const int kind : {kRepo, 0, kDiscount, 1, kRepo, 2, kDiscount, 3}) {
    form_->cboDruhSazby.UserPick(kind);
    const bool typed = kind != kRepo && kind != kDiscount;
    EXPECT_EQ(Rate().enabled(), typed) << kind;
    EXPECT_EQ(Rate().background(), typed ? ui::Background::kWindow : ui::Background::kFace) << kind;
  }
}

TEST_P(CalculationFormTest, SeparatorsTurnIntoTheUsersOwn) {
  for (const bool english : {false, true}) {
    memory_.locale = english ? EnglishLocale() : LocaleFormat();
    const char* const separator = english ? "." : ",";
    Open();
    for (const char* name : {tested().amount, tested().payment, tested().rate}) {
      if (name == nullptr) continue;
      for (const auto& [typed, becomes] : {std::pair(".", separator), std::pair(",", separator),
                                           std::pair("7", "7"), std::pair("p", "p")}) {
        ui::KeyPress key{typed};
        EXPECT_TRUE(Box(name).UserKey(key)) << name;
        EXPECT_EQ(key.text, becomes) << name;
      }
    }
    windows().Unload(tested().name);
  }
}

TEST_P(CalculationFormTest, MistypedDateIsAskedForAgain) {
  Open();
  for (ui::DatePicker* picker : {&form_->dtpSplatnost, &form_->dtpZaplaceni}) {
    EXPECT_TRUE(picker->UserEdit("31.2.2004"));
    EXPECT_FALSE(picker->UserCommit());
    EXPECT_EQ(memory_.message_box.shown.at(0).icon, ui::Icon::kCritical);
    EXPECT_THAT(Shown(),
                ElementsAre("Datum je chybně zadáno, zadejte je například takto: 31.12.2005\r\n"
                            "Původní datum vrátí klávesa Esc"));
    EXPECT_EQ(form_->focused(), picker);
  }
}

TEST_P(CalculationFormTest, MistypedDateLeavesTheResult) {
  Open();
  ComputeSample();
  const std::string report = Report();
  form_->dtpZaplaceni.UserEdit("31.2.2004");
  form_->dtpZaplaceni.UserCommit();
  EXPECT_EQ(form_->dtpZaplaceni.day(), Day(2024, 1, 1));
  EXPECT_EQ(state().DaysLate, 365);
  EXPECT_EQ(Report(), report);
  EXPECT_TRUE(state().CalculationFinished);
}

TEST_P(CalculationFormTest, MistypedDateBringsBackTheWindowThatTheUserLeft) {
  Open();
  windows().Open("frmFaktura");
  form_->dtpSplatnost.UserEdit("31.2.2004");
  form_->dtpSplatnost.UserCommit();
  EXPECT_EQ(windows().active(), form_) << "from another window its calculation would be printed";
}

TEST_P(CalculationFormTest, MistypedDateDoesNotBringBackAWindowThatIsGone) {
  Open();
  memory_.message_box.on_show = [this](const auto&) { windows().Unload(tested().name); };
  form_->dtpSplatnost.UserEdit("31.2.2004");
  form_->dtpSplatnost.UserCommit();
  EXPECT_FALSE(IsOpen());
}

// --- what is computed ---------------------------------------------------------------------------

TEST_P(CalculationFormTest, PublishesTheSharedValues) {
  SetRounding("halere");
  Open();
  Compute(Day(2023, 1, 1), Day(2024, 1, 2), "10000", kPercentYearly, "10");
  EXPECT_EQ(state().DueDate, Day(2023, 1, 1));
  EXPECT_EQ(state().PaymentDate, Day(2024, 1, 2));
  EXPECT_EQ(state().DaysLate, 366);
  EXPECT_EQ(state().BaseAmount, Money::FromUnits(100'000'000));
  EXPECT_EQ(state().RateValue, 10.0F);
  EXPECT_EQ(state().RateKindText, "% ročně");
  EXPECT_DOUBLE_EQ(state().InterestAmount, 1002.8);
  EXPECT_EQ(state().AmountWithInterest, Money::FromUnits(110'028'000));
  EXPECT_TRUE(state().CalculationFinished);
  EXPECT_EQ(state().ReportText, Report());
  EXPECT_EQ(form_->ReportBoxText(), Report());
}

struct RegimeRow {
  int chosen;
  Date due;  // paid on 20.6.2005
  int final_kind;
  Texts messages;
  double interest;  // of 10 000 Kč
};

TEST_P(CalculationFormTest, DueDateDecidesTheRegime) {
  // 10 000 × 9,5 % × 53 ÷ 365, 10 000 × 2 % × 54 ÷ 365, 10 000 × 10 % × 53 or 54 ÷ 365
  for (const RegimeRow& row :
       {RegimeRow{kDiscount, Day(2005, 4, 28), kRepo, {kToRepo}, 137.9452},
        RegimeRow{kRepo, Day(2005, 4, 27), kDiscount, {kToDiscount}, 29.5890},
        RegimeRow{kDiscount, Day(2005, 4, 27), kDiscount, {}, 29.5890},
        RegimeRow{kRepo, Day(2005, 4, 28), kRepo, {}, 137.9452},
        RegimeRow{kPercentYearly, Day(2005, 4, 28), kPercentYearly, {}, 145.2055},
        RegimeRow{kPercentYearly, Day(2005, 4, 27), kPercentYearly, {}, 147.9452}}) {
    SCOPED_TRACE(std::to_string(row.chosen) + " " + std::to_string(row.final_kind));
    Open();
    Compute(row.due, Day(2005, 6, 20), "10000", row.chosen, "10");
    for (const auto& box : memory_.message_box.shown) {
      EXPECT_EQ(box.icon, ui::Icon::kInformation);
      EXPECT_EQ(box.caption, "Velta");
    }
    EXPECT_EQ(Shown(), row.messages);
    EXPECT_EQ(form_->cboDruhSazby.index(), row.final_kind);
    EXPECT_EQ(state().RateKindText, form_->cboDruhSazby.text());
    EXPECT_NEAR(state().InterestAmount, row.interest, kHalfHaler);
    EXPECT_TRUE(state().CalculationFinished);
    windows().Unload(tested().name);
  }
}

TEST_P(CalculationFormTest, DiscountRateOfTheDueDateIsShown) {
  Open();
  // 2 × 1,25 % was in force on 10.3.2005; 10 000 × 2,5 % × 102 ÷ 365 = 69,8630
  Compute(Day(2005, 3, 10), Day(2005, 6, 20), "10000", kDiscount, "");
  EXPECT_EQ(Rate().text(), "2,5");
  EXPECT_EQ(state().RateValue, 2.5F);
  EXPECT_NEAR(state().InterestAmount, 69.8630, kHalfHaler);
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_P(CalculationFormTest, EmptyDiscountTableIsReportedByTheEngineAlone) {
  RateFolder folder;
  folder.Write("cnb.dat", "");
  folder.Write("repo.dat", "");
  memory_.program_folder.path = folder.path();
  Open();
  EXPECT_THAT(Shown(), IsEmpty()) << "an empty table is no error when it is loaded";
  Compute(Day(2004, 1, 15), Day(2004, 6, 20), "5000", kDiscount, "");
  EXPECT_THAT(Shown(), ElementsAre("Chyba 13 (Neshoda typů) v proceduře\r\n"
                                   "(StanoveniPrvniSazby) of (frmPocitejCNB.frm)."));
  EXPECT_FALSE(state().CalculationFinished);
  EXPECT_EQ(Report(), tested().empty_report);
}

TEST_P(CalculationFormTest, MissingRateFilesAreReportedOnceAndTypedRatesWork) {
  RateFolder folder;
  memory_.program_folder.path = folder.path();
  Open();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 53 (Soubor nebyl nalezen) v proceduře\r\n"
                                   "(Form_Load) of (frmPocitejCNB.frm).",
                                   Fault("53 (Soubor nebyl nalezen)", "Form_Load")));
  ASSERT_TRUE(IsOpen());
  ComputeSample();
  EXPECT_DOUBLE_EQ(state().InterestAmount, 1000);
  form_->cmdNovy.UserClick();
  EXPECT_THAT(Shown(), IsEmpty());
  Compute(Day(2006, 3, 15), Day(2006, 5, 20), "4000", kRepo, "");
  EXPECT_THAT(Shown(), Contains(kNoRate));
  EXPECT_EQ(Report(), tested().empty_report);
}

TEST_P(CalculationFormTest, HalfYearThatTheTableLacksIsReportedUnderTheCalculation) {
  RateFolder folder;
  folder.Write("cnb.dat", "");
  folder.Write("repo.dat", "010120062,00\r\n");
  memory_.program_folder.path = folder.path();
  Open();
  Compute(Day(2006, 8, 15), Day(2006, 9, 20), "10000", kRepo, "");
  EXPECT_THAT(Shown(), ElementsAre(Fault("380 (Neplatná hodnota vlastnosti)", tested().routine)));
  EXPECT_EQ(Report(), tested().empty_report);
}

TEST_P(CalculationFormTest, RateBeyondSinglePrecisionOverflows) {
  Open();
  Compute(Day(2023, 1, 1), Day(2024, 1, 1), "10000", kPercentYearly, std::string(40, '9'));
  EXPECT_THAT(Shown(), ElementsAre(Fault("6 (Přetečení)", tested().routine)));
  EXPECT_FALSE(state().CalculationFinished);
  EXPECT_EQ(Report(), tested().empty_report);
}

// --- the commands -------------------------------------------------------------------------------

TEST_P(CalculationFormTest, NewCalculationBeginsInTheFirstInput) {
  Open();
  EXPECT_EQ(form_->focused()->name(), tested().first_input);
  Rate().SetFocus();
  form_->cmdNovy.UserClick();
  EXPECT_EQ(form_->focused()->name(), tested().first_input);
}

TEST_P(CalculationFormTest, PrintAndInvoiceNeedAFinishedCalculation) {
  Open();
  form_->cmdTiskVyp.UserClick();
  form_->cmdTiskFa.UserClick();
  for (const auto& box : memory_.message_box.shown) EXPECT_EQ(box.icon, ui::Icon::kCritical);
  EXPECT_THAT(Shown(), ElementsAre(kUnfinished, kUnfinished));
  EXPECT_THAT(memory_.printer.asked, IsEmpty());
  EXPECT_FALSE(windows().IsLoaded("frmFaktura"));
}

TEST_P(CalculationFormTest, ResultThatIsDeclaredVoidIsNotPrinted) {
  Open();
  ComputeSample();
  state().CalculationFinished = false;  // as the invoice does when it closes
  form_->cmdTiskVyp.UserClick();
  EXPECT_THAT(Shown(), ElementsAre(kUnfinished));
  EXPECT_THAT(memory_.printer.asked, IsEmpty());
}

TEST_P(CalculationFormTest, InvoiceOpensFromAFinishedCalculation) {
  Open();
  ComputeSample();
  form_->cmdTiskFa.UserClick();
  EXPECT_TRUE(windows().IsLoaded("frmFaktura"));
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_P(CalculationFormTest, RepoResultIsPrintedTheMomentItIsAskedFor) {
  Open();
  EnterRepo();
  form_->cmdTiskVyp.UserClick();
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_EQ(memory_.printer.printed.size(), 1U);
  EXPECT_NEAR(state().InterestAmount, 162.7397, kHalfHaler);
  const std::string report = Report();
  memory_.event_loop.RunUntilIdle();
  EXPECT_EQ(Report(), report) << "it does not come a second time";
}

TEST_P(CalculationFormTest, RepoResultIsInvoicedTheMomentItIsAskedFor) {
  Open();
  EnterRepo();
  form_->cmdTiskFa.UserClick();
  EXPECT_TRUE(windows().IsLoaded("frmFaktura"));
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_NEAR(state().InterestAmount, 162.7397, kHalfHaler);
}

TEST_P(CalculationFormTest, DeferredPrintRunsThePrintCommandOnce) {
  Open();
  Current()->PrintLater();
  EXPECT_TRUE(form_->tmrTiskVypoctu.enabled());
  EXPECT_THAT(Shown(), IsEmpty()) << "not before the loop turns";
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Shown(), ElementsAre(kUnfinished));
  EXPECT_FALSE(form_->tmrTiskVypoctu.enabled());

  ComputeSample();
  Current()->PrintLater();
  EXPECT_THAT(memory_.printer.asked, IsEmpty());
  memory_.event_loop.RunUntilIdle();
  EXPECT_EQ(memory_.printer.printed.size(), 1U);
  EXPECT_FALSE(form_->tmrTiskVypoctu.enabled());
}

TEST_P(CalculationFormTest, ClosingBeforeADeferredPrintPrintsNothing) {
  Open();
  ComputeSample();
  form_->PrintLater();
  windows().Unload(tested().name);
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(memory_.printer.asked, IsEmpty());
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_P(CalculationFormTest, HelpOpensAtItsPage) {
  Open();
  form_->cmdHelp.UserClick();
  form_->HelpRequested.Raise();  // F1
  ASSERT_EQ(memory_.help_viewer.opened.size(), 2U);
  for (const auto& opened : memory_.help_viewer.opened) {
    EXPECT_EQ(opened.file, VELTA_SOURCE_DIR "/data/VELTA.CHM");
    EXPECT_EQ(opened.topic, tested().help_topic);
  }
  memory_.help_viewer.fails = true;
  form_->cmdHelp.UserClick();
  EXPECT_THAT(Shown(), ElementsAre(Fault("53 (Soubor nebyl nalezen)", "cmdHelp_Click")));
}

TEST_P(CalculationFormTest, CloseButtonUnloadsAndClearsTheSharedValues) {
  Open();
  ComputeSample();
  form_->cmdKonec.UserClick();
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(HintText(), "Připraven");
  EXPECT_EQ(state().RateValue, 0.0F);
  EXPECT_EQ(state().DaysLate, 0);
  EXPECT_EQ(state().BaseAmount, Money());
  EXPECT_EQ(state().InterestAmount, 0);
  EXPECT_EQ(state().AmountWithInterest, Money());
  EXPECT_FALSE(state().SingleIsCurrent);
  EXPECT_FALSE(state().CalculationFinished);
  EXPECT_EQ(state().SingleFormOpen, IsSingle()) << "the single window leaves it as it is";
  EXPECT_FALSE(state().ProgressiveFormOpen);
  EXPECT_EQ(state().LastCalculationKind, tested().kind);
  EXPECT_EQ(Current(), nullptr);
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_P(CalculationFormTest, ClosingWhileARepoResultIsPendingIsQuiet) {
  for (const bool rows_ready : {false, true}) {
    SCOPED_TRACE(rows_ready);
    Open();
    EnterRepo();
    if (rows_ready) {
      ASSERT_TRUE(memory_.event_loop.RunNext());  // the engine's timer
      ASSERT_TRUE(form_->tmrRepo.enabled());
    }
    form_->cmdKonec.UserClick();
    EXPECT_FALSE(IsOpen());
    memory_.event_loop.RunUntilIdle();
    EXPECT_THAT(Shown(), IsEmpty());
    EXPECT_EQ(state().InterestAmount, 0);
    EXPECT_EQ(state().BaseAmount, Money());
    EXPECT_FALSE(state().CalculationFinished);
    EXPECT_EQ(state().ReportText, tested().empty_report);
  }
}

}  // namespace
}  // namespace velta
