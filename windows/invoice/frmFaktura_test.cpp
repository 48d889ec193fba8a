#include "windows/invoice/frmFaktura.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/program_test.h"
#include "values/error.h"
#include "windows/single/frmJednotlivy.h"

namespace velta {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

constexpr const char* kMissing =
    "Nejsou vyplněny povinné položky faktury,\rvraťte se prosím k zadání";
constexpr const char* kBadDays =
    "Nesprávně vyplněn počet dnů splatnosti,\rvraťte se prosím k zadání";
constexpr const char* kNothingToPrint = "Není dosud proveden výpočet, nelze tisknout";
constexpr const char* kNothingToInvoice = "Není dosud proveden výpočet, nelze vystavit fakturu";

/// Stands for a progressive calculation, of which the invoice knows the record alone.
class ProgressiveWindow final : public CalculationWindow {
 public:
  void Settle() override {}
  void PrintLater() override {}
  const std::string& ReportBoxText() const override { return report_; }
  std::optional<FinishedCalculation> finished() const override {
    if (fails) throw Error(ErrorNumber::kOverflow);
    return &result;
  }

  ProgressiveResult result;
  bool fails = false;

 private:
  std::string report_;
};

class frmFakturaTest : public ProgramTest {
 protected:
  frmFakturaTest() {
    windows().Register("frmJednotlivy", [this] {
      return std::make_unique<frmJednotlivy>(program_, settings_, calculations_);
    });
    windows().Register("frmFaktura", [this] {
      return std::make_unique<frmFaktura>(program_, settings_, calculations_);
    });
    SetFirm("TextRadku", "Úroky z prodlení");
  }

  void SetFirm(const std::string& key, const std::string& value) {
    ASSERT_TRUE(memory_.settings_store.Write("velta", "Settings", key, value));
    settings_.LoadProgramSettings();
  }

  /// A single calculation: 10 000 Kč at 10 % a year for 366 days, 1 002,74 Kč.
  frmJednotlivy& FinishSingle() {
    auto& single = Opened<frmJednotlivy>("frmJednotlivy");
    single.dtpSplatnost.UserPick(Day(2023, 1, 1));
    single.dtpZaplaceni.UserPick(Day(2024, 1, 2));
    single.cboDruhSazby.UserPick(1);
    single.txtDluznaCastka.UserEdit("10000");
    single.txtVyseSazby.UserEdit("10");
    EXPECT_TRUE(state().CalculationFinished);
    return single;
  }

  /// A progressive calculation of 123,29 Kč.
  void FinishProgressive() {
    progressive_.result.due_date = Day(2004, 1, 1);
    progressive_.result.kind_text = "% ročně";
    progressive_.result.rate = 10;
    progressive_.result.payments = {{Day(2004, 1, 31),
                                     30,
                                     Money::FromUnits(50'000'000),
                                     Money(),
                                     123.29,
                                     {},
                                     Money::FromUnits(1'232'900)}};
    progressive_.result.total = Money::FromUnits(1'232'900);
    RegisterOther("frmPostupny", [this] { calculations_.Leave(CalculationKind::kProgressive); });
    windows().Open("frmPostupny");
    calculations_.Enter(progressive_, CalculationKind::kProgressive);
    calculations_.SetFinished(true);
  }

  frmFaktura& Open() {
    form_ = &Opened<frmFaktura>("frmFaktura");
    return *form_;
  }
  /// With all that printing asks for.
  frmFaktura& OpenFilled() {
    Open();
    Field(1).UserEdit("Dlužník");
    Field(2).UserEdit("Krátká 3");
    Field(3).UserEdit("Praha");
    Field(14).UserEdit("14");
    return *form_;
  }
  ui::TextBox& Field(std::size_t index) { return form_->txtFaktura.at(index); }

  std::vector<std::string> PrintedLines() const {
    std::vector<std::string> lines;
    for (const ui::PrintedLine& line : memory_.printer.printed.back().document.lines) {
      lines.push_back(line.text);
    }
    return lines;
  }
  /// Presses the print button, of which nothing but paper must come.
  std::vector<std::string> Print() {
    memory_.printer.printed.clear();
    form_->cmdTisk.UserClick();
    EXPECT_THAT(Shown(), IsEmpty());
    EXPECT_THAT(memory_.printer.printed, SizeIs(1));
    return memory_.printer.printed.empty() ? std::vector<std::string>() : PrintedLines();
  }

  Calculations calculations_{program_.state};
  ProgressiveWindow progressive_;
  frmFaktura* form_ = nullptr;
};

// --- the window --------------------------------------------------------------------------------

TEST_F(frmFakturaTest, OpensWithItsCaptions) {
  const frmFaktura& form = Open();
  EXPECT_EQ(form.caption(), "Faktura");
  EXPECT_EQ(form.cmdTisk.caption(), "&Tisk faktury");
  EXPECT_EQ(form.cmdKonec.caption(), "&Konec");
  EXPECT_EQ(form.cmdHelp.caption(), "&Nápověda");
  EXPECT_EQ(form.fraFaktura.caption(), "Odběratel");
  EXPECT_EQ(form.Frame1.caption(), "Dodavatel");
  std::vector<std::string> labels;
  for (const ui::Label& label : form.lblFaktura) labels.push_back(label.caption());
  EXPECT_THAT(labels, ElementsAre("Číslo penalizační faktury", "Název", "Ulice", "Obec", "PSČ",
                                  "IČO", "DIČ", "Číslo původní faktury", "Název", "Ulice", "Obec",
                                  "PSČ", "IČO", "DIČ", "Splatnost (dnů)"));
  EXPECT_TRUE(form.txtTextFaktury.read_only());
}

TEST_F(frmFakturaTest, SupplierComesFromTheSettings) {
  for (const char* key : {"Nazev", "Ulice", "Obec", "PSC", "ICO", "DIC"}) {
    SetFirm(key, std::string("firma ") + key);
  }
  const frmFaktura& form = Open();
  std::vector<std::string> texts;
  for (const ui::TextBox& field : form.txtFaktura) texts.push_back(field.text());
  EXPECT_THAT(texts, ElementsAre("", "", "", "", "", "", "", "", "firma Nazev", "firma Ulice",
                                 "firma Obec", "firma PSC", "firma ICO", "firma DIC", ""));
}

TEST_F(frmFakturaTest, FocusAndPointerHints) {
  frmFaktura& form = Open();
  const std::vector<const char*> texts = {"Číslo penalizační faktury",
                                          "Název odběratele",
                                          "Ulice odběratele",
                                          "Obec odběratele",
                                          "PSČ odběratele",
                                          "IČO odběratele",
                                          "DIČ odběratele",
                                          "Číslo původní faktury dodavatele",
                                          "Název dodavatele",
                                          "Ulice dodavatele",
                                          "Obec dodavatele",
                                          "PSČ dodavatele",
                                          "IČO dodavatele",
                                          "DIČ dodavatele",
                                          "Splatnost (dnů)"};
  std::vector<std::pair<ui::Control*, const char*>> rows;
  for (std::size_t i = 0; i < texts.size(); ++i) rows.emplace_back(&Field(i), texts[i]);
  rows.emplace_back(&form.cmdTisk, "Vytiskne penalizační fakturu");
  rows.emplace_back(&form.cmdHelp, "Vyvolá nápovědu s tématem");
  rows.emplace_back(&form.cmdKonec, "Zavřít okno");
  for (const auto& [control, text] : rows) {
    form.txtTextFaktury.SetFocus();
    lblMSG_.SetCaption("(beze změny)");
    control->SetFocus();
    EXPECT_EQ(HintText(), text) << control->name() << " on focus";
    lblMSG_.SetCaption("(beze změny)");
    control->UserHover();
    EXPECT_EQ(HintText(), text) << control->name() << " under the pointer";
  }
  for (ui::Frame* frame : {&form.fraFakt, &form.fraFaktura, &form.Frame1}) {
    lblMSG_.SetCaption("(beze změny)");
    frame->UserHover();
    EXPECT_EQ(HintText(), "Připraven") << frame->name();
  }
  lblMSG_.SetCaption("(beze změny)");
  form.txtTextFaktury.SetFocus();
  form.txtTextFaktury.UserHover();
  EXPECT_EQ(HintText(), "(beze změny)");
  form.MouseMove.Raise();
  EXPECT_EQ(HintText(), "Připraven");
}

TEST_F(frmFakturaTest, EnterMovesOnThroughAllFields) {
  Open();
  for (std::size_t i = 0; i < form_->txtFaktura.size(); ++i) {
    EXPECT_EQ(form_->focused(), &Field(i));
    ui::KeyPress enter{"\r"};
    EXPECT_TRUE(Field(i).UserKey(enter));
    EXPECT_EQ(enter.text, "") << "it is swallowed";
  }
  EXPECT_EQ(form_->focused(), &form_->txtTextFaktury);
}

TEST_F(frmFakturaTest, SmallPOpensTheHelpAndIsNotTyped) {
  Open();
  for (ui::TextBox& field : form_->txtFaktura) {
    memory_.help_viewer.opened.clear();
    ui::KeyPress key{"p"};
    EXPECT_TRUE(field.UserKey(key));
    EXPECT_EQ(key.text, "");
    ASSERT_THAT(memory_.help_viewer.opened, SizeIs(1)) << field.name();
    EXPECT_EQ(memory_.help_viewer.opened[0].topic, 110);
  }
  for (const char* text : {"P", "ř", "."}) {
    ui::KeyPress key{text};
    Field(0).UserKey(key);
    EXPECT_EQ(key.text, text);
  }
  EXPECT_THAT(memory_.help_viewer.opened, SizeIs(1));
  Field(1).UserEdit("papír");
  EXPECT_EQ(Field(1).text(), "papír") << "what is pasted is kept";
}

TEST_F(frmFakturaTest, HelpOpensAtItsTopic) {
  frmFaktura& form = Open();
  form.cmdHelp.UserClick();
  form.HelpRequested.Raise();
  ASSERT_THAT(memory_.help_viewer.opened, SizeIs(2));
  for (const auto& opened : memory_.help_viewer.opened) EXPECT_EQ(opened.topic, 110);
  memory_.help_viewer.fails = true;
  ui::KeyPress key{"p"};
  Field(0).UserKey(key);
  EXPECT_THAT(Shown(), ElementsAre("Chyba 53 (Soubor nebyl nalezen) v proceduře\r\n"
                                   "(cmdHelp_Click) of (frmFaktura.frm)."));
}

// --- the item line -----------------------------------------------------------------------------

TEST_F(frmFakturaTest, ItemLineHoldsTheRoundedInterestOfASingleCalculation) {
  SetRounding("halere");
  FinishSingle();
  EXPECT_EQ(Open().txtTextFaktury.text(), "Úroky z prodlení\t1 002,80 Kč");
}

TEST_F(frmFakturaTest, ItemLineHoldsTheTotalOfAProgressiveCalculation) {
  FinishProgressive();
  state().InterestAmount = 41.1;  // of the last payment alone
  EXPECT_EQ(Open().txtTextFaktury.text(), "Úroky z prodlení\t123,29 Kč");
}

TEST_F(frmFakturaTest, WithoutAFinishedCalculationTheItemLineIsEmpty) {
  Opened<frmJednotlivy>("frmJednotlivy");
  const frmFaktura& form = Open();
  EXPECT_EQ(form.txtTextFaktury.text(), "");
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmFakturaTest, LoadersTellThatThereIsNoCalculation) {
  Open();
  form_->NacteniJednotlivehoVypoctu();
  form_->NacteniPostupnehoVypoctu();
  EXPECT_THAT(
      memory_.message_box.shown,
      ElementsAre(ui::MemoryMessageBox::Shown{ui::Icon::kInformation, "Velta", kNothingToInvoice},
                  ui::MemoryMessageBox::Shown{ui::Icon::kInformation, "Velta", kNothingToInvoice}));
  EXPECT_EQ(form_->txtTextFaktury.text(), "");
}

TEST_F(frmFakturaTest, LoadersReportUnderTheirOwnNames) {
  FinishProgressive();
  Open();
  progressive_.fails = true;
  form_->NacteniJednotlivehoVypoctu();
  form_->NacteniPostupnehoVypoctu();
  EXPECT_THAT(
      Shown(),
      ElementsAre(
          "Chyba 6 (Přetečení) v proceduře\r\n(NacteniJednotlivehoVypoctu) of (frmFaktura.frm).",
          "Chyba 6 (Přetečení) v proceduře\r\n(NacteniPostupnehoVypoctu) of (frmFaktura.frm)."));
}

TEST_F(frmFakturaTest, ItemLineFollowsTheCalculation) {
  frmJednotlivy& single = FinishSingle();
  OpenFilled();
  single.txtDluznaCastka.UserEdit("20000");
  EXPECT_EQ(form_->txtTextFaktury.text(), "Úroky z prodlení\t2 005,48 Kč");
  single.txtDluznaCastka.UserEdit("");
  EXPECT_EQ(form_->txtTextFaktury.text(), "Úroky z prodlení\t2 005,48 Kč")
      << "as long as the result stands it is the one to be invoiced";
  EXPECT_THAT(Print(),
              Contains("    |Úroky z prodlení" + std::string(52, ' ') + "2 005,48 Kč     |"));
  single.cmdTiskFa.UserClick();
  EXPECT_EQ(Field(1).text(), "Dlužník") << "what was typed stays";
  EXPECT_EQ(windows().active(), form_);
}

TEST_F(frmFakturaTest, OpeningAgainWithoutACalculationChangesNothing) {
  FinishSingle();
  Open();
  state().CalculationFinished = false;
  Open();
  EXPECT_EQ(form_->txtTextFaktury.text(), "Úroky z prodlení\t1 002,74 Kč");
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmFakturaTest, ItemLineFollowsAlsoACalculationInAnotherWindow) {
  FinishSingle();
  OpenFilled();
  windows().Unload("frmJednotlivy");
  EXPECT_EQ(form_->txtTextFaktury.text(), "Úroky z prodlení\t1 002,74 Kč")
      << "there is no other yet, and nothing can be printed";
  frmJednotlivy& next = FinishSingle();
  EXPECT_EQ(form_->txtTextFaktury.text(), "Úroky z prodlení\t1 002,74 Kč");
  next.txtDluznaCastka.UserEdit("30000");
  EXPECT_EQ(form_->txtTextFaktury.text(), "Úroky z prodlení\t3 008,22 Kč");
  windows().Unload("frmFaktura");
  EXPECT_FALSE(calculations_.on_new_record) << "the invoice that is gone listens no longer";
  Open();
  EXPECT_EQ(form_->txtTextFaktury.text(), "") << "closing the invoice has closed the calculation";
}

TEST_F(frmFakturaTest, AfterNewCalculationNothingOfTheCaseBeforeIsInvoiced) {
  frmJednotlivy& single = FinishSingle();
  OpenFilled();
  single.cmdNovy.UserClick();
  ASSERT_TRUE(state().CalculationFinished);
  EXPECT_EQ(form_->txtTextFaktury.text(), "Úroky z prodlení\t0,00 Kč");
  const std::vector<std::string> page = Print();
  EXPECT_THAT(page, Contains("    |Úroky z prodlení" + std::string(52, ' ') + "0,00 Kč         |"));
  EXPECT_THAT(page, Contains("    |Na částku " + std::string(58, ' ') + "0,00 Kč         |"));
  EXPECT_THAT(page,
              Contains("    |Počet dnů prodlení " + std::string(48, ' ') + "0                |"));
}

TEST_F(frmFakturaTest, FirstRepoResultIsThereTheMomentItIsInvoiced) {
  auto& single = Opened<frmJednotlivy>("frmJednotlivy");
  single.dtpSplatnost.UserPick(Day(2006, 3, 15));
  single.dtpZaplaceni.UserPick(Day(2006, 5, 20));
  single.txtDluznaCastka.UserEdit("10000");
  single.cboDruhSazby.UserPick(5);
  ASSERT_TRUE(state().CalculationFinished);
  OpenFilled();
  EXPECT_EQ(single.lblPenale.caption(), "162,74 Kč");
  EXPECT_EQ(form_->txtTextFaktury.text(), "Úroky z prodlení\t162,74 Kč");
  single.txtDluznaCastka.UserEdit("20000");
  EXPECT_THAT(Print(),
              Contains("    |Úroky z prodlení" + std::string(52, ' ') + "325,48 Kč       |"));
}

// --- what must be filled in --------------------------------------------------------------------

TEST_F(frmFakturaTest, WithoutACalculationNothingIsPrinted) {
  FinishSingle();
  OpenFilled();
  state().CalculationFinished = false;
  Field(1).UserEdit("");  // would be refused, too, but that comes later
  form_->cmdTisk.UserClick();
  EXPECT_THAT(memory_.message_box.shown, ElementsAre(ui::MemoryMessageBox::Shown{
                                             ui::Icon::kCritical, "Velta", kNothingToPrint}));
  EXPECT_THAT(memory_.printer.printed, IsEmpty());
}

struct FilledCase {
  const char* name;
  const char* customer_name;
  const char* street;
  const char* town;
  const char* days;
  const char* message;  // empty: it prints
  std::size_t focused;
};

class FilledTest : public frmFakturaTest, public ::testing::WithParamInterface<FilledCase> {};

TEST_P(FilledTest, IsCheckedBeforePrinting) {
  const FilledCase& c = GetParam();
  FinishSingle();
  Open();
  Field(1).UserEdit(c.customer_name);
  Field(2).UserEdit(c.street);
  Field(3).UserEdit(c.town);
  Field(14).UserEdit(c.days);
  form_->cmdTisk.SetFocus();
  form_->cmdTisk.UserClick();
  if (*c.message == '\0') {
    EXPECT_THAT(Shown(), IsEmpty());
    EXPECT_THAT(memory_.printer.printed, SizeIs(1));
    EXPECT_EQ(form_->focused(), &form_->cmdTisk);
    return;
  }
  EXPECT_THAT(memory_.message_box.shown,
              ElementsAre(ui::MemoryMessageBox::Shown{ui::Icon::kInformation, "Velta", c.message}));
  EXPECT_EQ(form_->focused(), &Field(c.focused));
  EXPECT_THAT(memory_.printer.printed, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Fields, FilledTest,
    ::testing::Values(FilledCase{"Nothing", "", "", "", "", kMissing, 1},
                      FilledCase{"NoName", "", "Krátká 3", "Praha", "14", kMissing, 1},
                      FilledCase{"NoStreet", "Dlužník", "", "Praha", "14", kMissing, 2},
                      FilledCase{"NoTown", "Dlužník", "Krátká 3", "", "14", kMissing, 3},
                      FilledCase{"NameAndStreet", "", "", "Praha", "14", kMissing, 1},
                      FilledCase{"TownAndDays", "Dlužník", "Krátká 3", "", "", kMissing, 3},
                      FilledCase{"BlankCounts", " ", " ", " ", "14", "", 0},
                      FilledCase{"NoDays", "Dlužník", "Krátká 3", "Praha", "", kBadDays, 14},
                      FilledCase{"Letters", "Dlužník", "Krátká 3", "Praha", "abc", kBadDays, 14},
                      FilledCase{"Point", "Dlužník", "Krátká 3", "Praha", "10.5", kBadDays, 14},
                      FilledCase{"Comma", "Dlužník", "Krátká 3", "Praha", "10,5", "", 0},
                      FilledCase{"OnlyRequired", "Dlužník", "Krátká 3", "Praha", "14", "", 0}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(frmFakturaTest, RefusedFieldTellsInTheStatusLineWhatItIs) {
  FinishSingle();
  Open();
  form_->cmdTisk.SetFocus();
  form_->cmdTisk.UserClick();
  EXPECT_EQ(HintText(), "Název odběratele");
}

// --- printing ----------------------------------------------------------------------------------

struct DaysCase {
  const char* days;
  const char* due;
};

TEST_F(frmFakturaTest, DaysUntilDueCountFromToday) {
  memory_.clock.now.day = Day(2026, 1, 15);
  FinishSingle();
  OpenFilled();
  for (const auto& [days, due] : std::vector<DaysCase>{{"14", "29.1.2026"},
                                                       {"10,5", "25.1.2026"},
                                                       {"0", "15.1.2026"},
                                                       {" 1 000 ", "11.10.2028"},
                                                       {"-15", "31.12.2025"},
                                                       {"-0,5", "14.1.2026"}}) {
    Field(14).UserEdit(days);
    std::string line = std::string("    |   Datum splatnosti     ") + due;
    line += std::string(61 - std::string(due).size() - 1, ' ') + "|";
    EXPECT_THAT(Print(), Contains(line)) << days;
  }
}

TEST_F(frmFakturaTest, DueDateBeyondTheCalendarIsReported) {
  FinishSingle();
  OpenFilled();
  constexpr const char* kBadArgument =
      "Chyba 5 (Neplatné volání procedury nebo argument) v proceduře\r\n"
      "(cmdTisk_Click) of (frmFaktura.frm).";
  constexpr const char* kOverflow =
      "Chyba 6 (Přetečení) v proceduře\r\n(cmdTisk_Click) of (frmFaktura.frm).";
  for (const auto& [days, report] :
       std::vector<std::pair<const char*, const char*>>{{"3000000", kBadArgument},
                                                        {"-3000000", kBadArgument},
                                                        {"2147483647", kBadArgument},
                                                        {"2147483648", kOverflow},
                                                        {"-99999999999999999999", kOverflow}}) {
    Field(14).UserEdit(days);
    form_->cmdTisk.UserClick();
    EXPECT_THAT(Shown(), ElementsAre(report)) << days;
  }
  EXPECT_THAT(memory_.printer.printed, IsEmpty());
  Field(14).UserEdit("14");
  Print();
}

TEST_F(frmFakturaTest, PrintsItsFieldsInTheirPlaces) {
  SetFirm("Rejstrik", "Zapsán u KS v Brně");
  memory_.clock.now.day = Day(2026, 1, 15);
  FinishSingle();
  Open();
  for (std::size_t i = 0; i < 14; ++i) Field(i).UserEdit("pole " + std::to_string(i));
  Field(14).UserEdit("14");
  const std::vector<std::string> lines = Print();
  ASSERT_THAT(lines, SizeIs(65));
  EXPECT_EQ(lines[2], "        Penalizační faktura číslo : pole 0");
  EXPECT_THAT(lines[4], StartsWith("    |   Variabilní symbol    pole 0 "));
  EXPECT_THAT(std::vector<std::string>(lines.begin() + 8, lines.begin() + 13),
              ElementsAre(
                  // clang-format off
                  "    |   Dodavatel        IČO pole 12           |  Odběratel       IČO pole 5             |",
                  "    |          DIČ pole 13                     |          DIČ pole 6                     |",
                  "    |          pole 8                          |          pole 1                         |",
                  "    |          pole 9                          |          pole 2                         |",
                  "    |   pole 11pole 10                         |  pole 4  pole 3                         |"));
  // clang-format on
  EXPECT_EQ(lines[14], "    |Zapsán u KS v Brně" + std::string(66, ' ') + "|");
  EXPECT_EQ(lines[25], "    |Faktura číslo " + std::string(54, ' ') + "pole 7          |");
  EXPECT_EQ(memory_.printer.printed.back().copies, 1);
  EXPECT_THAT(memory_.printer.asked, IsEmpty()) << "the default printer needs no question";
}

TEST_F(frmFakturaTest, PrintsAProgressiveCalculation) {
  FinishProgressive();
  OpenFilled();
  EXPECT_THAT(Print(), Contains("    |31.1.2004           5 000,00 Kč         0,00 Kč"
                                "                     123,29 Kč       |"));
}

TEST_F(frmFakturaTest, ScreenPageAndCalculationAgreeAlsoAfterAChange) {
  frmJednotlivy& single = FinishSingle();
  OpenFilled();
  single.txtDluznaCastka.UserEdit("20000");
  const std::vector<std::string> lines = Print();
  EXPECT_EQ(single.lblPenale.caption(), "2 005,48 Kč");
  EXPECT_EQ(form_->txtTextFaktury.text(), "Úroky z prodlení\t2 005,48 Kč");
  EXPECT_EQ(lines[20], "    |Úroky z prodlení" + std::string(52, ' ') + "2 005,48 Kč     |");
  EXPECT_EQ(lines[26], "    |Na částku " + std::string(58, ' ') + "20 000,00 Kč    |");
}

TEST_F(frmFakturaTest, ChangedSupplierIsPrintedAndNotStored) {
  SetFirm("Nazev", "Stará firma");
  FinishSingle();
  OpenFilled();
  const auto stored = memory_.settings_store.values;
  Field(8).UserEdit("Nová firma");
  EXPECT_THAT(Print()[10], StartsWith("    |          Nová firma "));
  EXPECT_EQ(memory_.settings_store.values, stored);
  windows().Unload("frmFaktura");
  EXPECT_EQ(Open().txtFaktura.at(8).text(), "Stará firma");
}

TEST_F(frmFakturaTest, TextsChangedInTheStoreWaitForTheNextStart) {
  SetFirm("Rejstrik", "starý rejstřík");
  SetFirm("Banka", "starý účet");
  SetFirm("Dovetek2", "starý dovětek");
  FinishSingle();
  OpenFilled();
  for (const char* key : {"Rejstrik", "Banka", "Dovetek2", "TextRadku"}) {
    settings_.SaveSetting(key, "nový text");
  }
  const std::vector<std::string> lines = Print();
  for (const char* text : {"    |starý rejstřík", "    |starý účet", "    |starý dovětek"}) {
    EXPECT_THAT(lines, Contains(StartsWith(text)));
  }
  EXPECT_THAT(lines, Each(Not(HasSubstr("nový text"))));
}

TEST_F(frmFakturaTest, PrinterThatFailsIsReported) {
  FinishSingle();
  OpenFilled();
  memory_.printer.fails = true;
  form_->cmdTisk.UserClick();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 482 (Chyba tiskárny) v proceduře\r\n"
                                   "(cmdTisk_Click) of (frmFaktura.frm)."));
  memory_.printer.fails = false;
  Print();
}

TEST_F(frmFakturaTest, WithoutADefaultPrinterTheDialogIsShown) {
  FinishSingle();
  OpenFilled();
  memory_.printer.has_default = false;
  Print();
  EXPECT_THAT(memory_.printer.asked, ElementsAre("Penalizační faktura"));
  memory_.printer.printed.clear();
  memory_.printer.answer.reset();
  form_->cmdTisk.UserClick();
  EXPECT_THAT(Shown(), IsEmpty()) << "the user knows that he cancelled";
  EXPECT_THAT(memory_.printer.printed, IsEmpty());
}

// --- closing -----------------------------------------------------------------------------------

TEST_F(frmFakturaTest, CloseButtonClosesTheCalculationToo) {
  FinishSingle();
  Open().cmdKonec.UserClick();
  EXPECT_FALSE(windows().IsLoaded("frmFaktura"));
  EXPECT_FALSE(windows().IsLoaded("frmJednotlivy"));
  EXPECT_FALSE(state().CalculationFinished);
  EXPECT_EQ(HintText(), "Připraven");
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmFakturaTest, ClosingClosesTheProgressiveCalculation) {
  FinishProgressive();
  Open();
  windows().Unload("frmFaktura");
  EXPECT_FALSE(windows().IsLoaded("frmPostupny"));
  EXPECT_FALSE(state().CalculationFinished);
}

TEST_F(frmFakturaTest, ClosingAfterTheCalculationIsQuiet) {
  frmJednotlivy& single = FinishSingle();
  Open();
  single.cmdKonec.UserClick();
  EXPECT_TRUE(windows().IsLoaded("frmFaktura"));
  form_->cmdKonec.UserClick();
  EXPECT_FALSE(windows().IsLoaded("frmFaktura"));
  EXPECT_FALSE(windows().IsLoaded("frmJednotlivy")) << "closing does not open it";
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmFakturaTest, ClosingWithoutAnyCalculationIsQuiet) {
  Open();
  windows().Unload("frmFaktura");
  EXPECT_FALSE(windows().IsLoaded("frmFaktura"));
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmFakturaTest, TypedFieldsDoNotOutliveTheWindow) {
  FinishSingle();
  OpenFilled();
  Field(0).UserEdit("2026001");
  form_->cmdKonec.UserClick();
  FinishSingle();
  Open();
  for (const std::size_t i : {0U, 1U, 2U, 3U, 14U}) EXPECT_EQ(Field(i).text(), "") << i;
}

TEST_F(frmFakturaTest, ReplacedCalculationCannotBePrinted) {
  frmJednotlivy& single = FinishSingle();
  OpenFilled();
  single.cmdKonec.UserClick();
  Opened<frmJednotlivy>("frmJednotlivy");
  form_->cmdTisk.UserClick();
  EXPECT_THAT(Shown(), ElementsAre(kNothingToPrint));
  EXPECT_EQ(form_->txtTextFaktury.text(), "Úroky z prodlení\t1 002,74 Kč");
}

}  // namespace
}  // namespace velta
