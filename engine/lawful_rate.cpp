#include "engine/lawful_rate.h"

#include <algorithm>
#include <array>
#include <chrono>

namespace velta {

namespace {

constexpr Date Day(int year, unsigned month, unsigned day) {
  return std::chrono::year{year} / std::chrono::month{month} / std::chrono::day{day};
}

constexpr std::array<LawfulRegime, 5> kRegimes = {{
    {Day(1994, 7, 15), LawfulRule::kDiscount, 0, "nařízení vlády č. 142/1994 Sb."},
    {Day(2005, 4, 28), LawfulRule::kHalfYears, 7, "nařízení vlády č. 163/2005 Sb."},
    {Day(2010, 7, 1), LawfulRule::kFixed, 7, "nařízení vlády č. 33/2010 Sb."},
    {Day(2013, 7, 1), LawfulRule::kFixed, 8, "nařízení vlády č. 180/2013 Sb."},
    {Day(2014, 1, 1), LawfulRule::kFixed, 8, "nařízení vlády č. 351/2013 Sb."},
}};

/// Counts the half-years, so that the days of one have the same number.
int HalfYearOf(Date day) {
  const std::chrono::year_month_day calendar(day);
  return 2 * static_cast<int>(calendar.year()) + (calendar.month() >= std::chrono::July ? 1 : 0);
}

}  // namespace

const LawfulRegime* LawfulRegimeOf(Date first_day) {
  const auto after =
      std::find_if(kRegimes.begin(), kRegimes.end(),
                   [&](const LawfulRegime& regime) { return first_day < regime.first_day; });
  return after == kRegimes.begin() ? nullptr : &*(after - 1);
}

std::optional<Rate> LawfulRate(Date first_day, const std::vector<RepoRow>& half_years) {
  const LawfulRegime* const regime = LawfulRegimeOf(first_day);
  if (regime == nullptr || regime->rule != LawfulRule::kFixed) return std::nullopt;
  const auto row =
      std::find_if(half_years.begin(), half_years.end(), [&](const RepoRow& half_year) {
        return HalfYearOf(half_year.start) == HalfYearOf(first_day);
      });
  if (row == half_years.end()) return std::nullopt;
  // Up to the end of 2013 the law takes the repo rate of the half-year's eve. The bank did not
  // change it on a 1 July or 1 January of those years, so that the half-year's own says the same.
  return static_cast<Rate>(AsWritten(row->rate) + (regime->surcharge - kRepoSurcharge));
}

}  // namespace velta
