#include "ui/qt/event_loop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>
#include <optional>
#include <string>

namespace velta::qt {
namespace {

using namespace std::chrono_literals;

class EventLoopTest : public ::testing::Test {
 protected:
  std::function<void()> Note(char name) {
    return [this, name] { ran_ += name; };
  }
  void WaitFor(const std::string& expected) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return ran_.size() >= expected.size(); }));
    EXPECT_EQ(ran_, expected);
  }
  /// Long enough for whatever is due; what must not run is given the chance to.
  static void Settle() { QTest::qWait(30); }

  EventLoop loop_;
  std::string ran_;
};

TEST_F(EventLoopTest, NeverRunsInsideTheRequest) {
  loop_.After(0ms, Note('a'));
  EXPECT_EQ(ran_, "");
  WaitFor("a");
}

TEST_F(EventLoopTest, RunsInTheOrderOfTimeAndThenOfRequest) {
  loop_.After(20ms, Note('d'));
  loop_.After(0ms, Note('a'));
  loop_.After(0ms, Note('b'));
  loop_.After(5ms, Note('c'));
  WaitFor("abcd");
}

TEST_F(EventLoopTest, WhatACallbackAsksForRunsOnALaterTurn) {
  loop_.After(0ms, [this] {
    loop_.After(0ms, Note('b'));
    ran_ += 'a';
  });
  loop_.After(0ms, Note('A'));
  WaitFor("aAb");
}

TEST_F(EventLoopTest, CancelledRequestsDoNotRun) {
  const auto first = loop_.After(0ms, Note('x'));
  ui::EventLoop::Ticket later = 0;
  loop_.After(0ms, [&] { loop_.Cancel(later); });
  later = loop_.After(0ms, Note('y'));
  loop_.After(0ms, Note('a'));
  loop_.Cancel(first);
  loop_.Cancel(first);
  loop_.Cancel(12345);
  Settle();
  EXPECT_EQ(ran_, "a");
}

TEST_F(EventLoopTest, CallbacksWaitWhileABoxIsOpen) {
  std::optional<EventLoop::Pause> outer;
  std::optional<EventLoop::Pause> inner;
  outer.emplace(loop_);
  inner.emplace(loop_);
  loop_.After(0ms, Note('a'));
  Settle();
  inner.reset();
  Settle();
  EXPECT_EQ(ran_, "");
  outer.reset();
  EXPECT_EQ(ran_, "");
  WaitFor("a");
}

TEST_F(EventLoopTest, CallbacksWaitWhileABoxOfACallbackIsOpen) {
  loop_.After(0ms, [this] {
    {
      const EventLoop::Pause box(loop_);
      Settle();
    }
    ran_ += 'a';
  });
  loop_.After(0ms, Note('b'));
  WaitFor("ab");
}

TEST_F(EventLoopTest, WhatRunsInBoxesRunsWhileOneIsOpen) {
  std::optional<EventLoop::Pause> box(loop_);
  loop_.After(0ms, Note('x'));
  loop_.After(0ms, ui::EventLoop::InBoxes::kRuns, Note('a'));
  WaitFor("a");
  loop_.After(5ms, ui::EventLoop::InBoxes::kRuns, Note('b'));
  WaitFor("ab");
  box.reset();
  WaitFor("abx");
}

TEST_F(EventLoopTest, WhatRunsInBoxesRunsWhileOneOfACallbackIsOpen) {
  loop_.After(20ms, ui::EventLoop::InBoxes::kRuns, Note('a'));
  loop_.After(0ms, [this] {
    {
      const EventLoop::Pause box(loop_);
      EXPECT_TRUE(QTest::qWaitFor([&] { return !ran_.empty(); }));
    }
    ran_ += 'b';
  });
  loop_.After(0ms, Note('c'));
  WaitFor("abc");
}

TEST_F(EventLoopTest, WhatRunsInBoxesInterruptsNothingElse) {
  loop_.After(0ms, [this] {
    Settle();
    ran_ += 'a';
  });
  loop_.After(0ms, ui::EventLoop::InBoxes::kRuns, [this] {
    const EventLoop::Pause box(loop_);
    Settle();
    ran_ += 'b';
  });
  loop_.After(0ms, ui::EventLoop::InBoxes::kRuns, Note('c'));
  WaitFor("abc");
}

TEST_F(EventLoopTest, OneCallbackAtATimeAlsoInNestedLoops) {
  loop_.After(0ms, [this] {
    Settle();
    ran_ += 'a';
  });
  loop_.After(0ms, Note('b'));
  WaitFor("ab");
}

TEST_F(EventLoopTest, QuitEndsTheLoopAfterTheCallback) {
  loop_.After(0ms, [this] {
    loop_.Quit();
    ran_ += 'a';
  });
  EXPECT_EQ(loop_.Run(), 0);
  EXPECT_EQ(ran_, "a");
}

TEST_F(EventLoopTest, QuitBeforeTheLoopStartsIsNotLost) {
  loop_.Quit();
  loop_.After(0ms, Note('x'));
  EXPECT_EQ(loop_.Run(), 0);
  EXPECT_EQ(ran_, "");
}

}  // namespace
}  // namespace velta::qt
