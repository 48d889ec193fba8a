#include "values/date.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/support/thrown.h"

namespace velta {
namespace {

using testing::Thrown;

constexpr int kMaxInt = std::numeric_limits<int>::max();
constexpr int kMinInt = std::numeric_limits<int>::min();

LocaleFormat WithPattern(const std::string& pattern) {
  LocaleFormat locale;
  locale.date_pattern = pattern;
  return locale;
}

const LocaleFormat kCzech;
const LocaleFormat kEnglish = WithPattern("M/d/yyyy");

/// The date that the Czech text names.
Date On(const std::string& text) { return ParseShortDate(text, kCzech); }

/// A calendar that is counted by fingers, one day after the other.
struct CountedDay {
  int year = 1900;
  int month = 1;
  int day = 1;

  int DaysInMonth() const {
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && leap ? 29 : kDays[month - 1];
  }
  void Next() {
    if (++day <= DaysInMonth()) return;
    day = 1;
    if (++month <= 12) return;
    month = 1;
    ++year;
  }
  std::string CzechText() const {
    return std::to_string(day) + "." + std::to_string(month) + "." + std::to_string(year);
  }
};

TEST(DateTest, EveryDayOfTwoCenturies) {
  const LocaleFormat locales[] = {kCzech, kEnglish, WithPattern("dd/MM/yyyy"),
                                  WithPattern("yyyy-MM-dd"), WithPattern("d. M. yyyy")};
  // 1.1.1900 lies 25 567 days before 1.1.1970: 70 years with 17 leap days, 1900 being none.
  const Date first{std::chrono::days(-25567)};
  CountedDay counted;
  int days = 0;
  for (; counted.year <= 2100; counted.Next(), ++days) {
    const Date date = DateFromParts(counted.year, counted.month, counted.day);
    ASSERT_EQ(DaysBetween(first, date), days) << counted.CzechText();
    ASSERT_EQ(AddDays(first, days), date) << counted.CzechText();
    ASSERT_EQ(ShortDateText(date, kCzech), counted.CzechText());
    for (const LocaleFormat& locale : locales) {
      ASSERT_EQ(ParseShortDate(ShortDateText(date, locale), locale), date)
          << counted.CzechText() << " as " << locale.date_pattern;
    }
  }
  EXPECT_EQ(days, 201 * 365 + 49);  // 49 leap years from 1904 to 2096
}

struct DaysRow {
  const char* name;
  const char* from;
  const char* to;
  int days;
};

// Counted on a paper calendar: the first day does not count, the last one does.
constexpr DaysRow kDays[] = {
    {"21 days of March, 30, 31, 20 days of June", "10.3.2005", "20.6.2005", 102},
    {"the same day", "28.4.2005", "28.4.2005", 0},
    {"the next day", "31.12.2005", "1.1.2006", 1},
    {"back", "20.6.2005", "10.3.2005", -102},
    {"a common year", "1.1.2005", "1.1.2006", 365},
    {"a leap year", "1.1.2004", "1.1.2005", 366},
    {"no leap year: 1900", "28.2.1900", "1.3.1900", 1},
    {"a leap year: 2000", "28.2.2000", "1.3.2000", 2},
    {"whole range", "1.1.0100", "31.12.9999", 3615899},
};

TEST(DateTest, DaysBetween) {
  for (const DaysRow& row : kDays) {
    EXPECT_EQ(DaysBetween(On(row.from), On(row.to)), row.days) << row.name;
    EXPECT_EQ(AddDays(On(row.from), row.days), On(row.to)) << row.name;
  }
}

TEST(DateTest, AddDaysStaysInTheCalendar) {
  EXPECT_EQ(AddDays(On("30.12.9999"), 1), On("31.12.9999"));
  EXPECT_EQ(AddDays(On("2.1.0100"), -1), On("1.1.0100"));
  EXPECT_EQ(Thrown([] { AddDays(On("31.12.9999"), 1); }), ErrorNumber::kBadArgument);
  EXPECT_EQ(Thrown([] { AddDays(On("1.1.0100"), -1); }), ErrorNumber::kBadArgument);
  EXPECT_EQ(Thrown([] { AddDays(On("1.1.2005"), kMaxInt); }), ErrorNumber::kBadArgument);
  EXPECT_EQ(Thrown([] { AddDays(On("1.1.2005"), kMinInt); }), ErrorNumber::kBadArgument);
}

struct MonthsRow {
  const char* name;
  const char* from;
  int months;
  const char* to;
};

constexpr MonthsRow kMonths[] = {
    {"same day", "15.3.2005", 1, "15.4.2005"},
    {"none", "31.1.2005", 0, "31.1.2005"},
    {"no such day: 30-day month", "31.3.2005", 1, "30.4.2005"},
    {"no such day: February", "31.1.2005", 1, "28.2.2005"},
    {"no such day: February of a leap year", "31.1.2004", 1, "29.2.2004"},
    {"the last day is not kept", "28.2.2005", 1, "28.3.2005"},
    {"over the year's end", "30.11.2005", 3, "28.2.2006"},
    {"half a year", "1.7.2005", 6, "1.1.2006"},
    {"back over the year", "31.1.2005", -2, "30.11.2004"},
    {"back by years", "29.2.2004", -48, "29.2.2000"},
    {"29 February a year later", "29.2.2004", 12, "28.2.2005"},
    {"last month there is", "30.11.9999", 1, "30.12.9999"},
    {"first month there is", "1.2.0100", -1, "1.1.0100"},
};

TEST(DateTest, AddMonths) {
  for (const MonthsRow& row : kMonths) {
    EXPECT_EQ(AddMonths(On(row.from), row.months), On(row.to)) << row.name;
  }
}

TEST(DateTest, AddMonthsStaysInTheCalendar) {
  EXPECT_EQ(Thrown([] { AddMonths(On("1.12.9999"), 1); }), ErrorNumber::kBadArgument);
  EXPECT_EQ(Thrown([] { AddMonths(On("1.1.0100"), -1); }), ErrorNumber::kBadArgument);
  EXPECT_EQ(Thrown([] { AddMonths(On("1.1.2005"), kMaxInt); }), ErrorNumber::kBadArgument);
  EXPECT_EQ(Thrown([] { AddMonths(On("1.1.2005"), kMinInt); }), ErrorNumber::kBadArgument);
}

struct PartsRow {
  const char* name;
  int year;
  int month;
  int day;
  const char* date;
};

constexpr PartsRow kParts[] = {
    {"a date", 2005, 4, 28, "28.4.2005"},
    {"day beyond February", 2005, 2, 31, "3.3.2005"},
    {"day beyond a leap February", 2004, 2, 30, "1.3.2004"},
    {"day 0", 2005, 3, 0, "28.2.2005"},
    {"day before the year", 2005, 1, -1, "30.12.2004"},
    {"month 13", 2005, 13, 1, "1.1.2006"},
    {"month 0", 2005, 0, 1, "1.12.2004"},
    {"month -11", 2005, -11, 1, "1.1.2004"},
    {"month -12", 2005, -12, 31, "31.12.2003"},
    {"many months", 2000, 1 + 12 * 50, 1, "1.1.2050"},
    {"a day number within the year", 2005, 1, 365, "31.12.2005"},
    {"first", 100, 1, 1, "1.1.0100"},
    {"last", 9999, 12, 31, "31.12.9999"},
    {"over the end and back", 9999, 13, 0, "31.12.9999"},
    {"before the beginning and back", 99, 12, 32, "1.1.0100"},
    // 99 600 years are 249 cycles of 400 years, each of 146 097 days.
    {"far year, days lead back", 101600, 1, 1 - 249 * 146097, "1.1.2000"},
    {"far month, days lead back", 2000, 1 + 12 * 99600, 1 - 249 * 146097, "1.1.2000"},
    {"year below zero, days lead forth", -97600, 1, 1 + 249 * 146097, "1.1.2000"},
};

TEST(DateTest, DateFromPartsRollsOver) {
  for (const PartsRow& row : kParts) {
    EXPECT_EQ(DateFromParts(row.year, row.month, row.day), On(row.date)) << row.name;
  }
}

TEST(DateTest, DateFromPartsEqualsCountingDays) {
  for (int month = 1; month <= 12; ++month) {
    for (int day = -400; day <= 800; ++day) {
      ASSERT_EQ(DateFromParts(2003, month, day), AddDays(DateFromParts(2003, month, 1), day - 1));
    }
  }
}

constexpr PartsRow kBadParts[] = {
    {"before the first", 100, 1, 0, ""},
    {"after the last", 9999, 12, 32, ""},
    {"the year stands as it is", 5, 1, 1, ""},
    {"year 0", 0, 1, 1, ""},
    {"all greatest", kMaxInt, kMaxInt, kMaxInt, ""},
    {"all lowest", kMinInt, kMinInt, kMinInt, ""},
    {"greatest year", kMaxInt, 1, 1, ""},
    {"lowest month", 2005, kMinInt, 1, ""},
    {"greatest day", 2005, 1, kMaxInt, ""},
};

TEST(DateTest, DateFromPartsOutsideTheCalendar) {
  for (const PartsRow& row : kBadParts) {
    EXPECT_EQ(Thrown([&] { DateFromParts(row.year, row.month, row.day); }),
              ErrorNumber::kBadArgument)
        << row.name;
  }
}

struct TextRow {
  const char* pattern;
  const char* text;
};

// All of them 8 April 2005.
constexpr TextRow kTexts[] = {
    {"d.M.yyyy", "8.4.2005"},           {"dd.MM.yyyy", "08.04.2005"},
    {"M/d/yyyy", "4/8/2005"},           {"dd/MM/yyyy", "08/04/2005"},
    {"yyyy-MM-dd", "2005-04-08"},       {"d. M. yyyy", "8. 4. 2005"},
    {"yyyy. MM. dd.", "2005. 04. 08."}, {"d.M.yyyy г.", "8.4.2005 г."},
};

TEST(DateTest, ShortDateTextFollowsThePattern) {
  const Date date = DateFromParts(2005, 4, 8);
  for (const TextRow& row : kTexts) {
    EXPECT_EQ(ShortDateText(date, WithPattern(row.pattern)), row.text);
    EXPECT_EQ(ParseShortDate(row.text, WithPattern(row.pattern)), date) << row.text;
  }
}

TEST(DateTest, YearsBeforeTheThousandHaveFourDigits) {
  EXPECT_EQ(ShortDateText(DateFromParts(100, 1, 1), kCzech), "1.1.0100");
  EXPECT_EQ(ShortDateText(DateFromParts(9999, 12, 31), kCzech), "31.12.9999");
  EXPECT_EQ(ParseShortDate("31.12.999", kCzech), DateFromParts(999, 12, 31));
}

struct ParseRow {
  const char* name;
  const char* text;
};

// All of them 1 February 2005 in the Czech form.
constexpr ParseRow kTolerated[] = {
    {"as written", "1.2.2005"},
    {"leading zeros", "01.02.2005"},
    {"blanks after the points", "1. 2. 2005"},
    {"both", "01. 2. 2005"},
    {"blanks everywhere", "  1 .  2 . 2005  "},
    {"unbreakable blanks", "1.\u00A02.\u202F2005\u00A0"},
};

TEST(DateTest, ParseIsTolerantOfZerosAndBlanks) {
  for (const ParseRow& row : kTolerated) {
    EXPECT_EQ(ParseShortDate(row.text, kCzech), DateFromParts(2005, 2, 1)) << row.name;
  }
  EXPECT_EQ(ParseShortDate(" 02 / 1 / 2005 ", kEnglish), DateFromParts(2005, 2, 1));
}

constexpr ParseRow kNoDates[] = {
    {"empty", ""},
    {"blank", " "},
    {"words", "zítra"},
    {"two-digit year", "1.2.05"},
    {"one-digit year", "1.2.5"},
    {"year before the calendar", "1.2.0099"},
    {"five-digit year", "1.2.20055"},
    {"no year", "1.2."},
    {"no year and no point", "1.2"},
    {"no month", "1..2005"},
    {"no day", ".2.2005"},
    {"31 April", "31.4.2005"},
    {"29 February 2005", "29.2.2005"},
    {"29 February 1900", "29.2.1900"},
    {"month 13", "1.13.2005"},
    {"month 0", "1.0.2005"},
    {"day 0", "0.1.2005"},
    {"day 32", "32.1.2005"},
    {"three-digit day", "001.2.2005"},
    {"other separators", "1/2/2005"},
    {"other order", "2005.2.1"},
    {"minus", "1.-2.2005"},
    {"something after it", "1.2.2005x"},
    {"time after it", "1.2.2005 12:00"},
    {"point after it", "1.2.2005."},
    {"divided number", "1 0.2.2005"},
    {"tabulator", "1.\t2.2005"},
    {"huge numbers", "99999999999.99999999999.99999999999"},
};

TEST(DateTest, WhatIsNoDateIsATypeMismatch) {
  for (const ParseRow& row : kNoDates) {
    EXPECT_EQ(Thrown([&] { ParseShortDate(row.text, kCzech); }), ErrorNumber::kTypeMismatch)
        << row.name;
  }
  EXPECT_EQ(ParseShortDate("29.2.2000", kCzech), DateFromParts(2000, 2, 29));
  EXPECT_EQ(Thrown([] { ParseShortDate("13/1/2005", kEnglish); }), ErrorNumber::kTypeMismatch);
  EXPECT_EQ(Thrown([] { ParseShortDate("1.2.2005", kEnglish); }), ErrorNumber::kTypeMismatch);
}

TEST(DateTest, BlanksThatSeparateThePartsCannotBeLeftOut) {
  const LocaleFormat locale = WithPattern("d M yyyy");
  EXPECT_EQ(ParseShortDate("1 12 2005", locale), DateFromParts(2005, 12, 1));
  EXPECT_EQ(Thrown([&] { ParseShortDate("112 2005", locale); }), ErrorNumber::kTypeMismatch);
}

struct TypedRow {
  const char* name;
  const char* text;
  const char* date;
};

const Date kToday = DateFromParts(2026, 11, 21);

constexpr TypedRow kTypedInCzech[] = {
    {"the short form", "10.3.2005", "10.3.2005"},
    {"zeros", "01.02.2005", "1.2.2005"},
    {"blanks", " 1. 2. 2005 ", "1.2.2005"},
    {"unbreakable blanks", "1.\u00A02.\u202F2005\u00A0", "1.2.2005"},
    {"two-digit year", "10.3.05", "10.3.2005"},
    {"two-digit year with blanks", "10. 3. 05", "10.3.2005"},
    {"the last of the 2000s", "1.1.68", "1.1.2068"},
    {"the first of the 1900s", "31.12.69", "31.12.1969"},
    {"year 00", "1.1.00", "1.1.2000"},
    {"year 94", "15.7.94", "15.7.1994"},
    {"year 99", "31.12.99", "31.12.1999"},
    {"this year", "10.3.", "10.3.2026"},
    {"this year without the last point", "10.3", "10.3.2026"},
    {"this year with zeros and blanks", "01. 03. ", "1.3.2026"},
    {"six digits", "100305", "10.3.2005"},
    {"six digits of the 1900s", "150794", "15.7.1994"},
    {"eight digits", "10032005", "10.3.2005"},
    {"year first", "2005-03-10", "10.3.2005"},
    {"year first without zeros", "2005-3-1", "1.3.2005"},
    {"year first with slashes", "2005/03/10", "10.3.2005"},
    {"year first with points", "2005.3.10", "10.3.2005"},
    {"slashes", "10/3/2005", "10.3.2005"},
    {"slashes, no year", "10/3", "10.3.2026"},
    {"minuses", "10-3-05", "10.3.2005"},
    {"a keypad's commas", "10,3,2005", "10.3.2005"},
    {"a keypad's commas, no year", "10,3,", "10.3.2026"},
    {"point at the end", "10.3.2005.", "10.3.2005"},
    {"leap day", "29.2.04", "29.2.2004"},
};

constexpr TypedRow kTypedInEnglish[] = {
    {"the short form", "3/10/2005", "10.3.2005"},
    {"two-digit year", "3/10/05", "10.3.2005"},
    {"this year", "3/10", "10.3.2026"},
    {"six digits in the form's order", "031005", "10.3.2005"},
    {"minuses in the form's order", "3-10-2005", "10.3.2005"},
    {"points: the day first", "10.3.2005", "10.3.2005"},
    {"points, no year", "10.3.", "10.3.2026"},
    {"year first", "2005-03-10", "10.3.2005"},
};

constexpr TypedRow kTypedInHungarian[] = {
    {"the short form", "2005. 03. 10.", "10.3.2005"},
    {"points in the form's order", "05.3.10", "10.3.2005"},
    {"no year", "3.10.", "10.3.2026"},
    {"eight digits", "20050310", "10.3.2005"},
};

void ExpectTyped(const TypedRow& row, const LocaleFormat& locale) {
  SCOPED_TRACE(row.name);
  Date date{};
  EXPECT_NO_THROW(date = ParseTypedDate(row.text, locale, kToday));
  EXPECT_EQ(date, On(row.date));
}

TEST(DateTest, TypedDatesInTheWaysThatPeopleWriteThem) {
  for (const TypedRow& row : kTypedInCzech) ExpectTyped(row, kCzech);
  for (const TypedRow& row : kTypedInEnglish) ExpectTyped(row, kEnglish);
  for (const TypedRow& row : kTypedInHungarian) ExpectTyped(row, WithPattern("yyyy. MM. dd."));
}

TEST(DateTest, WhatTheProgramShowsIsAlwaysReadBack) {
  const Date date = DateFromParts(2005, 4, 8);
  for (const TextRow& row : kTexts) {
    EXPECT_EQ(ParseTypedDate(row.text, WithPattern(row.pattern), kToday), date) << row.text;
  }
}

constexpr ParseRow kNoTypedDates[] = {
    {"empty", ""},
    {"blank", " "},
    {"words", "zítra"},
    {"a day alone", "10"},
    {"a day and its point", "10."},
    {"four digits", "1003"},
    {"five digits", "10305"},
    {"seven digits", "1032005"},
    {"one-digit year", "10.3.5"},
    {"three-digit year", "10/3/205"},
    {"five-digit year", "10.3.20055"},
    {"31 February", "31.2.2005"},
    {"31 February of this year", "31.2."},
    {"29 February of this year", "29.2."},
    {"month 13", "1.13.05"},
    {"six digits, month 13", "011305"},
    {"different separators", "10.3/2005"},
    {"blanks as separators", "10 3 2005"},
    {"divided digits", "10 03 05"},
    {"month and year", "3.2005"},
    {"year and month", "2005-03"},
    {"no month", "10..2005"},
    {"slash at the end", "10/3/"},
    {"two points at the end", "10.3.."},
    {"six digits and a point", "100305."},
    {"something after it", "10.3.05x"},
    {"four numbers", "10.3.05.1"},
    {"sign", "-10.3.05"},
    {"huge numbers", "99999999999.99999999999.99999999999"},
};

TEST(DateTest, TypedTextThatIsNoDateIsATypeMismatch) {
  for (const ParseRow& row : kNoTypedDates) {
    EXPECT_EQ(Thrown([&] { ParseTypedDate(row.text, kCzech, kToday); }), ErrorNumber::kTypeMismatch)
        << row.name;
  }
  EXPECT_EQ(Thrown([] { ParseTypedDate("13/1/05", kEnglish, kToday); }),
            ErrorNumber::kTypeMismatch);
}

struct CursorRow {
  const char* text;
  std::string parts;  // for each place of the cursor: d, M or y
};

TEST(DateTest, CursorStandsInOnePartOfATypedDate) {
  const CursorRow rows[] = {
      {"28.4.2005", "dddMMyyyyy"},
      {"1. 2.", "ddMMMM"},
      {"280405", "dddMMyy"},
      {"2005-04-8", "yyyyyMMMdd"},
      {" 1 . 2 . 2005", "dddMMMMyyyyyyy"},
      {"zítra", "ddddddd"},
  };
  for (const CursorRow& row : rows) {
    std::string parts;
    for (std::size_t position = 0; position <= std::string_view(row.text).size(); ++position) {
      const DatePart part = DatePartAt(row.text, position, kCzech);
      parts += part == DatePart::kDay ? 'd' : part == DatePart::kMonth ? 'M' : 'y';
    }
    EXPECT_EQ(parts, row.parts) << row.text;
  }
  EXPECT_EQ(DatePartAt("4/28/2005", 0, kEnglish), DatePart::kMonth);
  EXPECT_EQ(DatePartAt("4/28/2005", 4, kEnglish), DatePart::kDay);
}

TEST(DateTest, ShortTimeText) {
  using std::chrono::minutes;
  struct Row {
    int hour;
    int minute;
    const char* czech;
    const char* american;
    const char* zeros_and_words;
  };
  LocaleFormat american;
  american.time_pattern = "h:mm AP";
  LocaleFormat other;
  other.time_pattern = "AP hh.mm";
  other.am = "dop.";
  other.pm = "odp.";
  for (const Row& row :
       {Row{0, 0, "0:00", "12:00 AM", "dop. 12.00"}, Row{2, 59, "2:59", "2:59 AM", "dop. 02.59"},
        Row{9, 5, "9:05", "9:05 AM", "dop. 09.05"}, Row{11, 59, "11:59", "11:59 AM", "dop. 11.59"},
        Row{12, 0, "12:00", "12:00 PM", "odp. 12.00"}, Row{13, 7, "13:07", "1:07 PM", "odp. 01.07"},
        Row{23, 59, "23:59", "11:59 PM", "odp. 11.59"}}) {
    const minutes time(row.hour * 60 + row.minute);
    EXPECT_EQ(ShortTimeText(time, LocaleFormat()), row.czech);
    EXPECT_EQ(ShortTimeText(time, american), row.american);
    EXPECT_EQ(ShortTimeText(time, other), row.zeros_and_words);
  }
}

}  // namespace
}  // namespace velta
