#include "ui/controls.h"

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

Control::Control(Window& window, std::string name) : window_(window), name_(std::move(name)) {
  window_.Add(*this);
}

void Control::SetEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  if (!enabled) window_.LeaveFocus(*this);
  Updated.Raise(Aspect::kEnabled);
}

void Control::SetVisible(bool visible) {
  if (visible == visible_) return;
  visible_ = visible;
  if (!visible) window_.LeaveFocus(*this);
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

bool Button::UserClick() {
  if (!open_to_user()) return false;
  Click.Raise();
  return true;
}

bool MenuItem::UserClick() {
  if (!open_to_user()) return false;
  Click.Raise();
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

void DropDown::AddItem(std::string text) {
  items_.push_back(std::move(text));
  Updated.Raise(Aspect::kItems);
}

std::string DropDown::text() const {
  return index_ < 0 ? std::string() : items_[static_cast<std::size_t>(index_)];
}

void DropDown::SetIndex(int index) {
  if (index == index_) return;
  index_ = index;
  Updated.Raise(Aspect::kValue);
  Change.Raise();
}

bool DropDown::UserPick(int index) {
  if (!open_to_user()) return false;
  SetIndex(index);
  return true;
}

void DatePicker::SetDay(Day day) {
  if (day == day_ || day < kFirst || day > kLast) return;
  day_ = day;
  Updated.Raise(Aspect::kValue);
  Change.Raise();
}

bool DatePicker::UserPick(Day day) {
  if (!open_to_user()) return false;
  SetDay(day);
  return true;
}

TimerControl::TimerControl(Window& window, std::string name, Timer::Kind kind,
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
