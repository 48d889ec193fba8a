#include "ui/qt/help_viewer.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include "ui/qt/text.h"

namespace velta::qt {

bool HelpViewer::OpenContents(std::string_view file) {
  const QString path = ToQString(file);
  return QFileInfo(path).isFile() && QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

bool HelpViewer::OpenTopic(std::string_view file, int /*topic*/) { return OpenContents(file); }

}  // namespace velta::qt
