#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "batch/block_reader.h"
#include "batch/options.h"
#include "engine/bank_tables.h"

namespace velta {

/// The output cannot be written any further; the reason in Czech.
class OutputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Where a run reads and writes.
struct BatchStreams {
  ReadBytes read;
  std::function<void(std::string_view)> write;  ///< all of it, or OutputError
  /// Called from time to time with the number of rows that are written.
  std::function<void(std::size_t)> progress;
};

/// What has become of all rows.
struct BatchCounts {
  std::size_t rows = 0;
  std::size_t errors = 0;  ///< rows that could not be computed
};

/// Computes a whole file. What was written before an InputError or OutputError stays written.
BatchCounts RunBatch(const BatchOptions& options, const BankTables& tables,
                     const BatchStreams& streams);

}  // namespace velta
