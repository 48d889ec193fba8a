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

frmPostupny::frmPostupny(Program& program, const Settings& settings,
                         CalculationWindows& calculations)
    : CalculationForm(program, "frmPostupny", CalculationKind::kProgressive, settings,
                      calculations) {
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
  OnChange(cboDruhSazby, [this] { OpenRateBox(txtData[kRate]); });
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
  program_.state.ReportText.clear();
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
  bank_rates_.Load();
  StartReport();
}

void frmPostupny::OnUnload() {
  CalculationForm::OnUnload();
  ClearTotals();
  program_.state.SingleFormOpen = false;
  program_.state.ProgressiveFormOpen = false;
}

std::optional<FinishedCalculation> frmPostupny::finished() const {
  if (!program_.state.CalculationFinished) return std::nullopt;
  return &result_;
}

bool frmPostupny::Refuse(std::string_view message, ui::TextBox& box) {
  Message(ui::Icon::kCritical, message);
  box.SetFocus();
  return false;
}

void frmPostupny::cmdPridat_Click() {
  if (RepoPending()) return;  // one press, one record
  if (program_.state.CalculationFinished) {
    Message(ui::Icon::kCritical,
            "Výpočet již byl dokončen, chcete - li počítat další,\r\n"
            "stiskněte tlačítko nový výpočet");
    return;
  }
  if (!ReadInputs()) return;
  LockInvoice();
  program_.state.DebtBeforeLastPayment = DebtAmount;
  UdelejVypocet();
}

bool frmPostupny::ReadInputs() {
  const LocaleFormat& locale = program_.platform.locale;
  if (!TakeDates()) return false;
  if (txtData[kTotal].text().empty()) {
    return Refuse("Nezadali jste částku dluhu!", txtData[kTotal]);
  }
  DebtAmount = ToMoney(txtData[kTotal].text(), locale);
  if (txtData[kPayment].text().empty()) {
    return Refuse("Nezadali jste částečnou úhradu!", txtData[kPayment]);
  }
  PaymentAmount = ToMoney(txtData[kPayment].text(), locale);
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
    CalculationState& state = program_.state;
    if (!TakeDelay() || !TakeAmountAndRate(txtData[kTotal], txtData[kRate])) return;
    const RateKind kind = Kind();
    if (kind == RateKind::kRepo) {
      bank_rates_.StartRepo(dtpSplatnost.day(), dtpZaplaceni.day(), PaymentAmount);
      return;
    }
    if (kind == RateKind::kDiscount && !TakeDiscountRate(txtData[kRate])) return;
    // A kind that nobody knows computes nothing: the interest of the payment before stands.
    if (kind != RateKind::kUnknown) {
      state.InterestAmount =
          Interest(kind, PaymentAmount.ToDouble(), state.RateValue, state.DaysLate);
    }
    FinishPayment({});
  });
}

void frmPostupny::tmrRepo_Timer() {
  const std::vector<InterestPeriod>& periods = bank_rates_.repo().periods();
  program_.state.InterestAmount = 0;
  for (const InterestPeriod& period : periods) program_.state.InterestAmount += period.interest;
  FinishPayment(periods);
}

void frmPostupny::FinishPayment(std::vector<InterestPeriod> periods) {
  CalculationState& state = program_.state;

  state.InterestAmount = RoundInterest(state.InterestAmount);
  state.AmountWithInterest = state.BaseAmount + Money::FromDouble(state.InterestAmount);
  RemainingBalance = DebtAmount - PaymentAmount;
  if (PaymentAmount > DebtAmount) {
    Message(ui::Icon::kCritical, "Nesprávně zadaná hodnota částečné platby !");
    txtData[kPayment].SetText("");
    txtData[kPayment].SetFocus();
    return;
  }

  Payment payment;
  payment.date = state.PaymentDate.value();
  payment.days = state.DaysLate;
  payment.amount = PaymentAmount;
  payment.balance = RemainingBalance;
  payment.interest = state.InterestAmount;
  payment.periods = std::move(periods);
  RecordPayment(std::move(payment));
}

double frmPostupny::RoundInterest(double interest) const {
  // Without rounding a row has two decimals here, unlike a single calculation's interest.
  if (settings_.RoundingMode() == kNoRounding) {
    const LocaleFormat& locale = program_.platform.locale;
    return ToDouble(FixedText(interest, 2, locale), locale);
  }
  return settings_.ApplyRounding(interest);
}

void frmPostupny::RecordPayment(Payment payment) {
  CalculationState& state = program_.state;
  const LocaleFormat& locale = program_.platform.locale;

  // The total counts the rows as they are listed. It comes first, for it may overflow.
  const std::vector<std::string> rows = InterestRows(payment, locale);
  for (const std::string& row : rows) payment.interest_sum += ToMoney(row, locale);
  result_.total += payment.interest_sum;

  result_.due_date = state.DueDate.value();
  result_.kind = RateKindOf(state.RateKindText);
  result_.kind_text = state.RateKindText;
  result_.rate = state.RateValue;
  List1.AddItem(PlainText(payment.amount, locale));
  List2.AddItem(ShortDateText(payment.date, locale));
  List3.AddItem(PlainText(payment.balance, locale));
  txtData[kTotal].SetText(PlainText(payment.balance, locale));
  AppendReport(PaymentReport(result_, payment, locale));
  if (payment.balance == Money()) {
    state.CalculationFinished = true;
    cmdTiskVyp.SetFocus();
    cmdPridat.SetEnabled(false);
  } else {
    dtpZaplaceni.SetFocus();  // the next payment begins with its day
  }
  for (const std::string& row : rows) List4.AddItem(row);
  ShowTotal(payment.interest);
  result_.payments.push_back(std::move(payment));
  if (!state.CalculationFinished) return;
  AppendReport(ClosingReport(result_, locale));
  TellOfRecord();
}

void frmPostupny::ShowTotal(double latest_interest) {
  CalculationState& state = program_.state;
  const LocaleFormat& locale = program_.platform.locale;
  state.InterestTotal = Money();
  if (List4.items().size() > 1) {
    // The sum of the rows, which is not rounded once more.
    List5.Clear();
    List5.AddItem(CurrencyText(result_.total, locale));
    state.InterestTotal = result_.total;
  } else if (state.CalculationFinished) {
    // One row is its own total; in the repo regime the row is exact and the total rounded.
    List5.AddItem(PlainText(latest_interest, locale));
    state.InterestTotal = result_.total = Money::FromDouble(latest_interest);
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
  const auto& periods = result_.payments.at(static_cast<std::size_t>(payment)).periods;
  return std::max(1, static_cast<int>(periods.size()));
}

void frmPostupny::StartReport() {
  program_.state.ReportText = ReportHeading();
  txtPostup.SetText(program_.state.ReportText);
}

void frmPostupny::AppendReport(const std::string& text) {
  program_.state.ReportText += text;
  txtPostup.Append(text);
}

void frmPostupny::ClearTotals() {
  program_.state.EngineRate = 0;
  program_.state.InterestTotal = Money();
  program_.state.DebtBeforeLastPayment = Money();
}

void frmPostupny::cmdNovy_Click() {
  CancelRepo();
  program_.state.CalculationFinished = false;
  result_ = {};
  DebtAmount = PaymentAmount = RemainingBalance = Money();
  ClearResults();
  ClearTotals();
  for (ui::TextBox& box : txtData) box.SetText("");
  for (ui::ListBox* list : {&List1, &List2, &List3, &List4, &List5}) list->Clear();
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
      program_, ProgressivePrintout(result_, txtPostup.text(), program_.platform.locale));
  if (!printed) throw Error(ErrorNumber::kPrintCancelled);
  if (result_.kind == RateKind::kRepo) return;
  // The rows are selected as they are printed, and the last ones stay so.
  for (ui::ListBox* list : {&List1, &List2, &List3, &List4}) {
    list->SetIndex(static_cast<int>(list->items().size()) - 1);
  }
}

}  // namespace velta
