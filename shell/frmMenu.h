#pragma once

#include <array>
#include <chrono>
#include <string>

#include "app/form.h"
#include "windows/calculation/calculations.h"
#include "windows/settings/settings.h"

namespace velta {

/// The main window: the frame in which all others open, with the menu, the toolbar, the status
/// strip and the commands on the current calculation. The program ends when it closes.
class frmMenu final : public Form {
 public:
  frmMenu(Program& program, Settings& settings, Calculations& calculations);
  ~frmMenu() override;

  /// The program's help file as it was registered when the window loaded: with one separator also
  /// where the help commands' own path (OpenHelp) has two.
  const std::string& help_file() const { return help_file_; }

  ui::MenuItem mnuVypocty{*this, "mnuVypocty"};
  ui::MenuItem mnuJednotlivyVypocet{*this, "mnuJednotlivyVypocet"};
  ui::MenuItem mnuPostupnyVypocet{*this, "mnuPostupnyVypocet"};
  ui::MenuItem mnuNastaveni{*this, "mnuNastaveni"};
  ui::MenuItem mnuZpracovani{*this, "mnuZpracovani"};
  ui::MenuItem mnuTiskVypoctu{*this, "mnuTiskVypoctu"};
  ui::MenuItem mnuVystavitFakturu{*this, "mnuVystavitFakturu"};
  ui::MenuItem mnuKopirovat{*this, "mnuKopirovat"};
  ui::MenuItem mnuOstatni{*this, "mnuOstatni"};
  ui::MenuItem mnuKalkulacka{*this, "mnuKalkulacka"};
  ui::MenuItem mnuPoznamky{*this, "mnuPoznamky"};
  ui::MenuItem mnuNapoveda{*this, "mnuNapoveda"};
  ui::MenuItem mnuObsah{*this, "mnuObsah"};
  ui::MenuItem mnuCaraNapoveda{*this, "mnuCaraNapoveda"};
  ui::MenuItem mnuOProgramu{*this, "mnuOProgramu"};
  ui::MenuItem mnuNaseStranky{*this, "mnuNaseStranky"};
  ui::MenuItem mnuVersionHistory{*this, "mnuVersionHistory"};
  ui::MenuItem mnuKonec{*this, "mnuKonec"};
  ui::MenuItem mnuKonecProgramu{*this, "mnuKonecProgramu"};
  ui::Frame fraTop{*this, "fraTop"};
  /// One button for each command, in menu order.
  std::array<ui::Button, 13> cmdMenu = ui::ControlArray<ui::Button, 13>(*this, "cmdMenu");
  ui::Frame picPodklad{*this, "picPodklad"};
  ui::Frame picSTB{*this, "picSTB"};
  ui::Label lblMSG{*this, "lblMSG"};
  ui::Label lblDatum{*this, "lblDatum"};
  ui::TimerControl Timer1{*this, "Timer1", ui::Timer::Kind::kPeriodic, std::chrono::seconds(1)};

 private:
  void OnLoad() override;
  void OnUnload() override;

  void WireCommands();
  void WireOpener(ui::MenuItem& item, const char* window);
  void SetCaptions();
  void SetHelpFile();
  void ShowTime();

  void mnuTiskVypoctu_Click();
  void mnuVystavitFakturu_Click();
  void mnuKopirovat_Click();
  void StartProgram(const char* program, const char* not_found);

  Settings& settings_;
  Calculations& calculations_;
  std::string help_file_;
};

}  // namespace velta
