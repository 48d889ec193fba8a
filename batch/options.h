#pragma once

#include <optional>
#include <string>
#include <variant>

#include "batch/row_writer.h"
#include "calc/rounding.h"

namespace velta {

/// What the command line asks for.
struct BatchOptions {
  std::string file;          ///< "": the standard input
  std::string rates_folder;  ///< "": the program's own
  Rounding rounding = Rounding::kUpToTenHaler;
  bool by_half_years = false;
  OutputFormat format = OutputFormat::kCsv;
  std::optional<char> separator;     ///< none: found in the header
  std::optional<char> decimal_sign;  ///< none: found in the first rows
  unsigned threads = 0;              ///< 0: one for each core
};

/// What is told instead of a run: the help and the version (status 0), or what is wrong (status 2).
struct BatchAnswer {
  std::string text;
  int status = 0;
};

std::variant<BatchOptions, BatchAnswer> ReadOptions(int argc, const char* const* argv,
                                                    const std::string& version);

}  // namespace velta
