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
  const auto lists = findChildren<TableColumn*>(Qt::FindDirectChildrenOnly);
  const auto labels = findChildren<QLabel*>(Qt::FindDirectChildrenOnly);
  for (TableColumn* list : lists) {
    columns_.append({list, nullptr});
    for (QLabel* label : labels) {
      if (label->buddy() == list) columns_.last().heading = label;
    }
    const QScrollBar* bar = list->verticalScrollBar();
    for (TableColumn* other : lists) {
      connect(bar, &QScrollBar::valueChanged, other, [list, other](int value) {
        if (other->count() == list->count()) other->verticalScrollBar()->setValue(value);
      });
    }
    connect(bar, &QScrollBar::rangeChanged, this, &ListColumns::Arrange);
  }
  Arrange();
}

void ListColumns::Arrange() {
  for (qsizetype i = 0; i < columns_.size(); ++i) {
    const auto& [list, heading] = columns_[i];
    const bool has_bar = i + 1 == columns_.size() || columns_[i + 1].list->count() != list->count();
    const auto policy = has_bar ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
    if (policy != list->verticalScrollBarPolicy()) list->setVerticalScrollBarPolicy(policy);
    // A heading ends where its column does.
    const bool bar_is_shown = has_bar && list->verticalScrollBar()->maximum() > 0;
    const int bar = bar_is_shown ? list->verticalScrollBar()->sizeHint().width() : 0;
    if (heading != nullptr) heading->setContentsMargins(0, 0, bar, 0);
  }
}

}  // namespace velta::qt
