#include "windows/calculation/calculation_form.h"

#include <optional>
#include <utility>

#include "app/help.h"
#include "engine/lawful_rate.h"

namespace velta {

CalculationForm::CalculationForm(Program& program, CalculationKind kind, const Settings& settings,
                                 Calculations& calculations)
    : Form(program, WindowName(kind)),
      settings_(settings),
      calculations_(calculations),
      kind_(kind) {
  cboDruhSazby.SetToolTip("Vyberte si z nabídky sazbu");

  for (ui::Button* command : {&cmdNovy, &cmdTiskVyp, &cmdTiskFa}) command->SetUsesInputs();
  OnClick(cmdNovy, [this] { cmdNovy_Click(); });
  OnClick(cmdTiskVyp, [this] { cmdTiskVyp_Click(); });
  OnClick(cmdTiskFa, [this] { cmdTiskFa_Click(); });
  OnClick(cmdHelp, [this] { OpenHelp(program_.platform, help_topic()); });
  OnClick(cmdKonec, [this] { Close(); });
  OnTimer(tmrRepo, [this] { tmrRepo_Timer(); });
  OnTimer(tmrTiskVypoctu, [this] { cmdTiskVyp.Click.Raise(); });

  for (ui::DatePicker* picker : {&dtpSplatnost, &dtpZaplaceni}) {
    FocusHint(*picker, "Datum vyberte klepnutím na šipku, nebo přepište ručně");
    OnMistyped(*picker, [this, picker] { AskForDateAgain(*picker); });
  }
  OnChange(dtpSplatnost, [this] { ShowLawfulRate(); });
  OnChange(cboDruhSazby, [this] { ShowLawfulRate(); });
  FocusHint(cboDruhSazby, "Vyberte z nabídky druh sazby ");  // the blank at its end is meant
  Hint(cmdNovy, "Nový výpočet");
  Hint(cmdTiskVyp, "Tisk výpočtu");
  Hint(cmdTiskFa, "Tisk faktury");
  Hint(cmdKonec, "Zavřít okno");
  Hint(cmdHelp, "Vyvolá nápovědu s tématem");
}

void CalculationForm::AskForDateAgain(ui::DatePicker& picker) {
  constexpr Date kExample{std::chrono::year{2005} / 12 / 31};
  Message(ui::Icon::kCritical, "Datum je chybně zadáno, zadejte je například takto: " +
                                   ShortDateText(kExample, program_.platform.locale) +
                                   "\r\nPůvodní datum vrátí klávesa Esc");
  if (program_.windows.Find(name()) != this) return;  // closed while the box stood open
  program_.windows.Open(name());                      // the user may have turned to another window
  picker.SetFocus();
}

void CalculationForm::BecomeCurrent() {
  if (const auto other = calculations_.InTheWayOf(kind_)) {
    program_.windows.Unload(WindowName(*other));
  }
  calculations_.Enter(*this, kind_);
}

void CalculationForm::SetCommandCaptions() {
  cmdNovy.SetCaption("Nový &výpočet");
  cmdTiskVyp.SetCaption("&Tisk výpočtu");
  cmdTiskFa.SetCaption("Tisk &faktury");
  cmdHelp.SetCaption("&Nápověda");
  cmdKonec.SetCaption("&Konec");
}

void CalculationForm::OfferRateKinds() {
  for (std::size_t i = 0; i < kListedRateKinds; ++i) {
    cboDruhSazby.AddItem(std::string(kRateKindTexts.at(i)));
  }
  cboDruhSazby.SetIndex(static_cast<int>(RateKind::kPercentYearly));
}

void CalculationForm::LoadBankRates() {
  bank_rates_.Load();
  ShowLawfulRate();
}

void CalculationForm::ShowLawfulRate() {
  std::optional<Rate> rate;
  if (Kind() == RateKind::kPercentYearly) {
    // The law looks at the first day of delay.
    const Date first_day = dtpSplatnost.day() + std::chrono::days(1);
    rate = LawfulRate(first_day, bank_rates_.repo().half_years());
  }
  RateBox().SetPlaceholder(rate ? "zákonná " + PlainText(*rate, program_.platform.locale)
                                : std::string());
}

void CalculationForm::OnUnload() {
  CancelRepo();
  tmrTiskVypoctu.SetEnabled(false);
  ClearResults();
  calculations_.Leave(kind_);
}

void CalculationForm::SwitchRegime() {
  const RateKind lawful = RegimeFor(Kind(), dtpSplatnost.day());
  if (lawful == Kind()) return;
  Message(ui::Icon::kInformation,
          lawful == RateKind::kRepo ? "Měním na REPO sazbu" : "Měním na DISKONTNÍ sazbu");
  cboDruhSazby.SetIndex(static_cast<int>(lawful));
}

bool CalculationForm::TakeDates() {
  CalculationState& state = program_.state;
  state.DueDate = dtpSplatnost.day();
  state.PaymentDate = dtpZaplaceni.day();
  if (state.DueDate < state.PaymentDate) return true;
  Message(ui::Icon::kCritical, Text(Refusal::kDatesReversed));
  return false;
}

bool CalculationForm::TakeDelay() {
  SwitchRegime();
  if (!TakeDates()) return false;
  program_.state.DaysLate = DaysBetween(dtpSplatnost.day(), dtpZaplaceni.day());
  return true;
}

bool CalculationForm::TakeAmountAndRate(const ui::TextBox& amount) {
  CalculationState& state = program_.state;
  const LocaleFormat& locale = program_.platform.locale;
  if (!IsNumeric(amount.text(), locale)) return false;
  state.BaseAmount = ToMoney(amount.text(), locale);
  state.RateKindText = cboDruhSazby.text();
  if (IsBankKind(Kind())) return true;
  const std::string& rate = RateBox().text();
  if (!IsNumeric(rate, locale)) return false;
  ShareRate(ToRate(rate, locale));
  return true;
}

bool CalculationForm::TakeDiscountRate() {
  const std::optional<Rate> rate = bank_rates_.DiscountRate(dtpSplatnost.day());
  if (!rate) return false;
  RateBox().SetText(PlainText(*rate, program_.platform.locale));
  ShareRate(*rate);
  return true;
}

bool CalculationForm::StartRepo(Money principal) {
  const std::optional<Refusal> refusal =
      bank_rates_.StartRepo(dtpSplatnost.day(), dtpZaplaceni.day(), principal);
  if (refusal == Refusal::kBeyondTable) program_.state.InterestAmount = 0;
  return !refusal;
}

void CalculationForm::OpenRateBox() {
  const bool typed = !IsBankKind(Kind());
  RateBox().SetEnabled(typed);
  RateBox().SetBackground(typed ? ui::Background::kWindow : ui::Background::kFace);
}

void CalculationForm::Settle() {
  bank_rates_.FinishRepo();
  tmrRepo.RunNow();
}

void CalculationForm::ShareInterest(double interest, Money amount) {
  program_.state.InterestAmount = interest;
  program_.state.AmountWithInterest = Money::FromDouble(interest) + amount;
}

void CalculationForm::ShowReport(const std::string& text) {
  program_.state.ReportText = text;
  ReportBox().SetText(text);
}

void CalculationForm::AppendReport(const std::string& text) {
  program_.state.ReportText += text;
  ReportBox().Append(text);
}

void CalculationForm::TellOfRecord() const {
  if (calculations_.on_new_record) calculations_.on_new_record();
}

void CalculationForm::CancelRepo() {
  bank_rates_.CancelRepo();
  tmrRepo.SetEnabled(false);
}

void CalculationForm::ClearResults() {
  CalculationState& state = program_.state;
  ShareRate(0);
  state.DaysLate = 0;
  state.BaseAmount = Money();
  state.InterestAmount = 0;
  state.AmountWithInterest = Money();
}

void CalculationForm::cmdTiskVyp_Click() {
  Settle();
  if (!calculations_.has_finished() || !finished()) {
    Message(ui::Icon::kCritical, kNotFinished);
    return;
  }
  Print();
}

void CalculationForm::cmdTiskFa_Click() {
  Settle();
  if (!calculations_.has_finished()) {
    Message(ui::Icon::kCritical, kNotFinished);
    return;
  }
  program_.windows.Open("frmFaktura");
}

}  // namespace velta
