#include "batch/csv_parser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velta {
namespace {

using ::testing::ElementsAreArray;

struct RecordRow {
  const char* name;
  char separator;
  std::string record;
  std::vector<std::string> fields;
};

const RecordRow kRecords[] = {
    {"plain", ';', "a;b;c\n", {"a", "b", "c"}},
    {"CR LF", ';', "a;b\r\n", {"a", "b"}},
    {"no line end", ';', "a;b", {"a", "b"}},
    {"another separator", ',', "a;b,c\n", {"a;b", "c"}},
    {"tab", '\t', "a\t\tc\n", {"a", "", "c"}},
    {"empty fields", ';', ";;\r\n", {"", "", ""}},
    {"blanks are part of a field", ';', " a ; b\n", {" a ", " b"}},
    {"quoted", ';', "\"a;b\";c\n", {"a;b", "c"}},
    {"quoted last field before CR LF", ';', "a;\"b\"\r\n", {"a", "b"}},
    {"quotes within", ';', "\"a \"\"b\"\"\";c\n", {"a \"b\"", "c"}},
    {"line ends within", ';', "\"a\r\nb\";c\r\n", {"a\r\nb", "c"}},
    {"a quote in an unquoted field", ';', "5\" disk;c\n", {"5\" disk", "c"}},
    {"an empty field at the end", ';', "a;\r\n", {"a", ""}},
    {"no separator", ';', "a\n", {"a"}},
    {"empty line", ';', "\n", {}},
    {"empty line of CR LF", ';', "\r\n", {}},
};

TEST(CsvParserTest, TakesRecordsApart) {
  for (const RecordRow& row : kRecords) {
    CsvParser parser(row.separator);
    EXPECT_TRUE(parser.Take(row.record)) << row.name;
    EXPECT_THAT(parser.fields(), ElementsAreArray(row.fields)) << row.name;
  }
}

TEST(CsvParserTest, AQuotedFieldGoesOnInTheNextLine) {
  CsvParser parser(';');
  EXPECT_FALSE(parser.Take("1;\"a\n"));
  EXPECT_FALSE(parser.Take("b;c\n"));
  EXPECT_TRUE(parser.Take("d\";2\n"));
  EXPECT_THAT(parser.fields(), testing::ElementsAre("1", "a\nb;c\nd", "2"));
  EXPECT_TRUE(parser.Take("3;4\n"));
  EXPECT_THAT(parser.fields(), testing::ElementsAre("3", "4"));
}

TEST(CsvParserTest, TheLibrarySaysTheSameOfLinesWithoutQuotes) {
  for (const RecordRow& row : kRecords) {
    if (row.record.find('"') != std::string::npos || row.fields.empty()) continue;
    CsvParser parser(row.separator);
    // A quoted field before it takes the way through the library.
    ASSERT_TRUE(parser.Take("\"\"" + std::string(1, row.separator) + row.record)) << row.name;
    const auto& fields = parser.fields();
    EXPECT_THAT(std::vector<std::string_view>(fields.begin() + 1, fields.end()),
                ElementsAreArray(row.fields))
        << row.name;
  }
}

}  // namespace
}  // namespace velta
