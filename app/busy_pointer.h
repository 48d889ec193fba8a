#pragma once

#include "ui/window.h"

namespace velta {

/// The hourglass over a window, for as long as this is in scope: also an error takes it away.
class BusyPointer {
 public:
  explicit BusyPointer(ui::Window& window) : window_(window) { window_.SetBusy(true); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
  ~BusyPointer() { window_.SetBusy(false); }

 private:
  ui::Window& window_;
};

}  // namespace velta
