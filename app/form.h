#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "app/help.h"
#include "app/program.h"
#include "ui/controls.h"
#include "ui/date_picker.h"
#include "ui/window.h"

namespace velta {

/// What every window of the program is built on: its controls are members under the system's names,
/// and its constructor wires their events through OnClick, Hint and their like, which lay the error
/// trap under every handler. What happens when the window opens and closes, and may fail, is in
/// OnLoad and OnUnload.
class Form : public ui::Window {
 public:
  /// Runs OnLoad, respectively OnUnload, under the trap. These are called by Windows only.
  void Load();
  void Unload();
  void OpenedAgain() { OnOpenedAgain(); }

  /// A command such as those of the menu uses what is entered in other windows.
  bool CommitInputs() override { return program_.windows.CommitTyping(); }

 protected:
  Form(Program& program, std::string name, ui::WindowKind kind = ui::WindowKind::kChild);

  virtual void OnLoad() = 0;
  virtual void OnUnload() {}
  /// Somebody opens the window while it is open already. What fails is the caller's error.
  virtual void OnOpenedAgain() {}
  /// The page of the help that F1 opens; none: its contents.
  virtual std::optional<HelpTopic> help_topic() const { return std::nullopt; }

  /// Run `handler` under the trap whenever the control's event is raised; the procedure in the
  /// report is the control's name and the event's: "cmdNovy_Click". The elements of an array share
  /// theirs.
  template <class C, class Handler>
  void OnClick(C& control, Handler handler) {
    On(control.Click, Procedure(control, "_Click"), std::move(handler));
  }
  template <class Handler>
  void OnClickAgain(ui::OptionButton& option, Handler handler) {
    On(option.ClickAgain, Procedure(option, "_Click"), std::move(handler));
  }
  template <class C, class Handler>
  void OnChange(C& control, Handler handler) {
    On(control.Change, Procedure(control, "_Change"), std::move(handler));
  }
  template <class Handler>
  void OnKeyPress(ui::TextBox& box, Handler handler) {
    On(box.KeyPress, Procedure(box, "_KeyPress"), std::move(handler));
  }
  template <class Handler>
  void OnMistyped(ui::DatePicker& picker, Handler handler) {
    On(picker.Mistyped, Procedure(picker, "_Mistyped"), std::move(handler));
  }
  template <class Handler>
  void OnTimer(ui::TimerControl& timer, Handler handler) {
    On(timer.Tick, Procedure(timer, "_Timer"), std::move(handler));
  }

  /// The trap for a routine that others call under its own name. Returns whether it ran to its end.
  template <class Body>
  bool Guarded(std::string_view procedure, Body&& body) {
    return program_.errors.Trap(procedure, unit_, std::forward<Body>(body));
  }

  /// The status-line text of a control: when it gets the focus, when the pointer moves over it, or
  /// both.
  void FocusHint(ui::Control& control, std::string text);
  void PointerHint(ui::Control& control, std::string text);
  void Hint(ui::Control& control, const std::string& text);
  /// The control is bare surface: the pointer over it clears the status line.
  void SurfaceHint(ui::Control& control);

  /// Enter in a box of one line moves on like Tab: swallows that key and returns true.
  bool EnterMovesOn(ui::KeyPress& key);
  /// In a box for numbers "." and "," are the user's own decimal separator.
  void TypeDecimal(ui::KeyPress& key) const;

  /// The modal box with the program's title.
  void Message(ui::Icon icon, std::string_view text) const;

  Date Today() const { return program_.platform.clock.Now().day; }

  /// Asks to be unloaded, as the close button does.
  void Close();

  Program& program_;

 private:
  static std::string Procedure(const ui::Control& control, const char* event);
  template <class... Args, class Handler>
  void On(ui::Event<Args...>& event, std::string procedure, Handler handler) {
    event.Connect([this, procedure = std::move(procedure), handler = std::move(handler)](
                      Args... args) { Guarded(procedure, [&] { handler(args...); }); });
  }

  std::string unit_;
  std::string event_prefix_;
};

}  // namespace velta
