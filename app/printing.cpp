#include "app/printing.h"

#include <memory>

#include "values/error.h"

namespace velta {

namespace {

bool Print(Program& program, const std::unique_ptr<ui::PrintJob>& job,
           const ui::PrintedDocument& document) {
  if (job == nullptr) return false;
  if (!job->Print(document)) throw Error(ErrorNumber::kPrinter);
  if (!job->file().empty()) program.status.ShowHint("Uloženo do souboru " + job->file());
  return true;
}

}  // namespace

bool PrintWithDialog(Program& program, const ui::PrintedDocument& document) {
  return Print(program, program.platform.printer.AskUser(document.name), document);
}

bool PrintOnDefaultPrinter(Program& program, const ui::PrintedDocument& document) {
  return Print(program, program.platform.printer.Default(document.name), document);
}

}  // namespace velta
