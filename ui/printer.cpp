#include "ui/printer.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace velta::ui {

namespace {

/// Takes the character off that `text` begins with.
std::string_view TakeCharacter(std::string_view& text) {
  std::size_t length = 1;
  while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) {
    ++length;
  }
  const std::string_view character = text.substr(0, length);
  text.remove_prefix(length);
  return character;
}

/// Whether the character has no place of its own: it is drawn onto the one before it.
bool IsCombiningMark(std::string_view character) {
  struct Range {
    std::string_view first;
    std::string_view last;
  };
  // UTF-8 sorts as the characters do.
  static constexpr std::array<Range, 5> kMarks = {{{"\u0300", "\u036F"},
                                                   {"\u1AB0", "\u1AFF"},
                                                   {"\u1DC0", "\u1DFF"},
                                                   {"\u20D0", "\u20FF"},
                                                   {"\uFE20", "\uFE2F"}}};
  return std::any_of(kMarks.begin(), kMarks.end(), [&](const Range& marks) {
    return marks.first <= character && character <= marks.last;
  });
}

}  // namespace

std::vector<std::string_view> Cells(std::string_view text) {
  std::vector<std::string_view> cells;
  while (!text.empty()) {
    const std::string_view character = TakeCharacter(text);
    if (cells.empty() || !IsCombiningMark(character)) {
      cells.push_back(character);
    } else {
      cells.back() = {cells.back().data(), cells.back().size() + character.size()};
    }
  }
  return cells;
}

std::vector<std::size_t> PageStarts(const std::vector<PrintedLine>& lines) {
  constexpr std::size_t kPage = kLinesOfPage;
  std::vector<std::size_t> starts = {0};
  std::size_t end = 0;
  for (std::size_t block = 0; block < lines.size(); block = end) {
    end = block + 1;
    while (end < lines.size() && lines[end - 1].keep_with_next) ++end;
    if (end - starts.back() <= kPage) continue;
    if (end - block <= kPage) starts.push_back(block);
    while (end - starts.back() > kPage) starts.push_back(starts.back() + kPage);
  }
  return starts;
}

}  // namespace velta::ui
