#pragma once

#include "app/status_line.h"
#include "ui/printer.h"

namespace velta {

/// Print a document on a printer that the user chooses in the system's dialog, respectively on his
/// default printer (with the dialog where there is none). Where it went to a file, the status line
/// says to which. Return false where the user cancelled. A printer that fails: Error 482.
bool PrintWithDialog(ui::Printer& printer, StatusLine& status, const ui::PrintedDocument& document);
bool PrintOnDefaultPrinter(ui::Printer& printer, StatusLine& status,
                           const ui::PrintedDocument& document);

}  // namespace velta
