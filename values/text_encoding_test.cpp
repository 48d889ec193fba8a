#include "values/text_encoding.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace velta {
namespace {

TEST(TextEncodingTest, KnowsUtf8) {
  for (const char* text : {"", "plain", "Příliš žluťoučký kůň", "€ – „“", "\U0001F600 \U0010FFFF",
                           "\uD7FF\uE000\u0080\u07FF\u0800\uFFFF\U00010000"}) {
    EXPECT_TRUE(IsUtf8(text)) << text;
  }
}

TEST(TextEncodingTest, KnowsWhatIsNoUtf8) {
  struct Row {
    const char* name;
    const char* bytes;
  };
  const Row rows[] = {
      {"windows-1250", "P\xF8\xEDli\x9A"},
      {"a character without its beginning", "\xA9"},
      {"one without its end", "a\xC4"},
      {"one that ASCII breaks off", "\xC4 x"},
      {"three bytes that end early", "\xE2\x82"},
      {"four bytes that end early", "\xF0\x9F\x98"},
      {"two bytes for a character of one", "\xC1\xBF"},
      {"three bytes for a character of two", "\xE0\x9F\xBF"},
      {"four bytes for a character of three", "\xF0\x8F\xBF\xBF"},
      {"a half of a pair", "\xED\xA0\x80"},
      {"beyond the last character", "\xF4\x90\x80\x80"},
      {"a byte that begins nothing", "\xFF"},
  };
  for (const Row& row : rows) EXPECT_FALSE(IsUtf8(row.bytes)) << row.name;
}

TEST(TextEncodingTest, AWrongByteIsFoundWhereverItStands) {
  for (std::size_t length = 1; length < 30; ++length) {
    for (std::size_t position = 0; position < length; ++position) {
      std::string text(length, 'a');
      EXPECT_TRUE(IsUtf8(text));
      text[position] = '\xE8';
      EXPECT_FALSE(IsUtf8(text)) << position << " of " << length;
    }
  }
}

// The expected texts are written down from the published table of the encoding.
TEST(TextEncodingTest, ReadsWindows1250) {
  EXPECT_EQ(FromWindows1250("P\xF8\xEDli\x9A \x9Elu\x9Dou\xE8k\xFD k\xF9\xF2, \xFA\xECl \xEF\xF3"),
            "Příliš žluťoučký kůň, úěl ďó");
  EXPECT_EQ(FromWindows1250("P\xD8\xCDLI\x8A \x8ELU\x8DOU\xC8K\xDD K\xD9\xD2 \xCF\xDA\xCC\xD3\xC9"),
            "PŘÍLIŠ ŽLUŤOUČKÝ KŮŇ ĎÚĚÓÉ");
  EXPECT_EQ(FromWindows1250("\x84\x89 ro\xE8n\xEC\x93 \x96 5\xA0K\xE8\x85\t\r\n"),
            "„‰ ročně“ – 5\u00A0Kč…\t\r\n");
  EXPECT_EQ(FromWindows1250("\x80\xA7\xDF\xFF"), "€§ß˙");
  EXPECT_EQ(FromWindows1250("\x81\x83\x88\x90\x98"), "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(TextEncodingTest, TextIsReadInTheEncodingThatItIsIn) {
  EXPECT_EQ(DecodedText("Příliš"), "Příliš");
  EXPECT_EQ(DecodedText("P\xF8\xEDli\x9A"), "Příliš");
  EXPECT_EQ(DecodedText(""), "");
}

}  // namespace
}  // namespace velta
