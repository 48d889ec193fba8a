#include "app/addresses.h"

#include "app/error_report.h"

namespace velta {

namespace {

void Open(const ui::Platform& platform, const std::string& link, const std::string& address) {
  if (platform.opener.Open(link)) return;
  platform.message_box.Show(ui::Icon::kCritical, kTitle, NothingOpens(address));
}

}  // namespace

std::string NothingOpens(const std::string& address) {
  return "Nenalezen program, který otevře adresu " + address;
}

void OpenWeb(const ui::Platform& platform, const std::string& address) {
  Open(platform, address, address);
}

void OpenMail(const ui::Platform& platform, const std::string& address) {
  Open(platform, "mailto:" + address, address);
}

}  // namespace velta
