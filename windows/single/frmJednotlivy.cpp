#include "windows/single/frmJednotlivy.h"

#include <utility>

#include "app/modPromenne.h"
#include "app/printing.h"
#include "calc/single_calculation.h"
#include "calc/single_report.h"
#include "windows/single/single_printout.h"

namespace velta {

namespace {

constexpr int kDefaultDelay = 15;  // days from the due date to today in a newly opened window

// The largest whole amount that may be typed, and what stands in the box in place of a larger one.
constexpr double kMaxAmount = 922337203685477;
constexpr std::string_view kMaxAmountCrowns = "922 337 203 685 477";
constexpr std::string_view kMaxAmountHellers = "58";

}  // namespace

frmJednotlivy::frmJednotlivy(Program& program, const Settings& settings, Calculations& calculations)
    : CalculationForm(program, CalculationKind::kSingle, settings, calculations) {
  ReadFirst(
      {&dtpSplatnost, &dtpZaplaceni, &txtDluznaCastka, &cboDruhSazby, &txtVyseSazby, &txtReport});
  txtReport.SetReadOnly();
  txtReport.SetTabStops({5, 108});
  WireEvents();
  WireHints();
}

void frmJednotlivy::WireEvents() {
  for (ui::DatePicker* picker : {&dtpSplatnost, &dtpZaplaceni}) {
    OnChange(*picker, [this, picker] {
      if (!VypocitejJednotlivy()) picker->Refuse();
    });
  }
  OnChange(txtVyseSazby, [this] { VypocitejJednotlivy(); });
  OnChange(cboDruhSazby, [this] { cboDruhSazby_Change(); });
  OnChange(txtDluznaCastka, [this] { txtDluznaCastka_Change(); });
  OnKeyPress(txtDluznaCastka, [this](ui::KeyPress& key) {
    if (!EnterMovesOn(key)) TypeDecimal(key);
  });
  OnKeyPress(txtVyseSazby, [this](ui::KeyPress& key) { TypeDecimal(key); });
}

void frmJednotlivy::WireHints() {
  for (ui::DatePicker* picker : {&dtpSplatnost, &dtpZaplaceni}) {
    PointerHint(*picker, "Vyberte datum klepnutím na šipku");
  }
  FocusHint(txtDluznaCastka, "Zadejte dlužnou částku");
  FocusHint(txtVyseSazby, "Zadejte výši úrokové sazby");
  PointerHint(lblPocetDnu, "Trvání dluhu ve dnech");
  PointerHint(lblPenale, "Vypočtený úrok z prodlení");
  PointerHint(lblPenaleDluh, "Úrok z prodlení s dlužnou částkou");
  for (ui::Frame* frame : {&fraDatJed, &fraDluJed, &fraVysJed}) SurfaceHint(*frame);
}

void frmJednotlivy::OnLoad() {
  BecomeCurrent();
  SetCommandCaptions();
  SetCaption("Jednotlivý výpočet");
  fraDatJed.SetCaption("Zadání data");
  fraDluJed.SetCaption("Zadání dlužné částky a sazby");
  fraVysJed.SetCaption("Výsledek");
  constexpr std::array<const char*, 8> kLabels = {"Zadejte datum splatnosti faktury",
                                                  "Zadejte datum zaplacení faktury",
                                                  "Trvání dluhu ve dnech",
                                                  "Dlužná částka",
                                                  "Druh sazby",
                                                  "Penále za zadané období",
                                                  "Penále + dlužná částka",
                                                  "Výše sazby"};
  for (std::size_t i = 0; i < kLabels.size(); ++i) lblPopis.at(i).SetCaption(kLabels.at(i));
  dtpSplatnost.SetDay(AddDays(Today(), -kDefaultDelay));
  OfferRateKinds();
  LoadBankRates();
  ShowReport("");
}

void frmJednotlivy::cboDruhSazby_Change() {
  program_.status.ShowHint("Vybraná sazba : " + cboDruhSazby.text());
  if (IsBankKind(Kind())) txtVyseSazby.SetText("");
  OpenRateBox();
  if (IsBankKind(Kind())) ShareRate(0);
  VypocitejJednotlivy();
}

void frmJednotlivy::txtDluznaCastka_Change() {
  if (txtDluznaCastka.text().empty()) return;
  const LocaleFormat& locale = program_.platform.locale;
  if (!IsNumeric(txtDluznaCastka.text(), locale)) {
    txtDluznaCastka.SetText("");
    Message(ui::Icon::kCritical, "Zde je nutné zadat číslo");
    return;
  }
  if (!limiting_amount_ && LeadingNumber(txtDluznaCastka.text()) > kMaxAmount) {
    Message(
        ui::Icon::kCritical,
        "Maximální hodnota proměnné typu měna je 922 337 203 685 477,58 Kč\r\n pro větší hodnotu "
        "nelze použít");
    // The limit looks at the whole part only where the comma is the separator; with a point the
    // largest amount is itself above it and must not be refused again.
    limiting_amount_ = true;
    txtDluznaCastka.SetText(std::string(kMaxAmountCrowns) + GetDecimalSep(locale) +
                            std::string(kMaxAmountHellers));
    limiting_amount_ = false;
    return;
  }
  VypocitejJednotlivy();
}

bool frmJednotlivy::VypocitejJednotlivy() {
  bool refused = true;
  Guarded("VypocitejJednotlivy", [this, &refused] {
    CalculationState& state = program_.state;
    if (!TakeDelay()) return;
    lblPocetDnu.SetCaption(std::to_string(state.DaysLate));
    if (!TakeAmountAndRate(txtDluznaCastka)) {
      refused = false;
      return;
    }

    CancelRepo();
    SingleResult result = Begin({.due_date = dtpSplatnost.day(),
                                 .payment_date = dtpZaplaceni.day(),
                                 .amount = state.BaseAmount,
                                 .kind = Kind()});
    if (result.kind == RateKind::kRepo) {
      if (!StartRepo(result.base_amount)) return;
      // Until tmrRepo runs, on the next turn of the loop, the labels show the previous interest.
      pending_ = std::move(result);
      ShowInterest(settings_.ApplyRounding(state.InterestAmount), state.BaseAmount);
      refused = false;
      return;
    }
    // A new rate in the box computes once within.
    if (result.kind == RateKind::kDiscount && !TakeDiscountRate()) return;
    result.rate = state.RateValue;
    const double interest =
        Interest(result.kind, state.BaseAmount.ToDouble(), result.rate, result.days);
    Finish(std::move(result), settings_.ApplyRounding(interest));
    refused = false;
  });
  return !refused;
}

void frmJednotlivy::tmrRepo_Timer() {
  // Should this one overflow, all that is shown belongs to the calculation before.
  ShowRecord();
  SingleResult result = std::move(pending_);
  result.periods = bank_rates_.repo().periods();
  const double interest = InterestOf(result.periods, settings_.rounding());
  Finish(std::move(result), interest);
}

void frmJednotlivy::ShowInterest(double interest, Money amount) {
  const LocaleFormat& locale = program_.platform.locale;
  ShareInterest(interest, amount);
  lblPenale.SetCaption(CurrencyText(interest, locale));
  lblPenaleDluh.SetCaption(CurrencyText(program_.state.AmountWithInterest, locale));
  calculations_.SetFinished(true);
}

void frmJednotlivy::Finish(SingleResult result, double interest) {
  ShowInterest(interest, result.base_amount);
  Complete(result, interest);
  ShowReport(SingleReport(result, program_.platform.locale));
  result_ = std::move(result);
  TellOfRecord();
}

void frmJednotlivy::ShowRecord() {
  const LocaleFormat& locale = program_.platform.locale;
  // A record that "Nový výpočet" has emptied has no days, and no interest in the window.
  const bool shown = result_ && result_->days > 0;
  lblPenale.SetCaption(shown ? CurrencyText(result_->interest, locale) : "");
  lblPenaleDluh.SetCaption(shown ? CurrencyText(result_->amount_with_interest, locale) : "");
  calculations_.SetFinished(result_.has_value());
}

void frmJednotlivy::cmdNovy_Click() {
  CancelRepo();
  ClearResults();
  // The amount first: without it, emptying the rate of the discount kind does not find it anew.
  txtDluznaCastka.SetText("");
  txtVyseSazby.SetText("");
  ShowReport("");
  lblPenale.SetCaption("");
  lblPenaleDluh.SetCaption("");
  dtpZaplaceni.SetDay(Today());
  if (calculations_.has_finished()) {
    // It still counts as finished, but the case before must not be printed or invoiced any more.
    result_ = Begin({dtpSplatnost.day(), dtpZaplaceni.day(), Money(), Kind()});
    result_->days = 0;
    TellOfRecord();
  }
  FocusFirst();
}

void frmJednotlivy::Print() {
  // Nothing is said of a cancelled dialog: the user knows that he cancelled.
  PrintWithDialog(program_.platform.printer, program_.status,
                  SinglePrintout(*result_, program_.platform.locale));
}

}  // namespace velta
