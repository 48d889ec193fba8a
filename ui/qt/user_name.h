#pragma once

#include "ui/user_name.h"

namespace velta::qt {

class UserName final : public ui::UserName {
 public:
  [[nodiscard]] std::optional<std::string> Get() const override;
};

}  // namespace velta::qt
