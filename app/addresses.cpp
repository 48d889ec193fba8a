#include "app/addresses.h"

#include "app/error_report.h"

namespace velta {

namespace {

void Open(const Program& program, const std::string& link, const std::string& address) {
  if (program.platform.opener.Open(link)) return;
  program.platform.message_box.Show(ui::Icon::kCritical, kTitle, NothingOpens(address));
}

}  // namespace

std::string NothingOpens(const std::string& address) {
  return "Nenalezen program, který otevře adresu " + address;
}

void OpenWeb(Program& program, const std::string& address) { Open(program, address, address); }

void OpenMail(Program& program, const std::string& address) {
  Open(program, "mailto:" + address, address);
}

}  // namespace velta
