#include "shell/frmSplash.h"

namespace velta {

frmSplash::frmSplash(Program& program, Settings& settings)
    : Form(program, "frmSplash", ui::WindowKind::kSplash),
      Timer1(*this, "Timer1", ui::Timer::Kind::kOneShot, program.info.splash_time),
      settings_(settings) {
  OnTimer(Timer1, [this] {
    program_.windows.Open("frmMenu");
    Close();
  });
}

void frmSplash::OnLoad() {
  const ProgramInfo& info = program_.info;
  SetCaption(std::string(kTitle));
  lblCompanyProduct.SetCaption(std::string(kTitle));
  lblCompany.SetCaption("© Autoři programu Velta");
  lblCopyright.SetCaption("Svobodný program pod licencí MIT, bez jakékoli záruky.");
  lblVersion.SetCaption("Verze : " + std::to_string(info.major) + ". " +
                        std::to_string(info.minor) + ". " + std::to_string(info.revision));
  // Before the timer, so that the main window finds the settings complete.
  if (!settings_.IsInitialised()) settings_.InitialiseFirstRun();
  Timer1.SetEnabled(true);
}

void frmSplash::OnUnload() {
  if (Timer1.enabled()) {
    // Who puts the start-up window away early does not want to wait; the program goes on.
    Timer1.SetEnabled(false);
    program_.windows.Open("frmMenu");
  }
  if (!program_.windows.IsLoaded("frmMenu")) program_.platform.event_loop.Quit();
}

}  // namespace velta
