#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace velta {

/// Why a file cannot be read any further, in Czech.
class InputError : public std::runtime_error {
 public:
  /// `line` counts from 1; 0: the file as a whole.
  InputError(std::size_t line, const std::string& reason)
      : std::runtime_error(reason), line_(line) {}
  std::size_t line() const { return line_; }

 private:
  std::size_t line_;
};

}  // namespace velta
