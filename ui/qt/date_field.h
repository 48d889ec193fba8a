#pragma once

#include <QLineEdit>
#include <QPointer>
#include <chrono>

#include "ui/locale.h"

namespace velta::qt {

/// A date typed as text or picked from a calendar.
///
/// Typing goes on undisturbed until it is committed: by Enter, by leaving the field, or by choosing
/// a day in the calendar (the arrow, F4 or Alt+Down; Enter takes the day there, Esc leaves the date
/// as it was). A text that is no date turns back to the last date when the field is left, and so
/// does any text on Esc. Neither the wheel nor the arrow keys change the date.
class DateField final : public QLineEdit {
  Q_OBJECT

 public:
  explicit DateField(QWidget* parent = nullptr);

  /// The user's date form; the Czech one until it is set.
  void SetFormat(const ui::LocaleFormat& format);

  std::chrono::sys_days day() const { return day_; }
  void SetDay(std::chrono::sys_days day);

  /// Takes over what was typed. Returns false, and leaves the text standing, where that is no date.
  bool Commit();
  void OpenCalendar();

 signals:
  /// The user committed another day.
  void DayPicked(std::chrono::sys_days day);

 protected:
  void changeEvent(QEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Pick(std::chrono::sys_days day);
  void ShowDay();

  ui::LocaleFormat format_;
  std::chrono::sys_days day_{};
  QAction* arrow_;
  QPointer<QWidget> popup_;
};

}  // namespace velta::qt
