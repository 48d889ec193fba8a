#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "values/date.h"
#include "values/money.h"
#include "values/number_text.h"

namespace velta {

enum class CalculationKind { kSingle, kProgressive };

/// The values that the calculation windows, the engines, printing and the invoice share. They live
/// as long as the program; the windows assign them step by step, so between two steps they may
/// belong to different calculations. Whoever needs one whole calculation takes its
/// result record.
struct CalculationState {
  std::optional<Date> DueDate;       ///< of the current calculation
  std::optional<Date> PaymentDate;   ///< of the current calculation or payment
  std::int32_t DaysLate = 0;         ///< from DueDate to PaymentDate
  Money BaseAmount;                  ///< what the calculation runs on
  Rate RateValue = 0;                ///< typed, or found by the discount engine
  std::string RateKindText;          ///< the chosen kind's text
  Rate EngineRate = 0;               ///< handed back by the discount engine; 0: not found
  double InterestAmount = 0;         ///< crowns, after rounding
  Money AmountWithInterest;          ///< BaseAmount + InterestAmount
  Money InterestTotal;               ///< progressive: of all payments
  Money DebtBeforeLastPayment;       ///< progressive: the balance before the latest payment
  std::string ReportText;            ///< lines end with CR LF
  bool CalculationFinished = false;  ///< there is a finished result
  bool SingleIsCurrent = false;      ///< true while frmJednotlivy is loaded
  bool SingleFormOpen = false;  ///< stays true when frmJednotlivy unloads; harmless, for closing
                                ///< a window that is not loaded does nothing
  bool ProgressiveFormOpen = false;
  std::optional<CalculationKind> LastCalculationKind;  ///< the window that was loaded last
};

}  // namespace velta
