#include "shell/common/page.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velta {
namespace {

std::vector<std::string> Lines(Page& page) {
  std::vector<std::string> lines;
  for (const ui::PrintedLine& line : page.Take().lines) lines.push_back(line.text);
  return lines;
}

TEST(PageTest, IsPrintedInCourierNewCeAtTenPoints) {
  Page page("Zkouška");
  const ui::PrintedDocument document = page.Take();
  EXPECT_EQ(document.name, "Zkouška");
  EXPECT_EQ(document.font, "Courier New CE");
  EXPECT_EQ(document.point_size, 10);
  EXPECT_TRUE(document.lines.empty());
}

TEST(PageTest, ColumnsCountFromOneAndCzechLettersAreOneCell) {
  Page page("");
  page.MoveTo(5);
  page.Write("Žluťoučký ‰");
  page.MoveTo(20);
  page.Write("x");
  page.EndLine();
  EXPECT_EQ(Lines(page), (std::vector<std::string>{"    Žluťoučký ‰    x"}));
}

TEST(PageTest, MoveToAPassedColumnGoesToTheNextLine) {
  Page page("");
  page.Write("12345");
  page.MoveTo(6);  // just where the text stands
  page.Write("6");
  page.MoveTo(6);
  page.Write("|");
  EXPECT_EQ(Lines(page), (std::vector<std::string>{"123456", "     |"}));
}

TEST(PageTest, TextBeyondTheLastColumnGoesOnInTheNextLine) {
  Page page("");
  page.MoveTo(89);
  page.Write("abcd");
  page.EndLine();
  page.Write("e");
  EXPECT_EQ(Lines(page), (std::vector<std::string>{std::string(88, ' ') + "ab", "cd", "e"}));
}

TEST(PageTest, TabsGoToTheNextEighthColumn) {
  Page page("");
  page.Write("\ta\tb");
  page.EndLine();
  page.Write("žluťoučk\t|");  // columns 1 to 8: the next stop is a whole width on
  page.EndLine();
  page.Write("1234567\t|\t\t|");
  EXPECT_EQ(Lines(page), (std::vector<std::string>{"        a       b", "žluťoučk        |",
                                                   "1234567 |               |"}));
}

TEST(PageTest, TabBeyondTheLastStopGoesToTheNextLine) {
  Page page("");
  page.MoveTo(89);  // the last stop
  page.Write("\tx");
  EXPECT_EQ(Lines(page), (std::vector<std::string>{std::string(90, ' '), "x"}));
}

TEST(PageTest, WritesLinesAsTheirTextEndsThem) {
  struct Row {
    const char* text;
    std::vector<std::string> lines;
  };
  const Row rows[] = {
      {"", {}},
      {"\r\n", {""}},
      {"jeden\r\ndva\r\n", {"jeden", "dva"}},
      {"jeden\ndva", {"jeden", "dva"}},
      {"jeden\r\n\r\n\ttři", {"jeden", "", "        tři"}},
  };
  for (const Row& row : rows) {
    Page page("");
    page.WriteLines(row.text);
    EXPECT_EQ(Lines(page), row.lines) << row.text;
  }
}

TEST(PageTest, LinesWrittenAtOnceGoOnFromTheLineThatHasBegun) {
  Page page("");
  page.Write("Postup: ");
  page.WriteLines("první\r\ndruhý\r\n");
  EXPECT_EQ(Lines(page), (std::vector<std::string>{"Postup: první", "druhý"}));
}

TEST(PageTest, BoldIsALineThatEndsWhileItIsOn) {
  Page page("");
  page.Write("obyčejný");
  page.EndLine();
  page.SetBold(true);
  page.Write("tučný");
  page.EndLine();
  page.WriteLines("také\r\n");
  page.SetBold(false);
  page.Write("zas obyčejný");
  std::vector<bool> bold;
  for (const ui::PrintedLine& line : page.Take().lines) bold.push_back(line.bold);
  EXPECT_EQ(bold, (std::vector<bool>{false, true, true, false}));
}

TEST(PageTest, FullLineIsNotFollowedByAnEmptyOne) {
  Page page("");
  page.Write(std::string(90, 'x'));
  page.EndLine();
  page.EmptyLines(2);
  page.Write("y");
  EXPECT_EQ(Lines(page), (std::vector<std::string>{std::string(90, 'x'), "", "", "y"}));
}

}  // namespace
}  // namespace velta
