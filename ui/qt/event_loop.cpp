#include "ui/qt/event_loop.h"

#include <QCoreApplication>
#include <QScopedValueRollback>
#include <algorithm>

namespace velta::qt {

EventLoop::Pause::Pause(EventLoop& loop) : loop_(loop) {
  ++loop_.pauses_;
  loop_.Wait();
}

EventLoop::Pause::~Pause() {
  --loop_.pauses_;
  loop_.Wait();
}

EventLoop::EventLoop() {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  timer_.callOnTimeout([this] { RunDue(); });
}

EventLoop::Ticket EventLoop::After(std::chrono::milliseconds delay, InBoxes in_boxes,
                                   std::function<void()> callback) {
  const Ticket ticket = ++last_ticket_;
  requests_.emplace(Key(std::chrono::steady_clock::now() + delay, ticket),
                    Request{in_boxes, std::move(callback)});
  Wait();
  return ticket;
}

void EventLoop::Cancel(Ticket ticket) {
  const auto request = std::find_if(requests_.begin(), requests_.end(), [&](const auto& entry) {
    return entry.first.second == ticket;
  });
  if (request != requests_.end()) requests_.erase(request);
}

void EventLoop::Quit() {
  quit_ = true;
  // exit() and not quit(), which asks every window first; ours refuse to close by themselves.
  // Before the loop runs it would end the next message box instead.
  if (turning_) QCoreApplication::exit(0);
}

int EventLoop::Run() {
  if (quit_) return 0;
  turning_ = true;
  const int exit_code = QCoreApplication::exec();
  turning_ = false;
  return exit_code;
}

void EventLoop::RunDue() {
  const Time now = std::chrono::steady_clock::now();
  const Ticket last_of_this_turn = last_ticket_;
  // A box that a callback opened is closed again when the callback returns, so only the requests
  // made meanwhile have to be left for the next turn.
  for (auto next = requests_.begin(); next != requests_.end() && next->first.first <= now;) {
    if (next->first.second > last_of_this_turn || !MayRun(next->second)) {
      ++next;
      continue;
    }
    const auto request = requests_.extract(next);
    const bool in_boxes = request.mapped().in_boxes == InBoxes::kRuns;
    const QScopedValueRollback running(in_boxes ? running_in_box_ : running_, true);
    request.mapped().callback();
    next = requests_.begin();  // the callback may have taken any request back
  }
  Wait();
}

/// One at a time; only those that run in boxes interrupt another that has opened one.
bool EventLoop::MayRun(const Request& request) const {
  if (running_in_box_) return false;
  return request.in_boxes == InBoxes::kRuns ? !running_ || pauses_ > 0 : !running_ && pauses_ == 0;
}

void EventLoop::Wait() {
  const auto next = std::find_if(requests_.begin(), requests_.end(),
                                 [this](const auto& entry) { return MayRun(entry.second); });
  if (next == requests_.end()) return;
  const auto rest = std::chrono::ceil<std::chrono::milliseconds>(next->first.first -
                                                                 std::chrono::steady_clock::now());
  timer_.start(std::max(rest, std::chrono::milliseconds(0)));
}

}  // namespace velta::qt
