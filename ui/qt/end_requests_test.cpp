#include "ui/qt/end_requests.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>
#include <QTest>
#include <optional>

namespace velta::qt {
namespace {

/// Notes that it is asked to close, which it leaves to the program, as ours does.
class AskedWindow : public QMainWindow {
 public:
  int asked = 0;

 protected:
  void closeEvent(QCloseEvent* event) override {
    ++asked;
    event->ignore();
    hide();
  }
};

class EndRequestsTest : public ::testing::Test {
 protected:
  EndRequestsTest() { window_.show(); }

  void ExpectAskedToClose() {
    EXPECT_TRUE(QTest::qWaitFor([this] { return window_.asked > 0; }));
  }

  EventLoop loop_;
  std::optional<EndRequests> end_requests_{std::in_place, loop_};
  AskedWindow window_;
};

TEST_F(EndRequestsTest, EverySignalAsksTheMainWindowToClose) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    end_requests_.reset();
    end_requests_.emplace(loop_);
    window_.asked = 0;
    window_.show();
    EXPECT_EQ(std::raise(signal), 0);
    EXPECT_EQ(window_.asked, 0) << "not within the signal's handler";
    ExpectAskedToClose();
  }
}

TEST_F(EndRequestsTest, EndOfTheSessionAsksTheMainWindowToClose) {
  QEvent quit(QEvent::Quit);
  QCoreApplication::sendEvent(qApp, &quit);
  EXPECT_TRUE(quit.isAccepted());
  ExpectAskedToClose();
}

TEST_F(EndRequestsTest, BoxesOverBoxesArePutAwayFirst) {
  QMessageBox outer(&window_);
  QMessageBox inner(&window_);
  QTimer::singleShot(0, &inner, [&] {
    QTimer::singleShot(0, &inner, [] { std::raise(SIGTERM); });
    inner.exec();
    EXPECT_EQ(window_.asked, 0);
  });
  outer.exec();
  EXPECT_EQ(window_.asked, 0);
  ExpectAskedToClose();
}

TEST_F(EndRequestsTest, MenuIsPutAwayFirst) {
  QMenu menu(&window_);
  menu.addAction("a");
  QTimer::singleShot(0, &menu, [] { std::raise(SIGTERM); });
  EXPECT_EQ(menu.exec(QPoint(0, 0)), nullptr);
  ExpectAskedToClose();
}

TEST_F(EndRequestsTest, WithoutAMainWindowTheLoopEnds) {
  window_.hide();
  loop_.After(std::chrono::milliseconds(0), [] { std::raise(SIGTERM); });
  EXPECT_EQ(loop_.Run(), 0);
  EXPECT_EQ(window_.asked, 0);
}

TEST(SignalsTest, IgnoredSignalStaysIgnoredAndAllIsAsBefore) {
  std::signal(SIGHUP, SIG_IGN);
  {
    EventLoop loop;
    const EndRequests end_requests(loop);
    AskedWindow window;
    window.show();
    std::raise(SIGHUP);
    QTest::qWait(100);
    EXPECT_EQ(window.asked, 0);
  }
  EXPECT_EQ(std::signal(SIGHUP, SIG_DFL), SIG_IGN);
  EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_DFL);
}

}  // namespace
}  // namespace velta::qt
