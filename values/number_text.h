#pragma once

#include <string>
#include <string_view>

#include "values/locale.h"
#include "values/money.h"

/// Numbers as text and back, in the user's own form. The test IsNumeric and the conversions To…
/// read by one and the same scanner, so that what passes the test converts.
///
/// Accepted: blanks, a sign ("+" or "-"), digits with grouping between them (blank, U+00A0, U+202F
/// or the locale's group sign), the locale's decimal separator with or without digits on either
/// side, blanks. At least one digit is needed. So "5,", ",5", "10 000,50" are numbers, "", ",",
/// "-", "1.5" (in a comma locale), "1e3" and "5 %" are not.
///
/// Amounts come from e-mails, banks and spreadsheets too, so these are accepted besides:
///  - "Kč" or "CZK" behind the number or before it, not both: "10 000,50 Kč", "CZK 1 000";
///  - a dash for no hellers: "12 345,-", "1 000,--";
///  - the form of another locale where both separators stand: the last one is the decimal one then,
///    and the other has groups of three behind it: "12.345,50". "1.000" alone may be one or a
///    thousand and is no number in a comma locale.
namespace velta {

/// A yearly or daily rate in per cent or per mille. It is kept in single precision, and widened to
/// double where interest is computed: a typed 0,05 counts as 0.05000000074505806.
using Rate = float;

/// The double that is nearest to the text of a rate: 7.05 for the single next to it, which itself
/// is 7.050000190734863.
double AsWritten(Rate rate);

/// A value at a fixed number of decimals (0 to 22), rounded half away from zero on its 15-digit
/// decimal text: RoundedTo(1.005, 2) is 1.01. The result is the double nearest to that decimal
/// number.
double RoundedTo(double value, int decimals);

/// The amount that the 15-digit decimal text of `crowns` says, to four decimals, ties to the even
/// one. Out of range: Error 6.
Money ToMoney(double crowns);

bool IsNumeric(std::string_view text, const LocaleFormat& locale);

/// Exact to four decimals, ties to the even one: "12,00005" is 12.0000, "12,00015" is 12.0002.
/// Not a number: Error 13. Out of range: Error 6.
Money ToMoney(std::string_view text, const LocaleFormat& locale);

/// The nearest double or single. Not a number: Error 13. Out of range: Error 6.
double ToDouble(std::string_view text, const LocaleFormat& locale);
Rate ToRate(std::string_view text, const LocaleFormat& locale);

/// The number that a text begins with, whatever the locale: blanks are skipped, also inside, "." is
/// the decimal separator, reading ends before the first other character; nothing readable is 0.
/// "31.12.2005" gives 31.12, "922 337,58" gives 922337, "abc" gives 0; never an error, what is
/// beyond the range of double is infinite.
double LeadingNumber(std::string_view text);

/// The plain text of a value: the locale's decimal separator, no grouping, no trailing zeros, never
/// an exponent, no "-0". A double has up to 15 significant digits ("115,068493150685"), an amount
/// its up to four decimals ("41,1"), a rate the shortest text that reads back to the same single
/// ("9,05").
std::string PlainText(double value, const LocaleFormat& locale);
std::string PlainText(Money amount, const LocaleFormat& locale);
std::string PlainText(Rate rate, const LocaleFormat& locale);

/// A fixed number of decimals, rounded half away from zero on the value's 15-digit decimal
/// text: 1.005 with two decimals is "1,01". No grouping; a value that rounds to zero has no sign.
std::string FixedText(double value, int decimals, const LocaleFormat& locale);
std::string FixedText(Money amount, int decimals, const LocaleFormat& locale);

/// Crowns for people: two decimals rounded half away from zero on the decimal text, grouping by
/// threes, a blank and "Kč", in every locale: "1 234,50 Kč", "-1 234,50 Kč", "1,234.50 Kč".
std::string CurrencyText(Money amount, const LocaleFormat& locale);
std::string CurrencyText(double amount, const LocaleFormat& locale);

}  // namespace velta
