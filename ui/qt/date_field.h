#pragma once

#include <QLineEdit>
#include <QPointer>
#include <chrono>

#include "ui/date_picker.h"

namespace velta::qt {

/// The widget of a ui::DatePicker: a line in which a date is typed, with a calendar on its arrow,
/// F4 and Alt+Down (Enter takes the day there, Esc leaves the date as it was). The wheel changes
/// nothing.
///
/// It shows the model's text, hands over what is typed, and tells the model when the user commits
/// it: by Enter, or by leaving the field. A button that is pressed with the mouse, be it another
/// date's arrow, takes the keyboard and leaves nothing: a message about the date would come between
/// its going down and up.
class DateField final : public QLineEdit {
  Q_OBJECT

 public:
  explicit DateField(QWidget* parent = nullptr);

  /// Shows the model from now on and hands the user's acts to it; null: to nobody.
  void SetModel(ui::DatePicker* model);
  ui::DatePicker* model() const { return model_; }
  void ShowText();

  /// Whether a press of the mouse on it leaves the commit to whoever sees the release.
  static bool CommitsOnRelease(const QObject* pressed);
  void OpenCalendar();

 protected:
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void TakeText(const QString& text);
  void Step(int by);

  ui::DatePicker* model_ = nullptr;
  QAction* arrow_;
  QPointer<QWidget> popup_;
};

}  // namespace velta::qt
