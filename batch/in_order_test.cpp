#include "batch/in_order.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>

namespace velta {
namespace {

/// Blocks that hold their number as text.
std::function<bool(Block&)> Numbers(int count, int fails_at = -1) {
  return [count, fails_at, next = 0](Block& block) mutable {
    if (next == fails_at) throw std::runtime_error("read");
    if (next == count) return false;
    block.bytes = std::to_string(next++);
    return true;
  };
}

/// The later blocks of each few are ready first.
Compute Slow(int fails_at = -1) {
  return [fails_at](const Block& block, BlockResult& result) {
    const int number = std::stoi(block.bytes);
    if (number == fails_at) throw std::runtime_error("compute");
    std::this_thread::sleep_for(std::chrono::microseconds(100 * (7 - number % 8)));
    result.text = block.bytes + " ";
    result.rows = 1;
  };
}

std::string Written(unsigned threads, int count, int read_fails, int compute_fails, int write_fails,
                    std::string* failure) {
  std::string written;
  int next = 0;
  try {
    RunInOrder(
        threads, Numbers(count, read_fails), [&] { return Slow(compute_fails); },
        [&](const BlockResult& result) {
          if (next++ == write_fails) throw std::runtime_error("write");
          written += result.text;
        });
  } catch (const std::runtime_error& error) {
    *failure = error.what();
  }
  return written;
}

TEST(RunInOrderTest, TheOrderStaysWhateverIsReadyFirst) {
  std::string expected;
  for (int i = 0; i < 100; ++i) expected += std::to_string(i) + " ";
  for (const unsigned threads : {1U, 2U, 3U, 8U, 200U}) {
    std::string failure;
    EXPECT_EQ(Written(threads, 100, -1, -1, -1, &failure), expected) << threads;
    EXPECT_EQ(failure, "");
  }
}

TEST(RunInOrderTest, NothingToDo) {
  std::string failure;
  EXPECT_EQ(Written(4, 0, -1, -1, -1, &failure), "");
  EXPECT_EQ(failure, "");
}

TEST(RunInOrderTest, WhatFailsEndsItAfterTheBlocksBefore) {
  for (const unsigned threads : {1U, 2U, 8U}) {
    std::string failure;
    EXPECT_EQ(Written(threads, 100, 5, -1, -1, &failure), "0 1 2 3 4 ") << threads;
    EXPECT_EQ(failure, "read");
    EXPECT_EQ(Written(threads, 100, -1, 6, -1, &failure), "0 1 2 3 4 5 ") << threads;
    EXPECT_EQ(failure, "compute");
    EXPECT_EQ(Written(threads, 100, -1, -1, 3, &failure), "0 1 2 ") << threads;
    EXPECT_EQ(failure, "write");
  }
}

TEST(RunInOrderTest, NoMoreBlocksAreHeldThanThereAreThreads) {
  std::atomic<int> held = 0;
  std::atomic<int> most = 0;
  const auto read = Numbers(60);
  RunInOrder(
      3,
      [&](Block& block) {
        most = std::max(most.load(), ++held);
        return read(block);
      },
      [] { return Slow(); }, [&](const BlockResult& /*result*/) { --held; });
  EXPECT_LE(most, 3);
}

}  // namespace
}  // namespace velta
