#pragma once

#include <string_view>

namespace velta::ui {

/// Starts the system's own small programs.
class Launcher {
 public:
  virtual ~Launcher() = default;

  /// Starts "calc.exe" (the system's calculator) or "notepad.exe" (its text editor), or what this
  /// platform has in their place, in a window of its own. Returns false where there is none or it
  /// cannot be started.
  [[nodiscard]] virtual bool Start(std::string_view program) = 0;
};

}  // namespace velta::ui
