#include "shell/common/printing.h"

#include <memory>

#include "shell/common/error.h"

namespace velta {

namespace {

bool Print(const std::unique_ptr<ui::PrintJob>& job, const ui::PrintedDocument& document) {
  if (job == nullptr) return false;
  if (!job->Print(document)) throw Error(ErrorNumber::kPrinter);
  return true;
}

}  // namespace

bool PrintWithDialog(Program& program, const ui::PrintedDocument& document) {
  return Print(program.platform.printer.AskUser(document.name), document);
}

bool PrintOnDefaultPrinter(Program& program, const ui::PrintedDocument& document) {
  return Print(program.platform.printer.Default(document.name), document);
}

}  // namespace velta
