#include "ui/window.h"

#include <algorithm>
#include <utility>

#include "ui/controls.h"

namespace velta::ui {

Window::Window(std::string name, WindowKind kind, EventLoop& event_loop)
    : name_(std::move(name)), kind_(kind), event_loop_(event_loop) {}

void Window::SetCaption(std::string caption) {
  if (caption == caption_) return;
  caption_ = std::move(caption);
  CaptionChanged.Raise();
}

void Window::SetBusy(bool busy) {
  if (busy == busy_) return;
  busy_ = busy;
  BusyChanged.Raise();
}

Control* Window::Find(const std::string& name) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [&](const Control* control) { return control->name() == name; });
  return found == controls_.end() ? nullptr : *found;
}

void Window::ReadFirst(std::initializer_list<Control*> controls) {
  auto next = controls_.begin();
  for (Control* control : controls) {
    const auto at = std::find(next, controls_.end(), control);
    std::rotate(next, at, at + 1);
    ++next;
  }
}

void Window::FocusFirst() { FocusFrom(0); }

void Window::FocusNext() {
  const auto at = std::find(controls_.begin(), controls_.end(), focused_);
  FocusFrom(at == controls_.end() ? 0 : static_cast<std::size_t>(at - controls_.begin()) + 1);
}

bool Window::FocusFrom(std::size_t first) {
  for (std::size_t step = 0; step < controls_.size(); ++step) {
    Control& control = *controls_[(first + step) % controls_.size()];
    if (!control.IsTabStop()) continue;
    MoveFocus(control);
    return true;
  }
  return false;
}

bool Window::CommitTyping() {
  return std::all_of(controls_.begin(), controls_.end(),
                     [](Control* control) { return control->CommitTyping(); });
}

void Window::MoveFocus(Control& control) {
  if (&control == focused_) return;
  focused_ = &control;
  FocusMoved.Raise();
  control.GotFocus.Raise();
}

void Window::LeaveFocusIfClosed() {
  const Control* const left = focused_;
  if (left == nullptr || left->CanTakeFocus()) return;
  FocusNext();
  if (focused_ == left) focused_ = nullptr;
}

}  // namespace velta::ui
