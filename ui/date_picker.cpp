#include "ui/date_picker.h"

#include <algorithm>

#include "ui/window.h"
#include "values/date.h"
#include "values/error.h"

namespace velta::ui {

DatePicker::DatePicker(Window& window, ControlName name, const Clock& clock,
                       const LocaleFormat& locale)
    : Control(window, std::move(name)),
      clock_(clock),
      locale_(locale),
      day_(clock.Now().day),
      text_(ShownDay()),
      say_mistyped_(window.event_loop()) {
  say_mistyped_.Tick.Connect([this] {
    if (left_) UserCommit();
  });
}

void DatePicker::SetDay(Day day) {
  if (day == day_ || day < kFirst || day > kLast) return;
  day_ = day;
  ShowText(ShownDay());
  Change.Raise();
}

bool DatePicker::IsBeingTyped() const { return text_ != ShownDay(); }

std::optional<DatePicker::Day> DatePicker::TypedDay() const {
  // A copied cell of a table comes with its line end, which nobody sees.
  constexpr std::string_view kUnseen = " \t\n\v\f\r";
  std::string_view typed = text_;
  typed.remove_prefix(std::min(typed.find_first_not_of(kUnseen), typed.size()));
  typed = typed.substr(0, typed.find_last_not_of(kUnseen) + 1);
  Day day;
  try {
    day = ParseTypedDate(typed, locale_, clock_.Now().day);
  } catch (const Error&) {
    return std::nullopt;
  }
  // What stands there by itself was not typed, even where it is beyond the range.
  if (day == day_ || (day >= kFirst && day <= kLast)) return day;
  return std::nullopt;
}

bool DatePicker::UserEdit(std::string_view text) {
  if (!open_to_user()) return false;
  ShowText(std::string(text));
  return true;
}

std::optional<std::pair<std::size_t, std::size_t>> DatePicker::UserStep(int by,
                                                                        std::size_t cursor) {
  std::optional<Day> day = TypedDay();
  if (!open_to_user() || !day) return std::nullopt;
  const DatePart part = DatePartAt(text_, cursor, locale_);
  constexpr int kMonthsOfYear = 12;
  try {
    day = part == DatePart::kDay
              ? AddDays(*day, by)
              : AddMonths(*day, part == DatePart::kMonth ? by : by * kMonthsOfYear);
  } catch (const Error&) {
    return std::nullopt;  // there are no days beyond the last
  }
  if (*day < kFirst || *day > kLast) return std::nullopt;
  ShowText(ShortDateText(*day, locale_));
  const auto at_part = [&](std::size_t position) {
    return DatePartAt(text_, position, locale_) == part;
  };
  std::size_t begin = 0;
  while (begin < text_.size() && !at_part(begin)) ++begin;
  std::size_t end = begin;
  while (end < text_.size() && at_part(end + 1)) ++end;
  return std::pair(begin, end - begin);
}

bool DatePicker::UserRevert() {
  if (!open_to_user()) return false;
  ShowText(ShownDay());
  return true;
}

bool DatePicker::UserCommit() {
  left_ = false;
  if (!open_to_user()) {
    // Nobody can correct it in a field that has been closed meanwhile.
    ShowText(ShownDay());
    return true;
  }
  const std::optional<Day> typed = TypedDay();
  if (!typed) {
    asking_ = true;
    Mistyped.Raise();
    asking_ = false;
    return false;
  }
  UserPick(*typed);
  return !refused_;
}

void DatePicker::UserLeave() {
  if (!IsBeingTyped()) return;
  if (TypedDay()) {
    UserCommit();
    return;
  }
  // Two of them would take the keyboard from one another for ever.
  const std::vector<DatePicker*> others = Others();
  if (std::any_of(others.begin(), others.end(), [](const auto* date) { return date->asking_; })) {
    return;
  }
  left_ = true;
  say_mistyped_.Arm();
}

bool DatePicker::UserPick(Day day) {
  if (!open_to_user()) return false;
  refused_ = false;
  if (day == day_) ShowText(ShownDay());
  SetDay(day);
  return true;
}

bool DatePicker::CommitOthers() {
  for (DatePicker* other : Others()) {
    if (!other->IsBeingTyped()) continue;
    const bool is_date = other->TypedDay().has_value();
    other->UserCommit();
    if (!is_date) return false;  // the keyboard is there again
  }
  return true;
}

std::vector<DatePicker*> DatePicker::Others() const {
  std::vector<DatePicker*> others;
  for (Control* control : window().controls()) {
    auto* date = dynamic_cast<DatePicker*>(control);
    if (date != nullptr && date != this) others.push_back(date);
  }
  return others;
}

std::string DatePicker::ShownDay() const { return ShortDateText(day_, locale_); }

void DatePicker::ShowText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  Updated.Raise(Aspect::kValue);
}

}  // namespace velta::ui
