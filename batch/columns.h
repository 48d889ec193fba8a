#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velta {

/// Where the columns that the calculation reads stand in a file.
struct FileColumns {
  std::size_t count = 0;  ///< of all columns of the file
  std::size_t due = 0;
  std::size_t paid = 0;
  std::size_t amount = 0;
  std::size_t kind = 0;
  std::optional<std::size_t> rate;
  std::optional<std::size_t> invoice;
  std::optional<std::size_t> debt;
};

/// The names of the columns that the program reads and adds, as they are told to users.
inline constexpr std::string_view kDueColumn = "splatnost";
inline constexpr std::string_view kPaidColumn = "zaplaceno";
inline constexpr std::string_view kAmountColumn = "castka";
inline constexpr std::string_view kKindColumn = "druh";
inline constexpr std::string_view kRateColumn = "sazba";
inline constexpr std::string_view kInvoiceColumn = "faktura";
inline constexpr std::string_view kDebtColumn = "dluh";

/// A name or a kind of rate as it is compared: without accents, blanks around it and capitals; a
/// row of blanks inside is one.
std::string Plain(std::string_view text);

/// Finds the columns by their names in the header, however they are capitalised and accented.
/// `added` are the names of the columns that are going to stand behind them. A column that is
/// missing or there twice: InputError in `line`.
FileColumns FindColumns(const std::vector<std::string_view>& header,
                        const std::vector<std::string_view>& added);

/// How many of the columns' names a header has.
std::size_t KnownNames(const std::vector<std::string_view>& header);

}  // namespace velta
