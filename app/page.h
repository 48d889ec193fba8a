#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ui/printer.h"

namespace velta {

/// How many cells the widest line of a text takes.
int WidthOf(const std::vector<std::string>& lines);

/// A text as it stands at a column in so many cells: where it is wider it goes on in a further
/// line, broken between words; a word that is wider still is broken where it must. A line end in
/// the text (CR LF, LF or CR) ends a line here too, a tab goes to the next of the columns 9, 17, …,
/// and a letter with its accent is one character. There is always one line at least.
std::vector<std::string> Wrapped(std::string_view text, int column, int width);

/// Writes a printed page by character columns, counted from 1 at the left edge.
class Page {
 public:
  /// An empty page in the font of all printouts, "Courier New CE" at 10 points.
  explicit Page(std::string name);

  /// Writes at a column, or at that column of the next line where the text already stands beyond
  /// it. What does not fit into the line is wrapped and goes on at that column.
  void WriteAt(int column, std::string_view text);
  /// Writes whole lines from column 1, ended by CR LF, CR or LF; the last one may lack its end.
  /// Those up to an empty one stay together. With a `value_column`, what follows a line's first tab
  /// stands there.
  void WriteLines(std::string_view text, int value_column = 0);
  /// Lines that end from now on are bold, or not.
  void SetBold(bool bold) { bold_ = bold; }
  void EndLine();
  void EmptyLines(int count);

  /// How many lines have been ended: in all, and on the last page.
  int LineCount() const { return static_cast<int>(document_.lines.size()); }
  int LinesOnLastPage() const;

  /// Keeps the lines from `first_line` on (what LineCount said before them) on one page, where one
  /// can hold them.
  void KeepTogether(int first_line);

  /// The finished document. A line that has been begun is ended.
  ui::PrintedDocument Take();

 private:
  void MoveTo(int column);

  ui::PrintedDocument document_;
  std::string line_;
  int column_ = 1;  // where the next character goes
  bool bold_ = false;
};

}  // namespace velta
