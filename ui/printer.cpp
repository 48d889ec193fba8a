#include "ui/printer.h"

#include <algorithm>
#include <iterator>

namespace velta::ui {

std::vector<std::size_t> PageStarts(const std::vector<PrintedLine>& lines) {
  constexpr std::size_t kPage = kLinesOfPage;
  std::vector<std::size_t> starts = {0};
  std::size_t end = 0;
  for (std::size_t block = 0; block < lines.size(); block = end) {
    end = block + 1;
    while (end < lines.size() && lines[end - 1].keep_with_next) ++end;
    if (end - starts.back() <= kPage) continue;
    if (end - block <= kPage) starts.push_back(block);
    while (end - starts.back() > kPage) starts.push_back(starts.back() + kPage);
  }
  return starts;
}

}  // namespace velta::ui
