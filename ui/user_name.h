#pragma once

#include <optional>
#include <string>

namespace velta::ui {

/// Who is logged on.
class UserName {
 public:
  virtual ~UserName() = default;

  /// The login name of the user, or nullopt where the system does not tell it.
  [[nodiscard]] virtual std::optional<std::string> Get() const = 0;
};

}  // namespace velta::ui
