#include "ui/qt/printer.h"

#include <cups/cups.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontInfo>
#include <QLineEdit>
#include <QPageLayout>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QStandardPaths>

#include "ui/qt/page_painter.h"
#include "ui/qt/text.h"

namespace velta::qt {

namespace {

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

/// Whether the file is a PDF up to its last line. Qt does not say when the disk was full.
bool IsWholePdf(const QString& path) {
  static const QByteArray kEnd = "%%EOF\n";
  QFile file(path);
  return file.open(QFile::ReadOnly) && file.seek(file.size() - kEnd.size()) &&
         file.read(kEnd.size()) == kEnd;
}

/// Where the folder of the last printed file is kept, apart from the user's settings.
QSettings Memory() {
  const QString application = QCoreApplication::applicationName();
  return {QSettings::IniFormat, QSettings::UserScope, application, "printing"};
}
constexpr const char* kLastFolder = "folder";

/// The folder of the last printed file; at first the user's documents.
QDir FolderForFiles() {
  const QString last = Memory().value(kLastFolder).toString();
  if (!last.isEmpty() && QDir(last).exists()) return {last};
  const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  return documents.exists() ? documents : QDir::home();
}

/// A name that every file system takes, also that of the debtor to whom the file is sent.
QString FileName(QString document_name) {
  constexpr int kLongest = 120;  // 255 bytes hold it in any script of Europe
  static const QRegularExpression kForbidden(R"([/\\:*?"<>|\x00-\x1F\x7F])");
  document_name.replace(kForbidden, "-");
  document_name.truncate(kLongest);
  return document_name.trimmed() + ".pdf";
}

/// What the user has typed, with a folder and an ending.
QString WholeFileName(const QString& typed, const QDir& folder) {
  // Digits are a number at the end of the name and no ending: "Faktura 10.3.2005".
  static const QRegularExpression kEnding(R"(\.[A-Za-z][A-Za-z0-9]{1,4}$)");
  QString name = typed.trimmed();
  if (name.isEmpty() || name.endsWith('/')) return name;  // Qt says what is wrong
  return folder.absoluteFilePath(kEnding.match(name).hasMatch() ? name : name + ".pdf");
}

/// The dialog's button that does `role`.
QAbstractButton* ButtonOf(const QPrintDialog& dialog, QDialogButtonBox::ButtonRole role) {
  const auto* const buttons = dialog.findChild<QDialogButtonBox*>();
  if (buttons == nullptr) return nullptr;
  for (QAbstractButton* const button : buttons->buttons()) {
    if (buttons->buttonRole(button) == role) return button;
  }
  return nullptr;
}

/// Suggests a file for a printout that goes to one, and completes what the user types instead.
void SuggestFile(const QPrintDialog& dialog, const QString& document_name) {
  auto* const file_name = dialog.findChild<QLineEdit*>("filename");
  const auto* const print = ButtonOf(dialog, QDialogButtonBox::AcceptRole);
  if (file_name == nullptr || print == nullptr) return;
  const QDir folder = FolderForFiles();
  file_name->setText(folder.filePath(FileName(document_name)));
  // When the button is released Qt looks already whether there is such a file.
  QObject::connect(print, &QAbstractButton::pressed, file_name, [file_name, folder] {
    file_name->setText(WholeFileName(file_name->text(), folder));
  });
}

/// Opens the lower part of the dialog, where the copies are. Its button is the one that neither
/// prints nor cancels.
void ShowCopies(const QPrintDialog& dialog) {
  auto* const options = ButtonOf(dialog, QDialogButtonBox::ResetRole);
  if (options != nullptr) options->click();
}

}  // namespace

std::unique_ptr<QPrinter> MakePagePrinter() {
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  printer->setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                     QMarginsF(kPageMargin, kPageMargin, kPageMargin, kPageMargin),
                                     QPageLayout::Point));
  return printer;
}

std::string PrintJob::file() const {
  if (printer_->outputFormat() != QPrinter::PdfFormat) return "";
  return ToUtf8(QFileInfo(printer_->outputFileName()).absoluteFilePath());
}

bool PrintJob::Print(const ui::PrintedDocument& document) {
  const QFont font = CellFont(document);
  if (!QFontInfo(font).fixedPitch()) return false;  // a page of ragged columns is no document
  printer_->setDocName(ToQString(document.name));
  const QString file = ToQString(this->file());
  if (!PaintPages(*printer_, document, font)) return false;
  if (file.isEmpty()) {
    // Qt hands the job to the print server when the painter ends, and keeps its answer to itself.
    return cupsLastError() <= IPP_STATUS_OK_EVENTS_COMPLETE;
  }
  if (!IsWholePdf(file)) return false;
  Memory().setValue(kLastFolder, QFileInfo(file).absolutePath());
  return true;
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
