#include "ui/controls.h"

#include <algorithm>

#include "ui/window.h"

namespace velta::ui {

namespace {

/// What a box of one line makes of a copied cell or paragraph: line ends at its end go, others
/// become blanks.
std::string OneLine(std::string_view text) {
  while (text.ends_with('\n') || text.ends_with('\r')) text.remove_suffix(1);
  std::string line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n' && i > 0 && text[i - 1] == '\r') continue;
    line += text[i] == '\r' || text[i] == '\n' ? ' ' : text[i];
  }
  return line;
}

}  // namespace

Control::Control(Window& window, ControlName name)
    : window_(window),
      array_name_(std::move(name)),
      name_(array() + (array_index() ? "(" + std::to_string(*array_index()) + ")" : "")) {
  window_.Add(*this);
}

void Control::SetEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  window_.LeaveFocusIfClosed();
  Updated.Raise(Aspect::kEnabled);
}

bool Control::visible() const { return shown_ && (container_ == nullptr || container_->visible()); }

void Control::SetVisible(bool visible) {
  if (visible == shown_) return;
  shown_ = visible;
  window_.LeaveFocusIfClosed();
  Updated.Raise(Aspect::kVisible);
}

void Control::SetBackground(Background background) {
  if (background == background_) return;
  background_ = background;
  Updated.Raise(Aspect::kBackground);
}

void Control::SetToolTip(std::string text) {
  if (text == tool_tip_) return;
  tool_tip_ = std::move(text);
  Updated.Raise(Aspect::kToolTip);
}

void Control::SetFocus() {
  if (CanTakeFocus()) window_.MoveFocus(*this);
}

bool Control::UserHover() {
  if (!open_to_user()) return false;
  MouseMove.Raise();
  return true;
}

void CaptionedControl::SetCaption(std::string caption) {
  if (caption == caption_) return;
  caption_ = std::move(caption);
  Updated.Raise(Aspect::kCaption);
}

void Frame::Hold(std::initializer_list<Control*> controls) {
  for (Control* control : controls) control->container_ = this;
}

bool Command::UserClick() {
  if (!open_to_user()) return false;
  if (uses_inputs_ && !window().CommitInputs()) return true;
  if (open_to_user()) Click.Raise();  // a commit may close it
  return true;
}

void TextBox::SetText(std::string_view text) {
  if (text == text_) return;
  text_ = text;
  Updated.Raise(Aspect::kValue);
  Change.Raise();
}

void TextBox::Append(std::string_view text) {
  if (text.empty()) return;
  text_ += text;
  Appended.Raise(text);
  Change.Raise();
}

void TextBox::SetPlaceholder(std::string text) {
  if (text == placeholder_) return;
  placeholder_ = std::move(text);
  Updated.Raise(Aspect::kPlaceholder);
}

bool TextBox::UserKey(ui::KeyPress& key) {
  if (!open_to_user() || read_only_) return false;
  KeyPress.Raise(key);
  return true;
}

bool TextBox::UserEdit(std::string_view text) {
  if (!open_to_user() || read_only_) return false;
  SetText(OneLine(text));
  return true;
}

void ListControl::AddItem(std::string text) {
  items_.push_back(std::move(text));
  Updated.Raise(Aspect::kItems);
}

bool ListControl::UserPick(int index) {
  if (!open_to_user()) return false;
  SetIndex(index);
  return true;
}

void DropDown::SetText(std::string_view text) {
  if (text == text_) return;
  text_ = text;
  const auto item = std::find(items_.begin(), items_.end(), text_);
  index_ = item == items_.end() ? -1 : static_cast<int>(item - items_.begin());
  Updated.Raise(Aspect::kValue);
  Change.Raise();
}

void DropDown::SetIndex(int index) {
  SetText(index < 0 ? std::string() : items_[static_cast<std::size_t>(index)]);
}

bool DropDown::UserEdit(std::string_view text) {
  if (!open_to_user() || !editable_) return false;
  SetText(OneLine(text));
  return true;
}

void ListBox::SetIndex(int index) {
  if (index == index_) return;
  index_ = index;
  Updated.Raise(Aspect::kValue);
  Change.Raise();
}

void ListBox::Clear() {
  items_.clear();
  index_ = -1;
  Updated.Raise(Aspect::kItems);
}

void OptionButton::Choose() {
  if (value_) return;
  for (OptionButton* option : Group()) {
    const bool chosen = option == this;
    if (option->value_ == chosen) continue;
    option->value_ = chosen;
    option->Updated.Raise(Aspect::kValue);
  }
}

bool OptionButton::UserClick() {
  if (!open_to_user()) return false;
  if (value_) {
    ClickAgain.Raise();
    return true;
  }
  Choose();
  Click.Raise();
  return true;
}

bool OptionButton::passed_by_tab() const {
  const std::vector<OptionButton*> group = Group();
  const auto chosen =
      std::find_if(group.begin(), group.end(), [](const auto* option) { return option->value_; });
  return this != (chosen == group.end() ? group.front() : *chosen);
}

std::vector<OptionButton*> OptionButton::Group() const {
  std::vector<OptionButton*> group;
  for (Control* control : window().controls()) {
    if (control->array() != array()) continue;
    if (auto* option = dynamic_cast<OptionButton*>(control)) group.push_back(option);
  }
  return group;
}

TimerControl::TimerControl(Window& window, ControlName name, Timer::Kind kind,
                           std::chrono::milliseconds interval)
    : Control(window, std::move(name)), timer_(window.event_loop(), kind, interval) {
  Control::SetEnabled(false);
  timer_.Tick.Connect([this] {
    Control::SetEnabled(timer_.armed());
    Tick.Raise();
  });
}

void TimerControl::SetEnabled(bool enabled) {
  if (enabled == this->enabled()) return;
  Control::SetEnabled(enabled);
  if (enabled) {
    timer_.Arm();
  } else {
    timer_.Disarm();
  }
}

}  // namespace velta::ui
