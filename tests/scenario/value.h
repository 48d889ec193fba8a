#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <utility>

#include "tests/scenario/script.h"

namespace velta::scenario {

/// Something read from the program: a text, or a number, date or truth that stands without quotes.
class Value {
 public:
  static Value Text(std::string_view text) { return {std::string(text), true}; }
  static Value Bare(std::string text) { return {std::move(text), false}; }
  static Value Number(int number) { return Bare(std::to_string(number)); }
  static Value Truth(bool truth) { return Bare(truth ? "true" : "false"); }
  static Value Day(std::chrono::sys_days day);  ///< D.M.YYYY

  /// Without quotes and escapes.
  const std::string& plain() const { return plain_; }
  /// As the transcript shows it.
  std::string Shown() const { return quoted_ ? Quote(plain_) : plain_; }

 private:
  Value(std::string plain, bool quoted) : plain_(std::move(plain)), quoted_(quoted) {}

  std::string plain_;
  bool quoted_;
};

}  // namespace velta::scenario
