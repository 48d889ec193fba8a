#include "ui/qt/list_columns.h"

#include <QEvent>
#include <QListWidget>
#include <QScrollBar>

namespace velta::qt {

bool ListColumns::event(QEvent* event) {
  // By then the form has made the lists.
  if (event->type() == QEvent::Polish) {
    const auto lists = findChildren<QListWidget*>(Qt::FindDirectChildrenOnly);
    for (const auto* list : lists) {
      for (auto* other : lists) {
        connect(list->verticalScrollBar(), &QScrollBar::valueChanged, other->verticalScrollBar(),
                &QScrollBar::setValue);
      }
    }
  }
  return QWidget::event(event);
}

}  // namespace velta::qt
