#pragma once

#include <string>

namespace velta::ui {

/// Where the program lies and what it is called.
class ProgramFolder {
 public:
  virtual ~ProgramFolder() = default;

  /// The folder of the program file with symbolic links resolved (UTF-8). It may or may not end in
  /// a separator.
  [[nodiscard]] virtual std::string Path() const = 0;

  /// What separates folders on this platform: "/" or "\\".
  [[nodiscard]] virtual std::string Separator() const = 0;

  /// The name of the program file without folder and extension: the application name under which
  /// the settings are stored.
  [[nodiscard]] virtual std::string ExecutableName() const = 0;
};

}  // namespace velta::ui
