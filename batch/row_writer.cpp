#include "batch/row_writer.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "values/date.h"
#include "values/number_text.h"

namespace velta {

namespace {

constexpr int kHalers = 2;  // decimals of an amount

std::string_view WithoutLineEnd(std::string_view record) {
  if (record.ends_with('\n')) record.remove_suffix(1);
  if (record.ends_with('\r')) record.remove_suffix(1);
  return record;
}

/// Days come out in the form in which the row has its own.
std::string DayText(Date day, std::string_view like) {
  LocaleFormat format;
  if (like.find('-') != std::string_view::npos) format.date_pattern = "yyyy-MM-dd";
  return ShortDateText(day, format);
}

class CsvWriter : public RowWriter {
 public:
  explicit CsvWriter(WriterRules rules)
      : rules_(std::move(rules)),
        special_{rules_.separator, '"', '\r', '\n'},
        line_end_(std::string_view(rules_.header).ends_with("\r\n") ? "\r\n" : "\n") {}

  void Header(std::string& out) const override {
    if (rules_.mark) out += "\xEF\xBB\xBF";
    out += WithoutLineEnd(rules_.header);
    for (const std::string_view name : AddedColumns(rules_.by_half_years)) Add(name, out);
    out += line_end_;
  }

  void Row(std::string_view record, const std::vector<std::string_view>& fields,
           const RowOutcome& outcome, std::string& out) const override {
    record = WithoutLineEnd(record);
    if (fields.empty()) {
      out.append(record).append(line_end_);
      return;
    }
    if (outcome.results.empty()) {
      Begin(record, fields, out);
      if (rules_.by_half_years) out.append(2, rules_.separator);
      out.append(5, rules_.separator);
      Add(outcome.error, out);
      out += line_end_;
      return;
    }
    for (const RowResult& result : outcome.results) {
      Begin(record, fields, out);
      if (rules_.by_half_years) {
        const std::string_view due = fields[rules_.columns.due];
        Add(DayText(result.from, due), out);
        Add(DayText(result.to, due), out);
      }
      Add(std::to_string(result.days), out);
      Add(outcome.regime, out);
      Add(PlainText(result.rate, rules_.numbers), out);
      Add(FixedText(result.interest, kHalers, rules_.numbers), out);
      Add(FixedText(result.total, kHalers, rules_.numbers), out);
      Add("", out);
      out += line_end_;
    }
  }

 private:
  /// A row that is too short is filled up, so that what is added stands below its names.
  void Begin(std::string_view record, const std::vector<std::string_view>& fields,
             std::string& out) const {
    out += record;
    if (fields.size() < rules_.columns.count) {
      out.append(rules_.columns.count - fields.size(), rules_.separator);
    }
  }

  void Add(std::string_view text, std::string& out) const {
    out += rules_.separator;
    if (text.find_first_of(special_) == std::string_view::npos) {
      out += text;
      return;
    }
    out += '"';
    for (const char c : text) {
      if (c == '"') out += c;
      out += c;
    }
    out += '"';
  }

  WriterRules rules_;
  std::string special_;  // a field that has one of these is quoted
  std::string_view line_end_;
};

std::string JsonString(std::string_view text) { return nlohmann::json(text).dump(); }

class JsonWriter : public RowWriter {
 public:
  explicit JsonWriter(WriterRules rules) : rules_(std::move(rules)) {
    rules_.numbers.decimal = ".";
    for (const std::string& name : rules_.names) keys_.push_back(JsonString(name) + ":");
  }

  void Header(std::string& /*out*/) const override {}

  void Row(std::string_view /*record*/, const std::vector<std::string_view>& fields,
           const RowOutcome& outcome, std::string& out) const override {
    if (fields.empty()) return;
    if (outcome.results.empty()) {
      Begin(fields, out);
      if (rules_.by_half_years) out += R"("od":null,"do":null,)";
      out += R"("dny":null,"regim":null,"sazba_pouzita":null,"urok":null,"celkem":null,"chyba":)";
      out += outcome.error.empty() ? "null" : JsonString(outcome.error);
      out += "}\n";
    }
    for (const RowResult& result : outcome.results) {
      Begin(fields, out);
      if (rules_.by_half_years) {
        const std::string_view due = fields[rules_.columns.due];
        out.append(R"("od":)").append(JsonString(DayText(result.from, due)));
        out.append(R"(,"do":)").append(JsonString(DayText(result.to, due))).append(",");
      }
      // The numbers are written as they are shown; no double stands between.
      out.append(R"("dny":)").append(std::to_string(result.days));
      out.append(R"(,"regim":)").append(JsonString(outcome.regime));
      out.append(R"(,"sazba_pouzita":)").append(PlainText(result.rate, rules_.numbers));
      out.append(R"(,"urok":)").append(FixedText(result.interest, kHalers, rules_.numbers));
      out.append(R"(,"celkem":)").append(FixedText(result.total, kHalers, rules_.numbers));
      out += ",\"chyba\":null}\n";
    }
  }

 private:
  void Begin(const std::vector<std::string_view>& fields, std::string& out) const {
    out += '{';
    for (std::size_t i = 0; i < std::min(keys_.size(), fields.size()); ++i) {
      out.append(keys_[i]).append(JsonString(fields[i])).append(",");
    }
    // What has no column has no name either.
    for (std::size_t i = keys_.size(); i < fields.size(); ++i) {
      out.append(JsonString("pole " + std::to_string(i + 1)));
      out.append(":").append(JsonString(fields[i])).append(",");
    }
  }

  WriterRules rules_;
  std::vector<std::string> keys_;
};

}  // namespace

std::vector<std::string_view> AddedColumns(bool by_half_years) {
  std::vector<std::string_view> names = {"dny",  "regim",  "sazba_pouzita",
                                         "urok", "celkem", "chyba"};
  if (by_half_years) names.insert(names.begin(), {"od", "do"});
  return names;
}

std::unique_ptr<RowWriter> MakeWriter(OutputFormat format, WriterRules rules) {
  if (format == OutputFormat::kCsv) return std::make_unique<CsvWriter>(std::move(rules));
  return std::make_unique<JsonWriter>(std::move(rules));
}

}  // namespace velta
