#pragma once

#include <QScreen>
#include <QWidget>

namespace velta::qt {

/// What a window's screen has for the window itself: all but about what the desktop draws around
/// it.
inline QSize RoomOnScreen(const QWidget& window) {
  return window.screen()->availableGeometry().size() - QSize(16, 48);
}

}  // namespace velta::qt
