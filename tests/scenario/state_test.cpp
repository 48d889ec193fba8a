#include "tests/scenario/state.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace velta::scenario {
namespace {

std::string Shown(const char* name, const CalculationState& state) {
  return ReadState(name, state, "NE").Shown();
}

TEST(State, NothingIsSetAtFirst) {
  const CalculationState state;
  EXPECT_EQ(Shown("DueDate", state), "unset");
  EXPECT_EQ(Shown("LastCalculationKind", state), "unset");
  EXPECT_EQ(Shown("CalculationFinished", state), "false");
  EXPECT_EQ(Shown("ReportText", state), "\"\"");
}

TEST(State, FormsOfTheValues) {
  CalculationState state;
  state.DueDate = Date(std::chrono::year{2005} / 3 / 10);
  state.DaysLate = -7;
  state.RateValue = 0.05F;
  state.InterestAmount = 1002.7397260273973;
  state.SingleIsCurrent = true;
  state.LastCalculationKind = CalculationKind::kProgressive;
  state.ReportText = "a\tb\r\n";
  EXPECT_EQ(Shown("DueDate", state), "10.3.2005");
  EXPECT_EQ(Shown("DaysLate", state), "-7");
  EXPECT_EQ(Shown("RateValue", state), "0.05");
  EXPECT_EQ(Shown("InterestAmount", state), "1002.7397260273973");
  EXPECT_EQ(Shown("SingleIsCurrent", state), "true");
  EXPECT_EQ(Shown("LastCalculationKind", state), "progressive");
  EXPECT_EQ(Shown("ReportText", state), "\"a\\tb\\r\\n\"");
  EXPECT_EQ(Shown("RoundingMode", state), "\"NE\"");
}

struct AmountRow {
  const char* what;
  std::int64_t units;
  const char* shown;
};

TEST(State, NumbersHaveNoExponentAndZeroNoSign) {
  CalculationState state;
  for (const auto& [number, text] : std::vector<std::pair<double, std::string>>{
           {100000, "100000"}, {1e15, "1000000000000000"}, {0.00001, "0.00001"}, {-0.0, "0"}}) {
    state.InterestAmount = number;
    EXPECT_EQ(Shown("InterestAmount", state), text);
  }
  state.RateValue = 0.0001F;
  EXPECT_EQ(Shown("RateValue", state), "0.0001");
}

TEST(State, AmountsHaveFourDecimals) {
  const AmountRow rows[] = {
      {"whole crowns", 100000000, "10000.0000"},
      {"nothing", 0, "0.0000"},
      {"less than a crown", 5, "0.0005"},
      {"negative", -12345, "-1.2345"},
      {"the lowest", std::numeric_limits<std::int64_t>::min(), "-922337203685477.5808"},
  };
  for (const AmountRow& row : rows) {
    CalculationState state;
    state.BaseAmount = Money::FromUnits(row.units);
    EXPECT_EQ(Shown("BaseAmount", state), row.shown) << row.what;
  }
}

TEST(State, KnowsItsNames) {
  EXPECT_TRUE(IsStateName("RoundingMode"));
  EXPECT_TRUE(IsStateName("DebtBeforeLastPayment"));
  EXPECT_FALSE(IsStateName("roundingmode"));
}

}  // namespace
}  // namespace velta::scenario
