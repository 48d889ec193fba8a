#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "values/error.h"

namespace velta {

/// A list of texts of which one, or none, is selected: what remains of a list box where nobody
/// looks.
class SelectableList {
 public:
  int size() const { return static_cast<int>(texts_.size()); }
  /// Rows count from 0; outside the list: Error 9.
  const std::string& operator[](int row) const {
    if (row < 0 || row >= size()) throw Error(ErrorNumber::kOutOfRange);
    return texts_[static_cast<std::size_t>(row)];
  }
  void Add(std::string text) { texts_.push_back(std::move(text)); }
  /// Empties the list; nothing is selected then.
  void Clear() {
    texts_.clear();
    selected_ = -1;
  }

  /// The selected row, or -1.
  int selected() const { return selected_; }
  /// Selects a row; -1 selects none. A row that does not exist: Error 380, and the selection stays.
  void Select(int row) {
    if (row < -1 || row >= size()) throw Error(ErrorNumber::kBadPropertyValue);
    selected_ = row;
  }
  /// "" while nothing is selected.
  std::string SelectedText() const { return selected_ == -1 ? "" : (*this)[selected_]; }

 private:
  std::vector<std::string> texts_;
  int selected_ = -1;
};

}  // namespace velta
