#include "tests/scenario/state.h"

#include <array>
#include <charconv>
#include <functional>
#include <map>
#include <optional>

namespace velta::scenario {

namespace {

/// The shortest text that reads back to the same number, without an exponent; -0 is 0.
template <class Number>
Value Shortest(Number number) {
  std::array<char, 512> text{};  // the longest double has 309 digits, the smallest over 340
  const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(),
                                          number + Number{0}, std::chars_format::fixed);
  return Value::Bare(std::string(text.data(), end));
}

/// Crowns with all four decimals and a point.
Value Amount(Money money) {
  const bool negative = money.units() < 0;
  // Unsigned, so that the lowest amount has an absolute value too.
  const auto units = static_cast<std::uint64_t>(money.units());
  std::string text = std::to_string(negative ? 0 - units : units);
  if (text.size() < 5) text.insert(0, 5 - text.size(), '0');
  text.insert(text.size() - 4, ".");
  return Value::Bare((negative ? "-" : "") + text);
}

Value OptionalDay(const std::optional<Date>& day) {
  return day ? Value::Day(*day) : Value::Bare("unset");
}

Value Kind(const std::optional<CalculationKind>& kind) {
  if (!kind) return Value::Bare("unset");
  return Value::Bare(*kind == CalculationKind::kSingle ? "single" : "progressive");
}

using State = CalculationState;
using Reader = std::function<Value(const State&, const std::string&)>;

template <class Show, class Member>
Reader Field(Show show, Member State::*member) {
  return [show, member](const State& state, const std::string&) { return show(state.*member); };
}

const std::map<std::string_view, Reader>& Readers() {
  static const std::map<std::string_view, Reader> readers = {
      {"DueDate", Field(OptionalDay, &State::DueDate)},
      {"PaymentDate", Field(OptionalDay, &State::PaymentDate)},
      {"DaysLate", Field(Value::Number, &State::DaysLate)},
      {"BaseAmount", Field(Amount, &State::BaseAmount)},
      {"RateValue", Field(Shortest<Rate>, &State::RateValue)},
      {"RateKindText", Field(Value::Text, &State::RateKindText)},
      {"EngineRate", Field(Shortest<Rate>, &State::EngineRate)},
      {"InterestAmount", Field(Shortest<double>, &State::InterestAmount)},
      {"AmountWithInterest", Field(Amount, &State::AmountWithInterest)},
      {"InterestTotal", Field(Amount, &State::InterestTotal)},
      {"DebtBeforeLastPayment", Field(Amount, &State::DebtBeforeLastPayment)},
      {"ReportText", Field(Value::Text, &State::ReportText)},
      {"RoundingMode",
       [](const State&, const std::string& rounding_mode) { return Value::Text(rounding_mode); }},
      {"CalculationFinished", Field(Value::Truth, &State::CalculationFinished)},
      {"SingleIsCurrent", Field(Value::Truth, &State::SingleIsCurrent)},
      {"SingleFormOpen", Field(Value::Truth, &State::SingleFormOpen)},
      {"ProgressiveFormOpen", Field(Value::Truth, &State::ProgressiveFormOpen)},
      {"LastCalculationKind", Field(Kind, &State::LastCalculationKind)},
  };
  return readers;
}

}  // namespace

Value Value::Day(std::chrono::sys_days day) {
  const std::chrono::year_month_day date(day);
  return Bare(std::to_string(static_cast<unsigned>(date.day())) + "." +
              std::to_string(static_cast<unsigned>(date.month())) + "." +
              std::to_string(static_cast<int>(date.year())));
}

bool IsStateName(std::string_view name) { return Readers().count(name) != 0; }

Value ReadState(std::string_view name, const CalculationState& state,
                const std::string& rounding_mode) {
  return Readers().at(name)(state, rounding_mode);
}

}  // namespace velta::scenario
