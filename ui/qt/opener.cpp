#include "ui/qt/opener.h"

#include <QDesktopServices>
#include <QUrl>

#include "ui/qt/text.h"

namespace velta::qt {

bool Opener::Open(std::string_view address) {
  return QDesktopServices::openUrl(QUrl(ToQString(address)));
}

}  // namespace velta::qt
