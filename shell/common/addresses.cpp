#include "shell/common/addresses.h"

#include "shell/common/error.h"

namespace velta {

void OpenWeb(Program& program, const std::string& address) {
  if (!program.platform.opener.Open(address)) throw Error(ErrorNumber::kBadArgument);
}

void OpenMail(Program& program, const std::string& address) {
  OpenWeb(program, "mailto:" + address);
}

}  // namespace velta
