#pragma once

#include <exception>
#include <string_view>
#include <utility>

#include "ui/message_box.h"
#include "values/error.h"

namespace velta {

/// The program's name, and the caption of every message box.
inline constexpr std::string_view kTitle = "Velta";

/// The uniform error report and the trap under which every routine of the program runs. The report
/// is the only error surface: no error passes from a trapped routine to its caller, nothing is
/// logged and nothing is undone.
class ErrorReport {
 public:
  explicit ErrorReport(ui::MessageBox& message_box) : message_box_(message_box) {}

  /// Runs `body`. Where it throws, the rest of it is skipped and the report shown once, under the
  /// routine's own name: "Chyba 13 (Neshoda typů) v proceduře" CR LF
  /// "(cmdPridat_Click) of (frmPostupny.frm).". Returns whether `body` ran to its end.
  template <class Body>
  bool Trap(std::string_view procedure, std::string_view unit, Body&& body) {
    try {
      std::forward<Body>(body)();
      return true;
    } catch (...) {
      ReportError(std::current_exception(), procedure, unit);
      return false;
    }
  }

  /// Runs `body` for a routine that has no trap and no trapped caller: whatever it throws is shown
  /// by number and description alone, "Chyba 5 (…)", and the program goes on.
  template <class Body>
  bool TrapUntrapped(Body&& body) {
    try {
      std::forward<Body>(body)();
      return true;
    } catch (...) {
      ReportUntrapped(std::current_exception());
      return false;
    }
  }

 private:
  void ReportError(const std::exception_ptr& thrown, std::string_view procedure,
                   std::string_view unit);
  void ReportUntrapped(const std::exception_ptr& thrown);

  ui::MessageBox& message_box_;
};

}  // namespace velta
