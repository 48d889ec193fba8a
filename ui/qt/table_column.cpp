#include "ui/qt/table_column.h"

#include <QFontDatabase>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

namespace velta::qt {

namespace {

constexpr int kPadding = 8;  // between a column's edges and its texts

/// The font, or where its figures differ in width one in which they do not: the digits of numbers
/// that stand one below the other have to.
QFont WithEqualFigures(const QFont& font) {
  const QFontMetricsF metrics(font);
  const QString figures = QStringLiteral("0123456789");
  const bool equal = std::all_of(figures.begin(), figures.end(), [&metrics](QChar figure) {
    return metrics.horizontalAdvance(figure) == metrics.horizontalAdvance(u'0');
  });
  if (equal) return font;
  QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  fixed.setPointSizeF(font.pointSizeF());
  return fixed;
}

/// What of a row is shown: all of it, or the texts before and behind its tabs.
QStringList Cells(const QString& row) {
  const qsizetype tab = row.indexOf(u'\t');
  if (tab < 0) return {row.trimmed()};
  return {row.first(tab).trimmed(), row.sliced(tab).trimmed()};
}

class RowDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  bool numeric = false;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    row.text.clear();
    const QWidget& list = *row.widget;
    list.style()->drawControl(QStyle::CE_ItemViewItem, &row, painter, &list);
    const bool selected = (row.state & QStyle::State_Selected) != 0;
    const auto draw = [&](const QString& cell, Qt::Alignment side) {
      list.style()->drawItemText(painter, row.rect.adjusted(kPadding, 0, -kPadding, 0),
                                 static_cast<int>(side | Qt::AlignVCenter), row.palette, true, cell,
                                 selected ? QPalette::HighlightedText : QPalette::Text);
    };
    painter->save();
    painter->setFont(row.font);
    const QStringList cells = Cells(index.data().toString());
    draw(cells.front(), numeric ? Qt::AlignRight : Qt::AlignLeft);
    if (cells.size() > 1) draw(cells.back(), Qt::AlignRight);
    painter->restore();
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    const bool is_measured = index.data(Qt::SizeHintRole).isValid();
    return is_measured ? size : size + QSize(2 * kPadding, 0);
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->text = Cells(option->text).join(u"  ");  // as it is measured
    option->font = WithEqualFigures(option->font);
  }
};

}  // namespace

TableColumn::TableColumn(QWidget* parent) : QListWidget(parent) {
  setItemDelegate(new RowDelegate(this));
}

void TableColumn::setNumeric(bool numeric) {
  static_cast<RowDelegate*>(itemDelegate())->numeric = numeric;
}

QSize TableColumn::sizeHint() const {
  const int amount = fontMetrics().horizontalAdvance(QStringLiteral("000 000 000,00 Kč"));
  return {std::max(amount, minimumSizeHint().width()), HeightOf(rows_in_view_)};
}

QSize TableColumn::minimumSizeHint() const {
  const int width = std::max(4 * fontMetrics().lineSpacing(), widest_);
  return {width + 2 * (frameWidth() + spacing()), HeightOf(std::min(rows_in_view_, 3))};
}

int TableColumn::HeightOf(int rows) const {
  return rows * (fontMetrics().lineSpacing() + 2 * spacing()) + 2 * frameWidth();
}

void TableColumn::reset() {
  QListWidget::reset();
  widest_ = 0;
}

void TableColumn::rowsInserted(const QModelIndex& parent, int start, int end) {
  QListWidget::rowsInserted(parent, start, end);
  const int before = widest_;
  for (int row = start; row <= end; ++row) {
    widest_ = std::max(widest_, sizeHintForIndex(model()->index(row, 0, parent)).width());
  }
  if (widest_ > before) updateGeometry();
}

}  // namespace velta::qt
