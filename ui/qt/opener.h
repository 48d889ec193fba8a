#pragma once

#include "ui/opener.h"

namespace velta::qt {

class Opener final : public ui::Opener {
 public:
  [[nodiscard]] bool Open(std::string_view address) override;
};

}  // namespace velta::qt
