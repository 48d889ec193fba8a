#include "windows/calculation/frmPocitejCNB.h"

#include <cstddef>
#include <cstdint>
#include <limits>

#include "app/modPromenne.h"

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
  return Guarded("StanoveniPrvniSazby", [&] {
    if (SelectRowInForce(ParseShortDate(Text1, program_.platform.locale))) UseSelectedRate();
  });
}

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
    program_.state.EngineRate = 0;
    Command1_Click();
  });
}

/// A row that the table does not have has no dates, as no text is a date: Error 13.
const CnbRow& frmPocitejCNB::Row(int row) const {
  if (row < 0 || row >= static_cast<int>(rows_.size())) throw Error(ErrorNumber::kTypeMismatch);
  return rows_[static_cast<std::size_t>(row)];
}

void frmPocitejCNB::SelectInAll(int row) {
  for (SelectableList& list : lstCnb) list.Select(row);
}

/// The last row comes first, then the first one, then those between: where rows overlap, that
/// decides. Returns false where none of them holds the day.
bool frmPocitejCNB::SelectRowInForce(Date day) {
  const int last = lstCnb[0].size() - 1;
  SelectInAll(last);
  if (day >= Row(last).valid_from) return true;
  SelectInAll(0);
  if (day <= Row(0).valid_to) return true;
  for (int row = 1; row < last; ++row) {
    SelectInAll(row);
    if (Row(row).valid_from <= day && day <= Row(row).valid_to) return true;
    program_.state.EngineRate = 0;
  }
  return false;
}

void frmPocitejCNB::UseSelectedRate() {
  const LocaleFormat& locale = program_.platform.locale;
  program_.state.EngineRate = ToRate(lstCnb[3].SelectedText(), locale);
  txtVyseSazby = PlainText(program_.state.EngineRate, locale);
}

}  // namespace velta
