#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calc/progressive_calculation.h"
#include "windows/calculation/calculation_form.h"

namespace velta {

/// The progressive calculation: one invoice paid late in several payments. The user enters the
/// invoice, then adds its payments one by one; each bears interest on its own amount from the due
/// date to the day it was paid, and lowers the balance. When that is zero the calculation is
/// closed. A payment costs the same however many came before it: totals, lists and report only
/// grow.
class frmPostupny final : public CalculationForm {
 public:
  frmPostupny(Program& program, const Settings& settings, Calculations& calculations);

  const std::string& ReportBoxText() const override { return txtPostup.text(); }
  std::optional<FinishedCalculation> finished() const override;

  /// Computes the payment that has been entered and records it; in the repo regime tmrRepo records
  /// it. Stops without a word where an amount or a typed rate is no number.
  void UdelejVypocet();

  ui::Frame fraFaktura{*this, "fraFaktura"};
  /// The total and later the balance, the payment, the rate.
  std::array<ui::TextBox, 3> txtData = ui::ControlArray<ui::TextBox, 3>(*this, "txtData");
  ui::Frame fraUdaje{*this, "fraUdaje"};
  ui::Button cmdPridat{*this, "cmdPridat"};
  ui::ListBox List1{*this, "List1"};  ///< the payments: amounts,
  ui::ListBox List2{*this, "List2"};  ///< days,
  ui::ListBox List3{*this, "List3"};  ///< balances left
  ui::ListBox List4{*this, "List4"};  ///< interest; in the repo regime a row for each period
  ui::ListBox List5{*this, "List5"};  ///< the total, one row
  ui::Frame fraPostupny{*this, "fraPostupny"};
  ui::TextBox txtPostup{*this, "txtPostup"};
  std::array<ui::Label, 11> lblPopis = ui::ControlArray<ui::Label, 11>(*this, "lblPopis");

 private:
  void OnLoad() override;
  void OnUnload() override;

  void WireEvents();
  void WireHints();

  void cmdPridat_Click();
  ui::TextBox& RateBox() override { return txtData[2]; }
  void cmdNovy_Click() override;
  void Print() override;
  void tmrRepo_Timer() override;

  /// False, with a message, where an input is missing or the dates are in the wrong order.
  bool ReadInputs();
  /// From the first payment on only payments can be entered.
  void LockInvoice();
  /// Tells what is wrong with a box, and returns false.
  bool Refuse(std::string_view message, ui::TextBox& box);

  /// Computes the payment and records it, unless it is more than the balance.
  void FinishPayment(std::vector<InterestPeriod> periods);
  void ShowPayment(const Payment& payment);
  void ShowTotal(double latest_interest);
  /// Chooses a payment's row in every list, in that of interest its first one; -1 chooses none.
  void MarkPayment(int payment);
  int FirstInterest(int payment) const;
  int PaymentOfInterest(int row) const;
  int RowsOfInterest(int payment) const;
  void StartReport();
  ui::TextBox& ReportBox() override { return txtPostup; }
  /// Sets the shared values that only this window has to 0.
  void ClearTotals();

  // The payment being added.
  Money balance_;  // before it
  Money payment_;

  /// Begins with the first payment that can be computed.
  std::optional<ProgressiveCalculation> calculation_;
};

}  // namespace velta
