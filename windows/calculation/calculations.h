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

/// Under which name a calculation's window opens.
std::string WindowName(CalculationKind kind);

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

/// Which calculation is open, current and finished, and which was the last: all that ask for it ask
/// here, and nobody else writes the shared flags. At most one calculation window is open; while it
/// is, it is the current one.
class Calculations {
 public:
  explicit Calculations(CalculationState& state) : state_(state) {}

  /// The window whose flag says that it is open and that has to close before one of `kind` opens.
  std::optional<CalculationKind> InTheWayOf(CalculationKind kind) const;
  /// A window has loaded, respectively unloads.
  void Enter(CalculationWindow& window, CalculationKind kind);
  void Leave(CalculationKind kind);

  /// The open window, or null.
  CalculationWindow* current() const { return current_; }
  bool has_finished() const { return state_.CalculationFinished; }
  void SetFinished(bool finished) { state_.CalculationFinished = finished; }
  /// The open window, settled, if its calculation is finished, else null.
  CalculationWindow* Finished() const;
  /// The kind of the window that was opened last.
  std::optional<CalculationKind> last() const { return state_.LastCalculationKind; }

  /// Called when the record of the current calculation has become another one: the open invoice
  /// listens.
  std::function<void()> on_new_record;

 private:
  CalculationState& state_;
  CalculationWindow* current_ = nullptr;
};

}  // namespace velta
