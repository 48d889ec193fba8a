#include "shell/frmMenu.h"

#include <algorithm>

#include "app/addresses.h"
#include "app/busy_pointer.h"
#include "app/help.h"
#include "app/modPromenne.h"
#include "values/error.h"

namespace velta {

namespace {

std::string WithoutAccessKey(std::string caption) {
  caption.erase(std::remove(caption.begin(), caption.end(), '&'), caption.end());
  return caption;
}

}  // namespace

frmMenu::frmMenu(Program& program, Settings& settings, Calculations& calculations)
    : Form(program, "frmMenu", ui::WindowKind::kMain),
      settings_(settings),
      calculations_(calculations) {
  WireCommands();
  for (ui::Frame* frame : {&fraTop, &picPodklad, &picSTB}) SurfaceHint(*frame);
  OnTimer(Timer1, [this] { ShowTime(); });
}

frmMenu::~frmMenu() { program_.status.Attach(nullptr); }

void frmMenu::WireCommands() {
  for (ui::MenuItem* item : {&mnuTiskVypoctu, &mnuVystavitFakturu, &mnuKopirovat}) {
    item->SetUsesInputs();
  }
  WireOpener(mnuJednotlivyVypocet, "frmJednotlivy");
  WireOpener(mnuPostupnyVypocet, "frmPostupny");
  WireOpener(mnuNastaveni, "frmNastaveni");
  OnClick(mnuTiskVypoctu, [this] { mnuTiskVypoctu_Click(); });
  OnClick(mnuVystavitFakturu, [this] { mnuVystavitFakturu_Click(); });
  OnClick(mnuKopirovat, [this] { mnuKopirovat_Click(); });
  OnClick(mnuKalkulacka, [this] { StartProgram("calc.exe", "Program Kalkulačka nebyl nalezen"); });
  OnClick(mnuPoznamky,
          [this] { StartProgram("notepad.exe", "Program Poznámkový blok nebyl nalezen"); });
  OnClick(mnuObsah, [this] { OpenHelp(program_.platform); });
  WireOpener(mnuOProgramu, "frmAbout");
  OnClick(mnuNaseStranky, [this] { OpenWeb(program_.platform, kHomePage); });
  WireOpener(mnuVersionHistory, "frmHistory");
  OnClick(mnuKonecProgramu, [this] { Close(); });

  const std::array<ui::MenuItem*, 13> commands = {
      &mnuJednotlivyVypocet, &mnuPostupnyVypocet, &mnuNastaveni,
      &mnuTiskVypoctu,       &mnuVystavitFakturu, &mnuKopirovat,
      &mnuKalkulacka,        &mnuPoznamky,        &mnuObsah,
      &mnuOProgramu,         &mnuNaseStranky,     &mnuVersionHistory,
      &mnuKonecProgramu};
  for (std::size_t i = 0; i < cmdMenu.size(); ++i) {
    ui::Button& button = cmdMenu.at(i);
    ui::MenuItem& item = *commands.at(i);
    button.SetTakesFocus(false);
    if (item.uses_inputs()) button.SetUsesInputs();
    OnClick(button, [&item] { item.UserClick(); });
    // A button is its menu item in another shape: named and enabled like it.
    item.Updated.Connect([&item, &button](ui::Aspect) {
      button.SetToolTip(WithoutAccessKey(item.caption()));
      button.SetEnabled(item.enabled());
    });
  }
}

void frmMenu::WireOpener(ui::MenuItem& item, const char* window) {
  OnClick(item, [this, window] { program_.windows.Open(window); });
}

void frmMenu::OnLoad() {
  program_.status.Attach(&lblMSG);
  SetCaptions();
  SetHelpFile();
  program_.status.ClearHint();
  calculations_.SetFinished(false);
  Timer1.SetEnabled(true);
  settings_.LoadProgramSettings();
  ShowTime();
}

void frmMenu::SetCaptions() {
  SetCaption(std::string(kTitle));
  mnuVypocty.SetCaption("&Výpočty");
  mnuJednotlivyVypocet.SetCaption("&Jednotlivý výpočet");
  mnuPostupnyVypocet.SetCaption("&Postupný výpočet");
  mnuNastaveni.SetCaption("&Nastavení programu");
  mnuZpracovani.SetCaption("&Zpracování");
  mnuTiskVypoctu.SetCaption("&Tisk výpočtu");
  mnuVystavitFakturu.SetCaption("&Vystavit fakturu");
  mnuKopirovat.SetCaption("&Kopírovat výpočet do schránky");
  mnuOstatni.SetCaption("&Ostatní");
  mnuKalkulacka.SetCaption("&Kalkulačka");
  mnuPoznamky.SetCaption("&Zápisník");
  mnuNapoveda.SetCaption("&Nápověda");
  mnuObsah.SetCaption("&Obsah");
  mnuCaraNapoveda.SetCaption("-");
  mnuOProgramu.SetCaption("O &programu");
  mnuNaseStranky.SetCaption("Naše www stránky");
  mnuVersionHistory.SetCaption("Historie verzí");
  mnuKonec.SetCaption("&Konec");
  mnuKonecProgramu.SetCaption("&Konec programu");
}

void frmMenu::SetHelpFile() {
  Guarded("SetHelpFile",
          [this] { help_file_ = ProgramFile(program_.platform.program_folder, kHelpFileName); });
}

void frmMenu::ShowTime() {
  const ui::Moment now = program_.platform.clock.Now();
  lblDatum.SetCaption(ShortDateText(now.day, program_.platform.locale) + "   " +
                      ShortTimeText(now.time, program_.platform.locale));
}

void frmMenu::OnUnload() {
  Timer1.SetEnabled(false);
  Guarded("MDIForm_QueryUnload", [this] { program_.platform.help_viewer.CloseAll(); });
  program_.windows.UnloadAllBut(name());
  program_.platform.event_loop.Quit();
}

void frmMenu::mnuTiskVypoctu_Click() {
  CalculationWindow* const finished = calculations_.Finished();
  if (finished == nullptr) {
    Message(ui::Icon::kCritical, kNotFinished);
    return;
  }
  const BusyPointer busy(*this);
  finished->PrintLater();
}

void frmMenu::mnuVystavitFakturu_Click() {
  if (calculations_.Finished() == nullptr) {
    Message(ui::Icon::kCritical, kNotFinished);
    return;
  }
  program_.windows.Open("frmFaktura");
}

void frmMenu::mnuKopirovat_Click() {
  const CalculationWindow* const finished = calculations_.Finished();
  if (finished == nullptr) {
    Message(ui::Icon::kCritical, "Zadání nelze kopírovat, není úplné");
    return;
  }
  if (!program_.platform.clipboard.SetText(finished->ReportBoxText())) {
    throw Error(ErrorNumber::kClipboard);
  }
}

void frmMenu::StartProgram(const char* program, const char* not_found) {
  if (!program_.platform.launcher.Start(program)) Message(ui::Icon::kCritical, not_found);
}

}  // namespace velta
