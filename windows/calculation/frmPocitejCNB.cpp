#include "windows/calculation/frmPocitejCNB.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "app/modPromenne.h"
#include "engine/bank_tables.h"

namespace velta {

frmPocitejCNB::frmPocitejCNB(Program& program)
    : tmrStart(program.platform.event_loop), program_(program) {
  tmrStart.Tick.Connect([this] { tmrStart_Timer(); });
}

void frmPocitejCNB::Form_Load() {
  Guarded("Form_Load", [&] {
    const LocaleFormat& locale = program_.platform.locale;
    const Date today = program_.platform.clock.Now().day;
    rows_.clear();
    for (SelectableList& list : lstCnb) list.Clear();
    ForEachLine(ProgramFile(program_.platform.program_folder, kCnbFile),
                [&](std::string_view line) {
                  const CnbRow& row = rows_.emplace_back(ParseCnbRow(line, today, locale));
                  lstCnb[0].Add(ShortDateText(row.valid_from, locale));
                  lstCnb[1].Add(ShortDateText(row.valid_to, locale));
                  lstCnb[2].Add(row.discount_rate);
                  lstCnb[3].Add(row.interest_rate);
                });
  });
}

bool frmPocitejCNB::StanoveniPrvniSazby() {
  return Guarded("StanoveniPrvniSazby",
                 [&] { Find(ParseShortDate(Text1, program_.platform.locale)); });
}

std::optional<Rate> frmPocitejCNB::RateOn(Date due_date) {
  ForgetRate();  // an earlier rate must not pass for an answer
  Text1 = ShortDateText(due_date, program_.platform.locale);
  if (!Guarded("StanoveniPrvniSazby", [&] { Find(due_date); })) return std::nullopt;
  return program_.state.EngineRate;
}

/// A row that the table does not have has no dates, as no text is a date: Error 13.
const CnbRow& frmPocitejCNB::Row(int row) const {
  if (row < 0 || row >= static_cast<int>(rows_.size())) throw Error(ErrorNumber::kTypeMismatch);
  return rows_[static_cast<std::size_t>(row)];
}

void frmPocitejCNB::Find(Date day) {
  if (SelectRowInForce(day)) UseSelectedRate();
}

void frmPocitejCNB::SelectInAll(int row) {
  for (SelectableList& list : lstCnb) list.Select(row);
}

/// Selects the row in force, or the one where the search has ended, and returns whether it is in
/// force.
bool frmPocitejCNB::SelectRowInForce(Date day) {
  const std::optional<std::size_t> found = DiscountRow(rows_, day);
  const int last = lstCnb[0].size() - 1;
  const int row = found ? static_cast<int>(*found) : std::max(last - 1, 0);
  SelectInAll(row);
  // Each row between the first and the last one that is passed by clears the rate.
  if (found ? 1 < row && row < last : last > 1) ForgetRate();
  return found.has_value();
}

void frmPocitejCNB::UseSelectedRate() {
  const std::optional<Rate>& rate = Row(lstCnb[3].selected()).rate;
  if (!rate) throw Error(ErrorNumber::kTypeMismatch);
  program_.state.EngineRate = *rate;
  txtVyseSazby = PlainText(*rate, program_.platform.locale);
}

// The day-by-day command, which nothing in the program gives: see docs/decisions/day-by-day.md.

void frmPocitejCNB::Command1_Click() {
  Guarded("Command1_Click", [&] {
    const LocaleFormat& locale = program_.platform.locale;
    StanoveniPrvniSazby();

    const Date due = ParseShortDate(Text1, locale);
    const double amount = ToMoney(txtDluznaCastka, locale).ToDouble();
    const int days = DaysBetween(due, ParseShortDate(Text2, locale));
    lblPocetDnu = std::to_string(days);
    // Days are counted in 16 bits, and the counter has to pass the last day to end the loop.
    using DayCounter = std::numeric_limits<std::int16_t>;
    if (days < DayCounter::min() || days > DayCounter::max()) throw Error(ErrorNumber::kOverflow);

    double sum = 0;
    for (int day = 1; day <= days; ++day) {
      const int row = lstCnb[1].selected();
      if (AddDays(due, day) > Row(row).valid_to) {
        // The last row has no end.
        const int next = row == lstCnb[1].size() - 1 ? row : row + 1;
        lstCnb[1].Select(next);
        lstCnb[3].Select(next);
        UseSelectedRate();
      }
      sum += (amount * static_cast<double>(program_.state.EngineRate)) / 36500;
    }
    if (days == DayCounter::max()) throw Error(ErrorNumber::kOverflow);
    lblPenale = PlainText(sum, locale);
    program_.state.InterestAmount = sum;
  });
}

void frmPocitejCNB::tmrStart_Timer() {
  Guarded("tmrStart_Timer", [&] {
    ForgetRate();
    Command1_Click();
  });
}

}  // namespace velta
