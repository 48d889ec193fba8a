#pragma once

#include <string>
#include <vector>

#include "calc/calculation_result.h"
#include "values/locale.h"

namespace velta {

/// The two forms in which a single calculation is written down. Where their texts differ it is
/// meant:
///   rate of the discount regime   "3 %" in the report, "3  %" on paper
///   periods of the repo regime    with the amount owed and "9,5 %" in the report,
///                                 "9,5" alone on paper
enum class AccountForm { kReport, kPrintout };

struct AccountLine {
  std::string label;
  std::string value;
};

/// The lines of the account: in the repo regime a block for each period and then the sums, else all
/// in one block.
struct SingleAccount {
  std::vector<std::vector<AccountLine>> periods;
  std::vector<AccountLine> sums;
};

SingleAccount MakeSingleAccount(const SingleResult& result, AccountForm form,
                                const LocaleFormat& locale);

}  // namespace velta
