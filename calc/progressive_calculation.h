#pragma once

#include <string>
#include <variant>
#include <vector>

#include "calc/calculation_result.h"
#include "calc/refusal.h"
#include "calc/rounding.h"

namespace velta {

/// One debt that is paid in several payments. Each payment bears interest on its own amount from
/// the due date to its day, and lowers the balance; when that is zero the calculation is finished
/// and takes no more: whoever uses it asks before the next payment, and whether its day is later
/// than the due date. A payment costs the same however many came before it.
class ProgressiveCalculation {
 public:
  /// What is owed, and at which rate.
  struct Debt {
    Date due_date{};
    Money amount;
    RateKind kind = RateKind::kPercentYearly;
    std::string kind_text;  ///< as it is to stand in the accounts
    Rate rate = 0;          ///< none in the repo regime
  };

  explicit ProgressiveCalculation(Debt debt);

  /// A payment of `amount` on `date` with its days and its interest by the rounding rule. `periods`
  /// are those of the repo regime (RepoPeriods); else there are none. An unknown kind computes
  /// nothing. Nothing is recorded yet.
  Payment Compute(Date date, Money amount, Rounding rounding,
                  std::vector<InterestPeriod> periods = {}) const;

  /// Records a payment that Compute has made: fills in its balance and what it adds to the total,
  /// and returns it. More than the balance is refused. An amount out of range: Error 6. Then
  /// nothing has changed.
  std::variant<Payment, Refusal> Add(Payment payment);

  Money balance() const { return balance_; }
  /// What the payments have added so far. A finished calculation with a single payment at one rate,
  /// or within one half-year, has that payment's interest.
  Money total() const { return result_.total; }
  bool finished() const { return !result_.payments.empty() && balance_ == Money(); }
  /// How many interests the total is the sum of: one for a payment or for each of its half-years.
  int interest_count() const { return interest_count_; }
  const ProgressiveResult& result() const { return result_; }

 private:
  Money balance_;
  int interest_count_ = 0;
  ProgressiveResult result_;
};

}  // namespace velta
