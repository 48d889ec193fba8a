#include "tests/scenario/driver.h"
#include "ui/memory/memory_platform.h"

namespace velta::scenario {

namespace {

/// The first character of a text in UTF-8, taken off its front.
std::string_view TakeCharacter(std::string_view& text) {
  std::size_t size = 1;
  while (size < text.size() && (static_cast<unsigned char>(text[size]) & 0xC0U) == 0x80U) ++size;
  const std::string_view character = text.substr(0, size);
  text.remove_prefix(size);
  return character;
}

/// Whether it is a control character, such as U+0085: no key types one.
bool IsControl(std::string_view character) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(character[i]); };
  if (character.size() == 1) return byte(0) < 0x20 || byte(0) == 0x7F;
  return character.size() == 2 && byte(0) == 0xC2 && byte(1) < 0xA0;
}

/// Acts on the models themselves and reads them.
class MemoryDriver final : public Driver {
 public:
  MemoryDriver() {
    message_box_.on_show = [this](const ui::MemoryMessageBox::Shown& shown) {
      if (on_message) on_message(shown.icon, shown.caption, shown.text);
    };
  }

  ui::MessageBox& message_box() override { return message_box_; }
  ui::Clipboard& clipboard() override { return clipboard_; }
  ui::EventLoop& event_loop() override { return event_loop_; }
  ui::WindowSystem& window_system() override { return window_system_; }

  void Settle() override { event_loop_.RunUntilIdle(); }

  bool Choose(ui::MenuItem& item) override { return item.UserClick(); }

  bool Click(ui::Button& button) override {
    if (!IsOpenToUser(button)) return false;
    window_system_.button_goes_down = true;
    MoveFocus(button);
    window_system_.button_goes_down = false;
    button.UserClick();
    GoOnTyping();
    return true;
  }

  bool Type(ui::Control& input, std::string_view text) override {
    if (!IsOpenToUser(input)) return false;
    MoveFocus(input);
    while (!text.empty()) PressKey(TakeCharacter(text));
    return true;
  }

  bool Paste(ui::Control& input, std::string_view text) override {
    if (!IsOpenToUser(input)) return false;
    MoveFocus(input);
    if (auto* const box = dynamic_cast<ui::TextBox*>(&input)) box->UserEdit(text);
    if (auto* const list = dynamic_cast<ui::DropDown*>(&input)) list->UserEdit(text);
    return true;
  }

  bool Pick(ui::ListControl& list, int index) override {
    if (!IsOpenToUser(list) || index >= static_cast<int>(list.items().size())) return false;
    MoveFocus(list);
    list.UserPick(index);
    return true;
  }

  bool Pick(ui::OptionButton& option) override {
    if (!IsOpenToUser(option)) return false;
    MoveFocus(option);
    if (!option.value()) option.UserClick();
    return true;
  }

  bool TypeDate(ui::DatePicker& picker, std::string_view text) override {
    if (!IsOpenToUser(picker)) return false;
    MoveFocus(picker);
    std::string typed;
    picker.UserEdit(typed);
    while (!text.empty()) {
      const std::string_view character = TakeCharacter(text);
      if (!IsControl(character)) typed += character;
      picker.UserEdit(typed);
      if (character == "\r") picker.UserCommit();
    }
    return true;
  }

  bool PickDay(ui::DatePicker& picker, std::chrono::sys_days day) override {
    if (!IsOpenToUser(picker)) return false;
    MoveFocus(picker);
    picker.UserPick(day);
    return true;
  }

  bool Focus(ui::Control& control) override {
    if (!control.CanTakeFocus()) return false;
    MoveFocus(control);
    return true;
  }

  bool Hover(ui::Control& control) override {
    if (!control.visible()) return false;
    if (dynamic_cast<const ui::MenuItem*>(&control) != nullptr) return true;  // menus have no hints
    if (!control.UserHover()) control.window().MouseMove.Raise();
    return true;
  }

  void Hover(ui::Window& window) override { window.MouseMove.Raise(); }

  void Close(ui::Window& window) override { window.CloseRequested.Raise(); }

  Value Get(ui::Control& control, const Property& property) override;

  Value Get(ui::Window& window, const Property& property) override {
    if (property.name == "caption") return Value::Text(window.caption());
    return Value::Truth(property.name != "focused" || windows().active() == &window);
  }

  std::string ClipboardText() const override { return clipboard_.text; }
  void SetClipboardFails(bool fails) override { clipboard_.fails = fails; }

 private:
  static bool IsOpenToUser(const ui::Control& control) {
    return control.enabled() && control.visible();
  }

  /// The date that is being typed; null where none is.
  ui::DatePicker* TypedDate() const {
    for (const std::string& name : windows().names()) {
      const Form* const form = windows().Find(name);
      if (form == nullptr) continue;
      for (ui::Control* const control : form->controls()) {
        auto* const date = dynamic_cast<ui::DatePicker*>(control);
        if (date != nullptr && date->IsBeingTyped()) return date;
      }
    }
    return nullptr;
  }

  /// After a click: where it came to a command that leaves the typing alone, typing goes on; where
  /// the keyboard has gone to another window, the date is left.
  void GoOnTyping() {
    ui::DatePicker* const date = TypedDate();
    ui::Control* const focused = FocusedControl();
    if (date == nullptr || focused == date) return;
    if (dynamic_cast<ui::Button*>(focused) != nullptr && &focused->window() == &date->window()) {
      date->SetFocus();
    } else {
      date->UserCommit();
    }
  }

  void MoveFocus(ui::Control& control) {
    if (!control.CanTakeFocus()) return;
    // In a window that lies below others the keyboard comes straight to the control, not by way of
    // the one that had it before.
    control.SetFocus();
    if (Form* form = windows().Find(control.window().name())) windows().Activate(*form);
  }

  ui::Control* FocusedControl() const {
    const Form* active = windows().active();
    return active == nullptr ? nullptr : active->focused();
  }

  void PressKey(std::string_view character) {
    ui::Control* const focused = FocusedControl();
    if (focused == nullptr) return;
    if (character == "\t") {
      focused->window().FocusNext();
      return;
    }
    if (character != "\r" && IsControl(character)) return;
    if (auto* const button = dynamic_cast<ui::Button*>(focused)) {
      if (character == "\r") button->UserClick();
      return;
    }
    if (auto* const list = dynamic_cast<ui::DropDown*>(focused)) {
      if (character != "\r") list->UserEdit(list->text() + std::string(character));
      return;
    }
    auto* const box = dynamic_cast<ui::TextBox*>(focused);
    ui::KeyPress key{std::string(character)};
    if (box == nullptr || !box->UserKey(key) || key.text.empty() || key.text == "\r") return;
    box->UserEdit(box->text() + key.text);
  }

  ui::MemoryMessageBox message_box_;
  ui::MemoryClipboard clipboard_;
  ui::MemoryEventLoop event_loop_;
  ui::MemoryWindowSystem window_system_;
};

/// Reads what only some kinds of controls have.
class ValueReader final : public ui::ControlVisitor {
 public:
  explicit ValueReader(const Property& property) : property_(property) {}

  void Visit(ui::Button& control) override { ReadCaption(control); }
  void Visit(ui::DatePicker& control) override {
    value = property_.name == "text" ? Value::Text(control.text()) : Value::Day(control.day());
  }
  void Visit(ui::DropDown& control) override {
    ReadRows(control);
    if (property_.name == "text") value = Value::Text(control.text());
  }
  void Visit(ui::Frame& control) override { ReadCaption(control); }
  void Visit(ui::Label& control) override { ReadCaption(control); }
  void Visit(ui::ListBox& control) override { ReadRows(control); }
  void Visit(ui::MenuItem& control) override { ReadCaption(control); }
  void Visit(ui::OptionButton& control) override {
    ReadCaption(control);
    if (property_.name == "value") value = Value::Truth(control.value());
  }
  void Visit(ui::TextBox& control) override {
    value = Value::Text(property_.name == "placeholder" ? control.placeholder() : control.text());
  }
  void Visit(ui::TimerControl&) override {}

  Value value = Value::Bare("unset");  // an item past the last one

 private:
  void ReadCaption(const ui::CaptionedControl& control) { value = Value::Text(control.caption()); }

  void ReadRows(const ui::ListControl& control) {
    const std::vector<std::string>& items = control.items();
    const auto index = static_cast<std::size_t>(property_.index);
    if (property_.name == "index") value = Value::Number(control.index());
    if (property_.name == "count") value = Value::Number(static_cast<int>(items.size()));
    if (property_.name == "item" && index < items.size()) value = Value::Text(items[index]);
  }

  const Property& property_;
};

Value MemoryDriver::Get(ui::Control& control, const Property& property) {
  if (property.name == "enabled") return Value::Truth(control.enabled());
  if (property.name == "visible") return Value::Truth(control.visible());
  if (property.name == "focused") return Value::Truth(FocusedControl() == &control);
  if (property.name == "tooltip") return Value::Text(control.tool_tip());
  if (property.name == "background") {
    return Value::Text(control.background() == ui::Background::kFace ? "face" : "window");
  }
  ValueReader reader(property);
  control.Accept(reader);
  return reader.value;
}

}  // namespace

std::unique_ptr<Driver> MakeMemoryDriver() { return std::make_unique<MemoryDriver>(); }

}  // namespace velta::scenario
