#pragma once

#include <optional>

#include "ui/platform.h"

namespace velta {

inline constexpr const char* kHelpFileName = "VELTA.CHM";

/// The pages of the help that windows open, by their context numbers.
enum class HelpTopic { kSingle = 70, kInvoice = 110 };

/// Opens the help at a topic, or at its contents. A file or a topic that is not there: Error 53.
void OpenHelp(const ui::Platform& platform, std::optional<HelpTopic> topic = std::nullopt);

}  // namespace velta
