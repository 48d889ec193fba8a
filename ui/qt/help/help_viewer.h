#pragma once

#include <QPointer>
#include <memory>
#include <vector>

#include "ui/help_viewer.h"

namespace velta::qt {

class ChmFile;
class HelpWindow;

/// Shows the help in windows of the program's own. A page that stands in one of them already is
/// brought to the front; any other opens a further window.
class HelpViewer final : public ui::HelpViewer {
 public:
  HelpViewer() = default;
  HelpViewer(const HelpViewer&) = delete;
  HelpViewer& operator=(const HelpViewer&) = delete;
  ~HelpViewer() override;

  /// A damaged file counts as none.
  [[nodiscard]] bool OpenContents(std::string_view file) override;
  [[nodiscard]] bool OpenTopic(std::string_view file, int topic) override;
  void CloseAll() override;

 private:
  void Show(std::unique_ptr<ChmFile> chm, const QString& page);

  std::vector<QPointer<HelpWindow>> windows_;
};

}  // namespace velta::qt
