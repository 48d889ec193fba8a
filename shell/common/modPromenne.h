#pragma once

#include <string>

#include "shell/common/error_report.h"
#include "ui/locale.h"
#include "ui/program_folder.h"

/// The few routines that every window uses.
namespace velta {

/// Rounds upward to a step of 10^-places, in double precision: the greatest whole number not above
/// value × 10^places + 0.99, divided by 10^places. An excess over a whole step of less than one
/// hundredth of the step is dropped, which is intended: RoundUp(12.31, 1) and (12.305, 1) are 12.4,
/// (12.3005, 1) is 12.3, (-12.34, 1) is -12.3, (12.34, 0) is 13. Where a step leaves the range of
/// double, the error report names RoundUp, and the result is 0.
double RoundUp(double value, int places, ErrorReport& errors);

/// The decimal separator of the user's number format: "," or ".".
std::string GetDecimalSep(const ui::LocaleFormat& locale);

/// True where a file (not a folder) of that name exists; `path` is UTF-8.
bool FileExist(const std::string& path);

/// The bytes of a whole file, without a byte order mark at its beginning; `path` is UTF-8. No such
/// file: Error 53. A file that cannot be opened: Error 75, or read: Error 57.
std::string ReadFile(const std::string& path);

/// The full name of a file in the program's folder, with exactly one separator before the name
/// whether or not the folder already ends in one.
std::string ProgramFile(const ui::ProgramFolder& folder, const std::string& name);

/// A separator typed on either kind of keyboard becomes the user's own: "." in a comma locale gives
/// ",", "," in a point locale gives "."; every other key stays what it is.
std::string DecimalKey(const std::string& key, const ui::LocaleFormat& locale);

}  // namespace velta
