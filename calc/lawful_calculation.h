#pragma once

#include <string_view>
#include <variant>
#include <vector>

#include "calc/calculation_result.h"
#include "calc/rate_kind.h"
#include "calc/refusal.h"
#include "calc/rounding.h"
#include "engine/bank_tables.h"

/// The statutory interest: the law looks at the first day of delay, the day after the due date, and
/// knows no change of regime by the due date.
namespace velta {

/// At which rate a debt bears statutory interest.
struct LawfulTerms {
  /// kDiscount and kPercentYearly: one rate for the whole delay; kRepo: one for each half-year.
  RateKind kind = RateKind::kPercentYearly;
  Rate rate = 0;                ///< none in kRepo, where each period has its own
  std::string_view regulation;  ///< "nařízení vlády č. 351/2013 Sb."
};

/// The terms of a debt due on `due_date`, or why there are none. A fault of the tables: its error
/// (engine/bank_tables.h).
std::variant<LawfulTerms, Refusal> LawfulTermsOf(Date due_date, const BankTables& tables);

/// The half-years of a delay whose terms are kRepo, with their interest on `amount`, from the first
/// one that has a day of delay.
std::variant<std::vector<InterestPeriod>, Refusal> LawfulPeriods(const std::vector<RepoRow>& rows,
                                                                 Date due_date, Date payment_date,
                                                                 Money amount);

struct LawfulResult {
  SingleResult calculation;
  std::string_view regulation;
};

/// The whole calculation of a debt that was paid at once: 100 000 Kč due on 31.12.2020 and paid on
/// 31.12.2023 bear 24 750 Kč, three years at the 8,25 % of the half-year in which the delay began.
/// Amounts out of range: Error 6.
std::variant<LawfulResult, Refusal> LawfulCalculation(Date due_date, Date payment_date,
                                                      Money amount, const BankTables& tables,
                                                      Rounding rounding);

}  // namespace velta
