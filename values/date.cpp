#include "values/date.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

#include "values/blanks.h"
#include "values/error.h"

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
bool IsPartOfTime(char pattern) { return pattern == 'H' || pattern == 'h' || pattern == 'm'; }

/// The pattern cut into parts ("d", "MM", "yyyy", "h", "mm") and single characters of what stands
/// between them.
std::string_view TakeToken(std::string_view& pattern, bool is_part(char) = IsPart) {
  const std::size_t length =
      is_part(pattern.front()) ? pattern.find_first_not_of(pattern.front()) : 1;
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

/// None where the calendar has no such day.
std::optional<Date> CalendarDate(int year_number, int month_number, int day_number) {
  const year_month_day date(year(year_number), month(static_cast<unsigned>(month_number)),
                            day(static_cast<unsigned>(day_number)));
  if (!date.ok() || sys_days(date) < kFirstDate) return std::nullopt;
  return sys_days(date);
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
  if (!SkipBlanks(text).empty()) return std::nullopt;
  return CalendarDate(year_number, month_number, day_number);
}

/// The letters of the parts in the pattern's order: "dMy".
std::string PartOrder(std::string_view pattern) {
  std::string order;
  while (!pattern.empty()) {
    const char part = TakeToken(pattern).front();
    if (IsPart(part)) order += part;
  }
  return order;
}

/// A typed date taken apart: its numbers, and for each the letter of the part that it is.
struct TypedParts {
  std::string order;
  std::vector<std::string_view> numbers;
};

std::string_view TakeDigits(std::string_view& text) {
  const std::size_t end = text.find_first_not_of("0123456789");
  const std::string_view digits = text.substr(0, end);
  text.remove_prefix(digits.size());
  return digits;
}

/// The separator that a text begins with; the comma is the point of a Czech keypad. 0: it is none.
char Separator(std::string_view text) {
  const char sign = text.front() == ',' ? '.' : text.front();
  return sign == '.' || sign == '/' || sign == '-' ? sign : '\0';
}

/// "100305" or "10032005" cut into the parts of the order; nothing where it has another length.
std::vector<std::string_view> Cut(std::string_view digits, const std::string& order) {
  if (digits.size() != 6 && digits.size() != 8) return {};
  const std::size_t year_length = digits.size() - 4;
  std::vector<std::string_view> numbers;
  for (const char part : order) {
    const std::size_t length = part == 'y' ? year_length : 2;
    numbers.push_back(digits.substr(0, length));
    digits.remove_prefix(length);
  }
  return numbers;
}

std::optional<TypedParts> TakeApart(std::string_view text, std::string_view pattern) {
  TypedParts parts{PartOrder(pattern), {}};
  char separator = '\0';
  text = SkipBlanks(text);
  do {
    parts.numbers.push_back(TakeDigits(text));
    if (parts.numbers.back().empty()) return std::nullopt;
    text = SkipBlanks(text);
    if (text.empty()) break;
    const char sign = Separator(text);
    if (sign == '\0' || (separator != '\0' && sign != separator)) return std::nullopt;
    separator = sign;
    text = SkipBlanks(text.substr(1));
  } while (!text.empty() || separator != '.');  // a point may end it: "10.3."

  if (separator == '\0') parts.numbers = Cut(parts.numbers.front(), parts.order);
  if (parts.numbers.size() != 2 && parts.numbers.size() != 3) return std::nullopt;
  if (parts.numbers.front().size() == 4) {
    parts.order = "yMd";
  } else if (separator == '.' && pattern.find('.') == std::string_view::npos) {
    parts.order = "dMy";
  }
  if (parts.numbers.size() == 2) std::erase(parts.order, 'y');
  return parts;
}

std::optional<int> YearOf(std::string_view digits) {
  constexpr int kFirstOfThe1900s = 69;
  const std::size_t length = digits.size();
  if (length != 2 && length != 4) return std::nullopt;
  const int number = TakeNumber(digits, length, length).value();
  if (length == 4) return number;
  return number + (number < kFirstOfThe1900s ? 2000 : 1900);
}

std::optional<Date> ReadTypedDate(std::string_view text, std::string_view pattern, Date today) {
  const std::optional<TypedParts> parts = TakeApart(text, pattern);
  if (!parts) return std::nullopt;
  std::optional<int> year_number = static_cast<int>(year_month_day(today).year());
  std::optional<int> month_number;
  std::optional<int> day_number;
  for (std::size_t i = 0; i < parts->numbers.size(); ++i) {
    std::string_view digits = parts->numbers[i];
    const char part = parts->order[i];
    if (part == 'y') {
      year_number = YearOf(digits);
    } else {
      (part == 'M' ? month_number : day_number) = TakeNumber(digits, 1, 2);
    }
  }
  if (!year_number || !month_number || !day_number) return std::nullopt;
  return CalendarDate(*year_number, *month_number, *day_number);
}

}  // namespace

int DaysBetween(Date from, Date to) { return static_cast<int>((to - from).count()); }

Date AddDays(Date date, int days) {
  return CheckedDate(std::int64_t{date.time_since_epoch().count()} + days);
}

Date AddMonths(Date date, int months) {
  constexpr std::int64_t kFirstMonth = std::int64_t{100} * 12;
  constexpr std::int64_t kEndOfMonths = std::int64_t{10000} * 12;
  const year_month_day parts(date);
  const std::int64_t month_count = std::int64_t{static_cast<int>(parts.year())} * 12 +
                                   static_cast<unsigned>(parts.month()) - 1 + months;
  if (month_count < kFirstMonth || month_count >= kEndOfMonths) {
    throw Error(ErrorNumber::kBadArgument);
  }
  const auto in_range = static_cast<int>(month_count);
  const auto result = year(in_range / 12) / (in_range % 12 + 1);
  return result / std::min(parts.day(), (result / std::chrono::last).day());
}

Date DateFromParts(int year, int month, int day) {
  const std::int64_t month_count = std::int64_t{year} * 12 + month - 1;
  return CheckedDate(FirstOfMonth(month_count) + day - 1);
}

std::string ShortDateText(Date date, const LocaleFormat& locale) {
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

Date ParseShortDate(std::string_view text, const LocaleFormat& locale) {
  const std::optional<Date> date = ReadShortDate(text, locale.date_pattern);
  if (!date.has_value()) throw Error(ErrorNumber::kTypeMismatch);
  return *date;
}

Date ParseTypedDate(std::string_view text, const LocaleFormat& locale, Date today) {
  std::optional<Date> date = ReadShortDate(text, locale.date_pattern);
  if (!date) date = ReadTypedDate(text, locale.date_pattern, today);
  if (!date) throw Error(ErrorNumber::kTypeMismatch);
  return *date;
}

DatePart DatePartAt(std::string_view text, std::size_t position, const LocaleFormat& locale) {
  const std::optional<TypedParts> parts = TakeApart(text, locale.date_pattern);
  if (!parts) return DatePart::kDay;
  std::size_t i = 0;
  while (i + 1 < parts->numbers.size()) {
    const std::string_view number = parts->numbers[i];
    const auto end = static_cast<std::size_t>(number.data() + number.size() - text.data());
    if (position <= end) break;
    ++i;
  }
  switch (parts->order[i]) {
    case 'y':
      return DatePart::kYear;
    case 'M':
      return DatePart::kMonth;
    default:
      return DatePart::kDay;
  }
}

std::string ShortTimeText(std::chrono::minutes since_midnight, const LocaleFormat& locale) {
  constexpr std::string_view kHalf = "AP";
  const auto minutes = static_cast<unsigned>(since_midnight.count());
  const unsigned hour = minutes / 60;
  std::string text;
  for (std::string_view pattern = locale.time_pattern; !pattern.empty();) {
    if (pattern.starts_with(kHalf)) {
      text += hour < 12 ? locale.am : locale.pm;
      pattern.remove_prefix(kHalf.size());
      continue;
    }
    const std::string_view token = TakeToken(pattern, IsPartOfTime);
    switch (token.front()) {
      case 'H':
        text += Padded(hour, token.size());
        break;
      case 'h':
        text += Padded(hour % 12 == 0 ? 12 : hour % 12, token.size());
        break;
      case 'm':
        text += Padded(minutes % 60, token.size());
        break;
      default:
        text += token;
    }
  }
  return text;
}

}  // namespace velta
