#include "ui/qt/printer.h"

#include <cups/cups.h>

#include <QApplication>
#include <QFontInfo>
#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>

#include "ui/qt/text.h"

namespace velta::qt {

namespace {

// In points. The cells' places come from here and never from a font's own widths, which a printer
// rounds to its dots: over 90 cells that adds up to a fifth of a cell.
constexpr double kMargin = 27;
constexpr double kCellWidth = 6;
constexpr double kLineHeight = 12;
constexpr int kLinesOfPage = 65;

/// The asked font, or a fixed-pitch one with Czech letters that is as wide.
QFont CellFont(const ui::PrintedDocument& document) {
  QFont font;
  font.setFamilies(
      {ToQString(document.font), "Courier New", "Liberation Mono", "DejaVu Sans Mono"});
  font.setStyleHint(QFont::TypeWriter);
  font.setFixedPitch(true);
  font.setPointSize(document.point_size);
  return font;
}

class CellPainter {
 public:
  CellPainter(QPrinter& printer, const QFont& font) : printer_(printer), font_(font) {}

  /// False where the printer or the file refuses.
  bool Draw(const std::vector<ui::PrintedLine>& lines) {
    if (!painter_.begin(&printer_)) return false;
    const double dots = printer_.resolution() / 72.0;  // a point's
    painter_.setFont(font_);
    const double ascent = QFontMetricsF(font_, &printer_).ascent();
    int row = 0;
    for (const ui::PrintedLine& line : lines) {
      if (row == kLinesOfPage) {
        if (!printer_.newPage()) return false;
        row = 0;
      }
      DrawLine(line, dots, ascent + row * kLineHeight * dots);
      ++row;
    }
    return painter_.end();
  }

 private:
  void DrawLine(const ui::PrintedLine& line, double dots, double baseline) {
    QFont font = font_;
    font.setBold(line.bold);
    painter_.setFont(font);
    int cell = 0;
    for (const char32_t character : ToQString(line.text).toUcs4()) {
      if (character != U' ') {
        painter_.drawText(QPointF(cell * kCellWidth * dots, baseline),
                          QString::fromUcs4(&character, 1));
      }
      ++cell;
    }
  }

  QPrinter& printer_;
  QFont font_;
  QPainter painter_;
};

}  // namespace

std::unique_ptr<QPrinter> MakePagePrinter() {
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  printer->setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                     QMarginsF(kMargin, kMargin, kMargin, kMargin),
                                     QPageLayout::Point));
  return printer;
}

bool PrintJob::Print(const ui::PrintedDocument& document) {
  const QFont font = CellFont(document);
  if (!QFontInfo(font).fixedPitch()) return false;  // a page of ragged columns is no document
  printer_->setDocName(ToQString(document.name));
  const bool to_file = printer_->outputFormat() == QPrinter::PdfFormat;
  if (!CellPainter(*printer_, font).Draw(document.lines)) return false;
  // Whether the print server took the job it does not tell Qt, only whoever asks for its last
  // answer.
  return to_file || cupsLastError() <= IPP_STATUS_OK_EVENTS_COMPLETE;
}

std::unique_ptr<ui::PrintJob> Printer::AskUser(const std::string& document_name) {
  const EventLoop::Pause pause(event_loop_);
  auto printer = MakePagePrinter();
  printer->setDocName(ToQString(document_name));  // what a file is called at first
  QPrintDialog dialog(printer.get(), QApplication::activeWindow());
  dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
  dialog.setOption(QAbstractPrintDialog::PrintShowPageSize, false);
  if (dialog.exec() != QDialog::Accepted) return nullptr;
  return std::make_unique<PrintJob>(std::move(printer));
}

}  // namespace velta::qt
