#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/program.h"
#include "engine/interest_period.h"
#include "engine/rate_files.h"
#include "ui/timer.h"
#include "windows/calculation/selectable_list.h"

namespace velta {

/// The repo-rate engine: from 28 April 2005 on, each calendar half-year of a delay bears the repo
/// rate of its first day and seven points. It is loaded with a calculation window, which sets the
/// input fields and calls PrvniSazba. The delay is split at once; the interest follows on Timer1,
/// after which the engine starts the window's tmrRepo, whose handler reads the rows.
///
/// No operation has an error trap: what fails reaches the caller, and from Timer1 the user.
class frmPocitejRepo {
 public:
  /// `start_tmrRepo` arms the timer of the window that the engine belongs to.
  frmPocitejRepo(Program& program, std::function<void()> start_tmrRepo);

  /// Reads repo.dat from the program's folder. A row that cannot be read ends the reading with its
  /// error; the rows before it stay.
  void Form_Load();

  /// Finds the half-year of dtpSplatnost and splits the delay from there. Drops a calculation that
  /// still waits for Timer1. A year that the table lacks gets a message and leaves the rows alone;
  /// a second half-year that it lacks: Error 380.
  void PrvniSazba();

  /// Splits the delay from dtpSplatnost to dtpZaplaceni into rows, beginning with the selected
  /// half-year, and arms Timer1. Sets DueDate and PaymentDate. Where the table ends before the
  /// payment date it shows a message, sets InterestAmount to 0 and arms nothing.
  void Command2_Click();

  /// Computes the interest of every row (the year has 365 days): in a single calculation on the
  /// BaseAmount that stood when the split began, for whatever the user has changed since begins
  /// another split; otherwise on txtPostupnaUhrada, which is Error 13 where it is no number. Then
  /// starts tmrRepo.
  void Command3_Click();

  /// The rows with their values. The interest is there once Command3_Click has run.
  const std::vector<InterestPeriod>& periods() const { return periods_; }
  /// Whether the latest search found a half-year.
  bool rate_found() const { return rate_found_; }

  // The table: the half-years' first days and their rates.
  SelectableList lstDatum;
  SelectableList lstSazba;

  // Inputs.
  Date dtpSplatnost;
  Date dtpZaplaceni;
  std::string txtPostupnaUhrada;  ///< the payment of a progressive calculation

  // Outputs: the rows as texts, and the days of the whole delay.
  std::vector<std::string> lstOd;
  std::vector<std::string> lstDo;
  std::vector<std::string> lstUrok;
  std::vector<std::string> lstPocetDnu;
  std::vector<std::string> lstPenale;  ///< four decimals each
  std::string lblPocetDnuProdleni;

  ui::Timer Timer1;

 private:
  void EndPeriod(Date to);
  void CountDays();

  Program& program_;
  std::function<void()> start_tmrRepo_;
  std::vector<RepoRow> table_;  // the same rows as lstDatum and lstSazba
  std::vector<InterestPeriod> periods_;
  Money base_amount_;
  bool rate_found_ = false;
};

}  // namespace velta
