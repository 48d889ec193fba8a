#pragma once

#include <string>
#include <string_view>

#include "ui/printer.h"

namespace velta {

/// Writes a printed page by character columns, counted from 1 at the left edge. Text that does not
/// fit into a line goes on at the start of the next; nothing is cut off.
class Page {
 public:
  /// An empty page in the font of all printouts, "Courier New CE" at 10 points.
  explicit Page(std::string name);

  /// Goes to a column; where the text already stands beyond it, to that column of the next line.
  void MoveTo(int column);
  /// Tabs go to the next of the columns 9, 17, …
  void Write(std::string_view text) { WriteFrom(1, text); }
  /// Writes at a column, and goes on at that column where the text does not fit into the line.
  void WriteAt(int column, std::string_view text);
  /// Writes whole lines, ended by CR LF, CR or LF; the last one may lack its end.
  void WriteLines(std::string_view text);
  /// Lines that end from now on are bold, or not.
  void SetBold(bool bold) { bold_ = bold; }
  void EndLine();
  void EmptyLines(int count);

  /// How many lines have been ended.
  int LineCount() const { return static_cast<int>(document_.lines.size()); }

  /// The finished document. A line that has been begun is ended.
  ui::PrintedDocument Take();

 private:
  void WriteFrom(int first_column, std::string_view text);

  ui::PrintedDocument document_;
  std::string line_;
  int column_ = 1;  // where the next character goes
  bool bold_ = false;
};

}  // namespace velta
