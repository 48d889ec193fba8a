#pragma once

#include <string_view>

namespace velta {

/// Why a calculation has no result.
enum class Refusal {
  kDatesReversed,    ///< the payment is not later than the due date
  kNoRate,           ///< the bank's table has no rate for the due date
  kBeyondTable,      ///< the table of half-years ends before the payment
  kMoreThanBalance,  ///< the payment is larger than what is left of the debt
  kBeforeTheLaw,     ///< the delay began before the first regulation of the statutory rate
  kNotPublished,     ///< the table has no half-year yet for the statutory rate of the delay
};

/// What the user is told.
constexpr std::string_view Text(Refusal refusal) {
  switch (refusal) {
    case Refusal::kDatesReversed:
      return "Datum zaplacení je chybně zadáno";
    case Refusal::kNoRate:
      return "Nenalezena sazba pro zadané období";
    case Refusal::kBeyondTable:
      return "Nelze najít sazbu, zadali jste vysoké datum splatnosti";
    case Refusal::kMoreThanBalance:
      return "Nesprávně zadaná hodnota částečné platby !";
    case Refusal::kBeforeTheLaw:
      return "Zákonnou sazbu lze určit jen pro prodlení, které začalo 15. 7. 1994 nebo později";
    case Refusal::kNotPublished:
      return "Zákonná sazba pro pololetí, ve kterém prodlení začalo, v tabulce sazeb není";
  }
  return {};
}

}  // namespace velta
