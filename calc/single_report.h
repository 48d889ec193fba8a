#pragma once

#include <string>

#include "calc/calculation_result.h"
#include "values/locale.h"

namespace velta {

/// The plain-text account of a single calculation, as the window shows it and the clipboard gets
/// it: lines ended by CR LF, of the form TAB label TAB value. A repo-regime calculation lists every
/// period.
std::string SingleReport(const SingleResult& result, const LocaleFormat& locale);

}  // namespace velta
