#pragma once

#include "ui/help_viewer.h"

namespace velta::qt {

/// Hands the help file to whatever program the desktop has for it; a topic opens at the contents,
/// and the other program's windows are its own to close.
class HelpViewer final : public ui::HelpViewer {
 public:
  [[nodiscard]] bool OpenContents(std::string_view file) override;
  [[nodiscard]] bool OpenTopic(std::string_view file, int topic) override;
  void CloseAll() override {}
};

}  // namespace velta::qt
