#include "ui/qt/launcher.h"

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

namespace velta::qt {

namespace {

/// What the common desktops have in place of the two programs, the fullest first.
QStringList Candidates(std::string_view program) {
  if (program == "calc.exe") {
    return {"gnome-calculator", "kcalc", "mate-calc", "galculator", "qalculate-gtk", "xcalc"};
  }
  if (program == "notepad.exe") {
    return {"gnome-text-editor", "gedit", "kwrite", "kate", "mousepad", "xed", "featherpad"};
  }
  return {};
}

}  // namespace

bool Launcher::Start(std::string_view program) {
  for (const QString& candidate : Candidates(program)) {
    const QString file = QStandardPaths::findExecutable(candidate);
    if (!file.isEmpty()) return QProcess::startDetached(file, {});
  }
  return false;
}

}  // namespace velta::qt
