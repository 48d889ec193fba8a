#include "ui/qt/window_places.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QSettings>
#include <QTest>

#include "ui/memory/memory_platform.h"
#include "ui/qt/window_system.h"
#include "ui/window.h"

namespace velta::qt {
namespace {

/// Each session is the program anew, over what the one before left behind.
class Session {
 public:
  explicit Session(const WindowPlaces& places) : system_(&places) { main_view_->Show(); }
  ~Session() {
    if (child_view_ != nullptr) child_view_->Close();
    main_view_->Close();
    child_view_.reset();
    main_view_.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  static QMainWindow& Main() {
    QMainWindow* found = nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      auto* main = qobject_cast<QMainWindow*>(widget);
      if (main != nullptr && main->isVisible()) found = main;
    }
    return *found;
  }
  QMdiSubWindow& OpenChild() {
    child_view_ = system_.CreateView(child_);
    child_view_->Show();
    return *Desktop().currentSubWindow();
  }
  static QMdiArea& Desktop() { return *Main().findChild<QMdiArea*>(); }

 private:
  ui::MemoryEventLoop loop_;
  WindowSystem system_;
  ui::Window main_{"frmMenu", ui::WindowKind::kMain, loop_};
  ui::Window child_{"frmAbout", ui::WindowKind::kChild, loop_};
  std::unique_ptr<ui::WindowView> main_view_ = system_.CreateView(main_);
  std::unique_ptr<ui::WindowView> child_view_;
};

class WindowPlacesTest : public ::testing::Test {
 protected:
  static QString NameOfTest() {
    return ::testing::UnitTest::GetInstance()->current_test_info()->name();
  }
  QSettings File() const {
    return {QSettings::IniFormat, QSettings::UserScope, NameOfTest(), "windows"};
  }

  const WindowPlaces places_{NameOfTest()};
};

TEST_F(WindowPlacesTest, MainWindowComesBackWhereItStood) {
  QRect left;
  {
    const Session first(places_);
    first.Main().setGeometry(31, 47, 650, 480);
    left = first.Main().geometry();
  }
  const Session second(places_);
  EXPECT_EQ(second.Main().geometry(), left);
  EXPECT_FALSE(second.Main().isMaximized());
}

TEST_F(WindowPlacesTest, MaximisedMainWindowComesBackMaximised) {
  {
    const Session first(places_);
    first.Main().showMaximized();
  }
  const Session second(places_);
  EXPECT_TRUE(second.Main().isMaximized());
}

TEST_F(WindowPlacesTest, MainWindowOffTheScreenIsBroughtBack) {
  {
    const Session first(places_);
    first.Main().setGeometry(5000, -4000, 650, 480);
  }
  const Session second(places_);
  const QRect screen = second.Main().screen()->availableGeometry();
  EXPECT_TRUE(screen.contains(second.Main().geometry())) << "wholly";
}

TEST_F(WindowPlacesTest, ChildComesBackWhereTheUserPutIt) {
  QRect left;
  {
    Session first(places_);
    QMdiSubWindow& child = first.OpenChild();
    child.move(child.pos() + QPoint(9, 21));
    child.resize(child.size() + QSize(11, 5));
    left = child.geometry();
  }
  Session second(places_);
  EXPECT_EQ(second.OpenChild().geometry(), left);
}

TEST_F(WindowPlacesTest, ChildThatWasNotMovedIsNotRemembered) {
  {
    Session first(places_);
    first.OpenChild();
  }
  EXPECT_FALSE(File().contains("Windows/frmAbout/place"));
  EXPECT_TRUE(File().contains("Windows/frmMenu/place"));
}

TEST_F(WindowPlacesTest, ChildOutOfViewIsBroughtBack) {
  File().setValue("Windows/frmAbout/place", QRect(3000, -200, 4000, 4000));
  Session session(places_);
  const QMdiSubWindow& child = session.OpenChild();
  EXPECT_EQ(child.pos(), QPoint(0, 0));
  EXPECT_EQ(child.size(), session.Desktop().viewport()->size().expandedTo(child.minimumSizeHint()));
}

TEST_F(WindowPlacesTest, ChildIsNeverSmallerThanItsContents) {
  File().setValue("Windows/frmAbout/place", QRect(1, 1, 5, 5));
  Session session(places_);
  const QMdiSubWindow& child = session.OpenChild();
  EXPECT_EQ(child.size(), child.minimumSizeHint());
}

TEST_F(WindowPlacesTest, MaximisedChildComesBackMaximisedAndRestoresToItsPlace) {
  QRect left;
  {
    Session first(places_);
    QMdiSubWindow& child = first.OpenChild();
    child.move(child.pos() + QPoint(9, 21));
    left = child.geometry();
    child.showMaximized();
  }
  {
    Session second(places_);
    QMdiSubWindow& child = second.OpenChild();
    EXPECT_TRUE(child.isMaximized());
    child.showNormal();
    EXPECT_EQ(child.geometry(), left);
  }
  Session third(places_);
  const QMdiSubWindow& child = third.OpenChild();
  EXPECT_FALSE(child.isMaximized());
  EXPECT_EQ(child.geometry(), left);
}

TEST_F(WindowPlacesTest, ChildThatIsMaximisedFromBeyondTheEdgeKeepsItsPlace) {
  QRect left;
  {
    Session first(places_);
    QMdiSubWindow& child = first.OpenChild();
    child.move(first.Desktop().viewport()->rect().center());
    QCoreApplication::processEvents();  // the scroll bars come, and go when it is maximised
    left = child.geometry();
    child.showMaximized();
    QCoreApplication::processEvents();
  }
  EXPECT_EQ(File().value("Windows/frmAbout/place").toRect(), left);
}

TEST_F(WindowPlacesTest, MinimisedChildComesBackToItsPlace) {
  QRect left;
  {
    Session first(places_);
    QMdiSubWindow& child = first.OpenChild();
    child.move(child.pos() + QPoint(9, 21));
    left = child.geometry();
    child.showMinimized();
    QCoreApplication::processEvents();
  }
  Session second(places_);
  const QMdiSubWindow& child = second.OpenChild();
  EXPECT_FALSE(child.isMinimized());
  EXPECT_EQ(child.geometry(), left);
}

TEST_F(WindowPlacesTest, GarbledFileIsWorthNothing) {
  File().setValue("Windows/frmMenu/place", "nonsense");
  File().setValue("Windows/frmAbout/place", "nonsense");
  Session session(places_);
  EXPECT_TRUE(session.Main().isVisible());
  EXPECT_TRUE(session.OpenChild().isVisible());
}

TEST_F(WindowPlacesTest, FolderThatCannotBeWrittenIsNoMatter) {
  const WindowPlaces nowhere("x/../../../../../../dev/null/velta");
  { const Session first(nowhere); }
  const Session second(nowhere);
  EXPECT_TRUE(second.Main().isVisible());
}

}  // namespace
}  // namespace velta::qt
