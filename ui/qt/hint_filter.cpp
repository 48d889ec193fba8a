#include "ui/qt/hint_filter.h"

#include <QApplication>
#include <QEnterEvent>
#include <QMouseEvent>
#include <QWidget>

namespace velta::qt {

HintFilter::HintFilter() { qApp->installEventFilter(this); }

void HintFilter::Watch(QWidget& widget, const Hover& hover) {
  hovers_.insert(&widget, hover);
  connect(&widget, &QObject::destroyed, this, [this](QObject* gone) { hovers_.remove(gone); });
}

bool HintFilter::eventFilter(QObject* watched, QEvent* event) {
  const bool move = event->type() == QEvent::MouseMove;
  if ((move || event->type() == QEvent::Enter) && watched->isWidgetType()) {
    const QPointF position = static_cast<QSinglePointEvent*>(event)->globalPosition();
    PointerAt(*static_cast<QWidget*>(watched)->window(), position.toPoint());
  }
  return false;
}

void HintFilter::PointerAt(const QWidget& window, QPoint position) {
  // A pointer at rest writes nothing: neither when a box above it closes, nor when the same event
  // comes again for a parent.
  if (position == last_position_) return;
  last_position_ = position;
  if (QApplication::activeModalWidget() != nullptr) return;
  // Enter comes to the parents first, so the event's own widget need not be the innermost.
  const QWidget* widget = window.childAt(window.mapFromGlobal(position));
  if (widget == nullptr) widget = &window;
  for (; widget != nullptr; widget = widget->parentWidget()) {
    const Hover hover = hovers_.value(widget);
    if (hover && hover()) return;
  }
}

}  // namespace velta::qt
