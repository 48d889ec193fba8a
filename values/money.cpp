#include "values/money.h"

#include <charconv>
#include <cmath>
#include <string>

#include "values/error.h"

namespace velta {

Money Money::FromDouble(double crowns) {
  constexpr double kTwoTo63 = 9223372036854775808.0;
  const double units = std::nearbyint(crowns * static_cast<double>(kUnitsPerCrown));
  // Written so that a value that is not a number fails it too.
  if (!(units >= -kTwoTo63 && units < kTwoTo63)) throw Error(ErrorNumber::kOverflow);
  return FromUnits(static_cast<std::int64_t>(units));
}

double Money::ToDouble() const {
  constexpr std::int64_t kTwoTo53 = std::int64_t{1} << 53U;
  if (units_ >= -kTwoTo53 && units_ <= kTwoTo53) {
    return static_cast<double>(units_) / static_cast<double>(kUnitsPerCrown);
  }
  // Here, above 900 milliards of crowns, the units themselves no longer fit into a double, and a
  // division would round twice; reading the decimal text rounds once.
  const std::string text = std::to_string(units_) + "e-4";
  double crowns = 0;
  std::from_chars(text.data(), text.data() + text.size(), crowns);
  return crowns;
}

Money operator+(Money a, Money b) {
  std::int64_t units = 0;
  if (__builtin_add_overflow(a.units_, b.units_, &units)) throw Error(ErrorNumber::kOverflow);
  return Money(units);
}

Money operator-(Money a, Money b) {
  std::int64_t units = 0;
  if (__builtin_sub_overflow(a.units_, b.units_, &units)) throw Error(ErrorNumber::kOverflow);
  return Money(units);
}

}  // namespace velta
