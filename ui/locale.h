#pragma once

#include <string>

namespace velta::ui {

/// How this user writes numbers and dates. The platform fills the record once, at start; all
/// formatting and reading is the program's own. The defaults are the Czech forms.
struct LocaleFormat {
  std::string decimal = ",";  ///< decimal separator, one character
  std::string group = " ";    ///< what stands between groups of three digits, UTF-8
  /// Short date: d, dd, M, MM and yyyy with what stands between.
  std::string date_pattern = "d.M.yyyy";
};

}  // namespace velta::ui
