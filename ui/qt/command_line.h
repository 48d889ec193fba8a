#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace velta::qt {

/// What the program says on the console instead of opening its windows.
struct ConsoleAnswer {
  QString text;
  int exit_code = 0;  ///< 0: asked for, to standard output; 1: a mistake, to standard error
};

/// The answer to the program's arguments, the first of which is the program itself: its version,
/// its options, or what is wrong with them. Nothing where it is to start; Qt's own options are left
/// to Qt.
std::optional<ConsoleAnswer> AnswerOnConsole(const QStringList& arguments, const QString& version);

}  // namespace velta::qt
