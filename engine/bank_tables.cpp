#include "engine/bank_tables.h"

#include <algorithm>
#include <chrono>
#include <filesystem>

#include "values/error.h"
#include "values/number_text.h"

namespace velta {

namespace {

std::chrono::year_month_day Calendar(Date date) { return date; }

}  // namespace

BankTables ReadBankTables(const std::string& folder, Date today, const LocaleFormat& locale) {
  const std::filesystem::path path(folder);
  BankTables tables;
  ForEachLine(path / kCnbFile, [&](std::string_view line) {
    tables.discount.push_back(ParseCnbRow(line, today, locale));
  });
  ForEachLine(path / kRepoFile,
              [&](std::string_view line) { tables.repo.push_back(ParseRepoRow(line, locale)); });
  return tables;
}

std::optional<std::size_t> DiscountRow(const std::vector<CnbRow>& rows, Date day) {
  if (rows.empty()) throw Error(ErrorNumber::kTypeMismatch);
  const std::size_t last = rows.size() - 1;
  if (day >= rows[last].valid_from) return last;
  if (day <= rows.front().valid_to) return 0;
  for (std::size_t row = 1; row < last; ++row) {
    if (rows[row].valid_from <= day && day <= rows[row].valid_to) return row;
  }
  return std::nullopt;
}

std::optional<std::size_t> HalfYearRow(const std::vector<RepoRow>& rows, Date day) {
  const std::chrono::year_month_day calendar = Calendar(day);
  const auto first = std::find_if(rows.begin(), rows.end(), [&](const RepoRow& row) {
    return Calendar(row.start).year() == calendar.year();
  });
  if (first == rows.end()) return std::nullopt;
  auto row = static_cast<std::size_t>(first - rows.begin());
  if (calendar.month() >= std::chrono::July) ++row;
  if (row == rows.size()) throw Error(ErrorNumber::kBadPropertyValue);
  return row;
}

HalfYears SplitIntoHalfYears(const std::vector<RepoRow>& rows, std::size_t first_row, Date due,
                             Date paid) {
  HalfYears split;
  Date from = due;
  for (std::size_t row = first_row; row < rows.size(); ++row) {
    const Date next_half_year = AddMonths(rows[row].start, 6);
    const bool last = paid < next_half_year;
    InterestPeriod period;
    period.from = from;
    period.to = last ? paid : AddDays(next_half_year, -1);
    period.rate = rows[row].rate;
    // The first period begins with the due date, which is no day of delay.
    period.days = DaysBetween(period.from, period.to) + (split.periods.empty() ? 0 : 1);
    split.periods.push_back(period);
    if (last) return split;
    from = next_half_year;
  }
  split.complete = false;
  return split;
}

void ComputeInterest(std::vector<InterestPeriod>& periods, Money principal) {
  const double amount = principal.ToDouble();
  for (InterestPeriod& period : periods) {
    const double interest = ((AsWritten(period.rate) * amount) / 100 * period.days) / 365;
    period.interest = RoundedTo(interest, 4);
  }
}

}  // namespace velta
