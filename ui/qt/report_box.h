#pragma once

#include <QPlainTextEdit>
#include <vector>

namespace velta::qt {

/// Shows a text that the program wrote: to read, to scroll and to copy from. With tab stops the
/// values after the last one stand in one column; without, the text is in a fixed-pitch font, with
/// a stop every eight characters or, where the form asks for it, with one column of values.
class ReportBox final : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit ReportBox(QWidget* parent = nullptr);

  /// `tab_stops` in dialog units, a quarter of the average character's width each. A stop that the
  /// text before it would pass moves right, so that the column stays one.
  void SetReport(const QString& text, const std::vector<int>& tab_stops);
  void Append(const QString& text);

  /// In every line a label, one tab or more, a value: all values stand in one column, behind the
  /// longest label so far. For the form to set.
  void setOneValueColumn(bool one_value_column) { one_value_column_ = one_value_column; }
  /// How large the box is where there is room; a zero leaves it to the box. For the form to set.
  void setPreferredSize(QSize size) { preferred_size_ = size; }

  QSize sizeHint() const override;

 private:
  void LayTabStops(const QString& text, const std::vector<int>& tab_stops);
  void LayTabStopsAt(const std::vector<double>& positions);
  void MoveValuesBehind(const QString& text);

  bool one_value_column_ = false;
  double longest_label_ = 0;  // in pixels
  QSize preferred_size_;
};

}  // namespace velta::qt
