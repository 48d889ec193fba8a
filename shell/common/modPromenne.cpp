#include "shell/common/modPromenne.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "shell/common/error.h"

namespace velta {

namespace {

double Finite(double value) {
  if (!std::isfinite(value)) throw Error(ErrorNumber::kOverflow);
  return value;
}

std::filesystem::path NativePath(const std::string& utf8) {
  return std::u8string(utf8.begin(), utf8.end());
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

std::string GetDecimalSep(const ui::LocaleFormat& locale) { return locale.decimal; }

bool FileExist(const std::string& path) {
  std::error_code error;
  const auto status = std::filesystem::status(NativePath(path), error);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

std::string ReadFile(const std::string& path) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

  std::ifstream file(NativePath(path), std::ios::binary);
  if (!file) throw Error(FileExist(path) ? ErrorNumber::kPathAccess : ErrorNumber::kFileNotFound);
  std::string bytes;
  std::array<char, 4096> block;
  do {
    file.read(block.data(), block.size());
    bytes.append(block.data(), static_cast<std::size_t>(file.gcount()));
  } while (file);
  if (file.bad()) throw Error(ErrorNumber::kDeviceError);
  if (bytes.starts_with(kByteOrderMark)) bytes.erase(0, kByteOrderMark.size());
  return bytes;
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
