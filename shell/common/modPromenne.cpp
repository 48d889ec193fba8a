#include "shell/common/modPromenne.h"

#include <cmath>
#include <filesystem>
#include <system_error>

#include "shell/common/error.h"
#include "shell/common/number_text.h"

namespace velta {

namespace {

double Finite(double value) {
  if (!std::isfinite(value)) throw Error(ErrorNumber::kOverflow);
  return value;
}

}  // namespace

double RoundUp(double value, int places, ErrorReport& errors) {
  double result = 0;
  errors.Trap("RoundUp", "modPromenne.bas", [&] {
    const double scale = std::pow(10.0, places);
    // 0.99 and not 1: what is over a step by less than a hundredth of it costs the debtor nothing.
    const double steps = std::floor(Finite(value * scale + 0.99));
    result = Finite(steps / scale);
  });
  return result;
}

std::string GetDecimalSep(const ui::LocaleFormat& locale) {
  const std::string zero = FixedText(0, 2, locale);
  return zero.substr(1, zero.size() - 3);  // without "0" before it and "00" after it
}

bool FileExist(const std::string& path) {
  std::error_code error;
  const auto status = std::filesystem::status(
      std::filesystem::path(std::u8string(path.begin(), path.end())), error);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

std::string ProgramFile(const ui::ProgramFolder& folder, const std::string& name) {
  const std::string path = folder.Path();
  const std::string separator = folder.Separator();
  return path.ends_with(separator) ? path + name : path + separator + name;
}

std::string DecimalKey(const std::string& key, const ui::LocaleFormat& locale) {
  return key == "." || key == "," ? GetDecimalSep(locale) : key;
}

}  // namespace velta
