#include "app/modPromenne.h"

#include <gtest/gtest.h>

#include "tests/support/english_locale.h"
#include "ui/memory/memory_platform.h"

namespace velta {
namespace {

const LocaleFormat kCzech;
const LocaleFormat kEnglish = EnglishLocale();

TEST(ModPromenneTest, GetDecimalSep) {
  EXPECT_EQ(GetDecimalSep(kCzech), ",");
  EXPECT_EQ(GetDecimalSep(kEnglish), ".");
  EXPECT_EQ(GetDecimalSep({"\u066B", "\u066C", "d/M/yyyy"}), "\u066B");
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
