#include "windows/invoice/frmFaktura.h"

#include <cmath>
#include <limits>
#include <string>

#include "app/help.h"
#include "app/printing.h"
#include "values/error.h"

namespace velta {

namespace {

constexpr std::array<const char*, 15> kLabels = {"Číslo penalizační faktury",
                                                 "Název",
                                                 "Ulice",
                                                 "Obec",
                                                 "PSČ",
                                                 "IČO",
                                                 "DIČ",
                                                 "Číslo původní faktury",
                                                 "Název",
                                                 "Ulice",
                                                 "Obec",
                                                 "PSČ",
                                                 "IČO",
                                                 "DIČ",
                                                 "Splatnost (dnů)"};

// Fields of txtFaktura.
constexpr std::size_t kNumber = 0;
constexpr std::size_t kCustomer = 1;  // first of six
constexpr std::size_t kOriginalNumber = 7;
constexpr std::size_t kSupplier = 8;  // first of six
constexpr std::size_t kDaysUntilDue = 14;
// Name, street and town of the customer must be filled in.
constexpr std::size_t kLastRequired = 3;
constexpr const char* kRequired = "povinný údaj";

/// Whose field it is, as the status line says it.
const char* Owner(std::size_t field) {
  if (field >= kCustomer && field < kOriginalNumber) return " odběratele";
  if (field >= kOriginalNumber && field < kDaysUntilDue) return " dodavatele";
  return "";
}

}  // namespace

frmFaktura::frmFaktura(Program& program, const Settings& settings, Calculations& calculations)
    : Form(program, "frmFaktura"), settings_(settings), calculations_(calculations) {
  txtTextFaktury.SetReadOnly();  // what is shown is what is printed
  for (std::size_t i = 0; i < txtFaktura.size(); ++i) {
    ui::TextBox& field = txtFaktura.at(i);
    Hint(field, std::string(kLabels.at(i)) + Owner(i));
    OnKeyPress(field, [this](ui::KeyPress& key) {
      if (EnterMovesOn(key) || key.text != "p") return;
      // A small p is the key for help here and cannot be typed.
      key.text.clear();
      cmdHelp.Click.Raise();
    });
  }
  cmdTisk.SetUsesInputs();
  OnClick(cmdTisk, [this] { cmdTisk_Click(); });
  OnClick(cmdHelp, [this] { OpenHelp(program_.platform, HelpTopic::kInvoice); });
  OnClick(cmdKonec, [this] { Close(); });
  Hint(cmdTisk, "Vytiskne penalizační fakturu");
  Hint(cmdHelp, "Vyvolá nápovědu s tématem");
  Hint(cmdKonec, "Zavřít okno");
  for (ui::Frame* frame : {&fraFakt, &fraFaktura, &Frame1}) SurfaceHint(*frame);
}

void frmFaktura::OnLoad() {
  SetCaption("Faktura");
  fraFaktura.SetCaption("Odběratel");
  Frame1.SetCaption("Dodavatel");
  cmdTisk.SetCaption("&Tisk faktury");
  cmdHelp.SetCaption("&Nápověda");
  cmdKonec.SetCaption("&Konec");
  for (std::size_t i = 0; i < kLabels.size(); ++i) lblFaktura.at(i).SetCaption(kLabels.at(i));
  for (std::size_t i = kCustomer; i <= kLastRequired; ++i) {
    txtFaktura.at(i).SetPlaceholder(kRequired);
  }
  txtFaktura[kDaysUntilDue].SetPlaceholder(kRequired);

  const ProgramSettings& firm = settings_.record();
  std::size_t field = kSupplier;
  for (const std::string* text :
       {&firm.Nazev, &firm.Ulice, &firm.Obec, &firm.PSC, &firm.ICO, &firm.DIC}) {
    txtFaktura.at(field++).SetText(*text);
  }
  TakeOverFinished();
  calculations_.on_new_record = [this] { TakeOverFinished(); };
}

void frmFaktura::OnUnload() {
  calculations_.on_new_record = {};
  if (const auto last = calculations_.last()) program_.windows.Unload(WindowName(*last));
  calculations_.SetFinished(false);
}

std::optional<FinishedCalculation> frmFaktura::Finished() const {
  const CalculationWindow* const window = calculations_.Finished();
  return window == nullptr ? std::nullopt : window->finished();
}

void frmFaktura::NacteniJednotlivehoVypoctu() {
  Guarded("NacteniJednotlivehoVypoctu", [this] { TakeOver(); });
}

void frmFaktura::NacteniPostupnehoVypoctu() {
  Guarded("NacteniPostupnehoVypoctu", [this] { TakeOver(); });
}

void frmFaktura::TakeOver() {
  const std::optional<FinishedCalculation> calculation = Finished();
  if (!calculation) {
    Message(ui::Icon::kInformation, "Není dosud proveden výpočet, nelze vystavit fakturu");
    return;
  }
  txtTextFaktury.SetText(settings_.record().TextRadku + "\t" +
                         InvoicedTotal(*calculation, program_.platform.locale));
}

void frmFaktura::TakeOverFinished() {
  const std::optional<FinishedCalculation> calculation = Finished();
  if (!calculation) return;
  if (std::holds_alternative<const SingleResult*>(*calculation)) {
    NacteniJednotlivehoVypoctu();
  } else {
    NacteniPostupnehoVypoctu();
  }
}

void frmFaktura::cmdTisk_Click() {
  const std::optional<FinishedCalculation> calculation = Finished();
  if (!calculation) {
    Message(ui::Icon::kCritical, "Není dosud proveden výpočet, nelze tisknout");
    return;
  }
  if (!IsFilledIn()) return;
  PrintOnDefaultPrinter(
      program_.platform.printer, program_.status,
      InvoicePage(Filled(), settings_.record(), *calculation, program_.platform.locale));
}

bool frmFaktura::IsFilledIn() {
  for (std::size_t i = kCustomer; i <= kLastRequired; ++i) {
    if (!txtFaktura.at(i).text().empty()) continue;
    Refuse(txtFaktura.at(i), "Nejsou vyplněny povinné položky faktury,");
    return false;
  }
  if (IsNumeric(txtFaktura.at(kDaysUntilDue).text(), program_.platform.locale)) return true;
  Refuse(txtFaktura.at(kDaysUntilDue), "Nesprávně vyplněn počet dnů splatnosti,");
  return false;
}

void frmFaktura::Refuse(ui::TextBox& field, const char* reason) {
  Message(ui::Icon::kInformation, std::string(reason) + "\rvraťte se prosím k zadání");
  field.SetFocus();
}

Invoice frmFaktura::Filled() const {
  return {txtFaktura.at(kNumber).text(),
          txtFaktura.at(kOriginalNumber).text(),
          Party(kSupplier),
          Party(kCustomer),
          Today(),
          DueDate()};
}

InvoiceParty frmFaktura::Party(std::size_t first_field) const {
  const auto text = [&](std::size_t i) { return txtFaktura.at(first_field + i).text(); };
  return {text(0), text(1), text(2), text(3), text(4), text(5)};
}

Date frmFaktura::DueDate() const {
  // Only whole days count.
  const double days =
      std::floor(ToDouble(txtFaktura.at(kDaysUntilDue).text(), program_.platform.locale));
  if (std::abs(days) > std::numeric_limits<int>::max()) throw Error(ErrorNumber::kOverflow);
  return AddDays(Today(), static_cast<int>(days));
}

}  // namespace velta
