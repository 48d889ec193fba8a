#pragma once

#include <compare>
#include <cstdint>

namespace velta {

/// An amount of Czech crowns: a whole number of 1/10 000 Kč, from -922 337 203 685 477.5808 to
/// 922 337 203 685 477.5807 Kč. Whatever leads outside that range throws Error 6; nothing wraps and
/// nothing is cut to fit.
class Money {
 public:
  /// How many units make one crown.
  static constexpr std::int64_t kUnitsPerCrown = 10000;

  constexpr Money() = default;  ///< 0 Kč
  static constexpr Money FromUnits(std::int64_t units) { return Money(units); }
  /// The nearest unit to crowns × 10 000 in double precision, ties to the even one: 12.00005 gives
  /// 12.0000, 12.00015 gives 12.0002. Not a number and anything out of range throw Error 6.
  static Money FromDouble(double crowns);

  constexpr std::int64_t units() const { return units_; }
  /// The amount in crowns as the nearest double.
  double ToDouble() const;

  friend Money operator+(Money a, Money b);
  friend Money operator-(Money a, Money b);
  Money& operator+=(Money other) { return *this = *this + other; }

  friend constexpr bool operator==(Money a, Money b) = default;
  friend constexpr auto operator<=>(Money a, Money b) { return a.units_ <=> b.units_; }

 private:
  explicit constexpr Money(std::int64_t units) : units_(units) {}
  std::int64_t units_ = 0;
};

}  // namespace velta
