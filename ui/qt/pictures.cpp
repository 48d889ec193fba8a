#include "ui/qt/pictures.h"

#include <QAbstractButton>
#include <QAction>
#include <QDir>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <algorithm>

namespace velta::qt {

namespace {

/// Shows a picture in the size that was drawn for the screen. Qt's own choice among several files
/// has changed from version to version.
class DrawnSizes final : public QIconEngine {
 public:
  explicit DrawnSizes(const QString& name) : folder_(":/pictures/" + name) {
    for (const QFileInfo& file : folder_.entryInfoList({"*.png"})) {
      sizes_.append(file.baseName().toInt());
    }
    std::sort(sizes_.begin(), sizes_.end());
  }
  [[nodiscard]] QIconEngine* clone() const override { return new DrawnSizes(*this); }
  bool isNull() override { return sizes_.isEmpty(); }
  QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
    QList<QSize> sizes;
    for (const int size : sizes_) sizes.append(QSize(size, size));
    return sizes;
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return Drawn(size, mode, state);
  }
  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                       qreal scale) override {
    // Until then the size was told in the screen's own pixels.
    return Drawn(QT_VERSION >= QT_VERSION_CHECK(6, 8, 0) ? size * scale : size, mode, state);
  }
  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    const qreal scale = painter->device()->devicePixelRatioF();
    const QPixmap drawn = Drawn(rect.size() * scale, mode, state);
    QRectF target(QPointF(), QSizeF(drawn.size()) / scale);
    target.moveCenter(QRectF(rect).center());
    painter->drawPixmap(target, drawn, drawn.rect());
  }

 private:
  /// As large as the pixels allow; reduced from the next larger size where there is none of just
  /// this.
  QPixmap Drawn(const QSize& pixels, QIcon::Mode mode, QIcon::State state) {
    const auto fitting =
        std::lower_bound(sizes_.begin(), sizes_.end(), qMin(pixels.width(), pixels.height()));
    const int size = fitting == sizes_.end() ? sizes_.last() : *fitting;
    const QIcon picture(folder_.filePath(QString("%1.png").arg(size)));
    return picture.pixmap(pixels, 1.0, mode, state);
  }

  QDir folder_;
  QList<int> sizes_;  // ascending
};

template <class Shown>
void SetPicture(Shown& shown, void (Shown::*set)(const QIcon&)) {
  const QString name = shown.property("picture").toString();
  if (!name.isEmpty()) (shown.*set)(Picture(name));
}

}  // namespace

QIcon Picture(const QString& name) {
  QIcon picture(new DrawnSizes(name));
  if (picture.isNull()) qFatal("There is no picture \"%s\".", qPrintable(name));
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
