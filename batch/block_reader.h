#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "batch/csv_parser.h"

namespace velta {

/// Some records of a file that belong together and are computed at once.
struct Block {
  std::string bytes;
  std::vector<std::size_t> ends;  ///< of each record in them, behind its line end
  std::size_t first_line = 0;     ///< in the file, counted from 1

  std::string_view Record(std::size_t i) const {
    const std::size_t begin = i == 0 ? 0 : ends[i - 1];
    return std::string_view(bytes).substr(begin, ends[i] - begin);
  }
};

/// Puts up to `size` bytes of the input at `to` and returns how many; 0 at its end. An input that
/// cannot be read: InputError.
using ReadBytes = std::function<std::size_t(char* to, std::size_t size)>;

/// Cuts a CSV file into blocks at the ends of records. It holds no more of the file than a block
/// and what was read beyond it.
class BlockReader {
 public:
  static constexpr std::size_t kBlockSize = std::size_t{256} << 10U;
  /// No record may be longer: it could only be a quote that nobody has closed.
  static constexpr std::size_t kMaxRecordSize = std::size_t{1} << 20U;

  /// Nor may the rows that are kept together take more.
  static constexpr std::size_t kMaxGroupSize = std::size_t{64} << 20U;

  /// `block_size` is about how many bytes a block has.
  explicit BlockReader(ReadBytes read, std::size_t block_size = kBlockSize);

  /// Whether the file began with a byte order mark, which is not handed out.
  bool has_mark() const { return has_mark_; }

  /// The first record with its line end. Without `separator` it is the one of ; , and tab by which
  /// most of the columns' names appear. An empty file, or a quote that is not closed: InputError.
  std::string Header(std::optional<char> separator);
  char separator() const { return separator_; }

  /// Rows next to each other with the same text in this column stay in one block, blanks around it
  /// aside; those with none do not matter.
  void KeepTogether(std::size_t column) { together_ = column; }

  /// Hands out the next block; false at the end of the file. A quote that is not closed, a
  /// limit of the above, and what `read` throws: InputError.
  bool Next(Block& block);

 private:
  bool Fill(std::string& bytes);
  void ChooseSeparator();
  void FindRecords(Block& block);
  static std::size_t FirstOpenLine(const Block& block);
  static void CheckSize(const Block& block, std::size_t end);
  std::size_t FirstOfLastGroup(const Block& block);
  std::string Group(std::string_view record);

  ReadBytes read_;
  std::size_t block_size_;
  bool at_end_ = false;
  bool has_mark_ = false;
  char separator_ = ';';
  std::optional<CsvParser> parser_;
  std::optional<std::size_t> together_;
  std::string rest_;  ///< was read but not handed out
  std::size_t line_ = 1;
};

}  // namespace velta
