#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <string_view>

#include "values/date.h"
#include "values/number_text.h"

namespace velta {

/// The kinds of rate; the first six in the order in which the calculation windows list them.
enum class RateKind {
  kPercentDaily,
  kPercentYearly,
  kPerMilleDaily,
  kPerMilleYearly,
  kDiscount,  ///< the Czech National Bank's discount-rate regime
  kRepo,      ///< its repo-rate regime
  // Not listed; they are for users who type their text.
  kCrownsDaily,   ///< so many crowns a day, whatever the amount
  kCrownsYearly,  ///< so many crowns a year
  kUnknown,       ///< any other typed text: computes nothing
};

inline constexpr std::array<std::string_view, 8> kRateKindTexts = {"% denně",
                                                                   "% ročně",
                                                                   "‰ denně",
                                                                   "‰ ročně",
                                                                   "Dle Diskontní sazby ČNB",
                                                                   "Dle Repo sazby ČNB",
                                                                   "částka Kč denně",
                                                                   "částka Kč ročně"};
inline constexpr std::size_t kListedRateKinds = 6;

/// The kind that is called exactly so.
RateKind RateKindOf(std::string_view text);

/// The kind's text in the lists and in the accounts.
constexpr std::string_view Text(RateKind kind) {
  return kRateKindTexts.at(static_cast<std::size_t>(kind));
}

/// Whether the rate comes from the bank's tables; else the user types it.
constexpr bool IsBankKind(RateKind kind) {
  return kind == RateKind::kDiscount || kind == RateKind::kRepo;
}

/// The first due date of the repo regime (government regulation 163/2005 Sb.); before it the
/// discount regime holds. The due date alone decides; a delay is never split between the regimes.
inline constexpr Date kRepoRegimeStart{std::chrono::year{2005} / 4 / 28};

/// The bank kind that a due date asks for in place of `kind`; a typed kind stays.
constexpr RateKind RegimeFor(RateKind kind, Date due_date) {
  if (!IsBankKind(kind)) return kind;
  return due_date >= kRepoRegimeStart ? RateKind::kRepo : RateKind::kDiscount;
}

/// The interest on `amount` crowns for `days` days, not rounded. The year has 365 days, leap years
/// included. The operations run left to right in double precision, so that the haléř comes out the
/// same everywhere:
///   % a day          amount × rate ÷ 100 × days          ‰ a day    amount × rate × days ÷ 1000
///   % a year, bank   amount × rate ÷ 100 × days ÷ 365    ‰ a year   amount × rate × days ÷ 365000
///   crowns a day     rate × days                         a year     rate × days ÷ 365
/// 10 000 Kč at 10 % a year for 366 days: 1002.7397… Requires a known kind.
double Interest(RateKind kind, double amount, Rate rate, int days);

}  // namespace velta
