#pragma once

#include "ui/launcher.h"

namespace velta::qt {

class Launcher final : public ui::Launcher {
 public:
  [[nodiscard]] bool Start(std::string_view program) override;
};

}  // namespace velta::qt
