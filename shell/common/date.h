#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "ui/locale.h"

namespace velta {

/// A calendar day; the difference of two is std::chrono::days.
using Date = std::chrono::sys_days;

/// Whole days from `from` to `to`; negative where `to` is the earlier one.
/// DaysBetween(10.3.2005, 20.6.2005) is 102.
int DaysBetween(Date from, Date to);

/// The day `days` after `date`. Outside 1.1.100 to 31.12.9999: Error 5.
Date AddDays(Date date, int days);

/// The same day of the month `months` later, or that month's last day where it has no such day.
/// Outside 1.1.100 to 31.12.9999: Error 5.
Date AddMonths(Date date, int months);

/// A date from its parts, of which day and month may lie outside their month and year and then roll
/// over, in both directions: DateFromParts(2005, 2, 31) is 3.3.2005, (2005, 13, 1) is 1.1.2006,
/// (2005, 3, 0) is 28.2.2005. The year is taken as it stands. Outside 1.1.100 to 31.12.9999:
/// Error 5.
Date DateFromParts(int year, int month, int day);

/// The date in the user's short form: "28.4.2005".
std::string ShortDateText(Date date, const ui::LocaleFormat& locale);

/// Reads a date in the order of the user's short form. Tolerant of leading zeros and of blanks
/// around the parts ("01. 2. 2005"); a year of one or two digits, a day that the calendar does not
/// have and anything else that is no date throw Error 13. Reads back whatever ShortDateText wrote.
Date ParseShortDate(std::string_view text, const ui::LocaleFormat& locale);

/// The time of day: "9:05".
std::string ShortTimeText(std::chrono::minutes since_midnight);

}  // namespace velta
