#include "ui/qt/forms.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/form.h"
#include "shell/velta.h"
#include "ui/memory/memory_platform.h"
#include "ui/qt/binder.h"
#include "ui/qt/text.h"
#include "ui/qt/window_system.h"

namespace velta::qt {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

/// Every window of the program on real widgets, the rest of the platform in memory. A control that
/// has no widget in its form ends the program when the window opens.
class FormsTest : public ::testing::TestWithParam<std::string> {
 protected:
  FormsTest() {
    memory_.program_folder.path = VELTA_SOURCE_DIR "/data";
    velta_.Start();
    memory_.event_loop.RunUntilIdle();
    if (GetParam() == "frmSplash") velta_.Start();
    windows().Open(GetParam());
    EXPECT_THAT(memory_.message_box.shown, IsEmpty());
    QTest::qWait(1);  // layouts settle on the first turn
  }
  void TearDown() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  Windows& windows() { return velta_.program().windows; }
  const ui::Window& model() { return *windows().Find(GetParam()); }
  /// Checks the window as it opens, and again after each of its options, which may show other
  /// pages.
  template <class Check>
  void OnEveryPage(Check check) {
    check();
    for (ui::Control* control : model().controls()) {
      auto* option = dynamic_cast<ui::OptionButton*>(control);
      if (option == nullptr || !option->UserClick()) continue;
      SCOPED_TRACE(option->name());
      QTest::qWait(1);
      check();
    }
  }
  static QWidget& root() {
    for (QWidget* widget : QApplication::allWidgets()) {
      if (widget->objectName() == ToQString(GetParam()) && widget->isVisible()) return *widget;
    }
    ADD_FAILURE() << "not on the screen";
    abort();
  }
  QWidget* WidgetOf(const ui::Control& control) {
    return root().findChild<QWidget*>(Binder::WidgetName(control));
  }
  ui::MemoryPlatform memory_;
  WindowSystem window_system_;
  Velta velta_{memory_.platform(window_system_), {1, 0, 0, {}}};
};

TEST_P(FormsTest, EveryNamedWidgetHasItsControl) {
  // What only holds or parts the controls has a name with one of these beginnings, or Qt's own.
  static const QRegularExpression kNoControl("^(layout|space|gap|central|menubar|qt_|_|Q[A-Z])");
  std::set<QString> controls;
  for (const ui::Control* control : model().controls()) {
    controls.insert(Binder::WidgetName(*control));
  }
  std::vector<std::string> orphans;
  for (const QObject* object : root().findChildren<QObject*>()) {
    const QString name = object->objectName();
    const bool other_window = GetParam() == "frmMenu" && object->isWidgetType() &&
                              qobject_cast<QMdiSubWindow*>(object->parent()) != nullptr;
    if (!other_window && !name.isEmpty() && !kNoControl.match(name).hasMatch() &&
        controls.count(name) == 0) {
      orphans.push_back(ToUtf8(name));
    }
  }
  EXPECT_THAT(orphans, IsEmpty());
}

TEST_P(FormsTest, TheKeyboardCanGoWhereTheModelSaysAndNowhereElse) {
  OnEveryPage([this] {
    std::vector<std::string> differing;
    for (const ui::Control* control : model().controls()) {
      const QWidget* widget = WidgetOf(*control);
      if (widget == nullptr || !control->enabled() || !control->visible()) continue;
      const bool reachable = (widget->focusPolicy() & Qt::TabFocus) != 0;
      if (reachable != control->IsTabStop()) differing.push_back(control->name());
    }
    EXPECT_THAT(differing, IsEmpty());
  });
}

TEST_P(FormsTest, WhatIsSeenIsWhatTheModelTakesForVisible) {
  OnEveryPage([this] {
    // A control stands in the same frame in the form and in the model.
    std::vector<std::string> differing;
    for (const ui::Control* control : model().controls()) {
      const QWidget* widget = WidgetOf(*control);
      if (widget == nullptr || dynamic_cast<const ui::MenuItem*>(control) != nullptr) continue;
      if (widget->isVisible() != control->visible()) differing.push_back(control->name());
    }
    EXPECT_THAT(differing, IsEmpty());
  });
}

/// What a control has to be to a screen reader.
class RoleOf final : public ui::ControlVisitor {
 public:
  explicit RoleOf(ui::Control& control) { control.Accept(*this); }
  QAccessible::Role role = QAccessible::NoRole;  // frames and what is not on the screen

 private:
  void Visit(ui::Button& /*control*/) override { role = QAccessible::PushButton; }
  void Visit(ui::DatePicker& /*control*/) override { role = QAccessible::EditableText; }
  void Visit(ui::DropDown& /*control*/) override { role = QAccessible::ComboBox; }
  void Visit(ui::Frame& /*control*/) override {}
  void Visit(ui::Label& /*control*/) override { role = QAccessible::StaticText; }
  void Visit(ui::ListBox& /*control*/) override { role = QAccessible::List; }
  void Visit(ui::MenuItem& /*control*/) override {}
  void Visit(ui::OptionButton& /*control*/) override { role = QAccessible::RadioButton; }
  void Visit(ui::TextBox& /*control*/) override { role = QAccessible::EditableText; }
  void Visit(ui::TimerControl& /*control*/) override {}
};

std::string NameOf(QAccessibleInterface& thing) { return ToUtf8(thing.text(QAccessible::Name)); }

/// The titles of the boxes in which it stands.
std::string PlaceOf(const QWidget* widget) {
  std::string place;
  for (; widget != nullptr; widget = widget->parentWidget()) {
    if (const auto* box = qobject_cast<const QGroupBox*>(widget))
      place += ToUtf8(box->title()) + "/";
  }
  return place;
}

TEST_P(FormsTest, EveryControlHasItsRoleAndANameOfItsOwnForThoseWhoDoNotSeeIt) {
  OnEveryPage([this] {
    std::set<std::string> names;
    for (ui::Control* control : model().controls()) {
      QWidget* widget = WidgetOf(*control);
      const QAccessible::Role role = RoleOf(*control).role;
      if (role == QAccessible::NoRole || !widget->isVisible()) continue;
      SCOPED_TRACE(control->name());
      QAccessibleInterface* thing = QAccessible::queryAccessibleInterface(widget);
      ASSERT_NE(thing, nullptr);
      EXPECT_EQ(thing->role(), role);
      EXPECT_NE(NameOf(*thing), "");
      if (role == QAccessible::StaticText) continue;  // labels of inputs have their names
      EXPECT_TRUE(names.insert(PlaceOf(widget) + NameOf(*thing)).second) << NameOf(*thing);
    }
  });
}

/// All that stands in it, down to the parts of a control.
template <class Check>
void Walk(QAccessibleInterface& thing, Check check) {
  check(thing);
  for (int i = 0; i < thing.childCount(); ++i) {
    QAccessibleInterface* child = thing.child(i);
    ASSERT_NE(child, nullptr);
    Walk(*child, check);
  }
}

TEST_P(FormsTest, NothingThatCanBePressedOrTypedIntoIsNameless) {
  OnEveryPage([] {
    Walk(*QAccessible::queryAccessibleInterface(&root()), [](QAccessibleInterface& thing) {
      const QAccessible::State state = thing.state();
      if (!state.focusable && thing.role() != QAccessible::PushButton) return;
      if (state.invisible || thing.role() == QAccessible::Window) return;
      EXPECT_NE(NameOf(thing), "")
          << thing.role() << " "
          << (thing.object() == nullptr ? "a part" : thing.object()->metaObject()->className());
    });
  });
}

TEST_P(FormsTest, TabGoesAsOneReads) {
  OnEveryPage([this] {
    std::vector<std::string> astray;
    const QWidget* previous = nullptr;
    for (const ui::Control* control : model().controls()) {
      const QWidget* widget = WidgetOf(*control);
      if (widget == nullptr || !control->IsTabStop()) continue;
      const QRect place(widget->mapTo(&root(), QPoint()), widget->size());
      if (previous != nullptr) {
        const QRect before(previous->mapTo(&root(), QPoint()), previous->size());
        if (place.left() < before.right() && place.top() < before.bottom()) {
          astray.push_back(control->name());
        }
      }
      previous = widget;
    }
    EXPECT_THAT(astray, IsEmpty()) << "neither to the right of the one before nor below it";
  });
}

TEST_P(FormsTest, NoTwoHaveTheSameAccessKey) {
  OnEveryPage([] {
    std::map<std::string, std::vector<std::string>> owners;  // by key
    for (const auto* button : root().findChildren<QAbstractButton*>()) {
      if (!button->isVisible() || button->shortcut().isEmpty()) continue;
      owners[ToUtf8(button->shortcut().toString())].push_back(ToUtf8(button->objectName()));
    }
    for (const auto* label : root().findChildren<QLabel*>()) {
      const QKeySequence key = QKeySequence::mnemonic(label->text());
      if (label->textFormat() == Qt::PlainText || label->buddy() == nullptr || key.isEmpty()) {
        continue;
      }
      owners[ToUtf8(key.toString())].push_back(ToUtf8(label->objectName()));
    }
    for (const auto& [key, names] : owners) EXPECT_THAT(names, SizeIs(1)) << key;
  });
}

TEST_P(FormsTest, NothingIsClipped) {
  OnEveryPage([this] {
    std::vector<std::string> clipped;
    for (const ui::Control* control : model().controls()) {
      const QWidget* widget = WidgetOf(*control);
      if (widget == nullptr || !widget->isVisible()) continue;
      QSize needed = widget->minimumSizeHint();
      // A list scrolls: one row is enough.
      if (qobject_cast<const QListWidget*>(widget) != nullptr) {
        needed.setHeight(widget->fontMetrics().height());
      }
      if (widget->width() < needed.width() || widget->height() < needed.height()) {
        clipped.push_back(control->name());
      }
      const auto* label = qobject_cast<const QLabel*>(widget);
      // The hint line alone may be longer than its place.
      if (label != nullptr && control->name() != "lblMSG" &&
          label->width() < label->sizeHint().width()) {
        clipped.push_back(control->name());
      }
    }
    EXPECT_THAT(clipped, IsEmpty());
  });
}

TEST_P(FormsTest, EveryPictureIsThere) {
  for (const auto* button : root().findChildren<QAbstractButton*>()) {
    if (button->objectName().startsWith("cmdMenu")) {
      EXPECT_FALSE(button->icon().pixmap(button->iconSize()).isNull())
          << ToUtf8(button->objectName());
    }
  }
  EXPECT_FALSE(root().window()->windowIcon().pixmap(16).isNull());
  if (GetParam() != "frmSplash") {
    EXPECT_FALSE(root().property("picture").toString().isEmpty()) << "it has the program's";
  }
}

class MainFormTest : public ::testing::Test {
 protected:
  MainFormTest() {
    memory_.program_folder.path = VELTA_SOURCE_DIR "/data";
    velta_.Start();
    memory_.event_loop.RunUntilIdle();
    QTest::qWait(1);
  }
  static QMainWindow& Main() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      auto* main = qobject_cast<QMainWindow*>(widget);
      if (main != nullptr && main->isVisible()) return *main;
    }
    ADD_FAILURE() << "not on the screen";
    abort();
  }
  static QListWidget& List(const char* name) { return *Main().findChild<QListWidget*>(name); }
  /// The rows in view, the first and the last.
  static std::pair<int, int> InView(const QListWidget& list) {
    const QRect seen = list.viewport()->rect();
    return {list.row(list.itemAt(seen.topLeft())), list.row(list.itemAt(seen.bottomLeft()))};
  }

  static QMdiSubWindow& SubWindowOf(const char* window) {
    return *qobject_cast<QMdiSubWindow*>(Main().findChild<QWidget*>(window)->parentWidget());
  }
  /// The progressive window with rows in its lists, as many in that of interest as it says.
  void FillPayments(int rows, int rows_of_interest) {
    velta_.program().windows.Open("frmPostupny");
    const ui::Window& window = *velta_.program().windows.Find("frmPostupny");
    for (const char* name : {"List1", "List2", "List3", "List4"}) {
      const bool interest = std::string_view(name) == "List4";
      for (int row = 0; row < (interest ? rows_of_interest : rows); ++row) {
        dynamic_cast<ui::ListBox&>(*window.Find(name)).AddItem(std::to_string(row));
      }
    }
    QTest::qWait(1);
  }
  /// The rightmost pixel of a row that is not of its ground.
  static int LastInk(const QImage& picture, const QRect& row) {
    const QColor ground = picture.pixelColor(row.topLeft() + QPoint(2, 2));
    for (int x = row.right(); x > row.left(); --x) {
      for (int y = row.top() + 1; y < row.bottom(); ++y) {
        if (picture.pixelColor(x, y) != ground) return x;
      }
    }
    return -1;
  }

  ui::MemoryPlatform memory_;
  WindowSystem window_system_;
  Velta velta_{memory_.platform(window_system_), {1, 0, 0, {}}};
};

TEST_F(MainFormTest, MenusStandInTheModelsOrder) {
  std::vector<std::string> of_model;
  for (ui::Control* control : velta_.program().windows.Find("frmMenu")->controls()) {
    if (dynamic_cast<ui::MenuItem*>(control) != nullptr) of_model.push_back(control->name());
  }
  std::vector<std::string> on_screen;
  for (const QAction* title : Main().menuBar()->actions()) {
    on_screen.push_back(ToUtf8(title->menu()->objectName()));
    for (const QAction* action : title->menu()->actions()) {
      on_screen.push_back(ToUtf8(action->objectName()));
    }
  }
  EXPECT_EQ(on_screen, of_model);
}

/// Their access keys, each with the texts that have it.
std::map<std::string, std::vector<std::string>> AccessKeys(const QList<QAction*>& actions) {
  std::map<std::string, std::vector<std::string>> owners;
  for (const QAction* action : actions) {
    const QKeySequence key = QKeySequence::mnemonic(action->text());
    if (!key.isEmpty()) owners[ToUtf8(key.toString())].push_back(ToUtf8(action->text()));
  }
  return owners;
}

TEST_F(MainFormTest, NoTwoItemsOfAMenuHaveTheSameAccessKey) {
  std::vector<QList<QAction*>> menus = {Main().menuBar()->actions()};
  for (const QAction* title : Main().menuBar()->actions()) {
    menus.push_back(title->menu()->actions());
  }
  velta_.program().windows.Open("frmAbout");
  menus.push_back(Main().findChild<QMdiSubWindow*>()->systemMenu()->actions());
  for (const QList<QAction*>& menu : menus) {
    for (const auto& [key, texts] : AccessKeys(menu)) EXPECT_THAT(texts, SizeIs(1)) << key;
  }
}

TEST_F(MainFormTest, NoTwoCommandsHaveTheSameKey) {
  velta_.program().windows.Open("frmJednotlivy");
  std::map<std::string, std::vector<std::string>> owners;
  for (const QAction* action : Main().findChildren<QAction*>()) {
    for (const QKeySequence& key : action->shortcuts()) {
      owners[ToUtf8(key.toString())].push_back(ToUtf8(action->text()));
    }
  }
  EXPECT_GE(owners.size(), 9U);
  for (const auto& [key, texts] : owners) EXPECT_THAT(texts, SizeIs(1)) << key;
}

// Buttons of some windows have the key of a menu. There the button is meant, in every window.
TEST_F(MainFormTest, AccessKeyOfAMenuIsTheButtonsOfTheWindowInFront) {
  const auto menus = AccessKeys(Main().menuBar()->actions());
  int clashes = 0;
  for (const std::string& name : velta_.program().windows.names()) {
    if (name == "frmMenu" || name == "frmSplash") continue;
    SCOPED_TRACE(name);
    velta_.program().windows.Open(name);
    const auto buttons =
        Main().findChild<QWidget*>(ToQString(name))->findChildren<QAbstractButton*>();
    for (QAbstractButton* button : buttons) {
      const std::string key = ToUtf8(button->shortcut().toString());
      if (!button->isVisible() || menus.count(key) == 0) continue;
      SCOPED_TRACE(key);
      ++clashes;
      int pressed = 0;
      button->disconnect();  // it is not to do what it is for
      QObject::connect(button, &QAbstractButton::clicked, button, [&pressed] { ++pressed; });
      const QKeyCombination combination = button->shortcut()[0];
      QTest::keyClick(QApplication::focusWidget(), combination.key(),
                      combination.keyboardModifiers());
      EXPECT_EQ(pressed, 1);
      EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
      QTest::keyClick(&Main(), Qt::Key_F10);
      ASSERT_NE(QApplication::activePopupWidget(), nullptr) << "F10 leads to the menus";
      QApplication::activePopupWidget()->close();
    }
    velta_.program().windows.Unload(name);
  }
  EXPECT_GE(clashes, 3);
}

TEST_F(MainFormTest, TheLineInTheMenuHasNoText) {
  // The style would write it in front of the line.
  const auto& line = *Main().findChild<QAction*>("mnuCaraNapoveda");
  EXPECT_TRUE(line.isSeparator());
  EXPECT_EQ(line.text(), "");
}

TEST_F(MainFormTest, ToolbarIsAboveAndTheHintFillsTheStripBelow) {
  const auto& toolbar = *Main().findChild<QWidget*>("fraTop");
  const auto& desktop = *Main().findChild<QMdiArea*>();
  const auto& strip = *Main().findChild<QWidget*>("picSTB");
  const auto& hint = *Main().findChild<QLabel*>("lblMSG");
  const auto top = [&](const QWidget& widget) { return widget.mapTo(&Main(), QPoint()).y(); };
  EXPECT_LT(top(toolbar), top(desktop));
  EXPECT_LT(top(desktop), top(strip));
  const int before = hint.width();
  Main().resize(Main().width() + 100, Main().height());
  QTest::qWait(1);
  EXPECT_EQ(hint.width(), before + 100);
}

TEST_F(MainFormTest, ColumnsOfPaymentsScrollAsOne) {
  FillPayments(60, 60);
  for (const int row : {20, 35}) {
    List("List3").scrollToItem(List("List3").item(row), QListWidget::PositionAtTop);
    for (const char* name : {"List1", "List2", "List3", "List4"}) {
      EXPECT_EQ(InView(List(name)).first, row) << name;
      const bool is_last = std::string_view(name) == "List4";
      EXPECT_EQ(List(name).verticalScrollBar()->isVisible(), is_last) << name;
    }
  }
}

TEST_F(MainFormTest, InterestOfManyHalfYearsScrollsByItself) {
  FillPayments(30, 90);
  List("List4").scrollToItem(List("List4").item(50), QListWidget::PositionAtTop);
  EXPECT_EQ(InView(List("List4")).first, 50);
  const int first = InView(List("List1")).first;
  EXPECT_EQ(InView(List("List3")).first, first);
  EXPECT_TRUE(List("List3").verticalScrollBar()->isVisible());
  List("List3").scrollToTop();
  EXPECT_EQ(InView(List("List1")).first, 0);
  EXPECT_EQ(InView(List("List4")).first, 50);
}

TEST_F(MainFormTest, HeadingsOfPaymentsEndWhereTheirColumnsDo) {
  FillPayments(60, 60);
  const auto& heading = *Main().findChild<QLabel*>("lblPopis_9");
  const QListWidget& list = List("List4");
  EXPECT_EQ(heading.mapTo(&Main(), heading.contentsRect().topRight()).x(),
            list.viewport()->mapTo(&Main(), list.viewport()->rect().topRight()).x());
}

TEST_F(MainFormTest, NumbersOfAColumnEndAtOneEdge) {
  velta_.program().windows.Open("frmPostupny");
  const ui::Window& window = *velta_.program().windows.Find("frmPostupny");
  for (const char* text : {"10", "1234,50", "7770  "}) {
    dynamic_cast<ui::ListBox&>(*window.Find("List1")).AddItem(text);
  }
  QTest::qWait(1);
  const QListWidget& list = List("List1");
  const QImage column = list.viewport()->grab().toImage();
  std::set<int> edges;
  for (int row = 0; row < 3; ++row) {
    edges.insert(LastInk(column, list.visualItemRect(list.item(row))));
  }
  EXPECT_EQ(edges.size(), 1U);
  EXPECT_GT(*edges.begin(), list.viewport()->width() - 14);
  EXPECT_EQ(list.item(2)->text(), "7770  ") << "only the look is another";
}

/// Windows of the sizes that screens leave to the main window, in the units of a scaled desktop.
struct Screen {
  const char* name;
  int width;
  int height;
  std::vector<std::string> windows;
};

class ScreenTest : public MainFormTest, public ::testing::WithParamInterface<Screen> {
 protected:
  ScreenTest() {
    Main().showNormal();
    Main().resize(GetParam().width, GetParam().height);
    QTest::qWait(1);
  }
  QWidget& Open(const std::string& window) {
    velta_.program().windows.Open(window);
    QTest::qWait(1);
    return *Main().findChild<QWidget*>(ToQString(window));
  }
};

TEST_P(ScreenTest, ButtonsBelowAFormAreWhole) {
  for (const std::string& window : GetParam().windows) {
    const QWidget& form = Open(window);
    const QWidget& area = *form.findChild<QWidget*>("layout_area");
    int buttons = 0;
    for (const auto* button : form.findChildren<QPushButton*>()) {
      if (area.isAncestorOf(button)) continue;
      ++buttons;
      EXPECT_EQ(button->visibleRegion().boundingRect(), button->rect())
          << window << ": " << ToUtf8(button->objectName());
    }
    EXPECT_GE(buttons, 3) << window;
    velta_.program().windows.Unload(window);
  }
}

TEST_P(ScreenTest, WhatHasTheKeyboardIsInView) {
  for (const std::string& window : GetParam().windows) {
    QWidget& form = Open(window);
    form.window()->activateWindow();
    for (auto* line : form.findChildren<QLineEdit*>()) {
      if (!line->isVisible() || !line->isEnabled()) continue;
      line->setFocus();
      EXPECT_EQ(line->visibleRegion().boundingRect(), line->rect())
          << window << ": " << ToUtf8(line->objectName());
    }
    velta_.program().windows.Unload(window);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Screens, ScreenTest,
    ::testing::Values(
        Screen{
            "1024x768", 1024, 708, {"frmJednotlivy", "frmPostupny", "frmFaktura", "frmNastaveni"}},
        Screen{"1366x768at125",
               1092,
               566,
               {"frmJednotlivy", "frmPostupny", "frmFaktura", "frmNastaveni"}},
        Screen{"1366x768at150", 911, 472, {"frmJednotlivy", "frmPostupny", "frmNastaveni"}}),
    [](const auto& test) { return test.param.name; });

TEST_F(MainFormTest, NothingScrollsWhereTheScreenHasRoom) {
  Main().showNormal();
  Main().resize(1366, 708);
  QTest::qWait(1);
  for (const char* window : {"frmJednotlivy", "frmPostupny", "frmFaktura", "frmNastaveni"}) {
    velta_.program().windows.Open(window);
    QTest::qWait(1);
    const auto& area = *Main().findChild<QWidget*>(window)->findChild<QScrollArea*>("layout_area");
    EXPECT_FALSE(area.verticalScrollBar()->isVisible()) << window;
    EXPECT_FALSE(area.horizontalScrollBar()->isVisible()) << window;
    velta_.program().windows.Unload(window);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

TEST_F(MainFormTest, FieldsStayBesideTheirLabelsOnAWideScreen) {
  constexpr int kFar = 150;
  Main().showNormal();
  Main().resize(1920, 1000);
  for (const char* window : {"frmJednotlivy", "frmPostupny", "frmFaktura", "frmNastaveni"}) {
    velta_.program().windows.Open(window);
    SubWindowOf(window).showMaximized();
    QTest::qWait(1);
    for (const auto* label : Main().findChild<QWidget*>(window)->findChildren<QLabel*>()) {
      const QWidget* field = label->buddy();
      if (field == nullptr || qobject_cast<const QListWidget*>(field) != nullptr) continue;
      const int text_end = label->mapTo(&Main(), QPoint(label->sizeHint().width(), 0)).x();
      EXPECT_LT(field->mapTo(&Main(), QPoint()).x() - text_end, kFar)
          << window << ": " << ToUtf8(label->text());
    }
    velta_.program().windows.Unload(window);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

/// A dark desktop, as long as it lives.
class DarkDesktop {
 public:
  DarkDesktop() {
    QPalette dark(QColor(0x30, 0x30, 0x30), QColor(0x28, 0x28, 0x28));
    dark.setColor(QPalette::Link, kLink);
    QApplication::setPalette(dark);
  }
  ~DarkDesktop() { QApplication::setPalette(before_); }
  DarkDesktop(const DarkDesktop&) = delete;
  DarkDesktop& operator=(const DarkDesktop&) = delete;

  static constexpr QColor kLink{0x5d, 0xad, 0xe2};

 private:
  QPalette before_ = QApplication::palette();
};

TEST_F(MainFormTest, LinksHaveTheColourOfThePalette) {
  const DarkDesktop dark;
  velta_.program().windows.Open("frmAbout");
  QTest::qWait(1);
  for (const char* name : {"LblMailto", "Label8", "lblInternet"}) {
    const QImage link = Main().findChild<QWidget*>(name)->grab().toImage();
    bool found = false;
    for (int y = 0; y < link.height(); ++y) {
      for (int x = 0; x < link.width(); ++x) found |= link.pixelColor(x, y) == DarkDesktop::kLink;
    }
    EXPECT_TRUE(found) << name;
  }
}

TEST_F(MainFormTest, TheInsideDoesNotGlareOnADarkDesktop) {
  const auto brightest = [] {
    const auto& desktop = *Main().findChild<QMdiArea*>();
    const QImage inside = desktop.viewport()->grab().toImage().scaled(40, 40);
    int most = 0;
    for (int y = 0; y < inside.height(); ++y) {
      for (int x = 0; x < inside.width(); ++x) {
        most = std::max(most, inside.pixelColor(x, y).lightness());
      }
    }
    return most;
  };
  EXPECT_GT(brightest(), 200);
  const DarkDesktop dark;
  QTest::qWait(1);
  EXPECT_LT(brightest(), 80);
}

TEST_F(MainFormTest, TheInvoiceShowsWhatItCannotDoWithout) {
  velta_.program().windows.Open("frmFaktura");
  std::vector<int> required;
  for (int i = 0; i < 15; ++i) {
    const auto& field = *Main().findChild<QLineEdit*>(QStringLiteral("txtFaktura_%1").arg(i));
    if (field.placeholderText() == "povinný údaj") required.push_back(i);
  }
  EXPECT_THAT(required, ::testing::ElementsAre(1, 2, 3, 14));
}

TEST_F(MainFormTest, ALineThatCanOnlyBeReadHasTheWindowsGround) {
  velta_.program().windows.Open("frmFaktura");
  const auto ground = [](const char* name) {
    return Main().findChild<QLineEdit*>(name)->palette().color(QPalette::Base).alpha();
  };
  EXPECT_EQ(ground("txtTextFaktury"), 0);
  EXPECT_EQ(ground("txtFaktura_8"), 255);
}

TEST_F(MainFormTest, TheTotalOfPaymentsIsReadToItsEnd) {
  velta_.program().windows.Open("frmPostupny");
  const ui::Window& window = *velta_.program().windows.Find("frmPostupny");
  dynamic_cast<ui::ListBox&>(*window.Find("List5")).AddItem("8 777 879 241 211,30 Kč");
  QTest::qWait(1);
  const QListWidget& total = List("List5");
  // The screen of the tests is small, so the window is as narrow as can be.
  EXPECT_LE(total.sizeHintForColumn(0) + 2 * total.spacing(), total.viewport()->width());
}

/// The settings window, a page at a time.
class SettingsFormTest : public MainFormTest {
 protected:
  SettingsFormTest() {
    velta_.program().windows.Open("frmNastaveni");
    QTest::qWait(1);
  }
  void ShowPage(int page) {
    const ui::Window& window = *velta_.program().windows.Find("frmNastaveni");
    auto* button = window.Find("optFramy(" + std::to_string(page) + ")");
    dynamic_cast<ui::OptionButton&>(*button).UserClick();
    QTest::qWait(1);
  }
  static QMdiSubWindow& SubWindow() { return *Main().findChild<QMdiSubWindow*>(); }
};

TEST_F(SettingsFormTest, KeepsItsSizeOnEveryPageAndFitsASmallScreen) {
  const QSize size = SubWindow().size();
  for (const int page : {1, 2, 3, 0}) {
    ShowPage(page);
    EXPECT_EQ(SubWindow().size(), size) << page;
    EXPECT_EQ(SubWindow().sizeHint(), size) << page;
  }
  // What a screen of 1024 by 768 leaves to the windows in the main window.
  EXPECT_LE(size.width(), 1000);
  EXPECT_LE(size.height(), 600);
}

TEST_F(SettingsFormTest, NewestRatesAreInView) {
  ShowPage(2);
  for (const char* column : {"lstCnb_0", "lstCnb_1", "lstCnb_2", "lstCnb_3"}) {
    const QListWidget& list = List(column);
    EXPECT_TRUE(list.viewport()->rect().contains(list.visualItemRect(list.item(list.count() - 1))))
        << column;
  }
  ShowPage(3);
  const QListWidget& list = List("lstRepo");
  EXPECT_TRUE(list.viewport()->rect().contains(list.visualItemRect(list.item(list.count() - 1))));
}

TEST_F(SettingsFormTest, ColumnsOfADiscountTableScrollAsOne) {
  ShowPage(2);
  std::vector<QListWidget*> columns;
  for (const char* name : {"lstCnb_0", "lstCnb_1", "lstCnb_2", "lstCnb_3"}) {
    columns.push_back(&List(name));
  }
  for (std::size_t moved = 0; moved < columns.size(); ++moved) {
    const int first_row = 10 + 5 * static_cast<int>(moved);
    columns[moved]->scrollToItem(columns[moved]->item(first_row), QListWidget::PositionAtTop);
    for (const QListWidget* column : columns) {
      EXPECT_EQ(InView(*column).first, first_row);
      EXPECT_EQ(InView(*column), InView(*columns[0]));
    }
  }
}

std::vector<std::string> AllWindows() {
  ui::MemoryPlatform memory;
  return Velta(memory.platform(), {}).program().windows.names();
}

INSTANTIATE_TEST_SUITE_P(Windows, FormsTest, ::testing::ValuesIn(AllWindows()),
                         [](const auto& test) { return test.param; });

}  // namespace
}  // namespace velta::qt
