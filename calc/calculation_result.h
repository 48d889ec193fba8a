#pragma once

#include <string>
#include <vector>

#include "calc/rate_kind.h"
#include "engine/interest_period.h"
#include "shell/common/date.h"
#include "shell/common/money.h"

namespace velta {

/// One finished calculation. The report, the printout and the invoice are made from it and from
/// nothing else, so that they agree and inputs changed afterwards cannot leak into them.
struct CalculationResult {
  Date due_date;
  Date payment_date;
  int days = 0;  ///< of delay
  Money base_amount;
  RateKind kind = RateKind::kPercentYearly;
  Rate rate = 0;                        ///< none in the repo regime, where each period has its own
  std::vector<InterestPeriod> periods;  ///< of the repo regime; else empty
  double interest = 0;                  ///< crowns, rounded by the user's rule
  Money amount_with_interest;
};

}  // namespace velta
