#include "shell/common/help.h"

#include "shell/common/error.h"
#include "shell/common/modPromenne.h"

namespace velta {

std::string HelpFilePath(const ui::ProgramFolder& folder) {
  if (folder.Separator() == "\\") return folder.Path() + "\\" + kHelpFileName;
  return ProgramFile(folder, kHelpFileName);
}

void OpenHelp(Program& program, std::optional<HelpTopic> topic) {
  ui::HelpViewer& viewer = program.platform.help_viewer;
  const std::string file = HelpFilePath(program.platform.program_folder);
  const bool opened =
      topic ? viewer.OpenTopic(file, static_cast<int>(*topic)) : viewer.OpenContents(file);
  if (!opened) throw Error(ErrorNumber::kFileNotFound);
}

}  // namespace velta
