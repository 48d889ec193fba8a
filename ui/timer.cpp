#include "ui/timer.h"

namespace velta::ui {

Timer::Timer(EventLoop& event_loop, Kind kind, std::chrono::milliseconds interval)
    : event_loop_(event_loop), kind_(kind), interval_(interval) {}

Timer::~Timer() { Disarm(); }

void Timer::Arm() {
  if (armed()) return;
  const bool periodic = kind_ == Kind::kPeriodic;
  const auto in_boxes = periodic ? EventLoop::InBoxes::kRuns : EventLoop::InBoxes::kWaits;
  ticket_ = event_loop_.After(interval_, in_boxes, [this, periodic] {
    ticket_ = 0;
    if (periodic) Arm();
    Tick.Raise();
  });
}

void Timer::Disarm() {
  if (!armed()) return;
  event_loop_.Cancel(ticket_);
  ticket_ = 0;
}

void Timer::RunNow() {
  if (!armed()) return;
  Disarm();
  Tick.Raise();
}

}  // namespace velta::ui
