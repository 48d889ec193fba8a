#include "calc/single/single_report.h"

#include <string_view>

#include "calc/account_texts.h"
#include "calc/single/single_account.h"

namespace velta {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

void Add(std::string& text, const std::vector<AccountLine>& lines) {
  for (const AccountLine& line : lines) {
    text.append("\t").append(line.label).append("\t").append(line.value).append(kLineEnd);
  }
}

}  // namespace

std::string SingleReport(const SingleResult& result, const ui::LocaleFormat& locale) {
  const SingleAccount account = MakeSingleAccount(result, AccountForm::kReport, locale);
  std::string text;
  text.append(kAccountHeading).append(kLineEnd).append(kReportRule).append(kLineEnd);
  for (const auto& period : account.periods) {
    Add(text, period);
    text.append(kLineEnd);
  }
  if (!account.periods.empty()) text.append(kLineEnd);
  Add(text, account.sums);
  return text.append(kReportRule).append(kLineEnd);
}

}  // namespace velta
