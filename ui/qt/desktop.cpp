#include "ui/qt/desktop.h"

#include <QPainter>

namespace velta::qt {

Desktop::Desktop(QWidget* parent) : QMdiArea(parent) {
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

void Desktop::setPicture(const QString& file) {
  renderer_.load(file);
  picture_ = QPixmap();
  viewport()->update();
}

void Desktop::paintEvent(QPaintEvent* event) {
  QMdiArea::paintEvent(event);
  if (!renderer_.isValid()) return;
  if (picture_.deviceIndependentSize().toSize() != viewport()->size()) DrawPicture();
  QPainter painter(viewport());
  painter.drawPixmap(0, 0, picture_);
}

void Desktop::DrawPicture() {
  const QSizeF area = viewport()->size();
  picture_ = QPixmap((area * devicePixelRatioF()).toSize());
  picture_.setDevicePixelRatio(devicePixelRatioF());
  const QSizeF size = QSizeF(renderer_.defaultSize()).scaled(area, Qt::KeepAspectRatioByExpanding);
  const QPointF corner((area.width() - size.width()) / 2, (area.height() - size.height()) / 2);
  QPainter painter(&picture_);
  renderer_.render(&painter, QRectF(corner, size));
}

}  // namespace velta::qt
