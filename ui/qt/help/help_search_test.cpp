#include "ui/qt/help/help_search.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include "ui/qt/help/chm_file.h"
#include "ui/qt/help/help_page.h"

namespace velta::qt {
namespace {

TEST(HelpSearchTest, AccentsAndCapitalsMakeNoDifference) {
  EXPECT_EQ(Folded("Příliš ŽLUŤOUČKÝ kůň úpěl ďábelské ódy Řím"),
            "prilis zlutoucky kun upel dabelske ody rim");
}

TEST(HelpSearchTest, BlanksAreOneAsTheOther) {
  EXPECT_EQ(Folded(QStringLiteral("1\u00A0234,50\u202FKč\nkonec\tx")), "1 234,50 kc konec x");
}

TEST(HelpSearchTest, EveryCharacterKeepsItsPlace) {
  for (const QString& text :
       {QStringLiteral("½ § ‰ – „ß“ ﬁ Ǆ \U0001F600 İ"), QStringLiteral("a\u030Cb"), QString()}) {
    EXPECT_EQ(Folded(text).size(), text.size()) << text.toStdString();
  }
}

TEST(HelpSearchTest, ReadsThePagesOfTheFile) {
  const auto file = ChmFile::Open(QCoreApplication::applicationDirPath() + "/VELTA.CHM");
  ASSERT_NE(file, nullptr);
  HelpSearch search(*file);
  for (int turn = 0; turn < 2; ++turn) {
    EXPECT_TRUE(search.IsOnPage("danovy", HelpPage::AddressOf("/otazky.html")));
    EXPECT_FALSE(search.IsOnPage("danovy", HelpPage::AddressOf("/obsah.html")));
  }
}

}  // namespace
}  // namespace velta::qt
