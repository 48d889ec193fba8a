#include "shell/velta.h"

#include <memory>

#include "calc/single/frmJednotlivy.h"
#include "invoice/frmFaktura.h"
#include "shell/frmMenu.h"
#include "shell/frmSplash.h"

namespace velta {

Velta::Velta(const ui::Platform& platform, const ProgramInfo& info) : program_(platform, info) {
  Windows& windows = program_.windows;
  windows.Register("frmSplash",
                   [this] { return std::make_unique<frmSplash>(program_, settings_); });
  windows.Register(
      "frmMenu", [this] { return std::make_unique<frmMenu>(program_, settings_, calculations_); });
  windows.Register("frmJednotlivy", [this] {
    return std::make_unique<frmJednotlivy>(program_, settings_, calculations_);
  });
  windows.Register("frmFaktura", [this] {
    return std::make_unique<frmFaktura>(program_, settings_, calculations_);
  });
}

void Velta::Start() { program_.windows.Open("frmSplash"); }

}  // namespace velta
