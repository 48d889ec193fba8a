#include "calc/single_calculation.h"

#include <utility>

#include "values/error.h"

namespace velta {

std::variant<SingleResult, Refusal> SingleCalculation(const SingleInputs& inputs,
                                                      const BankTables& tables, Rounding rounding) {
  if (inputs.due_date >= inputs.payment_date) return Refusal::kDatesReversed;
  SingleResult result = Begin(inputs);
  result.kind = RegimeFor(inputs.kind, inputs.due_date);
  if (result.kind == RateKind::kRepo) {
    auto periods = RepoPeriods(tables.repo, result.due_date, result.payment_date, inputs.amount);
    if (const auto* const refusal = std::get_if<Refusal>(&periods)) return *refusal;
    result.periods = std::get<std::vector<InterestPeriod>>(std::move(periods));
    Complete(result, InterestOf(result.periods, rounding));
    return result;
  }
  if (result.kind == RateKind::kDiscount) {
    const std::optional<Rate> found = DiscountRate(tables.discount, result.due_date);
    if (!found) return Refusal::kNoRate;
    result.rate = *found;
  }
  Complete(result, ApplyRounding(rounding, Interest(result.kind, result.base_amount.ToDouble(),
                                                    result.rate, result.days)));
  return result;
}

std::variant<std::vector<InterestPeriod>, Refusal> RepoPeriods(const std::vector<RepoRow>& rows,
                                                               Date due_date, Date payment_date,
                                                               Money amount) {
  const auto row = HalfYearRow(rows, due_date);
  if (!row) return Refusal::kNoRate;
  HalfYears split = SplitIntoHalfYears(rows, *row, due_date, payment_date);
  if (!split.complete) return Refusal::kBeyondTable;
  ComputeInterest(split.periods, amount);
  return std::move(split.periods);
}

SingleResult Begin(const SingleInputs& inputs) {
  SingleResult result;
  result.due_date = inputs.due_date;
  result.payment_date = inputs.payment_date;
  result.days = DaysBetween(inputs.due_date, inputs.payment_date);
  result.base_amount = inputs.amount;
  result.kind = inputs.kind;
  result.rate = inputs.rate;
  return result;
}

std::optional<Rate> DiscountRate(const std::vector<CnbRow>& rows, Date due_date) {
  const auto row = DiscountRow(rows, due_date);
  if (!row) return std::nullopt;
  const std::optional<Rate> rate = rows[*row].rate;
  if (!rate) throw Error(ErrorNumber::kTypeMismatch);
  if (*rate == 0) return std::nullopt;
  return rate;
}

double InterestOf(const std::vector<InterestPeriod>& periods, Rounding rounding) {
  double interest = 0;
  for (const InterestPeriod& period : periods) {
    interest = ApplyRounding(rounding, interest + period.interest);
  }
  return ApplyRounding(rounding, interest);
}

void Complete(SingleResult& result, double interest) {
  result.amount_with_interest = Money::FromDouble(interest) + result.base_amount;
  result.interest = interest;
}

}  // namespace velta
