#include "app/help.h"

#include <string>

#include "app/modPromenne.h"
#include "values/error.h"

namespace velta {

namespace {

/// The help's file in the program's folder. Where the separator is "\" one is always put in, also
/// behind a folder that ends in one: the help viewer there takes two.
std::string HelpFilePath(const ui::ProgramFolder& folder) {
  if (folder.Separator() == "\\") return folder.Path() + "\\" + kHelpFileName;
  return ProgramFile(folder, kHelpFileName);
}

}  // namespace

void OpenHelp(const ui::Platform& platform, std::optional<HelpTopic> topic) {
  ui::HelpViewer& viewer = platform.help_viewer;
  const std::string file = HelpFilePath(platform.program_folder);
  const bool opened =
      topic ? viewer.OpenTopic(file, static_cast<int>(*topic)) : viewer.OpenContents(file);
  if (!opened) throw Error(ErrorNumber::kFileNotFound);
}

}  // namespace velta
