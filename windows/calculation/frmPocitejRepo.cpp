#include "windows/calculation/frmPocitejRepo.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

#include "app/modPromenne.h"
#include "values/error.h"

namespace velta {

frmPocitejRepo::frmPocitejRepo(Program& program, std::function<void()> start_tmrRepo)
    : Timer1(program.platform.event_loop),
      program_(program),
      start_tmrRepo_(std::move(start_tmrRepo)) {
  Timer1.Tick.Connect([this] { program_.errors.TrapUntrapped([this] { Command3_Click(); }); });
}

void frmPocitejRepo::Form_Load() {
  const LocaleFormat& locale = program_.platform.locale;
  rows_.clear();
  lstDatum.Clear();
  lstSazba.Clear();
  ForEachLine(ProgramFile(program_.platform.program_folder, kRepoFile), [&](std::string_view line) {
    const RepoRow& row = rows_.emplace_back(ParseRepoRow(line, locale));
    lstDatum.Add(ShortDateText(row.start, locale));
    lstSazba.Add(PlainText(row.rate, locale));
  });
}

void frmPocitejRepo::ShowRefusal(Refusal refusal) const {
  program_.platform.message_box.Show(ui::Icon::kCritical, kTitle, Text(refusal));
}

std::optional<Refusal> frmPocitejRepo::PrvniSazba(Money principal) {
  Timer1.Disarm();
  principal_ = principal;
  if (!rows_.empty()) rate_found_ = false;  // an empty table is not searched
  const std::optional<std::size_t> row = HalfYearRow(rows_, dtpSplatnost);
  if (!row) {
    lstDatum.Select(lstDatum.size() - 1);  // where the search has ended
    // An empty table after an earlier success: nothing has been looked for.
    if (!rate_found_) ShowRefusal(Refusal::kNoRate);
    return Refusal::kNoRate;
  }
  lstDatum.Select(static_cast<int>(*row));
  lstSazba.Select(static_cast<int>(*row));
  rate_found_ = true;
  if (!Command2_Click()) return Refusal::kBeyondTable;
  return std::nullopt;
}

bool frmPocitejRepo::Command2_Click() {
  // Where no half-year is selected there is no rate: its text is no number.
  if (lstDatum.selected() == -1) throw Error(ErrorNumber::kTypeMismatch);
  HalfYears split = SplitIntoHalfYears(rows_, static_cast<std::size_t>(lstDatum.selected()),
                                       dtpSplatnost, dtpZaplaceni);
  periods_ = std::move(split.periods);
  ShowPeriods();
  if (!split.complete) {
    lstOd.push_back(ShortDateText(AddDays(periods_.back().to, 1), program_.platform.locale));
    lstPocetDnu.clear();
    ShowRefusal(Refusal::kBeyondTable);
    return false;
  }
  Timer1.Arm();
  return true;
}

void frmPocitejRepo::ShowPeriods() {
  const LocaleFormat& locale = program_.platform.locale;
  for (auto* list : {&lstOd, &lstDo, &lstUrok, &lstPocetDnu, &lstPenale}) list->clear();
  lblPocetDnuProdleni = std::to_string(DaysBetween(dtpSplatnost, dtpZaplaceni));
  for (const InterestPeriod& period : periods_) {
    lstOd.push_back(ShortDateText(period.from, locale));
    lstDo.push_back(ShortDateText(period.to, locale));
    lstUrok.push_back(PlainText(period.rate, locale));
    lstPocetDnu.push_back(std::to_string(period.days));
  }
  const int last = lstDatum.selected() + static_cast<int>(periods_.size()) - 1;
  lstDatum.Select(last);
  lstSazba.Select(last);
}

void frmPocitejRepo::Command3_Click() {
  ComputeInterest(periods_, principal_);
  for (const InterestPeriod& period : periods_) {
    lstPenale.push_back(FixedText(period.interest, 4, program_.platform.locale));
  }
  start_tmrRepo_();
}

}  // namespace velta
