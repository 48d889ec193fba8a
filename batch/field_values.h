#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "calc/rate_kind.h"
#include "values/date.h"
#include "values/locale.h"
#include "values/money.h"
#include "values/number_text.h"

/// What stands in the fields of a row. Blanks around it do not count.
namespace velta {

/// Why a row cannot be computed, in Czech.
struct RowError {
  std::string reason;
};

/// A day as d.m.rrrr, with blanks and leading zeros or without ("01. 02. 2005"), or in the form
/// of ISO 8601 ("2005-02-01"). What is none: RowError that names the column.
Date DateField(std::string_view text, std::string_view column);

/// The decimal sign that a number surely has: "1000,50" and "1.000,50" have a comma, "0.125" has a
/// point. None where it has none, or may be grouped by it ("1.000").
std::optional<char> DecimalSign(std::string_view text);

/// How numbers are written where `decimal_sign`, a comma or a point, is what it is called; digits
/// are grouped by blanks.
const LocaleFormat& NumberFormat(char decimal_sign);

/// An amount or a rate by the rules of values/number_text.h, with the decimal sign of the format,
/// or the other one where it surely is that. What is none: RowError that names the column; out of
/// range: Error 6.
Money AmountField(std::string_view text, std::string_view column, const LocaleFormat& format);
Rate RateField(std::string_view text, std::string_view column, const LocaleFormat& format);

/// A kind of rate, or the statutory interest.
struct KindOfRow {
  RateKind kind = RateKind::kPercentYearly;
  bool lawful = false;
};

/// The kind that a text names: as the windows write it, or short (docs/BATCH.md has them all),
/// accents and capitals aside. One that nobody knows: RowError.
KindOfRow KindField(std::string_view text);

}  // namespace velta
