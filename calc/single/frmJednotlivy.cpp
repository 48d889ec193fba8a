#include "calc/single/frmJednotlivy.h"

#include <utility>

#include "calc/single/single_printout.h"
#include "calc/single/single_report.h"
#include "shell/common/help.h"
#include "shell/common/modPromenne.h"
#include "shell/common/printing.h"

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
    : Form(program, "frmJednotlivy"), settings_(settings), calculations_(calculations) {
  cboDruhSazby.SetToolTip("Vyberte si z nabídky sazbu");
  txtReport.SetReadOnly();
  txtReport.SetTabStops({5, 108});
  WireEvents();
  WireHints();
}

void frmJednotlivy::WireEvents() {
  OnChange(dtpSplatnost, [this] { VypocitejJednotlivy(); });
  OnChange(dtpZaplaceni, [this] { VypocitejJednotlivy(); });
  OnChange(txtVyseSazby, [this] { VypocitejJednotlivy(); });
  OnChange(cboDruhSazby, [this] { cboDruhSazby_Change(); });
  OnChange(txtDluznaCastka, [this] { txtDluznaCastka_Change(); });
  OnKeyPress(txtDluznaCastka, [this](ui::KeyPress& key) {
    if (!EnterMovesOn(key)) TypeDecimal(key);
  });
  OnKeyPress(txtVyseSazby, [this](ui::KeyPress& key) { TypeDecimal(key); });
  OnClick(cmdNovy, [this] { cmdNovy_Click(); });
  OnClick(cmdTiskVyp, [this] { cmdTiskVyp_Click(); });
  OnClick(cmdTiskFa, [this] { cmdTiskFa_Click(); });
  OnClick(cmdHelp, [this] { OpenHelp(program_, help_topic()); });
  OnClick(cmdKonec, [this] { Close(); });
  OnTimer(tmrRepo, [this] { tmrRepo_Timer(); });
  OnTimer(tmrTiskVypoctu, [this] { cmdTiskVyp.Click.Raise(); });
}

void frmJednotlivy::WireHints() {
  for (ui::DatePicker* picker : {&dtpSplatnost, &dtpZaplaceni}) {
    FocusHint(*picker, "Datum vyberte klepnutím na šipku, nebo přepište ručně");
    PointerHint(*picker, "Vyberte datum klepnutím na šipku");
  }
  FocusHint(txtDluznaCastka, "Zadejte dlužnou částku");
  FocusHint(txtVyseSazby, "Zadejte výši úrokové sazby");
  FocusHint(cboDruhSazby, "Vyberte z nabídky druh sazby ");  // the blank at its end is meant
  Hint(cmdNovy, "Nový výpočet");
  Hint(cmdTiskVyp, "Tisk výpočtu");
  Hint(cmdTiskFa, "Tisk faktury");
  Hint(cmdKonec, "Zavřít okno");
  Hint(cmdHelp, "Vyvolá nápovědu s tématem");
  PointerHint(lblPocetDnu, "Trvání dluhu ve dnech");
  PointerHint(lblPenale, "Vypočtený úrok z prodlení");
  PointerHint(lblPenaleDluh, "Úrok z prodlení s dlužnou částkou");
  for (ui::Frame* frame : {&fraDatJed, &fraDluJed, &fraVysJed}) SurfaceHint(*frame);
}

void frmJednotlivy::OnLoad() {
  CalculationState& state = program_.state;
  if (state.ProgressiveFormOpen) program_.windows.Unload("frmPostupny");
  calculations_.single = this;
  state.SingleFormOpen = true;
  state.SingleIsCurrent = true;
  state.CalculationFinished = false;
  state.LastCalculationKind = CalculationKind::kSingle;

  SetCaption("Jednotlivý výpočet");
  fraDatJed.SetCaption("Zadání data");
  fraDluJed.SetCaption("Zadání dlužné částky a sazby");
  fraVysJed.SetCaption("Výsledek");
  cmdNovy.SetCaption("Nový &výpočet");
  cmdTiskVyp.SetCaption("&Tisk výpočtu");
  cmdTiskFa.SetCaption("Tisk &faktury");
  cmdKonec.SetCaption("&Konec");
  cmdHelp.SetCaption("&Nápověda");
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
  for (std::size_t i = 0; i < kListedRateKinds; ++i) {
    cboDruhSazby.AddItem(std::string(kRateKindTexts.at(i)));
  }
  cboDruhSazby.SetIndex(static_cast<int>(RateKind::kPercentYearly));

  bank_rates_ = std::make_unique<BankRates>(program_, [this] { tmrRepo.SetEnabled(true); });
  bank_rates_->Load();
  ShowReport("");
}

void frmJednotlivy::OnUnload() {
  CancelRepo();
  tmrTiskVypoctu.SetEnabled(false);
  ClearResults();
  program_.state.SingleIsCurrent = false;
  program_.state.CalculationFinished = false;
  calculations_.single = nullptr;
  bank_rates_.reset();
}

void frmJednotlivy::cboDruhSazby_Change() {
  program_.status.ShowHint("Vybraná sazba : " + cboDruhSazby.text());
  const bool bank_kind = IsBankKind(Kind());
  if (bank_kind) txtVyseSazby.SetText("");
  txtVyseSazby.SetEnabled(!bank_kind);
  txtVyseSazby.SetBackground(bank_kind ? ui::Background::kFace : ui::Background::kWindow);
  if (bank_kind) program_.state.RateValue = 0;
  VypocitejJednotlivy();
}

void frmJednotlivy::txtDluznaCastka_Change() {
  if (txtDluznaCastka.text().empty()) return;
  const ui::LocaleFormat& locale = program_.platform.locale;
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

void frmJednotlivy::VypocitejJednotlivy() {
  Guarded("VypocitejJednotlivy", [this] {
    CalculationState& state = program_.state;
    const ui::LocaleFormat& locale = program_.platform.locale;

    const Date due_date = dtpSplatnost.day();
    const Date payment_date = dtpZaplaceni.day();
    state.PaymentDate = payment_date;
    state.DueDate = due_date;
    SwitchRegime();
    if (due_date >= payment_date) {
      Message(ui::Icon::kCritical, "Datum zaplacení je chybně zadáno");
      return;
    }
    state.DaysLate = DaysBetween(due_date, payment_date);
    lblPocetDnu.SetCaption(std::to_string(state.DaysLate));

    if (!IsNumeric(txtDluznaCastka.text(), locale)) return;
    state.BaseAmount = ToMoney(txtDluznaCastka.text(), locale);
    const RateKind kind = Kind();
    state.RateKindText = cboDruhSazby.text();
    if (!IsBankKind(kind)) {
      if (!IsNumeric(txtVyseSazby.text(), locale)) return;
      state.RateValue = ToRate(txtVyseSazby.text(), locale);
    }

    CancelRepo();
    SingleResult inputs;
    inputs.due_date = due_date;
    inputs.payment_date = payment_date;
    inputs.days = state.DaysLate;
    inputs.base_amount = state.BaseAmount;
    inputs.kind = kind;
    if (kind == RateKind::kRepo) {
      if (!bank_rates_->StartRepo(due_date, payment_date)) return;
      // Until tmrRepo runs, on the next turn of the loop, the labels show the previous interest.
      pending_ = std::move(inputs);
      ShowInterest(state.InterestAmount, state.BaseAmount);
      return;
    }
    if (kind == RateKind::kDiscount) {
      const std::optional<Rate> rate = bank_rates_->DiscountRate(due_date);
      if (!rate) return;
      txtVyseSazby.SetText(PlainText(*rate, locale));  // a new text computes once within
      state.RateValue = *rate;
    }
    inputs.rate = state.RateValue;
    ShowInterest(Interest(kind, state.BaseAmount.ToDouble(), inputs.rate, inputs.days),
                 inputs.base_amount);
    Finish(std::move(inputs));
  });
}

void frmJednotlivy::SwitchRegime() {
  const RateKind lawful = RegimeFor(Kind(), dtpSplatnost.day());
  if (lawful == Kind()) return;
  Message(ui::Icon::kInformation,
          lawful == RateKind::kRepo ? "Měním na REPO sazbu" : "Měním na DISKONTNÍ sazbu");
  cboDruhSazby.SetIndex(static_cast<int>(lawful));
}

void frmJednotlivy::tmrRepo_Timer() {
  CalculationState& state = program_.state;
  state.CalculationFinished = true;
  SingleResult result = std::exchange(pending_, std::nullopt).value();
  result.periods = bank_rates_->repo().periods();
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
  const ui::LocaleFormat& locale = program_.platform.locale;
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
}

void frmJednotlivy::ShowReport(std::string text) {
  txtReport.SetText(text);
  program_.state.ReportText = std::move(text);
}

void frmJednotlivy::CancelRepo() {
  if (bank_rates_) bank_rates_->CancelRepo();
  tmrRepo.SetEnabled(false);
  pending_.reset();
}

void frmJednotlivy::ClearResults() {
  CalculationState& state = program_.state;
  state.RateValue = 0;
  state.DaysLate = 0;
  state.BaseAmount = Money();
  state.InterestAmount = 0;
  state.AmountWithInterest = Money();
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
}

void frmJednotlivy::cmdTiskVyp_Click() {
  // Without a record the first repo result is still on its way.
  if (!program_.state.CalculationFinished || !result_) {
    Message(ui::Icon::kCritical, kNotFinished);
    return;
  }
  // Nothing is said of a cancelled dialog: the user knows that he cancelled.
  PrintWithDialog(program_, SinglePrintout(*result_, program_.platform.locale));
}

void frmJednotlivy::cmdTiskFa_Click() {
  if (!program_.state.CalculationFinished) {
    Message(ui::Icon::kCritical, kNotFinished);
    return;
  }
  program_.windows.Open("frmFaktura");
}

}  // namespace velta
