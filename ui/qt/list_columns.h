#pragma once

#include <QWidget>

namespace velta::qt {

/// Holds lists that stand side by side as the columns of one table: they scroll as one.
class ListColumns final : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

 protected:
  bool event(QEvent* event) override;
};

}  // namespace velta::qt
