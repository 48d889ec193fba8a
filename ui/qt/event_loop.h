#pragma once

#include <QTimer>
#include <map>
#include <utility>

#include "ui/event_loop.h"

namespace velta::qt {

/// The program's event loop on Qt's. One timer waits for the earliest request.
class EventLoop final : public ui::EventLoop {
 public:
  /// Callbacks wait while a Pause is alive: whoever opens a modal box or dialog holds one.
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

  Ticket After(std::chrono::milliseconds delay, std::function<void()> callback) override;
  void Cancel(Ticket ticket) override;
  void Quit() override;

  /// Runs the application until Quit; not at all where Quit came before. Returns the exit code.
  int Run();

 private:
  using Time = std::chrono::steady_clock::time_point;
  using Key = std::pair<Time, Ticket>;  // in the order in which the callbacks run

  void RunDue();
  void Wait();

  QTimer timer_;
  std::map<Key, std::function<void()>> requests_;
  Ticket last_ticket_ = 0;
  int pauses_ = 0;
  bool running_ = false;
  bool turning_ = false;
  bool quit_ = false;  // the program has asked to end
};

}  // namespace velta::qt
