#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "values/date.h"
#include "values/locale.h"
#include "values/number_text.h"

/// What the written accounts of all calculations have in common.
namespace velta {

inline constexpr std::string_view kAccountHeading = "Podklady pro výpočet úroku z prodlení";

/// The lines of asterisks: 52 in the report, 73 on paper, where lines are longer.
inline constexpr std::string_view kReportRule =
    "****************************************************";
inline constexpr std::string_view kPrintoutRule =
    "*************************************************************************";
static_assert(kReportRule.size() == 52 && kPrintoutRule.size() == 73);

/// What ends a line of a report: it goes to the clipboard, where every program reads it.
inline constexpr std::string_view kReportLineEnd = "\r\n";

/// The two lines that a report begins with.
inline std::string ReportHeading() {
  return std::string(kAccountHeading)
      .append(kReportLineEnd)
      .append(kReportRule)
      .append(kReportLineEnd);
}

/// A rate as the accounts and the invoice write it: "8,5 % ročně".
inline std::string RateWithUnit(Rate rate, std::string_view unit, const LocaleFormat& locale) {
  return PlainText(rate, locale).append(" ").append(unit);
}

/// What the printed account is called in the printer's queue and as a file, by the amount owed and
/// its due date: "Výpočet úroku z prodlení 10 000 Kč 10.3.2005".
inline std::string PrintoutName(Money owed, Date due, LocaleFormat locale) {
  locale.group = " ";  // an ordinary one: other programs read this name
  std::string amount = CurrencyText(owed, locale);
  const std::string no_haler = locale.decimal + "00";
  const std::size_t decimals = amount.rfind(no_haler);
  if (decimals != std::string::npos) amount.erase(decimals, no_haler.size());
  return "Výpočet úroku z prodlení " + amount + " " + ShortDateText(due, locale);
}

/// Where labels and values stand on paper.
inline constexpr int kLabelColumn = 5;
inline constexpr int kValueColumn = 65;

}  // namespace velta
