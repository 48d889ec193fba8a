#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "ui/event.h"

namespace velta::ui {

class Control;
class EventLoop;

/// How a window stands on the screen.
enum class WindowKind {
  kSplash,  ///< alone, before the main window
  kMain,    ///< the frame in which the others open
  kChild,   ///< inside the main window
};

/// The model of one window: its caption, its controls by name and where the keyboard is.
class Window {
 public:
  Window(std::string name, WindowKind kind, EventLoop& event_loop);
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window() = default;

  const std::string& name() const { return name_; }
  WindowKind kind() const { return kind_; }
  EventLoop& event_loop() const { return event_loop_; }

  const std::string& caption() const { return caption_; }
  void SetCaption(std::string caption);

  /// Shows the hourglass instead of the arrow while true.
  bool busy() const { return busy_; }
  void SetBusy(bool busy);

  /// Esc closes the window as its close box does: for windows in which nothing is typed.
  bool closes_by_esc() const { return closes_by_esc_; }
  void SetClosesByEsc() { closes_by_esc_ = true; }

  /// The controls in reading order.
  const std::vector<Control*>& controls() const { return controls_; }
  /// Moves these controls to the front of the reading order: where it is not the order of
  /// declaration.
  void ReadFirst(std::initializer_list<Control*> controls);
  /// The control of that name, or null.
  Control* Find(const std::string& name) const;

  /// Where the keyboard is while this window is the active one; null before anything took it.
  Control* focused() const { return focused_; }
  /// To the first control that can take the keyboard, or to the next one after the focused control,
  /// round the window's end: what Tab does.
  void FocusFirst();
  void FocusNext();

  /// What is being typed in this window counts from now on. False where something of it is nothing
  /// to go on with; the user has been told then.
  bool CommitTyping();
  /// The same for all windows whose inputs a command of this one may use.
  virtual bool CommitInputs() { return CommitTyping(); }

  Event<> MouseMove;       ///< the pointer moved over the bare window or one of its frames
  Event<> CloseRequested;  ///< the user wants the window closed
  Event<> Activated;       ///< the user turned to this window
  Event<> HelpRequested;   ///< the user pressed F1 in this window

  /// For views only.
  Event<> CaptionChanged;
  Event<> BusyChanged;
  Event<> FocusMoved;

 private:
  friend class Control;
  void Add(Control& control) { controls_.push_back(&control); }
  void MoveFocus(Control& control);
  void LeaveFocusIfClosed();
  bool FocusFrom(std::size_t first);

  std::string name_;
  WindowKind kind_;
  EventLoop& event_loop_;
  std::string caption_;
  bool busy_ = false;
  bool closes_by_esc_ = false;
  std::vector<Control*> controls_;
  Control* focused_ = nullptr;
};

}  // namespace velta::ui
