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

#include "ui/qt/pictures.h"
#include "ui/qt/text.h"

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

DateField::DateField(QWidget* parent) : QLineEdit(parent) {
  arrow_ = addAction(Picture("dropdown"), TrailingPosition);
  arrow_->setText(QStringLiteral("Vybrat datum z kalendáře"));
  connect(arrow_, &QAction::triggered, this, &DateField::OpenCalendar);
  connect(this, &QLineEdit::textChanged, this, &DateField::TakeText);
}

void DateField::SetModel(ui::DatePicker* model) {
  model_ = model;
  ShowText();
}

void DateField::ShowText() {
  if (model_ == nullptr) return;
  const QString text = ToQString(model_->text());
  if (text != this->text()) setText(text);  // the cursor stays where the user types
}

void DateField::TakeText(const QString& text) {
  if (model_ == nullptr || ToUtf8(text) == model_->text()) return;
  model_->UserEdit(ToUtf8(text));
  ShowText();
  if (hasFocus() || !model_->IsBeingTyped()) return;
  // A program for people who cannot type writes into the field from afar, and never leaves it.
  const auto commit = [this] {
    if (model_ != nullptr) model_->UserCommit();
  };
  QMetaObject::invokeMethod(this, commit, Qt::QueuedConnection);
}

bool DateField::CommitsOnRelease(const QObject* pressed) {
  return qobject_cast<const QAbstractButton*>(pressed) != nullptr ||
         qobject_cast<const DateField*>(pressed) != nullptr;
}

/// The part that was changed is marked, so that the key goes on with it.
void DateField::Step(int by) {
  const auto cursor = ToUtf8(text().left(cursorPosition())).size();
  if (const auto part = model_->UserStep(by, cursor)) {
    setSelection(static_cast<int>(part->first), static_cast<int>(part->second));
  }
}

void DateField::OpenCalendar() {
  if (model_ == nullptr || popup_ != nullptr || !isEnabled() || !model_->CommitOthers()) return;
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
  calendar->setSelectedDate(ToQDate(model_->TypedDay().value_or(model_->day())));
  auto* layout = new QVBoxLayout(popup);
  layout->setContentsMargins(1, 1, 1, 1);
  layout->addWidget(calendar);
  // The popup goes first: what the new date sets off may open a message box.
  const auto take = [this, popup](QDate date) {
    if (popup_ != popup) return;  // a double click says it twice
    popup_.clear();
    popup->close();
    setFocus(Qt::PopupFocusReason);
    if (model_ != nullptr) model_->UserPick(ToDay(date));
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
  if (model_ != nullptr) model_->UserReturn();
  QLineEdit::focusInEvent(event);
}

void DateField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  const Qt::FocusReason reason = event->reason();
  // A popup, the menu bar or another window has the keyboard for a while: typing goes on
  // afterwards. A button that goes down, such as another date's arrow, does not yet say what the
  // user wants.
  if (reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
      reason == Qt::ActiveWindowFocusReason ||
      (reason == Qt::MouseFocusReason && CommitsOnRelease(QApplication::focusWidget()))) {
    return;
  }
  if (model_ != nullptr) model_->UserLeave();
}

void DateField::keyPressEvent(QKeyEvent* event) {
  if (model_ == nullptr) return;
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: {
      const bool is_date = model_->TypedDay().has_value();
      model_->UserCommit();
      if (is_date) selectAll();
      return;
    }
    case Qt::Key_Escape:
      model_->UserRevert();
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
