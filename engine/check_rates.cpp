#include "engine/check_rates.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <fstream>
#include <functional>
#include <ios>
#include <optional>
#include <ostream>
#include <regex>
#include <sstream>
#include <utility>

namespace velta {
namespace {

using std::chrono::days;
using std::chrono::sys_days;

/// Remarks on the line that is being read.
class Remarks {
 public:
  void BeginLine() { ++line_; }
  void Problem(std::string text) { list_.push_back({line_, std::move(text)}); }
  void Note(std::string text) { list_.push_back({line_, std::move(text), false}); }
  void ProblemOfFile(std::string text) { list_.push_back({0, std::move(text)}); }
  std::vector<RateFileRemark> Take() { return std::move(list_); }

 private:
  int line_ = 0;
  std::vector<RateFileRemark> list_;
};

/// Checks what holds for every line of either file, and hands on the lines that are not empty.
void ForEachRow(std::string_view bytes, Remarks& remarks,
                const std::function<void(const std::string&)>& check_row) {
  while (!bytes.empty()) {
    remarks.BeginLine();
    const std::size_t line_feed = bytes.find('\n');
    std::string_view line = bytes.substr(0, line_feed);
    bytes.remove_prefix(line_feed == bytes.npos ? bytes.size() : line_feed + 1);
    if (line_feed != bytes.npos && line.ends_with('\r')) {
      line.remove_suffix(1);
    } else {
      remarks.Problem("does not end in CR LF");
    }
    if (std::any_of(line.begin(), line.end(), [](char c) { return c < ' ' || c > '~'; })) {
      remarks.Problem("has a character that is not plain ASCII");
    }
    if (line.find_first_not_of(' ') != line.npos) check_row(std::string(line));
  }
}

std::optional<sys_days> RealDay(const std::string& day, const std::string& month,
                                const std::string& year) {
  const std::chrono::year_month_day date(
      std::chrono::year(std::stoi(year)),
      std::chrono::month(static_cast<unsigned>(std::stoi(month))),
      std::chrono::day(static_cast<unsigned>(std::stoi(day))));
  return date.ok() ? std::optional<sys_days>(date) : std::nullopt;
}

std::string Text(sys_days day) {
  const std::chrono::year_month_day date(day);
  std::ostringstream text;
  text << static_cast<unsigned>(date.day()) << '.' << static_cast<unsigned>(date.month()) << '.'
       << static_cast<int>(date.year());
  return text.str();
}

/// The columns `first` to `last` (counted from 1) without trailing blanks.
std::string Field(const std::string& line, std::size_t first, std::size_t last) {
  if (first > line.size()) return {};
  const std::string field = line.substr(first - 1, last - first + 1);
  return field.substr(0, field.find_last_not_of(' ') + 1);
}

bool IsBlank(const std::string& line, std::size_t column) {
  return column > line.size() || line[column - 1] == ' ';
}

std::optional<sys_days> DottedDate(const std::string& field) {
  static const std::regex kForm(R"((\d{1,2})\.(\d{1,2})\.(\d{4}))");
  std::smatch parts;
  if (!std::regex_match(field, parts, kForm)) return std::nullopt;
  return RealDay(parts[1], parts[2], parts[3]);
}

/// A rate in hundredths of a per cent.
std::optional<int> Hundredths(const std::string& field) {
  static const std::regex kForm(R"((\d{1,2}),(\d{2}))");
  std::smatch parts;
  if (!std::regex_match(field, parts, kForm)) return std::nullopt;
  return std::stoi(parts[1]) * 100 + std::stoi(parts[2]);
}

struct Period {
  sys_days from;
  std::optional<sys_days> to;  // none: open
};

void CheckCnbRates(const std::string& line, Remarks& remarks) {
  const std::optional<int> discount = Hundredths(Field(line, 40, 58));
  const std::optional<int> interest = Hundredths(Field(line, 61, line.size()));
  if (!discount) remarks.Problem("has no discount rate such as 1,75 from column 40 on");
  if (!interest) remarks.Problem("has no rate of interest such as 3,50 from column 61 on");
  if (discount && interest && *interest != 2 * *discount) {
    remarks.Problem("the rate of interest is not twice the discount rate");
  }
}

/// The row's period; none where its dates cannot be read.
std::optional<Period> CheckCnbDates(const std::string& line, Remarks& remarks) {
  const std::optional<sys_days> from = DottedDate(Field(line, 1, 19));
  if (!from) {
    remarks.Problem("has no valid-from date from column 1 on");
    return std::nullopt;
  }
  const std::string to_field = Field(line, 20, 38);
  if (to_field.empty()) return Period{*from, std::nullopt};
  const std::optional<sys_days> to = DottedDate(to_field);
  if (!to) {
    remarks.Problem("has no valid-to date from column 20 on");
    return std::nullopt;
  }
  if (*to < *from) remarks.Problem("ends before it begins");
  return Period{*from, to};
}

void CheckOrder(const Period& previous, const Period& row, Remarks& remarks) {
  if (row.from <= previous.from) {
    remarks.Problem("is not in ascending order: begins on " + Text(row.from) + " after a row of " +
                    Text(previous.from));
  } else if (!previous.to) {
    remarks.Problem("follows an open row");
  } else if (row.from <= *previous.to) {
    remarks.Problem("overlaps the row before it, which ends on " + Text(*previous.to));
  } else if (row.from != *previous.to + days(1)) {
    remarks.Problem("leaves a gap after the row before it, which ends on " + Text(*previous.to));
  }
}

}  // namespace

std::vector<RateFileRemark> CheckCnb(std::string_view bytes) {
  Remarks remarks;
  bool has_rows = false;
  std::optional<Period> previous;  // none also after a row whose dates cannot be read
  ForEachRow(bytes, remarks, [&](const std::string& line) {
    has_rows = true;
    for (const std::size_t column : {39U, 59U, 60U}) {
      if (!IsBlank(line, column)) {
        remarks.Problem("column " + std::to_string(column) + " is not blank");
      }
    }
    CheckCnbRates(line, remarks);
    const std::optional<Period> row = CheckCnbDates(line, remarks);
    if (previous && row) CheckOrder(*previous, *row, remarks);
    previous = row;
  });
  if (!has_rows) remarks.ProblemOfFile("has no rows");
  if (previous && previous->to) remarks.Problem("is the last row and has a valid-to date");
  return remarks.Take();
}

std::vector<RateFileRemark> CheckRepo(std::string_view bytes, sys_days today) {
  static const std::regex kForm(R"((\d{2})(\d{2})(\d{4}) ?(\d{1,2},\d{2}) *)");
  // Due dates from 28 April 2005 on bear the repo rate.
  constexpr std::chrono::year kFirstYear(2005);

  Remarks remarks;
  bool has_rows = false;
  std::optional<std::chrono::year_month_day> previous;  // none also after a row that cannot be read
  ForEachRow(bytes, remarks, [&](const std::string& line) {
    const bool is_first = !has_rows;
    has_rows = true;
    const auto last_row = std::exchange(previous, std::nullopt);
    std::smatch parts;
    if (!std::regex_match(line, parts, kForm)) {
      remarks.Problem("is not a row such as 010120052,50: ddmmyyyy and the rate");
      return;
    }
    const std::optional<sys_days> day = RealDay(parts[1], parts[2], parts[3]);
    const std::chrono::year_month_day date(day.value_or(sys_days()));
    if (!day || date.day() != std::chrono::day(1) ||
        (date.month() != std::chrono::January && date.month() != std::chrono::July)) {
      remarks.Problem("is dated neither 1 January nor 1 July");
      return;
    }
    if (is_first && (date.month() != std::chrono::January || date.year() > kFirstYear)) {
      remarks.Problem("is the first row, but not 1 January of 2005 or an earlier year");
    }
    if (last_row && sys_days(date) <= sys_days(*last_row)) {
      remarks.Problem("is not in ascending order: " + Text(*day) + " after " +
                      Text(sys_days(*last_row)));
    } else if (last_row && date != *last_row + std::chrono::months(6)) {
      remarks.Problem("leaves a gap: " + Text(*day) + " after " + Text(sys_days(*last_row)));
    }
    previous = date;
  });
  if (!has_rows) remarks.ProblemOfFile("has no rows");
  if (previous && previous->month() == std::chrono::January) {
    const sys_days july = previous->year() / std::chrono::July / 1;
    if (today < july) {
      remarks.Note("is the last row: its year has no row of 1 July yet");
    } else {
      remarks.Problem("is the last row: its year has no row of 1 July");
    }
  }
  return remarks.Take();
}

int CheckRates(const std::vector<std::string>& arguments, sys_days today, std::ostream& out,
               std::ostream& err) {
  if (arguments.size() != 2 || (arguments[0] != "cnb" && arguments[0] != "repo")) {
    err << "usage: velta-check-rates cnb|repo FILE\n";
    return 2;
  }
  const std::string& path = arguments[1];
  std::ifstream file(path, std::ios::binary);
  std::ostringstream bytes;
  // Putting in nothing at all counts as a failure of the output, so an empty file is told apart.
  if (file && file.peek() != std::ifstream::traits_type::eof()) bytes << file.rdbuf();
  if (!file.is_open() || file.bad() || bytes.bad()) {
    err << path << ": cannot be read\n";
    return 2;
  }
  const std::vector<RateFileRemark> remarks =
      arguments[0] == "cnb" ? CheckCnb(bytes.str()) : CheckRepo(bytes.str(), today);
  bool has_problems = false;
  for (const RateFileRemark& remark : remarks) {
    has_problems = has_problems || remark.is_problem;
    out << path;
    if (remark.line > 0) out << ": line " << remark.line;
    out << ": " << (remark.is_problem ? "" : "note: ") << remark.text << '\n';
  }
  if (!has_problems) out << path << ": in order\n";
  return has_problems ? 1 : 0;
}

}  // namespace velta
