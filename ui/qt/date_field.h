#pragma once

#include <QLineEdit>
#include <QPointer>
#include <chrono>
#include <optional>

#include "ui/clock.h"
#include "values/locale.h"

namespace velta::qt {

/// A date typed as text or picked from a calendar.
///
/// Typing goes on undisturbed until it is committed: by Enter, by leaving the field, by a command,
/// or by choosing a day in the calendar (the arrow, F4 or Alt+Down; Enter takes the day there, Esc
/// leaves the date as it was). A button that is pressed with the mouse, be it another date's arrow,
/// takes the keyboard and commits nothing: a message about the date would come between its going
/// down and up.
/// ParseTypedDate says what is a date. A text that is none is never taken for the last one: it
/// stands, and Mistyped says so. Esc turns any text back to the last date. The keys Up and Down are
/// typing too: they make the day, the month or the year at the cursor one more or less. The wheel
/// changes nothing.
class DateField final : public QLineEdit {
  Q_OBJECT

 public:
  /// The clock gives the year where none is typed; it must outlive the field.
  explicit DateField(QWidget* parent = nullptr, const ui::Clock& clock = ComputersClock());

  /// The user's date form; the Czech one until it is set.
  void SetFormat(const LocaleFormat& format);

  std::chrono::sys_days day() const { return day_; }
  void SetDay(std::chrono::sys_days day);

  /// Takes over what was typed. Returns false where that is no date, which it says, or a day that
  /// was refused.
  bool Commit();
  /// For receivers of DayPicked: nothing could be done with that day.
  void Refuse() { refused_ = true; }
  /// The keyboard is in the field, or has left what was typed without a commit.
  bool IsUncommitted() const { return hasFocus() || left_uncommitted_; }
  /// Whether a press of the mouse on it leaves the commit to whoever sees the release.
  static bool CommitsOnRelease(const QObject* pressed);
  void OpenCalendar();

 signals:
  /// The user committed another day.
  void DayPicked(std::chrono::sys_days day);
  /// The user would go on from a text that is no day between the first and the last that there are.
  void Mistyped();

 protected:
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// The day that the text says; none if it is no date, or one outside the range.
  std::optional<std::chrono::sys_days> TypedDay() const;
  /// What was typed in other dates counts before this one is picked. False where one is no date.
  bool CommitOthers();
  void Pick(std::chrono::sys_days day);
  void ShowDay();
  void Step(int by);

  static const ui::Clock& ComputersClock();

  const ui::Clock& clock_;
  LocaleFormat format_;
  std::chrono::sys_days day_{};
  QAction* arrow_;
  QPointer<QWidget> popup_;
  bool left_uncommitted_ = false;
  bool refused_ = false;  // the day that was committed last
};

}  // namespace velta::qt
