#pragma once

#include <string>
#include <variant>
#include <vector>

#include "calc/rate_kind.h"
#include "engine/interest_period.h"
#include "values/date.h"
#include "values/money.h"

namespace velta {

/// One finished single calculation. The report, the printout and the invoice are made from it and
/// from nothing else, so that they agree and inputs changed afterwards cannot leak into them.
struct SingleResult {
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

/// One recorded payment of a progressive calculation.
struct Payment {
  Date date{};
  int days = 0;  ///< of delay
  Money amount;
  Money balance;  ///< left after it
  /// Crowns, rounded by the user's rule; in the repo regime the sum of its periods so rounded.
  double interest = 0;
  std::vector<InterestPeriod> periods;  ///< of the repo regime; else empty
  /// What the payment adds to the total: its interest, in the repo regime the unrounded interest of
  /// its periods.
  Money interest_sum;
};

/// One progressive calculation, so far or finished: from it come its report, printout and invoice.
struct ProgressiveResult {
  Date due_date{};
  RateKind kind = RateKind::kPercentYearly;
  std::string kind_text;  ///< as it stood in the list's box
  Rate rate = 0;          ///< none in the repo regime
  std::vector<Payment> payments;
  Money total;  ///< the interest that is invoiced
};

/// A finished calculation of either kind; the window that owns it keeps it.
using FinishedCalculation = std::variant<const SingleResult*, const ProgressiveResult*>;

}  // namespace velta
