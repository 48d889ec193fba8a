#include "engine/rate_files.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <sstream>
#include <system_error>

#include "values/error.h"
#include "values/file.h"

namespace velta {
namespace {

int WholeNumber(std::string_view text) {
  text = Trimmed(text);
  const char* const end = text.data() + text.size();
  int number = 0;
  const auto result = std::from_chars(text.data(), end, number);
  if (result.ec == std::errc::result_out_of_range) throw Error(ErrorNumber::kOverflow);
  if (result.ec != std::errc() || result.ptr != end) throw Error(ErrorNumber::kTypeMismatch);
  return number;
}

Date ParseDottedDate(std::string_view text) {
  const std::size_t first = text.find('.');
  const std::size_t second = first == text.npos ? text.npos : text.find('.', first + 1);
  if (second == text.npos) throw Error(ErrorNumber::kTypeMismatch);
  const int day = WholeNumber(text.substr(0, first));
  const int month = WholeNumber(text.substr(first + 1, second - first - 1));
  return DateFromParts(WholeNumber(text.substr(second + 1)), month, day);
}

}  // namespace

std::string_view Trimmed(std::string_view text) {
  // \x1A is Ctrl-Z, with which old editors end a file.
  constexpr std::string_view kBlanks = " \t\r\x1A";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view Columns(std::string_view line, std::size_t first, std::size_t width) {
  return line.substr(std::min(first - 1, line.size()), width);
}

void ForEachLine(const std::string& path, const std::function<void(std::string_view)>& use) {
  std::istringstream lines(ReadFile(path));
  for (std::string line; std::getline(lines, line);) {
    const std::string_view row = Trimmed(line);
    if (!row.empty()) use(row);
  }
}

CnbRow ParseCnbRow(std::string_view line, Date today, const LocaleFormat& locale) {
  CnbRow row;
  row.valid_from = ParseDottedDate(Columns(line, 1, kCnbFieldWidth));
  const std::string_view valid_to = Columns(line, 20, kCnbFieldWidth);
  row.valid_to = LeadingNumber(valid_to) > 0 ? ParseDottedDate(valid_to) : today;
  row.discount_rate = Trimmed(Columns(line, 40, kCnbFieldWidth));
  row.interest_rate = Trimmed(Columns(line, 61, kCnbFieldWidth));
  const std::size_t comma = row.interest_rate.find(',');
  if (locale.decimal != "," && comma != std::string::npos) row.interest_rate[comma] = '.';
  try {
    row.rate = ToRate(row.interest_rate, locale);
  } catch (const Error&) {
    row.rate.reset();  // told when the row is needed
  }
  return row;
}

RepoRow ParseRepoRow(std::string_view line, const LocaleFormat& locale) {
  RepoRow row;
  const int day = WholeNumber(Columns(line, 1, 2));
  const int month = WholeNumber(Columns(line, 3, 2));
  row.start = DateFromParts(WholeNumber(Columns(line, 5, 4)), month, day);
  std::string repo_rate(Columns(line, 9, line.npos));
  if (locale.decimal == ".") std::replace(repo_rate.begin(), repo_rate.end(), ',', '.');
  // Added in double and narrowed once: a sum in single precision would show as 7,5299997.
  const double rate = ToDouble(repo_rate, locale) + kRepoSurcharge;
  if (std::abs(rate) > std::numeric_limits<Rate>::max()) throw Error(ErrorNumber::kOverflow);
  row.rate = static_cast<Rate>(rate);
  return row;
}

}  // namespace velta
