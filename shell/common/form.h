#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "shell/common/program.h"
#include "ui/controls.h"
#include "ui/window.h"

namespace velta {

/// What every window of the program is built on: its controls are members under the system's names,
/// and its constructor wires their events through On and Hints, which lay the error trap under
/// every handler. The constructor touches nothing else; what happens when the window opens and
/// closes is in OnLoad and OnUnload.
class Form : public ui::Window {
 public:
  /// Runs OnLoad, respectively OnUnload, under the trap. Called by Windows only.
  void Load();
  void Unload();

 protected:
  Form(Program& program, std::string name, ui::WindowKind kind = ui::WindowKind::kChild);

  virtual void OnLoad() = 0;
  virtual void OnUnload() {}

  /// Runs `handler` under the trap, as `procedure`, whenever the event is raised.
  template <class... Args, class Handler>
  void On(ui::Event<Args...>& event, std::string procedure, Handler handler) {
    event.Connect([this, procedure = std::move(procedure), handler = std::move(handler)](
                      Args... args) { Guarded(procedure, [&] { handler(args...); }); });
  }

  /// The trap for a routine that others call under its own name. Returns whether it ran to its end.
  template <class Body>
  bool Guarded(std::string_view procedure, Body&& body) {
    return program_.errors.Trap(procedure, unit_, std::forward<Body>(body));
  }

  /// The status-line texts of a control: on focus and on pointer move; nullopt leaves the line
  /// alone.
  void Hints(ui::Control& control, std::optional<std::string> on_focus,
             std::optional<std::string> on_pointer);

  /// A frame of the window is bare surface: the pointer over it clears the status line.
  void SurfaceHint(ui::Frame& frame);

  /// Enter in a box of one line moves on like Tab: swallows that key and returns true.
  bool EnterMovesOn(ui::KeyPress& key);

  /// The modal box with the program's title.
  void Message(ui::Icon icon, std::string_view text) const;

  Date Today() const { return program_.platform.clock.Now().day; }

  /// Asks to be unloaded, as the close button does.
  void Close();

  Program& program_;

 private:
  std::string unit_;
  std::string event_prefix_;
};

}  // namespace velta
