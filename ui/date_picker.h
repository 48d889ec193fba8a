#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ui/clock.h"
#include "ui/controls.h"
#include "ui/timer.h"
#include "values/locale.h"

namespace velta::ui {

/// A date, typed as text or picked from a calendar. It always holds a valid day, from 1.1.1900
/// to 31.12.9999; only the day it begins with, that of a clock that is wrong, may lie outside.
///
/// While the user types, nothing is corrected and nothing computed. What he typed counts when it is
/// committed: by Enter, when the field is left, and before a command that uses the inputs. A commit
/// is one Change. ParseTypedDate says what is a date. A text that is none is never taken for the
/// last date: it stands, and Mistyped says so.
class DatePicker final : public Control {
 public:
  using Day = std::chrono::sys_days;
  static constexpr Day kFirst{std::chrono::year{1900} / 1 / 1};
  static constexpr Day kLast{std::chrono::year{9999} / 12 / 31};

  /// Begins with the clock's day. The clock also gives the year where none is typed, the locale the
  /// form of dates; both must outlive the control.
  DatePicker(Window& window, ControlName name, const Clock& clock, const LocaleFormat& locale);

  Day day() const { return day_; }
  /// A day outside the range leaves the date as it was.
  void SetDay(Day day);

  /// What the field shows: the date in the user's short form, or what is typed in its place.
  const std::string& text() const { return text_; }
  /// Something is typed that is not committed yet.
  bool IsBeingTyped() const;
  /// The day that the text says; none if it is no date, or one outside the range.
  std::optional<Day> TypedDay() const;

  /// The user changed the text: by a key, a paste, a deletion.
  bool UserEdit(std::string_view text);
  /// Up or Down: the part of the date at the cursor, which has so many bytes to its left, becomes
  /// `by` more. A day goes on over the month's end; a month or a year that lacks the day takes its
  /// last one. Returns where that part stands in the text then, as first byte and size; none where
  /// nothing has changed. It is typing, as any other key.
  std::optional<std::pair<std::size_t, std::size_t>> UserStep(int by, std::size_t cursor);
  /// Esc: the date stands there again.
  bool UserRevert();
  /// Enter, or the user goes on in another way: what is typed counts. Returns false where it is no
  /// date or a day that was refused; the user has been told then.
  bool UserCommit();
  /// The keyboard has left the field and what was typed counts. That it is no date is said when the
  /// loop turns, for the keyboard comes back by it and must have arrived elsewhere before; not
  /// where it goes back to another date that is no better.
  void UserLeave();
  /// The keyboard is in the field again.
  void UserReturn() { left_ = false; }
  /// A day of the calendar, in place of what is typed.
  bool UserPick(Day day);
  /// What is typed in the window's other dates counts before this one is picked. False where one of
  /// them is no date.
  bool CommitOthers();

  /// For handlers of Change: nothing could be computed with the day, and the user has been told.
  void Refuse() { refused_ = true; }
  /// Whether the day that the user picked last was refused.
  bool refused() const { return refused_; }

  bool CommitTyping() override { return !IsBeingTyped() || UserCommit(); }
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  Event<> Change;
  Event<> Mistyped;  ///< the user would go on from a text that is no date

 protected:
  bool takes_focus() const override { return true; }

 private:
  std::vector<DatePicker*> Others() const;
  std::string ShownDay() const;
  void ShowText(std::string text);

  const Clock& clock_;
  const LocaleFormat& locale_;
  Day day_;
  std::string text_;
  bool refused_ = false;
  bool asking_ = false;  // the handlers of Mistyped are running
  bool left_ = false;    // with a text that is no date, which has not been said yet
  Timer say_mistyped_;
};

}  // namespace velta::ui
