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

TEST(PageTest, TextWrittenAtAColumnGoesOnThere) {
  Page page("");
  page.WriteAt(88, "čtyři");
  page.WriteAt(90, "|");
  page.EndLine();
  page.WriteAt(3, "");
  page.Write("x");
  EXPECT_EQ(Lines(page), (std::vector<std::string>{std::string(87, ' ') + "čty",
                                                   std::string(87, ' ') + "ři|", "  x"}));
}

TEST(PageTest, PassedColumnIsMetInTheNextLineAndTheTextGoesOnThere) {
  Page page("");
  page.WriteAt(80, "0123456");
  page.WriteAt(85, "abcdefgh");
  EXPECT_EQ(Lines(page), (std::vector<std::string>{std::string(79, ' ') + "0123456",
                                                   std::string(84, ' ') + "abcdef",
                                                   std::string(84, ' ') + "gh"}));
}

TEST(PageTest, CountsTheLinesThatAreEnded) {
  Page page("");
  EXPECT_EQ(page.LineCount(), 0);
  page.EmptyLines(2);
  page.Write(std::string(91, 'x'));
  EXPECT_EQ(page.LineCount(), 3);
  page.EndLine();
  EXPECT_EQ(page.LineCount(), 4);
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
