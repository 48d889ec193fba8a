#include "calc/rate_kind.h"

#include <algorithm>

namespace velta {

RateKind RateKindOf(std::string_view text) {
  const auto* const found = std::find(kRateKindTexts.begin(), kRateKindTexts.end(), text);
  return found == kRateKindTexts.end() ? RateKind::kUnknown
                                       : static_cast<RateKind>(found - kRateKindTexts.begin());
}

double Interest(RateKind kind, double amount, Rate rate, int days) {
  const double wide_rate = rate;
  switch (kind) {
    case RateKind::kPercentDaily:
      return amount * wide_rate / 100 * days;
    case RateKind::kPerMilleDaily:
      return amount * wide_rate * days / 1000;
    case RateKind::kPerMilleYearly:
      return amount * wide_rate * days / 365000;
    case RateKind::kCrownsDaily:
      return wide_rate * days;
    case RateKind::kCrownsYearly:
      return wide_rate * days / 365;
    case RateKind::kPercentYearly:
    case RateKind::kDiscount:
    case RateKind::kRepo:
    case RateKind::kUnknown:
      break;
  }
  return amount * wide_rate / 100 * days / 365;
}

}  // namespace velta
