#include "app/form.h"

#include "app/modPromenne.h"

namespace velta {

namespace {

/// The prefix of a window's own event procedures: the main window is a multiple-document frame.
const char* EventPrefix(ui::WindowKind kind) {
  return kind == ui::WindowKind::kMain ? "MDIForm_" : "Form_";
}

}  // namespace

Form::Form(Program& program, std::string name, ui::WindowKind kind)
    : ui::Window(std::move(name), kind, program.platform.event_loop),
      program_(program),
      unit_(this->name() + ".frm"),
      event_prefix_(EventPrefix(kind)) {
  On(MouseMove, event_prefix_ + "MouseMove", [this] { program_.status.ClearHint(); });
  On(HelpRequested, event_prefix_ + "KeyDown",
     [this] { OpenHelp(program_.platform, help_topic()); });
}

void Form::Load() {
  Guarded(event_prefix_ + "Load", [this] { OnLoad(); });
}

void Form::Unload() {
  Guarded(event_prefix_ + "Unload", [this] { OnUnload(); });
  program_.status.ClearHint();
}

std::string Form::Procedure(const ui::Control& control, const char* event) {
  return control.array() + event;
}

void Form::FocusHint(ui::Control& control, std::string text) {
  On(control.GotFocus, Procedure(control, "_GotFocus"),
     [this, text = std::move(text)] { program_.status.ShowHint(text); });
}

void Form::PointerHint(ui::Control& control, std::string text) {
  On(control.MouseMove, Procedure(control, "_MouseMove"),
     [this, text = std::move(text)] { program_.status.ShowHint(text); });
}

void Form::Hint(ui::Control& control, const std::string& text) {
  FocusHint(control, text);
  PointerHint(control, text);
}

void Form::SurfaceHint(ui::Control& control) { PointerHint(control, StatusLine::kIdle); }

bool Form::EnterMovesOn(ui::KeyPress& key) {
  if (key.text != "\r") return false;
  key.text.clear();
  FocusNext();
  return true;
}

void Form::TypeDecimal(ui::KeyPress& key) const {
  key.text = DecimalKey(key.text, program_.platform.locale);
}

void Form::Message(ui::Icon icon, std::string_view text) const {
  program_.platform.message_box.Show(icon, kTitle, text);
}

void Form::Close() { program_.windows.Unload(name()); }

}  // namespace velta
