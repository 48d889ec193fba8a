#pragma once

#include <array>
#include <cmath>
#include <cstddef>

namespace velta {

/// 10 to the power of `exponent`, the nearest double; for the few decimals of amounts without a
/// computation.
inline double PowerOfTen(int exponent) {
  constexpr std::array<double, 5> kPowers = {1, 10, 100, 1000, 10000};
  const auto index = static_cast<std::size_t>(exponent);
  return index < kPowers.size() ? kPowers[index] : std::pow(10.0, exponent);
}

}  // namespace velta
