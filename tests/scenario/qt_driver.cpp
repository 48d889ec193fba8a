#include "tests/scenario/qt_driver.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QCursor>
#include <QGroupBox>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLoggingCategory>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTemporaryFile>
#include <QTest>
#include <QTextDocument>
#include <QTimer>
#include <optional>
#include <set>
#include <string>

#include "ui/qt/binder.h"
#include "ui/qt/clipboard.h"
#include "ui/qt/event_loop.h"
#include "ui/qt/message_box.h"
#include "ui/qt/run.h"
#include "ui/qt/text.h"
#include "ui/qt/window_system.h"
#include "values/date.h"

namespace velta::scenario {

namespace {

using qt::ToQString;
using qt::ToUtf8;

/// A text with every kind of line break as a line feed, as widgets keep it.
QString WithLineFeeds(QString text) {
  return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
}

/// The text of a report with its characters as they are: toPlainText makes blanks of no-break ones.
QString TextOf(const QPlainTextEdit& report) {
  return report.document()->toRawText().replace(QChar::ParagraphSeparator, u'\n');
}

/// What the user sees, but with the line ends that the program wrote.
std::string AsWritten(const QString& seen, const std::string& written) {
  return WithLineFeeds(seen) == WithLineFeeds(ToQString(written)) ? written : ToUtf8(seen);
}

/// The line in which text is typed; null where the widget has none.
QLineEdit* LineOf(QWidget* widget) {
  if (auto* const list = qobject_cast<QComboBox*>(widget)) return list->lineEdit();
  return qobject_cast<QLineEdit*>(widget);
}

void PressKeyOn(QWidget* widget, Qt::Key key) {
  QTest::sendKeyEvent(QTest::Click, widget, key, QString(), Qt::NoModifier);
}

/// The row that the user takes for the chosen one. A list that is typed into remembers the row that
/// was picked last, whatever its text is now.
int ChosenRow(const QComboBox& list) {
  return list.findText(list.currentText(), Qt::MatchExactly | Qt::MatchCaseSensitive);
}

void PickRow(QComboBox& list, int row) {
  if (ChosenRow(list) == row) return;
  PressKeyOn(&list, Qt::Key_F4);
  PressKeyOn(list.view(), Qt::Key_Home);
  for (int i = 0; i < row; ++i) PressKeyOn(list.view(), Qt::Key_Down);
  PressKeyOn(list.view(), Qt::Key_Return);
}

void PickRow(QListWidget& list, int row) {
  list.scrollToItem(list.item(row));
  const QRect seen = list.visualItemRect(list.item(row)) & list.viewport()->rect();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, seen.center());
}

/// Qt's event loop that also knows whether the program waits for its next turn.
class WatchedEventLoop final : public ui::EventLoop {
 public:
  Ticket After(std::chrono::milliseconds delay, InBoxes in_boxes,
               std::function<void()> callback) override {
    // A scenario's clock stands still: what waits for time to pass never comes.
    if (delay.count() > 0) return loop_.After(std::chrono::years(1), in_boxes, std::move(callback));
    // The ticket is known only after the request; the callback does not run before that.
    const auto own_ticket = std::make_shared<Ticket>();
    *own_ticket = loop_.After(delay, in_boxes, [this, own_ticket, callback = std::move(callback)] {
      next_turn_.erase(*own_ticket);
      callback();
    });
    next_turn_.insert(*own_ticket);
    return *own_ticket;
  }
  void Cancel(Ticket ticket) override {
    next_turn_.erase(ticket);
    loop_.Cancel(ticket);
  }
  void Quit() override {}  // the windows are gone; what follows finds none

  bool pending() const { return !next_turn_.empty(); }
  qt::EventLoop& loop() { return loop_; }

 private:
  qt::EventLoop loop_;
  std::set<Ticket> next_turn_;
};

/// The real box, read and answered as soon as it stands.
class WatchedMessageBox final : public ui::MessageBox {
 public:
  using Report = std::function<void(ui::Icon, const std::string& caption, const std::string& text)>;

  WatchedMessageBox(qt::EventLoop& loop, Report report) : box_(loop), report_(std::move(report)) {}

  void Show(ui::Icon icon, std::string_view caption, std::string_view text) override {
    QTimer look;
    look.callOnTimeout([&] {
      auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr || !box->isVisible()) return;
      look.stop();
      report_(IconOf(*box), ToUtf8(box->windowTitle()), AsWritten(box->text(), std::string(text)));
      QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    });
    look.start(0);
    box_.Show(icon, caption, text);
  }

 private:
  static ui::Icon IconOf(const QMessageBox& box) {
    if (box.icon() == QMessageBox::Critical) return ui::Icon::kCritical;
    if (box.icon() != QMessageBox::Information) qFatal("A message box has an unknown icon.");
    return ui::Icon::kInformation;
  }

  qt::MessageBox box_;
  Report report_;
};

class WatchedClipboard final : public ui::Clipboard {
 public:
  bool SetText(std::string_view text) override { return !fails && clipboard_.SetText(text); }

  bool fails = false;

 private:
  qt::Clipboard clipboard_;
};

/// Plays on the real windows.
class QtDriver final : public Driver {
 public:
  explicit QtDriver(const LocaleFormat& locale)
      : locale_(locale),
        message_box_(event_loop_.loop(),
                     [this](ui::Icon icon, const std::string& caption, const std::string& text) {
                       if (on_message) on_message(icon, caption, text);
                     }),
        hold_(std::in_place, event_loop_.loop()) {
    QApplication::clipboard()->clear();
  }

  ui::MessageBox& message_box() override { return message_box_; }
  ui::Clipboard& clipboard() override { return clipboard_; }
  ui::EventLoop& event_loop() override { return event_loop_; }
  ui::WindowSystem& window_system() override { return window_system_; }

  void Settle() override;

  bool Choose(ui::MenuItem& item) override;
  bool Click(ui::Button& button) override;
  bool Type(ui::Control& input, std::string_view text) override;
  bool Paste(ui::Control& input, std::string_view text) override;
  bool Pick(ui::ListControl& list, int index) override;
  bool Pick(ui::OptionButton& option) override;
  bool TypeDate(ui::DatePicker& picker, std::string_view text) override;
  bool PickDay(ui::DatePicker& picker, std::chrono::sys_days day) override;
  bool Focus(ui::Control& control) override;
  bool Hover(ui::Control& control) override;
  void Hover(ui::Window& window) override;
  void Close(ui::Window& window) override;

  Value Get(ui::Control& control, const Property& property) override;
  Value Get(ui::Window& window, const Property& property) override;

  std::string ClipboardText() const override { return ToUtf8(QApplication::clipboard()->text()); }
  void SetClipboardFails(bool fails) override { clipboard_.fails = fails; }

 private:
  /// What the user sees of a window: its form, without the frame around it.
  static QWidget& FormOf(const ui::Window& window);
  /// The form's part of that name, or null where it is of another class.
  template <class Part>
  static Part* Find(const ui::Control& control);
  static QWidget& WidgetOf(const ui::Control& control);
  static QAction& ActionOf(const ui::MenuItem& item);

  static bool IsOpenToUser(const ui::Control& control);
  /// The control that has the keyboard; null where none has it.
  ui::Control* FocusedControl() const;
  /// Brings the keyboard to the control, as a click on it does.
  /// By the mouse where no reason is given. Under a button that the mouse presses a date that is
  /// being typed is not left.
  static void MoveFocus(const ui::Control& control, Qt::FocusReason reason = Qt::MouseFocusReason);
  void PressKey(const QString& character);
  void MovePointer(QWidget& widget) const;
  /// A point of the widget with nothing else of a form above it, other than where the pointer is.
  QPoint BarePoint(const QWidget& widget) const;
  /// Whether scenarios know the widget, as a control or as a window.
  bool IsPlace(const QWidget& widget) const;
  /// Lets Qt's own events through, but nothing of the program's, until the keyboard is somewhere.
  static void SettleWidgets();

  Value GetOf(QAction& action, const Property& property);
  Value GetOf(QWidget& widget, const ui::Control& control, const Property& property);
  static Value GetOf(const QComboBox& list, const Property& property);
  static Value GetOf(const QListWidget& list, const Property& property);

  const LocaleFormat& locale_;
  WatchedEventLoop event_loop_;
  WatchedMessageBox message_box_;
  WatchedClipboard clipboard_;
  qt::WindowSystem window_system_;
  // Makes what the program has asked of the loop wait, so that Qt's own events can be let through.
  std::optional<qt::EventLoop::Pause> hold_;
};

QWidget& QtDriver::FormOf(const ui::Window& window) {
  for (QWidget* const widget : QApplication::allWidgets()) {
    if (widget->isVisible() && widget->objectName() == ToQString(window.name())) return *widget;
  }
  qFatal("The window %s is loaded but not shown.", window.name().c_str());
}

template <class Part>
Part* QtDriver::Find(const ui::Control& control) {
  return FormOf(control.window()).findChild<Part*>(qt::Binder::WidgetName(control));
}

QWidget& QtDriver::WidgetOf(const ui::Control& control) {
  auto* const widget = Find<QWidget>(control);
  if (widget == nullptr) qFatal("There is no widget for %s.", control.name().c_str());
  return *widget;
}

QAction& QtDriver::ActionOf(const ui::MenuItem& item) {
  if (auto* const menu = Find<QMenu>(item)) return *menu->menuAction();
  auto* const action = Find<QAction>(item);
  if (action == nullptr) qFatal("There is no menu item for %s.", item.name().c_str());
  return *action;
}

bool QtDriver::IsOpenToUser(const ui::Control& control) {
  const QWidget& widget = WidgetOf(control);
  return widget.isEnabled() && widget.isVisible();
}

ui::Control* QtDriver::FocusedControl() const {
  QWidget* const focused = QApplication::focusWidget();
  for (QWidget* form = focused; form != nullptr; form = form->parentWidget()) {
    const Form* const window = windows().Find(ToUtf8(form->objectName()));
    if (window == nullptr) continue;
    for (ui::Control* const control : window->controls()) {
      if (Find<QWidget>(*control) == focused) return control;
    }
  }
  return nullptr;
}

void QtDriver::MoveFocus(const ui::Control& control, Qt::FocusReason reason) {
  QWidget& widget = WidgetOf(control);
  if (widget.focusPolicy() != Qt::NoFocus) widget.setFocus(reason);
  SettleWidgets();
}

void QtDriver::SettleWidgets() {
  constexpr int kPatience = 1000;  // milliseconds
  QCoreApplication::processEvents();
  const QWidget* const active = QApplication::activeWindow();
  if (active != nullptr && active->isVisible()) return;
  // A window manager gives the keyboard back when a box or a popup goes; without a screen there is
  // none, and the hidden popup keeps it.
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (!window->isVisible() || window->windowType() == Qt::Popup) continue;
    window->activateWindow();
    static_cast<void>(
        QTest::qWaitFor([window] { return QApplication::activeWindow() == window; }, kPatience));
  }
}

void QtDriver::Settle() {
  hold_.reset();
  do {
    QCoreApplication::processEvents();
  } while (event_loop_.pending());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  SettleWidgets();
  hold_.emplace(event_loop_.loop());
}

bool QtDriver::Choose(ui::MenuItem& item) {
  QAction& action = ActionOf(item);
  if (!action.isEnabled() || !action.isVisible()) return false;
  if (action.menu() != nullptr || action.isSeparator()) return true;  // there is nothing to choose
  QMenuBar& bar = *static_cast<QMainWindow&>(FormOf(item.window())).menuBar();
  for (QAction* const title : bar.actions()) {
    QMenu* const menu = title->menu();
    if (menu == nullptr || !menu->actions().contains(&action)) continue;
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(title).center());
    // By keys: since Qt 6.8 a menu on the screen that is none takes no clicks.
    for (qsizetype i = 0; i < menu->actions().size() && menu->activeAction() != &action; ++i) {
      QTest::keyClick(menu, Qt::Key_Down);
    }
    QTest::keyClick(menu, Qt::Key_Return);
    SettleWidgets();
    return true;
  }
  qFatal("No menu holds %s.", item.name().c_str());
}

bool QtDriver::Click(ui::Button& button) {
  if (!IsOpenToUser(button)) return false;
  MoveFocus(button);
  QTest::mouseClick(&WidgetOf(button), Qt::LeftButton);
  SettleWidgets();
  return true;
}

bool QtDriver::Type(ui::Control& input, std::string_view text) {
  if (!IsOpenToUser(input)) return false;
  MoveFocus(input);
  const QWidget* last = nullptr;
  for (const char32_t character : ToQString(text).toStdU32String()) {
    QLineEdit* const edit = LineOf(QApplication::focusWidget());
    if (edit != nullptr && edit != last) edit->end(false);
    last = edit;
    PressKey(QString::fromUcs4(&character, 1));
    SettleWidgets();
  }
  return true;
}

void QtDriver::PressKey(const QString& character) {
  const ui::Control* const focused = FocusedControl();
  if (focused == nullptr) return;
  const bool enter = character == u"\r";
  const bool tab = character == u"\t";
  const bool is_button = dynamic_cast<const ui::Button*>(focused) != nullptr;
  const auto* const list = dynamic_cast<const ui::DropDown*>(focused);
  const bool takes_text =
      dynamic_cast<const ui::TextBox*>(focused) != nullptr || (list != nullptr && list->editable());
  if (!tab && !takes_text && !(is_button && enter)) return;
  // Letters of Czech have no key code of their own.
  const Qt::Key key = tab ? Qt::Key_Tab : enter ? Qt::Key_Return : Qt::Key_unknown;
  QTest::sendKeyEvent(QTest::Click, &WidgetOf(*focused), key, character, Qt::NoModifier);
}

bool QtDriver::Paste(ui::Control& input, std::string_view text) {
  if (!IsOpenToUser(input)) return false;
  MoveFocus(input);
  QLineEdit* const edit = LineOf(&WidgetOf(input));
  if (edit == nullptr) return true;  // a report, which takes none
  edit->selectAll();
  if (text.empty()) {
    PressKeyOn(edit, Qt::Key_Delete);
  } else {
    // The clipboard is the scenario's: the text comes as from an input method.
    QInputMethodEvent commit;
    commit.setCommitString(ToQString(text));
    QCoreApplication::sendEvent(edit, &commit);
  }
  SettleWidgets();
  return true;
}

bool QtDriver::Pick(ui::ListControl& list, int index) {
  if (!IsOpenToUser(list)) return false;
  QWidget& widget = WidgetOf(list);
  auto* const drop_down = qobject_cast<QComboBox*>(&widget);
  auto* const box = qobject_cast<QListWidget*>(&widget);
  if (index >= (drop_down != nullptr ? drop_down->count() : box->count())) return false;
  MoveFocus(list);
  if (drop_down != nullptr) {
    PickRow(*drop_down, index);
  } else {
    PickRow(*box, index);
  }
  SettleWidgets();
  return true;
}

bool QtDriver::Pick(ui::OptionButton& option) {
  if (!IsOpenToUser(option)) return false;
  MoveFocus(option, Qt::TabFocusReason);
  auto& button = static_cast<QAbstractButton&>(WidgetOf(option));
  if (!button.isChecked()) PressKeyOn(&button, Qt::Key_Space);
  SettleWidgets();
  return true;
}

bool QtDriver::TypeDate(ui::DatePicker& picker, std::string_view text) {
  if (!IsOpenToUser(picker)) return false;
  MoveFocus(picker, Qt::TabFocusReason);
  auto& field = dynamic_cast<QLineEdit&>(WidgetOf(picker));
  field.selectAll();
  PressKeyOn(&field, Qt::Key_Delete);
  for (const QChar character : ToQString(text)) {
    const Qt::Key key = character == u'\r' ? Qt::Key_Return : Qt::Key_unknown;
    QTest::sendKeyEvent(QTest::Click, &field, key, character, Qt::NoModifier);
  }
  SettleWidgets();
  return true;
}

bool QtDriver::PickDay(ui::DatePicker& picker, std::chrono::sys_days day) {
  if (!IsOpenToUser(picker)) return false;
  if (day < ui::DatePicker::kFirst || day > ui::DatePicker::kLast) {  // none to choose
    MoveFocus(picker, Qt::TabFocusReason);
    return true;
  }
  return TypeDate(picker, ShortDateText(day, locale_) + "\r");
}

bool QtDriver::Focus(ui::Control& control) {
  auto* const widget = Find<QWidget>(control);
  if (widget == nullptr || !IsOpenToUser(control) || widget->focusPolicy() == Qt::NoFocus) {
    return false;
  }
  MoveFocus(control, Qt::TabFocusReason);
  return true;
}

bool QtDriver::Hover(ui::Control& control) {
  if (dynamic_cast<const ui::MenuItem*>(&control) != nullptr) return control.visible();
  QWidget& widget = WidgetOf(control);
  if (!widget.isVisible()) return false;
  MovePointer(widget);
  return true;
}

void QtDriver::Hover(ui::Window& window) { MovePointer(FormOf(window)); }

void QtDriver::MovePointer(QWidget& widget) const {
  // A window below another one is brought up: only what is seen can be pointed at.
  for (QWidget* frame = &widget; frame != nullptr; frame = frame->parentWidget()) {
    if (qobject_cast<QMdiSubWindow*>(frame) != nullptr) frame->raise();
  }
  const QPoint at = BarePoint(widget);
  const QPointF on_screen = widget.mapToGlobal(QPointF(at));
  QMouseEvent move(QEvent::MouseMove, at, on_screen, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &move);
  // The pointer rests there afterwards.
  QCursor::setPos(on_screen.toPoint());
  QCoreApplication::processEvents();
}

QPoint QtDriver::BarePoint(const QWidget& widget) const {
  constexpr int kSteps = 40;
  for (int i = 0; i < kSteps * kSteps; ++i) {
    const QPoint at(widget.width() * (i % kSteps) / kSteps,
                    widget.height() * (i / kSteps) / kSteps);
    // A pointer that does not move says nothing.
    if (widget.mapToGlobal(at) == QCursor::pos()) continue;
    const QWidget* hit = widget.window()->childAt(widget.mapTo(widget.window(), at));
    while (hit != nullptr && !IsPlace(*hit)) hit = hit->parentWidget();
    if (hit == &widget || (hit == nullptr && widget.isWindow())) return at;
  }
  // All of it is covered.
  const QPoint centre = widget.rect().center();
  return widget.mapToGlobal(centre) == QCursor::pos() ? centre + QPoint(1, 0) : centre;
}

bool QtDriver::IsPlace(const QWidget& widget) const {
  for (const std::string& name : windows().names()) {
    const Form* const window = windows().Find(name);
    if (window == nullptr) continue;
    if (widget.objectName() == ToQString(name)) return true;
    for (const ui::Control* const control : window->controls()) {
      if (widget.objectName() == qt::Binder::WidgetName(*control)) return true;
    }
  }
  return false;
}

void QtDriver::Close(ui::Window& window) {
  QWidget* frame = &FormOf(window);
  if (auto* const inside = qobject_cast<QMdiSubWindow*>(frame->parentWidget())) frame = inside;
  frame->close();
  QCoreApplication::processEvents();
}

Value QtDriver::Get(ui::Window& window, const Property& property) {
  const QWidget& form = FormOf(window);
  if (property.name == "caption") return Value::Text(ToUtf8(form.windowTitle()));
  if (property.name == "enabled") return Value::Truth(form.isEnabled());
  if (property.name == "visible") return Value::Truth(form.isVisible());
  // The frame of the others is the active one only where none of them is.
  const auto* const desktop = form.findChild<QMdiArea*>();
  const auto* const sub_window = qobject_cast<QMdiSubWindow*>(form.parentWidget());
  if (sub_window != nullptr)
    return Value::Truth(sub_window->mdiArea()->activeSubWindow() == sub_window);
  return Value::Truth(form.isActiveWindow() &&
                      (desktop == nullptr || desktop->activeSubWindow() == nullptr));
}

Value QtDriver::Get(ui::Control& control, const Property& property) {
  if (dynamic_cast<const ui::TimerControl*>(&control) != nullptr) {
    return Value::Truth(control.enabled());  // the one thing without a widget
  }
  if (const auto* const item = dynamic_cast<const ui::MenuItem*>(&control)) {
    return GetOf(ActionOf(*item), property);
  }
  return GetOf(WidgetOf(control), control, property);
}

Value QtDriver::GetOf(QAction& action, const Property& property) {
  if (property.name == "enabled") return Value::Truth(action.isEnabled());
  if (property.name == "visible") return Value::Truth(action.isVisible());
  if (property.name == "focused") return Value::Truth(false);
  if (property.name == "tooltip") return Value::Text("");  // menus show none
  if (property.name == "background") return Value::Text("window");
  return Value::Text(action.isSeparator() ? "-" : ToUtf8(action.text()));
}

Value QtDriver::GetOf(QWidget& widget, const ui::Control& control, const Property& property) {
  if (property.name == "enabled") return Value::Truth(widget.isEnabled());
  if (property.name == "visible") return Value::Truth(widget.isVisible());
  if (property.name == "focused") return Value::Truth(FocusedControl() == &control);
  if (property.name == "tooltip") return Value::Text(ToUtf8(widget.toolTip()));
  if (property.name == "background") {
    const bool face = widget.palette().color(QPalette::Active, QPalette::Base) ==
                      QApplication::palette().color(QPalette::Active, QPalette::Button);
    return Value::Text(face ? "face" : "window");
  }
  if (property.name == "placeholder") {
    return Value::Text(ToUtf8(widget.property("placeholderText").toString()));
  }
  if (const auto* const list = qobject_cast<QComboBox*>(&widget)) return GetOf(*list, property);
  if (const auto* const list = qobject_cast<QListWidget*>(&widget)) return GetOf(*list, property);
  if (const auto* const report = qobject_cast<QPlainTextEdit*>(&widget)) {
    return Value::Text(
        AsWritten(TextOf(*report), dynamic_cast<const ui::TextBox&>(control).text()));
  }
  if (const auto* const edit = qobject_cast<QLineEdit*>(&widget)) {
    if (property.name == "text") return Value::Text(ToUtf8(edit->text()));
    // While another is typed in its place the date that counts stands nowhere.
    const auto& picker = dynamic_cast<const ui::DatePicker&>(control);
    if (picker.IsBeingTyped()) return Value::Day(picker.day());
    return Value::Day(ParseShortDate(ToUtf8(edit->text()), locale_));
  }
  if (const auto* const button = qobject_cast<QAbstractButton*>(&widget)) {
    if (property.name == "value") return Value::Truth(button->isChecked());
    return Value::Text(ToUtf8(button->text()));
  }
  if (const auto* const label = qobject_cast<QLabel*>(&widget)) {
    return Value::Text(ToUtf8(label->text()));
  }
  const auto* const box = qobject_cast<QGroupBox*>(&widget);
  return Value::Text(box == nullptr ? "" : ToUtf8(box->title()));
}

Value QtDriver::GetOf(const QComboBox& list, const Property& property) {
  if (property.name == "index") return Value::Number(ChosenRow(list));
  if (property.name == "count") return Value::Number(list.count());
  if (property.name == "item") {
    return property.index < list.count() ? Value::Text(ToUtf8(list.itemText(property.index)))
                                         : Value::Bare("unset");
  }
  return Value::Text(ToUtf8(list.currentText()));
}

Value QtDriver::GetOf(const QListWidget& list, const Property& property) {
  if (property.name == "count") return Value::Number(list.count());
  if (property.name == "item") {
    return property.index < list.count() ? Value::Text(ToUtf8(list.item(property.index)->text()))
                                         : Value::Bare("unset");
  }
  const QList<QListWidgetItem*> selected = list.selectedItems();
  return Value::Number(selected.isEmpty() ? -1 : list.row(selected.first()));
}

}  // namespace

int WithQt(char** argv, const std::function<int()>& play) {
  // Pictures may be scaled, but a scenario's windows always have the same room.
  for (const char* name : {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI"}) {
    qunsetenv(name);
  }
  // What the offscreen platform cannot do is not worth a word beside the runner's own.
  QLoggingCategory::setFilterRules("default.warning=false");
  int argc = 1;  // the rest is not for Qt, which has an option of its own called --platform
  // Without a real screen, one on which all windows have room.
  QTemporaryFile screen;
  const QByteArray chosen = qgetenv("QT_QPA_PLATFORM");
  if ((chosen.isEmpty() || chosen == "offscreen") && screen.open()) {
    screen.write(R"({"screens": [{"name": "0", "x": 0, "y": 0, "width": 1600, "height": 1200,
                                  "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    screen.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toUtf8());
  }
  QApplication application(argc, argv);
  qt::PrepareApplication();
  return play();
}

std::unique_ptr<Driver> MakeQtDriver(const LocaleFormat& locale) {
  return std::make_unique<QtDriver>(locale);
}

}  // namespace velta::scenario
