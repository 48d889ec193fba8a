#include "windows/calculation/frmPocitejRepo.h"

#include <chrono>
#include <cstddef>
#include <string_view>
#include <utility>

#include "app/modPromenne.h"

namespace velta {
namespace {

std::chrono::year_month_day Calendar(Date date) { return date; }

void ShowMessage(const Program& program, std::string_view text) {
  program.platform.message_box.Show(ui::Icon::kCritical, kTitle, text);
}

}  // namespace

frmPocitejRepo::frmPocitejRepo(Program& program, std::function<void()> start_tmrRepo)
    : Timer1(program.platform.event_loop),
      program_(program),
      start_tmrRepo_(std::move(start_tmrRepo)) {
  Timer1.Tick.Connect([this] { program_.errors.TrapUntrapped([this] { Command3_Click(); }); });
}

void frmPocitejRepo::Form_Load() {
  const LocaleFormat& locale = program_.platform.locale;
  table_.clear();
  lstDatum.Clear();
  lstSazba.Clear();
  ForEachLine(ProgramFile(program_.platform.program_folder, kRepoFile), [&](std::string_view line) {
    const RepoRow& row = table_.emplace_back(ParseRepoRow(line, locale));
    lstDatum.Add(ShortDateText(row.start, locale));
    lstSazba.Add(PlainText(row.rate, locale));
  });
}

void frmPocitejRepo::PrvniSazba() {
  Timer1.Disarm();
  const std::chrono::year_month_day due = Calendar(dtpSplatnost);

  // An empty table leaves the flag as it was.
  bool year_found = false;
  for (int row = 0; row < lstDatum.size() && !year_found; ++row) {
    lstDatum.Select(row);
    year_found = Calendar(table_[static_cast<std::size_t>(row)].start).year() == due.year();
    if (!year_found) rate_found_ = false;
  }
  if (!year_found) {
    if (!rate_found_) ShowMessage(program_, "Nenalezena sazba pro zadané období");
    return;
  }
  if (due.month() >= std::chrono::July) lstDatum.Select(lstDatum.selected() + 1);
  lstSazba.Select(lstDatum.selected());
  rate_found_ = true;
  Command2_Click();
}

void frmPocitejRepo::Command2_Click() {
  CalculationState& state = program_.state;
  periods_.clear();
  for (auto* list : {&lstOd, &lstDo, &lstUrok, &lstPocetDnu, &lstPenale}) list->clear();
  state.PaymentDate = dtpZaplaceni;
  state.DueDate = dtpSplatnost;
  base_amount_ = state.BaseAmount;
  lblPocetDnuProdleni = std::to_string(DaysBetween(dtpSplatnost, dtpZaplaceni));

  const LocaleFormat& locale = program_.platform.locale;
  Date from = dtpSplatnost;
  lstOd.push_back(ShortDateText(from, locale));
  for (;;) {
    periods_.push_back({.from = from, .to = from, .rate = ToRate(lstSazba.SelectedText(), locale)});
    lstUrok.push_back(lstSazba.SelectedText());
    const Date half_year = table_.at(static_cast<std::size_t>(lstDatum.selected())).start;
    const Date next_half_year = AddMonths(half_year, 6);
    if (dtpZaplaceni < next_half_year) break;
    EndPeriod(AddDays(next_half_year, -1));
    from = next_half_year;
    lstOd.push_back(ShortDateText(from, locale));
    try {
      lstDatum.Select(lstDatum.selected() + 1);
    } catch (const Error&) {
      ShowMessage(program_, "Nelze najít sazbu, zadali jste vysoké datum splatnosti");
      state.InterestAmount = 0;
      return;
    }
    lstSazba.Select(lstDatum.selected());
  }
  EndPeriod(dtpZaplaceni);
  CountDays();
  Timer1.Arm();
}

void frmPocitejRepo::EndPeriod(Date to) {
  periods_.back().to = to;
  lstDo.push_back(ShortDateText(to, program_.platform.locale));
}

void frmPocitejRepo::CountDays() {
  for (InterestPeriod& period : periods_) {
    // The first period begins with the due date, which is no day of delay.
    period.days = DaysBetween(period.from, period.to) + (lstPocetDnu.empty() ? 0 : 1);
    lstPocetDnu.push_back(std::to_string(period.days));
  }
}

void frmPocitejRepo::Command3_Click() {
  const LocaleFormat& locale = program_.platform.locale;
  for (std::size_t i = 0; i < periods_.size(); ++i) {
    const double amount = program_.state.SingleIsCurrent ? base_amount_.ToDouble()
                                                         : ToDouble(txtPostupnaUhrada, locale);
    // The rate as its text says it: 7,05 is 7.05 here, not the nearest single.
    const double rate = ToDouble(lstUrok[i], locale);
    const double interest = ((rate * amount) / 100 * periods_[i].days) / 365;
    lstPenale.push_back(FixedText(interest, 4, locale));
    periods_[i].interest = ToDouble(lstPenale.back(), locale);
  }
  start_tmrRepo_();
}

}  // namespace velta
