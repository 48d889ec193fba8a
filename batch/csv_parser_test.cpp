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

}  // namespace
}  // namespace velta
