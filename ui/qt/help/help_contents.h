#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace velta::qt {

/// One line of the help's contents tree.
struct HelpEntry {
  QString title;
  QString page;   ///< as the file names it; empty for a heading
  int level = 0;  ///< 0 for the top of the tree

  bool operator==(const HelpEntry&) const = default;
};

/// Reads the contents file of a compiled help: lists within lists, in windows-1250. What it does
/// not know it passes over.
QList<HelpEntry> ReadHelpContents(const QByteArray& hhc);

}  // namespace velta::qt
