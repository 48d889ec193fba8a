#pragma once

#include <QLineEdit>
#include <QPointer>
#include <chrono>
#include <optional>

#include "ui/locale.h"

namespace velta::qt {

/// A date typed as text or picked from a calendar.
///
/// Typing goes on undisturbed until it is committed: by Enter, by leaving the field, or by choosing
/// a day in the calendar (the arrow, F4 or Alt+Down; Enter takes the day there, Esc leaves the date
/// as it was). A text that is no date is never taken for the last one: it stands, and Mistyped says
/// so. Esc turns any text back to the last date. Neither the wheel nor the arrow keys change it.
class DateField final : public QLineEdit {
  Q_OBJECT

 public:
  explicit DateField(QWidget* parent = nullptr);

  /// The user's date form; the Czech one until it is set.
  void SetFormat(const ui::LocaleFormat& format);

  std::chrono::sys_days day() const { return day_; }
  void SetDay(std::chrono::sys_days day);

  /// Takes over what was typed. Where that is no date: says so and returns false.
  bool Commit();
  /// The keyboard is in the field, or has just left a text that is no date.
  bool IsUncommitted() const { return hasFocus() || left_mistyped_; }
  void OpenCalendar();

 signals:
  /// The user committed another day.
  void DayPicked(std::chrono::sys_days day);
  /// The user would go on from a text that is no day between the first and the last that there are.
  void Mistyped();

 protected:
  void changeEvent(QEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// The day that the text says; none if it is no date, or one outside the range.
  std::optional<std::chrono::sys_days> TypedDay() const;
  void Pick(std::chrono::sys_days day);
  void ShowDay();

  ui::LocaleFormat format_;
  std::chrono::sys_days day_{};
  QAction* arrow_;
  QPointer<QWidget> popup_;
  bool left_mistyped_ = false;
};

}  // namespace velta::qt
