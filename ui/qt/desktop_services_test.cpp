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

  /// A program that leaves a file when it runs.
  void MakeProgram(const char* name) {
    QFile program(folder_.filePath(name));
    ASSERT_TRUE(program.open(QIODevice::WriteOnly));
    program.write("#!/bin/sh\n: > '" + folder_.filePath(name).toUtf8() + ".ran'\n");
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

TEST_F(DesktopServicesTest, AddressThatNobodyTakesIsRefused) {
  EXPECT_FALSE(Opener().Open("velta-neznamy://nikde"));
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
