#pragma once

#include "values/date.h"
#include "values/number_text.h"

namespace velta {

/// A piece of a delay that lies in one half-year, with its rate and its interest.
struct InterestPeriod {
  Date from{};          ///< the due date for the first piece
  Date to{};            ///< inclusive: the half-year's last day, or the payment date
  Rate rate = 0;        ///< per cent a year
  int days = 0;         ///< of delay; the due date itself is none
  double interest = 0;  ///< crowns, rounded to the four decimals that are shown
};

}  // namespace velta
