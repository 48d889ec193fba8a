#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "app/calculation_state.h"
#include "calc/calculation_result.h"

namespace velta {

/// What refuses to print, and on purpose in the same words to invoice, before there is a result.
inline constexpr std::string_view kNotFinished = "Výpočet ještě není dokončen, nelze tisknout";

/// What the main window and the invoice ask of a calculation window.
class CalculationWindow {
 public:
  virtual ~CalculationWindow() = default;

  /// Carries a repo computation through that has been started and waits for the event loop. Whoever
  /// asks for a result does so first; else he would get the one before.
  virtual void Settle() = 0;
  /// Prints as the window's own command does, but after the caller has returned.
  virtual void PrintLater() = 0;
  /// The report box as it stands, lines ended by CR LF.
  virtual const std::string& ReportBoxText() const = 0;
  /// The latest finished calculation, if there is one.
  virtual std::optional<FinishedCalculation> finished() const = 0;
};

/// The calculation windows that are loaded; each enters itself when it loads and leaves when it
/// unloads.
struct CalculationWindows {
  CalculationWindow* single = nullptr;
  CalculationWindow* progressive = nullptr;

  /// The window of the current calculation, or null.
  CalculationWindow* Current(const CalculationState& state) const {
    return state.SingleIsCurrent ? single : progressive;
  }
  /// The same, settled, if its calculation is finished, else null.
  CalculationWindow* Finished(const CalculationState& state) const {
    CalculationWindow* const current = Current(state);
    if (current != nullptr) current->Settle();
    return state.CalculationFinished ? current : nullptr;
  }

  /// Called when the record of the current calculation has become another one: the open invoice
  /// listens.
  std::function<void()> on_new_record;
};

}  // namespace velta
