#pragma once

#include <QPlainTextEdit>
#include <vector>

namespace velta::qt {

/// Shows a text that the program wrote: to read, to scroll and to copy from. With tab stops the
/// values after the last one stand in one column; without, the text is in a fixed-pitch font.
class ReportBox final : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit ReportBox(QWidget* parent = nullptr);

  /// `tab_stops` in dialog units, a quarter of the average character's width each. A stop that the
  /// text before it would pass moves right, so that the column stays one.
  void SetReport(const QString& text, const std::vector<int>& tab_stops);
  void Append(const QString& text);

 private:
  void LayTabStops(const QString& text, const std::vector<int>& tab_stops);
};

}  // namespace velta::qt
