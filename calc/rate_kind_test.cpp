#include "calc/rate_kind.h"

#include <gtest/gtest.h>

#include "tests/support/day.h"

namespace velta {
namespace {

struct InterestCase {
  const char* name;
  RateKind kind;
  double amount;
  float rate;
  int days;
  double expected;
};

class InterestTest : public ::testing::TestWithParam<InterestCase> {};

TEST_P(InterestTest, FollowsTheFormulaOfItsKind) {
  const InterestCase& c = GetParam();
  EXPECT_NEAR(Interest(c.kind, c.amount, c.rate, c.days), c.expected, 1e-9);
}

// Figures by hand: amount × rate, moved by hundreds or thousands, times days, by 365 where yearly.
INSTANTIATE_TEST_SUITE_P(
    Kinds, InterestTest,
    ::testing::Values(
        InterestCase{"PercentYearly", RateKind::kPercentYearly, 10000, 10, 365, 1000},
        InterestCase{"LeapYearToo", RateKind::kPercentYearly, 10000, 10, 366, 1002.7397260274},
        InterestCase{"PercentDaily", RateKind::kPercentDaily, 10000, 0.5F, 45, 2250},
        // 0,05 in single precision is 0.0500000007450580596923828125
        InterestCase{"SinglePrecision", RateKind::kPercentDaily, 10000000, 0.05F, 100,
                     500000.007450580597},
        InterestCase{"PerMilleDaily", RateKind::kPerMilleDaily, 10000, 0.5F, 45, 225},
        InterestCase{"PerMilleYearly", RateKind::kPerMilleYearly, 10000, 85, 365, 850},
        InterestCase{"Discount", RateKind::kDiscount, 10000, 2, 102, 55.8904109589},
        InterestCase{"CrownsDaily", RateKind::kCrownsDaily, 10000, 15, 10, 150},
        InterestCase{"CrownsDailyOfNoAmount", RateKind::kCrownsDaily, 0, 15, 10, 150},
        InterestCase{"CrownsYearly", RateKind::kCrownsYearly, 10000, 1500, 10, 41.0958904110},
        InterestCase{"CrownsYearlyOfNoAmount", RateKind::kCrownsYearly, 0, 1500, 365, 1500},
        // 0,7 in single precision is 0.699999988079071044921875
        InterestCase{"CrownsInSinglePrecision", RateKind::kCrownsDaily, 1, 0.7F, 30,
                     20.9999996423721},
        InterestCase{"NoDays", RateKind::kPercentYearly, 10000, 10, 0, 0},
        InterestCase{"NoAmount", RateKind::kPerMilleDaily, 0, 10, 100, 0},
        InterestCase{"NegativeRate", RateKind::kPercentDaily, 100, -1, 1, -1}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(RateKindTest, ExactHalvesComeOutExact) {
  // The ties on which rounding to crowns turns; other orders of the operations miss some of them.
  EXPECT_EQ(Interest(RateKind::kPercentYearly, 4927.5, 1, 100), 13.5);
  EXPECT_EQ(Interest(RateKind::kPercentYearly, 4562.5, 1, 100), 12.5);
  EXPECT_EQ(Interest(RateKind::kPercentYearly, 73, 10, 125), 2.5);
  EXPECT_EQ(Interest(RateKind::kPercentYearly, 87.6, 85, 125), 25.5);
  EXPECT_EQ(Interest(RateKind::kPercentDaily, 6, 5, 15), 4.5);
  EXPECT_EQ(Interest(RateKind::kPerMilleYearly, 51100, 1, 75), 10.5);
  EXPECT_EQ(Interest(RateKind::kPerMilleDaily, 70, 2, 75), 10.5);
  EXPECT_EQ(Interest(RateKind::kCrownsYearly, 0, 255.5F, 45), 31.5);
}

TEST(RateKindTest, TheTextIsTheKind) {
  struct Row {
    const char* text;
    RateKind kind;
  };
  for (const Row& row :
       {Row{"% denně", RateKind::kPercentDaily}, Row{"% ročně", RateKind::kPercentYearly},
        Row{"‰ denně", RateKind::kPerMilleDaily}, Row{"‰ ročně", RateKind::kPerMilleYearly},
        Row{"Dle Diskontní sazby ČNB", RateKind::kDiscount},
        Row{"Dle Repo sazby ČNB", RateKind::kRepo}, Row{"částka Kč denně", RateKind::kCrownsDaily},
        Row{"částka Kč ročně", RateKind::kCrownsYearly}}) {
    EXPECT_EQ(RateKindOf(row.text), row.kind) << row.text;
    EXPECT_EQ(Text(row.kind), row.text);
  }
  for (const char* text :
       {"", " ", "%", "% ročně ", " % ročně", "%ročně", "% Ročně", "% rocne", "Dle Repo sazby",
        "dle Repo sazby ČNB", "Dle Repo sazby ČNB.", "částka Kč", "částka denně"}) {
    EXPECT_EQ(RateKindOf(text), RateKind::kUnknown) << '"' << text << '"';
  }
}

TEST(RateKindTest, TheDueDateDecidesTheBanksRegime) {
  for (const RateKind bank : {RateKind::kDiscount, RateKind::kRepo}) {
    EXPECT_EQ(RegimeFor(bank, Day(2005, 4, 27)), RateKind::kDiscount);
    EXPECT_EQ(RegimeFor(bank, Day(2005, 4, 28)), RateKind::kRepo);
  }
  for (const RateKind typed :
       {RateKind::kPercentDaily, RateKind::kPercentYearly, RateKind::kPerMilleDaily,
        RateKind::kPerMilleYearly, RateKind::kCrownsDaily, RateKind::kCrownsYearly,
        RateKind::kUnknown}) {
    EXPECT_EQ(RegimeFor(typed, Day(2005, 4, 27)), typed);
    EXPECT_EQ(RegimeFor(typed, Day(2005, 4, 28)), typed);
    EXPECT_FALSE(IsBankKind(typed));
  }
}

}  // namespace
}  // namespace velta
