#pragma once

#include <chrono>

#include "app/calculation_state.h"
#include "app/error_report.h"
#include "app/status_line.h"
#include "app/windows.h"
#include "ui/platform.h"

namespace velta {

/// What the build knows of the program.
struct ProgramInfo {
  int major = 0;
  int minor = 0;
  int revision = 0;
  /// How long the start-up window stays at the least.
  std::chrono::milliseconds splash_time{0};
};

/// What all windows share, handed to them by reference.
struct Program {
  Program(const ui::Platform& platform_services, const ProgramInfo& program_info)
      : platform(platform_services),
        info(program_info),
        errors(platform.message_box),
        windows(platform.window_system, platform.event_loop) {}

  ui::Platform platform;
  ProgramInfo info;
  ErrorReport errors;
  StatusLine status;
  CalculationState state;
  Windows windows;  // destroyed first: windows use all of the above until their end
};

}  // namespace velta
