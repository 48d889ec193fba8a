#pragma once

#include <functional>
#include <memory>

#include "tests/scenario/driver.h"

namespace velta::scenario {

/// Runs `play` where there is a Qt application, and returns its result. Without a chosen Qt
/// platform the one without a screen is taken.
int WithQt(char** argv, const std::function<int()>& play);

/// The driver of the real widgets: sends them key and mouse events and reads them back. Only inside
/// WithQt. `locale` must outlive the driver.
std::unique_ptr<Driver> MakeQtDriver(const LocaleFormat& locale);

}  // namespace velta::scenario
