#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <functional>

#include "ui/controls.h"

class QAbstractButton;
class QButtonGroup;
class QFocusEvent;
class QKeyEvent;
class QLineEdit;
class QWidget;

namespace velta::qt {

class DateField;
class HintFilter;

/// Ties the controls of a window's model to the widgets of its form. Each control has the widget of
/// its name, "txtFaktura(3)" the one called "txtFaktura_3"; that one is lacking is an error in the
/// form and ends the program at once. The widgets mirror the model; the user's acts are written
/// into the model, which decides what becomes of them.
class Binder final : public QObject, private ui::ControlVisitor {
 public:
  /// Ties all controls of `window` to the widgets inside `root`, whose child the binder becomes.
  Binder(ui::Window& window, QWidget& root, HintFilter& hints);

  /// Gives the keyboard to the widget of the model's focused control.
  void TakeFocus();
  /// The same after the model's focus has moved: what a box holds is marked as Tab does it, so that
  /// typing replaces it. Where the user led the keyboard there is nothing to follow.
  void FollowFocus();
  /// While held, wherever the keyboard goes is not the user's way.
  void HoldFocus(bool held) { focus_held_ = held; }

  /// From now on the user's acts are no longer written into the model.
  void StopListening();

  static QString WidgetName(const ui::Control& control);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Visit(ui::Button& control) override;
  void Visit(ui::DatePicker& control) override;
  void Visit(ui::DropDown& control) override;
  void Visit(ui::Frame& control) override;
  void Visit(ui::Label& control) override;
  void Visit(ui::ListBox& control) override;
  void Visit(ui::MenuItem& control) override;
  void Visit(ui::OptionButton& control) override;
  void Visit(ui::TextBox& control) override;
  void Visit(ui::TimerControl& /*control*/) override {}  // nothing to see

  template <class C>
  void BindButton(C& control, QAbstractButton& button, const std::function<void(ui::Aspect)>& show);
  void GoOnTypingOrLeave();
  void BindLine(ui::TextBox& control, QLineEdit& edit);
  void FollowUser(const QWidget* widget, const QFocusEvent& event);
  bool Key(QLineEdit& edit, QKeyEvent& event);

  template <class W>
  W* Find(const ui::Control& control) const;
  template <class W>
  W& Widget(const ui::Control& control) const;
  [[noreturn]] void EndWithout(const ui::Control& control) const;

  /// Lets `show` draw every aspect of the control now and whenever it changes.
  void Mirror(ui::Control& control, std::function<void(ui::Aspect)> show);
  /// The same for a widget, with what all widgets have in common, and follows focus and pointer.
  void Mirror(ui::Control& control, QWidget& widget, const std::function<void(ui::Aspect)>& show);
  void SetTabOrder();

  ui::Window& window_;
  QWidget& root_;
  HintFilter& hints_;
  QHash<const QObject*, ui::Control*> controls_;
  QHash<const QObject*, ui::TextBox*> lines_;
  QList<DateField*> dates_;
  QHash<QString, QButtonGroup*> options_;  // by the name of their array
  bool listening_ = true;
  bool user_leads_ = false;
  bool focus_held_ = false;
};

}  // namespace velta::qt
