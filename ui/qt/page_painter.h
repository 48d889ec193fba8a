#pragma once

#include <QFont>
#include <QPrinter>

#include "ui/printer.h"

namespace velta::qt {

// In points. The cells' places come from here and never from a font's own widths, which a printer
// rounds to its dots: over 90 cells that adds up to a fifth of a cell.
inline constexpr double kPageMargin = 27;
inline constexpr double kCellWidth = 6;
inline constexpr double kLineHeight = 12;

/// Draws the pages of a document that the user wants on the printer, in a font of fixed pitch.
/// False where the printer or the file refuses.
bool PaintPages(QPrinter& printer, const ui::PrintedDocument& document, const QFont& font);

}  // namespace velta::qt
