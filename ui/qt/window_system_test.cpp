#include "ui/qt/window_system.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QShortcutEvent>
#include <QTest>
#include <QTimer>
#include <memory>
#include <string>
#include <vector>

#include "ui/controls.h"
#include "ui/memory/memory_platform.h"
#include "ui/window.h"

namespace velta::qt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A child window with two of the single calculation's controls.
struct Child : ui::Window {
  explicit Child(ui::EventLoop& loop) : ui::Window("frmJednotlivy", ui::WindowKind::kChild, loop) {}
  ui::TextBox txtDluznaCastka{*this, "txtDluznaCastka"};
  ui::Button cmdNovy{*this, "cmdNovy"};
};

class WindowSystemTest : public ::testing::Test {
 protected:
  WindowSystemTest() {
    main_view_->Show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(Main()));
  }

  static QMainWindow* Main() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (auto* main = qobject_cast<QMainWindow*>(widget); main != nullptr && main->isVisible()) {
        return main;
      }
    }
    return nullptr;
  }
  static QMdiArea& Desktop() { return *Main()->findChild<QMdiArea*>(); }
  static std::vector<QMdiSubWindow*> VisibleChildren() {
    std::vector<QMdiSubWindow*> visible;
    for (QMdiSubWindow* sub : Desktop().subWindowList()) {
      if (sub->isVisible()) visible.push_back(sub);
    }
    return visible;
  }

  ui::MemoryEventLoop loop_;
  WindowSystem system_;
  ui::Window main_{"frmMenu", ui::WindowKind::kMain, loop_};
  std::unique_ptr<ui::WindowView> main_view_ = system_.CreateView(main_);
};

class ChildTest : public WindowSystemTest {
 protected:
  ChildTest() {
    for (Child* child : {&first_, &second_}) {
      child->Activated.Connect([this, child] { activated_.push_back(child->caption()); });
      child->CloseRequested.Connect([this, child] { closing_.push_back(child->caption()); });
    }
    first_.SetCaption("první");
    second_.SetCaption("druhé");
  }

  void ShowBoth() {
    first_view_->Show();
    second_view_->Show();
    ASSERT_EQ(VisibleChildren().size(), 2U);
  }
  static QMdiSubWindow* Sub(const char* caption) {
    for (QMdiSubWindow* sub : VisibleChildren()) {
      if (sub->windowTitle() == caption) return sub;
    }
    return nullptr;
  }

  Child first_{loop_};
  Child second_{loop_};
  std::unique_ptr<ui::WindowView> first_view_ = system_.CreateView(first_);
  std::unique_ptr<ui::WindowView> second_view_ = system_.CreateView(second_);
  std::vector<std::string> activated_;
  std::vector<std::string> closing_;
};

TEST_F(WindowSystemTest, MainWindowAsksBeforeItCloses) {
  int asked = 0;
  main_.CloseRequested.Connect([&] { ++asked; });
  QMainWindow* main = Main();
  main->close();
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(main->isVisible());
  main_view_->Close();
  EXPECT_FALSE(main->isVisible());
}

TEST_F(WindowSystemTest, BusyWindowShowsTheHourglassUntilItIsDone) {
  main_.SetBusy(true);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  main_.SetBusy(false);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(WindowSystemTest, BusyWindowThatClosesTakesItsHourglassAlong) {
  main_.SetBusy(true);
  main_view_->Close();
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(WindowSystemTest, MainWindowThatIsLargerThanTheScreenFillsIt) {
  const QRect screen = Main()->screen()->availableGeometry();
  ASSERT_LT(screen.width(), 1120) << "the width that the form asks for";
  EXPECT_TRUE(Main()->isMaximized());
  Main()->showNormal();
  EXPECT_LT(Main()->width(), screen.width()) << "with room for its frame";
  EXPECT_LT(Main()->height(), screen.height());
}

TEST_F(WindowSystemTest, MinimisedMainWindowIsRestoredByShow) {
  Main()->showMinimized();
  ASSERT_TRUE(Main()->isMinimized());
  main_view_->Show();
  EXPECT_FALSE(Main()->isMinimized());
}

TEST_F(WindowSystemTest, SplashGoesByAClickAndByAnyKey) {
  ui::Window splash("frmSplash", ui::WindowKind::kSplash, loop_);
  int asked = 0;
  splash.CloseRequested.Connect([&] { ++asked; });
  const auto view = system_.CreateView(splash);
  view->Show();
  QWidget* widget = nullptr;
  for (QWidget* top : QApplication::topLevelWidgets()) {
    if (top->objectName() == "frmSplash") widget = top;
  }
  ASSERT_NE(widget, nullptr);
  QTest::mouseClick(widget, Qt::LeftButton);
  EXPECT_EQ(asked, 1);
  QTest::keyClick(widget, Qt::Key_Escape);
  EXPECT_EQ(asked, 2);
  QTest::keyClick(widget, Qt::Key_Space);
  EXPECT_EQ(asked, 3);
}

TEST_F(ChildTest, NothingIsSeenBeforeShow) { EXPECT_THAT(VisibleChildren(), IsEmpty()); }

TEST_F(ChildTest, OpensInTheMainWindowWithItsCaptionWhollyInView) {
  ShowBoth();
  ASSERT_NE(Sub("první"), nullptr);
  ASSERT_NE(Sub("druhé"), nullptr);
  EXPECT_NE(Sub("první")->pos(), Sub("druhé")->pos());
  EXPECT_EQ(Sub("první")->windowIcon().isNull(), false);
}

TEST_F(ChildTest, UsersTurningToAWindowIsToldOnce) {
  ShowBoth();
  EXPECT_THAT(activated_, IsEmpty()) << "showing is the program's act";
  Desktop().setActiveSubWindow(Sub("první"));
  EXPECT_THAT(activated_, ElementsAre("první"));
}

TEST_F(ChildTest, ActivationByTheProgramOrByAnothersEndIsNotTheUsers) {
  ShowBoth();
  first_view_->Activate();
  second_view_->Activate();
  second_view_->Close();
  second_view_.reset();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_THAT(activated_, IsEmpty());
}

TEST_F(ChildTest, CloseBoxAsksAndTheWindowStays) {
  ShowBoth();
  Sub("první")->close();
  EXPECT_THAT(closing_, ElementsAre("první"));
  EXPECT_NE(Sub("první"), nullptr);
}

TEST_F(ChildTest, WindowMayCloseInsideItsOwnCloseRequest) {
  first_.CloseRequested.Connect([this] { first_view_->Close(); });
  ShowBoth();
  Sub("první")->close();
  EXPECT_EQ(Sub("první"), nullptr);
}

TEST_F(ChildTest, ClosedWindowCanBeOpenedAgainAtOnce) {
  ShowBoth();
  first_view_->Close();
  Child again(loop_);
  const auto view = system_.CreateView(again);
  view->Show();
  EXPECT_EQ(VisibleChildren().size(), 2U);
}

TEST_F(ChildTest, CtrlWDoesNotClose) {
  first_view_->Show();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_W, Qt::ControlModifier);
  EXPECT_THAT(closing_, IsEmpty());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F4, Qt::ControlModifier);
  EXPECT_THAT(closing_, ElementsAre("první"));
}

TEST_F(ChildTest, KeyboardFollowsTheModelOfTheActiveWindow) {
  ShowBoth();
  second_.cmdNovy.SetFocus();
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "cmdNovy");
  first_.txtDluznaCastka.SetFocus();
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "cmdNovy") << "another window is active";
  first_view_->Activate();
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "txtDluznaCastka");
}

TEST_F(ChildTest, MinimisedWindowIsRestoredByShow) {
  ShowBoth();
  QMdiSubWindow* sub = Sub("první");
  sub->showMinimized();
  first_view_->Show();
  EXPECT_FALSE(sub->isMinimized());
  EXPECT_EQ(Desktop().activeSubWindow(), sub);
}

TEST_F(ChildTest, KeyboardFindsItsPlaceAgainInAWindowThatWasMinimisedOrCovered) {
  ShowBoth();
  first_view_->Activate();
  first_.txtDluznaCastka.SetFocus();
  Sub("první")->showMinimized();
  EXPECT_EQ(first_.focused(), &first_.txtDluznaCastka) << "minimised";
  first_view_->Show();
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "txtDluznaCastka");
  // Of maximised windows only the active one is seen.
  Sub("první")->showMaximized();
  second_view_->Show();
  EXPECT_EQ(first_.focused(), &first_.txtDluznaCastka) << "covered";
  second_view_->Close();
  first_view_->Activate();
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "txtDluznaCastka");
}

TEST_F(ChildTest, KeyboardStaysWhereItWasWhenAMaximisedWindowIsRestored) {
  ShowBoth();
  first_view_->Activate();
  first_.txtDluznaCastka.SetFocus();
  Sub("první")->showMaximized();
  QCoreApplication::processEvents();
  int moved = 0;
  first_.FocusMoved.Connect([&] { ++moved; });
  Sub("první")->showNormal();
  QCoreApplication::processEvents();
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "txtDluznaCastka");
  EXPECT_EQ(first_.focused(), &first_.txtDluznaCastka);
  EXPECT_EQ(moved, 0) << "no hint is written either";
}

TEST_F(ChildTest, CtrlF6TurnsToTheNextWindow) {
  ShowBoth();
  second_.txtDluznaCastka.SetFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6, Qt::ControlModifier);
  EXPECT_THAT(activated_, ElementsAre("první"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6, Qt::ControlModifier);
  EXPECT_THAT(activated_, ElementsAre("první", "druhé"));
}

TEST_F(ChildTest, EscClosesAWindowThatSaysSo) {
  Child info(loop_);
  info.SetClosesByEsc();
  int asked = 0;
  info.CloseRequested.Connect([&] { ++asked; });
  first_view_->Show();
  const auto view = system_.CreateView(info);
  view->Show();
  info.txtDluznaCastka.SetFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_EQ(asked, 1);
  first_view_->Activate();
  first_.txtDluznaCastka.SetFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_EQ(asked, 1);
  EXPECT_THAT(closing_, IsEmpty());
}

struct CommandKey {
  const char* command;
  int key;
  Qt::KeyboardModifiers modifiers;
};

TEST_F(WindowSystemTest, CommandsHaveKeysOnAnyKeyboardAndAreGivenOnce) {
  const CommandKey keys[] = {
      {"mnuJednotlivyVypocet", Qt::Key_1, Qt::ControlModifier},
      {"mnuJednotlivyVypocet", Qt::Key_Plus, Qt::ControlModifier},
      {"mnuPostupnyVypocet", Qt::Key_2, Qt::ControlModifier},
      {"mnuPostupnyVypocet", u'Ě', Qt::ControlModifier},
      {"mnuTiskVypoctu", Qt::Key_P, Qt::ControlModifier},
      {"mnuKopirovat", Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier},
  };
  for (const CommandKey& key : keys) {
    SCOPED_TRACE(key.command);
    const auto& command = *Main()->findChild<QAction*>(key.command);
    int given = 0;
    const auto connection =
        QObject::connect(&command, &QAction::triggered, Main(), [&given] { ++given; });
    const auto press = [&key](bool repeated) {
      QTest::simulateEvent(Main(), true, key.key, key.modifiers, QString(), repeated);
    };
    press(false);
    EXPECT_EQ(given, 1);
    press(true);
    EXPECT_EQ(given, 1) << "a key that is held prints no second copy";
    QObject::disconnect(connection);
    EXPECT_FALSE(command.shortcut().isEmpty()) << "the menu shows the key";
  }
}

TEST_F(ChildTest, AccessKeyPressesItsButtonAtOnceAndOnce) {
  int clicks = 0;
  first_.cmdNovy.Click.Connect([&] { ++clicks; });
  // The main window's menu "&Výpočty" has the second one's key too.
  for (const auto& [caption, key] : {std::pair("&Přidat", Qt::Key_P), {"&výpočet", Qt::Key_V}}) {
    SCOPED_TRACE(caption);
    clicks = 0;
    first_.cmdNovy.SetCaption(caption);
    first_view_->Show();
    const auto press = [key = key](bool repeated) {
      QTest::simulateEvent(QApplication::focusWidget(), true, key, Qt::AltModifier, QString(),
                           repeated);
    };
    press(false);
    EXPECT_EQ(clicks, 1) << "what the user does next meets what the button has done";
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    press(true);
    press(true);
    EXPECT_EQ(clicks, 1) << "a key that is held down adds no further payments";
    press(false);
    EXPECT_EQ(clicks, 2);
  }
}

TEST_F(ChildTest, EnterThatIsHeldPressesOnce) {
  int clicks = 0;
  first_.cmdNovy.Click.Connect([&] { ++clicks; });
  first_view_->Show();
  first_.cmdNovy.SetFocus();
  QWidget* button = QApplication::focusWidget();
  QTest::keyClick(button, Qt::Key_Return);
  EXPECT_EQ(clicks, 1);
  QTest::simulateEvent(button, true, Qt::Key_Return, Qt::NoModifier, "\r", /*repeat=*/true);
  EXPECT_EQ(clicks, 1);
  // As X says it: the key goes up and down in the same moment.
  constexpr quint64 kMoment = 1000;
  const auto send = [button](QEvent::Type type, quint64 time) {
    QKeyEvent event(type, Qt::Key_Return, Qt::NoModifier, "\r");
    event.setTimestamp(time);
    QApplication::sendEvent(button, &event);
  };
  send(QEvent::KeyRelease, kMoment);
  for (const auto& [time, expected] : {std::pair(kMoment, 1), {kMoment + 1, 2}}) {
    send(QEvent::ShortcutOverride, time);
    send(QEvent::KeyPress, time);
    EXPECT_EQ(clicks, expected);
  }
}

TEST_F(ChildTest, F1AsksTheWindowForHelpThatHasTheKeyboard) {
  std::vector<std::string> asked;
  main_.HelpRequested.Connect([&] { asked.emplace_back("main"); });
  for (Child* child : {&first_, &second_}) {
    child->HelpRequested.Connect([&asked, child] { asked.push_back(child->caption()); });
  }
  const auto press = [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1); };
  Main()->setFocus();
  press();
  ShowBoth();
  second_.txtDluznaCastka.SetFocus();
  press();
  first_view_->Activate();
  first_.cmdNovy.SetFocus();
  press();
  first_view_->Close();
  second_view_->Close();
  Main()->setFocus();
  press();
  EXPECT_THAT(asked, ElementsAre("main", "druhé", "první", "main"));
}

TEST_F(ChildTest, F1InAMessageBoxIsNotForTheWindowBelow) {
  int asked = 0;
  for (ui::Window* window : {&main_, static_cast<ui::Window*>(&first_)}) {
    window->HelpRequested.Connect([&] { ++asked; });
  }
  first_view_->Show();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
  ASSERT_EQ(asked, 1);
  QMessageBox box(Main());
  QTimer::singleShot(0, &box, [&] {
    QTest::keyClick(&box, Qt::Key_F1);
    box.accept();
  });
  box.exec();
  EXPECT_EQ(asked, 1);
}

TEST_F(WindowSystemTest, F10OpensTheMenuBar) {
  QTest::keyClick(Main(), Qt::Key_F10);
  QWidget* menu = QApplication::activePopupWidget();
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->objectName(), "mnuVypocty");
  menu->close();
}

}  // namespace
}  // namespace velta::qt
