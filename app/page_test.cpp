#include "app/page.h"

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
  page.WriteAt(5, "Žluťoučký ‰");
  page.WriteAt(20, "x");
  page.EndLine();
  EXPECT_EQ(Lines(page), (std::vector<std::string>{"    Žluťoučký ‰    x"}));
}

TEST(PageTest, LettersWithTheirAccentsApartAreOneCellToo) {
  Page page("");
  page.WriteAt(1, "Z\u030Clut\u030Cy\u0301 x\u0323");
  page.WriteAt(10, "|");
  EXPECT_EQ(Lines(page), (std::vector<std::string>{"Žluťý x\u0323  |"}));
}

TEST(PageTest, PassedColumnIsMetInTheNextLine) {
  Page page("");
  page.WriteAt(1, "12345");
  page.WriteAt(6, "6");  // just where the text stands
  page.WriteAt(6, "|");
  EXPECT_EQ(Lines(page), (std::vector<std::string>{"123456", "     |"}));
}

TEST(PageTest, TabsGoToTheNextEighthColumn) {
  Page page("");
  page.WriteAt(1, "\ta\tb");
  page.EndLine();
  page.WriteAt(1, "žluťoučk\t|");  // columns 1 to 8: the next stop is a whole width on
  page.EndLine();
  page.WriteAt(1, "1234567\t|\t\t|");
  page.EndLine();
  page.WriteAt(3, "ab\t|");
  EXPECT_EQ(Lines(page), (std::vector<std::string>{"        a       b", "žluťoučk        |",
                                                   "1234567 |               |", "  ab    |"}));
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
      {"jeden\rdva\r\r", {"jeden", "dva", ""}},
      {"jeden\r\n\r\n\ttři", {"jeden", "", "        tři"}},
  };
  for (const Row& row : rows) {
    Page page("");
    page.WriteLines(row.text);
    EXPECT_EQ(Lines(page), row.lines) << row.text;
  }
}

TEST(PageTest, LinesUpToAnEmptyOneStayTogether) {
  Page page("");
  page.WriteLines("\r\njeden\r\ndva\r\n\r\n" + std::string(91, 'x') + "\n\n");
  std::vector<bool> kept;
  for (const ui::PrintedLine& line : page.Take().lines) kept.push_back(line.keep_with_next);
  EXPECT_EQ(kept, (std::vector<bool>{false, true, false, false, true, false, false}));
}

TEST(PageTest, LinesAreKeptTogetherFromTheOneThatIsNamed) {
  Page page("");
  page.EmptyLines(2);
  page.KeepTogether(2);  // none yet
  const int first_line = page.LineCount();
  page.EmptyLines(3);
  page.KeepTogether(first_line);
  page.EmptyLines(1);
  std::vector<bool> kept;
  for (const ui::PrintedLine& line : page.Take().lines) kept.push_back(line.keep_with_next);
  EXPECT_EQ(kept, (std::vector<bool>{false, false, true, true, false, false}));
}

TEST(PageTest, BoldIsALineThatEndsWhileItIsOn) {
  Page page("");
  page.WriteAt(1, "obyčejný");
  page.EndLine();
  page.SetBold(true);
  page.WriteAt(1, "tučný");
  page.EndLine();
  page.WriteLines("také\r\n");
  page.SetBold(false);
  page.WriteAt(1, "zas obyčejný");
  std::vector<bool> bold;
  for (const ui::PrintedLine& line : page.Take().lines) bold.push_back(line.bold);
  EXPECT_EQ(bold, (std::vector<bool>{false, true, true, false}));
}

TEST(PageTest, TextThatDoesNotFitGoesOnAtItsColumn) {
  Page page("");
  page.WriteAt(80, "na dva řádky");
  page.WriteAt(90, "|");
  page.EndLine();
  page.WriteAt(88, "čtyři");
  EXPECT_EQ(Lines(page), (std::vector<std::string>{
                             std::string(79, ' ') + "na dva", std::string(79, ' ') + "řádky     |",
                             std::string(87, ' ') + "čty", std::string(87, ' ') + "ři"}));
}

TEST(PageTest, LineEndInATextEndsItsLine) {
  Page page("");
  page.WriteAt(3, "jeden\r\ndva\ntři\rčtyři");
  page.WriteAt(9, "|");
  EXPECT_EQ(Lines(page), (std::vector<std::string>{"  jeden", "  dva", "  tři", "  čtyři |"}));
}

TEST(PageTest, CountsTheLinesOfTheLastPage) {
  Page page("");
  EXPECT_EQ(page.LinesOnLastPage(), 0);
  page.EmptyLines(65);
  EXPECT_EQ(page.LinesOnLastPage(), 65);
  page.EmptyLines(2);
  EXPECT_EQ(page.LinesOnLastPage(), 2);
  page.EmptyLines(62);
  page.WriteLines("dva řádky,\nkteré patří k sobě");
  EXPECT_EQ(page.LinesOnLastPage(), 2);
}

TEST(PageTest, CountsTheLinesThatAreEnded) {
  Page page("");
  EXPECT_EQ(page.LineCount(), 0);
  page.EmptyLines(2);
  page.WriteAt(1, std::string(91, 'x'));
  EXPECT_EQ(page.LineCount(), 3);
  page.EndLine();
  EXPECT_EQ(page.LineCount(), 4);
}

TEST(PageTest, FullLineIsNotFollowedByAnEmptyOne) {
  Page page("");
  page.WriteAt(1, std::string(90, 'x'));
  page.EndLine();
  page.EmptyLines(2);
  page.WriteAt(1, "y");
  EXPECT_EQ(Lines(page), (std::vector<std::string>{std::string(90, 'x'), "", "", "y"}));
}

/// How a text is wrapped into so many cells.
struct WrappedCase {
  const char* text;
  int width;
  std::vector<std::string> lines;
};

TEST(WrappedTest, BreaksBetweenWords) {
  const WrappedCase cases[] = {
      {"", 5, {""}},
      {"dva řádky", 9, {"dva řádky"}},
      {"dva řádky", 8, {"dva", "řádky"}},
      {"dva řádky", 5, {"dva", "řádky"}},
      {"a b c d", 3, {"a b", "c d"}},
      {"dva   řádky", 6, {"dva", "řádky"}},
      {"dva   řádky", 11, {"dva   řádky"}},
      {" dva  řádky", 7, {" dva", "řádky"}},
      {"žluťoučký", 4, {"žluť", "oučk", "ý"}},
      {"a žluťoučký b", 4, {"a", "žluť", "oučk", "ý b"}},
      {"   žluťoučký", 4, {"   ž", "luťo", "učký"}},
      {"mezery     ", 6, {"mezery"}},
      {"mezery     ", 11, {"mezery     "}},
      {"1\u00A0000 Kč", 6, {"1\u00A0000", "Kč"}},
      {"e\u030Ce\u030Ce\u030C e\u030C", 3, {"ěěě", "ě"}},
  };
  for (const auto& [text, width, lines] : cases) {
    EXPECT_EQ(Wrapped(text, 1, width), lines) << text << " in " << width;
  }
}

TEST(WrappedTest, LineEndsInTheTextEndLines) {
  EXPECT_EQ(Wrapped("a\nb\r\nc\rd", 1, 9), (std::vector<std::string>{"a", "b", "c", "d"}));
  EXPECT_EQ(Wrapped("a\n\nb\n", 1, 9), (std::vector<std::string>{"a", "", "b"}));
  EXPECT_EQ(Wrapped("dva řádky\ra třetí", 1, 7),
            (std::vector<std::string>{"dva", "řádky", "a třetí"}));
}

TEST(WrappedTest, TabsStandForBlanks) {
  EXPECT_EQ(Wrapped("ab\tc", 6, 20), (std::vector<std::string>{"ab c"}));
  EXPECT_EQ(Wrapped("ab\tcdefg", 1, 12), (std::vector<std::string>{"ab", "cdefg"}));
}

TEST(WrappedTest, IsAsWideAsItsWidestLine) {
  EXPECT_EQ(WidthOf({}), 0);
  EXPECT_EQ(WidthOf({"a", "žluť", "e\u030C"}), 4);
}

}  // namespace
}  // namespace velta
