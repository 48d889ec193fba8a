#include "calc/progressive_calculation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "calc/single_calculation.h"
#include "tests/support/day.h"
#include "tests/support/thrown.h"

namespace velta {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::Thrown;

const LocaleFormat kCzech;
constexpr Date kDue = Day(2004, 1, 1);

using Debt = ProgressiveCalculation::Debt;
using Kind = RateKind;
using Rule = Rounding;

const BankTables& Supplied() {
  static const BankTables kTables =
      ReadBankTables(VELTA_SOURCE_DIR "/data", Day(2026, 11, 21), kCzech);
  return kTables;
}

Money Crowns(const char* amount) { return ToMoney(amount, kCzech); }

Debt DebtOf(const char* amount, RateKind kind, Rate rate, Date due = kDue) {
  return {due, Crowns(amount), kind, std::string(Text(kind)), rate};
}

/// 10 000 Kč at 10 % a year, due on 1.1.2004: 5 000 Kč paid after 30 days bear 41,0958… Kč.
Debt SampleDebt() { return DebtOf("10000", Kind::kPercentYearly, 10); }

std::vector<InterestPeriod> Periods(const ProgressiveCalculation& calculation, Date paid,
                                    Money amount) {
  if (calculation.result().kind != Kind::kRepo) return {};
  return std::get<std::vector<InterestPeriod>>(
      RepoPeriods(Supplied().repo, calculation.result().due_date, paid, amount));
}

std::variant<Payment, Refusal> TryToPay(ProgressiveCalculation& calculation, Date paid,
                                        const char* amount, Rounding rounding = Rule::kNone) {
  return calculation.Add(calculation.Compute(paid, Crowns(amount), rounding,
                                             Periods(calculation, paid, Crowns(amount))));
}

Payment Pay(ProgressiveCalculation& calculation, Date paid, const char* amount,
            Rounding rounding = Rule::kNone) {
  return std::get<Payment>(TryToPay(calculation, paid, amount, rounding));
}

std::vector<double> Interests(const ProgressiveCalculation& calculation) {
  std::vector<double> interests;
  for (const Payment& payment : calculation.result().payments) {
    interests.push_back(payment.interest);
  }
  return interests;
}

/// What can be asked of a calculation, so that two moments can be compared.
std::string Told(const ProgressiveCalculation& calculation) {
  std::string text = PlainText(calculation.balance(), kCzech) + " left, interest " +
                     PlainText(calculation.total(), kCzech) + " of " +
                     std::to_string(calculation.interest_count());
  if (calculation.finished()) text += ", finished";
  for (const Payment& payment : calculation.result().payments) {
    text += "; " + PlainText(payment.amount, kCzech) + " to " +
            ShortDateText(payment.date, kCzech) + ", then " + PlainText(payment.balance, kCzech) +
            ", " + PlainText(payment.interest, kCzech);
  }
  return text;
}

// --- One payment -------------------------------------------------------------------------------

struct KindCase {
  const char* name;
  Rounding rounding;
  RateKind kind;
  const char* payment;
  Rate rate;
  int days;
  const char* interest;
};

// Figures in exact fractions from the formulas, with the rate as the nearest single.
const KindCase kKinds[] = {
    {"% a year", Rule::kUnknown, Kind::kPercentYearly, "4000", 8.5F, 102, "95,013698630137"},
    {"the year has 365 days", Rule::kNone, Kind::kPercentYearly, "10000", 10, 366, "1002,74"},
    {"% a day", Rule::kUnknown, Kind::kPercentDaily, "10000000", 0.05F, 100, "500000,007450581"},
    {"‰ a year", Rule::kUnknown, Kind::kPerMilleYearly, "10000", 85, 30, "69,8630136986301"},
    {"‰ a day", Rule::kUnknown, Kind::kPerMilleDaily, "10000", 0.5F, 30, "150"},
    {"crowns a day", Rule::kNone, Kind::kCrownsDaily, "5000", 15, 10, "150"},
    {"crowns a day, whatever is paid", Rule::kNone, Kind::kCrownsDaily, "1", 15, 10, "150"},
    {"crowns a year", Rule::kUpToTenHaler, Kind::kCrownsYearly, "5000", 1500, 10, "41,1"},
    {"discount", Rule::kNone, Kind::kDiscount, "4000", 2.5F, 102, "27,95"},
    {"a day", Rule::kUnknown, Kind::kPercentYearly, "3650", 1, 1, "0,1"},
    {"tie, two decimals", Rule::kNone, Kind::kPercentDaily, "1,005", 100, 1, "1,01"},
    {"tie to the even crown below", Rule::kToCrowns, Kind::kPercentYearly, "4562,50", 1, 100, "12"},
    {"tie to the even crown above", Rule::kToCrowns, Kind::kPercentYearly, "4927,50", 1, 100, "14"},
    {"no rate", Rule::kUpToTenHaler, Kind::kPercentYearly, "5000", 0, 30, "0"},
    {"nothing paid", Rule::kNone, Kind::kPercentYearly, "0", 10, 30, "0"},
    {"negative rate", Rule::kUpToTenHaler, Kind::kPercentYearly, "1000", -9.9F, 31, "-8,4"},
    {"negative tie", Rule::kNone, Kind::kPercentDaily, "1,005", -100, 1, "-1,01"},
    {"negative payment", Rule::kNone, Kind::kPercentYearly, "-1000", 10, 30, "-8,22"},
};

TEST(ProgressiveCalculationTest, APaymentBearsInterestOnItsOwnAmount) {
  for (const KindCase& c : kKinds) {
    SCOPED_TRACE(c.name);
    ProgressiveCalculation calculation(DebtOf("900000000000", c.kind, c.rate));
    const Payment payment =
        calculation.Compute(AddDays(kDue, c.days), Crowns(c.payment), c.rounding);
    EXPECT_EQ(PlainText(payment.interest, kCzech), c.interest);
    EXPECT_EQ(payment.days, c.days);
    EXPECT_EQ(payment.date, AddDays(kDue, c.days));
    EXPECT_EQ(payment.amount, Crowns(c.payment));
    EXPECT_THAT(payment.periods, IsEmpty());
    EXPECT_EQ(Told(calculation), "900000000000 left, interest 0 of 0") << "nothing is recorded";
  }
}

TEST(ProgressiveCalculationTest, ARepoPaymentIsRoundedOnceOverAllHalfYears) {
  // 13,0137 + 11,9863: each rounded up to 10 haléř would make 25,10.
  ProgressiveCalculation calculation(DebtOf("10000", Kind::kRepo, 0, Day(2005, 6, 20)));
  const Payment payment = Pay(calculation, Day(2005, 7, 10), "5000", Rule::kUpToTenHaler);
  ASSERT_EQ(payment.periods.size(), 2U);
  EXPECT_EQ(payment.periods[0].interest, 13.0137);
  EXPECT_EQ(payment.periods[1].interest, 11.9863);
  EXPECT_DOUBLE_EQ(payment.interest, 25);
  EXPECT_EQ(payment.interest_sum, Crowns("25"));
  EXPECT_EQ(calculation.total(), Crowns("25"));
  EXPECT_EQ(calculation.interest_count(), 2);
  EXPECT_FALSE(calculation.finished());
}

TEST(ProgressiveCalculationTest, AnUnknownKindComputesNothing) {
  Debt debt = SampleDebt();
  debt.kind = Kind::kUnknown;
  debt.kind_text = "% měsíčně";
  ProgressiveCalculation calculation(std::move(debt));
  Pay(calculation, Day(2004, 1, 31), "5000");
  Pay(calculation, Day(2004, 3, 1), "2000");
  EXPECT_THAT(Interests(calculation), ElementsAre(0, 0));
  EXPECT_EQ(calculation.result().kind_text, "% měsíčně");
}

TEST(ProgressiveCalculationTest, APaymentThatIsRecordedAgainAddsTheSame) {
  ProgressiveCalculation calculation(DebtOf("10000", Kind::kRepo, 0, Day(2005, 6, 20)));
  const Payment payment = Pay(calculation, Day(2005, 7, 10), "5000");
  EXPECT_EQ(std::get<Payment>(calculation.Add(payment)).interest_sum, Crowns("25"));
  EXPECT_EQ(calculation.total(), Crowns("50"));
}

// --- Balance and total -------------------------------------------------------------------------

TEST(ProgressiveCalculationTest, StartsWithTheDebt) {
  const ProgressiveCalculation calculation(DebtOf("10000", Kind::kPercentYearly, 8.5F));
  EXPECT_EQ(Told(calculation), "10000 left, interest 0 of 0");
  EXPECT_EQ(calculation.result().due_date, kDue);
  EXPECT_EQ(calculation.result().kind, Kind::kPercentYearly);
  EXPECT_EQ(calculation.result().kind_text, "% ročně");
  EXPECT_EQ(calculation.result().rate, 8.5F);
}

struct RoundingCase {
  const char* name;
  Rounding rounding;
  const char* told;
};

TEST(ProgressiveCalculationTest, EveryPaymentIsRoundedAndTheTotalIsTheirSum) {
  const RoundingCase cases[] = {
      {"none: two decimals", Rule::kNone, "123,29"},           // 41,1 + 82,19
      {"up to 10 haléř", Rule::kUpToTenHaler, "123,3"},        // 41,1 + 82,2
      {"to crowns", Rule::kToCrowns, "123"},                   // 41 + 82
      {"a foreign word: nothing", Rule::kUnknown, "123,2877"}  // 41,0959 + 82,1918
  };
  for (const RoundingCase& c : cases) {
    ProgressiveCalculation calculation(SampleDebt());
    Pay(calculation, Day(2004, 1, 31), "5000", c.rounding);
    Pay(calculation, Day(2004, 3, 1), "5000", c.rounding);
    EXPECT_EQ(calculation.total(), Crowns(c.told)) << c.name;
    EXPECT_EQ(calculation.interest_count(), 2) << c.name;
    EXPECT_TRUE(calculation.finished()) << c.name;
  }
}

TEST(ProgressiveCalculationTest, TellsBalanceAndTotalAfterEveryPayment) {
  ProgressiveCalculation calculation(SampleDebt());
  Pay(calculation, Day(2004, 1, 31), "4000");
  EXPECT_EQ(Told(calculation),
            "6000 left, interest 32,88 of 1; 4000 to 31.1.2004, then 6000, 32,88");
  Pay(calculation, Day(2004, 3, 1), "1000");
  EXPECT_EQ(Told(calculation),
            "5000 left, interest 49,32 of 2; 4000 to 31.1.2004, then 6000, 32,88; "
            "1000 to 1.3.2004, then 5000, 16,44");
  Pay(calculation, Day(2004, 1, 31), "5000");  // of an earlier day
  EXPECT_EQ(Told(calculation),
            "0 left, interest 90,42 of 3, finished; 4000 to 31.1.2004, then 6000, 32,88; "
            "1000 to 1.3.2004, then 5000, 16,44; 5000 to 31.1.2004, then 0, 41,1");
}

struct BalanceCase {
  const char* debt;
  const char* payment;
  const char* balance;
  bool finished;
};

TEST(ProgressiveCalculationTest, IsFinishedWhenNothingIsLeft) {
  for (const BalanceCase& c : {BalanceCase{"1", "0,5", "0,5", false},
                               {"1", "1", "0", true},
                               {"1,0001", "1", "0,0001", false},
                               {"100", "0", "100", false},
                               {"100", "-50", "150", false},
                               {"-100", "-100", "0", true},
                               {"-100", "-150", "50", false},
                               {"0", "0", "0", true},
                               {"922337203685477,5807", "922337203685477,5807", "0", true}}) {
    SCOPED_TRACE(c.debt);
    ProgressiveCalculation calculation(DebtOf(c.debt, Kind::kPercentYearly, 0));
    EXPECT_FALSE(calculation.finished()) << "nothing is paid yet";
    EXPECT_EQ(Pay(calculation, Day(2004, 1, 31), c.payment).balance, Crowns(c.balance));
    EXPECT_EQ(calculation.balance(), Crowns(c.balance));
    EXPECT_EQ(calculation.finished(), c.finished);
  }
}

TEST(ProgressiveCalculationTest, ThreeThirdsEndAtZero) {
  ProgressiveCalculation calculation(SampleDebt());
  Pay(calculation, Day(2004, 1, 31), "3333,33");
  Pay(calculation, Day(2004, 1, 31), "3333,33");
  EXPECT_FALSE(calculation.finished());
  Pay(calculation, Day(2004, 1, 31), "3333,34");
  EXPECT_TRUE(calculation.finished());
}

// --- The total of the repo regime --------------------------------------------------------------

TEST(ProgressiveCalculationTest, OneHalfYearIsRoundedWhenItIsTheWholeTotal) {
  // 10 000 Kč from 15.3. to 20.5.2006: 162,7397.
  const RoundingCase cases[] = {{"none: two decimals", Rule::kNone, "162,74"},
                                {"up to 10 haléř", Rule::kUpToTenHaler, "162,8"},
                                {"to crowns", Rule::kToCrowns, "163"},
                                {"a foreign word: nothing", Rule::kUnknown, "162,7397"}};
  for (const RoundingCase& c : cases) {
    ProgressiveCalculation calculation(DebtOf("10000", Kind::kRepo, 0, Day(2006, 3, 15)));
    Pay(calculation, Day(2006, 5, 20), "10000", c.rounding);
    EXPECT_EQ(calculation.total(), Crowns(c.told)) << c.name;

    // Paid in two, the exact interests are summed up: 65,0959 and 97,6438.
    ProgressiveCalculation in_two(DebtOf("10000", Kind::kRepo, 0, Day(2006, 3, 15)));
    Pay(in_two, Day(2006, 5, 20), "4000", c.rounding);
    Pay(in_two, Day(2006, 5, 20), "6000", c.rounding);
    EXPECT_EQ(in_two.total(), Crowns("162,7397")) << c.name;
  }
}

TEST(ProgressiveCalculationTest, ManyHalfYearsAreSummedExactly) {
  for (const Rounding rounding :
       {Rule::kNone, Rule::kUpToTenHaler, Rule::kToCrowns, Rule::kUnknown}) {
    ProgressiveCalculation calculation(DebtOf("10000", Kind::kRepo, 0, Day(2006, 5, 10)));
    Pay(calculation, Day(2006, 6, 10), "4000", rounding);  // 30,5753
    Pay(calculation, Day(2006, 9, 1), "2500", rounding);   // 31,4384 + 38,8356
    EXPECT_EQ(calculation.total(), Crowns("100,8493"));
    Pay(calculation, Day(2007, 1, 15), "3500", rounding);  // 44,0137 + 158,7945 + 13,6644
    EXPECT_EQ(calculation.total(), Crowns("317,3219"));
    EXPECT_EQ(calculation.interest_count(), 6);
    EXPECT_TRUE(calculation.finished());
  }
}

TEST(ProgressiveCalculationTest, OfLargeAmountsTheTotalKeepsEveryUnit) {
  ProgressiveCalculation calculation(DebtOf("767254256254974", Kind::kRepo, 0, Day(2006, 3, 15)));
  Pay(calculation, Day(2006, 5, 20), "767254256254973");  // 12 486 274 745 628,9000
  Pay(calculation, Day(2006, 5, 20), "1");                // 0,0163
  EXPECT_EQ(calculation.total(), Crowns("12486274745628,9163"));
}

// --- What is not recorded ----------------------------------------------------------------------

TEST(ProgressiveCalculationTest, MoreThanTheBalanceIsRefusedAndChangesNothing) {
  ProgressiveCalculation calculation(SampleDebt());
  EXPECT_EQ(std::get<Refusal>(TryToPay(calculation, Day(2004, 1, 31), "10000,0001")),
            Refusal::kMoreThanBalance);
  Pay(calculation, Day(2004, 1, 31), "4000");
  const std::string told = Told(calculation);
  EXPECT_EQ(std::get<Refusal>(TryToPay(calculation, Day(2004, 3, 1), "6000,0001")),
            Refusal::kMoreThanBalance);
  EXPECT_EQ(Told(calculation), told);
  Pay(calculation, Day(2004, 3, 1), "6000");
  EXPECT_TRUE(calculation.finished());
}

TEST(ProgressiveCalculationTest, AnAmountOutOfRangeChangesNothing) {
  // At 50 000 000 000 000 000 % a day 1 Kč bears 500 000 000 000 000 Kč: once, not twice.
  ProgressiveCalculation total(DebtOf("10", Kind::kPercentDaily, 5e16F));
  Pay(total, AddDays(kDue, 1), "1");
  std::string told = Told(total);
  EXPECT_EQ(Thrown([&] { Pay(total, AddDays(kDue, 1), "1"); }), ErrorNumber::kOverflow);
  EXPECT_EQ(Told(total), told);
  EXPECT_EQ(Thrown([&] { Pay(total, AddDays(kDue, 1), "5"); }), ErrorNumber::kOverflow)
      << "its own interest is out of range";
  EXPECT_EQ(Told(total), told);
  Pay(total, AddDays(kDue, 1), "0,5");
  EXPECT_EQ(total.result().payments.size(), 2U);

  ProgressiveCalculation credit(DebtOf("-900000000000000", Kind::kPercentYearly, 0));
  told = Told(credit);
  EXPECT_EQ(Thrown([&] { Pay(credit, AddDays(kDue, 1), "900000000000000"); }),
            ErrorNumber::kOverflow);
  EXPECT_EQ(Told(credit), told);

  ProgressiveCalculation repo(DebtOf("900000000000000", Kind::kRepo, 0, Day(2006, 3, 15)));
  told = Told(repo);
  Payment payment =
      repo.Compute(Day(2006, 5, 20), Crowns("1"), Rule::kNone, std::vector<InterestPeriod>(2));
  payment.periods[0].interest = payment.periods[1].interest = 9e14;
  EXPECT_EQ(Thrown([&] { repo.Add(payment); }), ErrorNumber::kOverflow);
  EXPECT_EQ(Told(repo), told);
}

// --- One payment is a single calculation -------------------------------------------------------

// Unrounded they differ: a payment has two decimals. Over several half-years too: a single
// calculation is rounded after each.
TEST(ProgressiveCalculationTest, OnePaymentOfTheWholeDebtBearsWhatASingleCalculationBears) {
  const std::pair<RateKind, Rate> kinds[] = {
      {Kind::kPercentDaily, 0.05F}, {Kind::kPercentYearly, 8.25F},
      {Kind::kPerMilleDaily, 0.5F}, {Kind::kPerMilleYearly, 85.5F},
      {Kind::kCrownsDaily, 1.35F},  {Kind::kCrownsYearly, 1500},
      {Kind::kDiscount, 0},         {Kind::kRepo, 0}};
  for (const auto& [kind, rate] : kinds) {
    const Date due = kind == Kind::kRepo ? Day(2008, 1, 1) : Day(2005, 1, 10);
    for (const Rounding rounding : {Rule::kUpToTenHaler, Rule::kToCrowns, Rule::kUnknown}) {
      for (int days = 1; days <= 181; ++days) {
        const Date paid = AddDays(due, days);
        const Money amount = Money::FromUnits(123456700 + 9999 * days);
        const auto single = std::get<SingleResult>(
            SingleCalculation({due, paid, amount, kind, rate}, Supplied(), rounding));
        ProgressiveCalculation calculation(
            {due, amount, kind, std::string(Text(kind)), single.rate});
        calculation.Add(calculation.Compute(paid, amount, rounding, single.periods));
        ASSERT_TRUE(calculation.finished());
        ASSERT_EQ(Interests(calculation), std::vector<double>{single.interest})
            << Text(kind) << ' ' << days;
        ASSERT_EQ(calculation.total(), Money::FromDouble(single.interest));
      }
    }
  }
}

}  // namespace
}  // namespace velta
