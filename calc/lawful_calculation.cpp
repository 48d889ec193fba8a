#include "calc/lawful_calculation.h"

#include <utility>

#include "calc/single_calculation.h"
#include "engine/lawful_rate.h"

namespace velta {

std::variant<LawfulTerms, Refusal> LawfulTermsOf(Date due_date, const BankTables& tables) {
  const Date first_day = AddDays(due_date, 1);
  const LawfulRegime* const regime = LawfulRegimeOf(first_day);
  if (regime == nullptr) return Refusal::kBeforeTheLaw;
  LawfulTerms terms;
  terms.regulation = regime->regulation;
  switch (regime->rule) {
    case LawfulRule::kDiscount: {
      const std::optional<Rate> rate = DiscountRate(tables.discount, first_day);
      if (!rate) return Refusal::kNoRate;
      terms.kind = RateKind::kDiscount;
      terms.rate = *rate;
      break;
    }
    case LawfulRule::kHalfYears:
      terms.kind = RateKind::kRepo;
      break;
    case LawfulRule::kFixed: {
      const std::optional<Rate> rate = LawfulRate(first_day, tables.repo);
      if (!rate) return Refusal::kNotPublished;
      terms.rate = *rate;
      break;
    }
  }
  return terms;
}

std::variant<std::vector<InterestPeriod>, Refusal> LawfulPeriods(const std::vector<RepoRow>& rows,
                                                                 Date due_date, Date payment_date,
                                                                 Money amount) {
  auto found = RepoPeriods(rows, due_date, payment_date, amount);
  if (auto* const periods = std::get_if<std::vector<InterestPeriod>>(&found)) {
    // A due date that ends a half-year has its first day of delay in the next one.
    if (periods->front().days == 0) periods->erase(periods->begin());
  }
  return found;
}

std::variant<LawfulResult, Refusal> LawfulCalculation(Date due_date, Date payment_date,
                                                      Money amount, const BankTables& tables,
                                                      Rounding rounding) {
  if (due_date >= payment_date) return Refusal::kDatesReversed;
  const auto found = LawfulTermsOf(due_date, tables);
  if (const auto* const refusal = std::get_if<Refusal>(&found)) return *refusal;
  const auto& terms = std::get<LawfulTerms>(found);

  LawfulResult result;
  result.regulation = terms.regulation;
  SingleResult& calculation = result.calculation;
  calculation = Begin({due_date, payment_date, amount, terms.kind, terms.rate});
  if (terms.kind == RateKind::kRepo) {
    auto periods = LawfulPeriods(tables.repo, due_date, payment_date, amount);
    if (const auto* const refusal = std::get_if<Refusal>(&periods)) return *refusal;
    calculation.periods = std::get<std::vector<InterestPeriod>>(std::move(periods));
    Complete(calculation, InterestOf(calculation.periods, rounding));
  } else {
    Complete(calculation, ApplyRounding(rounding, Interest(terms.kind, amount.ToDouble(),
                                                           terms.rate, calculation.days)));
  }
  return result;
}

}  // namespace velta
