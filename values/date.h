#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

#include "values/locale.h"

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
std::string ShortDateText(Date date, const LocaleFormat& locale);

/// Reads a date in the order of the user's short form. Tolerant of leading zeros and of blanks
/// around the parts ("01. 2. 2005"); a year of one or two digits, a day that the calendar does not
/// have and anything else that is no date throw Error 13. Reads back whatever ShortDateText wrote.
Date ParseShortDate(std::string_view text, const LocaleFormat& locale);

/// Reads a date as people type it into a field. Besides the user's short form these are dates:
///  - a year of two digits: 00 to 68 are 2000 to 2068, 69 to 99 are 1969 to 1999;
///  - no year, which is that of `today`: "10.3." and "10.3";
///  - no separators, six or eight digits in the order of the short form: "100305", "10032005";
///  - other separators, the same throughout: "." or "," (as a keypad types it), "/" and "-".
/// A year of four digits may always come first ("2005-03-10"). Otherwise the order is that of the
/// short form, except that points stand in day, month, year where the short form has none: in the
/// form M/d/yyyy "3/10/2005" and "10.3.2005" are the same day. What is no date, or may be more than
/// one, throws Error 13.
Date ParseTypedDate(std::string_view text, const LocaleFormat& locale, Date today);

enum class DatePart { kDay, kMonth, kYear };

/// Which part of a typed date a cursor changes that has `position` bytes to its left. Between two
/// parts it is the one before. The day where the text is no date.
DatePart DatePartAt(std::string_view text, std::size_t position, const LocaleFormat& locale);

/// The time of day in the user's short form: "9:05", "14:59"; "9:05 AM", "2:59 PM".
std::string ShortTimeText(std::chrono::minutes since_midnight, const LocaleFormat& locale);

}  // namespace velta
