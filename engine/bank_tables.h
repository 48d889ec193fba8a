#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "engine/interest_period.h"
#include "engine/rate_files.h"
#include "values/date.h"
#include "values/locale.h"
#include "values/money.h"

/// What the bank's two tables say of a day or of a delay. Their rows have to be in ascending order
/// of date, which nothing here checks (engine/check_rates.h does).
namespace velta {

/// Both tables as they lie in the program's folder.
struct BankTables {
  std::vector<CnbRow> discount;
  std::vector<RepoRow> repo;
};

/// Reads both files of a folder ("": the current one); `today` ends the discount row that is still
/// in force. Errors are those of ReadFile, ParseCnbRow and ParseRepoRow.
BankTables ReadBankTables(const std::string& folder, Date today, const LocaleFormat& locale);

/// The row of the discount table that is in force on `day`. The first one serves all days before
/// it too, the last one all days after it. Where rows overlap, the last row wins, then the first,
/// then the lowest. None where the day falls between two rows. An empty table: Error 13.
std::optional<std::size_t> DiscountRow(const std::vector<CnbRow>& rows, Date day);

/// The row of the half-year in which `day` lies: the first one of its year or, from July on, the
/// one after that. None where no row has that year; where the year's second row is missing: Error
/// 380.
std::optional<std::size_t> HalfYearRow(const std::vector<RepoRow>& rows, Date day);

/// A delay in its half-years, each with its rate and days but no interest yet.
struct HalfYears {
  std::vector<InterestPeriod> periods;
  /// False where the table ends before the payment: the last period is that of its last row.
  bool complete = true;
};

/// Splits the delay from `due` to `paid`, beginning with the half-year `first_row`, which has to be
/// one of the table. The due date is no day of delay, the day of payment is one.
HalfYears SplitIntoHalfYears(const std::vector<RepoRow>& rows, std::size_t first_row, Date due,
                             Date paid);

/// Computes the interest on `principal` in every period: rate × principal ÷ 100 × days ÷ 365 in
/// double precision and in this order, the rate as it is written (7,05 is 7.05, not the nearest
/// single), rounded to four decimals. The year has 365 days, leap years included.
void ComputeInterest(std::vector<InterestPeriod>& periods, Money principal);

}  // namespace velta
