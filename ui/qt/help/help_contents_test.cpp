#include "ui/qt/help/help_contents.h"

#include <gtest/gtest.h>

namespace velta::qt {
namespace {

QByteArray Item(const QByteArray& name, const QByteArray& page) {
  return "<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"" + name + "\">" +
         (page.isEmpty() ? "" : "<param name=\"Local\" value=\"" + page + "\">") + "</OBJECT>\r\n";
}

TEST(HelpContentsTest, ListsWithinListsAreATree) {
  const QByteArray hhc = "<HTML><BODY><UL>" + Item("Home", "home.html") + Item("Group", "") +
                         "<UL>" + Item("One", "one.html") + "</UL>" + Item("Two", "two.html") +
                         "</UL></BODY></HTML>";
  EXPECT_EQ(ReadHelpContents(hhc), (QList<HelpEntry>{{"Home", "home.html", 0},
                                                     {"Group", "", 0},
                                                     {"One", "one.html", 1},
                                                     {"Two", "two.html", 0}}));
}

TEST(HelpContentsTest, TextsAreWindows1250) {
  struct Row {
    const char* bytes;
    const char16_t* text;
  };
  const Row rows[] = {
      {"P\xF8\xEDli\x9A \x9Elu\x9Dou\xE8k\xFD k\xF9\xF2", u"Příliš žluťoučký kůň"},
      {"\xDApln\xEC \x8A\xCD\xD8\xCD \x8E\x8D \xD9", u"Úplně ŠÍŘÍ ŽŤ Ů"},
      {"\x84\x89 ro\xE8n\xEC\x93 \x96 5 K\xE8\x85", u"„‰ ročně“ – 5 Kč…"},
      {"\xFF\x81", u"˙\uFFFD"},
      {"&lt;a &amp; b&gt;", u"<a & b>"},
  };
  for (const Row& row : rows) {
    const auto entries = ReadHelpContents("<ul>" + Item(row.bytes, "") + "</ul>");
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries[0].title.toStdU16String(), row.text) << row.bytes;
  }
}

TEST(HelpContentsTest, WhatIsNoContentsIsPassedOver) {
  for (const char* text : {"", "<ul>", "</ul></ul>", "<param name=\"Name\" value=\"x\">",
                           "<<<<object", "<param name=\"Name\" value=\""}) {
    EXPECT_EQ(ReadHelpContents(text), QList<HelpEntry>()) << text;
  }
  const auto entries = ReadHelpContents("</ul></ul>" + Item("x", "") + "<ul><ul>" + Item("y", ""));
  EXPECT_EQ(entries, (QList<HelpEntry>{{"x", "", 0}, {"y", "", 0}}));
}

}  // namespace
}  // namespace velta::qt
