#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <array>
#include <csignal>

#include "ui/qt/event_loop.h"

namespace velta::qt {

/// Ends the program as its own command does when the system asks for it: by SIGTERM, SIGINT or
/// SIGHUP, or at the end of the session. A message box or a dialog that is open is put away first,
/// as by Esc. There is one at a time.
class EndRequests final : public QObject {
 public:
  explicit EndRequests(EventLoop& event_loop);
  EndRequests(const EndRequests&) = delete;
  EndRequests& operator=(const EndRequests&) = delete;
  ~EndRequests() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// The pipe through which a signal's handler, in which next to nothing is allowed, wakes the
  /// loop.
  struct Pipe {
    Pipe();
    ~Pipe();
    std::array<int, 2> ends{-1, -1};
  };
  static constexpr std::array kSignals = {SIGTERM, SIGINT, SIGHUP};

  void GoOnEnding();

  EventLoop& event_loop_;
  Pipe pipe_;
  QSocketNotifier signal_came_{pipe_.ends[0], QSocketNotifier::Read};
  QTimer steps_;
  std::array<struct sigaction, kSignals.size()> former_{};
};

}  // namespace velta::qt
