#include "ui/timer.h"

#include <gtest/gtest.h>

#include "ui/memory/memory_platform.h"

namespace velta::ui {
namespace {

using std::chrono::milliseconds;

TEST(TimerTest, OneShotRunsOnceEachTimeItIsArmed) {
  MemoryEventLoop loop;
  Timer timer(loop, Timer::Kind::kOneShot, milliseconds(0));
  int ticks = 0;
  timer.Tick.Connect([&] {
    EXPECT_FALSE(timer.armed()) << "disarmed before its handlers run";
    ++ticks;
  });
  timer.Arm();
  timer.Arm();
  EXPECT_EQ(ticks, 0) << "not before the loop turns";
  loop.RunUntilIdle();
  loop.RunUntilIdle();
  EXPECT_EQ(ticks, 1);
  timer.Arm();
  loop.RunUntilIdle();
  EXPECT_EQ(ticks, 2);
}

TEST(TimerTest, OneShotMayArmItselfAgain) {
  MemoryEventLoop loop;
  Timer timer(loop, Timer::Kind::kOneShot, milliseconds(0));
  int ticks = 0;
  timer.Tick.Connect([&] {
    if (++ticks < 3) timer.Arm();
  });
  timer.Arm();
  loop.RunUntilIdle();
  EXPECT_EQ(ticks, 3);
}

TEST(TimerTest, DisarmedTimerDoesNotRun) {
  MemoryEventLoop loop;
  Timer timer(loop, Timer::Kind::kOneShot, milliseconds(0));
  int ticks = 0;
  timer.Tick.Connect([&] { ++ticks; });
  timer.Arm();
  timer.Disarm();
  loop.RunUntilIdle();
  EXPECT_EQ(ticks, 0);
}

TEST(TimerTest, ArmedTimerMayBeRunAtOnceAndThenDoesNotRunAgain) {
  MemoryEventLoop loop;
  Timer timer(loop, Timer::Kind::kOneShot, milliseconds(0));
  int ticks = 0;
  timer.Tick.Connect([&] {
    EXPECT_FALSE(timer.armed());
    ++ticks;
  });
  timer.RunNow();
  EXPECT_EQ(ticks, 0) << "it was not armed";
  timer.Arm();
  timer.RunNow();
  EXPECT_EQ(ticks, 1);
  loop.RunUntilIdle();
  EXPECT_EQ(ticks, 1);
}

TEST(TimerTest, DestroyedTimerDoesNotRun) {
  MemoryEventLoop loop;
  int ticks = 0;
  {
    Timer timer(loop, Timer::Kind::kOneShot, milliseconds(0));
    timer.Tick.Connect([&] { ++ticks; });
    timer.Arm();
  }
  loop.RunUntilIdle();
  EXPECT_EQ(ticks, 0);
}

TEST(TimerTest, PeriodicRunsUntilItIsDisarmed) {
  MemoryEventLoop loop;
  Timer timer(loop, Timer::Kind::kPeriodic, milliseconds(1000));
  int ticks = 0;
  timer.Tick.Connect([&] {
    if (++ticks == 3) timer.Disarm();
  });
  timer.Arm();
  loop.Advance(milliseconds(999));
  EXPECT_EQ(ticks, 0);
  loop.Advance(milliseconds(1));
  EXPECT_EQ(ticks, 1);
  loop.Advance(milliseconds(10000));
  EXPECT_EQ(ticks, 3);
}

}  // namespace
}  // namespace velta::ui
