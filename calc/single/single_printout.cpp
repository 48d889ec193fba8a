#include "calc/single/single_printout.h"

#include <string_view>

#include "calc/account_texts.h"
#include "calc/single/single_account.h"
#include "shell/common/page.h"

namespace velta {

namespace {

constexpr int kTopLines = 3;

void EndDoubleSpaced(Page& page) {
  page.EndLine();
  page.EmptyLines(1);
}

void Add(Page& page, std::string_view text) {
  page.MoveTo(kLabelColumn);
  page.Write(text);
  EndDoubleSpaced(page);
}

void Add(Page& page, const std::vector<AccountLine>& lines) {
  for (const AccountLine& line : lines) {
    page.MoveTo(kLabelColumn);
    page.Write(line.label);
    page.MoveTo(kValueColumn);
    page.Write(line.value);
    EndDoubleSpaced(page);
  }
}

}  // namespace

ui::PrintedDocument SinglePrintout(const SingleResult& result, const ui::LocaleFormat& locale) {
  const SingleAccount account = MakeSingleAccount(result, AccountForm::kPrintout, locale);
  Page page(kPrintoutName);
  page.EmptyLines(kTopLines);
  Add(page, kAccountHeading);
  Add(page, kPrintoutRule);
  for (const auto& period : account.periods) {
    Add(page, period);
    page.EmptyLines(1);
  }
  if (!account.periods.empty()) page.EmptyLines(1);
  Add(page, account.sums);
  Add(page, kPrintoutRule);
  return page.Take();
}

}  // namespace velta
