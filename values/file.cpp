#include "values/file.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "values/error.h"

namespace velta {

namespace {

std::filesystem::path NativePath(const std::string& utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

}  // namespace

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

}  // namespace velta
