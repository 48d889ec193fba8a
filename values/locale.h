#pragma once

#include <string>

namespace velta {

/// How this user writes numbers, dates and times. The platform fills the record once, at start; all
/// formatting and reading is the program's own. The defaults are the Czech forms.
struct LocaleFormat {
  std::string decimal = ",";  ///< decimal separator, one character
  std::string group = " ";    ///< what stands between groups of three digits, UTF-8
  /// Short date: d, dd, M, MM and yyyy with what stands between.
  std::string date_pattern = "d.M.yyyy";
  /// Short time: H or HH, or h or hh with AP, then mm, with what stands between.
  std::string time_pattern = "H:mm";
  std::string am = "AM";  ///< what AP stands for before noon, UTF-8
  std::string pm = "PM";  ///< and after
};

}  // namespace velta
