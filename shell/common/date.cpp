#include "shell/common/date.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "shell/common/blanks.h"
#include "shell/common/error.h"

namespace velta {

namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr Date kFirstDate = sys_days(year(100) / 1 / 1);
constexpr Date kLastDate = sys_days(year(9999) / 12 / 31);

Date CheckedDate(std::int64_t days_since_epoch) {
  if (days_since_epoch < kFirstDate.time_since_epoch().count() ||
      days_since_epoch > kLastDate.time_since_epoch().count()) {
    throw Error(ErrorNumber::kBadArgument);
  }
  return Date(days(days_since_epoch));
}

std::int64_t FloorDivide(std::int64_t dividend, std::int64_t divisor) {
  return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
}

/// The first day of a month counted from January of the year 0, in days since 1.1.1970. The
/// calendar repeats every 400 years, which carries it beyond the years that std::chrono knows.
std::int64_t FirstOfMonth(std::int64_t month_count) {
  constexpr std::int64_t kMonthsPerCycle = 4800;
  constexpr std::int64_t kDaysPerCycle = 146097;
  const std::int64_t cycle = FloorDivide(month_count, kMonthsPerCycle);
  const auto month_of_cycle = static_cast<int>(month_count - cycle * kMonthsPerCycle);
  const sys_days first = year(month_of_cycle / 12) / (month_of_cycle % 12 + 1) / 1;
  return first.time_since_epoch().count() + cycle * kDaysPerCycle;
}

std::string Padded(unsigned number, std::size_t width) {
  std::string text = std::to_string(number);
  return text.size() < width ? text.insert(0, width - text.size(), '0') : text;
}

bool IsPart(char pattern) { return pattern == 'd' || pattern == 'M' || pattern == 'y'; }

/// The pattern cut into parts ("d", "MM", "yyyy") and single characters of what stands between
/// them.
std::string_view TakeToken(std::string_view& pattern) {
  const std::size_t length =
      IsPart(pattern.front()) ? pattern.find_first_not_of(pattern.front()) : 1;
  const std::string_view token = pattern.substr(0, length);
  pattern.remove_prefix(token.size());
  return token;
}

/// The digits that `text` begins with, if there are so many.
std::optional<int> TakeNumber(std::string_view& text, std::size_t min_digits,
                              std::size_t max_digits) {
  std::size_t digits = 0;
  int number = 0;
  while (digits < text.size() && text[digits] >= '0' && text[digits] <= '9') {
    if (digits == max_digits) return std::nullopt;
    number = 10 * number + (text[digits] - '0');
    ++digits;
  }
  if (digits < min_digits) return std::nullopt;
  text.remove_prefix(digits);
  return number;
}

std::optional<Date> ReadShortDate(std::string_view text, std::string_view pattern) {
  int day_number = 0;
  int month_number = 0;
  int year_number = 0;
  while (!pattern.empty()) {
    // Blanks are free on both sides, so those of the pattern need none in the text.
    text = SkipBlanks(text);
    if (const std::string_view after = SkipBlanks(pattern); after.size() < pattern.size()) {
      pattern = after;
      continue;
    }
    const std::string_view token = TakeToken(pattern);
    if (!IsPart(token.front())) {
      if (!text.starts_with(token)) return std::nullopt;
      text.remove_prefix(token.size());
      continue;
    }
    const bool is_year = token.front() == 'y';
    const std::optional<int> number = is_year ? TakeNumber(text, 3, 4) : TakeNumber(text, 1, 2);
    if (!number.has_value()) return std::nullopt;
    (is_year ? year_number : token.front() == 'M' ? month_number : day_number) = *number;
  }
  const year_month_day date(year(year_number), month(static_cast<unsigned>(month_number)),
                            day(static_cast<unsigned>(day_number)));
  if (!SkipBlanks(text).empty() || !date.ok() || sys_days(date) < kFirstDate) return std::nullopt;
  return sys_days(date);
}

}  // namespace

int DaysBetween(Date from, Date to) { return static_cast<int>((to - from).count()); }

Date AddDays(Date date, int days) {
  return CheckedDate(std::int64_t{date.time_since_epoch().count()} + days);
}

Date AddMonths(Date date, int months) {
  const year_month_day parts(date);
  const std::int64_t month_count = std::int64_t{static_cast<int>(parts.year())} * 12 +
                                   static_cast<unsigned>(parts.month()) - 1 + months;
  const std::int64_t first = FirstOfMonth(month_count);
  const std::int64_t same_day = first + static_cast<unsigned>(parts.day()) - 1;
  const std::int64_t last = FirstOfMonth(month_count + 1) - 1;
  return CheckedDate(std::min(same_day, last));
}

Date DateFromParts(int year, int month, int day) {
  const std::int64_t month_count = std::int64_t{year} * 12 + month - 1;
  return CheckedDate(FirstOfMonth(month_count) + day - 1);
}

std::string ShortDateText(Date date, const ui::LocaleFormat& locale) {
  const year_month_day parts(date);
  std::string text;
  for (std::string_view pattern = locale.date_pattern; !pattern.empty();) {
    const std::string_view token = TakeToken(pattern);
    switch (token.front()) {
      case 'd':
        text += Padded(static_cast<unsigned>(parts.day()), token.size());
        break;
      case 'M':
        text += Padded(static_cast<unsigned>(parts.month()), token.size());
        break;
      case 'y':
        text += Padded(static_cast<unsigned>(static_cast<int>(parts.year())), token.size());
        break;
      default:
        text += token;
    }
  }
  return text;
}

Date ParseShortDate(std::string_view text, const ui::LocaleFormat& locale) {
  const std::optional<Date> date = ReadShortDate(text, locale.date_pattern);
  if (!date.has_value()) throw Error(ErrorNumber::kTypeMismatch);
  return *date;
}

std::string ShortTimeText(std::chrono::minutes since_midnight) {
  const auto minutes = static_cast<unsigned>(since_midnight.count());
  return std::to_string(minutes / 60) + ":" + Padded(minutes % 60, 2);
}

}  // namespace velta
