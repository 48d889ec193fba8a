#pragma once

#include "tests/scenario/script.h"

namespace velta::scenario {

/// All windows and controls that the program has, found by opening each window once where nobody
/// sees it.
Names ProgramNames();

}  // namespace velta::scenario
