#pragma once

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace velta::ui {

/// Something that happens to a control, with the handlers that wait for it.
/// Handlers run in the order in which they were connected, to their end, before Raise returns; a
/// handler may raise the same event again. There is no disconnecting: whoever connects lives as
/// long as the window that owns the event.
template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  void Connect(Handler handler) { handlers_.push_back(std::move(handler)); }

  void Raise(Args... args) const {
    for (std::size_t i = 0; i < handlers_.size(); ++i) handlers_[i](args...);
  }

 private:
  std::vector<Handler> handlers_;
};

}  // namespace velta::ui
