#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/form.h"
#include "app/program.h"
#include "tests/support/day.h"
#include "ui/memory/memory_platform.h"
#include "windows/settings/settings.h"

namespace velta {

/// Stands for a window that is not part of a test.
class OtherWindow final : public Form {
 public:
  OtherWindow(Program& program, const std::string& name, std::function<void()> on_unload = {})
      : Form(program, name), on_unload_(std::move(on_unload)) {}

 private:
  void OnLoad() override {}
  void OnUnload() override {
    if (on_unload_) on_unload_();
  }
  std::function<void()> on_unload_;
};

/// The ground for the test of a window: a program on a platform in memory, with the supplied rate
/// files, a status line and settings, and without rounding.
class ProgramTest : public ::testing::Test {
 protected:
  ProgramTest() {
    memory_.program_folder.path = VELTA_SOURCE_DIR "/data";
    program_.status.Attach(&lblMSG_);
    SetRounding("NE");
  }

  void SetRounding(const std::string& word) {
    ASSERT_TRUE(memory_.settings_store.Write("velta", "Settings", "Zaokrouhlit", word));
    settings_.LoadProgramSettings();
  }

  /// Lets the program know a window that stands for the real one.
  void RegisterOther(const std::string& name, const std::function<void()>& on_unload = {}) {
    windows().Register(name, [this, name, on_unload] {
      return std::make_unique<OtherWindow>(program_, name, on_unload);
    });
  }

  /// The open window of that name, as what it is.
  template <class F>
  F& Opened(const std::string& name) {
    windows().Open(name);
    return dynamic_cast<F&>(*windows().Find(name));
  }

  /// The texts of the message boxes since the last call.
  std::vector<std::string> Shown() {
    std::vector<std::string> texts;
    for (const auto& box : memory_.message_box.shown) texts.push_back(box.text);
    memory_.message_box.shown.clear();
    return texts;
  }

  const std::string& HintText() const { return lblMSG_.caption(); }
  Windows& windows() { return program_.windows; }
  CalculationState& state() { return program_.state; }

  ui::MemoryPlatform memory_;
  ui::Window strip_{"strip", ui::WindowKind::kMain, memory_.event_loop};
  ui::Label lblMSG_{strip_, "lblMSG"};
  Program program_{memory_.platform(), {}};
  Settings settings_{program_.platform, program_.errors};
};

}  // namespace velta
