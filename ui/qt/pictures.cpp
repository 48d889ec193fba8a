#include "ui/qt/pictures.h"

#include <QAbstractButton>
#include <QAction>
#include <QDir>

namespace velta::qt {

namespace {

template <class Shown>
void SetPicture(Shown& shown, void (Shown::*set)(const QIcon&)) {
  const QString name = shown.property("picture").toString();
  if (!name.isEmpty()) (shown.*set)(Picture(name));
}

}  // namespace

QIcon Picture(const QString& name) {
  QIcon picture;
  for (const QFileInfo& size : QDir(":/pictures/" + name).entryInfoList({"*.png"})) {
    picture.addFile(size.filePath());
  }
  if (picture.availableSizes().isEmpty()) qFatal("There is no picture \"%s\".", qPrintable(name));
  return picture;
}

void SetPictures(QWidget& window) {
  SetPicture(window, &QWidget::setWindowIcon);
  for (auto* command : window.findChildren<QAction*>()) {
    SetPicture(*command, &QAction::setIcon);
  }
  for (auto* button : window.findChildren<QAbstractButton*>()) {
    SetPicture(*button, &QAbstractButton::setIcon);
  }
}

}  // namespace velta::qt
