#include "batch/csv_parser.h"

#include <new>

namespace velta {

namespace {

// To the library blanks around a field are no part of it; here only the CR of a line end is none.
int IsCr(unsigned char c) { return c == '\r' ? 1 : 0; }
int IsLf(unsigned char c) { return c == '\n' ? 1 : 0; }

}  // namespace

CsvParser::CsvParser(char separator) : separator_(separator) {
  if (csv_init(&parser_, CSV_REPALL_NL) != 0) throw std::bad_alloc();
  csv_set_delim(&parser_, static_cast<unsigned char>(separator));
  csv_set_space_func(&parser_, IsCr);
  csv_set_term_func(&parser_, IsLf);
}

CsvParser::~CsvParser() { csv_free(&parser_); }

void CsvParser::OnField(void* bytes, std::size_t size, void* self) {
  auto& parser = *static_cast<CsvParser*>(self);
  if (size > 0) parser.text_.append(static_cast<const char*>(bytes), size);
  parser.ends_.push_back(parser.text_.size());
}

void CsvParser::OnRecord(int /*end*/, void* self) { static_cast<CsvParser*>(self)->ended_ = true; }

void CsvParser::Feed(std::string_view bytes) {
  const std::size_t taken =
      csv_parse(&parser_, bytes.data(), bytes.size(), OnField, OnRecord, this);
  if (taken != bytes.size()) throw std::bad_alloc();  // the only fault that it knows here
}

void CsvParser::Split(std::string_view line) {
  if (line.ends_with('\n')) line.remove_suffix(1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  fields_.clear();
  if (line.empty()) return;
  for (;;) {
    const std::size_t end = line.find(separator_);
    fields_.push_back(line.substr(0, end));
    if (end == line.npos) return;
    line.remove_prefix(end + 1);
  }
}

bool CsvParser::Take(std::string_view lines) {
  if (ended_ && lines.find('"') == lines.npos) {
    Split(lines);
    return true;
  }
  if (ended_) {
    ended_ = false;
    text_.clear();
    ends_.clear();
  }
  Feed(lines);
  if (!lines.ends_with('\n')) Feed("\n");
  if (!ended_) return false;
  fields_.clear();
  std::size_t begin = 0;
  for (const std::size_t end : ends_) {
    fields_.push_back(std::string_view(text_).substr(begin, end - begin));
    begin = end;
  }
  return true;
}

}  // namespace velta
