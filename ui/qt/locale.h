#pragma once

#include <QLocale>

#include "values/locale.h"

namespace velta::qt {

/// The number and date forms of a locale as the program uses them:
///  - where no locale is chosen (C, POSIX) the Czech ones, for the program is Czech;
///  - groups of digits stand apart by an ordinary blank where the locale has a special one;
///  - Czech dates are "28.4.2005"; elsewhere the year has four digits too, and a pattern that
///    cannot be typed from the number keys (month names, other scripts) gives way to the Czech one;
///  - the time of day has its hours and minutes, and what the locale says before and after noon; a
///    pattern with other words in it gives way to the Czech one.
LocaleFormat LocaleFormatOf(const QLocale& locale);

}  // namespace velta::qt
