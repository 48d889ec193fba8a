#include "ui/qt/link_button.h"

#include <QStyleOptionButton>

namespace velta::qt {

LinkButton::LinkButton(QWidget* parent) : QPushButton(parent) {
  setFlat(true);
  setCursor(Qt::PointingHandCursor);
  QFont underlined = font();
  underlined.setUnderline(true);
  setFont(underlined);
}

void LinkButton::initStyleOption(QStyleOptionButton* option) const {
  QPushButton::initStyleOption(option);
  option->palette.setBrush(QPalette::ButtonText, option->palette.link());
}

}  // namespace velta::qt
