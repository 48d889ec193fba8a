#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace velta::test {

/// A program folder of a test's own; what is not written into it is missing there.
class RateFolder {
 public:
  explicit RateFolder(const std::string& name)
      : path_(std::filesystem::temp_directory_path() / ("velta-" + name)) {
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }
  RateFolder(const RateFolder&) = delete;
  RateFolder& operator=(const RateFolder&) = delete;
  ~RateFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  void Write(const std::string& file, const std::string& bytes) const {
    std::ofstream(path_ / file, std::ios::binary) << bytes;
  }
  std::string path() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace velta::test
