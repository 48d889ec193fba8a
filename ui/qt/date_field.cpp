#include "ui/qt/date_field.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QFrame>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <optional>
#include <string>

#include "ui/controls.h"
#include "ui/qt/clock.h"
#include "ui/qt/pictures.h"
#include "ui/qt/text.h"
#include "values/date.h"
#include "values/error.h"

namespace velta::qt {

namespace {

/// Below the field, or above it where the screen ends; never beyond the screen's sides.
QPoint PopupPosition(const QWidget& field, QSize popup) {
  const QRect screen = field.screen()->availableGeometry();
  const QPoint below = field.mapToGlobal(QPoint(0, field.height()));
  const int above = field.mapToGlobal(QPoint(0, 0)).y() - popup.height();
  const int y = below.y() + popup.height() <= screen.bottom() ? below.y() : above;
  const int right_most = screen.right() - popup.width();
  return {std::max(screen.left(), std::min(below.x(), right_most)), std::max(screen.top(), y)};
}

}  // namespace

const ui::Clock& DateField::ComputersClock() {
  static const Clock clock;
  return clock;
}

DateField::DateField(QWidget* parent, const ui::Clock& clock) : QLineEdit(parent), clock_(clock) {
  arrow_ = addAction(Picture("dropdown"), TrailingPosition);
  arrow_->setText(QStringLiteral("Vybrat datum z kalendáře"));
  connect(arrow_, &QAction::triggered, this, &DateField::OpenCalendar);
  // A program for people who cannot type writes into the field from afar, and never leaves it.
  connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (hasFocus() || text == ToQString(ShortDateText(day_, format_))) return;
    QMetaObject::invokeMethod(this, &DateField::Commit, Qt::QueuedConnection);
  });
  ShowDay();
}

void DateField::SetFormat(const LocaleFormat& format) {
  format_ = format;
  ShowDay();
}

void DateField::SetDay(std::chrono::sys_days day) {
  day_ = day;
  ShowDay();
}

std::optional<std::chrono::sys_days> DateField::TypedDay() const {
  Date day;
  try {
    // A copied cell of a table comes with its line end, which nobody sees.
    day = ParseTypedDate(ToUtf8(text().trimmed()), format_, clock_.Now().day);
  } catch (const Error&) {
    return std::nullopt;
  }
  // What stands there by itself was not typed, even where it is beyond the range.
  if (day == day_ || (day >= ui::DatePicker::kFirst && day <= ui::DatePicker::kLast)) return day;
  return std::nullopt;
}

bool DateField::CommitsOnRelease(const QObject* pressed) {
  return qobject_cast<const QAbstractButton*>(pressed) != nullptr ||
         qobject_cast<const DateField*>(pressed) != nullptr;
}

bool DateField::Commit() {
  left_uncommitted_ = false;
  const std::optional<Date> typed = TypedDay();
  if (!typed) {
    emit Mistyped();
    return false;
  }
  refused_ = false;
  Pick(*typed);
  return !refused_;
}

void DateField::Pick(std::chrono::sys_days day) {
  const bool other = day != day_;
  SetDay(day);
  if (other) emit DayPicked(day);
}

void DateField::ShowDay() {
  const QString text = ToQString(ShortDateText(day_, format_));
  if (text != this->text()) setText(text);
}

/// The part that was changed is marked, so that the key goes on with it.
void DateField::Step(int by) {
  std::optional<Date> day = TypedDay();
  if (!day) return;
  const DatePart part =
      DatePartAt(ToUtf8(text()), ToUtf8(text().left(cursorPosition())).size(), format_);
  constexpr int kMonthsOfYear = 12;
  try {
    day = part == DatePart::kDay
              ? AddDays(*day, by)
              : AddMonths(*day, part == DatePart::kMonth ? by : by * kMonthsOfYear);
  } catch (const Error&) {
    return;  // there are no days beyond the last
  }
  if (*day < ui::DatePicker::kFirst || *day > ui::DatePicker::kLast) return;
  const std::string stepped = ShortDateText(*day, format_);
  setText(ToQString(stepped));
  const auto at_part = [&](std::size_t position) {
    return DatePartAt(stepped, position, format_) == part;
  };
  std::size_t begin = 0;
  while (begin < stepped.size() && !at_part(begin)) ++begin;
  std::size_t end = begin;
  while (end < stepped.size() && at_part(end + 1)) ++end;
  setSelection(static_cast<int>(begin), static_cast<int>(end - begin));
}

bool DateField::CommitOthers() {
  for (auto* other : window()->findChildren<DateField*>()) {
    if (other == this || !other->IsUncommitted()) continue;
    const bool is_date = other->TypedDay().has_value();
    other->Commit();
    if (!is_date) return false;  // the keyboard is there again
  }
  return true;
}

void DateField::OpenCalendar() {
  if (popup_ != nullptr || !isEnabled() || !CommitOthers()) return;
  // A popup of its own and not a dialog: a click beside it puts it away.
  auto* popup = new QFrame(this, Qt::Popup);
  popup->setAttribute(Qt::WA_DeleteOnClose);
  popup->setFrameShape(QFrame::StyledPanel);
  popup->setAccessibleName(QStringLiteral("Kalendář"));
  auto* calendar = new QCalendarWidget(popup);
  calendar->setFirstDayOfWeek(Qt::Monday);
  calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendar->setMinimumDate(ToQDate(ui::DatePicker::kFirst));
  calendar->setMaximumDate(ToQDate(ui::DatePicker::kLast));
  calendar->setSelectedDate(ToQDate(TypedDay().value_or(day_)));
  auto* layout = new QVBoxLayout(popup);
  layout->setContentsMargins(1, 1, 1, 1);
  layout->addWidget(calendar);
  // The popup goes first: what the new date sets off may open a message box.
  const auto take = [this, popup](QDate date) {
    if (popup_ != popup) return;  // a double click says it twice
    popup_.clear();
    popup->close();
    setFocus(Qt::PopupFocusReason);
    Pick(ToDay(date));
  };
  connect(calendar, &QCalendarWidget::clicked, this, take);
  connect(calendar, &QCalendarWidget::activated, this, take);  // Enter
  popup_ = popup;
  popup->move(PopupPosition(*this, popup->sizeHint()));
  popup->show();
  calendar->setFocus(Qt::PopupFocusReason);
}

void DateField::changeEvent(QEvent* event) {
  QLineEdit::changeEvent(event);
  if (event->type() == QEvent::EnabledChange) {
    arrow_->setIcon(Picture(isEnabled() ? "dropdown" : "dropdown-disabled"));
  }
}

void DateField::focusInEvent(QFocusEvent* event) {
  left_uncommitted_ = false;
  QLineEdit::focusInEvent(event);
}

void DateField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (text() == ToQString(ShortDateText(day_, format_))) return;  // nothing was typed
  left_uncommitted_ = true;
  const Qt::FocusReason reason = event->reason();
  // A popup, the menu bar or another window has the keyboard for a while: typing goes on
  // afterwards. A button that goes down, such as another date's arrow, does not yet say what the
  // user wants.
  if (reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
      reason == Qt::ActiveWindowFocusReason ||
      (reason == Qt::MouseFocusReason && CommitsOnRelease(QApplication::focusWidget()))) {
    return;
  }
  if (TypedDay()) {
    Commit();
    return;
  }
  // Only when the keyboard has arrived: the message about it brings the keyboard back. From a
  // window's frame, by which the mouse moves or closes it, the keyboard is back by itself.
  QMetaObject::invokeMethod(
      this, [this] { return !left_uncommitted_ || Commit(); }, Qt::QueuedConnection);
}

void DateField::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: {
      const bool is_date = TypedDay().has_value();
      Commit();
      if (is_date) selectAll();
      return;
    }
    case Qt::Key_Escape:
      ShowDay();
      selectAll();
      return;
    case Qt::Key_F4:
      if (event->modifiers() != Qt::NoModifier) break;  // Alt+F4 and Ctrl+F4 close windows
      OpenCalendar();
      return;
    case Qt::Key_Up:
    case Qt::Key_Down:
      if ((event->modifiers() & Qt::AltModifier) != 0 && event->key() == Qt::Key_Down) {
        OpenCalendar();
        return;
      }
      if ((event->modifiers() & ~Qt::KeypadModifier) != 0) break;
      Step(event->key() == Qt::Key_Up ? 1 : -1);
      return;
    default:
      break;
  }
  QLineEdit::keyPressEvent(event);
}

}  // namespace velta::qt
