#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/program.h"
#include "engine/rate_files.h"
#include "ui/timer.h"
#include "windows/calculation/selectable_list.h"

namespace velta {

/// The discount-rate engine: due dates before 28 April 2005 bear twice the discount rate. It is
/// loaded with a calculation window, which asks it by RateOn. Its table holds the doubled rates
/// already.
///
/// Every operation ends in the error report when something fails; what it set until then stays.
class frmPocitejCNB {
 public:
  explicit frmPocitejCNB(Program& program);

  /// Reads cnb.dat from the program's folder. A row that cannot be read ends the reading; the rows
  /// before it stay. Nothing is selected.
  void Form_Load();

  /// The rate in force on the due date, which Text1 shows then; 0 where the day falls between two
  /// rows. None where the search ended in the error report.
  std::optional<Rate> RateOn(Date due_date);
  /// EngineRate becomes 0: no rate has been found.
  void ForgetRate() { program_.state.EngineRate = 0; }

  /// Finds the row in force on the day of Text1, selects it in all lists and puts its rate into
  /// EngineRate and txtVyseSazby. Days before the table get its first row, days after it its last.
  /// Where the day falls between two rows, EngineRate becomes 0 (in a table of two rows it keeps
  /// its value) and txtVyseSazby stays. Returns false where it ended in the error report.
  bool StanoveniPrvniSazby();

  // The table, a list each: valid from, valid to, discount rate, rate of interest.
  std::array<SelectableList, 4> lstCnb;

  std::string Text1;         ///< the due date, in the forms of the user's locale
  std::string txtVyseSazby;  ///< the rate last found or used

  // The day-by-day command, which nothing in the program gives (docs/decisions/day-by-day.md).

  /// Sums the interest on txtDluznaCastka for each day after Text1 up to and including Text2, each
  /// at the rate of its own day; the year has 365 days. Fills lblPocetDnu, lblPenale and
  /// InterestAmount (crowns, not rounded). From 32 767 days on: Error 6.
  void Command1_Click();

  /// Forgets the rate and computes from the start: what tmrStart runs.
  void tmrStart_Timer();

  std::string Text2;  ///< payment date
  std::string txtDluznaCastka;
  std::string lblPocetDnu = "Zde se zobrazí počet dnů trvání dluhu";
  std::string lblPenale = "Zde se zobrazí penále za zadané období";
  ui::Timer tmrStart;

 private:
  template <class Body>
  bool Guarded(std::string_view procedure, Body&& body) {
    return program_.errors.Trap(procedure, "frmPocitejCNB.frm", std::forward<Body>(body));
  }
  const CnbRow& Row(int row) const;
  void Find(Date day);
  void SelectInAll(int row);
  bool SelectRowInForce(Date day);
  void UseSelectedRate();

  Program& program_;
  std::vector<CnbRow> rows_;  // the same rows as lstCnb
};

}  // namespace velta
