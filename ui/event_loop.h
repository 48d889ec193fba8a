#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <utility>

namespace velta::ui {

/// The platform's event loop, as far as the program needs it: work for later.
///
/// Contract: callbacks run on the user-interface thread, one after the other, in the order of their
/// time and then of their request; never from inside After(). While a message box or a dialog is
/// open they wait, unless asked for with InBoxes::kRuns. A callback must not let an exception out.
class EventLoop {
 public:
  using Ticket = std::uint64_t;  ///< names one request; never 0
  enum class InBoxes { kWaits, kRuns };

  virtual ~EventLoop() = default;

  /// Runs `callback` once, `delay` from now; a delay of 0 means on the next turn of the loop.
  Ticket After(std::chrono::milliseconds delay, std::function<void()> callback) {
    return After(delay, InBoxes::kWaits, std::move(callback));
  }
  virtual Ticket After(std::chrono::milliseconds delay, InBoxes in_boxes,
                       std::function<void()> callback) = 0;

  /// Takes a request back. A ticket that has run or is unknown is ignored.
  virtual void Cancel(Ticket ticket) = 0;

  /// Ends the program's loop once the running callbacks have returned.
  virtual void Quit() = 0;
};

}  // namespace velta::ui
