#pragma once

#include "calc/calculation_result.h"
#include "ui/printer.h"
#include "values/locale.h"

namespace velta {

/// The printed account of a single calculation: labels at column 5, values at column 65, an empty
/// line after each line.
ui::PrintedDocument SinglePrintout(const SingleResult& result, const LocaleFormat& locale);

}  // namespace velta
