#pragma once

#include "ui/settings_store.h"

namespace velta::qt {

/// The settings as an INI file in the user's configuration folder: <application>/<application>.ini.
class SettingsStore final : public ui::SettingsStore {
 public:
  [[nodiscard]] bool Read(std::string_view application, std::string_view section,
                          std::string_view key, std::optional<std::string>& value) override;
  [[nodiscard]] bool Write(std::string_view application, std::string_view section,
                           std::string_view key, std::string_view value) override;
};

}  // namespace velta::qt
