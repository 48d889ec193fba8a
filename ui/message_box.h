#pragma once

#include <string_view>

namespace velta::ui {

enum class Icon { kCritical, kInformation };

/// The modal message box with one "OK" button.
class MessageBox {
 public:
  virtual ~MessageBox() = default;

  /// Shows the box and returns when the user has answered it (OK, Esc or Enter). A carriage return,
  /// a line feed or the pair of them in `text` (UTF-8) is one line break.
  virtual void Show(Icon icon, std::string_view caption, std::string_view text) = 0;
};

}  // namespace velta::ui
