#pragma once

#include <chrono>

namespace velta {

/// Day(2005, 4, 28) is 28.4.2005.
constexpr std::chrono::sys_days Day(int year, unsigned month, unsigned day) {
  return std::chrono::year{year} / std::chrono::month{month} / std::chrono::day{day};
}

}  // namespace velta
