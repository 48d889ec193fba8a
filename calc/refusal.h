#pragma once

#include <string_view>

namespace velta {

/// Why a calculation has no result.
enum class Refusal {
  kDatesReversed,    ///< the payment is not later than the due date
  kNoRate,           ///< the bank's table has no rate for the due date
  kBeyondTable,      ///< the table of half-years ends before the payment
  kMoreThanBalance,  ///< the payment is larger than what is left of the debt
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
  }
  return {};
}

}  // namespace velta
