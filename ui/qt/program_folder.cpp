#include "ui/qt/program_folder.h"

#include <QCoreApplication>
#include <QFileInfo>

#include "ui/qt/text.h"

namespace velta::qt {

namespace {

QFileInfo ProgramFile() {
  return QFileInfo(QFileInfo(QCoreApplication::applicationFilePath()).canonicalFilePath());
}

}  // namespace

std::string ProgramFolder::Path() const { return ToUtf8(ProgramFile().path()); }

std::string ProgramFolder::ExecutableName() const {
  return ToUtf8(ProgramFile().completeBaseName());
}

}  // namespace velta::qt
