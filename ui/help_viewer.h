#pragma once

#include <string_view>

namespace velta::ui {

/// Shows the compiled help file. Each call may open one more help window.
class HelpViewer {
 public:
  virtual ~HelpViewer() = default;

  /// Opens the help file (full path) at its contents. Returns false where there is no such file.
  [[nodiscard]] virtual bool OpenContents(std::string_view file) = 0;

  /// Opens the help file (full path) at the page with that context number. Returns false where
  /// there is no such file or no such topic.
  [[nodiscard]] virtual bool OpenTopic(std::string_view file, int topic) = 0;

  /// Closes every help window of the program.
  virtual void CloseAll() = 0;
};

}  // namespace velta::ui
