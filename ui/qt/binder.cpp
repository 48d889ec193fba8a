#include "ui/qt/binder.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <limits>

#include "ui/qt/date_field.h"
#include "ui/qt/hint_filter.h"
#include "ui/qt/report_box.h"
#include "ui/qt/text.h"
#include "ui/window.h"

namespace velta::qt {

namespace {

using ui::Aspect;

constexpr Aspect kAspects[] = {Aspect::kItems,      Aspect::kCaption, Aspect::kPlaceholder,
                               Aspect::kValue,      Aspect::kToolTip, Aspect::kEnabled,
                               Aspect::kBackground, Aspect::kVisible};

void SetBackground(QWidget& widget, ui::Background background) {
  QPalette palette = QApplication::palette(&widget);
  if (background == ui::Background::kFace) {
    palette.setBrush(QPalette::Base, palette.brush(QPalette::Active, QPalette::Button));
  }
  // A line that can only be read is no hole in the window to type into.
  const auto* line = qobject_cast<QLineEdit*>(&widget);
  if (line != nullptr && line->isReadOnly()) palette.setColor(QPalette::Base, Qt::transparent);
  // What a closed box shows, such as the rate that the bank's table gave, is there to be read.
  palette.setBrush(QPalette::Disabled, QPalette::Text,
                   palette.brush(QPalette::Active, QPalette::WindowText));
  widget.setPalette(palette);
}

/// The line in which the control is typed; null where it has none.
QLineEdit* LineOf(QWidget* widget) {
  if (auto* list = qobject_cast<QComboBox*>(widget)) return list->lineEdit();
  return qobject_cast<QLineEdit*>(widget);
}

void ShowChoice(const ui::DropDown& control, QComboBox& list) {
  const QSignalBlocker by_program(list);
  const QString text = ToQString(control.text());
  // The cursor stays where the user types.
  if (control.editable() && control.index() < 0 && text == list.currentText()) return;
  list.setCurrentIndex(control.index());
  if (control.editable() && text != list.currentText()) list.setEditText(text);
}

void ShowRows(const ui::ListBox& control, QListWidget& list) {
  const QSignalBlocker by_program(list);
  const std::vector<std::string>& rows = control.items();
  if (rows.size() < static_cast<std::size_t>(list.count())) list.clear();
  for (auto i = static_cast<std::size_t>(list.count()); i < rows.size(); ++i) {
    auto* row = new QListWidgetItem(ToQString(rows[i]), &list);
    // Measured once; otherwise every row would be measured again for each one that is added.
    row->setSizeHint(list.sizeHintForIndex(list.indexFromItem(row)));
  }
  // When the loop turns: the list is laid out once, however many rows have come.
  QMetaObject::invokeMethod(&list, &QListWidget::scrollToBottom, Qt::QueuedConnection);
}

void ShowChoice(const ui::ListBox& control, QListWidget& list) {
  const QSignalBlocker by_program(list);
  list.setCurrentRow(control.index());
}

/// A caption that the model has not given yet is the one in the form.
bool LeftToForm(const ui::Control& control, Aspect aspect) {
  const auto* captioned = dynamic_cast<const ui::CaptionedControl*>(&control);
  return aspect == Aspect::kCaption && captioned != nullptr && captioned->caption().empty();
}

bool IsUsersWay(Qt::FocusReason reason) {
  return reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason ||
         reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

}  // namespace

Binder::Binder(ui::Window& window, QWidget& root, HintFilter& hints)
    : QObject(&root), window_(window), root_(root), hints_(hints) {
  for (ui::Control* control : window.controls()) control->Accept(*this);
  SetTabOrder();
  hints.Watch(root, [this] {
    if (listening_) window_.MouseMove.Raise();
    return true;
  });
}

void Binder::StopListening() {
  listening_ = false;
  for (DateField* field : dates_) field->SetModel(nullptr);
}

QString Binder::WidgetName(const ui::Control& control) {
  QString name = ToQString(control.array());
  if (control.array_index()) name += u'_' + QString::number(*control.array_index());
  return name;
}

void Binder::TakeFocus() {
  if (window_.focused() == nullptr) return;
  QWidget* widget = Find<QWidget>(*window_.focused());
  if (widget != nullptr && !widget->hasFocus()) widget->setFocus(Qt::OtherFocusReason);
}

void Binder::FollowFocus() {
  if (user_leads_ || window_.focused() == nullptr) return;
  TakeFocus();
  // After a message box the keyboard goes on from nowhere, and no field hears that it is left.
  for (const DateField* field : dates_) {
    ui::DatePicker* const date = field->model();
    if (date != nullptr && date != window_.focused()) date->UserLeave();
  }
  if (QLineEdit* line = LineOf(Find<QWidget>(*window_.focused()))) line->selectAll();
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
  if (!listening_) return false;
  switch (event->type()) {
    case QEvent::FocusIn:
      FollowUser(static_cast<QWidget*>(watched), *static_cast<QFocusEvent*>(event));
      return false;
    case QEvent::FocusOut:
      // What comes of a date that is left may be a message. When it goes the keyboard is in the
      // next field as in that of a window that comes to the front, so the user's way is followed
      // here.
      if (qobject_cast<DateField*>(watched) != nullptr) {
        FollowUser(QApplication::focusWidget(), *static_cast<QFocusEvent*>(event));
      }
      return false;
    case QEvent::KeyPress:
      return lines_.contains(watched) &&
             Key(*static_cast<QLineEdit*>(watched), *static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonRelease:
      if (DateField::CommitsOnRelease(watched)) {
        // When the button has clicked.
        QMetaObject::invokeMethod(this, &Binder::GoOnTypingOrLeave, Qt::QueuedConnection);
      }
      return false;
    case QEvent::Wheel:
      // Who scrolls past a closed list does not mean to choose another item.
      if (auto* list = qobject_cast<QComboBox*>(watched); list != nullptr && !list->hasFocus()) {
        event->ignore();
        return true;
      }
      return false;
    default:
      return false;
  }
}

/// Only where the user led the keyboard; a window that comes to the front is not such an act. From
/// a widget that gets hidden with its window Qt goes on as by Tab, to one just as hidden.
void Binder::FollowUser(const QWidget* widget, const QFocusEvent& event) {
  ui::Control* const control = controls_.value(widget);
  if (control == nullptr || focus_held_ || !widget->isVisible() || !IsUsersWay(event.reason())) {
    return;
  }
  const QScopedValueRollback leading(user_leads_, true);
  control->SetFocus();
}

bool Binder::Key(QLineEdit& edit, QKeyEvent& event) {
  // Neither is Shift looked at, with which the Czech keyboard types digits, nor AltGr.
  const bool shortcut =
      (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
  const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
  const bool character = !event.text().isEmpty() && event.text().front().isPrint();
  if (shortcut || !(enter || character)) return false;
  const std::string typed = enter ? "\r" : ToUtf8(event.text());
  ui::KeyPress key{typed};
  if (!lines_.value(&edit)->UserKey(key)) return false;
  if (key.text == typed) return false;
  if (!key.text.empty() && key.text != "\r") edit.insert(ToQString(key.text));
  return true;
}

template <class W>
W* Binder::Find(const ui::Control& control) const {
  return root_.findChild<W*>(WidgetName(control));
}

template <class W>
W& Binder::Widget(const ui::Control& control) const {
  W* widget = Find<W>(control);
  if (widget == nullptr) EndWithout(control);
  return *widget;
}

void Binder::EndWithout(const ui::Control& control) const {
  qFatal("The form of %s has no widget of its kind for %s.", window_.name().c_str(),
         control.name().c_str());
}

void Binder::Mirror(ui::Control& control, std::function<void(Aspect)> show) {
  for (const Aspect aspect : kAspects) {
    if (!LeftToForm(control, aspect)) show(aspect);
  }
  control.Updated.Connect([self = QPointer<Binder>(this), show = std::move(show)](Aspect aspect) {
    if (self != nullptr) show(aspect);
  });
}

void Binder::Mirror(ui::Control& control, QWidget& widget,
                    const std::function<void(Aspect)>& show) {
  Mirror(control, [&control, &widget, show](Aspect aspect) {
    switch (aspect) {
      case Aspect::kEnabled:
        widget.setEnabled(control.enabled());
        break;
      case Aspect::kVisible:
        widget.setVisible(control.shown());  // what it stands in hides it too
        break;
      case Aspect::kToolTip:
        widget.setToolTip(ToQString(control.tool_tip()));
        break;
      default:
        break;
    }
    show(aspect);
  });
  controls_.insert(&widget, &control);
  widget.installEventFilter(this);
  hints_.Watch(widget, [this, &control] { return listening_ && control.UserHover(); });
}

void Binder::SetTabOrder() {
  QWidget* previous = nullptr;
  for (const ui::Control* control : window_.controls()) {
    QWidget* widget = Find<QWidget>(*control);
    if (widget == nullptr || widget->focusPolicy() == Qt::NoFocus) continue;
    if (previous != nullptr) QWidget::setTabOrder(previous, widget);
    previous = widget;
  }
}

template <class C>
void Binder::BindButton(C& control, QAbstractButton& button,
                        const std::function<void(Aspect)>& show) {
  Mirror(control, button, [&control, &button, show](Aspect aspect) {
    if (aspect == Aspect::kCaption) button.setText(ToQString(control.caption()));
    show(aspect);
  });
  connect(&button, &QAbstractButton::clicked, this, [this, &control] {
    if (listening_) control.UserClick();
  });
}

/// A press of the mouse has taken the keyboard out of a date without a commit. Where it came to no
/// command, or to one that leaves the typing alone, typing goes on; where the keyboard has gone to
/// another date or another window, the date is left.
void Binder::GoOnTypingOrLeave() {
  if (!listening_) return;
  const QWidget* const window = root_.window();
  for (DateField* field : window->findChildren<DateField*>()) {
    ui::DatePicker* const model = field->model();
    // While another program or the help is active the keyboard is still in the field.
    if (model == nullptr || !model->IsBeingTyped() || window->focusWidget() == field) continue;
    if (dates_.contains(field) &&
        qobject_cast<QAbstractButton*>(window->focusWidget()) != nullptr) {
      const QScopedValueRollback leading(user_leads_, true);
      model->SetFocus();
      field->setFocus(Qt::OtherFocusReason);
    } else {
      model->UserCommit();
    }
  }
}

void Binder::Visit(ui::Button& control) {
  auto& button = Widget<QAbstractButton>(control);
  // Enter presses the button that has the keyboard, whatever the desktop's theme says of it.
  if (auto* push_button = qobject_cast<QPushButton*>(&button)) push_button->setAutoDefault(true);
  BindButton(control, button, [&control, &button](Aspect aspect) {
    // A button with nothing but a picture is called by what its tool tip says.
    if (aspect == Aspect::kToolTip && button.text().isEmpty()) {
      button.setAccessibleName(ToQString(control.tool_tip()));
    }
  });
}

void Binder::Visit(ui::DatePicker& control) {
  auto& field = Widget<DateField>(control);
  field.SetModel(&control);
  Mirror(control, field, [&control, &field](Aspect aspect) {
    if (aspect == Aspect::kValue) field.ShowText();
    if (aspect == Aspect::kBackground) SetBackground(field, control.background());
  });
  for (auto* arrow : field.findChildren<QAbstractButton*>()) arrow->installEventFilter(this);
  dates_.append(&field);
}

void Binder::Visit(ui::DropDown& control) {
  auto& list = Widget<QComboBox>(control);
  // Editable from the start, in the form: a line that a list gets only now breaks the tab order.
  if (list.isEditable() != control.editable()) EndWithout(control);
  if (control.editable()) {
    list.setInsertPolicy(QComboBox::NoInsert);
    list.setCompleter(nullptr);
    const QAccessibleInterface* input = QAccessible::queryAccessibleInterface(&list);
    list.lineEdit()->setAccessibleName(input->text(QAccessible::Name));
  }
  Mirror(control, list, [&control, &list](Aspect aspect) {
    if (aspect == Aspect::kItems) {
      const QSignalBlocker by_program(list);
      for (auto i = static_cast<std::size_t>(list.count()); i < control.items().size(); ++i) {
        list.addItem(ToQString(control.items()[i]));
      }
    }
    if (aspect == Aspect::kItems || aspect == Aspect::kValue) ShowChoice(control, list);
    if (aspect == Aspect::kValue) list.setAccessibleDescription(ToQString(control.text()));
    if (aspect == Aspect::kBackground) SetBackground(list, control.background());
  });
  const auto user_changes = [this, &control, list = QPointer(&list)](const auto& change) {
    if (!listening_) return;
    change();
    if (list != nullptr) ShowChoice(control, *list);
  };
  if (control.editable()) {
    // A picked item too comes as the text that it puts into the line.
    connect(&list, &QComboBox::editTextChanged, this,
            [user_changes, &control](const QString& text) {
              user_changes([&] { control.UserEdit(ToUtf8(text)); });
            });
  } else {
    connect(&list, &QComboBox::currentIndexChanged, this, [user_changes, &control](int index) {
      user_changes([&] { control.UserPick(index); });
    });
  }
}

void Binder::Visit(ui::Frame& control) {
  auto& widget = Widget<QWidget>(control);
  // A hidden page keeps its place, so that a window is as large as its largest page.
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget.setSizePolicy(policy);
  Mirror(control, widget, [&control, box = qobject_cast<QGroupBox*>(&widget)](Aspect aspect) {
    if (aspect == Aspect::kCaption && box != nullptr) {
      box->setTitle(ToQString(control.caption()));
    }
  });
}

void Binder::Visit(ui::Label& control) {
  auto& label = Widget<QLabel>(control);
  label.setTextFormat(Qt::PlainText);
  Mirror(control, label, [&control, &label](Aspect aspect) {
    if (aspect != Aspect::kCaption) return;
    label.setText(ToQString(control.caption()));
    // To a screen reader a label is called by its text. One that shows a result has the name of
    // what it shows, in the form, and the result is its description.
    if (!label.accessibleName().isEmpty()) label.setAccessibleDescription(label.text());
  });
}

void Binder::Visit(ui::ListBox& control) {
  auto& list = Widget<QListWidget>(control);
  Mirror(control, list, [&control, &list](Aspect aspect) {
    if (aspect == Aspect::kItems) ShowRows(control, list);
    if (aspect == Aspect::kValue) ShowChoice(control, list);
    if (aspect == Aspect::kBackground) SetBackground(list, control.background());
  });
  // The selected row and not the current one, which the keyboard's coming alone moves.
  connect(&list, &QListWidget::itemSelectionChanged, this,
          [this, &control, list = QPointer(&list)] {
            if (!listening_) return;
            const QList<QListWidgetItem*> selected = list->selectedItems();
            if (!selected.isEmpty()) control.UserPick(list->row(selected.first()));
            if (list != nullptr) ShowChoice(control, *list);
          });
}

void Binder::Visit(ui::MenuItem& control) {
  QAction* action = nullptr;
  if (auto* menu = Find<QMenu>(control)) {
    action = menu->menuAction();
  } else {
    action = &Widget<QAction>(control);
    connect(action, &QAction::triggered, this, [this, &control] {
      if (listening_) control.UserClick();
    });
  }
  Mirror(control, [&control, action](Aspect aspect) {
    if (aspect == Aspect::kCaption) {
      const bool line = control.caption() == "-";
      action->setSeparator(line);
      if (!line) action->setText(ToQString(control.caption()));
    }
    if (aspect == Aspect::kEnabled) action->setEnabled(control.enabled());
    if (aspect == Aspect::kVisible) action->setVisible(control.visible());
  });
}

void Binder::Visit(ui::OptionButton& control) {
  auto& button = Widget<QAbstractButton>(control);
  button.setCheckable(true);
  button.setAutoExclusive(true);  // the group sees to it; this tells screen readers
  QButtonGroup*& group = options_[ToQString(control.array())];
  if (group == nullptr) group = new QButtonGroup(this);
  group->addButton(&button);
  // Tab comes to one option of a group, the chosen one or else the first; from there the arrow keys
  // go on.
  const auto make_tab_stop = [group](const QAbstractButton* stop) {
    for (QAbstractButton* option : group->buttons()) {
      option->setFocusPolicy(option == stop ? Qt::StrongFocus : Qt::ClickFocus);
    }
  };
  make_tab_stop(group->buttons().first());
  BindButton(control, button, [&control, &button, make_tab_stop](Aspect aspect) {
    if (aspect != Aspect::kValue || !control.value()) return;  // the group unchecks the others
    button.setChecked(true);
    make_tab_stop(&button);
  });
}

void Binder::Visit(ui::TextBox& control) {
  if (auto* edit = Find<QLineEdit>(control)) {
    BindLine(control, *edit);
    return;
  }
  auto& box = Widget<ReportBox>(control);
  Mirror(control, box, [&control, &box](Aspect aspect) {
    if (aspect == Aspect::kPlaceholder) box.setPlaceholderText(ToQString(control.placeholder()));
    if (aspect == Aspect::kValue) box.SetReport(ToQString(control.text()), control.tab_stops());
    if (aspect == Aspect::kBackground) SetBackground(box, control.background());
  });
  control.Appended.Connect([self = QPointer<Binder>(this), &box](std::string_view text) {
    if (self != nullptr) box.Append(ToQString(text));
  });
}

void Binder::BindLine(ui::TextBox& control, QLineEdit& edit) {
  const auto show = [&control](QLineEdit& line) {
    const QString text = ToQString(control.text());
    if (text == line.text()) return;  // the cursor stays where the user types
    const QSignalBlocker by_program(line);
    line.setText(text);
    // A long text is read from its beginning; in a line that is typed into, also while a message
    // box has the keyboard for a while, typing goes on at the end.
    if (line.window()->focusWidget() != &line) line.setCursorPosition(0);
  };
  edit.setMaxLength(std::numeric_limits<int>::max());  // by itself a line cuts off a long paste
  edit.setReadOnly(control.read_only());
  lines_.insert(&edit, &control);
  Mirror(control, edit, [&control, &edit, show](Aspect aspect) {
    if (aspect == Aspect::kPlaceholder) edit.setPlaceholderText(ToQString(control.placeholder()));
    if (aspect == Aspect::kValue) show(edit);
    if (aspect == Aspect::kBackground) SetBackground(edit, control.background());
  });
  control.Appended.Connect([self = QPointer<Binder>(this), &edit, show](std::string_view /*text*/) {
    if (self != nullptr) show(edit);
  });
  connect(&edit, &QLineEdit::textChanged, this,
          [this, &control, line = QPointer(&edit), show](const QString& text) {
            if (!listening_) return;
            control.UserEdit(ToUtf8(text));
            if (line != nullptr) show(*line);
          });
}

}  // namespace velta::qt
