#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "app/form.h"
#include "app/program.h"
#include "tests/scenario/value.h"
#include "ui/clipboard.h"
#include "ui/controls.h"
#include "ui/date_picker.h"
#include "ui/event_loop.h"
#include "ui/message_box.h"
#include "ui/window_system.h"

namespace velta::scenario {

/// The user of one platform: supplies what of the platform the user sees, does what the user does
/// and reads what the user reads.
///
/// An act returns false where the user could not do it because the control is disabled or hidden.
/// Acts on a control first bring the keyboard to it where it can take it. What the program has
/// asked of the event loop waits until Settle.
class Driver {
 public:
  virtual ~Driver() = default;

  virtual ui::MessageBox& message_box() = 0;
  virtual ui::Clipboard& clipboard() = 0;
  virtual ui::EventLoop& event_loop() = 0;
  virtual ui::WindowSystem& window_system() = 0;

  /// The program that starts now; null before it goes.
  void SetProgram(Program* program) { program_ = program; }

  /// Runs the event loop until nothing is pending but what waits for a later time.
  virtual void Settle() = 0;

  /// Chooses an item of the main window's menu.
  virtual bool Choose(ui::MenuItem& item) = 0;
  virtual bool Click(ui::Button& button) = 0;
  /// Types at the end of the text, key by key; "\r" is Enter, "\t" the Tab key. After a key that
  /// moves the keyboard the rest goes to where it is then; what takes no text drops it, but a
  /// button takes Enter for a click. `input` is a text box or an editable drop-down list.
  virtual bool Type(ui::Control& input, std::string_view text) = 0;
  /// Replaces the whole text in one change.
  virtual bool Paste(ui::Control& input, std::string_view text) = 0;
  /// False too where there is no such row.
  virtual bool Pick(ui::ListControl& list, int index) = 0;
  virtual bool Pick(ui::OptionButton& option) = 0;
  /// Types over the whole date, key by key, and leaves the keyboard there; "\r" at the end is
  /// Enter.
  virtual bool TypeDate(ui::DatePicker& picker, std::string_view text) = 0;
  virtual bool PickDay(ui::DatePicker& picker, std::chrono::sys_days day) = 0;
  /// False too where the control never takes the keyboard.
  virtual bool Focus(ui::Control& control) = 0;
  /// A disabled control lets the pointer through to what lies behind it.
  virtual bool Hover(ui::Control& control) = 0;
  virtual void Hover(ui::Window& window) = 0;
  virtual void Close(ui::Window& window) = 0;

  /// `property` is one of those that the scenario's language knows for the control's kind, but
  /// "items".
  virtual Value Get(ui::Control& control, const Property& property) = 0;
  virtual Value Get(ui::Window& window, const Property& property) = 0;

  virtual std::string ClipboardText() const = 0;
  virtual void SetClipboardFails(bool fails) = 0;

  /// Called while a message box is open, with its icon, caption and text as the user sees them; but
  /// the text has the line ends that the program wrote.
  std::function<void(ui::Icon, const std::string& caption, const std::string& text)> on_message;

 protected:
  Windows& windows() const { return program_->windows; }

  Program* program_ = nullptr;
};

std::unique_ptr<Driver> MakeMemoryDriver();

}  // namespace velta::scenario
