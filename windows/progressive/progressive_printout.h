#pragma once

#include <string>

#include "calc/calculation_result.h"
#include "ui/printer.h"
#include "values/locale.h"

namespace velta {

/// The printed account of a finished progressive calculation: labels at column 5, values at column
/// 65. In the repo regime it is `report`, the text of the report box, line for line.
ui::PrintedDocument ProgressivePrintout(const ProgressiveResult& result, const std::string& report,
                                        const LocaleFormat& locale);

}  // namespace velta
