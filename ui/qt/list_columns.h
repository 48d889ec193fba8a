#pragma once

#include <QFrame>
#include <QList>

namespace velta::qt {

class TableColumn;

/// Holds lists that stand side by side as the columns of one table: those with the same number of
/// rows scroll as one, and only the last of them has a scroll bar. Above each stands its heading,
/// the label whose buddy it is.
class ListColumns final : public QFrame {
  Q_OBJECT

 public:
  explicit ListColumns(QWidget* parent = nullptr);

 protected:
  bool event(QEvent* event) override;

 private:
  void Connect();
  void Arrange();

  QList<TableColumn*> lists_;
};

}  // namespace velta::qt
