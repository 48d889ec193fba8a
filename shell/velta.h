#pragma once

#include "app/program.h"
#include "windows/calculation/calculations.h"
#include "windows/settings/settings.h"

namespace velta {

/// The whole program on a platform: it knows every window, and nothing else does.
class Velta {
 public:
  Velta(const ui::Platform& platform, const ProgramInfo& info);

  /// Opens the start-up window, from which everything follows.
  void Start();

  Program& program() { return program_; }
  Settings& settings() { return settings_; }

 private:
  Program program_;
  Settings settings_{program_.platform, program_.errors};
  Calculations calculations_{program_.state};
};

}  // namespace velta
