#include "shell/common/form.h"

namespace velta {

namespace {

/// The prefix of a window's own event procedures: the main window is a multiple-document frame.
const char* EventPrefix(ui::WindowKind kind) {
  return kind == ui::WindowKind::kMain ? "MDIForm_" : "Form_";
}

/// The elements of a control array share their procedures: "txtFaktura(3)" has
/// "txtFaktura_GotFocus".
std::string ProcedureBase(const ui::Control& control) {
  return control.name().substr(0, control.name().find('('));
}

}  // namespace

Form::Form(Program& program, std::string name, ui::WindowKind kind)
    : ui::Window(std::move(name), kind, program.platform.event_loop),
      program_(program),
      unit_(this->name() + ".frm"),
      event_prefix_(EventPrefix(kind)) {
  On(MouseMove, event_prefix_ + "MouseMove", [this] { program_.status.ClearHint(); });
}

void Form::Load() {
  Guarded(event_prefix_ + "Load", [this] { OnLoad(); });
}

void Form::Unload() {
  Guarded(event_prefix_ + "Unload", [this] { OnUnload(); });
  program_.status.ClearHint();
}

void Form::Hints(ui::Control& control, std::optional<std::string> on_focus,
                 std::optional<std::string> on_pointer) {
  const auto wire = [&](ui::Event<>& event, const char* suffix, std::optional<std::string> text) {
    if (!text) return;
    On(event, ProcedureBase(control) + suffix,
       [this, text = *std::move(text)] { program_.status.ShowHint(text); });
  };
  wire(control.GotFocus, "_GotFocus", std::move(on_focus));
  wire(control.MouseMove, "_MouseMove", std::move(on_pointer));
}

void Form::SurfaceHint(ui::Frame& frame) { Hints(frame, std::nullopt, StatusLine::kIdle); }

bool Form::EnterMovesOn(ui::KeyPress& key) {
  if (key.text != "\r") return false;
  key.text.clear();
  FocusNext();
  return true;
}

void Form::Message(ui::Icon icon, std::string_view text) const {
  program_.platform.message_box.Show(icon, kTitle, text);
}

void Form::Close() { program_.windows.Unload(name()); }

}  // namespace velta
