#include "values/money.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "tests/support/thrown.h"

namespace velta {
namespace {

using testing::Thrown;

constexpr std::int64_t kMaxUnits = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMinUnits = std::numeric_limits<std::int64_t>::min();

struct FromDoubleRow {
  const char* name;
  double crowns;
  std::int64_t units;
};

// The products with 10 000 were computed by an independent IEEE double calculation.
constexpr FromDoubleRow kFromDouble[] = {
    {"zero", 0.0, 0},
    {"minus zero", -0.0, 0},
    {"exact", 1234.5, 12345000},
    {"not exact in binary", 0.1, 1000},
    {"below half, even", 12.00004, 120000},
    {"half, even below", 12.00005, 120000},
    {"above half, even", 12.00006, 120001},
    {"below half, odd", 12.00014, 120001},
    {"half, odd below", 12.00015, 120002},
    {"above half, odd", 12.00016, 120002},
    {"half of the first unit", 0.00005, 0},
    {"half above two units", 0.00025, 2},
    {"product just below the tie: 1.4999999999999998", 0.00015, 1},
    {"negative below half, even", -12.00004, -120000},
    {"negative half, even below", -12.00005, -120000},
    {"negative above half, even", -12.00006, -120001},
    {"negative half, odd below", -12.00015, -120002},
    {"the greatest double in range, 2^63 - 1024 units", 922337203685477.4375, 9223372036854774784},
    {"the lowest amount, -2^63 units", -922337203685477.625, kMinUnits},
};

TEST(MoneyTest, FromDouble) {
  for (const FromDoubleRow& row : kFromDouble) {
    EXPECT_EQ(Money::FromDouble(row.crowns).units(), row.units) << row.name;
  }
}

TEST(MoneyTest, FromDoubleOutOfRangeIsAnOverflow) {
  const double outside[] = {922337203685477.625,
                            -922337203685477.75,
                            1e18,
                            -1e18,
                            std::numeric_limits<double>::max(),
                            std::numeric_limits<double>::infinity(),
                            -std::numeric_limits<double>::infinity(),
                            std::nan("")};
  for (const double crowns : outside) {
    EXPECT_EQ(Thrown([&] { Money::FromDouble(crowns); }), ErrorNumber::kOverflow) << crowns;
  }
}

struct ToDoubleRow {
  const char* name;
  std::int64_t units;
  double crowns;
};

// Computed with exact fractions, rounded once to double.
constexpr ToDoubleRow kToDouble[] = {
    {"nothing", 0, 0.0},
    {"one unit", 1, 0.0001},
    {"usual", 12345000, 1234.5},
    {"negative", -12345, -1.2345},
    {"units still exact", 8999999999999999, 899999999999.9999},
    {"a division would give ...4.9", 6402900570728149493, 640290057072815.0},
    {"a division would give ...0.4", 5652604951135202956, 565260495113520.2},
    {"greatest", kMaxUnits, 922337203685477.6},
    {"lowest", kMinUnits, -922337203685477.6},
};

TEST(MoneyTest, ToDoubleIsTheNearest) {
  for (const ToDoubleRow& row : kToDouble) {
    EXPECT_EQ(Money::FromUnits(row.units).ToDouble(), row.crowns) << row.name;
  }
}

TEST(MoneyTest, ToDoubleIsTheNumberThatTheTextSays) {
  constexpr std::int64_t kTwoTo53 = std::int64_t{1} << 53U;
  const auto expect_same = [](std::int64_t units) {
    const std::string text = std::to_string(units) + "e-4";
    double crowns = 0;
    std::from_chars(text.data(), text.data() + text.size(), crowns);
    ASSERT_EQ(Money::FromUnits(units).ToDouble(), crowns) << units;
  };
  for (std::int64_t near = -1000; near <= 1000; ++near) {
    expect_same(near);
    expect_same(kTwoTo53 + near);
    expect_same(-kTwoTo53 + near);
    expect_same(near * 1234567891);
  }
}

TEST(MoneyTest, AmountsBelowAMilliardSurviveTheWayThroughDouble) {
  for (std::int64_t units = -10000000000000; units <= 10000000000000; units += 99999999977) {
    EXPECT_EQ(Money::FromDouble(Money::FromUnits(units).ToDouble()).units(), units);
  }
  for (std::int64_t units = -100000; units <= 100000; ++units) {
    ASSERT_EQ(Money::FromDouble(Money::FromUnits(units).ToDouble()).units(), units);
  }
}

TEST(MoneyTest, SumAndDifference) {
  EXPECT_EQ(Money::FromUnits(100000000) + Money::FromUnits(1627400), Money::FromUnits(101627400));
  EXPECT_EQ(Money::FromUnits(5) - Money::FromUnits(7), Money::FromUnits(-2));
  Money total;
  total += Money::FromUnits(3);
  total += Money::FromUnits(4);
  EXPECT_EQ(total.units(), 7);
  EXPECT_EQ((Money::FromUnits(kMaxUnits) + Money::FromUnits(kMinUnits)).units(), -1);
  EXPECT_EQ((Money::FromUnits(kMinUnits) - Money::FromUnits(kMinUnits)).units(), 0);
}

TEST(MoneyTest, ASumOutsideTheRangeIsAnOverflowAndChangesNothing) {
  const Money max = Money::FromUnits(kMaxUnits);
  const Money min = Money::FromUnits(kMinUnits);
  const Money unit = Money::FromUnits(1);
  EXPECT_EQ(Thrown([&] { max + unit; }), ErrorNumber::kOverflow);
  EXPECT_EQ(Thrown([&] { min - unit; }), ErrorNumber::kOverflow);
  EXPECT_EQ(Thrown([&] { min + min; }), ErrorNumber::kOverflow);
  EXPECT_EQ(Thrown([&] { Money() - min; }), ErrorNumber::kOverflow);

  Money total = max;
  EXPECT_EQ(Thrown([&] { total += unit; }), ErrorNumber::kOverflow);
  EXPECT_EQ(total, max);
}

TEST(MoneyTest, Order) {
  EXPECT_LT(Money::FromUnits(-1), Money());
  EXPECT_GT(Money::FromUnits(1), Money());
  EXPECT_EQ(Money(), Money::FromUnits(0));
}

}  // namespace
}  // namespace velta
