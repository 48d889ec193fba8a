#pragma once

#include <string>

#include "app/form.h"
#include "windows/calculation/bank_rates.h"
#include "windows/calculation/calculations.h"
#include "windows/settings/settings.h"

namespace velta {

/// What the two calculation windows have in common: dates and kind of rate, the commands, the
/// bank's engines, and that only one of the windows is open at a time. What differs, such as when
/// it computes and how it rounds, is in the windows themselves.
class CalculationForm : public Form, public CalculationWindow {
 public:
  void Settle() override;
  void PrintLater() override { tmrTiskVypoctu.SetEnabled(true); }

  ui::DatePicker dtpSplatnost{*this, "dtpSplatnost", program_.platform.clock,
                              program_.platform.locale};
  ui::DatePicker dtpZaplaceni{*this, "dtpZaplaceni", program_.platform.clock,
                              program_.platform.locale};
  ui::DropDown cboDruhSazby{*this, "cboDruhSazby"};
  ui::Button cmdNovy{*this, "cmdNovy"};
  ui::Button cmdTiskVyp{*this, "cmdTiskVyp"};
  ui::Button cmdTiskFa{*this, "cmdTiskFa"};
  ui::Button cmdHelp{*this, "cmdHelp"};
  ui::Button cmdKonec{*this, "cmdKonec"};
  ui::TimerControl tmrRepo{*this, "tmrRepo"};
  ui::TimerControl tmrTiskVypoctu{*this, "tmrTiskVypoctu"};

 protected:
  CalculationForm(Program& program, CalculationKind kind, const Settings& settings,
                  Calculations& calculations);

  // The steps of loading that both windows have.

  /// Closes the other calculation window and makes this one the current one.
  void BecomeCurrent();
  /// Captions the commands that both windows have.
  void SetCommandCaptions();
  /// Reads the bank's tables, after which the lawful rate is known.
  void LoadBankRates();
  /// Fills the list of kinds and chooses "% ročně".
  void OfferRateKinds();

  void OnUnload() override;

  /// The box for the rate.
  virtual ui::TextBox& RateBox() = 0;
  /// The window's new calculation.
  virtual void cmdNovy_Click() = 0;
  /// Prints the finished calculation.
  virtual void Print() = 0;
  /// The repo engine has computed its periods.
  virtual void tmrRepo_Timer() = 0;
  virtual ui::TextBox& ReportBox() = 0;

  RateKind Kind() const { return RateKindOf(cboDruhSazby.text()); }

  // The steps of computing that both windows have. They put into the shared values what they take,
  // and return false where the calculation ends.

  /// The two dates. Tells the user where the payment is not later than the due date.
  bool TakeDates();
  /// The dates and the days between. Before that it puts the bank kind that the due date asks for
  /// in place of the chosen one, and says so.
  bool TakeDelay();
  /// The amount, the kind and, where it is typed, the rate. Silent where one is no number.
  bool TakeAmountAndRate(const ui::TextBox& amount);
  /// The discount rate of the due date, which is shown in the rate's box. Where there is none the
  /// user has been told.
  bool TakeDiscountRate();
  /// Starts the computation of the interest on `principal` by half-years; tmrRepo follows. Where
  /// there is no rate the user has been told.
  bool StartRepo(Money principal);
  /// The rate of a bank kind is not typed.
  void OpenRateBox();

  void ShareRate(Rate rate) { program_.state.RateValue = rate; }
  /// Puts the interest and its sum with the amount into the shared values. The sum may overflow:
  /// Error 6, and the interest is there.
  void ShareInterest(double interest, Money amount);
  /// Puts a text into the report box, in place of what is there or at its end.
  void ShowReport(const std::string& text);
  void AppendReport(const std::string& text);
  /// Tells whoever shows the result elsewhere that there is another.
  void TellOfRecord() const;

  bool RepoPending() const { return bank_rates_.RepoPending() || tmrRepo.enabled(); }
  void CancelRepo();
  /// Sets the shared values of a calculation to 0.
  void ClearResults();

  const Settings& settings_;
  Calculations& calculations_;
  BankRates bank_rates_{program_, [this] { tmrRepo.SetEnabled(true); }};

 private:
  /// Nothing is computed with the former date as if the user had not typed another.
  void AskForDateAgain(ui::DatePicker& picker);
  void SwitchRegime();
  /// While a rate in % a year may be typed, the empty box says in grey which one is lawful.
  void ShowLawfulRate();
  void cmdTiskVyp_Click();
  void cmdTiskFa_Click();

  CalculationKind kind_;
};

}  // namespace velta
