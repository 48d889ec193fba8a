#pragma once

#include "ui/message_box.h"
#include "ui/qt/event_loop.h"

namespace velta::qt {

class MessageBox final : public ui::MessageBox {
 public:
  explicit MessageBox(EventLoop& event_loop) : event_loop_(event_loop) {}
  void Show(ui::Icon icon, std::string_view caption, std::string_view text) override;

 private:
  EventLoop& event_loop_;
};

}  // namespace velta::qt
