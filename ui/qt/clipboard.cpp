#include "ui/qt/clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

#include "ui/qt/text.h"

namespace velta::qt {

bool Clipboard::SetText(std::string_view text) {
  QClipboard* clipboard = QGuiApplication::clipboard();
  const QString plain = ToQString(text);
  clipboard->setText(plain);
  // Where another program holds the clipboard locked, Qt says so only by not having taken the text.
  return clipboard->text() == plain;
}

}  // namespace velta::qt
