#pragma once

#include <memory>

namespace velta::ui {

class Window;

/// What the user sees of one window. A view listens to the window's model and writes the user's
/// acts into it; it never lives longer than its window.
class WindowView {
 public:
  virtual ~WindowView() = default;

  /// Shows the window, restored where it is minimised, and turns to it as Activate does.
  virtual void Show() = 0;

  /// Brings the window to the front, as large or small as it is, and gives it the keyboard.
  virtual void Activate() = 0;

  /// Takes the window off the screen at once and listens to the user no more.
  virtual void Close() = 0;
};

/// Makes views for windows.
class WindowSystem {
 public:
  virtual ~WindowSystem() = default;
  [[nodiscard]] virtual std::unique_ptr<WindowView> CreateView(Window& window) = 0;
};

}  // namespace velta::ui
