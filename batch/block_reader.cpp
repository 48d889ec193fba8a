#include "batch/block_reader.h"

#include <algorithm>
#include <array>
#include <utility>

#include "batch/columns.h"
#include "batch/input_error.h"
#include "engine/rate_files.h"

namespace velta {

namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";
constexpr const char* kOpenQuote = "uvozovky, které zde začínají, nikde nekončí";
constexpr const char* kTooLong = "řádek je příliš dlouhý";

std::size_t Lines(std::string_view text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

/// The first record of a text, with its line end; its fields are then those of `parser`. None where
/// the text ends within it; `whole`: unless nothing more comes.
std::optional<std::string_view> FirstRecord(std::string_view text, bool whole, CsvParser& parser) {
  std::size_t end = 0;
  while (end < text.size()) {
    const std::size_t begin = end;
    end = text.find('\n', begin);
    if (end == text.npos && !whole) return std::nullopt;
    end = std::min(end, text.size() - 1) + 1;
    if (parser.Take(text.substr(begin, end - begin))) return text.substr(0, end);
  }
  return std::nullopt;
}

}  // namespace

BlockReader::BlockReader(ReadBytes read, std::size_t block_size)
    : read_(std::move(read)), block_size_(block_size) {}

bool BlockReader::Fill(std::string& bytes) {
  if (at_end_) return false;
  const std::size_t size = bytes.size();
  bytes.resize(size + block_size_);
  const std::size_t more = read_(bytes.data() + size, block_size_);
  bytes.resize(size + more);
  at_end_ = more == 0;
  return !at_end_;
}

void BlockReader::ChooseSeparator() {
  constexpr std::array<char, 3> kSeparators = {';', ',', '\t'};
  std::size_t most = 0;
  for (const char candidate : kSeparators) {
    CsvParser parser(candidate);
    if (!FirstRecord(rest_, at_end_, parser)) continue;
    const std::size_t names = KnownNames(parser.fields());
    if (names <= most) continue;
    most = names;
    separator_ = candidate;
  }
}

std::string BlockReader::Header(std::optional<char> separator) {
  std::optional<std::string_view> header;
  do {
    if (rest_.size() > kMaxRecordSize) throw InputError(1, kTooLong);
    Fill(rest_);
    if (!has_mark_ && rest_.starts_with(kMark)) {
      has_mark_ = true;
      rest_.erase(0, kMark.size());
    }
    if (separator) {
      separator_ = *separator;
    } else {
      ChooseSeparator();
    }
    parser_.emplace(separator_);
    header = FirstRecord(rest_, at_end_, *parser_);
  } while (!header && !at_end_);
  if (rest_.empty()) throw InputError(0, "soubor je prázdný");
  if (!header) throw InputError(1, kOpenQuote);
  std::string record(*header);
  rest_.erase(0, record.size());
  line_ += Lines(record);
  return record;
}

/// The line behind the records that are found.
std::size_t BlockReader::FirstOpenLine(const Block& block) {
  const std::string_view found(block.bytes.data(), block.ends.empty() ? 0 : block.ends.back());
  return block.first_line + Lines(found);
}

void BlockReader::CheckSize(const Block& block, std::size_t end) {
  const std::size_t begin = block.ends.empty() ? 0 : block.ends.back();
  if (end - begin <= kMaxRecordSize) return;
  const bool quoted = block.bytes.find('"', begin) < end;
  throw InputError(FirstOpenLine(block), quoted ? kOpenQuote : kTooLong);
}

void BlockReader::FindRecords(Block& block) {
  const std::string_view bytes = block.bytes;
  const std::size_t record = block.ends.empty() ? 0 : block.ends.back();
  // Most lines have no quote and are records; only the others need be looked at closely.
  bool open = false;
  std::size_t begin = record;
  while (begin < bytes.size()) {
    std::size_t end = bytes.find('\n', begin);
    if (end == std::string_view::npos && !at_end_) break;
    end = std::min(end, bytes.size() - 1) + 1;
    const std::string_view line = bytes.substr(begin, end - begin);
    if (open || line.find('"') != std::string_view::npos) open = !parser_->Take(line);
    begin = end;
    if (open) continue;
    CheckSize(block, end);
    block.ends.push_back(end);
  }
  // What is there of the last record is looked at again when the rest has come.
  if (open && at_end_) throw InputError(FirstOpenLine(block), kOpenQuote);
  if (open) parser_.emplace(separator_);
  CheckSize(block, bytes.size());
}

std::string BlockReader::Group(std::string_view record) {
  parser_->Take(record);
  const auto& fields = parser_->fields();
  if (*together_ >= fields.size()) return {};
  return std::string(Trimmed(fields[*together_]));
}

std::size_t BlockReader::FirstOfLastGroup(const Block& block) {
  std::size_t first = block.ends.size() - 1;
  const std::string group = Group(block.Record(first));
  if (group.empty()) return block.ends.size();
  while (first > 0 && Group(block.Record(first - 1)) == group) --first;
  return first;
}

bool BlockReader::Next(Block& block) {
  block.bytes.assign(rest_);  // keeps the memory that it had for the block before
  block.ends.clear();
  block.first_line = line_;
  std::size_t records = 0;
  for (std::size_t size = block_size_; records == 0; size = 2 * block.bytes.size()) {
    while (block.bytes.size() < size && Fill(block.bytes)) {
    }
    FindRecords(block);
    records = block.ends.size();
    if (at_end_) break;
    if (records > 0 && together_) records = FirstOfLastGroup(block);
    if (records == 0 && block.bytes.size() > kMaxGroupSize) {
      throw InputError(block.first_line, "faktura má příliš mnoho řádků");
    }
  }
  if (records == 0) return false;
  block.ends.resize(records);
  const std::size_t end = block.ends.back();
  rest_.assign(block.bytes, end);
  block.bytes.resize(end);
  line_ += Lines(block.bytes);
  return true;
}

}  // namespace velta
