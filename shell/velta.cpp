#include "shell/velta.h"

#include <memory>

#include "shell/frmAbout.h"
#include "shell/frmHistory.h"
#include "shell/frmMenu.h"
#include "shell/frmSplash.h"
#include "windows/invoice/frmFaktura.h"
#include "windows/progressive/frmPostupny.h"
#include "windows/settings/frmNastaveni.h"
#include "windows/single/frmJednotlivy.h"

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
  windows.Register("frmPostupny", [this] {
    return std::make_unique<frmPostupny>(program_, settings_, calculations_);
  });
  windows.Register("frmFaktura", [this] {
    return std::make_unique<frmFaktura>(program_, settings_, calculations_);
  });
  windows.Register("frmNastaveni",
                   [this] { return std::make_unique<frmNastaveni>(program_, settings_); });
  windows.Register("frmAbout", [this] { return std::make_unique<frmAbout>(program_); });
  windows.Register("frmHistory", [this] { return std::make_unique<frmHistory>(program_); });
}

void Velta::Start() { program_.windows.Open("frmSplash"); }

}  // namespace velta
