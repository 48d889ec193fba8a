#pragma once

#include "ui/clock.h"

namespace velta::qt {

class Clock final : public ui::Clock {
 public:
  [[nodiscard]] ui::Moment Now() const override;
};

}  // namespace velta::qt
