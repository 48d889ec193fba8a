#include "batch/field_values.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "batch/columns.h"
#include "engine/rate_files.h"
#include "values/error.h"

namespace velta {

namespace {

constexpr std::string_view kDigits = "0123456789";

RowError InColumn(std::string_view column, std::string_view reason) {
  return {std::string(column).append(": ").append(reason)};
}

std::optional<unsigned> Digits(std::string_view text) {
  unsigned number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
    number = 10 * number + static_cast<unsigned>(c - '0');
  }
  return number;
}

std::optional<Date> IsoDate(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  const auto year = Digits(text.substr(0, 4));
  const auto month = Digits(text.substr(5, 2));
  const auto day = Digits(text.substr(8, 2));
  if (!year || !month || !day) return std::nullopt;
  const std::chrono::year_month_day date(std::chrono::year(static_cast<int>(*year)),
                                         std::chrono::month(*month), std::chrono::day(*day));
  // Earlier years are no dates in the windows either.
  if (!date.ok() || *year < 100) return std::nullopt;
  return date;
}

/// How the digits before a single sign and behind it show that it cannot group them.
bool IsSurelyDecimal(std::string_view before, std::string_view behind) {
  const std::size_t begin = before.find_last_not_of(kDigits);
  const std::string_view digits = begin == before.npos ? before : before.substr(begin + 1);
  const std::size_t decimals = std::min(behind.find_first_not_of(kDigits), behind.size());
  return decimals != 3 || digits.size() > 3 || digits.empty() || digits == "0";
}

LocaleFormat FormatWith(char decimal_sign) {
  LocaleFormat format;
  format.decimal = decimal_sign;
  return format;
}

/// The format that a number is written in.
const LocaleFormat& FormatOf(std::string_view text, const LocaleFormat& format) {
  const char other = format.decimal == "," ? '.' : ',';
  if (text.find(other) == text.npos || DecimalSign(text) != other) return format;
  return NumberFormat(other);
}

template <class Convert>
auto NumberField(std::string_view text, std::string_view column, const LocaleFormat& format,
                 const Convert& convert) {
  try {
    return convert(text, FormatOf(text, format));
  } catch (const Error& error) {
    if (error.number() != ErrorNumber::kTypeMismatch) throw;
    throw InColumn(column, "Zde je nutné zadat číslo");
  }
}

struct KindName {
  std::string_view name;
  KindOfRow kind;
};

constexpr std::array<KindName, 22> kKindNames = {{
    {"% denne", {RateKind::kPercentDaily}},
    {"procent denne", {RateKind::kPercentDaily}},
    {"denne", {RateKind::kPercentDaily}},
    {"% rocne", {RateKind::kPercentYearly}},
    {"procent rocne", {RateKind::kPercentYearly}},
    {"rocne", {RateKind::kPercentYearly}},
    {"promile denne", {RateKind::kPerMilleDaily}},
    {"promile rocne", {RateKind::kPerMilleYearly}},
    {"dle diskontni sazby cnb", {RateKind::kDiscount}},
    {"diskontni", {RateKind::kDiscount}},
    {"diskont", {RateKind::kDiscount}},
    {"dle repo sazby cnb", {RateKind::kRepo}},
    {"repo", {RateKind::kRepo}},
    {"castka kc denne", {RateKind::kCrownsDaily}},
    {"kc denne", {RateKind::kCrownsDaily}},
    {"castka kc rocne", {RateKind::kCrownsYearly}},
    {"kc rocne", {RateKind::kCrownsYearly}},
    {"zakonna", {RateKind::kPercentYearly, true}},
    {"zakonna sazba", {RateKind::kPercentYearly, true}},
    {"zakonny", {RateKind::kPercentYearly, true}},
    {"zakonny urok", {RateKind::kPercentYearly, true}},
    {"dle zakona", {RateKind::kPercentYearly, true}},
}};

}  // namespace

Date DateField(std::string_view text, std::string_view column) {
  static const LocaleFormat kCzech;
  text = Trimmed(text);
  if (const auto date = IsoDate(text)) return *date;
  try {
    return ParseShortDate(text, kCzech);
  } catch (const Error&) {
    throw InColumn(column, "Datum je chybně zadáno, zadejte je například takto: 31.12.2005");
  }
}

std::optional<char> DecimalSign(std::string_view text) {
  const std::size_t last = text.find_last_of(",.");
  if (last == text.npos) return std::nullopt;
  const char sign = text[last];
  const char other = sign == ',' ? '.' : ',';
  const std::size_t first = text.find_first_of(",.");
  if (text.find(other) != text.npos) {
    return text.find(sign) == last ? std::optional(sign) : std::nullopt;
  }
  if (first != last) return std::nullopt;
  const std::string_view behind = text.substr(last + 1);
  // "12 345,-": a dash for no hellers follows either sign.
  if (behind.empty() || kDigits.find(behind.front()) == kDigits.npos) return std::nullopt;
  return IsSurelyDecimal(text.substr(0, last), behind) ? std::optional(sign) : std::nullopt;
}

const LocaleFormat& NumberFormat(char decimal_sign) {
  static const LocaleFormat kComma = FormatWith(',');
  static const LocaleFormat kPoint = FormatWith('.');
  return decimal_sign == ',' ? kComma : kPoint;
}

Money AmountField(std::string_view text, std::string_view column, const LocaleFormat& format) {
  return NumberField(text, column, format, [](std::string_view number, const LocaleFormat& locale) {
    return ToMoney(number, locale);
  });
}

Rate RateField(std::string_view text, std::string_view column, const LocaleFormat& format) {
  return NumberField(text, column, format, [](std::string_view number, const LocaleFormat& locale) {
    return ToRate(number, locale);
  });
}

KindOfRow KindField(std::string_view text) {
  constexpr std::string_view kPerMille = "‰";
  std::string named(text);
  // The sign has no letter in ASCII, and its word says the same.
  if (const std::size_t sign = named.find(kPerMille); sign != named.npos) {
    named.replace(sign, kPerMille.size(), "promile");
  }
  const std::string plain = Plain(named);
  if (plain.empty()) throw RowError{"Nezadali jste druh sazby"};
  const auto* const found =
      std::find_if(kKindNames.begin(), kKindNames.end(),
                   [&](const KindName& candidate) { return candidate.name == plain; });
  if (found == kKindNames.end()) throw InColumn(kKindColumn, "neznámý druh sazby");
  return found->kind;
}

}  // namespace velta
