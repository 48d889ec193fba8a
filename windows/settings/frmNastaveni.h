#pragma once

#include <array>
#include <cstddef>

#include "app/form.h"
#include "windows/settings/settings.h"

namespace velta {

/// The settings: the invoice's texts and the rounding rule, the firm's data, and the two rate
/// tables to look at, each on a page of its own. The rounding rule is stored at once and counts
/// when the window is opened again; the texts are stored on request and count from the next start.
class frmNastaveni final : public Form {
 public:
  frmNastaveni(Program& program, Settings& settings);

  ui::Frame fraTop{*this, "fraTop"};
  std::array<ui::OptionButton, 4> optFramy =
      ui::ControlArray<ui::OptionButton, 4>(*this, "optFramy");
  ui::Frame fraFaktura{*this, "fraFaktura"};
  ui::Frame Frame3{*this, "Frame3"};
  std::array<ui::OptionButton, 3> optZaok = ui::ControlArray<ui::OptionButton, 3>(*this, "optZaok");
  ui::Frame Frame4{*this, "Frame4"};
  ui::TextBox Text1{*this, "Text1"};
  ui::Frame Frame5{*this, "Frame5"};
  std::array<ui::TextBox, 3> Text2 = ui::ControlArray<ui::TextBox, 3>(*this, "Text2");
  ui::Frame fraFirma{*this, "fraFirma"};
  std::array<ui::Label, 8> lblFields = ui::ControlArray<ui::Label, 8>(*this, "lblFields");
  std::array<ui::TextBox, 8> txtfields = ui::ControlArray<ui::TextBox, 8>(*this, "txtfields");
  ui::Frame fraCnb{*this, "fraCnb"};
  ui::Frame fraSazbyCnb{*this, "fraSazbyCnb"};
  std::array<ui::Label, 4> lblCnb = ui::ControlArray<ui::Label, 4>(*this, "lblCnb");
  /// The columns of one table: valid from, valid to, discount rate, interest.
  std::array<ui::ListBox, 4> lstCnb = ui::ControlArray<ui::ListBox, 4>(*this, "lstCnb");
  ui::Button cmdPridat{*this, "cmdPridat"};
  ui::Frame fraRepo{*this, "fraRepo"};
  ui::Frame fraRepoCNB{*this, "fraRepoCNB"};
  std::array<ui::Label, 3> lblRepo = ui::ControlArray<ui::Label, 3>(*this, "lblRepo");
  ui::ListBox lstRepo{*this, "lstRepo"};
  ui::Button cmdRepoAkt{*this, "cmdRepoAkt"};
  ui::Button cmdPouzit{*this, "cmdPouzit"};
  ui::Button cmdNapoveda{*this, "cmdNapoveda"};
  ui::Button cmdKonec{*this, "cmdKonec"};

 private:
  void OnLoad() override;

  void MakePages();
  void WireEvents();
  void WireHints();

  void SetCaptions();
  void ShowSettings();
  void ShowDiscountRates();
  void ShowRepoRates();
  void ShowPage(std::size_t page);
  void cmdPouzit_Click();

  /// The boxes of kTextSettings, in its order.
  std::array<ui::TextBox*, 12> Texts();

  Settings& settings_;
};

}  // namespace velta
