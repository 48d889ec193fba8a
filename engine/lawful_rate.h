#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "engine/rate_files.h"
#include "values/date.h"
#include "values/number_text.h"

/// The statutory rate of late-payment interest by the first day of delay, which is the day after
/// the due date. There have been five rules since 15 July 1994.
namespace velta {

/// How the lawful rate comes about.
enum class LawfulRule {
  kDiscount,   ///< twice the bank's discount rate of the first day, for the whole delay
  kHalfYears,  ///< the repo rate of each half-year and 7 points, changing until payment
  kFixed,      ///< one yearly rate for the whole delay (LawfulRate)
};

/// A rule and the days on which the delays begin that it governs, up to the next one.
struct LawfulRegime {
  Date first_day;
  LawfulRule rule;
  Rate surcharge;               ///< percentage points on top of the repo rate; of kFixed only
  std::string_view regulation;  ///< "nařízení vlády č. 351/2013 Sb."
};

/// The regime of a delay that began on `first_day`; null before 15 July 1994.
const LawfulRegime* LawfulRegimeOf(Date first_day);

/// The yearly rate in per cent that holds for the whole of a delay that began on `first_day`, from
/// the table of half-years. None for delays that began before 1 July 2010, whose rate is not fixed
/// by the half-year, and beyond the table. 16 November 2026: 11.75.
std::optional<Rate> LawfulRate(Date first_day, const std::vector<RepoRow>& half_years);

}  // namespace velta
