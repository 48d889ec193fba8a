#pragma once

#include <chrono>

#include "ui/event.h"
#include "ui/event_loop.h"

namespace velta::ui {

/// Work that continues after the event loop has turned. A one-shot runs once each time it is armed:
/// it is disarmed before its handlers run, which may arm it again. While a message box or a dialog
/// is open it waits. A periodic one continues nothing: it runs until it is disarmed, boxes or not.
/// Destroying the timer disarms it; its own handlers must not do that.
class Timer {
 public:
  enum class Kind { kOneShot, kPeriodic };

  /// An interval of 0 is the next turn of the loop.
  explicit Timer(EventLoop& event_loop, Kind kind = Kind::kOneShot,
                 std::chrono::milliseconds interval = std::chrono::milliseconds(0));
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  ~Timer();

  bool armed() const { return ticket_ != 0; }
  void Arm();  ///< an armed timer goes on as it is
  void Disarm();
  /// Runs an armed one-shot timer now instead of on its turn; a disarmed one is left alone.
  void RunNow();

  Event<> Tick;

 private:
  EventLoop& event_loop_;
  Kind kind_;
  std::chrono::milliseconds interval_;
  EventLoop::Ticket ticket_ = 0;  // 0 while disarmed
};

}  // namespace velta::ui
