#pragma once

#include <string>

#include "ui/controls.h"

namespace velta {

/// The hint in the main window's status strip. Without a main window hints go nowhere.
class StatusLine {
 public:
  static constexpr const char* kIdle = "Připraven";

  /// The main window's label, or null when that window goes.
  void Attach(ui::Label* label) { label_ = label; }

  void ShowHint(const std::string& text) {
    if (label_ != nullptr) label_->SetCaption(text);
  }
  void ClearHint() { ShowHint(kIdle); }

 private:
  ui::Label* label_ = nullptr;
};

}  // namespace velta
