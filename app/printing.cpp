#include "app/printing.h"

#include <memory>

#include "values/error.h"

namespace velta {

namespace {

bool Print(const std::unique_ptr<ui::PrintJob>& job, StatusLine& status,
           const ui::PrintedDocument& document) {
  if (job == nullptr) return false;
  if (!job->Print(document)) throw Error(ErrorNumber::kPrinter);
  if (!job->file().empty()) status.ShowHint("Uloženo do souboru " + job->file());
  return true;
}

}  // namespace

bool PrintWithDialog(ui::Printer& printer, StatusLine& status,
                     const ui::PrintedDocument& document) {
  return Print(printer.AskUser(document.name), status, document);
}

bool PrintOnDefaultPrinter(ui::Printer& printer, StatusLine& status,
                           const ui::PrintedDocument& document) {
  return Print(printer.Default(document.name), status, document);
}

}  // namespace velta
