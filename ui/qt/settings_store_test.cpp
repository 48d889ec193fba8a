#include "ui/qt/settings_store.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <array>
#include <string>

#include "ui/qt/text.h"

namespace velta::qt {
namespace {

constexpr const char* kApplication = "velta";
constexpr const char* kSection = "Settings";

/// Each test has a configuration folder of its own. Qt keeps what it once read of a file in memory,
/// so a later run of the program is played by copying the file to another application's name.
class SettingsStoreTest : public ::testing::Test {
 protected:
  SettingsStoreTest()
      : old_path_(QFileInfo(QSettings(QSettings::IniFormat, QSettings::UserScope, "x").fileName())
                      .path()) {
    SetFolder(folder_.path());
  }
  void TearDown() override { SetFolder(old_path_); }

  static void SetFolder(const QString& path) {
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, path);
  }
  QString FileOf(const QString& application) const {
    return folder_.filePath(application + "/" + application + ".ini");
  }
  void NextRun() {
    ASSERT_TRUE(QDir(folder_.path()).mkpath("later"));
    ASSERT_TRUE(QFile::copy(FileOf(kApplication), FileOf("later")));
  }
  void WriteByHand(const QByteArray& lines) {
    ASSERT_TRUE(QDir(folder_.path()).mkpath(kApplication));
    QFile file(FileOf(kApplication));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Settings]\n" + lines + "\n");
  }
  std::optional<std::string> Read(const char* key, const char* application = kApplication) {
    std::optional<std::string> value = "untouched";
    EXPECT_TRUE(store_.Read(application, kSection, key, value));
    return value;
  }

  QTemporaryDir folder_;
  QString old_path_;
  SettingsStore store_;
};

struct Value {
  const char* name;
  std::string text;
};

class AwkwardValue : public SettingsStoreTest, public ::testing::WithParamInterface<Value> {};

TEST_P(AwkwardValue, ReadsBackTheSameInALaterRun) {
  ASSERT_TRUE(store_.Write(kApplication, kSection, "Nazev", GetParam().text));
  NextRun();
  EXPECT_EQ(Read("Nazev", "later"), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, AwkwardValue,
    ::testing::Values(Value{"empty", ""}, Value{"blanks_around", "  Novák a syn  "},
                      Value{"commas", "Brno, Brno-venkov,"}, Value{"quotes", "\"U Lva\" a 'syn'"},
                      Value{"at_sign", "@Invalid()"}, Value{"backslashes", "C:\\temp\\new"},
                      Value{"line_ends", "a\r\nb\nc\td"}, Value{"semicolon", "a;b#c"},
                      Value{"equals_and_percent", "50 % = p%C5%AFl"},
                      Value{"czech", "Příliš žluťoučký kůň"}, Value{"other_scripts", "Жук 漢字 😀"},
                      Value{"number_like", "007"}, Value{"long", std::string(100000, 'x')}),
    [](const auto& test) { return test.param.name; });

TEST_F(SettingsStoreTest, MissingKeyIsNoError) { EXPECT_EQ(Read("Hotovo"), std::nullopt); }

TEST_F(SettingsStoreTest, ValueForAllUsersStandsInForNone) {
  QSettings for_all(QSettings::IniFormat, QSettings::UserScope, kApplication);
  for_all.setValue(QString(kSection) + "/Hotovo", "Ano");
  for_all.sync();
  EXPECT_EQ(Read("Hotovo"), std::nullopt);
}

TEST_F(SettingsStoreTest, KeysAreCaseSensitive) {
  ASSERT_TRUE(store_.Write(kApplication, kSection, "Nazev", "a"));
  EXPECT_EQ(Read("nazev"), std::nullopt);
}

TEST_F(SettingsStoreTest, ApplicationsAreApart) {
  ASSERT_TRUE(store_.Write(kApplication, kSection, "Nazev", "a"));
  EXPECT_EQ(Read("Nazev", "velta2"), std::nullopt);
}

TEST_F(SettingsStoreTest, LiesInItsSectionOfTheApplicationsFile) {
  ASSERT_TRUE(store_.Write(kApplication, kSection, "Nazev", "a"));
  QFile file(FileOf(kApplication));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll(), "[Settings]\nNazev=a\n");
}

TEST_F(SettingsStoreTest, HandWrittenCommaIsPartOfTheText) {
  WriteByHand("Obec=Brno,venkov");
  EXPECT_EQ(Read("Obec"), "Brno,venkov");
}

TEST_F(SettingsStoreTest, WriteBelowARegularFileFailsAndIsNotRemembered) {
  QFile file(folder_.filePath("occupied"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  SetFolder(folder_.filePath("occupied"));
  EXPECT_FALSE(store_.Write(kApplication, kSection, "Nazev", "a"));
  std::optional<std::string> value;
  EXPECT_TRUE(store_.Read(kApplication, kSection, "Nazev", value));
  EXPECT_EQ(value, std::nullopt);
}

TEST_F(SettingsStoreTest, FailedWriteLeavesTheOldValue) {
  ASSERT_TRUE(store_.Write(kApplication, kSection, "Nazev", "old"));
  // A folder in the file's place can't be written, whoever tries.
  ASSERT_TRUE(QFile::remove(FileOf(kApplication)));
  ASSERT_TRUE(QDir().mkpath(FileOf(kApplication) + "/x"));
  EXPECT_FALSE(store_.Write(kApplication, kSection, "Nazev", "new"));
  std::optional<std::string> value;
  (void)store_.Read(kApplication, kSection, "Nazev", value);
  EXPECT_NE(value, "new");
}

/// A second instance of the program: writes keys of its own and one that both write.
pid_t StartWriter(const std::string& own_key) {
  constexpr int kTimes = 25;
  const pid_t writer = fork();
  if (writer != 0) return writer;
  SettingsStore store;
  bool ok = true;
  for (int i = 1; i <= kTimes; ++i) {
    const std::string number = std::to_string(i);
    ok = store.Write(kApplication, kSection, own_key + number, "hodnota " + number) &&
         store.Write(kApplication, kSection, "Nazev",
                     std::string(own_key).append(" ").append(number)) &&
         ok;
  }
  _exit(ok ? 0 : 1);
}

TEST_F(SettingsStoreTest, TwoInstancesAtOnceLoseAndGarbleNothing) {
  ASSERT_TRUE(store_.Write(kApplication, kSection, "Obec", "Brno"));
  const std::array writers = {StartWriter("A"), StartWriter("B")};
  for (const pid_t writer : writers) {
    int status = -1;
    ASSERT_EQ(waitpid(writer, &status, 0), writer);
    EXPECT_EQ(status, 0);
  }
  NextRun();
  for (int i = 1; i <= 25; ++i) {
    const std::string number = std::to_string(i);
    for (const std::string& key : {"A" + number, "B" + number}) {
      EXPECT_EQ(Read(key.c_str(), "later"), "hodnota " + number) << key;
    }
  }
  EXPECT_EQ(Read("Obec", "later"), "Brno");
  const auto name = Read("Nazev", "later");
  EXPECT_TRUE(name == "A 25" || name == "B 25") << name.value_or("none");
}

}  // namespace
}  // namespace velta::qt
