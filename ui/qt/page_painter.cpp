#include "ui/qt/page_painter.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageRanges>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cstddef>
#include <qrcodegen/qrcodegen.hpp>
#include <string_view>
#include <utility>
#include <vector>

#include "ui/qt/text.h"
#include "values/letters.h"

namespace velta::qt {

namespace {

// The number of a page stands below its lines, in small print.
constexpr double kSmallPrint = 7;
constexpr double kPageWidth = ui::kCellsOfLine * kCellWidth;
constexpr double kPageHeight = ui::kLinesOfPage * kLineHeight + kSmallPrint + 1;

/// The characters of one page by line and cell, and which of them are parts of longer lines.
class CellGrid {
 public:
  CellGrid(const std::vector<ui::PrintedLine>& lines, std::size_t first, std::size_t end) {
    for (std::size_t i = first; i < end; ++i) rows_.push_back(Cells(lines[i].text));
  }

  std::size_t Width(std::size_t row) const { return rows_[row].size(); }
  /// Empty beyond the page's edges.
  std::string_view At(std::size_t row, std::size_t cell) const {
    return row < rows_.size() && cell < rows_[row].size() ? rows_[row][cell] : "";
  }
  bool IsBar(std::size_t row, std::size_t cell) const { return At(row, cell) == "|"; }
  /// One of three hyphens or more: two alone are a dash in a text.
  bool IsRule(std::size_t row, std::size_t cell) const {
    if (At(row, cell) != "-") return false;
    std::size_t first = cell;
    while (first > 0 && At(row, first - 1) == "-") --first;
    return At(row, first + 1) == "-" && At(row, first + 2) == "-";
  }
  /// A bar that goes on in one above it or below, or reaches from rule to rule. A bar within a text
  /// that stands next to a rule does neither.
  bool IsJoinedBar(std::size_t row, std::size_t cell) const {
    if (!IsBar(row, cell)) return false;
    return IsBar(row + 1, cell) ||
           (row > 0 && (IsBar(row - 1, cell) || (IsRule(row - 1, cell) && IsRule(row + 1, cell))));
  }
  /// Whether a rule reaches that bar from a side.
  bool IsInRule(std::size_t row, std::size_t cell) const {
    return IsRule(row, cell + 1) || (cell > 0 && IsRule(row, cell - 1));
  }

 private:
  std::vector<std::vector<std::string_view>> rows_;
};

/// The modules of a code, dark ones as rectangles of one unit's height.
QPainterPath ModulesOf(const qrcodegen::QrCode& code) {
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  for (int y = 0; y < code.getSize(); ++y) {
    for (int x = 0, end = 0; x < code.getSize(); x = end + 1) {
      for (end = x; code.getModule(end, y);) ++end;  // outside the code all is light
      if (end > x) path.addRect(x, y, end - x, 1);
    }
  }
  return path;
}

/// Paints in the printer's dots.
class PagePainter {
 public:
  PagePainter(QPrinter& printer, const ui::PrintedDocument& document, const QFont& font)
      : printer_(printer), document_(document), font_(font) {}

  bool Paint() {
    const QSizeF paper = printer_.pageLayout().paintRect(QPageLayout::Point).size();
    if (paper.isEmpty() || !painter_.begin(&printer_)) return false;
    // Where a printer cannot print as close to the paper's edge, the page gets smaller, not cut
    // off.
    const double scale = std::min({1.0, paper.width() / kPageWidth, paper.height() / kPageHeight});
    painter_.scale(scale, scale);
    dot_ = printer_.resolution() / 72.0;
    ascent_ = QFontMetricsF(font_, &printer_).ascent();
    bar_ = OutlineOf("|");
    hyphen_ = OutlineOf("-");

    const std::vector<std::size_t> starts = ui::PageStarts(document_.lines);
    bool first_page = true;  // that the painter has begun
    for (std::size_t page = 0; page < starts.size(); ++page) {
      if (!IsChosen(static_cast<int>(page) + 1)) continue;
      if (!std::exchange(first_page, false) && !printer_.newPage()) return false;
      const bool last = page + 1 == starts.size();
      DrawPage(starts[page], last ? document_.lines.size() : starts[page + 1]);
      if (page > 0) DrawPageNumber(page + 1, starts.size());
    }
    return painter_.end();
  }

 private:
  /// Whether the user wants that page; they are counted from 1.
  bool IsChosen(int page) const {
    return printer_.printRange() != QPrinter::PageRange || printer_.pageRanges().contains(page);
  }

  /// Where the ink of a character is, from its place on the baseline.
  QRectF OutlineOf(const QString& character) const {
    QPainterPath path;
    path.addText(0, 0, InDots(font_.pointSizeF()), character);
    return path.boundingRect();
  }

  /// The font in a size that is given in points.
  QFont InDots(double points) const {
    QFont font = font_;
    font.setPixelSize(qRound(points * dot_));
    return font;
  }

  double Left(std::size_t cell) const { return static_cast<double>(cell) * kCellWidth * dot_; }
  double Top(std::size_t row) const { return static_cast<double>(row) * kLineHeight * dot_; }
  double RuleTop(std::size_t row) const { return Top(row) + ascent_ + hyphen_.top(); }
  double RuleBottom(std::size_t row) const { return Top(row) + ascent_ + hyphen_.bottom(); }

  void DrawPage(std::size_t first, std::size_t end) {
    const CellGrid grid(document_.lines, first, end);
    for (std::size_t row = 0; row < end - first; ++row) {
      DrawRules(grid, row);
      for (std::size_t cell = 0; cell < grid.Width(row); ++cell) {
        DrawBar(grid, row, cell);
        DrawCharacter(grid, row, cell, document_.lines[first + row].bold);
      }
    }
    const auto& code = document_.code;
    if (code && first <= code->line && code->line < end) DrawCode(*code, code->line - first);
  }

  /// Lines through the rules of a row, up to the bars at their ends.
  void DrawRules(const CellGrid& grid, std::size_t row) {
    for (std::size_t cell = 0, end = 0; cell < grid.Width(row); cell = end + 1) {
      for (end = cell; grid.IsRule(row, end);) ++end;
      if (end == cell) continue;
      const bool bar_before = cell > 0 && grid.IsBar(row, cell - 1);
      const double left = bar_before ? Left(cell - 1) + bar_.left() : Left(cell);
      const double right = grid.IsBar(row, end) ? Left(end) + bar_.right() : Left(end);
      painter_.fillRect(QRectF(QPointF(left, RuleTop(row)), QPointF(right, RuleBottom(row))),
                        Qt::black);
    }
  }

  /// The line through the bars that stand below each other from this one on, up to the rules that
  /// it meets at its ends.
  void DrawBar(const CellGrid& grid, std::size_t row, std::size_t cell) {
    if (!grid.IsJoinedBar(row, cell) || (row > 0 && grid.IsBar(row - 1, cell))) return;
    std::size_t last = row;
    while (grid.IsBar(last + 1, cell)) ++last;
    const bool rule_above = row > 0 && grid.IsRule(row - 1, cell);
    const bool rule_below = grid.IsRule(last + 1, cell);
    double top = Top(row);
    if (rule_above) top = RuleTop(row - 1);
    if (grid.IsInRule(row, cell)) top = RuleTop(row);
    double bottom = Top(last + 1);
    if (rule_below) bottom = RuleBottom(last + 1);
    if (grid.IsInRule(last, cell)) bottom = RuleBottom(last);
    painter_.fillRect(
        QRectF(QPointF(Left(cell) + bar_.left(), top), QPointF(Left(cell) + bar_.right(), bottom)),
        Qt::black);
  }

  void DrawCharacter(const CellGrid& grid, std::size_t row, std::size_t cell, bool bold) {
    const std::string_view character = grid.At(row, cell);
    if (character == " ") return;
    QFont font = font_;
    font.setBold(bold);
    painter_.setFont(font);
    // A character that a line goes through belongs to the page's text but not to its picture: its
    // edges would show beside the line where a screen rounds both to its dots. So it is drawn
    // behind a hole in which it has no ink, the upper left corner of its cell.
    const bool joined = grid.IsRule(row, cell) || grid.IsJoinedBar(row, cell);
    if (joined) painter_.setClipRect(QRectF(Left(cell), Top(row), 1, 1));
    painter_.drawText(QPointF(Left(cell), Top(row) + ascent_), ToQString(character));
    if (joined) painter_.setClipping(false);
  }

  void DrawPageNumber(std::size_t page, std::size_t pages) {
    const QString text = QString("strana %1 / %2").arg(page).arg(pages);
    painter_.setFont(InDots(kSmallPrint));
    const double width = QFontMetricsF(InDots(kSmallPrint), &printer_).horizontalAdvance(text);
    painter_.drawText(
        QPointF(Left(ui::kCellsOfLine) - width, Top(ui::kLinesOfPage) + kSmallPrint * dot_), text);
  }

  void DrawCode(const ui::PrintedCode& code, std::size_t row) {
    const auto modules =
        qrcodegen::QrCode::encodeText(code.payload.c_str(), qrcodegen::QrCode::Ecc::MEDIUM);
    const double size = code.height * kLineHeight * dot_;
    const double left = Left(static_cast<std::size_t>(code.column - 1));
    painter_.save();
    painter_.translate(left, Top(row));
    painter_.scale(size / modules.getSize(), size / modules.getSize());
    painter_.fillPath(ModulesOf(modules), Qt::black);
    painter_.restore();

    // Drawn and not written: the page's text is its lines and nothing else.
    const QString caption = ToQString(code.caption);
    const QFontMetricsF metrics(InDots(kSmallPrint), &printer_);
    constexpr double kBelow = kLineHeight + 0.5 * kSmallPrint;
    const double middle = left + (size - metrics.horizontalAdvance(caption)) / 2;
    QPainterPath letters;
    letters.addText(middle, Top(row) + size + kBelow * dot_, InDots(kSmallPrint), caption);
    painter_.fillPath(letters, Qt::black);
  }

  QPrinter& printer_;
  const ui::PrintedDocument& document_;
  const QFont font_;
  QPainter painter_;
  double dot_ = 1;  // how many of the printer's dots a point has
  // Of the font, in dots: where the baseline lies below a line's top, and the ink of the characters
  // that are joined.
  double ascent_ = 0;
  QRectF bar_;
  QRectF hyphen_;
};

}  // namespace

bool PaintPages(QPrinter& printer, const ui::PrintedDocument& document, const QFont& font) {
  return PagePainter(printer, document, font).Paint();
}

}  // namespace velta::qt
