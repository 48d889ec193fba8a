#pragma once

#include <string_view>

namespace velta::ui {

/// The system clipboard.
class Clipboard {
 public:
  virtual ~Clipboard() = default;

  /// Replaces the clipboard's contents by plain text (UTF-8, line ends kept as they are). Returns
  /// false where the clipboard cannot be had; it then holds what it held.
  [[nodiscard]] virtual bool SetText(std::string_view text) = 0;
};

}  // namespace velta::ui
