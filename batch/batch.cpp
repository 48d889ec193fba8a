#include "batch/batch.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

#include "batch/field_values.h"
#include "batch/in_order.h"
#include "batch/input_error.h"
#include "batch/row_calculation.h"
#include "batch/row_writer.h"
#include "values/text_encoding.h"

namespace velta {

namespace {

constexpr const char* kNotUtf8 =
    "text není v UTF-8; uložte soubor znovu a zvolte znakovou sadu Unicode (UTF-8)";

/// The decimal sign of the first amount or rate that has one for sure; none where the rows that are
/// looked at have none.
std::optional<char> FindDecimalSign(const Block& block, const FileColumns& columns,
                                    char separator) {
  constexpr std::size_t kRows = 1000;
  CsvParser parser(separator);
  for (std::size_t i = 0; i < std::min(block.ends.size(), kRows); ++i) {
    parser.Take(block.Record(i));
    const auto& fields = parser.fields();
    if (fields.size() != columns.count) continue;
    for (const auto& column : {std::optional(columns.amount), columns.rate, columns.debt}) {
      if (!column) continue;
      if (const auto sign = DecimalSign(fields[*column])) return sign;
    }
  }
  return std::nullopt;
}

void CheckEncoding(const Block& block) {
  if (IsUtf8(block.bytes)) return;
  std::size_t line = block.first_line;
  for (std::string_view rest = block.bytes; !rest.empty(); ++line) {
    const std::size_t end = std::min(rest.find('\n'), rest.size() - 1) + 1;
    if (!IsUtf8(rest.substr(0, end))) throw InputError(line, kNotUtf8);
    rest.remove_prefix(end);
  }
}

/// A field of an object is found by its name alone.
void CheckNames(const std::vector<std::string>& names) {
  for (auto name = names.begin(); name != names.end(); ++name) {
    if (name->empty()) {
      throw InputError(1, "sloupec " + std::to_string(name - names.begin() + 1) + " nemá jméno");
    }
    if (std::find(name + 1, names.end(), *name) != names.end()) {
      throw InputError(1, "sloupec " + *name + " je v hlavičce dvakrát");
    }
  }
}

/// Computes blocks; one for each thread.
class BlockComputer {
 public:
  BlockComputer(const RowRules& rules, const BankTables& tables, const RowWriter& writer,
                char separator)
      : calculation_(rules, tables),
        writer_(writer),
        row_(std::make_unique<CsvParser>(separator)),
        next_row_(std::make_unique<CsvParser>(separator)) {}

  void Compute(const Block& block, BlockResult& result) {
    CheckEncoding(block);
    // Whether a row is the last one of its invoice shows in the next.
    std::string before;
    next_row_->Take(block.Record(0));
    for (std::size_t i = 0; i < block.ends.size(); ++i) {
      row_.swap(next_row_);
      std::string_view next;
      if (i + 1 < block.ends.size()) {
        next_row_->Take(block.Record(i + 1));
        next = calculation_.InvoiceOf(next_row_->fields());
      }
      const auto& fields = row_->fields();
      const std::string_view invoice = calculation_.InvoiceOf(fields);
      const bool first = invoice.empty() || invoice != before;
      const bool last = invoice.empty() || invoice != next;
      calculation_.Compute(fields, first, last, outcome_);
      before = invoice;
      writer_.Row(block.Record(i), fields, outcome_, result.text);
      ++result.rows;
      if (!outcome_.error.empty()) ++result.errors;
    }
  }

 private:
  RowCalculation calculation_;
  const RowWriter& writer_;
  std::unique_ptr<CsvParser> row_;
  std::unique_ptr<CsvParser> next_row_;
  RowOutcome outcome_;
};

}  // namespace

BatchCounts RunBatch(const BatchOptions& options, const BankTables& tables,
                     const BatchStreams& streams) {
  BlockReader reader(streams.read);
  WriterRules form;
  form.header = reader.Header(options.separator);
  form.mark = reader.has_mark();
  form.separator = reader.separator();
  form.by_half_years = options.by_half_years;
  if (!IsUtf8(form.header)) throw InputError(1, kNotUtf8);
  CsvParser header(form.separator);
  header.Take(form.header);
  form.names.assign(header.fields().begin(), header.fields().end());

  RowRules rules;
  rules.columns = FindColumns(header.fields(), AddedColumns(options.by_half_years));
  rules.rounding = options.rounding;
  rules.by_half_years = options.by_half_years;
  form.columns = rules.columns;
  if (rules.columns.invoice && rules.columns.debt) reader.KeepTogether(*rules.columns.invoice);

  if (options.format == OutputFormat::kJsonLines) CheckNames(form.names);

  std::optional<Block> first(std::in_place);
  if (!reader.Next(*first)) first.reset();
  if (first) CheckEncoding(*first);
  std::optional<char> sign = options.decimal_sign;
  if (!sign && first) sign = FindDecimalSign(*first, rules.columns, form.separator);
  // Where commas part the columns, they do not part the decimals.
  rules.numbers = NumberFormat(sign.value_or(form.separator == ',' ? '.' : ','));
  form.numbers = rules.numbers;

  const char separator = form.separator;
  const auto writer = MakeWriter(options.format, std::move(form));
  std::string above;
  writer->Header(above);
  streams.write(above);

  BatchCounts counts;
  const auto read = [&](Block& block) {
    if (!first) return reader.Next(block);
    block = std::move(*first);
    first.reset();
    return true;
  };
  const auto new_worker = [&]() -> Compute {
    const auto computer = std::make_shared<BlockComputer>(rules, tables, *writer, separator);
    return
        [computer](const Block& block, BlockResult& result) { computer->Compute(block, result); };
  };
  const auto write = [&](const BlockResult& result) {
    streams.write(result.text);
    counts.rows += result.rows;
    counts.errors += result.errors;
    streams.progress(counts.rows);
  };
  const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
  RunInOrder(options.threads == 0 ? cores : options.threads, read, new_worker, write);
  return counts;
}

}  // namespace velta
