#include "shell/frmMenu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "shell/velta.h"
#include "tests/support/program_test.h"
#include "windows/invoice/frmFaktura.h"
#include "windows/progressive/frmPostupny.h"
#include "windows/single/frmJednotlivy.h"

namespace velta {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kRefusedPrint = "Výpočet ještě není dokončen, nelze tisknout";
constexpr const char* kNotComplete = "Zadání nelze kopírovat, není úplné";

class frmMenuTest : public ::testing::Test {
 protected:
  frmMenuTest() { memory_.program_folder.path = VELTA_SOURCE_DIR "/data"; }

  frmMenu& Start() {
    velta_.Start();
    memory_.event_loop.RunUntilIdle();
    menu_ = dynamic_cast<frmMenu*>(windows().Find("frmMenu"));
    EXPECT_NE(menu_, nullptr);
    return *menu_;
  }
  Windows& windows() { return velta_.program().windows; }
  CalculationState& state() { return velta_.program().state; }

  /// Lets this program know a window that it may not have yet.
  void Register(const std::string& name) {
    windows().Register(
        name, [this, name] { return std::make_unique<OtherWindow>(velta_.program(), name); });
  }

  frmJednotlivy& FinishSingle() {
    menu_->mnuJednotlivyVypocet.UserClick();
    auto& single = dynamic_cast<frmJednotlivy&>(*windows().Find("frmJednotlivy"));
    single.dtpSplatnost.UserPick(Day(2025, 11, 21));
    single.txtDluznaCastka.UserEdit("10000");
    single.txtVyseSazby.UserEdit("10");
    EXPECT_TRUE(state().CalculationFinished);
    return single;
  }

  /// 10 000 Kč due a year ago, of which `paid` are paid today.
  frmPostupny& PayProgressive(const std::string& paid) {
    menu_->mnuPostupnyVypocet.UserClick();
    auto& progressive = dynamic_cast<frmPostupny&>(*windows().Find("frmPostupny"));
    progressive.txtData[0].UserEdit("10000");
    progressive.dtpSplatnost.UserPick(Day(2025, 11, 21));
    progressive.txtData[2].UserEdit("10");
    progressive.txtData[1].UserEdit(paid);
    progressive.cmdPridat.UserClick();
    return progressive;
  }

  /// The flags as single and progressive form open, single current, calculation finished.
  std::array<bool, 4> Flags() {
    return {state().SingleFormOpen, state().ProgressiveFormOpen, state().SingleIsCurrent,
            state().CalculationFinished};
  }

  std::vector<std::string> Shown() {
    std::vector<std::string> texts;
    for (const auto& box : memory_.message_box.shown) {
      EXPECT_EQ(box.icon, ui::Icon::kCritical);
      EXPECT_EQ(box.caption, "Velta");
      texts.push_back(box.text);
    }
    memory_.message_box.shown.clear();
    return texts;
  }

  ui::MemoryPlatform memory_;
  Velta velta_{memory_.platform(), {}};
  frmMenu* menu_ = nullptr;
};

TEST_F(frmMenuTest, OpensWithItsCaptions) {
  Start();
  EXPECT_EQ(menu_->caption(), "Velta");
  std::vector<std::pair<std::string, std::string>> items;
  for (ui::Control* control : menu_->controls()) {
    if (auto* item = dynamic_cast<ui::MenuItem*>(control)) {
      items.emplace_back(item->name(), item->caption());
    }
  }
  const std::vector<std::pair<std::string, std::string>> expected = {
      {"mnuVypocty", "&Výpočty"},
      {"mnuJednotlivyVypocet", "&Jednotlivý výpočet"},
      {"mnuPostupnyVypocet", "&Postupný výpočet"},
      {"mnuNastaveni", "&Nastavení programu"},
      {"mnuZpracovani", "&Zpracování"},
      {"mnuTiskVypoctu", "&Tisk výpočtu"},
      {"mnuVystavitFakturu", "&Vystavit fakturu"},
      {"mnuKopirovat", "&Kopírovat výpočet do schránky"},
      {"mnuOstatni", "&Ostatní"},
      {"mnuKalkulacka", "&Kalkulačka"},
      {"mnuPoznamky", "&Zápisník"},
      {"mnuNapoveda", "&Nápověda"},
      {"mnuObsah", "&Obsah"},
      {"mnuCaraNapoveda", "-"},
      {"mnuOProgramu", "O &programu"},
      {"mnuNaseStranky", "Naše www stránky"},
      {"mnuVersionHistory", "Historie verzí"},
      {"mnuKonec", "&Konec"},
      {"mnuKonecProgramu", "&Konec programu"},
  };
  EXPECT_EQ(items, expected);
  EXPECT_EQ(menu_->lblMSG.caption(), "Připraven");
  EXPECT_EQ(menu_->lblDatum.caption(), "21.11.2026   12:00");
  EXPECT_FALSE(state().CalculationFinished);
  EXPECT_FALSE(state().SingleIsCurrent);
}

TEST_F(frmMenuTest, ClockFollowsTheTime) {
  Start();
  memory_.clock.now = {Day(2026, 1, 15), std::chrono::hours(9) + std::chrono::minutes(5)};
  memory_.event_loop.Advance(std::chrono::seconds(1));
  EXPECT_EQ(menu_->lblDatum.caption(), "15.1.2026   9:05");
  memory_.clock.now.time += std::chrono::minutes(1);
  memory_.event_loop.Advance(std::chrono::seconds(1));
  EXPECT_EQ(menu_->lblDatum.caption(), "15.1.2026   9:06");
}

TEST_F(frmMenuTest, PointerOverTheBareWindowClearsTheHint) {
  Start();
  velta_.program().status.ShowHint("něco");
  menu_->MouseMove.Raise();
  EXPECT_EQ(menu_->lblMSG.caption(), "Připraven");
  velta_.program().status.ShowHint("něco");
  memory_.event_loop.Advance(std::chrono::minutes(2));
  EXPECT_EQ(menu_->lblMSG.caption(), "něco") << "time clears no hint";
}

TEST_F(frmMenuTest, HelpFileIsRegisteredWithOneSeparator) {
  struct Row {
    const char* folder;
    const char* separator;
    const char* registered;
    const char* opened;
  };
  for (const Row& row : {Row{"/opt/velta", "/", "/opt/velta/VELTA.CHM", "/opt/velta/VELTA.CHM"},
                         Row{"/opt/velta/", "/", "/opt/velta/VELTA.CHM", "/opt/velta/VELTA.CHM"},
                         Row{"C:\\Velta", "\\", "C:\\Velta\\VELTA.CHM", "C:\\Velta\\VELTA.CHM"},
                         Row{"C:\\", "\\", "C:\\VELTA.CHM", "C:\\\\VELTA.CHM"}}) {
    memory_.program_folder.path = row.folder;
    memory_.program_folder.separator = row.separator;
    EXPECT_EQ(Start().help_file(), row.registered);
    menu_->mnuObsah.UserClick();
    EXPECT_EQ(memory_.help_viewer.opened.back().file, row.opened);
    EXPECT_EQ(memory_.help_viewer.opened.back().topic, std::nullopt);
    windows().Unload("frmMenu");
    memory_.event_loop.RunUntilIdle();
  }
}

TEST_F(frmMenuTest, MissingHelpIsReported) {
  Start();
  memory_.help_viewer.fails = true;
  menu_->mnuObsah.UserClick();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 53 (Soubor nebyl nalezen) v proceduře\r\n"
                                   "(mnuObsah_Click) of (frmMenu.frm)."));
}

TEST_F(frmMenuTest, CommandsOnACalculationRefuseRightAfterStart) {
  Start();
  menu_->mnuTiskVypoctu.UserClick();
  EXPECT_THAT(Shown(), ElementsAre(kRefusedPrint));
  menu_->mnuVystavitFakturu.UserClick();
  EXPECT_THAT(Shown(), ElementsAre(kRefusedPrint));
  EXPECT_FALSE(windows().IsLoaded("frmFaktura"));
  memory_.clipboard.text = "starý";
  menu_->mnuKopirovat.UserClick();
  EXPECT_THAT(Shown(), ElementsAre(kNotComplete));
  EXPECT_EQ(memory_.clipboard.text, "starý");
}

TEST_F(frmMenuTest, PrintArmsTheWindowsTimerUnderTheHourglass) {
  Start();
  frmJednotlivy& single = FinishSingle();
  std::vector<std::pair<bool, bool>> pointer_and_timer;
  menu_->BusyChanged.Connect(
      [&] { pointer_and_timer.emplace_back(menu_->busy(), single.tmrTiskVypoctu.enabled()); });
  int printed = 0;
  single.cmdTiskVyp.Click.Connect([&] { ++printed; });
  menu_->mnuTiskVypoctu.UserClick();
  EXPECT_THAT(pointer_and_timer, ElementsAre(std::pair(true, false), std::pair(false, true)));
  EXPECT_EQ(printed, 0) << "only after the handler has returned";
  memory_.event_loop.RunUntilIdle();
  EXPECT_EQ(printed, 1);
}

TEST_F(frmMenuTest, PrintIsStillAcceptedAfterNewCalculationAndAfterInvalidInput) {
  Start();
  frmJednotlivy& single = FinishSingle();
  single.txtVyseSazby.UserEdit("x");
  menu_->mnuTiskVypoctu.UserClick();
  EXPECT_TRUE(single.tmrTiskVypoctu.enabled());
  EXPECT_THAT(Shown(), IsEmpty());
  single.tmrTiskVypoctu.SetEnabled(false);
  single.cmdNovy.UserClick();
  menu_->mnuTiskVypoctu.UserClick();
  EXPECT_TRUE(single.tmrTiskVypoctu.enabled());
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmMenuTest, CopyReplacesTheClipboardByTheReport) {
  Start();
  const frmJednotlivy& single = FinishSingle();
  memory_.clipboard.text = "starý";
  menu_->mnuKopirovat.UserClick();
  EXPECT_EQ(memory_.clipboard.text, single.txtReport.text());
  EXPECT_EQ(memory_.clipboard.text.substr(0, 41), "Podklady pro výpočet úroku z prodlení");
  EXPECT_EQ(memory_.clipboard.text.substr(memory_.clipboard.text.size() - 4), "**\r\n");
}

// Rounded up to 10 haléř after each half-year: 10 000 Kč at 9,5 % for 50 days 130,1369… Kč; 20 000
// Kč at 9,5 % for 60 days 312,3287… Kč and at 8,75 % for 10 days 47,9452… Kč more.
TEST_F(frmMenuTest, CommandsCarryAPendingRepoResultThroughFirst) {
  Start();
  menu_->mnuJednotlivyVypocet.UserClick();
  auto& single = dynamic_cast<frmJednotlivy&>(*windows().Find("frmJednotlivy"));
  single.dtpSplatnost.UserPick(Day(2005, 5, 1));
  single.dtpZaplaceni.UserPick(Day(2005, 6, 20));
  single.txtDluznaCastka.UserEdit("10000");
  single.cboDruhSazby.UserPick(5);
  menu_->mnuKopirovat.UserClick();
  EXPECT_THAT(memory_.clipboard.text, HasSubstr("Úrok z prodlení celkem\t130,20 Kč\r\n"));
  single.txtDluznaCastka.UserEdit("20000");
  single.dtpZaplaceni.UserPick(Day(2005, 7, 10));
  menu_->mnuVystavitFakturu.UserClick();
  auto& invoice = dynamic_cast<frmFaktura&>(*windows().Find("frmFaktura"));
  EXPECT_THAT(invoice.txtTextFaktury.text(), HasSubstr("\t360,40 Kč"));
  single.txtDluznaCastka.UserEdit("10000");
  menu_->mnuTiskVypoctu.UserClick();
  single.dtpZaplaceni.UserPick(Day(2005, 6, 20));  // before the print's turn
  memory_.event_loop.RunUntilIdle();
  ASSERT_EQ(memory_.printer.printed.size(), 1U);
  EXPECT_THAT(memory_.printer.printed[0].document.lines,
              Contains(Field(&ui::PrintedLine::text, HasSubstr("130,20 Kč"))));
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmMenuTest, OnlyCommandsOnACalculationUseItsInputs) {
  Start();
  const auto commands_of = [this](const char* window) {
    windows().Open(window);
    std::vector<std::string> names;
    for (ui::Control* control : windows().Find(window)->controls()) {
      const auto* command = dynamic_cast<const ui::Command*>(control);
      if (command != nullptr && command->uses_inputs()) names.push_back(command->name());
    }
    return names;
  };
  EXPECT_THAT(commands_of("frmMenu"),
              ElementsAre("mnuTiskVypoctu", "mnuVystavitFakturu", "mnuKopirovat", "cmdMenu(3)",
                          "cmdMenu(4)", "cmdMenu(5)"));
  EXPECT_THAT(commands_of("frmJednotlivy"), ElementsAre("cmdNovy", "cmdTiskVyp", "cmdTiskFa"));
  EXPECT_THAT(commands_of("frmPostupny"),
              ElementsAre("cmdPridat", "cmdNovy", "cmdTiskVyp", "cmdTiskFa"));
  EXPECT_THAT(commands_of("frmFaktura"), ElementsAre("cmdTisk"));
  for (const char* window : {"frmNastaveni", "frmAbout", "frmHistory"}) {
    EXPECT_THAT(commands_of(window), IsEmpty()) << window;
  }
}

TEST_F(frmMenuTest, InvoiceFollowsAlsoAProgressiveCalculation) {
  Start();
  frmPostupny& progressive = PayProgressive("10000");
  menu_->mnuVystavitFakturu.UserClick();
  const auto& invoice = dynamic_cast<frmFaktura&>(*windows().Find("frmFaktura"));
  EXPECT_THAT(invoice.txtTextFaktury.text(), HasSubstr("\t1 000,00 Kč"));
  progressive.cmdNovy.UserClick();
  PayProgressive("4000");
  EXPECT_THAT(invoice.txtTextFaktury.text(), HasSubstr("\t1 000,00 Kč"))
      << "there is no other yet, and nothing can be printed";
  progressive.txtData[1].UserEdit("6000");
  progressive.dtpZaplaceni.UserPick(Day(2025, 12, 1));
  progressive.cmdPridat.UserClick();
  // 400 Kč, and 6 000 Kč at 10 % for 10 days: 16,44 Kč, rounded up to 10 haléř.
  EXPECT_THAT(invoice.txtTextFaktury.text(), HasSubstr("\t416,50 Kč"));
}

TEST_F(frmMenuTest, ClipboardThatCannotBeHadIsReported) {
  Start();
  FinishSingle();
  memory_.clipboard.fails = true;
  menu_->mnuKopirovat.UserClick();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 521 (Schránku nelze otevřít) v proceduře\r\n"
                                   "(mnuKopirovat_Click) of (frmMenu.frm)."));
}

TEST_F(frmMenuTest, ClosedCalculationCannotBePrintedInvoicedOrCopied) {
  Start();
  FinishSingle().cmdKonec.UserClick();
  menu_->mnuTiskVypoctu.UserClick();
  menu_->mnuVystavitFakturu.UserClick();
  menu_->mnuKopirovat.UserClick();
  EXPECT_THAT(Shown(), ElementsAre(kRefusedPrint, kRefusedPrint, kNotComplete));
}

TEST_F(frmMenuTest, CommandsOnAnUnfinishedProgressiveCalculationRefuse) {
  Start();
  PayProgressive("4000");
  memory_.clipboard.text = "starý";
  menu_->mnuTiskVypoctu.UserClick();
  menu_->mnuVystavitFakturu.UserClick();
  menu_->mnuKopirovat.UserClick();
  EXPECT_THAT(Shown(), ElementsAre(kRefusedPrint, kRefusedPrint, kNotComplete));
  EXPECT_EQ(memory_.clipboard.text, "starý");
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(memory_.printer.asked, IsEmpty());
}

TEST_F(frmMenuTest, FinishedProgressiveCalculationIsPrintedCopiedAndInvoiced) {
  Register("frmFaktura");
  Start();
  const frmPostupny& progressive = PayProgressive("10000");
  menu_->mnuTiskVypoctu.UserClick();
  EXPECT_THAT(memory_.printer.asked, IsEmpty()) << "only after the handler has returned";
  memory_.event_loop.RunUntilIdle();
  EXPECT_EQ(memory_.printer.printed.size(), 1U);
  menu_->mnuKopirovat.UserClick();
  EXPECT_EQ(memory_.clipboard.text, progressive.txtPostup.text());
  EXPECT_TRUE(memory_.clipboard.text.ends_with("\r\nÚrok z prodlení celkem\t1 000,00 Kč"));
  menu_->mnuVystavitFakturu.UserClick();
  EXPECT_TRUE(windows().IsLoaded("frmFaktura"));
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmMenuTest, OneCalculationWindowClosesTheOther) {
  Start();
  EXPECT_EQ(Flags(), (std::array{false, false, false, false}));
  FinishSingle();
  EXPECT_EQ(Flags(), (std::array{true, false, true, true}));
  EXPECT_EQ(state().LastCalculationKind, CalculationKind::kSingle);

  const frmPostupny* progressive = &PayProgressive("4000");
  EXPECT_FALSE(windows().IsLoaded("frmJednotlivy"));
  EXPECT_EQ(Flags(), (std::array{false, true, false, false}));
  EXPECT_EQ(state().LastCalculationKind, CalculationKind::kProgressive);
  EXPECT_EQ(windows().active(), progressive);
  memory_.event_loop.RunUntilIdle();

  FinishSingle();
  EXPECT_FALSE(windows().IsLoaded("frmPostupny"));
  EXPECT_EQ(Flags(), (std::array{true, false, true, true}));
  EXPECT_EQ(state().LastCalculationKind, CalculationKind::kSingle);

  // What a closed single calculation leaves open does no harm to the next window.
  windows().Unload("frmJednotlivy");
  EXPECT_EQ(Flags(), (std::array{true, false, false, false}));
  PayProgressive("10000");
  EXPECT_EQ(Flags(), (std::array{false, true, false, true}));
  windows().Unload("frmPostupny");
  EXPECT_EQ(Flags(), (std::array{false, false, false, false}));
  EXPECT_EQ(state().LastCalculationKind, CalculationKind::kProgressive);
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmMenuTest, NewProgressiveWindowHasNothingOfTheSingleCalculationToPrintOrCopy) {
  Start();
  FinishSingle();
  menu_->mnuTiskVypoctu.UserClick();
  menu_->mnuPostupnyVypocet.UserClick();  // before the print's timer
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(memory_.printer.asked, IsEmpty());
  memory_.clipboard.text = "starý";
  menu_->mnuKopirovat.UserClick();
  menu_->mnuTiskVypoctu.UserClick();
  EXPECT_THAT(Shown(), ElementsAre(kNotComplete, kRefusedPrint));
  EXPECT_EQ(memory_.clipboard.text, "starý");
}

TEST_F(frmMenuTest, PendingRepoPaymentIsDroppedWhenTheSingleWindowOpens) {
  Start();
  frmPostupny& progressive = PayProgressive("4000");
  progressive.cmdNovy.UserClick();
  progressive.cboDruhSazby.UserPick(5);
  progressive.txtData[0].UserEdit("10000");
  progressive.txtData[1].UserEdit("10000");
  progressive.cmdPridat.UserClick();
  FinishSingle();
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_EQ(state().InterestAmount, 1000) << "of the single calculation";
  EXPECT_EQ(Flags(), (std::array{true, false, true, true}));
}

TEST_F(frmMenuTest, InvoiceOpensForAFinishedCalculation) {
  Start();
  FinishSingle();
  menu_->mnuVystavitFakturu.UserClick();
  EXPECT_TRUE(windows().IsLoaded("frmFaktura"));
  EXPECT_EQ(windows().active(), windows().Find("frmFaktura"));
}

TEST_F(frmMenuTest, OpenersOpenTheirWindowsOnce) {
  const std::vector<std::pair<std::string, std::string>> openers = {
      {"mnuPostupnyVypocet", "frmPostupny"},
      {"mnuNastaveni", "frmNastaveni"},
      {"mnuOProgramu", "frmAbout"},
      {"mnuVersionHistory", "frmHistory"}};
  for (const auto& [item, window] : openers) Register(window);
  Start();
  for (const auto& [item, window] : openers) {
    auto& command = dynamic_cast<ui::MenuItem&>(*menu_->Find(item));
    EXPECT_TRUE(command.UserClick());
    const Form* opened = windows().Find(window);
    ASSERT_NE(opened, nullptr) << item;
    EXPECT_EQ(windows().active(), opened);
    menu_->mnuJednotlivyVypocet.UserClick();
    EXPECT_NE(windows().active(), opened);
    command.UserClick();
    EXPECT_EQ(windows().Find(window), opened) << "no second instance";
    EXPECT_EQ(windows().active(), opened) << "but in front";
  }
}

TEST_F(frmMenuTest, ToolbarButtonsRunTheMenuCommandsInMenuOrder) {
  Start();
  const std::vector<ui::MenuItem*> commands = {
      &menu_->mnuJednotlivyVypocet, &menu_->mnuPostupnyVypocet, &menu_->mnuNastaveni,
      &menu_->mnuTiskVypoctu,       &menu_->mnuVystavitFakturu, &menu_->mnuKopirovat,
      &menu_->mnuKalkulacka,        &menu_->mnuPoznamky,        &menu_->mnuObsah,
      &menu_->mnuOProgramu,         &menu_->mnuNaseStranky,     &menu_->mnuVersionHistory,
      &menu_->mnuKonecProgramu};
  const std::vector<std::string> tips = {
      "Jednotlivý výpočet", "Postupný výpočet", "Nastavení programu",
      "Tisk výpočtu",       "Vystavit fakturu", "Kopírovat výpočet do schránky",
      "Kalkulačka",         "Zápisník",         "Obsah",
      "O programu",         "Naše www stránky", "Historie verzí",
      "Konec programu"};
  ASSERT_EQ(menu_->cmdMenu.size(), commands.size());
  std::vector<std::string> clicked;
  for (ui::MenuItem* command : commands) {
    command->SetEnabled(true);
    command->Click.Connect([&clicked, command] { clicked.push_back(command->name()); });
  }
  for (std::size_t i = 0; i < commands.size(); ++i) {
    ui::Button& button = menu_->cmdMenu.at(i);
    EXPECT_EQ(button.tool_tip(), tips[i]);
    EXPECT_TRUE(button.enabled());
    commands[i]->SetEnabled(false);
    EXPECT_FALSE(button.enabled()) << "as the command itself";
    commands[i]->SetEnabled(true);
    clicked.clear();
    button.UserClick();
    EXPECT_THAT(clicked, ElementsAre(commands[i]->name()));
  }
}

TEST_F(frmMenuTest, SystemProgramsAreStartedOrMissed) {
  Start();
  menu_->mnuKalkulacka.UserClick();
  menu_->mnuPoznamky.UserClick();
  EXPECT_THAT(memory_.launcher.started, ElementsAre("calc.exe", "notepad.exe"));
  EXPECT_THAT(Shown(), IsEmpty());
  memory_.launcher.fails = true;
  menu_->mnuKalkulacka.UserClick();
  menu_->mnuPoznamky.UserClick();
  EXPECT_THAT(Shown(), ElementsAre("Program Kalkulačka nebyl nalezen",
                                   "Program Poznámkový blok nebyl nalezen"));
}

TEST_F(frmMenuTest, MakersPageOpensInTheBrowser) {
  Start();
  menu_->mnuNaseStranky.UserClick();
  EXPECT_THAT(memory_.opener.opened, ElementsAre("https://velta.example/"));
  memory_.opener.fails = true;
  menu_->mnuNaseStranky.UserClick();
  EXPECT_THAT(Shown(),
              ElementsAre("Nenalezen program, který otevře adresu https://velta.example/"));
}

TEST_F(frmMenuTest, LoadThatCannotReadTheSettingsIsReported) {
  ASSERT_TRUE(memory_.settings_store.Write("velta", "Settings", "Hotovo", "Ano"));
  velta_.Start();
  memory_.settings_store.fails = true;
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 75 (Chyba přístupu k cestě nebo souboru) v proceduře\r\n"
                                   "(MDIForm_Load) of (frmMenu.frm)."));
  ASSERT_TRUE(windows().IsLoaded("frmMenu"));
  // What stood before the fault is done, what came after is not.
  menu_ = dynamic_cast<frmMenu*>(windows().Find("frmMenu"));
  EXPECT_EQ(menu_->mnuKonecProgramu.caption(), "&Konec programu");
  EXPECT_EQ(menu_->lblMSG.caption(), "Připraven");
  EXPECT_EQ(menu_->lblDatum.caption(), "");
}

TEST_F(frmMenuTest, LoadForgetsAnEarlierCalculation) {
  velta_.Start();
  state().CalculationFinished = true;
  memory_.event_loop.RunUntilIdle();
  EXPECT_TRUE(windows().IsLoaded("frmMenu"));
  EXPECT_FALSE(state().CalculationFinished);
}

TEST_F(frmMenuTest, TimersRestBeforeTheOtherWindowsUnload) {
  Start();
  bool ticking = true;
  windows().Register("frmFaktura", [&] {
    return std::make_unique<OtherWindow>(velta_.program(), "frmFaktura",
                                         [&] { ticking = menu_->Timer1.enabled(); });
  });
  windows().Open("frmFaktura");
  menu_->mnuKonecProgramu.UserClick();
  EXPECT_FALSE(ticking);
}

TEST_F(frmMenuTest, HelpThatCannotBeClosedIsReportedAndTheProgramEnds) {
  Start();
  memory_.help_viewer.close_throws = true;
  menu_->mnuKonecProgramu.UserClick();
  EXPECT_THAT(Shown(),
              ElementsAre("Chyba 5 (Neplatné volání procedury nebo argument) v proceduře\r\n"
                          "(MDIForm_QueryUnload) of (frmMenu.frm)."));
  EXPECT_TRUE(memory_.event_loop.quit);
}

TEST_F(frmMenuTest, ClosingEndsTheProgramWithAllItsWindows) {
  Start();
  FinishSingle();
  menu_->mnuKonecProgramu.UserClick();
  EXPECT_FALSE(windows().IsLoaded("frmJednotlivy"));
  EXPECT_FALSE(windows().IsLoaded("frmMenu"));
  EXPECT_TRUE(memory_.event_loop.quit);
  EXPECT_EQ(memory_.help_viewer.times_closed, 1);
  memory_.event_loop.Advance(std::chrono::seconds(5));
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmMenuTest, ClosingWhileARepoResultIsPendingIsQuiet) {
  Start();
  frmJednotlivy& single = FinishSingle();
  single.cboDruhSazby.UserPick(5);
  menu_->mnuKonecProgramu.UserClick();
  memory_.event_loop.Advance(std::chrono::seconds(5));
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_TRUE(memory_.event_loop.quit);
}

}  // namespace
}  // namespace velta
