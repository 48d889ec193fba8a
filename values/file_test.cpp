#include "values/file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/support/rate_folder.h"
#include "tests/support/thrown.h"
#include "values/error.h"

namespace velta {
namespace {

using testing::Thrown;

TEST(FileTest, FileExist) {
  const std::filesystem::path folder =
      std::filesystem::path(::testing::TempDir()) / u8"složka s diakritikou";
  std::filesystem::create_directories(folder);
  const std::filesystem::path file = folder / u8"žluťoučký kůň.dat";
  std::ofstream(file) << "x";
  const auto utf8 = [](const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
  };

  EXPECT_TRUE(FileExist(utf8(file)));
  EXPECT_FALSE(FileExist(utf8(folder)));
  EXPECT_FALSE(FileExist(utf8(folder / u8"chybí.dat")));
  EXPECT_FALSE(FileExist(utf8(file / u8"pod souborem.dat")));
  EXPECT_FALSE(FileExist(""));
  EXPECT_FALSE(FileExist(std::string(100000, 'x')));
  std::filesystem::remove_all(folder);
  EXPECT_FALSE(FileExist(utf8(file)));
}

struct FileRow {
  const char* name;
  std::string bytes;
  std::string read;
};

TEST(FileTest, ReadFileGivesTheBytesAsTheyStand) {
  const RateFolder folder;
  for (const FileRow& row :
       {FileRow{"empty", "", ""}, FileRow{"line ends", "a\r\nb\n\r\n", "a\r\nb\n\r\n"},
        FileRow{"no end of the last line", "a\r\nb", "a\r\nb"},
        FileRow{"a byte order mark", "\xEF\xBB\xBF\r\n", "\r\n"},
        FileRow{"a byte order mark alone", "\xEF\xBB\xBF", ""},
        FileRow{"a mark that is not at the beginning", "a\xEF\xBB\xBF", "a\xEF\xBB\xBF"},
        FileRow{"bytes that are no UTF-8", "\x80\xFF\xC3", "\x80\xFF\xC3"},
        FileRow{"a zero byte", std::string("a\0b", 3), std::string("a\0b", 3)}}) {
    folder.Write("soubor.txt", row.bytes);
    EXPECT_EQ(ReadFile(folder.File("soubor.txt")), row.read) << row.name;
  }
}

TEST(FileTest, ReadFileLosesNothingWhereItsBlocksMeet) {
  const RateFolder folder;
  for (const std::size_t length : {4095U, 4096U, 4097U, 8192U, 10000U}) {
    std::string bytes(length, 'a');
    bytes.back() = 'z';
    folder.Write("soubor.txt", bytes);
    EXPECT_EQ(ReadFile(folder.File("soubor.txt")), bytes) << length;
  }
}

TEST(FileTest, ReadFileSaysWhyItCannot) {
  const RateFolder folder;
  EXPECT_EQ(Thrown([&] { ReadFile(folder.File("chybí.txt")); }), ErrorNumber::kFileNotFound);
  EXPECT_EQ(Thrown([&] { ReadFile(folder.path()); }), ErrorNumber::kDeviceError)
      << "a folder in the file's place";
}

}  // namespace
}  // namespace velta
