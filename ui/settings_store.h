#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velta::ui {

/// The per-user store of text values, addressed by application, section and key (all
/// case-sensitive). Whatever text is written reads back identically, also in a later run.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// Reads one value into `value`; a missing key gives nullopt. Returns false where the store
  /// cannot be read; `value` then keeps what it had.
  [[nodiscard]] virtual bool Read(std::string_view application, std::string_view section,
                                  std::string_view key, std::optional<std::string>& value) = 0;

  /// Writes one value; it is on disk when the call returns. Returns false where that failed; the
  /// store then holds what it held.
  [[nodiscard]] virtual bool Write(std::string_view application, std::string_view section,
                                   std::string_view key, std::string_view value) = 0;
};

}  // namespace velta::ui
