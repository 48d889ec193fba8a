#include "ui/qt/printer.h"

#include <cups/cups.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFontInfo>
#include <QLineEdit>
#include <QPageLayout>
#include <QPageRanges>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QPushButton>
#include <QStandardPaths>
#include <algorithm>
#include <utility>

#include "ui/qt/text.h"

namespace velta::qt {

namespace {

// In points. The cells' places come from here and never from a font's own widths, which a printer
// rounds to its dots: over 90 cells that adds up to a fifth of a cell.
constexpr double kMargin = 27;
constexpr double kCellWidth = 6;
constexpr double kLineHeight = 12;
constexpr double kPageWidth = ui::kCellsOfLine * kCellWidth;
constexpr double kPageHeight = ui::kLinesOfPage * kLineHeight;

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
    const QSizeF paper = printer_.pageLayout().paintRect(QPageLayout::Point).size();
    if (paper.isEmpty() || !painter_.begin(&printer_)) return false;
    // Where a printer cannot print as close to the paper's edge, the page gets smaller, not cut
    // off.
    const double scale = std::min({1.0, paper.width() / kPageWidth, paper.height() / kPageHeight});
    painter_.scale(scale, scale);
    const double dots = printer_.resolution() / 72.0;  // a point's
    const double ascent = QFontMetricsF(font_, &printer_).ascent();
    bool first_page = true;  // that the painter has begun
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const std::size_t row = i % ui::kLinesOfPage;
      if (!IsChosen(static_cast<int>(i / ui::kLinesOfPage) + 1)) continue;
      if (row == 0 && !std::exchange(first_page, false) && !printer_.newPage()) return false;
      DrawLine(lines[i], dots, ascent + static_cast<double>(row) * kLineHeight * dots);
    }
    return painter_.end();
  }

 private:
  /// Whether the user wants that page; they are counted from 1.
  bool IsChosen(int page) const {
    return printer_.printRange() != QPrinter::PageRange || printer_.pageRanges().contains(page);
  }

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

/// Whether the file is a PDF up to its last line. Qt does not say when the disk was full.
bool IsWholePdf(const QString& path) {
  static const QByteArray kEnd = "%%EOF\n";
  QFile file(path);
  return file.open(QFile::ReadOnly) && file.seek(file.size() - kEnd.size()) &&
         file.read(kEnd.size()) == kEnd;
}

/// Suggests a file in the user's documents for a printout that goes to a file.
void SuggestFile(QPrintDialog& dialog, const QString& document_name) {
  auto* const file_name = dialog.findChild<QLineEdit*>("filename");
  if (file_name == nullptr) return;
  const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  const QDir folder = documents.exists() ? documents : QDir::home();
  file_name->setText(folder.filePath(document_name + ".pdf"));
}

/// Opens the lower part of the dialog, where the copies are. Its button is the one that neither
/// prints nor cancels.
void ShowCopies(const QPrintDialog& dialog) {
  const auto* const buttons = dialog.findChild<QDialogButtonBox*>();
  if (buttons == nullptr) return;
  for (QAbstractButton* const button : buttons->buttons()) {
    if (buttons->buttonRole(button) == QDialogButtonBox::ResetRole) button->click();
  }
}

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
  if (to_file) return IsWholePdf(printer_->outputFileName());
  // Qt hands the job to the print server when the painter ends, and keeps its answer to itself.
  return cupsLastError() <= IPP_STATUS_OK_EVENTS_COMPLETE;
}

std::unique_ptr<ui::PrintJob> Printer::AskUser(const std::string& document_name) {
  const EventLoop::Pause pause(event_loop_);
  auto printer = MakePagePrinter();
  QWidget* const asking = QApplication::activeWindow();
  QPrintDialog dialog(printer.get(), asking);
  dialog.setOption(QAbstractPrintDialog::PrintShowPageSize, false);  // the layout is for A4
  SuggestFile(dialog, ToQString(document_name));
  ShowCopies(dialog);
  const bool accepted = dialog.exec() == QDialog::Accepted;
  // With the question whether to replace a file two dialogs go at once, and the desktop may give
  // the keyboard to the one that is just going.
  if (asking != nullptr) asking->activateWindow();
  if (!accepted) return nullptr;
  return std::make_unique<PrintJob>(std::move(printer));
}

std::unique_ptr<ui::PrintJob> Printer::Default(const std::string& document_name) {
  // Without a default printer Qt would take just any.
  if (QPrinterInfo::defaultPrinter().isNull()) return AskUser(document_name);
  return std::make_unique<PrintJob>(MakePagePrinter());
}

}  // namespace velta::qt
