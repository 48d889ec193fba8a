#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>

#include "calc/bank_rates.h"
#include "calc/calculation_result.h"
#include "calc/calculation_window.h"
#include "settings/settings.h"
#include "shell/common/form.h"

namespace velta {

/// The single calculation: the late-payment interest on one debt between its due date and the day
/// it was paid. Every change of an input computes anew; there is no button for it.
class frmJednotlivy final : public Form, public CalculationWindow {
 public:
  frmJednotlivy(Program& program, const Settings& settings, CalculationWindows& calculations);

  void PrintLater() override { tmrTiskVypoctu.SetEnabled(true); }
  const std::string& ReportBoxText() const override { return txtReport.text(); }
  std::optional<FinishedCalculation> finished() const override {
    return result_ ? std::optional<FinishedCalculation>(&*result_) : std::nullopt;
  }

  /// Computes from the inputs as they stand, as far as they allow.
  void VypocitejJednotlivy();

  ui::Frame fraDatJed{*this, "fraDatJed"};
  ui::DatePicker dtpSplatnost{*this, "dtpSplatnost", Today()};
  ui::DatePicker dtpZaplaceni{*this, "dtpZaplaceni", Today()};
  ui::Frame fraDluJed{*this, "fraDluJed"};
  ui::TextBox txtDluznaCastka{*this, "txtDluznaCastka"};
  ui::DropDown cboDruhSazby{*this, "cboDruhSazby"};
  ui::TextBox txtVyseSazby{*this, "txtVyseSazby"};
  ui::Frame fraVysJed{*this, "fraVysJed"};
  ui::Label lblPocetDnu{*this, "lblPocetDnu"};
  ui::Label lblPenale{*this, "lblPenale"};
  ui::Label lblPenaleDluh{*this, "lblPenaleDluh"};
  ui::Frame fraVypocet{*this, "fraVypocet"};
  ui::TextBox txtReport{*this, "txtReport"};
  ui::Button cmdNovy{*this, "cmdNovy"};
  ui::Button cmdTiskVyp{*this, "cmdTiskVyp"};
  ui::Button cmdTiskFa{*this, "cmdTiskFa"};
  ui::Button cmdHelp{*this, "cmdHelp"};
  ui::Button cmdKonec{*this, "cmdKonec"};
  std::array<ui::Label, 8> lblPopis = ui::ControlArray<ui::Label, 8>(*this, "lblPopis");
  ui::TimerControl tmrRepo{*this, "tmrRepo"};
  ui::TimerControl tmrTiskVypoctu{*this, "tmrTiskVypoctu"};

 private:
  void OnLoad() override;
  void OnUnload() override;
  std::optional<HelpTopic> help_topic() const override { return HelpTopic::kSingle; }

  void WireEvents();
  void WireHints();

  void cboDruhSazby_Change();
  void txtDluznaCastka_Change();
  void cmdNovy_Click();
  void cmdTiskVyp_Click();
  void cmdTiskFa_Click();
  void tmrRepo_Timer();

  RateKind Kind() const { return static_cast<RateKind>(cboDruhSazby.index()); }
  void SwitchRegime();
  void ClearResults();
  /// Rounds the interest, adds the amount and shows both.
  void ShowInterest(double interest, Money base_amount);
  /// Completes the record of a calculation whose interest is shown, and reports it.
  void Finish(SingleResult result);
  void ShowReport(std::string text);
  void CancelRepo();

  const Settings& settings_;
  CalculationWindows& calculations_;
  std::unique_ptr<BankRates> bank_rates_;
  std::optional<SingleResult> result_;
  std::optional<SingleResult> pending_;  // inputs of the repo computation under way
  bool limiting_amount_ = false;
};

}  // namespace velta
