#include "windows/single/single_printout.h"

#include <string_view>

#include "app/page.h"
#include "calc/account_texts.h"
#include "calc/single_account.h"

namespace velta {

namespace {

constexpr int kTopLines = 3;

void EndDoubleSpaced(Page& page) {
  page.EndLine();
  page.EmptyLines(1);
}

void Add(Page& page, std::string_view text) {
  page.WriteAt(kLabelColumn, text);
  EndDoubleSpaced(page);
}

void Add(Page& page, const std::vector<AccountLine>& lines) {
  for (const AccountLine& line : lines) {
    page.WriteAt(kLabelColumn, line.label);
    page.WriteAt(kValueColumn, line.value);
    EndDoubleSpaced(page);
  }
}

}  // namespace

ui::PrintedDocument SinglePrintout(const SingleResult& result, const LocaleFormat& locale) {
  const SingleAccount account = MakeSingleAccount(result, AccountForm::kPrintout, locale);
  Page page(PrintoutName(result.base_amount, result.due_date, locale));
  page.EmptyLines(kTopLines);
  Add(page, kAccountHeading);
  Add(page, kPrintoutRule);
  for (const auto& period : account.periods) {
    const int first_line = page.LineCount();
    Add(page, period);
    page.KeepTogether(first_line);
    page.EmptyLines(1);
  }
  if (!account.periods.empty()) page.EmptyLines(1);
  const int first_line = page.LineCount();
  Add(page, account.sums);
  Add(page, kPrintoutRule);
  page.KeepTogether(first_line);
  return page.Take();
}

}  // namespace velta
