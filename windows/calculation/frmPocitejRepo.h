#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/program.h"
#include "calc/refusal.h"
#include "engine/bank_tables.h"
#include "ui/timer.h"
#include "windows/calculation/selectable_list.h"

namespace velta {

/// The repo-rate engine: from 28 April 2005 on, each calendar half-year of a delay bears the repo
/// rate of its first day and seven points. It is loaded with a calculation window, which sets the
/// dates and calls PrvniSazba. The delay is split at once; the interest follows on Timer1, after
/// which the engine starts the window's tmrRepo, whose handler reads the rows.
///
/// No operation has an error trap: what fails reaches the caller, and from Timer1 the user.
class frmPocitejRepo {
 public:
  /// `start_tmrRepo` arms the timer of the window that the engine belongs to.
  frmPocitejRepo(Program& program, std::function<void()> start_tmrRepo);

  /// Reads repo.dat from the program's folder. A row that cannot be read ends the reading with its
  /// error; the rows before it stay.
  void Form_Load();

  /// Finds the half-year of dtpSplatnost and splits the delay from there; the interest will be on
  /// `principal`. Drops a calculation that still waits for Timer1. Returns what has refused it, and
  /// the user has been told: a year that the table lacks, which leaves the rows alone, or a table
  /// that ends too early. A second half-year that it lacks: Error 380.
  std::optional<Refusal> PrvniSazba(Money principal);

  /// Splits the delay from dtpSplatnost to dtpZaplaceni into rows, beginning with the selected
  /// half-year, and arms Timer1. Where the table ends before the payment date it shows a message,
  /// arms nothing and returns false. Where no half-year is selected: Error 13.
  bool Command2_Click();

  /// Computes the interest of every row and starts tmrRepo.
  void Command3_Click();

  /// The rows with their values. The interest is there once Command3_Click has run.
  const std::vector<InterestPeriod>& periods() const { return periods_; }
  /// Whether the latest search found a half-year.
  bool rate_found() const { return rate_found_; }
  /// The table as values.
  const std::vector<RepoRow>& half_years() const { return rows_; }

  // The table: the half-years' first days and their rates.
  SelectableList lstDatum;
  SelectableList lstSazba;

  // Inputs.
  Date dtpSplatnost;
  Date dtpZaplaceni;

  // Outputs: the rows as texts, and the days of the whole delay.
  std::vector<std::string> lstOd;
  std::vector<std::string> lstDo;
  std::vector<std::string> lstUrok;
  std::vector<std::string> lstPocetDnu;
  std::vector<std::string> lstPenale;  ///< four decimals each
  std::string lblPocetDnuProdleni;

  ui::Timer Timer1;

 private:
  void ShowPeriods();
  void ShowRefusal(Refusal refusal) const;

  Program& program_;
  std::function<void()> start_tmrRepo_;
  std::vector<RepoRow> rows_;  // the same as lstDatum and lstSazba
  std::vector<InterestPeriod> periods_;
  Money principal_;
  bool rate_found_ = false;
};

}  // namespace velta
