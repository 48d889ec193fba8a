#include "app/modPromenne.h"

namespace velta {

std::string GetDecimalSep(const LocaleFormat& locale) { return locale.decimal; }

std::string ProgramFile(const ui::ProgramFolder& folder, const std::string& name) {
  const std::string path = folder.Path();
  const std::string separator = folder.Separator();
  return path.ends_with(separator) ? path + name : path + separator + name;
}

std::string DecimalKey(const std::string& key, const LocaleFormat& locale) {
  return key == "." || key == "," ? GetDecimalSep(locale) : key;
}

}  // namespace velta
