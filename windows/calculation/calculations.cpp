#include "windows/calculation/calculations.h"

namespace velta {

std::string WindowName(CalculationKind kind) {
  switch (kind) {
    case CalculationKind::kSingle:
      return "frmJednotlivy";
    case CalculationKind::kProgressive:
      return "frmPostupny";
  }
  return {};
}

std::optional<CalculationKind> Calculations::InTheWayOf(CalculationKind kind) const {
  if (kind == CalculationKind::kSingle) {
    if (state_.ProgressiveFormOpen) return CalculationKind::kProgressive;
  } else if (state_.SingleFormOpen) {
    return CalculationKind::kSingle;
  }
  return std::nullopt;
}

void Calculations::Enter(CalculationWindow& window, CalculationKind kind) {
  const bool single = kind == CalculationKind::kSingle;
  current_ = &window;
  state_.SingleFormOpen = single;
  state_.ProgressiveFormOpen = !single;
  state_.SingleIsCurrent = single;
  state_.CalculationFinished = false;
  state_.LastCalculationKind = kind;
}

void Calculations::Leave(CalculationKind kind) {
  current_ = nullptr;
  state_.SingleIsCurrent = false;
  state_.CalculationFinished = false;
  if (kind == CalculationKind::kSingle) return;  // its own flag stays; see CalculationState
  state_.SingleFormOpen = false;
  state_.ProgressiveFormOpen = false;
}

CalculationWindow* Calculations::Finished() const {
  if (current_ != nullptr) current_->Settle();
  return state_.CalculationFinished ? current_ : nullptr;
}

}  // namespace velta
