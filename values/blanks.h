#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace velta {

/// `text` without the blanks that it begins with: the ordinary one and the two unbreakable ones,
/// U+00A0 and U+202F, which other programs put into numbers and dates that people paste here.
inline std::string_view SkipBlanks(std::string_view text) {
  // Most texts begin with none: a blank begins with one of these bytes.
  constexpr std::array<std::string_view, 3> kBlanks = {" ", "\u00A0", "\u202F"};
  const auto may_be_blank = [](char c) { return c == ' ' || c == '\xC2' || c == '\xE2'; };
  if (text.empty() || !may_be_blank(text.front())) return text;
  for (std::size_t i = 0; i < kBlanks.size();) {
    if (text.starts_with(kBlanks[i])) {
      text.remove_prefix(kBlanks[i].size());
      i = 0;
    } else {
      ++i;
    }
  }
  return text;
}

}  // namespace velta
