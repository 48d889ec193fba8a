#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ui/event.h"
#include "ui/timer.h"

/// Control models: what a window's logic knows of its controls. A model has no pixel and no
/// painter; a view listens to `Updated` and writes the user's acts in through the User… functions.
/// For all models:
///  - a setter that changes nothing does nothing; one that changes a text, a date or a choice
///    raises Change once, whether the user or the program set it;
///  - an act of the user on a control that is disabled or hidden does not exist: User… returns
///    false;
///  - events have run to their end when the setter returns.
namespace velta::ui {

class Button;
class DatePicker;
class DropDown;
class Frame;
class Label;
class ListBox;
class MenuItem;
class OptionButton;
class TextBox;
class TimerControl;
class Window;

/// Goes through the controls of a window by their kinds: for views and for tests.
class ControlVisitor {
 public:
  virtual ~ControlVisitor() = default;
  virtual void Visit(Button& control) = 0;
  virtual void Visit(DatePicker& control) = 0;
  virtual void Visit(DropDown& control) = 0;
  virtual void Visit(Frame& control) = 0;
  virtual void Visit(Label& control) = 0;
  virtual void Visit(ListBox& control) = 0;
  virtual void Visit(MenuItem& control) = 0;
  virtual void Visit(OptionButton& control) = 0;
  virtual void Visit(TextBox& control) = 0;
  virtual void Visit(TimerControl& control) = 0;
};

/// What of a control has changed and must be drawn anew.
enum class Aspect {
  kEnabled,
  kVisible,
  kBackground,
  kToolTip,
  kCaption,
  kPlaceholder,
  kValue,
  kItems
};

/// The two backgrounds of an input: the system's colour for windows and the one for button faces.
enum class Background { kWindow, kFace };

/// What a control is called: "txtReport", or {"lblPopis", 3} as an element of an array.
struct ControlName {
  ControlName(const char* name) : array(name) {}
  ControlName(std::string name_of_array, std::size_t index_in_array)
      : array(std::move(name_of_array)), index(index_in_array) {}

  std::string array;  ///< its own name where it stands alone
  std::optional<std::size_t> index;
};

/// What all controls have. A control belongs to a window, in which it announces itself; the order
/// of declaration in the window's class is the reading order and so the tab order.
class Control {
 public:
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  /// The control's name in its window; the elements of an array are "name(0)", "name(1)", …
  const std::string& name() const { return name_; }
  /// The name that the elements of an array share; its own name where it stands alone.
  const std::string& array() const { return array_name_.array; }
  /// Which element of its array it is; none where it stands alone.
  std::optional<std::size_t> array_index() const { return array_name_.index; }
  Window& window() const { return window_; }

  bool enabled() const { return enabled_; }
  virtual void SetEnabled(bool enabled);
  /// Whether the user sees it: it is shown, and so is all that it stands in.
  bool visible() const;
  /// Whether the control itself is shown, wherever it stands.
  bool shown() const { return shown_; }
  void SetVisible(bool visible);
  Background background() const { return background_; }
  void SetBackground(Background background);
  const std::string& tool_tip() const { return tool_tip_; }
  void SetToolTip(std::string text);

  /// True where the keyboard can come to the control now.
  bool CanTakeFocus() const { return takes_focus() && open_to_user(); }
  /// True where Tab stops now. In a group of options that is the chosen one only, or the first
  /// while none is chosen.
  bool IsTabStop() const { return CanTakeFocus() && !passed_by_tab(); }
  /// Moves the keyboard here; nothing happens where the control can't take it or already has it.
  void SetFocus();

  /// The pointer moved over the control. False (and no event) on a disabled or hidden one: the
  /// pointer is then over what lies behind.
  bool UserHover();

  /// A command is about to use what the user enters here: what he is still typing counts now.
  /// False where that is nothing to go on with; he has been told then.
  virtual bool CommitTyping() { return true; }

  virtual void Accept(ControlVisitor& visitor) = 0;

  Event<> GotFocus;
  Event<> MouseMove;
  Event<Aspect> Updated;  ///< for views only

 protected:
  Control(Window& window, ControlName name);

  virtual bool takes_focus() const { return false; }
  virtual bool passed_by_tab() const { return false; }
  bool open_to_user() const { return enabled_ && visible(); }

 private:
  friend class Frame;

  Window& window_;
  ControlName array_name_;
  std::string name_;
  const Control* container_ = nullptr;
  bool enabled_ = true;
  bool shown_ = true;
  Background background_ = Background::kWindow;
  std::string tool_tip_;
};

/// The indexed controls of one name: ControlArray<Label, 3>(*this, "lblPopis") makes "lblPopis(0)"
/// to "lblPopis(2)".
template <class C, std::size_t... I>
std::array<C, sizeof...(I)> MakeControlArray(Window& window, const std::string& name,
                                             std::index_sequence<I...> /*indexes*/) {
  return {{C(window, {name, I})...}};
}
template <class C, std::size_t kCount>
std::array<C, kCount> ControlArray(Window& window, const std::string& name) {
  return MakeControlArray<C>(window, name, std::make_index_sequence<kCount>());
}

/// A control that shows a caption. "&" marks an access key where the platform has them for that
/// kind.
class CaptionedControl : public Control {
 public:
  const std::string& caption() const { return caption_; }
  void SetCaption(std::string caption);

 protected:
  using Control::Control;

 private:
  std::string caption_;
};

/// A fixed or computed text.
class Label final : public CaptionedControl {
 public:
  Label(Window& window, ControlName name) : CaptionedControl(window, std::move(name)) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
};

/// A titled box around other controls, or a strip or picture that carries some.
class Frame final : public CaptionedControl {
 public:
  Frame(Window& window, ControlName name) : CaptionedControl(window, std::move(name)) {}

  /// The controls stand in this frame and are hidden with it. Needed only where a frame is hidden.
  void Hold(std::initializer_list<Control*> controls);
  template <class C, std::size_t kCount>
  void Hold(std::array<C, kCount>& controls) {
    for (C& control : controls) Hold({&control});
  }

  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
};

/// What the user gives a command with.
class Command : public CaptionedControl {
 public:
  /// The command works on what the user has entered, so a date that is being typed is taken over
  /// first. Others, such as the one for help, leave the typing alone.
  bool uses_inputs() const { return uses_inputs_; }
  void SetUsesInputs() { uses_inputs_ = true; }

  /// Where the command uses inputs that are nothing to go on with, it is not given.
  bool UserClick();

  Event<> Click;

 protected:
  using CaptionedControl::CaptionedControl;

 private:
  bool uses_inputs_ = false;
};

/// A push button.
class Button final : public Command {
 public:
  Button(Window& window, ControlName name) : Command(window, std::move(name)) {}

  /// A toolbar's buttons leave the keyboard where it is.
  void SetTakesFocus(bool takes_focus) { takes_focus_ = takes_focus; }

  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

 protected:
  bool takes_focus() const override { return takes_focus_; }

 private:
  bool takes_focus_ = true;
};

/// An item of the menu bar: a menu, a command or (caption "-") a separating line.
class MenuItem final : public Command {
 public:
  MenuItem(Window& window, ControlName name) : Command(window, std::move(name)) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
};

/// A key that stands for a character, on its way into a text box. A handler may put another text in
/// its place or empty it, which swallows the key. Enter is "\r".
struct KeyPress {
  std::string text;
};

/// A box of text, of one line or (for reports) of many.
class TextBox final : public Control {
 public:
  TextBox(Window& window, ControlName name) : Control(window, std::move(name)) {}

  const std::string& text() const { return text_; }
  void SetText(std::string_view text);
  /// Adds to the end; costs as much as what is added.
  void Append(std::string_view text);

  /// What an empty box shows in grey. It is no part of the text and raises no Change.
  const std::string& placeholder() const { return placeholder_; }
  void SetPlaceholder(std::string text);

  /// A box that shows what the program wrote; the user may only copy from it.
  bool read_only() const { return read_only_; }
  void SetReadOnly() { read_only_ = true; }

  /// Tab stops in dialog units (a quarter of the average character's width each); none: every eight
  /// characters of a fixed-pitch font.
  const std::vector<int>& tab_stops() const { return tab_stops_; }
  void SetTabStops(std::vector<int> stops) { tab_stops_ = std::move(stops); }

  /// The user's key, before it becomes text: what the handlers of KeyPress leave of it is to be
  /// inserted. Enter that is left over inserts nothing in a box of one line.
  bool UserKey(KeyPress& key);
  /// The user changed the whole text at once: by a key, a paste, a deletion. Of pasted lines one is
  /// made: line ends at the end go, others become blanks.
  bool UserEdit(std::string_view text);

  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  Event<> Change;
  Event<ui::KeyPress&> KeyPress;
  Event<std::string_view> Appended;  ///< for views only

 protected:
  bool takes_focus() const override { return true; }

 private:
  std::string text_;
  std::string placeholder_;
  bool read_only_ = false;
  std::vector<int> tab_stops_;
};

/// A control with rows of text, of which one is chosen, or none (index -1).
class ListControl : public Control {
 public:
  const std::vector<std::string>& items() const { return items_; }
  /// Adds a row at the end; costs as much as that row.
  void AddItem(std::string text);

  int index() const { return index_; }
  /// Chooses a row; -1 chooses none. Requires -1 <= index < items().size().
  virtual void SetIndex(int index) = 0;

  bool UserPick(int index);

  Event<> Change;  ///< another row is chosen, or another text typed

 protected:
  using Control::Control;

  bool takes_focus() const override { return true; }

  std::vector<std::string> items_;
  int index_ = -1;
};

/// A drop-down list of different texts. In an editable one any other text may be typed as well.
class DropDown final : public ListControl {
 public:
  DropDown(Window& window, ControlName name) : ListControl(window, std::move(name)) {}

  bool editable() const { return editable_; }
  void SetEditable() { editable_ = true; }

  /// The chosen or the typed text; empty while nothing is chosen.
  const std::string& text() const { return text_; }
  /// The item that equals the text is then the chosen one; where none does, the index is -1.
  void SetText(std::string_view text);
  void SetIndex(int index) override;

  /// The user changed the whole text of an editable list at once, as in a TextBox.
  bool UserEdit(std::string_view text);

  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

 private:
  bool editable_ = false;
  std::string text_;
};

/// A box that shows all its rows.
class ListBox final : public ListControl {
 public:
  ListBox(Window& window, ControlName name) : ListControl(window, std::move(name)) {}

  void SetIndex(int index) override;
  /// Takes all rows away; no Change is raised.
  void Clear();

  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
};

/// One of several options, of which at most one is chosen: those of one array are a group.
class OptionButton final : public CaptionedControl {
 public:
  OptionButton(Window& window, ControlName name) : CaptionedControl(window, std::move(name)) {}

  bool value() const { return value_; }
  /// Chooses this option in place of the one chosen so far; raises no Click.
  void Choose();

  /// The user chooses the option: Click. Where it is the chosen one already: ClickAgain.
  bool UserClick();

  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  Event<> Click;
  Event<> ClickAgain;

 protected:
  bool takes_focus() const override { return true; }
  bool passed_by_tab() const override;

 private:
  std::vector<OptionButton*> Group() const;

  bool value_ = false;
};

/// A window's timer (ui/timer.h) under its name; enabled while it is armed. It dies with its
/// window.
class TimerControl final : public Control {
 public:
  TimerControl(Window& window, ControlName name, Timer::Kind kind = Timer::Kind::kOneShot,
               std::chrono::milliseconds interval = std::chrono::milliseconds(0));

  void SetEnabled(bool enabled) override;
  /// Ticks now, where it is enabled, instead of on its turn.
  void RunNow() { timer_.RunNow(); }
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  Event<> Tick;

 private:
  Timer timer_;
};

}  // namespace velta::ui
