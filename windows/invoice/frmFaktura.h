#pragma once

#include <array>
#include <optional>

#include "app/form.h"
#include "windows/calculation/calculations.h"
#include "windows/invoice/invoice_page.h"
#include "windows/settings/settings.h"

namespace velta {

/// The penalty invoice for the interest of the current calculation: the user fills in the customer,
/// checks the supplier and prints it. Nothing typed here is stored. Closing it also closes the
/// calculation from which it was made.
class frmFaktura final : public Form {
 public:
  frmFaktura(Program& program, const Settings& settings, Calculations& calculations);

  /// Take over the result of a single, respectively a progressive calculation into the item line;
  /// where there is none they tell the user so.
  void NacteniJednotlivehoVypoctu();
  void NacteniPostupnehoVypoctu();

  ui::Frame fraFakt{*this, "fraFakt"};
  ui::Frame fraFaktura{*this, "fraFaktura"};
  ui::Frame Frame1{*this, "Frame1"};
  std::array<ui::Label, 15> lblFaktura = ui::ControlArray<ui::Label, 15>(*this, "lblFaktura");
  /// Number of the invoice; customer (1-6); number of the overdue invoice; supplier (8-13); days
  /// until the invoice is due. Both parties in the order of InvoiceParty.
  std::array<ui::TextBox, 15> txtFaktura = ui::ControlArray<ui::TextBox, 15>(*this, "txtFaktura");
  ui::TextBox txtTextFaktury{*this, "txtTextFaktury"};
  ui::Button cmdTisk{*this, "cmdTisk"};
  ui::Button cmdHelp{*this, "cmdHelp"};
  ui::Button cmdKonec{*this, "cmdKonec"};

 private:
  void OnLoad() override;
  void OnUnload() override;
  void OnOpenedAgain() override { TakeOverFinished(); }
  std::optional<HelpTopic> help_topic() const override { return HelpTopic::kInvoice; }

  void cmdTisk_Click();

  /// The current calculation's result, if it is finished.
  std::optional<FinishedCalculation> Finished() const;
  void TakeOver();
  void TakeOverFinished();
  /// Tells the user what is missing, puts him there and returns false.
  bool IsFilledIn();
  void Refuse(ui::TextBox& field, const char* reason);
  Invoice Filled() const;
  InvoiceParty Party(std::size_t first_field) const;
  Date DueDate() const;

  const Settings& settings_;
  Calculations& calculations_;
};

}  // namespace velta
