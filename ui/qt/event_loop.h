#pragma once

#include <QTimer>
#include <map>
#include <utility>

#include "ui/event_loop.h"

namespace velta::qt {

/// The program's event loop on Qt's. One timer waits for the earliest request.
class EventLoop final : public ui::EventLoop {
 public:
  /// Callbacks wait while a Pause is alive, but for those that run in boxes too: whoever opens a
  /// modal box or dialog holds one.
  class Pause {
   public:
    explicit Pause(EventLoop& loop);
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;
    ~Pause();

   private:
    EventLoop& loop_;
  };

  EventLoop();

  using ui::EventLoop::After;
  Ticket After(std::chrono::milliseconds delay, InBoxes in_boxes,
               std::function<void()> callback) override;
  void Cancel(Ticket ticket) override;
  void Quit() override;

  /// Runs the application until Quit; not at all where Quit came before. Returns the exit code.
  int Run();

 private:
  using Time = std::chrono::steady_clock::time_point;
  using Key = std::pair<Time, Ticket>;  // in the order in which the callbacks run

  struct Request {
    InBoxes in_boxes;
    std::function<void()> callback;
  };

  void RunDue();
  [[nodiscard]] bool MayRun(const Request& request) const;
  void Wait();

  QTimer timer_;
  std::map<Key, Request> requests_;
  Ticket last_ticket_ = 0;
  int pauses_ = 0;
  bool running_ = false;         // a callback that waits for boxes is under way,
  bool running_in_box_ = false;  // or one that does not
  bool turning_ = false;
  bool quit_ = false;  // the program has asked to end
};

}  // namespace velta::qt
