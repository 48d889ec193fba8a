#include "shell/common/page.h"

#include <cstddef>
#include <utility>

namespace velta {

namespace {

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

void Page::Write(std::string_view text) {
  while (!text.empty()) {
    if (column_ > kColumns) EndLine();
    const std::size_t length = CharacterLength(text);
    line_ += text.substr(0, length);
    text.remove_prefix(length);
    ++column_;
  }
}

void Page::EndLine() {
  document_.lines.push_back({std::exchange(line_, {})});
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
