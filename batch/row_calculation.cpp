#include "batch/row_calculation.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "calc/lawful_calculation.h"
#include "calc/single_calculation.h"
#include "values/error.h"

namespace velta {

namespace {

/// What a calculation has given, or why it has given nothing.
template <class Value>
Value Given(std::variant<Value, Refusal> result) {
  if (const auto* const refusal = std::get_if<Refusal>(&result)) {
    throw RowError{std::string(Text(*refusal))};
  }
  return std::get<Value>(std::move(result));
}

/// To whole haléře, half away from zero: as the windows show an amount.
Money Shown(Money amount) {
  constexpr std::int64_t kHaler = Money::kUnitsPerCrown / 100;
  const std::int64_t rest = amount.units() % kHaler;
  const std::int64_t whole = amount.units() - rest;
  if (rest >= kHaler / 2) return Money::FromUnits(whole) + Money::FromUnits(kHaler);
  if (rest <= -kHaler / 2) return Money::FromUnits(whole) - Money::FromUnits(kHaler);
  return Money::FromUnits(whole);
}

/// The same of an interest, which the windows show by its own decimal text.
Money Shown(double interest) { return ToMoney(RoundedTo(interest, 2)); }

RowError Differs(std::string_view column) {
  return {std::string(column).append(": liší se od prvního řádku faktury")};
}

}  // namespace

std::string_view RowCalculation::Field(const Fields& fields,
                                       std::optional<std::size_t> column) const {
  return column ? Trimmed(fields[*column]) : std::string_view();
}

std::string_view RowCalculation::InvoiceOf(const Fields& fields) const {
  const FileColumns& columns = rules_.columns;
  // Without the amount that is owed there is nothing to pay off.
  if (!columns.debt || !columns.invoice || *columns.invoice >= fields.size()) return {};
  return Trimmed(fields[*columns.invoice]);
}

void RowCalculation::CheckCount(const Fields& fields) const {
  if (fields.size() == rules_.columns.count) return;
  throw RowError{"počet polí je " + std::to_string(fields.size()) + ", v hlavičce jich je " +
                 std::to_string(rules_.columns.count)};
}

KindOfRow RowCalculation::ReadKind(std::string_view text) {
  if (text != kind_text_ || text.empty()) {
    kind_ = KindField(text);
    kind_text_ = text;
  }
  return kind_;
}

RowCalculation::Terms RowCalculation::ReadTerms(const Fields& fields) {
  const FileColumns& columns = rules_.columns;
  Terms terms;
  terms.due = DateField(fields[columns.due], kDueColumn);
  terms.kind = ReadKind(fields[columns.kind]);
  if (terms.kind.lawful || IsBankKind(terms.kind.kind)) return terms;
  const std::string_view rate = Field(fields, columns.rate);
  if (rate.empty()) throw RowError{"Nezadali jste sazbu pro výpočet"};
  terms.rate = RateField(rate, kRateColumn, rules_.numbers);
  return terms;
}

void RowCalculation::PutPeriods(const std::vector<InterestPeriod>& periods,
                                const std::vector<Money>& interest, Money amount,
                                RowOutcome& outcome) const {
  Money shown_before;
  for (std::size_t i = 0; i < periods.size(); ++i) {
    const InterestPeriod& period = periods[i];
    // The half-years add up to what the row has without them.
    const Money shown = Shown(interest[i]);
    outcome.results.push_back({period.from, period.to, period.days, period.rate,
                               shown - shown_before, interest[i] + amount});
    shown_before = shown;
  }
}

void RowCalculation::ComputeSingle(const Fields& fields, RowOutcome& outcome) {
  const FileColumns& columns = rules_.columns;
  const Terms terms = ReadTerms(fields);
  const Date paid = DateField(fields[columns.paid], kPaidColumn);
  if (Field(fields, columns.amount).empty()) throw RowError{"Nezadali jste dlužnou částku"};
  const Money amount = AmountField(fields[columns.amount], kAmountColumn, rules_.numbers);

  SingleResult result;
  if (terms.kind.lawful) {
    LawfulResult lawful =
        Given(LawfulCalculation(terms.due, paid, amount, tables_, rules_.rounding));
    result = std::move(lawful.calculation);
    outcome.regime = lawful.regulation;
  } else {
    result = Given(SingleCalculation({terms.due, paid, amount, terms.kind.kind, terms.rate},
                                     tables_, rules_.rounding));
    outcome.regime = Text(result.kind);
  }
  const std::vector<InterestPeriod>& periods = result.periods;
  if (!rules_.by_half_years || periods.empty()) {
    outcome.results.push_back({terms.due, paid, result.days,
                               periods.empty() ? result.rate : periods.front().rate,
                               Shown(result.interest), result.amount_with_interest});
    return;
  }
  // As InterestOf rounds: after each half-year.
  double so_far = 0;
  std::vector<Money> interest;
  for (const InterestPeriod& period : periods) {
    so_far = ApplyRounding(rules_.rounding, so_far + period.interest);
    interest.push_back(Shown(so_far));
  }
  interest.back() = Shown(result.interest);
  PutPeriods(periods, interest, amount, outcome);
}

void RowCalculation::BeginInvoice(const Fields& fields, bool last) {
  CheckCount(fields);
  const std::string_view debt = Field(fields, rules_.columns.debt);
  if (debt.empty()) {
    // A single payment needs no debt: it is the debt.
    if (!last) throw RowError{"Nezadali jste částku dluhu!"};
    return;
  }
  terms_ = ReadTerms(fields);
  debt_ = AmountField(debt, kDebtColumn, rules_.numbers);
  RateKind kind = RegimeFor(terms_.kind.kind, terms_.due);
  Rate rate = terms_.rate;
  regime_ = Text(kind);
  if (terms_.kind.lawful) {
    const auto lawful = Given(LawfulTermsOf(terms_.due, tables_));
    kind = lawful.kind;
    rate = lawful.rate;
    regime_ = lawful.regulation;
  } else if (kind == RateKind::kDiscount) {
    const auto found = DiscountRate(tables_.discount, terms_.due);
    if (!found) throw RowError{std::string(Text(Refusal::kNoRate))};
    rate = *found;
  }
  invoice_.emplace(
      ProgressiveCalculation::Debt{terms_.due, debt_, kind, std::string(regime_), rate});
}

void RowCalculation::CheckSameInvoice(const Fields& fields) {
  const FileColumns& columns = rules_.columns;
  if (!Field(fields, columns.due).empty() &&
      DateField(fields[columns.due], kDueColumn) != terms_.due) {
    throw Differs(kDueColumn);
  }
  if (!Field(fields, columns.kind).empty()) {
    const KindOfRow kind = ReadKind(fields[columns.kind]);
    if (kind.kind != terms_.kind.kind || kind.lawful != terms_.kind.lawful) {
      throw Differs(kKindColumn);
    }
  }
  const bool typed = !terms_.kind.lawful && !IsBankKind(terms_.kind.kind);
  const std::string_view rate = Field(fields, columns.rate);
  if (typed && !rate.empty() && RateField(rate, kRateColumn, rules_.numbers) != terms_.rate) {
    throw Differs(kRateColumn);
  }
  const std::string_view debt = Field(fields, columns.debt);
  if (!debt.empty() && AmountField(debt, kDebtColumn, rules_.numbers) != debt_) {
    throw Differs(kDebtColumn);
  }
}

void RowCalculation::AddPayment(const Fields& fields, RowOutcome& outcome) {
  const FileColumns& columns = rules_.columns;
  const Date paid = DateField(fields[columns.paid], kPaidColumn);
  if (terms_.due >= paid) throw RowError{std::string(Text(Refusal::kDatesReversed))};
  if (Field(fields, columns.amount).empty()) throw RowError{"Nezadali jste částečnou úhradu!"};
  const Money amount = AmountField(fields[columns.amount], kAmountColumn, rules_.numbers);

  std::vector<InterestPeriod> periods;
  if (invoice_->result().kind == RateKind::kRepo) {
    periods = Given(terms_.kind.lawful ? LawfulPeriods(tables_.repo, terms_.due, paid, amount)
                                       : RepoPeriods(tables_.repo, terms_.due, paid, amount));
  }
  const Money total_before = invoice_->total();
  const Payment payment =
      Given(invoice_->Add(invoice_->Compute(paid, amount, rules_.rounding, std::move(periods))));
  // What the window counts into its total: each half-year as it is listed, the only payment of an
  // invoice within one half-year rounded.
  const Money interest = invoice_->total() - total_before;
  outcome.regime = regime_;
  if (!rules_.by_half_years || payment.periods.empty()) {
    outcome.results.push_back(
        {terms_.due, paid, payment.days,
         payment.periods.empty() ? invoice_->result().rate : payment.periods.front().rate,
         Shown(interest), interest + amount});
    return;
  }
  Money so_far;
  std::vector<Money> sums;
  for (const InterestPeriod& period : payment.periods) {
    so_far += ToMoney(period.interest);
    sums.push_back(so_far);
  }
  sums.back() = interest;
  PutPeriods(payment.periods, sums, amount, outcome);
}

void RowCalculation::Compute(const Fields& fields, bool first, bool last, RowOutcome& outcome) {
  outcome.regime = {};
  outcome.results.clear();
  outcome.error.clear();
  const bool empty = std::all_of(fields.begin(), fields.end(),
                                 [](std::string_view field) { return Trimmed(field).empty(); });
  if (empty) return;
  try {
    if (InvoiceOf(fields).empty()) {
      CheckCount(fields);
      ComputeSingle(fields, outcome);
    } else {
      ComputeOfInvoice(fields, first, last, outcome);
    }
  } catch (const RowError& error) {
    outcome.error = error.reason;
  } catch (const Error& error) {
    outcome.error = ErrorDescription(error.number());
  }
}

void RowCalculation::ComputeOfInvoice(const Fields& fields, bool first, bool last,
                                      RowOutcome& outcome) {
  if (first) {
    invoice_.reset();
    // Until it is found to be in order; then the other rows rely on it.
    first_row_is_wrong_ = true;
    BeginInvoice(fields, last);
    first_row_is_wrong_ = false;
  } else {
    CheckCount(fields);
    if (first_row_is_wrong_) throw RowError{"první řádek faktury je chybný"};
    CheckSameInvoice(fields);
  }
  if (invoice_) {
    AddPayment(fields, outcome);
  } else {
    ComputeSingle(fields, outcome);
  }
}

}  // namespace velta
