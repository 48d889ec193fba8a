#include "ui/qt/svg_picture.h"

#include <QPainter>

namespace velta::qt {

void SvgPicture::setSource(const QString& file) {
  renderer_.load(file);
  renderer_.setAspectRatioMode(Qt::KeepAspectRatio);
  update();
}

void SvgPicture::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  renderer_.render(&painter, rect());
}

}  // namespace velta::qt
