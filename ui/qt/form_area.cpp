#include "ui/qt/form_area.h"

#include <QApplication>

namespace velta::qt {

FormArea::FormArea(QWidget* parent) : QScrollArea(parent) {
  setWidgetResizable(true);
  setFrameShape(NoFrame);
  setFocusPolicy(Qt::NoFocus);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*old*/, QWidget* now) {
    if (now != nullptr && widget() != nullptr && widget()->isAncestorOf(now)) {
      ensureWidgetVisible(now);
    }
  });
}

QSize FormArea::sizeHint() const {
  return widget() == nullptr ? QScrollArea::sizeHint() : widget()->sizeHint();
}

/// About a line of a form: enough to go through it by the keyboard.
QSize FormArea::minimumSizeHint() const { return QSize(30, 4) * fontMetrics().height(); }

}  // namespace velta::qt
