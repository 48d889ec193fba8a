#include "ui/printer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velta::ui {
namespace {

using ::testing::ElementsAre;

/// So many lines, of which those of a block are joined; blocks are [first, last].
struct Block {
  std::size_t first;
  std::size_t last;
};
std::vector<PrintedLine> Lines(std::size_t count, const std::vector<Block>& blocks = {}) {
  std::vector<PrintedLine> lines(count);
  for (const Block& block : blocks) {
    for (std::size_t i = block.first; i < block.last; ++i) lines[i].keep_with_next = true;
  }
  return lines;
}

TEST(PageStartsTest, PageHasSixtyFiveLines) {
  EXPECT_THAT(PageStarts({}), ElementsAre(0));
  EXPECT_THAT(PageStarts(Lines(65)), ElementsAre(0));
  EXPECT_THAT(PageStarts(Lines(66)), ElementsAre(0, 65));
  EXPECT_THAT(PageStarts(Lines(131)), ElementsAre(0, 65, 130));
}

TEST(PageStartsTest, BlockThatDoesNotFitBeginsTheNextPage) {
  EXPECT_THAT(PageStarts(Lines(70, {{60, 64}})), ElementsAre(0, 65)) << "it ends with the page";
  EXPECT_THAT(PageStarts(Lines(70, {{60, 65}})), ElementsAre(0, 60));
  EXPECT_THAT(PageStarts(Lines(140, {{64, 65}, {125, 131}})), ElementsAre(0, 64, 125));
}

TEST(PageStartsTest, BlockLongerThanAPageIsBrokenWhereThePageIsFull) {
  EXPECT_THAT(PageStarts(Lines(75, {{10, 74}})), ElementsAre(0, 10)) << "just a page";
  EXPECT_THAT(PageStarts(Lines(100, {{10, 75}})), ElementsAre(0, 65));
  EXPECT_THAT(PageStarts(Lines(200, {{0, 199}})), ElementsAre(0, 65, 130, 195));
}

}  // namespace
}  // namespace velta::ui
