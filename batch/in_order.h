#pragma once

#include <functional>

#include "batch/block_reader.h"

namespace velta {

/// What has become of a block.
struct BlockResult {
  std::string text;
  std::size_t rows = 0;
  std::size_t errors = 0;  ///< rows that could not be computed
};

/// Reads blocks until `read` returns false, computes them in `threads` threads and writes them in
/// the order in which they were read. One thread at a time reads, and one writes; each computes
/// with what `new_worker` has given it. As many blocks are held as there are threads.
///
/// What one of them throws ends it all, after the blocks before that one have been written, and is
/// thrown again.
using Compute = std::function<void(const Block&, BlockResult&)>;
void RunInOrder(unsigned threads, const std::function<bool(Block&)>& read,
                const std::function<Compute()>& new_worker,
                const std::function<void(const BlockResult&)>& write);

}  // namespace velta
