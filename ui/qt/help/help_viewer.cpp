#include "ui/qt/help/help_viewer.h"

#include <algorithm>

#include "ui/qt/help/chm_file.h"
#include "ui/qt/help/help_window.h"
#include "ui/qt/text.h"

namespace velta::qt {

HelpViewer::~HelpViewer() {
  for (const auto& window : windows_) delete window;
}

bool HelpViewer::OpenContents(std::string_view file) {
  std::unique_ptr<ChmFile> chm = ChmFile::Open(ToQString(file));
  const QString home = chm == nullptr ? QString() : chm->home();
  if (home.isEmpty()) return false;
  Show(std::move(chm), home);
  return true;
}

bool HelpViewer::OpenTopic(std::string_view file, int topic) {
  std::unique_ptr<ChmFile> chm = ChmFile::Open(ToQString(file));
  const QString page = chm == nullptr ? QString() : chm->Topic(topic);
  if (page.isEmpty()) return false;
  Show(std::move(chm), page);
  return true;
}

void HelpViewer::CloseAll() {
  for (const auto& window : windows_) {
    if (window != nullptr) window->close();
  }
}

void HelpViewer::Show(std::unique_ptr<ChmFile> chm, const QString& page) {
  // A closed window lives on until the event loop turns.
  std::erase_if(windows_,
                [](const auto& window) { return window == nullptr || !window->isVisible(); });
  auto standing = std::find_if(windows_.begin(), windows_.end(),
                               [&](const auto& window) { return window->page() == page; });
  if (standing == windows_.end()) {
    standing = windows_.insert(windows_.end(), new HelpWindow(std::move(chm), page));
  }
  HelpWindow& window = **standing;
  if (window.isMinimized()) window.showNormal();
  window.show();
  window.raise();
  window.activateWindow();
}

}  // namespace velta::qt
