#include "values/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "tests/support/thrown.h"

namespace velta {
namespace {

using testing::Thrown;

const LocaleFormat kCzech;
const LocaleFormat kEnglish{".", ",", "M/d/yyyy"};
const LocaleFormat kFrench{",", "\u202F", "dd/MM/yyyy"};

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr std::int64_t kMaxUnits = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMinUnits = std::numeric_limits<std::int64_t>::min();

// --- Reading -----------------------------------------------------------------------------------

struct NumericRow {
  const char* name;
  const char* text;
  std::int64_t units;  // the amount that it is, in 1/10 000
};

constexpr NumericRow kCzechNumbers[] = {
    {"one digit", "5", 50000},
    {"zero", "0", 0},
    {"minus zero", "-0", 0},
    {"decimals", "8,5", 85000},
    {"while typing: separator at the end", "5,", 50000},
    {"while typing: blank at the end", "10 ", 100000},
    {"separator first", ",5", 5000},
    {"minus and separator first", "-,5", -5000},
    {"minus", "-5", -50000},
    {"plus", "+5", 50000},
    {"leading zeros", "007,50", 75000},
    {"grouping blank", "10 000,50", 100005000},
    {"grouping U+00A0", "10\u00A0000,50", 100005000},
    {"grouping U+202F", "10\u202F000,50", 100005000},
    {"grouping anywhere between digits", "1 00 00,50", 100005000},
    {"several blanks between digits", "10 \u00A0 000", 100000000},
    {"blanks around", "  5,5\u00A0\u202F ", 55000},
    {"blank before the sign", " -5", -50000},
    {"unit", "5 Kč", 50000},
    {"unit without blank", "5Kč", 50000},
    {"unit after the separator", "5,Kč", 50000},
    {"unit and blanks", "10 000,50\u00A0Kč ", 100005000},
    {"our own currency text", "-1 234,50 Kč", -12345000},
    {"more decimals than an amount has", "0,00001", 0},
    {"unit of banks", "1 000 CZK", 10000000},
    {"unit of banks before", "CZK 1 000", 10000000},
    {"unit before", "Kč 500", 5000000},
    {"unit before without blank", "CZK1000,50", 10005000},
    {"unit before, minus", "Kč -5", -50000},
    {"no hellers", "12 345,-", 123450000},
    {"no hellers, minus", "-5,-", -50000},
    {"no hellers, two dashes", "1 000,--", 10000000},
    {"no hellers, typographic dash", "1 000,–", 10000000},
    {"no hellers, long dash", "1 000,—", 10000000},
    {"no hellers and unit", "12 345,- Kč", 123450000},
    {"no hellers with a point", "12 345.-", 123450000},
    {"points between groups", "12.345,50 Kč", 123455000},
    {"points between many groups", "1.234.567,5", 12345675000},
    {"points between groups, no hellers", "12.345,-", 123450000},
    {"points between groups, separator at the end", "12.345,", 123450000},
    {"points between groups, minus", "-1.234,50", -12345000},
    {"points between groups, unit before", "CZK 1.234,50", 12345000},
    {"English form", "12,345.50", 123455000},
    {"English form, many groups", "1,234,567.50 CZK", 12345675000},
};

constexpr NumericRow kEnglishNumbers[] = {
    {"decimals", "1.5", 15000},
    {"separator at the end", "5.", 50000},
    {"separator first", ".5", 5000},
    {"grouping comma", "1,234.50", 12345000},
    {"grouping comma anywhere between digits", "12,34", 12340000},
    {"grouping blank", "1 234.50", 12345000},
    {"grouping U+00A0", "1\u00A0234.50", 12345000},
    {"our own currency text", "-1,234.50 Kč", -12345000},
    {"grouping comma anywhere, decimals", "12,34.5", 12345000},
    {"unit of banks before", "CZK 1,000", 10000000},
    {"no hellers", "12,345.-", 123450000},
    {"Czech form", "12.345,50 Kč", 123455000},
    {"Czech form, many groups", "1.234.567,50", 12345675000},
    {"Czech form, no hellers", "12 345,-", 123450000},
    {"Czech form, groups, no hellers", "12.345,-", 123450000},
};

constexpr NumericRow kFrenchNumbers[] = {
    {"grouping U+202F", "1\u202F234,5", 12345000},
    {"grouping blank", "1 234,5", 12345000},
};

struct TextRow {
  const char* name;
  const char* text;
};

constexpr TextRow kNoCzechNumbers[] = {
    {"empty", ""},
    {"blank", " "},
    {"unbreakable blank", "\u00A0"},
    {"separator alone", ","},
    {"minus alone", "-"},
    {"plus alone", "+"},
    {"sign and separator", "-,"},
    {"unit alone", "Kč"},
    {"separator and unit", ", Kč"},
    {"the other separator", "1.5"},
    {"the other separator at the end", "5."},
    {"two separators", "1,5,5"},
    {"two separators together", "1,,5"},
    {"sign, blank", "- 5"},
    {"two signs", "--5"},
    {"sign behind", "5-"},
    {"typographic minus", "\u22125"},
    {"letters", "abc"},
    {"letter behind", "5a"},
    {"letter before", "a5"},
    {"exponent", "1e3"},
    {"exponent with sign", "1E+3"},
    {"hexadecimal", "0x10"},
    {"infinity", "inf"},
    {"not a number", "nan"},
    {"per cent", "5 %"},
    {"blank before the separator", "5 ,5"},
    {"blank after the separator", "5, 5"},
    {"grouping in the decimals", "5,000 000"},
    {"unit twice", "5 Kč Kč"},
    {"unit in other letters", "5 kč"},
    {"foreign unit", "$5"},
    {"number after the unit", "5 Kč 5"},
    {"tabulator", "5\t"},
    {"line break", "5\n"},
    {"half of U+00A0", "5\xC2"},
    {"foreign digits", "\u0665"},
    {"one or a thousand", "1.000"},
    {"one or a thousand, unit", "1.000 Kč"},
    {"a million or no number", "1.000.000"},
    {"blanks between groups, point", "1 000.50"},
    {"groups not of three", "1.5,5"},
    {"first group too long", "1234.567,50"},
    {"later group too long", "1.2345,50"},
    {"later group too short", "1.234.56,50"},
    {"no group", ".234,50"},
    {"point behind the comma's group", "1,5.5"},
    {"two commas behind the point", "1.234,5,5"},
    {"points apart", "1.234,567.5"},
    {"unit on both sides", "Kč 500 Kč"},
    {"different units on both sides", "CZK 500 Kč"},
    {"unit behind the minus", "-Kč 500"},
    {"unit of banks alone", "CZK"},
    {"unit of banks in other letters", "czk 5"},
    {"foreign unit of banks", "EUR 5"},
    {"no hellers alone", ",-"},
    {"unit and no hellers", "Kč ,-"},
    {"hellers and a dash", "5,50-"},
    {"three dashes", "5,---"},
    {"no hellers, digits behind", "5,-5"},
    {"comma and equals sign", "5,="},
};

constexpr TextRow kNoEnglishNumbers[] = {
    {"empty", ""},
    {"grouping behind", "1,"},
    {"grouping first", ",5"},
    {"grouping before the separator", "1,.5"},
    {"grouping after the separator", "1.5,5"},
    {"Czech form, groups not of three", "12.34,50"},
    {"two separators", "1.5.5"},
    {"separator alone", "."},
};

void ExpectNumbers(const NumericRow& row, const LocaleFormat& locale) {
  SCOPED_TRACE(row.name);
  EXPECT_TRUE(IsNumeric(row.text, locale));
  EXPECT_EQ(ToMoney(row.text, locale).units(), row.units);
  // What an amount drops is less than one unit.
  const auto units = static_cast<double>(row.units);
  EXPECT_NEAR(ToDouble(row.text, locale), units / 10000, 0.0001);
  EXPECT_NEAR(ToRate(row.text, locale), units / 10000, 0.001);
}

void ExpectNoNumber(const TextRow& row, const LocaleFormat& locale) {
  SCOPED_TRACE(row.name);
  EXPECT_FALSE(IsNumeric(row.text, locale));
  EXPECT_EQ(Thrown([&] { ToMoney(row.text, locale); }), ErrorNumber::kTypeMismatch);
  EXPECT_EQ(Thrown([&] { ToDouble(row.text, locale); }), ErrorNumber::kTypeMismatch);
  EXPECT_EQ(Thrown([&] { ToRate(row.text, locale); }), ErrorNumber::kTypeMismatch);
}

TEST(NumberTextTest, WhatIsANumber) {
  for (const NumericRow& row : kCzechNumbers) ExpectNumbers(row, kCzech);
  for (const NumericRow& row : kEnglishNumbers) ExpectNumbers(row, kEnglish);
  for (const NumericRow& row : kFrenchNumbers) ExpectNumbers(row, kFrench);
}

TEST(NumberTextTest, WhatIsNoNumber) {
  for (const TextRow& row : kNoCzechNumbers) ExpectNoNumber(row, kCzech);
  for (const TextRow& row : kNoEnglishNumbers) ExpectNoNumber(row, kEnglish);
}

TEST(NumberTextTest, ALocaleWithoutGroupingReadsBlanksAllTheSame) {
  const LocaleFormat plain{",", "", "d.M.yyyy"};
  EXPECT_EQ(ToDouble("1 234,5", plain), 1234.5);
  EXPECT_EQ(CurrencyText(1234.5, plain), "1234,50 Kč");
}

constexpr NumericRow kAmounts[] = {
    {"below half, even", "12,00004", 120000},
    {"half, even below", "12,00005", 120000},
    {"half with zeros behind", "12,0000500000000000000000", 120000},
    {"half and a trace", "12,0000500000000000000001", 120001},
    {"above half, even", "12,00006", 120001},
    {"below half, odd", "12,00014999999999999999999", 120001},
    {"half, odd below", "12,00015", 120002},
    {"above half, odd", "12,00016", 120002},
    {"negative half, even below", "-12,00005", -120000},
    {"negative half, odd below", "-12,00015", -120002},
    {"negative half and a trace", "-12,000050001", -120001},
    {"carry into crowns", "0,99995", 10000},
    {"the first unit's half", "0,00005", 0},
    {"the second unit's half", "0,00015", 2},
    {"greatest", "922337203685477,5807", kMaxUnits},
    {"greatest, rounded down", "922337203685477,58074999", kMaxUnits},
    {"lowest", "-922337203685477,5808", kMinUnits},
    {"lowest, half, even below", "-922337203685477,58085", kMinUnits},
    {"the limit of the amount box", "922 337 203 685 477,58", 9223372036854775800},
    {"leading zeros beyond all digits", "0000000000000000000000000000000001,5", 15000},
};

TEST(NumberTextTest, AmountsAreExactWithTiesToEven) {
  for (const NumericRow& row : kAmounts) {
    EXPECT_EQ(ToMoney(row.text, kCzech).units(), row.units) << row.name;
  }
}

constexpr TextRow kTooGreatAmounts[] = {
    {"one unit too much", "922337203685477,5808"},
    {"half a unit too much, rounds to even", "922337203685477,58075"},
    {"decimals too much", "922337203685477,99"},
    {"crowns too much", "922337203685478"},
    {"one unit too little", "-922337203685477,5809"},
    {"a trace over half a unit too little", "-922337203685477,580850001"},
    {"beyond 64 bits", "1844674407370955,1616"},
    {"20 digits", "99999999999999999999"},
    {"40 digits", "9999999999999999999999999999999999999999"},
};

TEST(NumberTextTest, AmountsOutOfRangeAreAnOverflow) {
  for (const TextRow& row : kTooGreatAmounts) {
    EXPECT_TRUE(IsNumeric(row.text, kCzech)) << row.name;
    EXPECT_EQ(Thrown([&] { ToMoney(row.text, kCzech); }), ErrorNumber::kOverflow) << row.name;
  }
}

TEST(NumberTextTest, DoublesAreTheNearest) {
  EXPECT_EQ(ToDouble("9,05", kCzech), 9.05);
  EXPECT_EQ(ToDouble("-1 234,5678 Kč", kCzech), -1234.5678);
  EXPECT_EQ(ToDouble("0,1", kCzech), 0.1);
  EXPECT_EQ(ToDouble("9007199254740993", kCzech), 9007199254740992.0);  // 2^53 + 1: tie to even
  EXPECT_EQ(ToDouble("9007199254740993,0000000000000000000001", kCzech), 9007199254740994.0);
  EXPECT_EQ(ToDouble("0," + std::string(400, '0') + "1", kCzech), 0.0);
  EXPECT_EQ(ToDouble("1" + std::string(308, '0'), kCzech), 1e308);
  EXPECT_EQ(Thrown([] { ToDouble("1" + std::string(309, '0'), kCzech); }), ErrorNumber::kOverflow);
  EXPECT_EQ(Thrown([] { ToDouble("-1" + std::string(400, '0'), kCzech); }), ErrorNumber::kOverflow);
}

TEST(NumberTextTest, RatesAreSingles) {
  // The exact value of the single nearest to 0.05.
  EXPECT_EQ(static_cast<double>(ToRate("0,05", kCzech)), 0.0500000007450580596923828125);
  EXPECT_EQ(ToRate("9.05", kEnglish), 9.05F);
  // Just above the middle of 1 and the next single, 1 + 2^-23. Its nearest double is the middle
  // itself, from which a second rounding would lead down to 1.
  EXPECT_EQ(ToRate("1,00000005960464477539062500001", kCzech), 1.00000011920928955078125F);
  EXPECT_EQ(ToRate("0," + std::string(60, '0') + "1", kCzech), 0.0F);
  EXPECT_EQ(ToRate("3" + std::string(38, '0'), kCzech), 3e38F);
  EXPECT_EQ(Thrown([] { ToRate("4" + std::string(38, '0'), kCzech); }), ErrorNumber::kOverflow);
}

struct LeadingRow {
  const char* name;
  const char* text;
  double number;
};

constexpr LeadingRow kLeading[] = {
    {"a number", "12.5", 12.5},
    {"nothing", "", 0},
    {"blanks", "  \u00A0", 0},
    {"letters", "abc", 0},
    {"sign alone", "-", 0},
    {"point alone", ".", 0},
    {"point first", ".5", 0.5},
    {"point last", "5.", 5},
    {"ends at a letter", "12abc34", 12},
    {"no exponent", "1e3", 1},
    {"ends at a comma", "922 337,58", 922337},
    {"ends at the second point", "31.12.2005", 31.12},
    {"minus", "-5", -5},
    {"plus", "+5", 5},
    {"sign in the middle", "5-3", 5},
    {"two signs", "--5", 0},
    {"blanks before", "   7", 7},
    {"blanks inside", "1 234 567", 1234567},
    {"blank after the sign", "- 5", -5},
    {"blanks around the point", "1 . 5", 1.5},
    {"unbreakable blanks inside", "1\u00A0234\u202F567", 1234567},
    {"the greatest amount", "922 337 203 685 477,58", 922337203685477},
    {"the greatest amount with a point", "922337203685477.58", 922337203685477.58},
    {"beyond the amounts", "922337203685478", 922337203685478},
    {"unit", "5 Kč", 5},
};

TEST(NumberTextTest, LeadingNumber) {
  for (const LeadingRow& row : kLeading) {
    EXPECT_EQ(LeadingNumber(row.text), row.number) << row.name;
  }
  EXPECT_EQ(LeadingNumber("1" + std::string(300, '0')), 1e300);
  EXPECT_EQ(LeadingNumber("1" + std::string(400, '0')), kInfinity);
  EXPECT_EQ(LeadingNumber("-1" + std::string(400, '0')), -kInfinity);
}

// --- Writing -----------------------------------------------------------------------------------

struct DoubleTextRow {
  const char* name;
  double value;
  const char* czech;
};

// Expected: an arbitrary-precision decimal calculation on the 15-digit text.
constexpr DoubleTextRow kPlainDoubles[] = {
    {"zero", 0, "0"},
    {"minus zero", -0.0, "0"},
    {"whole", 100, "100"},
    {"10 000 at 14 % for 30 days", 115.06849315068493, "115,068493150685"},
    {"binary dust", 0.1 + 0.2, "0,3"},
    {"third", 1.0 / 3, "0,333333333333333"},
    {"negative", -2.0 / 3, "-0,666666666666667"},
    {"one decimal", 82.2, "82,2"},
    {"small, no exponent", 1e-7, "0,0000001"},
    {"smaller, no exponent", 1.5e-10, "0,00000000015"},
    {"15 digits", 1e15, "1000000000000000"},
    {"great, no exponent", 1e20, "100000000000000000000"},
    {"digits beyond the fifteenth", 123456789012345678.0, "123456789012346000"},
    {"carry through all digits", 0.99999999999999989, "1"},
    {"widened single", 0.05F, "0,0500000007450581"},
};

TEST(NumberTextTest, PlainTextOfADouble) {
  for (const DoubleTextRow& row : kPlainDoubles) {
    EXPECT_EQ(PlainText(row.value, kCzech), row.czech) << row.name;
  }
  EXPECT_EQ(PlainText(115.06849315068493, kEnglish), "115.068493150685");
  EXPECT_EQ(PlainText(5e-324, kCzech), "0," + std::string(323, '0') + "494065645841247");
  EXPECT_EQ(PlainText(std::numeric_limits<double>::max(), kCzech),
            "179769313486232" + std::string(294, '0'));
}

struct MoneyTextRow {
  const char* name;
  std::int64_t units;
  const char* plain;
  const char* currency;
  const char* english;
};

constexpr MoneyTextRow kMoneyTexts[] = {
    {"nothing", 0, "0", "0,00 Kč", "0.00 Kč"},
    {"usual", 12345000, "1234,5", "1 234,50 Kč", "1,234.50 Kč"},
    {"negative", -12345000, "-1234,5", "-1 234,50 Kč", "-1,234.50 Kč"},
    {"one decimal", 411000, "41,1", "41,10 Kč", "41.10 Kč"},
    {"one unit", 1, "0,0001", "0,00 Kč", "0.00 Kč"},
    {"minus one unit has no sign as currency", -1, "-0,0001", "0,00 Kč", "0.00 Kč"},
    {"below half a haléř", 49, "0,0049", "0,00 Kč", "0.00 Kč"},
    {"half a haléř", 50, "0,005", "0,01 Kč", "0.01 Kč"},
    {"minus below half a haléř", -49, "-0,0049", "0,00 Kč", "0.00 Kč"},
    {"minus half a haléř", -50, "-0,005", "-0,01 Kč", "-0.01 Kč"},
    {"half above an even haléř", 250, "0,025", "0,03 Kč", "0.03 Kč"},
    {"carry", 9999950, "999,995", "1 000,00 Kč", "1,000.00 Kč"},
    {"no carry", 9999949, "999,9949", "999,99 Kč", "999.99 Kč"},
    {"three digits", 1000000, "100", "100,00 Kč", "100.00 Kč"},
    {"four digits", 10000000, "1000", "1 000,00 Kč", "1,000.00 Kč"},
    {"seven digits", 12345678900, "1234567,89", "1 234 567,89 Kč", "1,234,567.89 Kč"},
    {"greatest", kMaxUnits, "922337203685477,5807", "922 337 203 685 477,58 Kč",
     "922,337,203,685,477.58 Kč"},
    {"lowest", kMinUnits, "-922337203685477,5808", "-922 337 203 685 477,58 Kč",
     "-922,337,203,685,477.58 Kč"},
};

TEST(NumberTextTest, TextsOfAnAmount) {
  for (const MoneyTextRow& row : kMoneyTexts) {
    SCOPED_TRACE(row.name);
    const Money amount = Money::FromUnits(row.units);
    EXPECT_EQ(PlainText(amount, kCzech), row.plain);
    EXPECT_EQ(CurrencyText(amount, kCzech), row.currency);
    EXPECT_EQ(CurrencyText(amount, kEnglish), row.english);
    EXPECT_EQ(ToMoney(row.plain, kCzech), amount);
    LocaleFormat ungrouped = kCzech;
    ungrouped.group = "";
    EXPECT_EQ(FixedText(amount, 2, kCzech) + " Kč", CurrencyText(amount, ungrouped));
  }
  EXPECT_EQ(FixedText(Money::FromUnits(12345050), 2, kCzech), "1234,51");
  EXPECT_EQ(FixedText(Money::FromUnits(-12345049), 2, kEnglish), "-1234.50");
}

TEST(NumberTextTest, EveryAmountReadsBackFromItsPlainText) {
  for (std::int64_t units = -20000; units <= 20000; ++units) {
    const Money amount = Money::FromUnits(units);
    ASSERT_EQ(ToMoney(PlainText(amount, kCzech), kCzech), amount);
    ASSERT_EQ(ToMoney(PlainText(amount, kEnglish), kEnglish), amount);
  }
  for (std::int64_t units = kMaxUnits; units > 1; units = units / 3 * 2) {
    ASSERT_EQ(ToMoney(PlainText(Money::FromUnits(units), kCzech), kCzech).units(), units);
    ASSERT_EQ(ToMoney(PlainText(Money::FromUnits(-units), kCzech), kCzech).units(), -units);
  }
}

TEST(NumberTextTest, TwoDecimalsOfAnAmountAreThoseOfItsCurrencyText) {
  LocaleFormat ungrouped = kCzech;
  ungrouped.group = "";
  const auto expect_same = [&](std::int64_t units) {
    const Money amount = Money::FromUnits(units);
    ASSERT_EQ(FixedText(amount, 2, kCzech) + " Kč", CurrencyText(amount, ungrouped)) << units;
  };
  for (std::int64_t units = -30000; units <= 30000; ++units) expect_same(units);
  for (std::int64_t units = 1; units < kMaxUnits / 3; units *= 3) {
    for (const std::int64_t near : {units - 50, units, units + 49}) {
      expect_same(near);
      expect_same(-near);
    }
  }
}

TEST(NumberTextTest, ADoubleIsTheAmountOfItsText) {
  const auto expect_same = [](double crowns) {
    ASSERT_EQ(ToMoney(crowns), ToMoney(PlainText(crowns, kCzech), kCzech)) << crowns;
    ASSERT_EQ(ToMoney(-crowns), ToMoney(PlainText(-crowns, kCzech), kCzech)) << -crowns;
  };
  for (int steps = 0; steps <= 100000; ++steps) {
    expect_same(steps / 20000.0);  // every second one is a tie
    expect_same(steps / 3000.0);
    expect_same(steps * 1000003.0 / 20000.0);
  }
  for (double crowns = 1e-9; crowns < 9e14; crowns *= 1.01) {
    expect_same(crowns);
    expect_same(std::nextafter(std::floor(crowns) + 0.00005, 1e15));
    expect_same(std::nextafter(std::floor(crowns) + 0.00005, 0));
  }
}

TEST(NumberTextTest, EveryWholeHalerReadsBackFromItsCurrencyText) {
  for (std::int64_t halere = -50000; halere <= 50000; ++halere) {
    const Money amount = Money::FromUnits(halere * 100);
    ASSERT_EQ(ToMoney(CurrencyText(amount, kCzech), kCzech), amount);
    ASSERT_EQ(ToMoney(CurrencyText(amount, kEnglish), kEnglish), amount);
    ASSERT_EQ(ToMoney(CurrencyText(amount, kFrench), kFrench), amount);
  }
}

TEST(NumberTextTest, CurrencyTextOfADouble) {
  constexpr DoubleTextRow kRows[] = {
      {"zero", 0, "0,00 Kč"},
      {"usual", 1234.5, "1 234,50 Kč"},
      {"negative", -1234.5, "-1 234,50 Kč"},
      {"half in the decimal text, below it in binary", 1.005, "1,01 Kč"},
      {"the same, negative", -1.005, "-1,01 Kč"},
      {"just below half", 1.00499, "1,00 Kč"},
      {"vanishing", -0.004, "0,00 Kč"},
      {"carry into a new group", 999.995, "1 000,00 Kč"},
      {"66 days at 9 % on 10 000", 162.73972602739727, "162,74 Kč"},
      {"beyond the amounts", 1e18, "1 000 000 000 000 000 000,00 Kč"},
  };
  for (const DoubleTextRow& row : kRows) {
    EXPECT_EQ(CurrencyText(row.value, kCzech), row.czech) << row.name;
  }
  EXPECT_EQ(CurrencyText(-1234.5, kEnglish), "-1,234.50 Kč");
}

TEST(NumberTextTest, PlainTextOfEveryRateOfTwoDecimals) {
  for (int hundredths = 0; hundredths <= 100000; ++hundredths) {
    std::string expected = std::to_string(hundredths / 100);
    if (hundredths % 100 != 0) {
      expected += "," + std::to_string(hundredths / 10 % 10);
      if (hundredths % 10 != 0) expected += std::to_string(hundredths % 10);
    }
    const Rate rate = ToRate(expected, kCzech);
    ASSERT_EQ(PlainText(rate, kCzech), expected);
    // The single nearest to the decimal number: a quotient of two exact doubles, narrowed.
    ASSERT_EQ(rate, static_cast<float>(hundredths / 100.0));
  }
}

TEST(NumberTextTest, PlainTextOfARate) {
  EXPECT_EQ(PlainText(9.05F, kEnglish), "9.05");
  EXPECT_EQ(PlainText(10.0F, kCzech), "10");
  EXPECT_EQ(PlainText(-0.0F, kCzech), "0");
  EXPECT_EQ(PlainText(0.0001F, kCzech), "0,0001");
  EXPECT_EQ(PlainText(-0.5F, kCzech), "-0,5");
  EXPECT_EQ(PlainText(static_cast<Rate>(0.53 + 7.0), kCzech), "7,53");
  const float extremes[] = {std::numeric_limits<float>::max(), std::numeric_limits<float>::min(),
                            -std::numeric_limits<float>::denorm_min(), std::nextafter(1.0F, 2.0F)};
  for (const float rate : extremes) {
    const std::string text = PlainText(rate, kCzech);
    EXPECT_EQ(text.find('e'), std::string::npos) << text;
    EXPECT_EQ(ToRate(text, kCzech), rate) << text;
  }
}

double AsText(Rate rate) { return ToDouble(PlainText(rate, kCzech), kCzech); }

TEST(NumberTextTest, ARateAsWrittenIsTheNumberOfItsText) {
  for (int steps = 0; steps <= 1000000; ++steps) {
    const double written = steps / 10000.0;
    const auto rate = static_cast<Rate>(written);
    ASSERT_EQ(AsWritten(rate), written);
    ASSERT_EQ(AsWritten(-rate), -written);
  }
}

TEST(NumberTextTest, AnySingleAsWrittenIsTheNumberOfItsText) {
  using Limits = std::numeric_limits<float>;
  std::vector<Rate> rates = {7.05F,
                             100.0001F,
                             123.4567F,
                             99.99999F,
                             99.9999F,
                             99.9998F,
                             0.00005F,
                             0.00001F,
                             12345.678F,
                             1e7F,
                             0.1F + 0.2F,
                             Limits::min(),
                             Limits::max(),
                             Limits::denorm_min(),
                             Limits::epsilon()};
  std::mt19937_64 random(20261122);
  std::uniform_real_distribution<double> exponent(-10, 20);
  for (int round = 0; round < 100000; ++round) {
    rates.push_back(static_cast<Rate>(std::pow(10, exponent(random))));
  }
  for (std::size_t i = 0; i < 1000; ++i) {  // the singles beside those of four decimals
    const auto rate = static_cast<Rate>(static_cast<double>(i * 997 + 1) / 10000);
    rates.push_back(std::nextafter(rate, 0.0F));
    rates.push_back(std::nextafter(rate, 1000.0F));
  }
  for (const Rate rate : rates) {
    ASSERT_EQ(AsWritten(rate), AsText(rate)) << std::hexfloat << rate;
    ASSERT_EQ(AsWritten(-rate), AsText(-rate)) << std::hexfloat << rate;
  }
  EXPECT_EQ(AsWritten(7.05F), 7.05);
  EXPECT_EQ(AsWritten(std::nextafter(7.05F, 8.0F)), 7.0500007);
  for (const Rate rate : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()}) {
    EXPECT_EQ(Thrown([&] { AsWritten(rate); }), ErrorNumber::kOverflow);
  }
}

struct FixedRow {
  const char* name;
  double value;
  int decimals;
  const char* czech;
};

// Expected: decimal quantization, half away from zero, of the value's 15-digit text.
constexpr FixedRow kFixed[] = {
    {"zero", 0, 2, "0,00"},
    {"zero without decimals", 0, 0, "0"},
    {"half in the decimal text, below it in binary", 1.005, 2, "1,01"},
    {"the same, negative", -1.005, 2, "-1,01"},
    {"another", 2.675, 2, "2,68"},
    {"exact half, even below", 0.125, 2, "0,13"},
    {"exact half, even below, negative", -0.125, 2, "-0,13"},
    {"exact half, odd below", 0.375, 2, "0,38"},
    {"below half", 0.124999, 2, "0,12"},
    {"above half", 0.125001, 2, "0,13"},
    {"half at the sixteenth digit counts as half", 1.0049999999999999, 2, "1,01"},
    {"vanishing", 0.004, 2, "0,00"},
    {"vanishing, negative", -0.004, 2, "0,00"},
    {"half of the last place, negative", -0.005, 2, "-0,01"},
    {"tiny", 1e-300, 4, "0,0000"},
    {"carry", 999.995, 2, "1000,00"},
    {"carry at four decimals", 99.99995, 4, "100,0000"},
    {"carry of nines below one", 0.99999, 4, "1,0000"},
    {"to whole, half, even below", 2.5, 0, "3"},
    {"to whole, half, odd below", 3.5, 0, "4"},
    {"to whole, negative half", -2.5, 0, "-3"},
    {"to whole, carry", 9.5, 0, "10"},
    {"10 000 at 9,05 % for 181 days", 448.7808219178082, 4, "448,7808"},
    {"10 000 000 at 7,05 % for 181 days", 349602.7397260274, 4, "349602,7397"},
    {"no grouping", 1234567.891, 2, "1234567,89"},
    {"15 digits and none left", 123456789012345.67, 2, "123456789012346,00"},
    {"great", 1e21, 2, "1000000000000000000000,00"},
};

TEST(NumberTextTest, FixedText) {
  for (const FixedRow& row : kFixed) {
    EXPECT_EQ(FixedText(row.value, row.decimals, kCzech), row.czech) << row.name;
  }
  EXPECT_EQ(FixedText(1.005, 2, kEnglish), "1.01");
}

// --- The same without the text -----------------------------------------------------------------

TEST(NumberTextTest, RoundedToIsTheFixedTextAsANumber) {
  for (const FixedRow& row : kFixed) {
    EXPECT_EQ(RoundedTo(row.value, row.decimals), ToDouble(row.czech, kCzech)) << row.name;
  }
  EXPECT_FALSE(std::signbit(RoundedTo(-0.0, 2)));
  EXPECT_FALSE(std::signbit(RoundedTo(-0.004, 2)));
  EXPECT_FALSE(std::signbit(RoundedTo(-0.00499999999999999, 2)));
  EXPECT_FALSE(std::signbit(RoundedTo(-1e-300, 4)));
  for (const double value : {kInfinity, -kInfinity, std::nan("")}) {
    EXPECT_EQ(Thrown([&] { RoundedTo(value, 2); }), ErrorNumber::kOverflow);
  }
}

void ExpectRoundedAsText(double value, int decimals) {
  const double rounded = RoundedTo(value, decimals);
  ASSERT_EQ(rounded, ToDouble(FixedText(value, decimals, kCzech), kCzech))
      << std::hexfloat << value << ' ' << decimals;
  ASSERT_EQ(std::signbit(rounded), rounded < 0) << std::hexfloat << value << ' ' << decimals;
}

// Ties and what lies a few doubles beside them: where the 15 digits and the value itself part.
TEST(NumberTextTest, RoundedToAroundTies) {
  constexpr int kRounds = 5000;
  std::mt19937_64 random(20261122);  // the same figures every time
  std::uniform_real_distribution<double> exponent(0, 15);
  std::uniform_int_distribution<int> places(0, 4);
  for (int round = 0; round < kRounds; ++round) {
    const int decimals = places(random);
    const double tie = std::floor(std::pow(10, exponent(random))) + 0.5;
    const double value = (round % 2 == 0 ? tie : -tie) / std::pow(10, decimals);
    double below = value;
    double above = value;
    for (int step = 0; step < 12; ++step) {
      ExpectRoundedAsText(below, decimals);
      ExpectRoundedAsText(above, decimals);
      below = std::nextafter(below, -kInfinity);
      above = std::nextafter(above, kInfinity);
    }
    if (HasFatalFailure()) return;
  }
}

// Half of them of any size and none of their bits chosen, half as large as interests are.
TEST(NumberTextTest, RoundedToOfAnyValue) {
  constexpr int kRounds = 60000;
  std::mt19937_64 random(20261122);
  std::uniform_real_distribution<double> interest(-1e7, 1e7);
  std::uniform_real_distribution<double> exponent(-20, 30);
  std::uniform_int_distribution<int> places(0, 4);
  for (int round = 0; round < kRounds; ++round) {
    const double sign = round % 2 == 0 ? 1 : -1;
    ExpectRoundedAsText(sign * std::pow(10, exponent(random)), places(random));
    ExpectRoundedAsText(interest(random), places(random));
    if (HasFatalFailure()) return;
  }
}

TEST(NumberTextTest, AnAmountOfADoubleIsItsPlainText) {
  constexpr int kRounds = 60000;
  std::mt19937_64 random(20261122);
  std::uniform_real_distribution<double> exponent(-6, 14.9);
  for (int round = 0; round < kRounds; ++round) {
    const double size = std::pow(10, exponent(random));
    const double value = round % 2 == 0 ? size : -size;
    ASSERT_EQ(ToMoney(value), ToMoney(PlainText(value, kCzech), kCzech)) << std::hexfloat << value;
    const double tie = (std::floor(size) + 0.5) / 10000;
    ASSERT_EQ(ToMoney(tie), ToMoney(PlainText(tie, kCzech), kCzech)) << std::hexfloat << tie;
  }
}

struct MoneyRow {
  const char* name;
  double crowns;
  std::int64_t units;
};

// Expected: decimal quantization, half to even, of the value's 15-digit text.
constexpr MoneyRow kAmountsOfDoubles[] = {
    {"zero", 0, 0},
    {"minus zero", -0.0, 0},
    {"half, even below", 12.00005, 120000},
    {"half, odd below", 12.00015, 120002},
    {"half, odd below, negative", -12.00015, -120002},
    {"half at the sixteenth digit counts as half", 0.00014999999999999999, 2},
    {"an interest", 115.068493150685, 1150685},
    {"15 digits", 922337203685477, 9223372036854770000},
    {"vanishing", 1e-300, 0},
};

TEST(NumberTextTest, AnAmountOfADouble) {
  for (const MoneyRow& row : kAmountsOfDoubles) {
    EXPECT_EQ(ToMoney(row.crowns).units(), row.units) << row.name;
  }
  for (const double crowns : {922337203685478.0, -922337203685478.0, 1e300, -1e300, kInfinity,
                              -kInfinity, std::nan("")}) {
    EXPECT_EQ(Thrown([&] { ToMoney(crowns); }), ErrorNumber::kOverflow) << crowns;
  }
}

TEST(NumberTextTest, EveryThousandthRoundsHalfAwayFromZero) {
  for (int thousandths = 0; thousandths <= 200000; ++thousandths) {
    const int hundredths = (thousandths + 5) / 10;
    std::string expected = std::to_string(hundredths / 100) + "," +
                           std::to_string(hundredths / 10 % 10) + std::to_string(hundredths % 10);
    ASSERT_EQ(FixedText(thousandths / 1000.0, 2, kCzech), expected) << thousandths;
    if (hundredths != 0) expected.insert(0, "-");
    ASSERT_EQ(FixedText(-thousandths / 1000.0, 2, kCzech), expected) << thousandths;
  }
}

TEST(NumberTextTest, WhatIsNotFiniteHasNoText) {
  for (const double value : {kInfinity, -kInfinity, std::nan("")}) {
    EXPECT_EQ(Thrown([&] { PlainText(value, kCzech); }), ErrorNumber::kOverflow);
    EXPECT_EQ(Thrown([&] { PlainText(static_cast<Rate>(value), kCzech); }), ErrorNumber::kOverflow);
    EXPECT_EQ(Thrown([&] { FixedText(value, 2, kCzech); }), ErrorNumber::kOverflow);
    EXPECT_EQ(Thrown([&] { CurrencyText(value, kCzech); }), ErrorNumber::kOverflow);
  }
}

}  // namespace
}  // namespace velta
