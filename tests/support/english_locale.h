#pragma once

#include "values/locale.h"

namespace velta {

/// A user of the other forms: decimal point, grouping comma, month before day.
inline LocaleFormat EnglishLocale() { return {".", ",", "M/d/yyyy", "h:mm AP"}; }

}  // namespace velta
