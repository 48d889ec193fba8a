#pragma once

#include "app/form.h"

namespace velta {

/// What each version brought: the text HISTORY.TXT from the program's folder, to read and to print.
class frmHistory final : public Form {
 public:
  explicit frmHistory(Program& program);

  ui::Frame fraHistory{*this, "fraHistory"};
  ui::TextBox txtHistory{*this, "txtHistory"};
  ui::Button cmdTisk{*this, "cmdTisk"};
  ui::Button cmdKonec{*this, "cmdKonec"};

 private:
  void OnLoad() override;

  void cmdTisk_Click();
};

}  // namespace velta
