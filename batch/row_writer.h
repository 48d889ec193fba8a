#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "batch/columns.h"
#include "batch/row_calculation.h"

namespace velta {

enum class OutputFormat {
  kCsv,        ///< as the input: separator, decimal sign and line ends
  kJsonLines,  ///< an object for each row, with decimal points
};

/// The names of the added columns.
std::vector<std::string_view> AddedColumns(bool by_half_years);

/// Writes rows with their results behind them. Several threads may use one at a time.
class RowWriter {
 public:
  virtual ~RowWriter() = default;
  /// What stands above the rows.
  virtual void Header(std::string& out) const = 0;
  /// A row, which came as `record` with these fields: once for each result, once where there is
  /// none.
  virtual void Row(std::string_view record, const std::vector<std::string_view>& fields,
                   const RowOutcome& outcome, std::string& out) const = 0;
};

/// How a file is written.
struct WriterRules {
  std::string header;  ///< the first record, with its line end
  std::vector<std::string> names;
  char separator = ';';
  bool mark = false;  ///< a byte order mark comes first, as in the input
  FileColumns columns;
  LocaleFormat numbers;
  bool by_half_years = false;
};

std::unique_ptr<RowWriter> MakeWriter(OutputFormat format, WriterRules rules);

}  // namespace velta
