#include "shell/common/modPromenne.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>

#include "tests/support/rate_folder.h"
#include "tests/support/thrown.h"
#include "ui/memory/memory_platform.h"

namespace velta {
namespace {

using testing::Thrown;

const ui::LocaleFormat kCzech;
const ui::LocaleFormat kEnglish = ui::EnglishLocale();

class RoundUpTest : public ::testing::Test {
 protected:
  ui::MemoryMessageBox message_box_;
  ErrorReport errors_{message_box_};
};

struct RoundUpRow {
  const char* name;
  double value;
  int places;
  double rounded;
};

constexpr RoundUpRow kRoundUp[] = {
    {"a whole step", 12.3, 1, 12.3},
    {"over it", 12.31, 1, 12.4},
    {"more over it", 12.34, 1, 12.4},
    {"by half a haléř", 12.305, 1, 12.4},
    {"by less than a hundredth of the step", 12.3005, 1, 12.3},
    {"by almost a hundredth", 12.3009, 1, 12.3},
    {"by a hundredth, whose product lies above", 12.301, 1, 12.4},
    {"by a hundredth, whose product lies below", 1.001, 1, 1.0},
    {"nothing", 0, 1, 0},
    {"negative goes towards zero", -12.34, 1, -12.3},
    {"negative whole step", -12.3, 1, -12.3},
    {"negative to zero", -0.05, 1, 0},
    {"negative by 0.99 of a step", -0.099, 1, 0},
    {"whole crowns", 12.34, 0, 13},
    {"whole crowns, whole", 12, 0, 12},
    {"whole crowns, dropped excess", 12.009, 0, 12},
    {"hundreds", 1234, -2, 1300},
    {"hundreds, whole", 1300, -2, 1300},
    {"haléře", 1.234, 2, 1.24},
    {"366 days at 10 % on 10 000", 1002.7397260273973, 1, 1002.8},
};

TEST_F(RoundUpTest, RoundsUpwardToAStep) {
  for (const RoundUpRow& row : kRoundUp) {
    EXPECT_EQ(RoundUp(row.value, row.places, errors_), row.rounded) << row.name;
  }
  EXPECT_TRUE(message_box_.shown.empty());
}

TEST_F(RoundUpTest, NoNegativeZero) {
  EXPECT_FALSE(std::signbit(RoundUp(-0.0, 1, errors_)));
  EXPECT_FALSE(std::signbit(RoundUp(-0.05, 1, errors_)));
  EXPECT_FALSE(std::signbit(RoundUp(-0.099, 1, errors_)));
}

TEST_F(RoundUpTest, EveryWholeStepStays) {
  for (int tenths = 0; tenths <= 1000000; ++tenths) {
    ASSERT_EQ(RoundUp(tenths / 10.0, 1, errors_), tenths / 10.0) << tenths;
  }
}

TEST_F(RoundUpTest, EveryHalerGoesToTheNextStep) {
  for (int halere = 0; halere <= 1000000; ++halere) {
    const int tenths = (halere + 9) / 10;
    ASSERT_EQ(RoundUp(halere / 100.0, 1, errors_), tenths / 10.0) << halere;
  }
}

struct OverflowRow {
  const char* name;
  double value;
  int places;
};

constexpr OverflowRow kOverflows[] = {
    {"the scaled value", 1e308, 1},
    {"the scaled value, negative", -1e308, 1},
    {"the scale", 1, 400},
    {"the scale with zero", 0, 400},
    {"the quotient: a scale of zero", 1, -400},
    {"infinity", std::numeric_limits<double>::infinity(), 1},
    {"not a number", std::numeric_limits<double>::quiet_NaN(), 1},
};

TEST_F(RoundUpTest, LeavingTheRangeOfDoubleIsReported) {
  for (const OverflowRow& row : kOverflows) {
    SCOPED_TRACE(row.name);
    message_box_.shown.clear();
    EXPECT_EQ(RoundUp(row.value, row.places, errors_), 0);
    ASSERT_EQ(message_box_.shown.size(), 1U);
    EXPECT_EQ(message_box_.shown[0].icon, ui::Icon::kCritical);
    EXPECT_EQ(message_box_.shown[0].text,
              "Chyba 6 (Přetečení) v proceduře\r\n(RoundUp) of (modPromenne.bas).");
  }
}

TEST(ModPromenneTest, GetDecimalSep) {
  EXPECT_EQ(GetDecimalSep(kCzech), ",");
  EXPECT_EQ(GetDecimalSep(kEnglish), ".");
  EXPECT_EQ(GetDecimalSep({"\u066B", "\u066C", "d/M/yyyy"}), "\u066B");
}

TEST(ModPromenneTest, FileExist) {
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

TEST(ModPromenneTest, ReadFileGivesTheBytesAsTheyStand) {
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

TEST(ModPromenneTest, ReadFileLosesNothingWhereItsBlocksMeet) {
  const RateFolder folder;
  for (const std::size_t length : {4095U, 4096U, 4097U, 8192U, 10000U}) {
    std::string bytes(length, 'a');
    bytes.back() = 'z';
    folder.Write("soubor.txt", bytes);
    EXPECT_EQ(ReadFile(folder.File("soubor.txt")), bytes) << length;
  }
}

TEST(ModPromenneTest, ReadFileSaysWhyItCannot) {
  const RateFolder folder;
  EXPECT_EQ(Thrown([&] { ReadFile(folder.File("chybí.txt")); }), ErrorNumber::kFileNotFound);
  EXPECT_EQ(Thrown([&] { ReadFile(folder.path()); }), ErrorNumber::kDeviceError)
      << "a folder in the file's place";
}

struct FolderRow {
  const char* path;
  const char* separator;
  const char* file;
};

TEST(ModPromenneTest, ProgramFileHasOneSeparator) {
  constexpr FolderRow kRows[] = {
      {"/opt/velta", "/", "/opt/velta/cnb.dat"},
      {"/opt/velta/", "/", "/opt/velta/cnb.dat"},
      {"/", "/", "/cnb.dat"},
      {"C:\\Velta", "\\", "C:\\Velta\\cnb.dat"},
      {"C:\\", "\\", "C:\\cnb.dat"},
  };
  for (const FolderRow& row : kRows) {
    ui::MemoryProgramFolder folder;
    folder.path = row.path;
    folder.separator = row.separator;
    EXPECT_EQ(ProgramFile(folder, "cnb.dat"), row.file);
  }
}

TEST(ModPromenneTest, DecimalKeyBecomesTheUsersSeparator) {
  EXPECT_EQ(DecimalKey(".", kCzech), ",");
  EXPECT_EQ(DecimalKey(",", kCzech), ",");
  EXPECT_EQ(DecimalKey(".", kEnglish), ".");
  EXPECT_EQ(DecimalKey(",", kEnglish), ".");
  for (const char* key : {"", "5", "-", " ", "ř", "\r", "..", "1.5"}) {
    EXPECT_EQ(DecimalKey(key, kCzech), key);
  }
}

}  // namespace
}  // namespace velta
