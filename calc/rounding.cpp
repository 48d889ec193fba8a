#include "calc/rounding.h"

#include <cmath>

#include "values/error.h"
#include "values/power_of_ten.h"

namespace velta {

namespace {

double Finite(double value) {
  if (!std::isfinite(value)) throw Error(ErrorNumber::kOverflow);
  return value;
}

}  // namespace

double RoundUp(double value, int places) {
  const double scale = PowerOfTen(places);
  // 0.99 and not 1: what is over a step by less than a hundredth of it costs the debtor nothing.
  const double steps = std::floor(Finite(value * scale + 0.99));
  return Finite(steps / scale);
}

Rounding RoundingOf(std::string_view word) {
  if (word == kNoRounding) return Rounding::kNone;
  if (word == kUpToTenHaler) return Rounding::kUpToTenHaler;
  if (word == kToCrowns) return Rounding::kToCrowns;
  return Rounding::kUnknown;
}

double ApplyRounding(Rounding rule, double interest) {
  switch (rule) {
    case Rounding::kUpToTenHaler:
      return RoundUp(interest, 1);
    case Rounding::kToCrowns:
      return std::nearbyint(interest);
    case Rounding::kNone:
    case Rounding::kUnknown:
      break;
  }
  return interest;
}

}  // namespace velta
