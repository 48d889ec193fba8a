#include "windows/single/frmJednotlivy.h"

#include <utility>

#include "app/modPromenne.h"
#include "app/printing.h"
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

frmJednotlivy::frmJednotlivy(Program& program, const Settings& settings,
                             CalculationWindows& calculations)
    : CalculationForm(program, "frmJednotlivy", CalculationKind::kSingle, settings, calculations) {
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
  bank_rates_.Load();
  ShowReport("");
}

void frmJednotlivy::cboDruhSazby_Change() {
  program_.status.ShowHint("Vybraná sazba : " + cboDruhSazby.text());
  if (IsBankKind(Kind())) txtVyseSazby.SetText("");
  OpenRateBox(txtVyseSazby);
  if (IsBankKind(Kind())) program_.state.RateValue = 0;
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
    if (!TakeAmountAndRate(txtDluznaCastka, txtVyseSazby)) {
      refused = false;
      return;
    }

    CancelRepo();
    const RateKind kind = Kind();
    SingleResult inputs;
    inputs.due_date = dtpSplatnost.day();
    inputs.payment_date = dtpZaplaceni.day();
    inputs.days = state.DaysLate;
    inputs.base_amount = state.BaseAmount;
    inputs.kind = kind;
    if (kind == RateKind::kRepo) {
      if (!bank_rates_.StartRepo(inputs.due_date, inputs.payment_date)) return;
      // Until tmrRepo runs, on the next turn of the loop, the labels show the previous interest.
      pending_ = std::move(inputs);
      ShowInterest(state.InterestAmount, state.BaseAmount);
      refused = false;
      return;
    }
    // A new rate in the box computes once within.
    if (kind == RateKind::kDiscount && !TakeDiscountRate(txtVyseSazby)) return;
    inputs.rate = state.RateValue;
    ShowInterest(Interest(kind, state.BaseAmount.ToDouble(), inputs.rate, inputs.days),
                 inputs.base_amount);
    Finish(std::move(inputs));
    refused = false;
  });
  return !refused;
}

void frmJednotlivy::tmrRepo_Timer() {
  // Should this one overflow, all that is shown belongs to the calculation before.
  ShowRecord();
  SingleResult result = std::move(pending_);
  result.periods = bank_rates_.repo().periods();
  // The total is rounded after every period and once more at the end. With periods of 132,7397,
  // 441,0959 and 320,5479 Kč rounding up to 10 haléř gives 894,50 Kč and not 894,40 Kč.
  double interest = 0;
  for (const InterestPeriod& period : result.periods) {
    interest = settings_.ApplyRounding(interest + period.interest);
  }
  ShowInterest(interest, result.base_amount);
  Finish(std::move(result));
}

void frmJednotlivy::ShowInterest(double interest, Money base_amount) {
  CalculationState& state = program_.state;
  const LocaleFormat& locale = program_.platform.locale;
  state.InterestAmount = settings_.ApplyRounding(interest);
  state.AmountWithInterest = Money::FromDouble(state.InterestAmount) + base_amount;
  lblPenale.SetCaption(CurrencyText(state.InterestAmount, locale));
  lblPenaleDluh.SetCaption(CurrencyText(state.AmountWithInterest, locale));
  state.CalculationFinished = true;
}

void frmJednotlivy::Finish(SingleResult result) {
  result.interest = program_.state.InterestAmount;
  result.amount_with_interest = program_.state.AmountWithInterest;
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
  program_.state.CalculationFinished = result_.has_value();
}

void frmJednotlivy::ShowReport(std::string text) {
  txtReport.SetText(text);
  program_.state.ReportText = std::move(text);
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
  if (program_.state.CalculationFinished) {
    // It still counts as finished, but the case before must not be printed or invoiced any more.
    result_ = SingleResult{};
    result_->due_date = dtpSplatnost.day();
    result_->payment_date = dtpZaplaceni.day();
    result_->kind = Kind();
    TellOfRecord();
  }
  FocusFirst();
}

void frmJednotlivy::Print() {
  // Nothing is said of a cancelled dialog: the user knows that he cancelled.
  PrintWithDialog(program_, SinglePrintout(*result_, program_.platform.locale));
}

}  // namespace velta
