#include "batch/columns.h"

#include <algorithm>
#include <array>

#include "batch/input_error.h"
#include "values/blanks.h"
#include "values/letters.h"

namespace velta {

namespace {

constexpr std::array kKnown = {kDueColumn,  kPaidColumn,    kAmountColumn, kKindColumn,
                               kRateColumn, kInvoiceColumn, kDebtColumn};

using Names = std::vector<std::string>;

Names PlainNames(const std::vector<std::string_view>& header) {
  Names names;
  names.reserve(header.size());
  for (const std::string_view name : header) names.push_back(Plain(name));
  return names;
}

std::optional<std::size_t> Position(const Names& names, std::string_view name) {
  const auto found = std::find(names.begin(), names.end(), name);
  if (found == names.end()) return std::nullopt;
  if (std::find(found + 1, names.end(), name) != names.end()) {
    throw InputError(1, "sloupec " + std::string(name) + " je v hlavičce dvakrát");
  }
  return static_cast<std::size_t>(found - names.begin());
}

}  // namespace

std::string Plain(std::string_view text) {
  std::string plain;
  std::string_view rest = SkipBlanks(text);
  while (!rest.empty()) {
    const std::string_view after = SkipBlanks(rest);
    if (after.size() < rest.size()) {
      rest = after;
      if (!rest.empty()) plain += ' ';
    } else {
      plain += rest.front();
      rest.remove_prefix(1);
    }
  }
  plain = PlainAscii(Composed(plain));
  std::transform(plain.begin(), plain.end(), plain.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return plain;
}

std::size_t KnownNames(const std::vector<std::string_view>& header) {
  const Names names = PlainNames(header);
  return static_cast<std::size_t>(std::count_if(kKnown.begin(), kKnown.end(), [&](auto name) {
    return std::find(names.begin(), names.end(), name) != names.end();
  }));
}

FileColumns FindColumns(const std::vector<std::string_view>& header,
                        const std::vector<std::string_view>& added) {
  const Names names = PlainNames(header);
  for (const std::string_view name : added) {
    if (Position(names, name)) {
      throw InputError(
          1, "sloupec " + std::string(name) + " už v souboru je; odstraňte jej nebo přejmenujte");
    }
  }
  std::string missing;
  const auto needed = [&](std::string_view name) {
    const auto position = Position(names, name);
    if (!position) missing.append(missing.empty() ? "" : ", ").append(name);
    return position.value_or(0);
  };
  FileColumns columns;
  columns.count = names.size();
  columns.due = needed(kDueColumn);
  columns.paid = needed(kPaidColumn);
  columns.amount = needed(kAmountColumn);
  columns.kind = needed(kKindColumn);
  if (!missing.empty()) throw InputError(1, "v hlavičce chybí: " + missing);
  columns.rate = Position(names, kRateColumn);
  columns.invoice = Position(names, kInvoiceColumn);
  columns.debt = Position(names, kDebtColumn);
  return columns;
}

}  // namespace velta
