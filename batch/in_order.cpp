#include "batch/in_order.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>

namespace velta {

namespace {

class Run {
 public:
  Run(const std::function<bool(Block&)>& read, const std::function<void(const BlockResult&)>& write)
      : read_(read), write_(write) {}

  void Work(const std::function<Compute()>& new_worker) {
    const Compute compute = new_worker();
    Block block;
    BlockResult result;
    std::size_t turn = 0;
    while (TakeBlock(block, turn)) {
      std::exception_ptr failure;
      try {
        result.text.clear();
        result.rows = result.errors = 0;
        compute(block, result);
      } catch (...) {
        failure = std::current_exception();
      }
      if (!Finish(turn, [&] {
            if (failure) std::rethrow_exception(failure);
            write_(result);
          })) {
        return;
      }
    }
  }

  void ThrowFailure() const {
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  bool TakeBlock(Block& block, std::size_t& turn) {
    const std::lock_guard lock(reading_);
    if (at_end_) return false;
    turn = next_block_++;
    try {
      if (read_(block)) return true;
      at_end_ = true;
    } catch (...) {
      at_end_ = true;
      const auto failure = std::current_exception();
      Finish(turn, [&] { std::rethrow_exception(failure); });
    }
    return false;
  }

  /// Does `act` when all blocks before this one are finished; false where one has failed.
  template <class Act>
  bool Finish(std::size_t turn, const Act& act) {
    std::unique_lock lock(writing_);
    turn_.wait(lock, [&] { return failure_ || next_turn_ == turn; });
    if (failure_) return false;
    try {
      act();
    } catch (...) {
      failure_ = std::current_exception();
    }
    ++next_turn_;
    turn_.notify_all();
    return !failure_;
  }

  const std::function<bool(Block&)>& read_;
  const std::function<void(const BlockResult&)>& write_;

  std::mutex reading_;
  bool at_end_ = false;
  std::size_t next_block_ = 0;

  std::mutex writing_;
  std::condition_variable turn_;
  std::size_t next_turn_ = 0;
  std::exception_ptr failure_;
};

}  // namespace

void RunInOrder(unsigned threads, const std::function<bool(Block&)>& read,
                const std::function<Compute()>& new_worker,
                const std::function<void(const BlockResult&)>& write) {
  Run run(read, write);
  {
    std::vector<std::jthread> others;
    for (unsigned i = 1; i < threads; ++i) {
      others.emplace_back([&] { run.Work(new_worker); });
    }
    run.Work(new_worker);
  }
  run.ThrowFailure();
}

}  // namespace velta
