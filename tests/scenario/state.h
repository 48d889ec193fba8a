#pragma once

#include <string>
#include <string_view>

#include "app/calculation_state.h"
#include "tests/scenario/value.h"

/// The program-wide values as scenarios see them.
namespace velta::scenario {

bool IsStateName(std::string_view name);

/// The value of that name, which must be a known one. The rounding rule is no part of the
/// calculation's state but is read as if it were.
Value ReadState(std::string_view name, const CalculationState& state,
                const std::string& rounding_mode);

}  // namespace velta::scenario
