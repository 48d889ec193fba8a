#include "ui/qt/report_box.h"

#include <QFontDatabase>
#include <QScrollBar>
#include <QTextOption>
#include <algorithm>

namespace velta::qt {

namespace {

constexpr int kUnitsOfCharacter = 4;
constexpr int kCharactersOfDefaultStop = 8;

}  // namespace

ReportBox::ReportBox(QWidget* parent) : QPlainTextEdit(parent) {
  setReadOnly(true);
  setUndoRedoEnabled(false);
  setTabChangesFocus(true);
  setLineWrapMode(NoWrap);
  // The keyboard can move the cursor in it, so that a part can be marked and copied without the
  // mouse.
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void ReportBox::SetReport(const QString& text, const std::vector<int>& tab_stops) {
  LayTabStops(text, tab_stops);
  setPlainText(text);
}

void ReportBox::Append(const QString& text) {
  if (one_value_column_) MoveValuesBehind(text);
  QTextCursor end(document());
  end.movePosition(QTextCursor::End);
  end.insertText(text);
  verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void ReportBox::LayTabStops(const QString& text, const std::vector<int>& tab_stops) {
  if (tab_stops.empty()) {
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setTabStopDistance(kCharactersOfDefaultStop * QFontMetricsF(font()).horizontalAdvance(u' '));
    longest_label_ = 0;
    if (one_value_column_) MoveValuesBehind(text);
    return;
  }
  const QFontMetricsF metrics(font());
  const double unit = metrics.averageCharWidth() / kUnitsOfCharacter;
  std::vector<double> positions;
  positions.reserve(tab_stops.size());
  for (const int stop : tab_stops) positions.push_back(stop * unit);
  const double gap = 2 * metrics.averageCharWidth();
  for (std::size_t i = 0; i < positions.size(); ++i) {
    const double from = i == 0 ? 0 : positions[i - 1];
    for (const QString& line : text.split(u'\n')) {
      const QStringList cells = line.split(u'\t');
      const auto cell = static_cast<qsizetype>(i);
      if (cell + 1 >= cells.size() || cells[cell].isEmpty()) continue;
      positions[i] = std::max(positions[i], from + metrics.horizontalAdvance(cells[cell]) + gap);
    }
  }
  LayTabStopsAt(positions);
}

/// Lines in which one tab stands before the value and lines with two shall meet in one column: the
/// second stop lies where the first does, as nearly as the layout tells them apart.
void ReportBox::MoveValuesBehind(const QString& text) {
  constexpr double kNext = 0.1;
  const QFontMetricsF metrics(font());
  double longest = longest_label_;
  for (const QString& line : text.split(u'\n')) {
    const qsizetype tab = line.indexOf(u'\t');
    if (tab > 0) longest = std::max(longest, metrics.horizontalAdvance(line.first(tab)));
  }
  if (longest == longest_label_) return;
  longest_label_ = longest;
  const double column = longest + 2 * metrics.averageCharWidth();
  LayTabStopsAt({column, column + kNext});
}

void ReportBox::LayTabStopsAt(const std::vector<double>& positions) {
  QList<QTextOption::Tab> tabs;
  for (const double position : positions) tabs.append({position, QTextOption::LeftTab});
  QTextOption option = document()->defaultTextOption();
  option.setTabs(tabs);
  document()->setDefaultTextOption(option);
}

QSize ReportBox::sizeHint() const {
  const QSize own = QPlainTextEdit::sizeHint();
  return {preferred_size_.width() > 0 ? preferred_size_.width() : own.width(),
          preferred_size_.height() > 0 ? preferred_size_.height() : own.height()};
}

}  // namespace velta::qt
