#include "shell/common/page.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace velta {

namespace {

constexpr int kTabWidth = 8;

/// How many bytes the character takes that `text` begins with.
std::size_t CharacterLength(std::string_view text) {
  std::size_t length = 1;
  while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) {
    ++length;
  }
  return length;
}

}  // namespace

Page::Page(std::string name) {
  document_.name = std::move(name);
  document_.font = "Courier New CE";
  document_.point_size = 10;
}

void Page::MoveTo(int column) {
  if (column_ > column) EndLine();
  line_.append(static_cast<std::size_t>(column - column_), ' ');
  column_ = column;
}

void Page::WriteAt(int column, std::string_view text) {
  MoveTo(column);
  WriteFrom(column, text);
}

void Page::WriteFrom(int first_column, std::string_view text) {
  while (!text.empty()) {
    if (column_ > ui::kCellsOfLine) {
      EndLine();
      MoveTo(first_column);
    }
    const std::size_t length = CharacterLength(text);
    const std::string_view character = text.substr(0, length);
    text.remove_prefix(length);
    if (character == "\t") {
      const int stop = column_ + kTabWidth - (column_ - 1) % kTabWidth;
      MoveTo(std::min(stop, ui::kCellsOfLine + 1));
    } else {
      line_ += character;
      ++column_;
    }
  }
}

void Page::WriteLines(std::string_view text) {
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
    Write(line);
    EndLine();
    text.remove_prefix(line.size());
    if (!text.empty()) text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
  }
}

void Page::EndLine() {
  document_.lines.push_back({std::exchange(line_, {}), bold_});
  column_ = 1;
}

void Page::EmptyLines(int count) {
  for (int i = 0; i < count; ++i) EndLine();
}

ui::PrintedDocument Page::Take() {
  if (column_ > 1) EndLine();
  return std::move(document_);
}

}  // namespace velta
