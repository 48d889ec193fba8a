#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "values/date.h"
#include "values/locale.h"
#include "values/number_text.h"

/// The two rate tables in the program's folder: text in fixed columns, one row a line, in ascending
/// order of date. They are only read, and never sorted: whoever uses them relies on their order.
namespace velta {

/// Hands every line to `use`, without the blanks around it; lines that are empty then are left out.
/// Lines end with CR LF or LF; a byte order mark and a closing Ctrl-Z do not count. Errors are
/// those of ReadFile (values/file.h); what `use` throws ends the reading.
void ForEachLine(const std::string& path, const std::function<void(std::string_view)>& use);

/// What stands in `width` columns of a line from column `first` on (they count from 1), with its
/// blanks; less where the line is shorter, "" behind its end.
std::string_view Columns(std::string_view line, std::size_t first, std::size_t width);

/// Without the blanks, tabs and ends of line or file on both sides.
std::string_view Trimmed(std::string_view text);

inline constexpr const char* kCnbFile = "cnb.dat";
inline constexpr const char* kRepoFile = "repo.dat";

/// The width of every field of cnb.dat. The fields begin in columns 1, 20, 40 and 61.
inline constexpr std::size_t kCnbFieldWidth = 19;

/// A period in which one discount rate was in force.
struct CnbRow {
  Date valid_from;
  Date valid_to;              ///< inclusive
  std::string discount_rate;  ///< as it stands in the file; for show only
  std::string interest_rate;  ///< per cent a year, as the user's locale writes it
  std::optional<Rate> rate;   ///< the same as a number; none where it is none
};

/// `today` ends a row that is still in force. A date that is none: Error 13, one outside the
/// calendar: Error 5. Rates that are no numbers are no errors here.
CnbRow ParseCnbRow(std::string_view line, Date today, const LocaleFormat& locale);

/// The percentage points that stand on top of the repo rate in the table of half-years.
inline constexpr Rate kRepoSurcharge = 7;

/// A half-year and its rate of interest.
struct RepoRow {
  Date start;  ///< 1 January or 1 July
  Rate rate;   ///< per cent a year: the repo rate of that day and the seven points on top of it
};

/// "010120052,50" is 1.1.2005 and 9.5. A date or rate that is none: Error 13, a date outside the
/// calendar: Error 5, a rate beyond the range of Rate: Error 6.
RepoRow ParseRepoRow(std::string_view line, const LocaleFormat& locale);

}  // namespace velta
