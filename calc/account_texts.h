#pragma once

#include <string_view>

/// What the written accounts of all calculations have in common.
namespace velta {

inline constexpr std::string_view kAccountHeading = "Podklady pro výpočet úroku z prodlení";

/// The lines of asterisks: 52 in the report, 73 on paper, where lines are longer.
inline constexpr std::string_view kReportRule =
    "****************************************************";
inline constexpr std::string_view kPrintoutRule =
    "*************************************************************************";
static_assert(kReportRule.size() == 52 && kPrintoutRule.size() == 73);

/// Where labels and values stand on paper.
inline constexpr int kLabelColumn = 5;
inline constexpr int kValueColumn = 65;

}  // namespace velta
