#pragma once

#include <string_view>

namespace velta::ui {

/// Opens web and mail addresses in the user's own programs.
class Opener {
 public:
  virtual ~Opener() = default;

  /// Hands an address ("https://…", "mailto:…") to the desktop. Returns false where nothing took
  /// it.
  [[nodiscard]] virtual bool Open(std::string_view address) = 0;
};

}  // namespace velta::ui
