#include "windows/progressive/frmPostupny.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "tests/support/english_locale.h"
#include "tests/support/rate_folder.h"
#include "windows/progressive/frmPostupny_test.h"

namespace velta {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

TEST_F(frmPostupnyTest, OpensWithItsCaptions) {
  const frmPostupny& form = Open();
  EXPECT_EQ(form.caption(), "Postupný výpočet");
  EXPECT_EQ(form.fraFaktura.caption(), "Údaje faktury");
  EXPECT_EQ(form.fraUdaje.caption(), "Údaje o splátkách");
  EXPECT_EQ(form.fraPostupny.caption(), "");
  EXPECT_EQ(form.cmdPridat.caption(), "&Přidat do výpočtu");
  EXPECT_EQ(form.cmdNovy.caption(), "Nový &výpočet");
  EXPECT_EQ(form.cmdTiskVyp.caption(), "&Tisk výpočtu");
  EXPECT_EQ(form.cmdTiskFa.caption(), "Tisk &faktury");
  EXPECT_EQ(form.cmdHelp.caption(), "&Nápověda");
  EXPECT_EQ(form.cmdKonec.caption(), "&Konec");
  Texts labels;
  for (const ui::Label& label : form.lblPopis) labels.push_back(label.caption());
  EXPECT_THAT(labels,
              ElementsAre("Celková částka", "Datum splatnosti", "Druh sazby ", "Výše sazby ",
                          "Datum částečné úhrady", "Výše částečné úhrady", "Výše úhrady",
                          "Datum úhrady", "Zůstatek dluhu", "Úrok z prodlení", "Úrok celkem"));
}

TEST_F(frmPostupnyTest, OpensEmptyOnTheDayOfToday) {
  const frmPostupny& form = Open();
  EXPECT_EQ(form.dtpSplatnost.day(), Day(2026, 11, 21));
  EXPECT_EQ(form.dtpZaplaceni.day(), Day(2026, 11, 21));
  for (const ui::TextBox& box : form.txtData) {
    EXPECT_EQ(box.text(), "");
    EXPECT_TRUE(box.enabled());
    EXPECT_EQ(box.background(), ui::Background::kWindow);
  }
  EXPECT_EQ(form.txtData[kRate].tool_tip(), "Zadejte úrokovou sazbu");
  EXPECT_TRUE(form.cmdPridat.enabled());
  EXPECT_TRUE(form.txtPostup.read_only());
  EXPECT_THAT(form.txtPostup.tab_stops(), IsEmpty()) << "every eight characters";
  EXPECT_EQ(state().ReportText, kHeading);
  ExpectNothingRecorded();
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_EQ(form.focused(), &form.txtData[kTotal]);
  EXPECT_EQ(HintText(), "Zadejte celkovou částku faktury");
}

TEST_F(frmPostupnyTest, OffersTheSixKindsOfRateAndTakesOthers) {
  const frmPostupny& form = Open();
  EXPECT_THAT(form.cboDruhSazby.items(),
              ElementsAre("% denně", "% ročně", "‰ denně", "‰ ročně", "Dle Diskontní sazby ČNB",
                          "Dle Repo sazby ČNB"));
  EXPECT_EQ(form.cboDruhSazby.index(), kPercentYearly);
  EXPECT_TRUE(form.cboDruhSazby.editable());
  EXPECT_EQ(form.cboDruhSazby.tool_tip(), "Vyberte si z nabídky sazbu");
}

TEST_F(frmPostupnyTest, LoadSetsTheSharedFlags) {
  state().CalculationFinished = true;
  state().SingleIsCurrent = true;
  state().ReportText = "starý";
  Open();
  EXPECT_TRUE(state().ProgressiveFormOpen);
  EXPECT_FALSE(state().SingleFormOpen);
  EXPECT_FALSE(state().SingleIsCurrent);
  EXPECT_FALSE(state().CalculationFinished);
  EXPECT_EQ(state().LastCalculationKind, CalculationKind::kProgressive);
  EXPECT_EQ(calculations_.current(), form_);
}

TEST_F(frmPostupnyTest, LoadClosesAnOpenSingleWindowFirst) {
  bool progressive_was_current = true;
  RegisterOther("frmJednotlivy", [&] { progressive_was_current = state().ProgressiveFormOpen; });
  windows().Open("frmJednotlivy");
  state().SingleFormOpen = true;
  Open();
  EXPECT_FALSE(windows().IsLoaded("frmJednotlivy"));
  EXPECT_FALSE(progressive_was_current) << "it unloads before this window loads its part";
}

TEST_F(frmPostupnyTest, SingleWindowThatWasClosedBeforeIsNotOpenedToBeClosed) {
  int unloads = 0;
  RegisterOther("frmJednotlivy", [&] { ++unloads; });
  state().SingleFormOpen = true;  // left by a single window that has gone
  Open();
  EXPECT_EQ(unloads, 0);
  EXPECT_FALSE(state().SingleFormOpen);
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmPostupnyTest, OpeningAgainKeepsTheContents) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  const frmPostupny* first = form_;
  EXPECT_EQ(&Open(), first);
  EXPECT_EQ(Balance(), "5000");
  EXPECT_THAT(Rows(form_->List1), ElementsAre("5000"));
}

TEST_F(frmPostupnyTest, FocusAndPointerHints) {
  frmPostupny& form = Open();
  struct Row {
    ui::Control* control;
    const char* focus;
    const char* pointer;
  };
  constexpr const char* kNone = "(beze změny)";
  constexpr const char* kDate = "Datum vyberte klepnutím na šipku, nebo přepište ručně";
  const std::vector<Row> rows = {
      {&form.txtData[kTotal], "Zadejte celkovou částku faktury", "Zadejte celkovou částku faktury"},
      {&form.txtData[kPayment], "Zadejte výši částečné platby", "Zadejte výši částečné platby"},
      {&form.txtData[kRate], "Zadejte výši úrokové sazby", "Zadejte výši úrokové sazby"},
      {&form.cboDruhSazby, "Vyberte z nabídky druh sazby ", kNone},
      {&form.dtpSplatnost, kDate, kDate},
      {&form.dtpZaplaceni, kDate, kDate},
      {&form.cmdPridat, "Provede výpočet pro částečnou úhradu a vybranou sazbu",
       "Provede výpočet pro částečnou úhradu a vybranou sazbu"},
      {&form.cmdNovy, "Nový výpočet", "Nový výpočet"},
      {&form.cmdTiskVyp, "Tisk výpočtu", "Tisk výpočtu"},
      {&form.cmdTiskFa, "Tisk faktury", "Tisk faktury"},
      {&form.cmdHelp, "Vyvolá nápovědu s tématem", "Vyvolá nápovědu s tématem"},
      {&form.cmdKonec, "Zavřít okno", "Zavřít okno"},
      {&form.fraFaktura, kNone, "Připraven"},
      {&form.fraUdaje, kNone, "Připraven"},
      {&form.fraPostupny, kNone, "Připraven"},
      {&form.txtPostup, kNone, kNone},
      {&form.List1, kNone, kNone},
      {&form.List5, kNone, kNone},
      {form.lblPopis.data(), kNone, kNone},
  };
  for (const Row& row : rows) {
    form.cmdKonec.SetFocus();
    if (row.control == &form.cmdKonec) form.cmdHelp.SetFocus();
    lblMSG_.SetCaption(kNone);
    row.control->SetFocus();
    EXPECT_EQ(HintText(), row.focus) << row.control->name() << " on focus";
    lblMSG_.SetCaption(kNone);
    row.control->UserHover();
    EXPECT_EQ(HintText(), row.pointer) << row.control->name() << " under the pointer";
  }
  lblMSG_.SetCaption(kNone);
  form.MouseMove.Raise();
  EXPECT_EQ(HintText(), "Připraven");
}

TEST_F(frmPostupnyTest, TabGoesFromTheInvoiceThroughThePaymentToItsLists) {
  frmPostupny& form = Open();
  Texts visited;
  for (int i = 0; i < 18; ++i) {
    visited.push_back(form.focused()->name());
    form.FocusNext();
  }
  EXPECT_THAT(visited, ElementsAre("txtData(0)", "dtpSplatnost", "cboDruhSazby", "txtData(2)",
                                   "dtpZaplaceni", "txtData(1)", "cmdPridat", "List1", "List2",
                                   "List3", "List4", "List5", "txtPostup", "cmdNovy", "cmdTiskVyp",
                                   "cmdTiskFa", "cmdHelp", "cmdKonec"));
  EXPECT_EQ(form.focused(), &form.txtData[kTotal]);
}

TEST_F(frmPostupnyTest, BankKindClosesTheRateBoxAndLeavesItsText) {
  Open().txtData[kRate].UserEdit("10");
  struct Row {
    const char* kind;
    bool open;
  };
  for (const Row& row :
       {Row{"Dle Repo sazby ČNB", false}, Row{"% denně", true},
        Row{"Dle Diskontní sazby ČNB", false}, Row{"‰ denně", true}, Row{"částka Kč denně", true},
        Row{"Dle Repo sazby ČNB", false}, Row{"Dle Repo sazby", true},
        Row{"Dle Repo sazby ČNB", false}, Row{"", true}}) {
    form_->cboDruhSazby.UserEdit(row.kind);
    EXPECT_EQ(form_->txtData[kRate].enabled(), row.open) << row.kind;
    EXPECT_EQ(form_->txtData[kRate].background(),
              row.open ? ui::Background::kWindow : ui::Background::kFace)
        << row.kind;
    EXPECT_EQ(form_->txtData[kRate].text(), "10") << row.kind;
  }
}

TEST_F(frmPostupnyTest, SeparatorsTurnIntoTheUsersOwnAndEnterDoesNothing) {
  for (const auto& [locale, separator] :
       {std::pair(LocaleFormat(), ","), std::pair(EnglishLocale(), ".")}) {
    memory_.locale = locale;
    Open();
    for (ui::TextBox& box : form_->txtData) {
      box.SetFocus();
      for (const auto& [typed, becomes] : {std::pair(".", separator), std::pair(",", separator),
                                           std::pair("7", "7"), std::pair("\r", "\r")}) {
        ui::KeyPress key{typed};
        EXPECT_TRUE(box.UserKey(key));
        EXPECT_EQ(key.text, becomes);
        EXPECT_EQ(form_->focused(), &box);
      }
    }
    windows().Unload("frmPostupny");
  }
}

TEST_F(frmPostupnyTest, MissingRateFilesAreReportedOnceAndTypedRatesWork) {
  RateFolder folder;
  memory_.program_folder.path = folder.path();
  state().ReportText = "starý";
  Open();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 53 (Soubor nebyl nalezen) v proceduře\r\n"
                                   "(Form_Load) of (frmPocitejCNB.frm).",
                                   "Chyba 53 (Soubor nebyl nalezen) v proceduře\r\n"
                                   "(Form_Load) of (frmPostupny.frm)."));
  ASSERT_TRUE(windows().IsLoaded("frmPostupny"));
  EXPECT_EQ(form_->txtPostup.text(), "") << "the load ended before the heading";
  EXPECT_EQ(state().ReportText, "");
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "10000");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("82,19"));
  EXPECT_THAT(form_->txtPostup.text(), StartsWith("Úrok z prodlení ode dne:\t1.1.2004\r\n"));
  form_->cmdNovy.UserClick();
  EXPECT_EQ(form_->txtPostup.text(), kHeading);
  EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
  Pay(Day(2006, 5, 20), "4000");
  EXPECT_THAT(Shown(), ElementsAre(kNoRate));
  ExpectNothingRecorded();
}

TEST_F(frmPostupnyTest, HelpOpensAtItsContents) {
  Open();
  form_->cmdHelp.UserClick();
  form_->HelpRequested.Raise();
  ASSERT_EQ(memory_.help_viewer.opened.size(), 2U);
  for (const auto& opened : memory_.help_viewer.opened) {
    EXPECT_EQ(opened.file, VELTA_SOURCE_DIR "/data/VELTA.CHM");
    EXPECT_EQ(opened.topic, std::nullopt);
  }
  memory_.help_viewer.fails = true;
  form_->cmdHelp.UserClick();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 53 (Soubor nebyl nalezen) v proceduře\r\n"
                                   "(cmdHelp_Click) of (frmPostupny.frm)."));
}

}  // namespace
}  // namespace velta
