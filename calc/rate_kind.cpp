#include "calc/rate_kind.h"

namespace velta {

double Interest(RateKind kind, double amount, Rate rate, int days) {
  const double wide_rate = rate;
  switch (kind) {
    case RateKind::kPercentDaily:
      return amount * wide_rate / 100 * days;
    case RateKind::kPerMilleDaily:
      return amount * wide_rate * days / 1000;
    case RateKind::kPerMilleYearly:
      return amount * wide_rate * days / 365000;
    case RateKind::kPercentYearly:
    case RateKind::kDiscount:
    case RateKind::kRepo:
      break;
  }
  return amount * wide_rate / 100 * days / 365;
}

}  // namespace velta
