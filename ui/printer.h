#pragma once

#include <memory>
#include <string>
#include <vector>

namespace velta::ui {

/// One line of a printed page: a row of character cells of equal width, the first cell at the left
/// edge of the printable area.
struct PrintedLine {
  std::string text;  ///< UTF-8, one cell a character, no line ends and no tabs
  bool bold = false;
};

/// How many cells a line and how many lines a page has at the most. Where a printer's margins are
/// wider the page gets smaller.
inline constexpr int kCellsOfLine = 90;
inline constexpr int kLinesOfPage = 65;

/// What is to be printed, as plain data: the printer draws it and adds nothing. The lines run on to
/// a next page where one is full.
struct PrintedDocument {
  std::string name;  ///< for the printer's queue
  /// Asked for; a fixed-pitch face with Czech letters stands in where it is absent.
  std::string font;
  int point_size = 0;
  std::vector<PrintedLine> lines;
};

/// A printer that has been chosen, with the number of copies.
class PrintJob {
 public:
  virtual ~PrintJob() = default;

  virtual int copies() const = 0;
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
