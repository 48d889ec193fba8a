#pragma once

#include <string>

#include "calc/calculation_result.h"
#include "values/locale.h"

/// The report of a progressive calculation: the heading (ReportHeading), then for each payment what
/// PaymentReport says, and the closing lines when the debt is paid.
namespace velta {

/// One block; in the repo regime one for each period, each with the whole payment.
std::string PaymentReport(const ProgressiveResult& result, const Payment& payment,
                          const LocaleFormat& locale);

/// The total, without a line end.
std::string ClosingReport(const ProgressiveResult& result, const LocaleFormat& locale);

/// The rate as all accounts write it: "8,5 % ročně", in the discount regime "3 %".
std::string RateText(const ProgressiveResult& result, const LocaleFormat& locale);

/// The total of a paid debt in currency.
std::string TotalText(const ProgressiveResult& result, const LocaleFormat& locale);

}  // namespace velta
