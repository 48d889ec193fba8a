#include "batch/block_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "batch/input_error.h"

namespace velta {
namespace {

using ::testing::ElementsAre;

/// Reads a text, at most `at_once` bytes at a time, as a pipe may hand it out.
ReadBytes Reading(std::string text, std::size_t at_once = 1000000) {
  return [text = std::move(text), at_once, position = std::size_t{0}](char* to,
                                                                      std::size_t size) mutable {
    const std::size_t count = std::min({size, at_once, text.size() - position});
    std::copy_n(text.data() + position, count, to);
    position += count;
    return count;
  };
}

std::vector<std::vector<std::string>> Blocks(BlockReader& reader) {
  std::vector<std::vector<std::string>> blocks;
  Block block;
  while (reader.Next(block)) {
    auto& records = blocks.emplace_back();
    for (std::size_t i = 0; i < block.ends.size(); ++i) {
      records.emplace_back(block.Record(i));
    }
  }
  return blocks;
}

/// The line and the reason.
std::string ReadingFails(const std::string& text, std::size_t block_size = 16) {
  try {
    BlockReader reader(Reading(text), block_size);
    reader.Header({});
    Blocks(reader);
  } catch (const InputError& error) {
    return std::to_string(error.line()) + ": " + error.what();
  }
  return "";
}

TEST(BlockReaderTest, FindsTheSeparatorByTheNames) {
  struct Row {
    const char* header;
    char separator;
  };
  for (const Row& row : {Row{"splatnost;zaplaceno;castka, Kč;druh\n", ';'},
                         Row{"splatnost,zaplaceno,castka,\"a;b;c;d;e\"\n", ','},
                         Row{"Splatnost\tzaplaceno\tČástka\tdruh\n", '\t'}, Row{"splatnost", ';'},
                         Row{"nic z toho, co má být\n", ';'}}) {
    BlockReader reader(Reading(row.header));
    EXPECT_EQ(reader.Header({}), row.header);
    EXPECT_EQ(reader.separator(), row.separator) << row.header;
  }
  BlockReader reader(Reading("splatnost;castka\n"));
  reader.Header(',');
  EXPECT_EQ(reader.separator(), ',') << "as it was said";
}

TEST(BlockReaderTest, TheMarkIsNoPartOfTheFirstName) {
  BlockReader reader(Reading("\xEF\xBB\xBFsplatnost;a\r\n1;2\r\n"));
  EXPECT_EQ(reader.Header({}), "splatnost;a\r\n");
  EXPECT_TRUE(reader.has_mark());
  EXPECT_THAT(Blocks(reader), ElementsAre(ElementsAre("1;2\r\n")));
}

TEST(BlockReaderTest, CutsAtTheEndsOfRecordsHoweverTheBytesCome) {
  const std::string text = "splatnost;a\n1;2\n\"3\n;4\";5\r\n\n6;7 \"8\n9;10";
  for (const std::size_t block_size : {1U, 2U, 3U, 5U, 8U, 13U, 1000U}) {
    for (const std::size_t at_once : {1U, 4U, 1000U}) {
      BlockReader reader(Reading(text, at_once), block_size);
      reader.Header({});
      std::vector<std::string> records;
      for (const auto& block : Blocks(reader)) {
        records.insert(records.end(), block.begin(), block.end());
      }
      EXPECT_THAT(records, ElementsAre("1;2\n", "\"3\n;4\";5\r\n", "\n", "6;7 \"8\n", "9;10"))
          << block_size << ' ' << at_once;
    }
  }
}

TEST(BlockReaderTest, LinesAreCountedOverQuotedOnes) {
  BlockReader reader(Reading("splatnost;\"a\nb\"\n1;\"2\n3\"\n4;5\n"), 1);
  reader.Header({});
  Block block;
  ASSERT_TRUE(reader.Next(block));
  EXPECT_EQ(block.first_line, 3U);
  ASSERT_TRUE(reader.Next(block));
  EXPECT_EQ(block.first_line, 5U);
  EXPECT_FALSE(reader.Next(block));
}

TEST(BlockReaderTest, RowsOfOneInvoiceStayTogether) {
  const std::string text = "a;splatnost\nA;1\nA;2\n A;3\nB;4\n;5\n;6\n;7\nC;8\nD;9\nD;10\n";
  for (const std::size_t block_size : {1U, 6U, 10U, 20U, 1000U}) {
    BlockReader reader(Reading(text), block_size);
    reader.Header({});
    reader.KeepTogether(0);
    std::string all;
    for (const auto& block : Blocks(reader)) {
      for (const std::string& record : block) all += record;
      EXPECT_NE(block.back(), "A;1\n") << block_size;
      EXPECT_NE(block.back(), "A;2\n") << block_size;
      EXPECT_NE(block.back(), "D;9\n") << block_size;
    }
    EXPECT_EQ("a;splatnost\n" + all, text) << block_size;
  }
}

TEST(BlockReaderTest, RowsWithoutAnInvoiceDoNotMakeABlockGrow) {
  std::string text = "a;splatnost\n";
  for (int i = 0; i < 100; ++i) text += ";1\n";
  BlockReader reader(Reading(text), 30);
  reader.Header({});
  reader.KeepTogether(0);
  EXPECT_GT(Blocks(reader).size(), 5U);
}

TEST(BlockReaderTest, WhatCannotBeReadIsToldWithItsLine) {
  const std::string open = "uvozovky, které zde začínají, nikde nekončí";
  const std::string header = "splatnost;a\n";
  EXPECT_EQ(ReadingFails(""), "0: soubor je prázdný");
  EXPECT_EQ(ReadingFails("\xEF\xBB\xBF"), "0: soubor je prázdný");
  EXPECT_EQ(ReadingFails(header), "");
  EXPECT_EQ(ReadingFails("\"splatnost;a\n1;2\n"), "1: " + open);
  EXPECT_EQ(ReadingFails(header + "1;2\n\"3;4\n5;6\n"), "3: " + open);
  const std::string too_long(BlockReader::kMaxRecordSize + 1000, 'x');
  EXPECT_EQ(ReadingFails(header + "1;2\n\"" + too_long + "\n\";5\n", 100000), "3: " + open);
  EXPECT_EQ(ReadingFails(header + "1;2\n" + too_long + "\n", 100000), "3: řádek je příliš dlouhý");
}

}  // namespace
}  // namespace velta
