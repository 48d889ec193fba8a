#include "tests/scenario/program_names.h"

#include <memory>

#include "shell/velta.h"
#include "ui/controls.h"
#include "ui/memory/memory_platform.h"
#include "ui/window.h"

namespace velta::scenario {

namespace {

class KindVisitor final : public ui::ControlVisitor {
 public:
  void Visit(ui::Button&) override { kind = Kind::kButton; }
  void Visit(ui::DatePicker&) override { kind = Kind::kDatePicker; }
  void Visit(ui::DropDown& control) override {
    kind = control.editable() ? Kind::kEditableDropDown : Kind::kDropDown;
  }
  void Visit(ui::Frame&) override { kind = Kind::kFrame; }
  void Visit(ui::Label&) override { kind = Kind::kLabel; }
  void Visit(ui::ListBox&) override { kind = Kind::kListBox; }
  void Visit(ui::MenuItem&) override { kind = Kind::kMenuItem; }
  void Visit(ui::OptionButton&) override { kind = Kind::kOptionButton; }
  void Visit(ui::TextBox&) override { kind = Kind::kTextBox; }
  void Visit(ui::TimerControl&) override { kind = Kind::kTimer; }

  Kind kind = Kind::kLabel;
};

Kind KindOf(ui::Control& control) {
  KindVisitor visitor;
  control.Accept(visitor);
  return visitor.kind;
}

/// Notes the controls of each window that wants to be seen.
class NameCollector final : public ui::WindowSystem {
 public:
  std::unique_ptr<ui::WindowView> CreateView(ui::Window& window) override {
    for (ui::Control* control : window.controls()) {
      names[window.name()][control->name()] = KindOf(*control);
    }
    return windows_.CreateView(window);
  }

  Names names;

 private:
  ui::MemoryWindowSystem windows_;
};

}  // namespace

Names ProgramNames() {
  ui::MemoryPlatform memory;
  NameCollector collector;
  Velta velta(memory.platform(collector), ProgramInfo{});
  Windows& windows = velta.program().windows;
  for (const std::string& name : windows.names()) windows.Open(name);
  // What the program asks for by name but does not have yet is never open; a scenario may say so.
  for (const char* coming : {"frmPostupny", "frmFaktura"}) {
    collector.names.try_emplace(coming);
  }
  return std::move(collector.names);
}

}  // namespace velta::scenario
