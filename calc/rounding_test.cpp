#include "calc/rounding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/support/thrown.h"
#include "values/error.h"

namespace velta {
namespace {

using testing::Thrown;

struct RoundUpRow {
  const char* name;
  double value;
  int places;
  double rounded;
};

constexpr RoundUpRow kRoundUp[] = {
    {"a whole step", 12.3, 1, 12.3},
    {"over it", 12.31, 1, 12.4},
    {"more over it", 12.34, 1, 12.4},
    {"by half a haléř", 12.305, 1, 12.4},
    {"by less than a hundredth of the step", 12.3005, 1, 12.3},
    {"by almost a hundredth", 12.3009, 1, 12.3},
    {"by a hundredth, whose product lies above", 12.301, 1, 12.4},
    {"by a hundredth, whose product lies below", 1.001, 1, 1.0},
    {"nothing", 0, 1, 0},
    {"negative goes towards zero", -12.34, 1, -12.3},
    {"negative whole step", -12.3, 1, -12.3},
    {"negative to zero", -0.05, 1, 0},
    {"negative by 0.99 of a step", -0.099, 1, 0},
    {"whole crowns", 12.34, 0, 13},
    {"whole crowns, whole", 12, 0, 12},
    {"whole crowns, dropped excess", 12.009, 0, 12},
    {"hundreds", 1234, -2, 1300},
    {"hundreds, whole", 1300, -2, 1300},
    {"haléře", 1.234, 2, 1.24},
    {"366 days at 10 % on 10 000", 1002.7397260273973, 1, 1002.8},
};

TEST(RoundUpTest, RoundsUpwardToAStep) {
  for (const RoundUpRow& row : kRoundUp) {
    EXPECT_EQ(RoundUp(row.value, row.places), row.rounded) << row.name;
  }
}

TEST(RoundUpTest, NoNegativeZero) {
  EXPECT_FALSE(std::signbit(RoundUp(-0.0, 1)));
  EXPECT_FALSE(std::signbit(RoundUp(-0.05, 1)));
  EXPECT_FALSE(std::signbit(RoundUp(-0.099, 1)));
}

TEST(RoundUpTest, EveryWholeStepStays) {
  for (int tenths = 0; tenths <= 1000000; ++tenths) {
    ASSERT_EQ(RoundUp(tenths / 10.0, 1), tenths / 10.0) << tenths;
  }
}

TEST(RoundUpTest, EveryHalerGoesToTheNextStep) {
  for (int halere = 0; halere <= 1000000; ++halere) {
    const int tenths = (halere + 9) / 10;
    ASSERT_EQ(RoundUp(halere / 100.0, 1), tenths / 10.0) << halere;
  }
}

struct OverflowRow {
  const char* name;
  double value;
  int places;
};

constexpr OverflowRow kOverflows[] = {
    {"the scaled value", 1e308, 1},
    {"the scaled value, negative", -1e308, 1},
    {"the scale", 1, 400},
    {"the scale with zero", 0, 400},
    {"the quotient: a scale of zero", 1, -400},
    {"infinity", std::numeric_limits<double>::infinity(), 1},
    {"not a number", std::numeric_limits<double>::quiet_NaN(), 1},
};

TEST(RoundUpTest, LeavingTheRangeOfDoubleIsAnError) {
  for (const OverflowRow& row : kOverflows) {
    EXPECT_EQ(Thrown([&] { RoundUp(row.value, row.places); }), ErrorNumber::kOverflow) << row.name;
  }
}

struct RuleRow {
  const char* word;
  double interest;
  double rounded;
};

TEST(ApplyRoundingTest, RoundsByTheRule) {
  constexpr RuleRow kRows[] = {
      {"NE", 1234.41, 1234.41},   {"halere", 1234.41, 1234.5}, {"halere", 1234.5, 1234.5},
      {"koruny", 100.5, 100},     {"koruny", 101.5, 102},      {"koruny", 100.51, 101},
      {"HALERE", 100.41, 100.41}, {"", 100.41, 100.41},        {"Koruny", 100.41, 100.41},
  };
  for (const RuleRow& row : kRows) {
    EXPECT_EQ(ApplyRounding(RoundingOf(row.word), row.interest), row.rounded)
        << row.word << ' ' << row.interest;
  }
}

TEST(ApplyRoundingTest, AnUnknownWordIsNotNoRounding) {
  EXPECT_EQ(RoundingOf("NE"), Rounding::kNone);
  for (const char* word : {"", "ne", "HALERE", "koruny "}) {
    EXPECT_EQ(RoundingOf(word), Rounding::kUnknown) << word;
  }
}

}  // namespace
}  // namespace velta
