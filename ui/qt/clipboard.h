#pragma once

#include "ui/clipboard.h"

namespace velta::qt {

class Clipboard final : public ui::Clipboard {
 public:
  [[nodiscard]] bool SetText(std::string_view text) override;
};

}  // namespace velta::qt
