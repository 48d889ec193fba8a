#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <clocale>

#include "ui/qt/launcher.h"
#include "ui/qt/opener.h"
#include "ui/qt/program_folder.h"
#include "ui/qt/run.h"
#include "ui/qt/text.h"
#include "ui/qt/user_name.h"

namespace velta::qt {
namespace {

/// A PATH on which there is nothing but what the test puts there.
class DesktopServicesTest : public ::testing::Test {
 protected:
  DesktopServicesTest() { qputenv("PATH", folder_.path().toUtf8()); }
  void TearDown() override { qputenv("PATH", path_); }

  /// A program that leaves its argument in a file when it runs, and then does what `script` says.
  void MakeProgram(const char* name, const QByteArray& script = "") {
    QFile program(folder_.filePath(name));
    ASSERT_TRUE(program.open(QIODevice::WriteOnly));
    program.write("#!/bin/sh\necho \"$1\" > '" + folder_.filePath(name).toUtf8() + ".ran'\n" +
                  script + "\n");
    program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }
  bool HasRun(const char* name) {
    const QString trace = folder_.filePath(name) + ".ran";
    return QTest::qWaitFor([&] { return QFile::exists(trace); }, 5000);
  }

  QByteArray path_ = qgetenv("PATH");
  QTemporaryDir folder_;
};

TEST_F(DesktopServicesTest, WithoutACalculatorNothingStarts) {
  EXPECT_FALSE(Launcher().Start("calc.exe"));
  EXPECT_FALSE(Launcher().Start("notepad.exe"));
  EXPECT_FALSE(Launcher().Start("jiny.exe"));
}

TEST_F(DesktopServicesTest, TheFullestCalculatorIsStarted) {
  MakeProgram("xcalc");
  MakeProgram("kcalc");
  EXPECT_TRUE(Launcher().Start("calc.exe"));
  EXPECT_TRUE(HasRun("kcalc"));
  EXPECT_FALSE(QFile::exists(folder_.filePath("xcalc.ran")));
  EXPECT_FALSE(Launcher().Start("notepad.exe"));
}

TEST_F(DesktopServicesTest, TheEditorIsStarted) {
  MakeProgram("mousepad");
  EXPECT_TRUE(Launcher().Start("notepad.exe"));
  EXPECT_TRUE(HasRun("mousepad"));
}

class OpenerTest : public DesktopServicesTest {
 protected:
  /// What the opener does, and that nobody writes anything to our standard error meanwhile.
  static bool Open(const char* address) {
    ::testing::internal::CaptureStderr();
    const bool opened = Opener().Open(address);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    return opened;
  }
  QByteArray ArgumentOf(const char* name) {
    QFile trace(folder_.filePath(name) + ".ran");
    return trace.open(QIODevice::ReadOnly) ? trace.readAll().trimmed() : "has not run";
  }
};

TEST_F(OpenerTest, WithoutAnyProgramAddressesAreRefused) {
  EXPECT_FALSE(Open("https://velta.example/"));
  EXPECT_FALSE(Open("mailto:podpora@velta.example"));
}

TEST_F(OpenerTest, DesktopTakesAddresses) {
  MakeProgram("xdg-open", "echo 'all is well' >&2");
  MakeProgram("x-www-browser");
  EXPECT_TRUE(Open("mailto:podpora@velta.example"));
  EXPECT_EQ(ArgumentOf("xdg-open"), "mailto:podpora@velta.example");
  EXPECT_TRUE(Open("https://velta.example/"));
  EXPECT_EQ(ArgumentOf("xdg-open"), "https://velta.example/");
  EXPECT_EQ(ArgumentOf("x-www-browser"), "has not run");
}

TEST_F(OpenerTest, DesktopThatFindsNoProgramRefuses) {
  MakeProgram("xdg-open", "echo 'no method available' >&2\nexit 3");
  EXPECT_FALSE(Open("https://velta.example/"));
  EXPECT_EQ(ArgumentOf("xdg-open"), "https://velta.example/");
}

TEST_F(OpenerTest, BrowserThatStaysHasTakenTheAddress) {
  // It waits until the test lets it go, which is after the opener has given up waiting.
  const QByteArray goes = folder_.filePath("goes").toUtf8();
  MakeProgram("xdg-open",
              "while [ ! -e '" + goes + "' ]; do /bin/sleep 0.05; done; : >'" + goes + ".on'");
  EXPECT_TRUE(Open("https://velta.example/"));
  QFile let_go(goes);
  ASSERT_TRUE(let_go.open(QIODevice::WriteOnly));
  EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(goes + ".on"); })) << "it goes on";
  QTest::qWait(100);  // until it is gone and forgotten
}

TEST_F(OpenerTest, WithoutADesktopTheBrowserTakesPagesButNoMail) {
  MakeProgram("x-www-browser");
  EXPECT_TRUE(Open("https://velta.example/"));
  EXPECT_EQ(ArgumentOf("x-www-browser"), "https://velta.example/");
  EXPECT_FALSE(Open("mailto:podpora@velta.example"));
}

TEST(ProgramFolderTest, IsWhereTheProgramReallyLies) {
  const QFileInfo program(QCoreApplication::applicationFilePath());
  EXPECT_EQ(ProgramFolder().Path(), ToUtf8(program.canonicalPath()));
  EXPECT_EQ(ProgramFolder().ExecutableName(), "velta_qt_tests");
  EXPECT_EQ(ProgramFolder().Separator(), "/");
}

TEST(UserNameTest, IsTheLoginName) {
  const auto name = UserName().Get();
  ASSERT_TRUE(name.has_value());
  EXPECT_NE(*name, "");
}

TEST(PrepareApplicationTest, NumbersOfTheStandardLibraryStayInTheCForm) {
  std::setlocale(LC_NUMERIC, "C.UTF-8");  // as Qt leaves another locale there
  PrepareApplication();
  EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
}

}  // namespace
}  // namespace velta::qt
