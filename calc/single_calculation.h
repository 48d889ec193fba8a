#pragma once

#include <optional>
#include <variant>
#include <vector>

#include "calc/calculation_result.h"
#include "calc/rate_kind.h"
#include "calc/refusal.h"
#include "calc/rounding.h"
#include "engine/bank_tables.h"

/// The interest on one debt that was paid at once.
namespace velta {

struct SingleInputs {
  Date due_date;
  Date payment_date;
  Money amount;
  RateKind kind = RateKind::kPercentYearly;  ///< not kUnknown
  Rate rate = 0;                             ///< of a typed kind
};

/// The whole calculation. A bank kind becomes the one that the due date asks for (RegimeFor).
/// Amounts out of range: Error 6; a fault of the tables: its error (engine/bank_tables.h).
std::variant<SingleResult, Refusal> SingleCalculation(const SingleInputs& inputs,
                                                      const BankTables& tables, Rounding rounding);

// Its steps, for a window that shows something between them.

/// The record of a calculation that has no interest yet. The kind is taken as it stands.
SingleResult Begin(const SingleInputs& inputs);

/// The rate of the discount regime at a due date; the whole delay bears it. None where the table
/// has no row, or one with the rate 0. A rate that is no number: Error 13.
std::optional<Rate> DiscountRate(const std::vector<CnbRow>& rows, Date due_date);

/// The half-years of a delay in the repo regime with their interest on `amount`, or why there are
/// none. A fault of the table: its error (engine/bank_tables.h).
std::variant<std::vector<InterestPeriod>, Refusal> RepoPeriods(const std::vector<RepoRow>& rows,
                                                               Date due_date, Date payment_date,
                                                               Money amount);

/// The interest of all half-years in crowns. The rule is applied after each of them and once more
/// at the end: with 132,7397, 441,0959 and 320,5479 Kč rounding up to 10 haléř gives 894,50 Kč and
/// not 894,40 Kč.
double InterestOf(const std::vector<InterestPeriod>& periods, Rounding rounding);

/// Completes a record: the interest and what it makes together with the amount. Beyond the range of
/// Money: Error 6, and the record keeps what it had.
void Complete(SingleResult& result, double interest);

}  // namespace velta
