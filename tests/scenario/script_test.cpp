#include "tests/scenario/script.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>

namespace velta::scenario {
namespace {

using std::chrono::sys_days;
using std::chrono::year;

const Names kNames = {
    {"frmMenu", {{"mnuKopirovat", Kind::kMenuItem}, {"lblMSG", Kind::kLabel}}},
    {"frmVypocet",
     {{"txtCastka", Kind::kTextBox},
      {"txtFaktura(3)", Kind::kTextBox},
      {"cboDruh", Kind::kDropDown},
      {"cboText", Kind::kEditableDropDown},
      {"lstRadky", Kind::kListBox},
      {"optZaok(1)", Kind::kOptionButton},
      {"dtpSplatnost", Kind::kDatePicker},
      {"cmdNovy", Kind::kButton},
      {"tmrRepo", Kind::kTimer}}},
};

Script Parse(const std::string& text) {
  std::istringstream in(text);
  return ParseScript(in, kNames);
}

Command ParseLine(const std::string& line) {
  const Script script = Parse(line);
  EXPECT_TRUE(script.bad_lines.empty()) << line << ": " << script.bad_lines.front().reason;
  return script.commands.empty() ? Command() : script.commands.front();
}

TEST(Script, SkipsBlankLinesAndComments) {
  const Script script = Parse("# head\n\n   \nstart\n#hint\nhint\n");
  ASSERT_EQ(script.commands.size(), 2U);
  EXPECT_EQ(script.commands[0].verb, Verb::kStart);
  EXPECT_EQ(script.commands[1].verb, Verb::kHint);
}

TEST(Script, CutsBlanksAtTheEndOfALineButKeepsThoseInAText) {
  const Command command = ParseLine("type frmVypocet.txtCastka  1 0 \\s  ");
  EXPECT_EQ(command.text, " 1 0  ");
  EXPECT_EQ(command.source, "type frmVypocet.txtCastka  1 0 \\s");
}

TEST(Script, TakesLinesThatEndWithCrLf) { EXPECT_EQ(ParseLine("start\r\n").verb, Verb::kStart); }

TEST(Script, EmptyTextEmpties) {
  const Command command = ParseLine("set frmVypocet.txtCastka");
  EXPECT_EQ(command.verb, Verb::kSet);
  EXPECT_EQ(command.text, "");
}

TEST(Script, PlacesOfArraysHaveTheirIndex) {
  EXPECT_EQ(ParseLine("type frmVypocet.txtFaktura(3) x").place.control, "txtFaktura(3)");
}

TEST(Script, DatesAndTimes) {
  const Command noon = ParseLine("today 1.2.2005");
  EXPECT_EQ(noon.day, sys_days(year{2005} / 2 / 1));
  EXPECT_EQ(noon.time, std::chrono::hours(12));
  EXPECT_EQ(ParseLine("today 15.1.2026 9:05").time, std::chrono::minutes(9 * 60 + 5));
  EXPECT_EQ(ParseLine("date frmVypocet.dtpSplatnost 29.2.2004").day, sys_days(year{2004} / 2 / 29));
}

TEST(Script, TypedDateIsAnyText) {
  EXPECT_EQ(ParseLine("typedate frmVypocet.dtpSplatnost 31.2.").text, "31.2.");
  EXPECT_EQ(ParseLine("typedate frmVypocet.dtpSplatnost zítra\\r").text, "zítra\r");
  EXPECT_EQ(ParseLine("typedate frmVypocet.dtpSplatnost").text, "");
}

TEST(Script, StoredTextMayHoldEqualSigns) {
  const Command command = ParseLine("store Nazev=a=b\\s");
  EXPECT_EQ(command.key, "Nazev");
  EXPECT_EQ(command.text, "a=b ");
}

TEST(Script, UserWithoutANameIsAFailingQuery) {
  EXPECT_FALSE(ParseLine("user").has_text);
  EXPECT_TRUE(ParseLine("user Jan Novák").has_text);
  EXPECT_EQ(ParseLine("user Jan Novák").text, "Jan Novák");
}

struct PropertyRow {
  const char* what;
  const char* line;
  const char* heading;
};

TEST(Script, PropertiesAndTheirMainOnes) {
  const PropertyRow rows[] = {
      {"text box", "get frmVypocet.txtCastka", "frmVypocet.txtCastka.text"},
      {"its placeholder", "get frmVypocet.txtCastka.placeholder",
       "frmVypocet.txtCastka.placeholder"},
      {"drop-down", "get frmVypocet.cboDruh", "frmVypocet.cboDruh.index"},
      {"date picker", "get frmVypocet.dtpSplatnost", "frmVypocet.dtpSplatnost.date"},
      {"what its field shows", "get frmVypocet.dtpSplatnost.text", "frmVypocet.dtpSplatnost.text"},
      {"editable drop-down", "get frmVypocet.cboText", "frmVypocet.cboText.index"},
      {"its text", "get frmVypocet.cboText.text", "frmVypocet.cboText.text"},
      {"list", "get frmVypocet.lstRadky", "frmVypocet.lstRadky.index"},
      {"row of a list", "get frmVypocet.lstRadky.item(0)", "frmVypocet.lstRadky.item(0)"},
      {"all rows", "get frmVypocet.lstRadky.items", "frmVypocet.lstRadky.items"},
      {"option", "get frmVypocet.optZaok(1)", "frmVypocet.optZaok(1).value"},
      {"its caption", "get frmVypocet.optZaok(1).caption", "frmVypocet.optZaok(1).caption"},
      {"button", "get frmVypocet.cmdNovy", "frmVypocet.cmdNovy.caption"},
      {"label", "get frmMenu.lblMSG", "frmMenu.lblMSG.caption"},
      {"menu item", "get frmMenu.mnuKopirovat", "frmMenu.mnuKopirovat.caption"},
      {"window", "get frmMenu", "frmMenu.caption"},
      {"window, named", "get frmMenu.caption", "frmMenu.caption"},
      {"timer", "get frmVypocet.tmrRepo.enabled", "frmVypocet.tmrRepo.enabled"},
      {"named property", "get frmVypocet.cboDruh.text", "frmVypocet.cboDruh.text"},
      {"row", "get frmVypocet.cboDruh.item(2)", "frmVypocet.cboDruh.item(2)"},
      {"element", "get frmVypocet.txtFaktura(3).enabled", "frmVypocet.txtFaktura(3).enabled"},
  };
  for (const PropertyRow& row : rows) {
    EXPECT_EQ(ParseLine(row.line).property.Text(), row.heading) << row.what;
  }
}

TEST(Script, RowsOptionsAndTextsOfEveryKind) {
  EXPECT_EQ(ParseLine("pick frmVypocet.lstRadky 12").number, 12);
  EXPECT_EQ(ParseLine("pick frmVypocet.cboText 3").number, 3);
  EXPECT_EQ(ParseLine("set frmVypocet.cboText % denně").text, "% denně");
  EXPECT_EQ(ParseLine("type frmVypocet.cboText % denně").text, "% denně");
  const Command option = ParseLine("pick frmVypocet.optZaok(1)");
  EXPECT_EQ(option.verb, Verb::kPick);
  EXPECT_EQ(option.place.control, "optZaok(1)");
  const Command clicked = ParseLine("click frmVypocet.optZaok(1)");
  EXPECT_EQ(clicked.verb, Verb::kPick) << "a click on an option picks it";
  EXPECT_EQ(clicked.source, "click frmVypocet.optZaok(1)");
}

TEST(Script, ExpectationsStandAfterTheFirstEqualSign) {
  const Command command = ParseLine("expect get frmVypocet.txtCastka = a = b\\s");
  EXPECT_TRUE(command.expects);
  EXPECT_EQ(command.verb, Verb::kGet);
  EXPECT_EQ(command.expected, "a = b ");
  EXPECT_EQ(command.expected_source, "a = b\\s");
}

TEST(Script, NothingCanBeExpected) {
  const Command command = ParseLine("expect clipboard = ");
  EXPECT_TRUE(command.expects);
  EXPECT_EQ(command.expected, "");
}

struct BadRow {
  const char* what;
  const char* line;
};

TEST(Script, BadLines) {
  const BadRow rows[] = {
      {"unknown command", "press frmVypocet.cmdNovy"},
      {"blank at the start", " start"},
      {"argument missing", "click"},
      {"argument too many", "start now"},
      {"unknown window", "close frmNikde"},
      {"unknown control", "click frmVypocet.cmdNikde"},
      {"unknown element", "get frmVypocet.txtFaktura(9)"},
      {"unknown property", "get frmVypocet.txtCastka.colour"},
      {"property of another kind", "get frmVypocet.txtCastka.caption"},
      {"property missing after its dot", "get frmVypocet.txtCastka."},
      {"row without index", "get frmVypocet.cboDruh.item"},
      {"row with a bad index", "get frmVypocet.cboDruh.item(x)"},
      {"button expected", "click frmVypocet.txtCastka"},
      {"text box expected", "type frmVypocet.dtpSplatnost 1.1.2005"},
      {"date picker expected to type into", "typedate frmVypocet.txtCastka 1.1.2005"},
      {"Enter before the end of a date", "typedate frmVypocet.dtpSplatnost 1.1.\\r2005"},
      {"Tab out of a date", "typedate frmVypocet.dtpSplatnost 1.1.2005\\t"},
      {"date picker expected", "date frmVypocet.txtCastka 1.1.2005"},
      {"menu item expected", "menu lblMSG"},
      {"row expected", "pick frmVypocet.cboDruh"},
      {"row of a list expected", "pick frmVypocet.lstRadky"},
      {"option has no rows", "pick frmVypocet.optZaok(1) 0"},
      {"nothing to pick", "pick frmVypocet.cmdNovy"},
      {"drop-down that takes no text", "set frmVypocet.cboDruh x"},
      {"drop-down that takes no keys", "type frmVypocet.cboDruh x"},
      {"list takes no text", "set frmVypocet.lstRadky x"},
      {"list is no button", "click frmVypocet.lstRadky"},
      {"list has no text of its own", "get frmVypocet.lstRadky.text"},
      {"option has no index", "get frmVypocet.optZaok(1).index"},
      {"drop-down has no placeholder", "get frmVypocet.cboText.placeholder"},
      {"button has no value", "get frmVypocet.cmdNovy.value"},
      {"negative row", "pick frmVypocet.cboDruh -1"},
      {"window where a control is expected", "click frmVypocet"},
      {"control where a window is expected", "close frmVypocet.cmdNovy"},
      {"day that does not exist", "today 29.2.2005"},
      {"date with a two-digit part missing", "today 1.2005"},
      {"day past a byte", "today 257.1.2005"},
      {"minutes of one digit", "today 1.1.2005 9:5"},
      {"hour 24", "today 1.1.2005 24:00"},
      {"unknown locale", "locale de"},
      {"unknown service", "fail network"},
      {"unknown state", "state Interest"},
      {"unknown escape", "set frmVypocet.txtCastka a\\x"},
      {"escape cut off", "set frmVypocet.txtCastka a\\"},
      {"store without key", "store =x"},
      {"store without value", "store Nazev"},
      {"no copies", "printdialog copies 0"},
      {"unknown answer", "printdialog yes"},
      {"unknown wait", "wait long"},
      {"expectation without value", "expect hint"},
      {"expectation of an act", "expect start = x"},
      {"expectation of several values", "expect get frmVypocet.cboDruh.items = 6"},
      {"key that does not exist", "type frmVypocet.txtCastka a\\nb"},
      {"pointer over a timer", "hover frmVypocet.tmrRepo"},
  };
  for (const BadRow& row : rows) {
    const Script script = Parse(std::string("# head\nstart\n") + row.line + "\n");
    ASSERT_EQ(script.bad_lines.size(), 1U) << row.what;
    EXPECT_EQ(script.bad_lines.front().number, 3) << row.what;
    EXPECT_FALSE(script.bad_lines.front().reason.empty()) << row.what;
    EXPECT_EQ(script.commands.size(), 1U) << row.what;
  }
}

TEST(Unescape, ResolvesTheFiveEscapes) {
  EXPECT_EQ(Unescape("a\\tb\\nc\\rd\\\\e\\sf"), "a\tb\nc\rd\\e f");
  EXPECT_EQ(Unescape("\\\\t"), "\\t");
  EXPECT_THROW(Unescape("\\\""), std::invalid_argument);
}

TEST(Quote, EscapesWhatWouldBreakTheLineOrTheQuotes) {
  EXPECT_EQ(Quote("a\tb\r\n\"c\" \\"), "\"a\\tb\\r\\n\\\"c\\\" \\\\\"");
  EXPECT_EQ(Quote("Kč\u00A0%"), "\"Kč\u00A0%\"");
  EXPECT_EQ(Quote(""), "\"\"");
}

TEST(Lines, EndAfterEveryLineFeed) {
  using Texts = std::vector<std::string_view>;
  struct Row {
    std::string_view text;
    Texts lines;
  };
  for (const Row& row : {Row{"", {""}}, Row{"a", {"a"}}, Row{"a\r\n", {"a\r\n"}}, Row{"\n", {"\n"}},
                         Row{"a\r\nb", {"a\r\n", "b"}}, Row{"a\n\n", {"a\n", "\n"}},
                         Row{"\n\r\n b", {"\n", "\r\n", " b"}}, Row{"a\rb", {"a\rb"}}}) {
    EXPECT_EQ(Lines(row.text), row.lines) << Quote(row.text);
  }
}

}  // namespace
}  // namespace velta::scenario
