#pragma once

#include <array>
#include <optional>
#include <string>

#include "windows/calculation/calculation_form.h"

namespace velta {

/// The single calculation: the late-payment interest on one debt between its due date and the day
/// it was paid. Every change of an input computes anew; there is no button for it.
class frmJednotlivy final : public CalculationForm {
 public:
  frmJednotlivy(Program& program, const Settings& settings, Calculations& calculations);

  const std::string& ReportBoxText() const override { return txtReport.text(); }
  std::optional<FinishedCalculation> finished() const override {
    return result_ ? std::optional<FinishedCalculation>(&*result_) : std::nullopt;
  }

  /// Computes from the inputs as they stand, as far as they allow. Returns false where that has
  /// come to nothing and the user has been told why; an input that is still missing is no reason.
  bool VypocitejJednotlivy();

  ui::Frame fraDatJed{*this, "fraDatJed"};
  ui::Frame fraDluJed{*this, "fraDluJed"};
  ui::TextBox txtDluznaCastka{*this, "txtDluznaCastka"};
  ui::TextBox txtVyseSazby{*this, "txtVyseSazby"};
  ui::Frame fraVysJed{*this, "fraVysJed"};
  ui::Label lblPocetDnu{*this, "lblPocetDnu"};
  ui::Label lblPenale{*this, "lblPenale"};
  ui::Label lblPenaleDluh{*this, "lblPenaleDluh"};
  ui::Frame fraVypocet{*this, "fraVypocet"};
  ui::TextBox txtReport{*this, "txtReport"};
  std::array<ui::Label, 8> lblPopis = ui::ControlArray<ui::Label, 8>(*this, "lblPopis");

 private:
  void OnLoad() override;
  std::optional<HelpTopic> help_topic() const override { return HelpTopic::kSingle; }

  void WireEvents();
  void WireHints();

  void cboDruhSazby_Change();
  void txtDluznaCastka_Change();
  ui::TextBox& RateBox() override { return txtVyseSazby; }
  void cmdNovy_Click() override;
  void Print() override;
  void tmrRepo_Timer() override;

  ui::TextBox& ReportBox() override { return txtReport; }

  /// Shows an interest that has been rounded, and its sum with the amount.
  void ShowInterest(double interest, Money amount);
  /// Shows the interest of a calculation, completes its record and reports it.
  void Finish(SingleResult result, double interest);
  /// Shows the interest of the record again, in place of figures that are not yet final.
  void ShowRecord();

  std::optional<SingleResult> result_;
  SingleResult pending_;  // the inputs of the repo computation under way
  bool limiting_amount_ = false;
};

}  // namespace velta
