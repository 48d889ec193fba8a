#include "app/error_report.h"

#include <string>

namespace velta {

namespace {

std::string NumberAndDescription(const std::exception_ptr& thrown) {
  const ErrorNumber number = NumberOf(thrown);
  return "Chyba " + std::to_string(static_cast<int>(number)) + " (" + ErrorDescription(number) +
         ")";
}

}  // namespace

void ErrorReport::ReportError(const std::exception_ptr& thrown, std::string_view procedure,
                              std::string_view unit) {
  message_box_.Show(ui::Icon::kCritical, kTitle,
                    NumberAndDescription(thrown) + " v proceduře\r\n(" + std::string(procedure) +
                        ") of (" + std::string(unit) + ").");
}

void ErrorReport::ReportUntrapped(const std::exception_ptr& thrown) {
  message_box_.Show(ui::Icon::kCritical, kTitle, NumberAndDescription(thrown));
}

}  // namespace velta
