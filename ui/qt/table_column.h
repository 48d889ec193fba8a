#pragma once

#include <QListWidget>

namespace velta::qt {

/// A list that is a column of a table, or a table of its own where its rows have tabs: what stands
/// behind them is a column at the right edge. The blanks that end a row are not shown.
class TableColumn final : public QListWidget {
  Q_OBJECT

 public:
  explicit TableColumn(QWidget* parent = nullptr);

  /// Rows are numbers: they end at the right edge, one below the other. For the form to set.
  void setNumeric(bool numeric);
  /// How many rows are seen where there is room for them. For the form to set.
  void setRowsInView(int rows) { rows_in_view_ = rows; }

  QSize sizeHint() const override;
  /// So wide that no row is cut off.
  QSize minimumSizeHint() const override;
  void reset() override;

 protected:
  void rowsInserted(const QModelIndex& parent, int start, int end) override;

 private:
  int HeightOf(int rows) const;

  int rows_in_view_ = 10;
  int widest_ = 0;  // row, in pixels
};

}  // namespace velta::qt
