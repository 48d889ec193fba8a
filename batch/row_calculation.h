#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "batch/columns.h"
#include "batch/field_values.h"
#include "calc/progressive_calculation.h"
#include "calc/rounding.h"
#include "engine/bank_tables.h"

namespace velta {

/// What a row says of the interest, for the whole delay or for one of its half-years.
struct RowResult {
  Date from{};
  Date to{};
  int days = 0;
  Rate rate = 0;  ///< as it is typed, or per cent a year; of several half-years that of the first
  Money interest;
  Money total;  ///< the amount and the interest from the due date to this day
};

/// A row after its calculation.
struct RowOutcome {
  std::string_view regime;  ///< the kind computed with, or the regulation
  std::vector<RowResult> results;
  std::string error;  ///< why there are none; an empty row has neither
};

/// How all rows of a file are computed.
struct RowRules {
  FileColumns columns;
  LocaleFormat numbers;
  Rounding rounding = Rounding::kUpToTenHaler;
  bool by_half_years = false;  ///< a result for each half-year where the rate changes with them
};

/// Computes rows as the windows do: a row for itself like a single calculation, the rows of one
/// invoice like the payments of a progressive one.
class RowCalculation {
 public:
  using Fields = std::vector<std::string_view>;

  /// Both must outlive it.
  RowCalculation(const RowRules& rules, const BankTables& tables)
      : rules_(rules), tables_(tables) {}

  /// `first` and `last`: whether the row is the first and the last one of its invoice; a row
  /// without an invoice is both. The rows of an invoice come one after the other. Nothing is thrown
  /// for what is wrong with a row.
  void Compute(const Fields& fields, bool first, bool last, RowOutcome& outcome);

  /// Which invoice a row belongs to; "" where to none, as in a file without the column of debts.
  std::string_view InvoiceOf(const Fields& fields) const;

 private:
  /// What a debt bears, as its row says it.
  struct Terms {
    Date due{};
    KindOfRow kind;
    Rate rate = 0;  ///< of a typed kind
  };

  void CheckCount(const Fields& fields) const;
  std::string_view Field(const Fields& fields, std::optional<std::size_t> column) const;
  Terms ReadTerms(const Fields& fields);
  KindOfRow ReadKind(std::string_view text);
  void ComputeSingle(const Fields& fields, RowOutcome& outcome);
  void ComputeOfInvoice(const Fields& fields, bool first, bool last, RowOutcome& outcome);
  void BeginInvoice(const Fields& fields, bool last);
  void CheckSameInvoice(const Fields& fields);
  void AddPayment(const Fields& fields, RowOutcome& outcome);
  void PutPeriods(const std::vector<InterestPeriod>& periods, const std::vector<Money>& interest,
                  Money amount, RowOutcome& outcome) const;

  const RowRules& rules_;
  const BankTables& tables_;

  // The kind of the row before, which most rows share.
  std::string kind_text_;
  KindOfRow kind_;

  // The invoice that the row before belongs to.
  Terms terms_;
  Money debt_;
  std::string_view regime_;
  std::optional<ProgressiveCalculation>
      invoice_;  ///< none where it has a single row without a debt
  bool first_row_is_wrong_ = false;
};

}  // namespace velta
