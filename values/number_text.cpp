#include "values/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <optional>
#include <system_error>
#include <utility>

#include "values/blanks.h"
#include "values/error.h"
#include "values/power_of_ten.h"

namespace velta {

namespace {

constexpr std::string_view kUnit = "Kč";
constexpr std::string_view kUnitOfBanks = "CZK";

/// A decimal number of any length, as it is written: the digits before and after the separator.
struct Decimal {
  bool negative = false;
  std::string integer;
  std::string fraction;
};

bool BeginsWithDigit(std::string_view text) {
  return !text.empty() && text.front() >= '0' && text.front() <= '9';
}

void TakeDigits(std::string_view& text, std::string& digits) {
  while (BeginsWithDigit(text)) {
    digits += text.front();
    text.remove_prefix(1);
  }
}

bool Take(std::string_view& text, std::string_view expected) {
  if (!text.starts_with(expected)) return false;
  text.remove_prefix(expected.size());
  return true;
}

std::string_view SkipGrouping(std::string_view text, const std::string& group) {
  do {
    text = SkipBlanks(text);
  } while (!group.empty() && Take(text, group));
  return text;
}

bool TakeUnit(std::string_view& text) { return Take(text, kUnit) || Take(text, kUnitOfBanks); }

/// Takes ",-" and its like, which say that there are no hellers. Before a dash "." and "," both can
/// only be the decimal separator.
bool TakeNoHellers(std::string_view& text) {
  std::string_view rest = text;
  if (!Take(rest, ",") && !Take(rest, ".")) return false;
  for (const char* dash : {"--", "-", "\u2013", "\u2014"}) {
    if (!Take(rest, dash)) continue;
    text = rest;
    return true;
  }
  return false;
}

/// Reads a whole text as a number with these separators.
std::optional<Decimal> ScanWith(std::string_view text, const std::string& decimal,
                                const std::string& group) {
  Decimal number;
  text = SkipBlanks(text);
  const bool unit_before = TakeUnit(text);
  text = SkipBlanks(text);
  number.negative = Take(text, "-");
  if (!number.negative) Take(text, "+");

  TakeDigits(text, number.integer);
  while (!number.integer.empty()) {
    std::string_view next_group = SkipGrouping(text, group);
    if (!BeginsWithDigit(next_group)) break;
    TakeDigits(next_group, number.integer);
    text = next_group;
  }
  const bool no_hellers = !number.integer.empty() && TakeNoHellers(text);
  if (!no_hellers && Take(text, decimal)) TakeDigits(text, number.fraction);
  if (number.integer.empty() && number.fraction.empty()) return std::nullopt;

  text = SkipBlanks(text);
  if (!unit_before && TakeUnit(text)) text = SkipBlanks(text);
  if (!text.empty()) return std::nullopt;
  return number;
}

/// One to three digits before the first group sign, three behind each: "1.234.567,50".
bool GroupsByThrees(std::string_view text, char group) {
  constexpr std::string_view kDigits = "0123456789";
  constexpr std::size_t kGroup = 3;
  std::size_t sign = text.find(group);
  const std::string_view before = text.substr(0, sign);
  const std::size_t first = before.size() - (before.find_last_not_of(kDigits) + 1);
  if (first == 0 || first > kGroup) return false;
  while (sign < text.size() && text[sign] == group) {
    const std::size_t end = std::min(text.find_first_not_of(kDigits, sign + 1), text.size());
    if (end - sign - 1 != kGroup) return false;
    sign = end;
  }
  return text.find(group, sign) == std::string_view::npos;
}

/// Reads a whole text as a number; what is accepted stands in the header.
std::optional<Decimal> Scan(std::string_view text, const LocaleFormat& locale) {
  if (std::optional<Decimal> number = ScanWith(text, locale.decimal, locale.group)) return number;
  const std::size_t point = text.rfind('.');
  const std::size_t comma = text.rfind(',');
  if (point == std::string_view::npos || comma == std::string_view::npos) return std::nullopt;
  const bool comma_is_decimal = comma > point;
  if (!GroupsByThrees(text, comma_is_decimal ? '.' : ',')) return std::nullopt;
  return comma_is_decimal ? ScanWith(text, ",", ".") : ScanWith(text, ".", ",");
}

Decimal ScanOrThrow(std::string_view text, const LocaleFormat& locale) {
  std::optional<Decimal> number = Scan(text, locale);
  if (!number.has_value()) throw Error(ErrorNumber::kTypeMismatch);
  return *std::move(number);
}

bool AllZeros(std::string_view digits) {
  return digits.find_first_not_of('0') == std::string_view::npos;
}

/// The nearest value of the type; infinite where the number is beyond its range, 0 where it is too
/// small for it.
template <class Floating>
Floating Nearest(const Decimal& number) {
  const std::string text = "0" + number.integer + "." + number.fraction + "0";
  Floating value = 0;
  const auto [end, error] =
      std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  if (error == std::errc::result_out_of_range) {
    value = AllZeros(number.integer) ? Floating{0} : std::numeric_limits<Floating>::infinity();
  }
  return number.negative ? -value : value;
}

template <class Floating>
Floating NearestInRange(const Decimal& number) {
  const auto value = Nearest<Floating>(number);
  if (!std::isfinite(value)) throw Error(ErrorNumber::kOverflow);
  return value;
}

/// From the text that std::to_chars writes without an exponent: "-9.05".
Decimal FromPlain(std::string_view text) {
  Decimal number;
  number.negative = Take(text, "-");
  TakeDigits(text, number.integer);
  if (Take(text, ".")) TakeDigits(text, number.fraction);
  return number;
}

/// The 15 significant digits to which a double stands for what people typed: beyond them come the
/// digits of its binary form, which would turn 1.005 into 1.00499999999999989.
Decimal FromDouble(double value) {
  if (!std::isfinite(value)) throw Error(ErrorNumber::kOverflow);
  constexpr int kDecimals = 14;
  std::array<char, 32> buffer{};
  char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                  std::chars_format::scientific, kDecimals)
                        .ptr;
  const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  const std::size_t exponent_sign = text.find('e') + 1;
  int exponent = 0;
  std::from_chars(text.data() + exponent_sign + 1, end, exponent);
  if (text[exponent_sign] == '-') exponent = -exponent;

  Decimal number = FromPlain(text.substr(0, exponent_sign - 1));
  std::string& integer = number.integer;
  std::string& fraction = number.fraction;
  if (exponent < 0) {
    fraction.insert(0, integer);
    fraction.insert(0, static_cast<std::size_t>(-exponent - 1), '0');
    integer = "0";
  } else {
    const auto moved = static_cast<std::size_t>(exponent);
    if (fraction.size() < moved) fraction.append(moved - fraction.size(), '0');
    integer += fraction.substr(0, moved);
    fraction.erase(0, moved);
  }
  return number;
}

Decimal FromMoney(Money amount) {
  constexpr std::size_t kDecimals = 4;
  std::string digits = std::to_string(amount.units());
  Decimal number;
  number.negative = digits.front() == '-';
  if (number.negative) digits.erase(0, 1);
  if (digits.size() <= kDecimals) digits.insert(0, kDecimals + 1 - digits.size(), '0');
  number.integer = digits.substr(0, digits.size() - kDecimals);
  number.fraction = digits.substr(digits.size() - kDecimals);
  return number;
}

/// Half away from zero, so on the digits alone.
Decimal Rounded(Decimal number, int decimals) {
  const auto kept = static_cast<std::size_t>(decimals);
  const bool up = number.fraction.size() > kept && number.fraction[kept] >= '5';
  number.fraction.resize(kept, '0');
  if (!up) return number;

  std::string digits = "0" + number.integer + number.fraction;
  const std::size_t last_below_nine = digits.find_last_not_of('9');
  ++digits[last_below_nine];
  std::fill(digits.begin() + static_cast<std::ptrdiff_t>(last_below_nine) + 1, digits.end(), '0');

  number.integer = digits.substr(0, digits.size() - kept);
  number.fraction = digits.substr(digits.size() - kept);
  if (number.integer.front() == '0' && number.integer.size() > 1) number.integer.erase(0, 1);
  return number;
}

Decimal WithoutTrailingZeros(Decimal number) {
  number.fraction.erase(number.fraction.find_last_not_of('0') + 1);
  return number;
}

std::string Written(const Decimal& number, const LocaleFormat& locale,
                    std::string_view group = "") {
  const bool zero = AllZeros(number.integer) && AllZeros(number.fraction);
  std::string text = number.negative && !zero ? "-" : "";
  for (std::size_t left = number.integer.size(); left > 0; --left) {
    if (left % 3 == 0 && left < number.integer.size()) text += group;
    text += number.integer[number.integer.size() - left];
  }
  if (!number.fraction.empty()) text += locale.decimal + number.fraction;
  return text;
}

std::string WrittenAsCurrency(Decimal number, const LocaleFormat& locale) {
  constexpr int kDecimals = 2;
  return Written(Rounded(std::move(number), kDecimals), locale, locale.group)
      .append(" ")
      .append(kUnit);
}

Money FromDecimal(Decimal number) {
  constexpr std::size_t kDecimals = 4;
  number.fraction.resize(std::max(number.fraction.size(), kDecimals + 1), '0');
  const std::string_view dropped = std::string_view(number.fraction).substr(kDecimals);

  std::uint64_t units = 0;
  for (const char digit : number.integer + number.fraction.substr(0, kDecimals)) {
    if (__builtin_mul_overflow(units, 10U, &units) ||
        __builtin_add_overflow(units, static_cast<unsigned>(digit - '0'), &units)) {
      throw Error(ErrorNumber::kOverflow);
    }
  }
  const bool tie = dropped.front() == '5' && AllZeros(dropped.substr(1));
  const bool up = tie ? units % 2 == 1 : dropped.front() >= '5';
  constexpr auto kMax = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  const std::uint64_t limit = number.negative ? kMax + 1 : kMax;
  if (units > limit || (up && units == limit)) throw Error(ErrorNumber::kOverflow);
  if (up) ++units;
  return Money::FromUnits(static_cast<std::int64_t>(number.negative ? 0 - units : units));
}

Decimal FromRate(Rate rate) {
  if (!std::isfinite(rate)) throw Error(ErrorNumber::kOverflow);
  std::array<char, 64> buffer{};
  const char* const end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), rate, std::chars_format::fixed)
          .ptr;
  return FromPlain(std::string_view(buffer.data(), static_cast<std::size_t>(end - buffer.data())));
}

}  // namespace

double AsWritten(Rate rate) {
  // Singles tell all decimal numbers of six digits apart: one that leads back to the rate is its
  // text. The others are written out.
  constexpr double kSteps = 10000;
  constexpr double kSixDigits = 1000000;
  const double steps = std::nearbyint(static_cast<double>(rate) * kSteps);
  if (std::abs(steps) < kSixDigits && static_cast<Rate>(steps / kSteps) == rate) {
    return steps / kSteps;
  }
  return Nearest<double>(FromRate(rate));
}

double RoundedTo(double value, int decimals) {
  // Away from a tie the digits need not be written out: neither the product nor the 15 digits are
  // further from the value than a 10^14th of it.
  constexpr double kPrecise = 1e14;
  const double scale = PowerOfTen(decimals);
  const double scaled = std::abs(value) * scale;
  const double whole = std::floor(scaled);
  const double over_half = scaled - whole - 0.5;
  if (scaled < kPrecise && std::abs(over_half) > scaled / kPrecise) {
    const double steps = over_half > 0 ? whole + 1 : whole;
    return value < 0 && steps > 0 ? -steps / scale : steps / scale;
  }
  return Nearest<double>(Rounded(FromDouble(value), decimals)) + 0.0;
}

Money ToMoney(double crowns) {
  // As in RoundedTo: away from a tie the digits need not be written out.
  constexpr double kPrecise = 1e14;
  const double scaled = std::abs(crowns) * static_cast<double>(Money::kUnitsPerCrown);
  const double over_half = scaled - std::floor(scaled) - 0.5;
  if (scaled < kPrecise && std::abs(over_half) > scaled / kPrecise) {
    const auto units = static_cast<std::int64_t>(std::nearbyint(scaled));
    return Money::FromUnits(crowns < 0 ? -units : units);
  }
  return FromDecimal(FromDouble(crowns));
}

Money ToMoney(std::string_view text, const LocaleFormat& locale) {
  return FromDecimal(ScanOrThrow(text, locale));
}

bool IsNumeric(std::string_view text, const LocaleFormat& locale) {
  return Scan(text, locale).has_value();
}

double ToDouble(std::string_view text, const LocaleFormat& locale) {
  return NearestInRange<double>(ScanOrThrow(text, locale));
}

Rate ToRate(std::string_view text, const LocaleFormat& locale) {
  return NearestInRange<Rate>(ScanOrThrow(text, locale));
}

double LeadingNumber(std::string_view text) {
  std::string plain;
  for (text = SkipBlanks(text); !text.empty(); text = SkipBlanks(text)) {
    const char next = text.front();
    const bool readable = BeginsWithDigit(text) ||
                          (next == '.' && plain.find('.') == std::string::npos) ||
                          ((next == '-' || next == '+') && plain.empty());
    if (!readable) break;
    plain += next;
    text.remove_prefix(1);
  }
  if (plain.starts_with('+')) plain.erase(0, 1);
  return Nearest<double>(FromPlain(plain));
}

std::string PlainText(double value, const LocaleFormat& locale) {
  return Written(WithoutTrailingZeros(FromDouble(value)), locale);
}

std::string PlainText(Money amount, const LocaleFormat& locale) {
  return Written(WithoutTrailingZeros(FromMoney(amount)), locale);
}

std::string PlainText(Rate rate, const LocaleFormat& locale) {
  return Written(FromRate(rate), locale);
}

std::string FixedText(double value, int decimals, const LocaleFormat& locale) {
  return Written(Rounded(FromDouble(value), decimals), locale);
}

std::string FixedText(Money amount, int decimals, const LocaleFormat& locale) {
  // Two decimals of an amount are by far the most frequent, and need no decimal digits in between.
  constexpr std::int64_t kHaler = Money::kUnitsPerCrown / 100;
  constexpr std::int64_t kLarge = std::int64_t{1} << 60U;
  const std::int64_t units = amount.units();
  if (decimals == 2 && units < kLarge && units > -kLarge) {
    const std::int64_t halers = (std::abs(units) + kHaler / 2) / kHaler;
    std::string text = units < 0 && halers != 0 ? "-" : "";
    text.append(std::to_string(halers / 100)).append(locale.decimal);
    text += static_cast<char>('0' + halers / 10 % 10);
    text += static_cast<char>('0' + halers % 10);
    return text;
  }
  return Written(Rounded(FromMoney(amount), decimals), locale);
}

std::string CurrencyText(Money amount, const LocaleFormat& locale) {
  return WrittenAsCurrency(FromMoney(amount), locale);
}

std::string CurrencyText(double amount, const LocaleFormat& locale) {
  return WrittenAsCurrency(FromDouble(amount), locale);
}

}  // namespace velta
