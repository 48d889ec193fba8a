#include "ui/qt/help/chm_file.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>
#include <climits>

namespace velta::qt {
namespace {

QString HelpFile() { return QCoreApplication::applicationDirPath() + "/VELTA.CHM"; }

QByteArray Content(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return file.readAll();
}

/// The help file of the build, and others made from it.
class ChmFileTest : public ::testing::Test {
 protected:
  std::unique_ptr<ChmFile> Open(const QByteArray& bytes) {
    const QString path = folder_.filePath("VELTA.CHM");
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    return ChmFile::Open(path);
  }

  /// With the stamp that make_chm.py would have given it.
  static QByteArray Stamped(QByteArray bytes) {
    bytes.replace(0x10, 4, QByteArray(4, '\0'));
    return bytes.replace(0x10, 4,
                         QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).left(4));
  }

  /// The place of a file's content in the help file.
  qsizetype PlaceOf(const QString& name) const {
    return whole_.indexOf(ChmFile::Open(HelpFile())->Read(name));
  }

  const QByteArray whole_ = Content(HelpFile());
  QTemporaryDir folder_;
};

TEST_F(ChmFileTest, HoldsThePagesAsTheyAreWritten) {
  const auto file = ChmFile::Open(HelpFile());
  ASSERT_NE(file, nullptr);
  for (const char* name :
       {"/obsah.html", "/zakonna-sazba.html", "/velta.css", "/pictures/frmJednotlivy.png"}) {
    EXPECT_EQ(file->Read(name), Content(QString(VELTA_SOURCE_DIR "/help") + name)) << name;
  }
  EXPECT_EQ(file->Read("/neni.html"), QByteArray());
  EXPECT_EQ(file->Read(""), QByteArray());
}

TEST_F(ChmFileTest, SaysWhereItBegins) {
  const auto file = ChmFile::Open(HelpFile());
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->home(), "/obsah.html");
  EXPECT_EQ(file->contents(), "/obsah.hhc");
}

TEST_F(ChmFileTest, KnowsThePagesByTheirContextNumbers) {
  const auto file = ChmFile::Open(HelpFile());
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->Topic(70), "/jednotlivy-vypocet.html");
  EXPECT_EQ(file->Topic(110), "/penalizacni-faktura.html");
  for (const int unknown : {0, 1, 69, 71, 109, 111, -70, INT_MAX, INT_MIN}) {
    EXPECT_EQ(file->Topic(unknown), QString()) << unknown;
  }
}

TEST_F(ChmFileTest, WhatIsNoHelpFileIsNotOpened) {
  EXPECT_EQ(ChmFile::Open(folder_.filePath("neni.chm")), nullptr);
  EXPECT_EQ(ChmFile::Open(folder_.path()), nullptr);
  EXPECT_EQ(Open(""), nullptr);
  EXPECT_EQ(Open("ITSF"), nullptr);
  EXPECT_EQ(Open(QByteArray(5000, 'x')), nullptr);
  EXPECT_EQ(Open(Stamped(QByteArray(5000, 'x'))), nullptr);
  EXPECT_NE(Open(whole_), nullptr) << "the test itself opens what is whole";
}

TEST_F(ChmFileTest, FileThatIsCutOffIsNotOpened) {
  constexpr int kCuts = 300;
  for (int i = 0; i < kCuts; ++i) {
    const qsizetype length = i < 100 ? i : whole_.size() * i / kCuts;
    EXPECT_EQ(Open(whole_.left(length)), nullptr) << length;
  }
  EXPECT_EQ(Open(whole_.chopped(1)), nullptr);
  EXPECT_EQ(Open(whole_ + '\0'), nullptr);
}

TEST_F(ChmFileTest, FileWithAWrongBitIsNotOpened) {
  constexpr int kFlips = 1200;
  for (int i = 0; i < kFlips; ++i) {
    const qsizetype at = i < 600 ? i : whole_.size() * i / kFlips;
    QByteArray damaged = whole_;
    damaged[at] = static_cast<char>(damaged[at] ^ (1 << i % CHAR_BIT));
    EXPECT_EQ(Open(damaged), nullptr) << at;
  }
}

TEST_F(ChmFileTest, TablesThatLeadBeyondTheirEndLeadNowhere) {
  QByteArray pairs = whole_;
  const qsizetype place = PlaceOf("/#IVB") + 4 + 4;  // the first number's place in #STRINGS
  for (const quint32 beyond : {25U, 1000U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
    qToLittleEndian<quint32>(beyond + 100, pairs.data() + place);
    const auto file = Open(Stamped(pairs));
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(file->Topic(70), QString()) << beyond;
    EXPECT_EQ(file->Topic(110), "/penalizacni-faktura.html") << beyond;
  }

  QByteArray system = whole_;
  qToLittleEndian<quint16>(0xFFFF, system.data() + PlaceOf("/#SYSTEM") + 4 + 2);
  const auto file = Open(Stamped(system));
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->home(), QString());
}

TEST_F(ChmFileTest, FileInItThatWouldBeLongerThanItselfIsNotRead) {
  QByteArray longer = whole_;
  const QByteArray name = "/velta.css";
  qsizetype at = longer.indexOf(name) + name.size() + 1;         // beyond name and section
  while ((static_cast<uchar>(longer[at]) & 0x80U) != 0) ++at;    // the offset, to its last byte
  longer.replace(at + 1, 5, QByteArray::fromHex("ffffffff7f"));  // the length
  const auto file = Open(Stamped(longer));
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->Read("/velta.css"), QByteArray());
}

}  // namespace
}  // namespace velta::qt
