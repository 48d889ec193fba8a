#pragma once

#include <functional>
#include <optional>

#include "app/program.h"
#include "calc/refusal.h"
#include "windows/calculation/frmPocitejCNB.h"
#include "windows/calculation/frmPocitejRepo.h"

namespace velta {

/// The two engines that a calculation window loads with itself, and how it asks them.
class BankRates {
 public:
  /// `repo_ready` is called when the repo engine has computed its periods.
  BankRates(Program& program, std::function<void()> repo_ready);

  /// Reads both rate tables. The discount engine reports a fault itself and stays without rows; a
  /// fault of the repo table is thrown, with what was read so far kept.
  void Load();

  /// The discount regime's rate at a due date. Where there is none the user has been told, by the
  /// engine's own report or by "Nenalezena sazba pro zadané období", and the result is empty.
  std::optional<Rate> DiscountRate(Date due_date);
  void ForgetDiscountRate() { cnb_.ForgetRate(); }

  /// Starts the repo regime's computation of the interest on `principal`, in place of one that is
  /// pending; `repo_ready` follows on a later turn of the event loop. Returns what has refused
  /// it; the user has been told.
  std::optional<Refusal> StartRepo(Date due_date, Date payment_date, Money principal);

  /// Whether a computation has been started and `repo_ready` not yet been called.
  bool RepoPending() const { return repo_.Timer1.armed(); }
  /// Carries a pending computation through now.
  void FinishRepo() { repo_.Timer1.RunNow(); }
  /// Forgets a pending computation.
  void CancelRepo() { repo_.Timer1.Disarm(); }

  const frmPocitejRepo& repo() const { return repo_; }

 private:
  Program& program_;
  frmPocitejCNB cnb_;
  frmPocitejRepo repo_;
};

}  // namespace velta
