#include "ui/qt/picture_box.h"

#include <QPainter>

#include "ui/qt/pictures.h"

namespace velta::qt {

void PictureBox::setPicture(const QString& name) {
  picture_ = Picture(name);
  update();
}

void PictureBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  picture_.paint(&painter, rect());
}

}  // namespace velta::qt
