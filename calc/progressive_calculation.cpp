#include "calc/progressive_calculation.h"

#include <algorithm>
#include <utility>

#include "values/number_text.h"

namespace velta {

namespace {

double Rounded(double interest, Rounding rounding) {
  // Without rounding a payment has two decimals, unlike a single calculation's interest.
  return rounding == Rounding::kNone ? RoundedTo(interest, 2) : ApplyRounding(rounding, interest);
}

}  // namespace

ProgressiveCalculation::ProgressiveCalculation(Debt debt) : balance_(debt.amount) {
  result_.due_date = debt.due_date;
  result_.kind = debt.kind;
  result_.kind_text = std::move(debt.kind_text);
  result_.rate = debt.rate;
}

Payment ProgressiveCalculation::Compute(Date date, Money amount, Rounding rounding,
                                        std::vector<InterestPeriod> periods) const {
  Payment payment;
  payment.date = date;
  payment.days = DaysBetween(result_.due_date, date);
  payment.amount = amount;
  double interest = 0;
  if (result_.kind == RateKind::kRepo) {
    for (const InterestPeriod& period : periods) interest += period.interest;
  } else if (result_.kind != RateKind::kUnknown) {
    interest = Interest(result_.kind, amount.ToDouble(), result_.rate, payment.days);
  }
  payment.interest = Rounded(interest, rounding);
  payment.periods = std::move(periods);
  return payment;
}

std::variant<Payment, Refusal> ProgressiveCalculation::Add(Payment payment) {
  const Money balance = balance_ - payment.amount;
  if (payment.amount > balance_) return Refusal::kMoreThanBalance;
  payment.balance = balance;
  // The total counts what is listed: the interest of every half-year, or of the whole payment.
  payment.interest_sum = Money();
  for (const InterestPeriod& period : payment.periods) {
    payment.interest_sum += ToMoney(period.interest);
  }
  if (payment.periods.empty()) payment.interest_sum = ToMoney(payment.interest);
  Money total = result_.total + payment.interest_sum;
  const int interest_count =
      interest_count_ + std::max(1, static_cast<int>(payment.periods.size()));
  // The total of one interest alone is the payment's, rounded; a sum is never rounded once more.
  if (balance == Money() && interest_count == 1) total = Money::FromDouble(payment.interest);

  result_.payments.push_back(payment);
  result_.total = total;
  interest_count_ = interest_count;
  balance_ = balance;
  return payment;
}

}  // namespace velta
