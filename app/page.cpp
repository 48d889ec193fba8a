#include "app/page.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <span>
#include <utility>

#include "values/letters.h"

namespace velta {

namespace {

constexpr int kTabWidth = 8;

using CellRow = std::span<const std::string_view>;

/// Takes the first line of a text off; the line end goes with it.
std::string_view TakeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
  text.remove_prefix(line.size());
  text.remove_prefix(text.starts_with("\r\n") ? 2 : std::min<std::size_t>(1, text.size()));
  return line;
}

/// The line with its accents composed and blanks for its tabs, standing at a column.
std::string Plain(std::string_view line, int column) {
  const std::string composed = Composed(line);
  std::string plain;
  for (const std::string_view cell : Cells(composed)) {
    if (cell == "\t") {
      const int blanks = kTabWidth - (column - 1) % kTabWidth;
      plain.append(static_cast<std::size_t>(blanks), ' ');
      column += blanks;
    } else {
      plain += cell;
      ++column;
    }
  }
  return plain;
}

bool IsBlank(std::string_view cell) { return cell == " "; }

CellRow WithoutBlanksAtEnd(CellRow cells) {
  while (!cells.empty() && IsBlank(cells.back())) cells = cells.first(cells.size() - 1);
  return cells;
}

/// How many cells of a text that is too wide go into the first line: up to the last blank before
/// which there is a word, or else the whole width.
std::size_t LengthOfLine(CellRow cells, std::size_t width) {
  for (std::size_t length = width; length > 0; --length) {
    if (!IsBlank(cells[length])) continue;
    return WithoutBlanksAtEnd(cells.first(length)).empty() ? width : length;
  }
  return width;
}

void AddWrapped(std::vector<std::string>& lines, CellRow cells, std::size_t width) {
  const auto add = [&](CellRow line) {
    std::string& text = lines.emplace_back();
    for (const std::string_view cell : line) text += cell;
  };
  while (cells.size() > width) {
    const std::size_t length = LengthOfLine(cells, width);
    add(WithoutBlanksAtEnd(cells.first(length)));
    cells = cells.subspan(length);
    while (!cells.empty() && IsBlank(cells.front())) cells = cells.subspan(1);
    if (cells.empty()) return;
  }
  add(cells);
}

}  // namespace

int WidthOf(const std::vector<std::string>& lines) {
  std::size_t width = 0;
  for (const std::string& line : lines) width = std::max(width, Cells(line).size());
  return static_cast<int>(width);
}

std::vector<std::string> Wrapped(std::string_view text, int column, int width) {
  std::vector<std::string> lines;
  do {
    const std::string line = Plain(TakeLine(text), column);
    AddWrapped(lines, Cells(line), static_cast<std::size_t>(std::max(width, 1)));
  } while (!text.empty());
  return lines;
}

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
  const auto lines = Wrapped(text, column, ui::kCellsOfLine + 1 - column);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i > 0) EndLine();
    MoveTo(column);
    line_ += lines[i];
    column_ += WidthOf({lines[i]});
  }
}

void Page::WriteLines(std::string_view text, int value_column) {
  int paragraph = LineCount();
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    if (line.empty()) {
      KeepTogether(paragraph);
      EndLine();
      paragraph = LineCount();
      continue;
    }
    const std::size_t tab = value_column > 0 ? line.find('\t') : std::string_view::npos;
    WriteAt(1, line.substr(0, tab));
    if (tab != std::string_view::npos) WriteAt(value_column, line.substr(tab + 1));
    EndLine();
  }
  KeepTogether(paragraph);
}

void Page::EndLine() {
  document_.lines.push_back({std::exchange(line_, {}), bold_});
  column_ = 1;
}

void Page::EmptyLines(int count) {
  for (int i = 0; i < count; ++i) EndLine();
}

int Page::LinesOnLastPage() const {
  return LineCount() - static_cast<int>(ui::PageStarts(document_.lines).back());
}

void Page::KeepTogether(int first_line) {
  for (std::size_t i = static_cast<std::size_t>(first_line); i + 1 < document_.lines.size(); ++i) {
    document_.lines[i].keep_with_next = true;
  }
}

ui::PrintedDocument Page::Take() {
  if (column_ > 1) EndLine();
  return std::move(document_);
}

}  // namespace velta
