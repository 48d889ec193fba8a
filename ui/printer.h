#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velta::ui {

/// One line of a printed page: a row of character cells of equal width, the first cell at the left
/// edge of the printable area.
struct PrintedLine {
  std::string text;  ///< UTF-8, without line ends and tabs
  bool bold = false;
  /// Belongs to the line below: lines so joined are a block, which stands on one page where it can.
  bool keep_with_next = false;
};

/// A square code that a telephone reads (QR, error correction M). It is found by the light border
/// around it: whoever places it leaves two cells and a line free on every side.
struct PrintedCode {
  std::string payload;   ///< best of 0-9, A-Z, blank and $%*+-./: alone, which make it small
  std::string caption;   ///< in small print below it
  std::size_t line = 0;  ///< index of the line at whose top it begins
  int column = 1;        ///< where its left edge is, counted from 1
  int height = 0;        ///< in lines; it is as wide as it is high
};

/// How many cells a line and how many lines a page has at the most. Where a printer's margins are
/// wider the page gets smaller. A line is twice as high as a cell is wide.
inline constexpr int kCellsOfLine = 90;
inline constexpr int kLinesOfPage = 65;

/// What is to be printed, as plain data. The lines run on to a next page where one is full. The
/// printer adds nothing but the numbers of the pages, in the margin from the second one on; bars
/// ("|") and hyphens ("---") that meet it draws as lines without gaps.
struct PrintedDocument {
  std::string name;  ///< for the printer's queue, and for a file where it goes to one
  /// Asked for; a fixed-pitch face with Czech letters stands in where it is absent.
  std::string font;
  int point_size = 0;
  std::vector<PrintedLine> lines;
  std::optional<PrintedCode> code = std::nullopt;
};

/// The index of each page's first line; the first is 0, also where there are no lines.
std::vector<std::size_t> PageStarts(const std::vector<PrintedLine>& lines);

/// A printer that has been chosen, with the number of copies.
class PrintJob {
 public:
  virtual ~PrintJob() = default;

  virtual int copies() const = 0;
  /// The file that Print writes, with its folder; empty where it goes to a printer.
  virtual std::string file() const = 0;
  /// Prints the document that many times. Returns false where the printer or the file failed.
  [[nodiscard]] virtual bool Print(const PrintedDocument& document) = 0;
};

/// Printing.
class Printer {
 public:
  virtual ~Printer() = default;

  /// Shows the system's print dialog for a document of that name. Returns null where the user
  /// cancelled it. Without any printer the user can still print to a file.
  [[nodiscard]] virtual std::unique_ptr<PrintJob> AskUser(const std::string& document_name) = 0;

  /// One copy on the user's default printer, without a question. Where there is none the dialog is
  /// shown after all; null where the user cancelled it.
  [[nodiscard]] virtual std::unique_ptr<PrintJob> Default(const std::string& document_name) = 0;
};

}  // namespace velta::ui
