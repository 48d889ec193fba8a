#pragma once

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>
#include <system_error>

namespace velta {

/// A folder of its own for one test, with the rate files that the test writes into it.
class RateFolder {
 public:
  RateFolder()
      : path_(std::filesystem::temp_directory_path() /
              ("velta-rates-" + std::to_string(std::random_device()()))) {
    std::filesystem::create_directories(path_);
  }
  RateFolder(const RateFolder&) = delete;
  RateFolder& operator=(const RateFolder&) = delete;
  ~RateFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::string path() const { return path_.string(); }
  std::string File(const std::string& name) const { return (path_ / name).string(); }
  void Write(const std::string& name, std::string_view bytes) const {
    std::ofstream(path_ / name, std::ios::binary) << bytes;
  }

 private:
  std::filesystem::path path_;
};

/// A row of cnb.dat with its fields in their columns.
inline std::string CnbLine(std::string from, std::string to, std::string discount,
                           const std::string& interest) {
  from.resize(19, ' ');
  to.resize(20, ' ');
  discount.resize(21, ' ');
  return from + to + discount + interest;
}

inline std::string CrLf(std::initializer_list<std::string> lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

}  // namespace velta
