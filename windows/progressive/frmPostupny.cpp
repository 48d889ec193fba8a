#include "windows/progressive/frmPostupny.h"

#include <algorithm>
#include <utility>

#include "app/printing.h"
#include "calc/account_texts.h"
#include "calc/progressive_report.h"
#include "values/error.h"
#include "windows/progressive/progressive_printout.h"

namespace velta {

namespace {

// What the elements of txtData hold.
constexpr std::size_t kTotal = 0;
constexpr std::size_t kPayment = 1;
constexpr std::size_t kRate = 2;

/// What a payment adds to the list of interest: one row, in the repo regime one for each period.
std::vector<std::string> InterestRows(const Payment& payment, const LocaleFormat& locale) {
  if (payment.periods.empty()) return {PlainText(payment.interest, locale)};
  std::vector<std::string> rows;
  for (const InterestPeriod& period : payment.periods) {
    rows.push_back(FixedText(period.interest, 4, locale));
  }
  return rows;
}

}  // namespace

frmPostupny::frmPostupny(Program& program, const Settings& settings, Calculations& calculations)
    : CalculationForm(program, CalculationKind::kProgressive, settings, calculations) {
  ReadFirst({&txtData[kTotal], &dtpSplatnost, &cboDruhSazby, &txtData[kRate], &dtpZaplaceni,
             &txtData[kPayment], &cmdPridat, &List1, &List2, &List3, &List4, &List5, &txtPostup});
  cboDruhSazby.SetEditable();
  txtData[kRate].SetToolTip("Zadejte úrokovou sazbu");
  txtPostup.SetReadOnly();
  cmdPridat.SetUsesInputs();
  WireEvents();
  WireHints();
}

void frmPostupny::WireEvents() {
  OnClick(cmdPridat, [this] { cmdPridat_Click(); });
  OnChange(cboDruhSazby, [this] { OpenRateBox(); });
  for (ui::ListBox* column : {&List1, &List2, &List3}) {
    OnChange(*column, [this, column] { MarkPayment(column->index()); });
  }
  OnChange(List4, [this] { MarkPayment(PaymentOfInterest(List4.index())); });
  for (ui::TextBox& box : txtData) {
    OnKeyPress(box, [this](ui::KeyPress& key) { TypeDecimal(key); });
  }
}

void frmPostupny::WireHints() {
  Hint(txtData[kTotal], "Zadejte celkovou částku faktury");
  Hint(txtData[kPayment], "Zadejte výši částečné platby");
  Hint(txtData[kRate], "Zadejte výši úrokové sazby");
  for (ui::DatePicker* picker : {&dtpSplatnost, &dtpZaplaceni}) {
    PointerHint(*picker, "Datum vyberte klepnutím na šipku, nebo přepište ručně");
  }
  Hint(cmdPridat, "Provede výpočet pro částečnou úhradu a vybranou sazbu");
  for (ui::Frame* frame : {&fraFaktura, &fraPostupny, &fraUdaje}) SurfaceHint(*frame);
}

void frmPostupny::OnLoad() {
  BecomeCurrent();
  ShowReport("");
  SetCommandCaptions();
  SetCaption("Postupný výpočet");
  fraFaktura.SetCaption("Údaje faktury");
  fraUdaje.SetCaption("Údaje o splátkách");
  cmdPridat.SetCaption("&Přidat do výpočtu");
  constexpr std::array<const char*, 11> kLabels = {
      "Celková částka",        "Datum splatnosti",     "Druh sazby ", "Výše sazby ",
      "Datum částečné úhrady", "Výše částečné úhrady", "Výše úhrady", "Datum úhrady",
      "Zůstatek dluhu",        "Úrok z prodlení",      "Úrok celkem"};
  for (std::size_t i = 0; i < kLabels.size(); ++i) lblPopis.at(i).SetCaption(kLabels.at(i));
  OfferRateKinds();
  LoadBankRates();
  StartReport();
}

void frmPostupny::OnUnload() {
  CalculationForm::OnUnload();
  ClearTotals();
}

std::optional<FinishedCalculation> frmPostupny::finished() const {
  if (!calculations_.has_finished() || !calculation_) return std::nullopt;
  return &calculation_->result();
}

bool frmPostupny::Refuse(std::string_view message, ui::TextBox& box) {
  Message(ui::Icon::kCritical, message);
  box.SetFocus();
  return false;
}

void frmPostupny::cmdPridat_Click() {
  if (RepoPending()) return;  // one press, one record
  if (calculations_.has_finished()) {
    Message(ui::Icon::kCritical,
            "Výpočet již byl dokončen, chcete - li počítat další,\r\n"
            "stiskněte tlačítko nový výpočet");
    return;
  }
  if (!ReadInputs()) return;
  LockInvoice();
  program_.state.DebtBeforeLastPayment = balance_;
  UdelejVypocet();
}

bool frmPostupny::ReadInputs() {
  const LocaleFormat& locale = program_.platform.locale;
  if (!TakeDates()) return false;
  if (txtData[kTotal].text().empty()) {
    return Refuse("Nezadali jste částku dluhu!", txtData[kTotal]);
  }
  balance_ = calculation_ ? calculation_->balance() : ToMoney(txtData[kTotal].text(), locale);
  if (txtData[kPayment].text().empty()) {
    return Refuse("Nezadali jste částečnou úhradu!", txtData[kPayment]);
  }
  payment_ = ToMoney(txtData[kPayment].text(), locale);
  if (txtData[kRate].text().empty() && !IsBankKind(Kind())) {
    return Refuse("Nezadali jste sazbu pro výpočet", txtData[kRate]);
  }
  return true;
}

void frmPostupny::LockInvoice() {
  txtData[kTotal].SetEnabled(false);
  txtData[kTotal].SetBackground(ui::Background::kFace);
  txtData[kRate].SetEnabled(false);
  cboDruhSazby.SetEnabled(false);
  dtpSplatnost.SetEnabled(false);
}

void frmPostupny::UdelejVypocet() {
  Guarded("UdelejVypocet", [this] {
    if (!TakeDelay() || !TakeAmountAndRate(txtData[kTotal])) return;
    const RateKind kind = Kind();
    if (kind == RateKind::kRepo) {
      StartRepo(payment_);
      return;
    }
    if (kind == RateKind::kDiscount && !TakeDiscountRate()) return;
    FinishPayment({});
  });
}

void frmPostupny::tmrRepo_Timer() { FinishPayment(bank_rates_.repo().periods()); }

void frmPostupny::FinishPayment(std::vector<InterestPeriod> periods) {
  const CalculationState& state = program_.state;
  if (!calculation_) {
    calculation_.emplace(ProgressiveCalculation::Debt{.due_date = state.DueDate.value(),
                                                      .amount = balance_,
                                                      .kind = RateKindOf(state.RateKindText),
                                                      .kind_text = state.RateKindText,
                                                      .rate = state.RateValue});
  }
  Payment payment = calculation_->Compute(state.PaymentDate.value(), payment_, settings_.rounding(),
                                          std::move(periods));
  ShareInterest(payment.interest, state.BaseAmount);
  const auto added = calculation_->Add(std::move(payment));
  if (const auto* const refusal = std::get_if<Refusal>(&added)) {
    Message(ui::Icon::kCritical, Text(*refusal));
    txtData[kPayment].SetText("");
    txtData[kPayment].SetFocus();
    return;
  }
  ShowPayment(std::get<Payment>(added));
}

void frmPostupny::ShowPayment(const Payment& payment) {
  const LocaleFormat& locale = program_.platform.locale;
  const ProgressiveResult& result = calculation_->result();
  List1.AddItem(PlainText(payment.amount, locale));
  List2.AddItem(ShortDateText(payment.date, locale));
  List3.AddItem(PlainText(payment.balance, locale));
  txtData[kTotal].SetText(PlainText(payment.balance, locale));
  AppendReport(PaymentReport(result, payment, locale));
  if (calculation_->finished()) {
    calculations_.SetFinished(true);
    cmdTiskVyp.SetFocus();
    cmdPridat.SetEnabled(false);
  } else {
    dtpZaplaceni.SetFocus();  // the next payment begins with its day
  }
  for (const std::string& row : InterestRows(payment, locale)) List4.AddItem(row);
  ShowTotal(payment.interest);
  if (!calculation_->finished()) return;
  AppendReport(ClosingReport(result, locale));
  TellOfRecord();
}

void frmPostupny::ShowTotal(double latest_interest) {
  CalculationState& state = program_.state;
  const LocaleFormat& locale = program_.platform.locale;
  state.InterestTotal = Money();
  if (calculation_->interest_count() > 1) {
    List5.Clear();
    List5.AddItem(CurrencyText(calculation_->total(), locale));
    state.InterestTotal = calculation_->total();
  } else if (calculation_->finished()) {
    List5.AddItem(PlainText(latest_interest, locale));
    state.InterestTotal = calculation_->total();
  }
}

void frmPostupny::MarkPayment(int payment) {
  for (ui::ListBox* column : {&List1, &List2, &List3}) column->SetIndex(payment);
  // A row of a payment with several that is marked already stays so.
  if (PaymentOfInterest(List4.index()) != payment) List4.SetIndex(FirstInterest(payment));
}

int frmPostupny::FirstInterest(int payment) const {
  if (payment < 0) return -1;
  int row = 0;
  for (int i = 0; i < payment; ++i) row += RowsOfInterest(i);
  return row;
}

int frmPostupny::PaymentOfInterest(int row) const {
  if (row < 0) return -1;
  int payment = 0;
  while (row >= RowsOfInterest(payment)) row -= RowsOfInterest(payment++);
  return payment;
}

int frmPostupny::RowsOfInterest(int payment) const {
  const auto& periods =
      calculation_->result().payments.at(static_cast<std::size_t>(payment)).periods;
  return std::max(1, static_cast<int>(periods.size()));
}

void frmPostupny::StartReport() { ShowReport(ReportHeading()); }

void frmPostupny::ClearTotals() {
  bank_rates_.ForgetDiscountRate();
  program_.state.InterestTotal = Money();
  program_.state.DebtBeforeLastPayment = Money();
}

void frmPostupny::cmdNovy_Click() {
  CancelRepo();
  calculations_.SetFinished(false);
  ClearResults();
  ClearTotals();
  for (ui::TextBox& box : txtData) box.SetText("");
  for (ui::ListBox* list : {&List1, &List2, &List3, &List4, &List5}) list->Clear();
  calculation_.reset();
  balance_ = payment_ = Money();
  StartReport();
  // The rate box is opened for every kind; choosing a bank kind closes it again.
  for (const std::size_t i : {kTotal, kRate}) {
    txtData.at(i).SetEnabled(true);
    txtData.at(i).SetBackground(ui::Background::kWindow);
  }
  cboDruhSazby.SetEnabled(true);
  dtpSplatnost.SetEnabled(true);
  cmdPridat.SetEnabled(true);
  txtData[kTotal].SetFocus();
}

void frmPostupny::Print() {
  const bool printed = PrintWithDialog(
      program_.platform.printer, program_.status,
      ProgressivePrintout(calculation_->result(), txtPostup.text(), program_.platform.locale));
  if (!printed) throw Error(ErrorNumber::kPrintCancelled);
  if (calculation_->result().kind == RateKind::kRepo) return;
  // The rows are selected as they are printed, and the last ones stay so.
  for (ui::ListBox* list : {&List1, &List2, &List3, &List4}) {
    list->SetIndex(static_cast<int>(list->items().size()) - 1);
  }
}

}  // namespace velta
