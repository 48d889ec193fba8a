#include "windows/calculation/frmPocitejRepo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/day.h"
#include "tests/support/english_locale.h"
#include "tests/support/rate_folder.h"
#include "ui/memory/memory_platform.h"

namespace velta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// The number of the Error that `act` throws; 0 for none.
int ErrorOf(const std::function<void()>& act) {
  try {
    act();
  } catch (const Error& error) {
    return static_cast<int>(error.number());
  }
  return 0;
}

const ui::MemoryMessageBox::Shown kNoRate{ui::Icon::kCritical, "Velta",
                                          "Nenalezena sazba pro zadané období"};
const ui::MemoryMessageBox::Shown kTableTooShort{
    ui::Icon::kCritical, "Velta", "Nelze najít sazbu, zadali jste vysoké datum splatnosti"};

// 9 %, 9,5 % | 8 %, 7,05 % | 9,05 %, 10 % (a leap year)
const std::string kThreeYears = CrLf({"010120062,00", "010720062,50", "010120071,00",
                                      "010720070,05", "010120082,05", "010720083,00"});

class PocitejRepoTest : public testing::Test {
 protected:
  PocitejRepoTest() { MakeEngine(); }

  void MakeEngine() {
    engine = std::make_unique<frmPocitejRepo>(program, [this] { ++completions; });
  }

  void Load(const std::string& bytes) {
    folder_.Write("repo.dat", bytes);
    memory.program_folder.path = folder_.path();
    engine->Form_Load();
  }

  /// A calculation up to the split.
  std::optional<Refusal> Start(Date due, Date paid, double amount = 10000) {
    engine->dtpSplatnost = due;
    engine->dtpZaplaceni = paid;
    return engine->PrvniSazba(Money::FromDouble(amount));
  }

  /// A calculation to its end.
  void Calculate(Date due, Date paid, double amount = 10000) {
    Start(due, paid, amount);
    memory.event_loop.RunUntilIdle();
  }

  ui::MemoryPlatform memory;
  Program program{memory.platform(), {}};
  int completions = 0;
  std::unique_ptr<frmPocitejRepo> engine;

 private:
  RateFolder folder_;
};

// Loading

TEST_F(PocitejRepoTest, LoadsTwoParallelLists) {
  Load(kThreeYears);
  ASSERT_EQ(engine->lstDatum.size(), 6);
  ASSERT_EQ(engine->lstSazba.size(), 6);
  EXPECT_EQ(engine->lstDatum[0], "1.1.2006");
  EXPECT_EQ(engine->lstSazba[0], "9");
  EXPECT_EQ(engine->lstDatum[1], "1.7.2006");
  EXPECT_EQ(engine->lstSazba[1], "9,5");
  EXPECT_EQ(engine->lstDatum[3], "1.7.2007");
  EXPECT_EQ(engine->lstSazba[3], "7,05");
  EXPECT_EQ(engine->lstDatum.selected(), -1);
  EXPECT_FALSE(engine->rate_found());
}

TEST_F(PocitejRepoTest, LoadedAgainItHasOnlyTheRowsOfTheNewFile) {
  Load(kThreeYears);
  Load(CrLf({"010120082,05", "010720083,00"}));
  EXPECT_EQ(engine->lstDatum.size(), 2);
  EXPECT_EQ(engine->lstSazba.size(), 2);
  Calculate(Day(2008, 3, 15), Day(2008, 5, 20));
  EXPECT_THAT(engine->lstUrok, ElementsAre("9,05")) << "by the new file's half-years too";
}

TEST_F(PocitejRepoTest, HasTheSameRatesWhereTheUserHasPoints) {
  memory.locale = EnglishLocale();
  Load(kThreeYears);
  EXPECT_EQ(engine->lstDatum[3], "7/1/2007");
  EXPECT_EQ(engine->lstSazba[3], "7.05");
  Calculate(Day(2007, 7, 1), Day(2007, 12, 28));
  EXPECT_THAT(engine->lstPenale, ElementsAre("347.6712"));  // 10000 × 7.05 % × 180 / 365
}

TEST_F(PocitejRepoTest, AMissingFileIsTheCallersError) {
  memory.program_folder.path = "/no/such/folder";
  EXPECT_EQ(ErrorOf([&] { engine->Form_Load(); }), 53);
  EXPECT_THAT(memory.message_box.shown, IsEmpty());
  EXPECT_EQ(engine->lstDatum.size(), 0);
}

TEST_F(PocitejRepoTest, AMalformedRowIsTheCallersErrorAndEndsTheReading) {
  EXPECT_EQ(ErrorOf([&] { Load(CrLf({"010120062,00", "leden 2006", "010120071,00"})); }), 13);
  EXPECT_THAT(memory.message_box.shown, IsEmpty());
  ASSERT_EQ(engine->lstDatum.size(), 1);
  EXPECT_EQ(engine->lstSazba.size(), 1);
}

TEST_F(PocitejRepoTest, AnEmptyFileIsNoErrorUntilARateIsAskedFor) {
  Load("");
  EXPECT_THAT(memory.message_box.shown, IsEmpty());
  Calculate(Day(2006, 3, 15), Day(2006, 5, 20));
  EXPECT_THAT(memory.message_box.shown, ElementsAre(kNoRate));
  EXPECT_FALSE(engine->rate_found());
  EXPECT_EQ(completions, 0);
}

// The split into half-years

struct Split {
  std::string name;
  Date due;
  Date paid;
  std::vector<std::string> from;
  std::vector<std::string> to;
  std::vector<std::string> rate;
  std::vector<std::string> days;
  std::string total;
};

void PrintTo(const Split& split, std::ostream* out) { *out << split.name; }

class SplitTest : public PocitejRepoTest, public testing::WithParamInterface<Split> {};

TEST_P(SplitTest, GivesEachHalfYearItsRow) {
  Load(kThreeYears);
  const Split& split = GetParam();
  Start(split.due, split.paid);
  EXPECT_THAT(memory.message_box.shown, IsEmpty());
  EXPECT_EQ(engine->lstOd, split.from);
  EXPECT_EQ(engine->lstDo, split.to);
  EXPECT_EQ(engine->lstUrok, split.rate);
  EXPECT_EQ(engine->lstPocetDnu, split.days);
  EXPECT_EQ(engine->lblPocetDnuProdleni, split.total);
  EXPECT_TRUE(engine->Timer1.armed());
  EXPECT_THAT(engine->lstPenale, IsEmpty());
  EXPECT_TRUE(engine->rate_found());
}

// The days counted by hand from the lengths of the months.
INSTANTIATE_TEST_SUITE_P(
    Delays, SplitTest,
    testing::Values(Split{"InsideAHalfYear",
                          Day(2006, 3, 15),
                          Day(2006, 5, 20),
                          {"15.3.2006"},
                          {"20.5.2006"},
                          {"9"},
                          {"66"},
                          "66"},
                    Split{"OverMidyear",
                          Day(2006, 6, 20),
                          Day(2006, 7, 10),
                          {"20.6.2006", "1.7.2006"},
                          {"30.6.2006", "10.7.2006"},
                          {"9", "9,5"},
                          {"10", "10"},
                          "20"},
                    Split{"DueOnTheLastDayOfJune",
                          Day(2006, 6, 30),
                          Day(2006, 7, 1),
                          {"30.6.2006", "1.7.2006"},
                          {"30.6.2006", "1.7.2006"},
                          {"9", "9,5"},
                          {"0", "1"},
                          "1"},
                    Split{"DueOnTheFirstOfJuly",
                          Day(2006, 7, 1),
                          Day(2006, 7, 2),
                          {"1.7.2006"},
                          {"2.7.2006"},
                          {"9,5"},
                          {"1"},
                          "1"},
                    Split{"DueOnNewYearsEve",
                          Day(2006, 12, 31),
                          Day(2007, 1, 1),
                          {"31.12.2006", "1.1.2007"},
                          {"31.12.2006", "1.1.2007"},
                          {"9,5", "8"},
                          {"0", "1"},
                          "1"},
                    Split{"PaidOnTheLastDayOfJune",
                          Day(2006, 6, 1),
                          Day(2006, 6, 30),
                          {"1.6.2006"},
                          {"30.6.2006"},
                          {"9"},
                          {"29"},
                          "29"},
                    Split{"PaidOnNewYearsEve",
                          Day(2006, 12, 1),
                          Day(2006, 12, 31),
                          {"1.12.2006"},
                          {"31.12.2006"},
                          {"9,5"},
                          {"30"},
                          "30"},
                    // The last half-year of the table to its last day; 2008 has 366 days.
                    Split{"AllOfTheTable",
                          Day(2006, 1, 1),
                          Day(2008, 12, 31),
                          {"1.1.2006", "1.7.2006", "1.1.2007", "1.7.2007", "1.1.2008", "1.7.2008"},
                          {"30.6.2006", "31.12.2006", "30.6.2007", "31.12.2007", "30.6.2008",
                           "31.12.2008"},
                          {"9", "9,5", "8", "7,05", "9,05", "10"},
                          {"180", "184", "181", "184", "182", "184"},
                          "1095"}),
    [](const auto& split) { return split.param.name; });

TEST_F(PocitejRepoTest, TheDaysOfTheRowsAddUpToTheDelay) {
  Load(kThreeYears);
  const Date due = Day(2006, 5, 17);
  for (Date paid = due + std::chrono::days(1); paid <= Day(2008, 12, 31);
       paid += std::chrono::days(1)) {
    Start(due, paid);
    int sum = 0;
    for (const std::string& days : engine->lstPocetDnu) sum += std::stoi(days);
    ASSERT_EQ(sum, (paid - due).count());
    ASSERT_EQ(engine->lblPocetDnuProdleni, std::to_string(sum));
  }
}

TEST_F(PocitejRepoTest, ASecondCallBuildsAllRowsAnew) {
  Load(kThreeYears);
  Calculate(Day(2006, 1, 1), Day(2008, 12, 31));
  Calculate(Day(2006, 3, 15), Day(2006, 5, 20));
  EXPECT_THAT(engine->lstOd, ElementsAre("15.3.2006"));
  EXPECT_THAT(engine->lstDo, SizeIs(1));
  EXPECT_THAT(engine->lstUrok, ElementsAre("9"));
  EXPECT_THAT(engine->lstPocetDnu, SizeIs(1));
  EXPECT_THAT(engine->lstPenale, SizeIs(1));
  EXPECT_THAT(engine->periods(), SizeIs(1));
  EXPECT_EQ(completions, 2);
}

TEST_F(PocitejRepoTest, AYearWithoutRowsGetsAMessageAndChangesNothing) {
  Load(kThreeYears);
  Calculate(Day(2006, 3, 15), Day(2006, 5, 20));
  EXPECT_EQ(Start(Day(2009, 3, 15), Day(2009, 5, 20)), Refusal::kNoRate);
  EXPECT_THAT(memory.message_box.shown, ElementsAre(kNoRate));
  EXPECT_FALSE(engine->rate_found());
  EXPECT_FALSE(engine->Timer1.armed());
  EXPECT_THAT(engine->lstOd, ElementsAre("15.3.2006"));
  EXPECT_THAT(engine->lstPenale, SizeIs(1));

  Start(Day(2005, 12, 31), Day(2006, 5, 20));  // the year before the table
  EXPECT_THAT(memory.message_box.shown, ElementsAre(kNoRate, kNoRate));
}

TEST_F(PocitejRepoTest, APaymentAfterTheTableGetsAMessageAndNoInterest) {
  Load(kThreeYears);
  EXPECT_EQ(Start(Day(2008, 12, 1), Day(2009, 1, 1)), Refusal::kBeyondTable);
  EXPECT_THAT(memory.message_box.shown, ElementsAre(kTableTooShort));
  EXPECT_FALSE(engine->Timer1.armed());
  memory.event_loop.RunUntilIdle();
  EXPECT_EQ(completions, 0);
  // The rows of a split that has not come to its end have no days.
  EXPECT_THAT(engine->lstOd, ElementsAre("1.12.2008", "1.1.2009"));
  EXPECT_THAT(engine->lstDo, ElementsAre("31.12.2008"));
  EXPECT_THAT(engine->lstPocetDnu, IsEmpty());
  EXPECT_THAT(engine->lstPenale, IsEmpty());
}

TEST_F(PocitejRepoTest, AMissingJulyOfTheLastYearIsTheCallersError) {
  Load(CrLf({"010120062,00", "010720062,50", "010120071,00"}));
  Calculate(Day(2006, 3, 15), Day(2006, 5, 20));
  EXPECT_EQ(ErrorOf([&] { Start(Day(2007, 7, 1), Day(2007, 7, 10)); }), 380);
  EXPECT_FALSE(engine->rate_found());
  EXPECT_THAT(memory.message_box.shown, IsEmpty());
  EXPECT_FALSE(engine->Timer1.armed());
  EXPECT_THAT(engine->lstOd, ElementsAre("15.3.2006")) << "the rows of the split before";
}

TEST_F(PocitejRepoTest, ASplitWithoutASelectedHalfYearIsTheCallersError) {
  Load(kThreeYears);
  engine->dtpSplatnost = Day(2006, 3, 15);
  engine->dtpZaplaceni = Day(2006, 5, 20);
  EXPECT_EQ(ErrorOf([&] { engine->Command2_Click(); }), 13);
  EXPECT_FALSE(engine->Timer1.armed());
}

TEST_F(PocitejRepoTest, AnEmptyTableAfterASuccessIsSilent) {
  Load(kThreeYears);
  Calculate(Day(2006, 3, 15), Day(2006, 5, 20));
  EXPECT_TRUE(engine->rate_found());
  Load("");
  Start(Day(2006, 3, 15), Day(2006, 5, 20));
  EXPECT_THAT(memory.message_box.shown, IsEmpty());
  EXPECT_FALSE(engine->Timer1.armed());
}

// The interest. The expected figures are those of decimal arithmetic outside the program.

struct Interest {
  std::string name;
  Date due;
  Date paid;
  double amount;
  std::vector<std::string> interest;
};

void PrintTo(const Interest& interest, std::ostream* out) { *out << interest.name; }

class InterestTest : public PocitejRepoTest, public testing::WithParamInterface<Interest> {};

TEST_P(InterestTest, FollowsOnTheTimer) {
  Load(kThreeYears);
  Calculate(GetParam().due, GetParam().paid, GetParam().amount);
  EXPECT_EQ(engine->lstPenale, GetParam().interest);
  EXPECT_FALSE(engine->Timer1.armed());
  EXPECT_EQ(completions, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Delays, InterestTest,
    testing::Values(
        // 10000 × 9 % × 66 / 365 = 162.7397
        Interest{"OneRow", Day(2006, 3, 15), Day(2006, 5, 20), 10000, {"162,7397"}},
        // 10000 × 9.05 % × 181 / 365; 2008 has 366 days, the year of interest 365 all the same
        Interest{"LeapHalfYear", Day(2008, 1, 1), Day(2008, 6, 30), 10000, {"448,7808"}},
        Interest{"WithoutDays", Day(2006, 6, 30), Day(2006, 7, 1), 36500, {"0,0000", "9,5000"}},
        // 7.05 as a single is 7.0500001907 and would give 349602,7492.
        Interest{"RateByItsText", Day(2007, 7, 1), Day(2007, 12, 29), 1e7, {"349602,7397"}},
        // ((9.05 × P) ÷ 100 × 181) ÷ 365: any other order of the steps ends in 856734075585,2860.
        Interest{"OrderOfTheSteps",
                 Day(2008, 1, 1),
                 Day(2008, 6, 30),
                 19090255949978.89,
                 {"856734075585,2850"}},
        Interest{"Nothing", Day(2006, 3, 15), Day(2006, 5, 20), 0, {"0,0000"}},
        // 10 days at 9 % and 10 at 9.5 %: 10000 × 9 × 10 / 36500 and 10000 × 9.5 × 10 / 36500
        Interest{"TwoRows", Day(2006, 6, 20), Day(2006, 7, 10), 10000, {"24,6575", "26,0274"}}),
    [](const auto& interest) { return interest.param.name; });

TEST_F(PocitejRepoTest, ThePeriodsAreTheRowsAsValues) {
  Load(kThreeYears);
  Calculate(Day(2007, 6, 20), Day(2007, 7, 10));
  ASSERT_THAT(engine->periods(), SizeIs(2));
  const InterestPeriod& first = engine->periods()[0];
  EXPECT_EQ(first.from, Day(2007, 6, 20));
  EXPECT_EQ(first.to, Day(2007, 6, 30));
  EXPECT_EQ(first.rate, 8.0F);
  EXPECT_EQ(first.days, 10);
  EXPECT_EQ(first.interest, 21.9178);  // 10000 × 8 × 10 / 36500 = 21.91780…
  const InterestPeriod& second = engine->periods()[1];
  EXPECT_EQ(second.from, Day(2007, 7, 1));
  EXPECT_EQ(second.to, Day(2007, 7, 10));
  EXPECT_EQ(second.rate, 7.05F);
  EXPECT_EQ(second.days, 10);
  EXPECT_EQ(second.interest, 19.3151);  // 10000 × 7.05 × 10 / 36500 = 19.31506…
}

TEST_F(PocitejRepoTest, TheTotalInterestIsThatOfTheWholeDelayWhereTheRateStays) {
  Load(CrLf({"010120062,00", "010720062,00", "010120072,00", "010720072,00"}));
  // 36500 × 9 % / 365 is 9 for each of the 729 days.
  Calculate(Day(2006, 1, 1), Day(2007, 12, 31), 36500);
  double sum = 0;
  for (const InterestPeriod& period : engine->periods()) sum += period.interest;
  EXPECT_EQ(sum, 6561);
}

TEST_F(PocitejRepoTest, TheInterestRunsOnTheAmountThatStoodWhenTheSplitBegan) {
  Load(kThreeYears);
  EXPECT_EQ(Start(Day(2006, 3, 15), Day(2006, 5, 20), 10000), std::nullopt);
  program.state.BaseAmount = Money::FromDouble(1);
  memory.event_loop.RunUntilIdle();
  EXPECT_THAT(engine->lstPenale, ElementsAre("162,7397"));
}

TEST_F(PocitejRepoTest, OfTwoCallsBeforeTheTimerOnlyTheLastIsCompleted) {
  Load(kThreeYears);
  Start(Day(2006, 3, 15), Day(2006, 5, 20), 10000);
  Start(Day(2008, 1, 1), Day(2008, 6, 30), 10000);
  memory.event_loop.RunUntilIdle();
  EXPECT_THAT(engine->lstPenale, ElementsAre("448,7808"));
  EXPECT_EQ(completions, 1);
}

TEST_F(PocitejRepoTest, ACallThatFailsDropsTheOneThatWaited) {
  Load(kThreeYears);
  Start(Day(2006, 3, 15), Day(2006, 5, 20));
  Start(Day(2009, 3, 15), Day(2009, 5, 20));
  memory.event_loop.RunUntilIdle();
  EXPECT_EQ(completions, 0);
}

TEST_F(PocitejRepoTest, AnEngineThatIsGoneCompletesNothing) {
  Load(kThreeYears);
  Start(Day(2006, 3, 15), Day(2006, 5, 20));
  engine.reset();
  memory.event_loop.RunUntilIdle();
  EXPECT_EQ(completions, 0);
  EXPECT_THAT(memory.message_box.shown, IsEmpty());
}

// The supplied table

TEST_F(PocitejRepoTest, TheSuppliedTableReachesFrom2005ToTheEndOf2026) {
  memory.program_folder.path = VELTA_SOURCE_DIR "/data";
  engine->Form_Load();
  EXPECT_EQ(engine->lstDatum.size(), 44);
  // From the first due date of the regime over all 44 half-years but the first, which it shares.
  Calculate(Day(2005, 4, 28), Day(2026, 12, 31));
  EXPECT_THAT(memory.message_box.shown, IsEmpty());
  EXPECT_THAT(engine->periods(), SizeIs(44));
  EXPECT_EQ(engine->lstUrok.front(), "9,5");   // the ČNB's 2,50 of 1.1.2005
  EXPECT_EQ(engine->lstUrok[35], "14");        // 7,00 of 1.7.2022
  EXPECT_EQ(engine->lstUrok.back(), "10,75");  // 3,75 of 1.7.2026

  Start(Day(2026, 12, 1), Day(2027, 1, 1));
  EXPECT_THAT(memory.message_box.shown, ElementsAre(kTableTooShort));
}

}  // namespace
}  // namespace velta
