#include "calc/single_report.h"

#include "calc/account_texts.h"
#include "calc/single_account.h"

namespace velta {

namespace {

void Add(std::string& text, const std::vector<AccountLine>& lines) {
  for (const AccountLine& line : lines) {
    text.append("\t").append(line.label).append("\t").append(line.value).append(kReportLineEnd);
  }
}

}  // namespace

std::string SingleReport(const SingleResult& result, const LocaleFormat& locale) {
  const SingleAccount account = MakeSingleAccount(result, AccountForm::kReport, locale);
  std::string text = ReportHeading();
  for (const auto& period : account.periods) {
    Add(text, period);
    text.append(kReportLineEnd);
  }
  if (!account.periods.empty()) text.append(kReportLineEnd);
  Add(text, account.sums);
  return text.append(kReportRule).append(kReportLineEnd);
}

}  // namespace velta
