#pragma once

#include <string>

#include "ui/program_folder.h"
#include "values/locale.h"

/// The few routines that every window uses.
namespace velta {

/// The decimal separator of the user's number format: "," or ".".
std::string GetDecimalSep(const LocaleFormat& locale);

/// The full name of a file in the program's folder, with exactly one separator before the name
/// whether or not the folder already ends in one.
std::string ProgramFile(const ui::ProgramFolder& folder, const std::string& name);

/// A separator typed on either kind of keyboard becomes the user's own: "." in a comma locale gives
/// ",", "," in a point locale gives "."; every other key stays what it is.
std::string DecimalKey(const std::string& key, const LocaleFormat& locale);

}  // namespace velta
