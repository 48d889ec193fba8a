#pragma once

#include <chrono>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

/// The check of a rate file before it is given to users. The program itself takes a table as it
/// comes: a row out of place or a rate in the wrong column would only show as wrong interest.
namespace velta {

struct RateFileRemark {
  int line;  ///< counted from 1; 0: the file as a whole
  std::string text;
  bool is_problem = true;  ///< otherwise it is only worth knowing
};

/// What is wrong with the bytes of a discount-rate file: CR LF, plain ASCII, the columns, dates,
/// rates; periods in order, without gap or overlap; interest exactly twice the discount rate; the
/// last row, and no other, open. In the order of the lines.
std::vector<RateFileRemark> CheckCnb(std::string_view bytes);

/// The same for a repo-rate file: CR LF, plain ASCII, dates, rates; from 1 January of 2005 or an
/// earlier year on both half-years of every year, in order. Only before 1 July of the last year may
/// its July row be missing, for that rate is not known earlier; this is remarked upon and no
/// problem.
std::vector<RateFileRemark> CheckRepo(std::string_view bytes, std::chrono::sys_days today);

/// The command line: "cnb FILE" or "repo FILE". Prints the remarks. Returns 0: the file is in
/// order; 1: it is not; 2: wrong usage, or the file cannot be read.
int CheckRates(const std::vector<std::string>& arguments, std::chrono::sys_days today,
               std::ostream& out, std::ostream& err);

}  // namespace velta
