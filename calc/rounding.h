#pragma once

#include <string_view>

/// The roundings of interest. All work on crowns in double precision; to a number of decimals it is
/// RoundedTo (values/number_text.h).
namespace velta {

/// Rounds upward to a step of 10^-places: the greatest whole number not above value × 10^places +
/// 0.99, divided by 10^places. An excess over a whole step of less than one hundredth of the step
/// is dropped, which is intended: RoundUp(12.31, 1) and (12.305, 1) are 12.4, (12.3005, 1) is 12.3,
/// (-12.34, 1) is -12.3, (12.34, 0) is 13. Where a step leaves the range of double: Error 6.
double RoundUp(double value, int places);

/// The user's rule for interest.
enum class Rounding {
  kNone,
  kUpToTenHaler,
  kToCrowns,
  kUnknown,  ///< any other word in the store: rounds nothing, not even payments to two decimals
};

/// The rules' words, as the settings store them.
inline constexpr std::string_view kNoRounding = "NE";
inline constexpr std::string_view kUpToTenHaler = "halere";
inline constexpr std::string_view kToCrowns = "koruny";

/// The rule that is called exactly so.
Rounding RoundingOf(std::string_view word);

/// An interest in crowns by the rule:
///   kUpToTenHaler  up to the next 0.10 Kč (RoundUp with one place): 1234.41 gives 1234.50
///   kToCrowns      to the nearest crown, ties to the even one: 100.50 gives 100, 101.50 gives 102
///   else           unchanged
/// kToCrowns is not upward, whatever its label in the settings says; that is the rule that users
/// rely on.
double ApplyRounding(Rounding rule, double interest);

}  // namespace velta
