#pragma once

#include <functional>
#include <memory>
#include <string>

#include "ui/platform.h"

namespace velta::qt {

/// Runs a program on Qt: makes the platform, calls `start` with it, and turns the event loop until
/// the program asks it to end. Where the arguments ask for the version or the options, or are
/// wrong, it says so on the console instead, also without a display. What `start` returns is kept
/// alive as long as the loop runs. Returns the process's exit code.
int Run(int argc, char** argv, const std::string& version,
        const std::function<std::shared_ptr<void>(const ui::Platform&)>& start);

/// What of Run's preparations concerns the QApplication: its look, its language, and numbers in the
/// C form for the standard library. For tests, which make the application themselves.
void PrepareApplication();

}  // namespace velta::qt
