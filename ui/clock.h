#pragma once

#include <chrono>

namespace velta::ui {

/// A moment of the user's own time zone, to the minute.
struct Moment {
  std::chrono::sys_days day;
  std::chrono::minutes time;  ///< since midnight, 0 to 1439
};

/// What day and time it is.
class Clock {
 public:
  virtual ~Clock() = default;
  [[nodiscard]] virtual Moment Now() const = 0;
};

}  // namespace velta::ui
