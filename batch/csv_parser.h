#pragma once

#include <csv.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velta {

/// Takes records of a CSV file (RFC 4180) apart; lines end with CR LF or LF. Quotes and what they
/// may hold, separators and line ends included, are the library's business. Lines without quotes,
/// which most are, are cut here: that takes no copy.
class CsvParser {
 public:
  explicit CsvParser(char separator);
  CsvParser(const CsvParser&) = delete;
  CsvParser& operator=(const CsvParser&) = delete;
  ~CsvParser();

  /// Takes a line with its line end, or the several lines that a quoted field spans. True where a
  /// record has ended with them; false where a quoted field is still open, which the next lines
  /// then go on with.
  bool Take(std::string_view lines);

  /// The fields of the record that Take has ended, without their quotes; they are valid until it is
  /// called again, and as long as what it took. An empty line has none.
  const std::vector<std::string_view>& fields() const { return fields_; }

 private:
  static void OnField(void* bytes, std::size_t size, void* self);
  static void OnRecord(int end, void* self);
  void Split(std::string_view line);
  void Feed(std::string_view bytes);

  char separator_;
  csv_parser parser_{};
  bool ended_ = true;
  std::string text_;               ///< of all fields, one behind the other
  std::vector<std::size_t> ends_;  ///< of each field in it
  std::vector<std::string_view> fields_;
};

}  // namespace velta
