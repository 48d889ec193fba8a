#include "ui/qt/list_columns.h"

#include <QEvent>
#include <QLabel>
#include <QScrollBar>

#include "ui/qt/table_column.h"

namespace velta::qt {

ListColumns::ListColumns(QWidget* parent) : QFrame(parent) { setFrameShape(StyledPanel); }

bool ListColumns::event(QEvent* event) {
  // By then the form has made the lists.
  if (event->type() == QEvent::Polish) Connect();
  return QFrame::event(event);
}

void ListColumns::Connect() {
  lists_ = findChildren<TableColumn*>(Qt::FindDirectChildrenOnly);
  for (const TableColumn* list : lists_) {
    const QScrollBar* bar = list->verticalScrollBar();
    for (TableColumn* other : lists_) {
      connect(bar, &QScrollBar::valueChanged, other, [list, other](int value) {
        if (other->count() == list->count()) other->verticalScrollBar()->setValue(value);
      });
    }
    connect(bar, &QScrollBar::rangeChanged, this, &ListColumns::Arrange);
  }
  Arrange();
}

void ListColumns::Arrange() {
  const auto labels = findChildren<QLabel*>(Qt::FindDirectChildrenOnly);
  for (qsizetype i = 0; i < lists_.size(); ++i) {
    TableColumn* list = lists_[i];
    const bool has_bar = i + 1 == lists_.size() || lists_[i + 1]->count() != list->count();
    const auto policy = has_bar ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
    if (policy != list->verticalScrollBarPolicy()) list->setVerticalScrollBarPolicy(policy);
    // A heading ends where its column does.
    const bool bar_is_shown = has_bar && list->verticalScrollBar()->maximum() > 0;
    const int bar = bar_is_shown ? list->verticalScrollBar()->sizeHint().width() : 0;
    for (QLabel* label : labels) {
      if (label->buddy() == list) label->setContentsMargins(0, 0, bar, 0);
    }
  }
}

}  // namespace velta::qt
