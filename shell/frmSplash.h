#pragma once

#include "app/form.h"
#include "windows/settings/settings.h"

namespace velta {

/// The start-up window: shows the version, makes sure that the settings exist, and then opens the
/// main window in its place, at the latest when the user puts it away. Where the settings cannot be
/// written it stays, and closing it ends the program.
class frmSplash final : public Form {
 public:
  frmSplash(Program& program, Settings& settings);

  ui::Frame Frame1{*this, "Frame1"};
  ui::Label lblCompanyProduct{*this, "lblCompanyProduct"};
  ui::Label lblVersion{*this, "lblVersion"};
  ui::Frame Frame4{*this, "Frame4"};
  ui::Label lblCompany{*this, "lblCompany"};
  ui::Label lblCopyright{*this, "lblCopyright"};
  ui::Frame imgLogo{*this, "imgLogo"};
  ui::TimerControl Timer1;

 private:
  void OnLoad() override;
  void OnUnload() override;

  Settings& settings_;
};

}  // namespace velta
