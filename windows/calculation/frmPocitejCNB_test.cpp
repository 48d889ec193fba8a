#include "windows/calculation/frmPocitejCNB.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "tests/support/english_locale.h"
#include "tests/support/rate_folder.h"
#include "ui/memory/memory_platform.h"

namespace velta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// Four rows without a gap: 3 %, 6 %, 4 %, and 14 % from 1.1.2004 on, which is open.
const std::string kFourRows = CrLf({CnbLine("01.01.2003", "30.01.2003", "1,50", "3,00"),
                                    CnbLine("31.01.2003", "25.06.2003", "3,00", "6,00"),
                                    CnbLine("26.06.2003", "31.12.2003", "2,00", "4,00"),
                                    CnbLine("01.01.2004", "", "7,00", "14,00")});

class PocitejCnbTest : public testing::Test {
 protected:
  void Load(const std::string& bytes) {
    folder_.Write("cnb.dat", bytes);
    memory.program_folder.path = folder_.path();
    engine.Form_Load();
  }

  void LoadSupplied() {
    memory.program_folder.path = VELTA_SOURCE_DIR "/data";
    engine.Form_Load();
  }

  /// Looks for the rate of a day, with nothing left from an earlier search.
  Rate RateOn(const std::string& day) {
    program.state.EngineRate = 0;
    engine.Text1 = day;
    EXPECT_TRUE(engine.StanoveniPrvniSazby());
    return program.state.EngineRate;
  }

  void Compute(const std::string& due, const std::string& paid, const std::string& amount) {
    engine.Text1 = due;
    engine.Text2 = paid;
    engine.txtDluznaCastka = amount;
    engine.Command1_Click();
  }

  std::vector<int> Selected() const {
    std::vector<int> rows;
    for (const SelectableList& list : engine.lstCnb) rows.push_back(list.selected());
    return rows;
  }

  std::vector<std::string> Texts(std::size_t list) const {
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(engine.lstCnb[list].size()));
    for (int row = 0; row < engine.lstCnb[list].size(); ++row) {
      texts.push_back(engine.lstCnb[list][row]);
    }
    return texts;
  }

  std::vector<std::string> Reports() const {
    std::vector<std::string> texts;
    for (const auto& box : memory.message_box.shown) texts.push_back(box.text);
    return texts;
  }

  ui::MemoryPlatform memory;
  Program program{memory.platform(), {}};
  frmPocitejCNB engine{program};

 private:
  RateFolder folder_;
};

// Loading

TEST_F(PocitejCnbTest, BeforeAnyRunTheLabelsSayWhatTheyWillShow) {
  EXPECT_EQ(engine.lblPocetDnu, "Zde se zobrazí počet dnů trvání dluhu");
  EXPECT_EQ(engine.lblPenale, "Zde se zobrazí penále za zadané období");
}

TEST_F(PocitejCnbTest, LoadsFourListsInTheOrderOfTheFileWithTheOpenRowEndingToday) {
  memory.clock.now.day = std::chrono::sys_days(std::chrono::year(2010) / 5 / 6);
  Load(CrLf({CnbLine("31.01.2003", "25.06.2003", "1,50", "3,00"),
             CnbLine("1.1.2003", "30.1.2003", "1,75", "3,50"),
             CnbLine("26.06.2003", "", "1,25", "2,50")}));
  EXPECT_THAT(Texts(0), ElementsAre("31.1.2003", "1.1.2003", "26.6.2003"));
  EXPECT_THAT(Texts(1), ElementsAre("25.6.2003", "30.1.2003", "6.5.2010"));
  EXPECT_THAT(Texts(2), ElementsAre("1,50", "1,75", "1,25"));
  EXPECT_THAT(Texts(3), ElementsAre("3,00", "3,50", "2,50"));
  EXPECT_THAT(Selected(), ElementsAre(-1, -1, -1, -1));
  EXPECT_THAT(Reports(), IsEmpty());
}

TEST_F(PocitejCnbTest, FollowsTheUsersLocale) {
  memory.locale = EnglishLocale();
  Load(kFourRows);
  EXPECT_THAT(Texts(0), ElementsAre("1/1/2003", "1/31/2003", "6/26/2003", "1/1/2004"));
  EXPECT_THAT(Texts(3), ElementsAre("3.00", "6.00", "4.00", "14.00"));
  Compute("7/1/2003", "7/11/2003", "10000.5");
  EXPECT_EQ(engine.lblPenale, "10.9594520547945");  // 10 × 10000.5 × 4 / 36500, by hand
}

TEST_F(PocitejCnbTest, AMissingFileIsReportedAndLeavesTheListsEmpty) {
  memory.program_folder.path = "/no/such/folder";
  engine.Form_Load();
  EXPECT_THAT(memory.message_box.shown, ElementsAre(ui::MemoryMessageBox::Shown{
                                            ui::Icon::kCritical, "Velta",
                                            "Chyba 53 (Soubor nebyl nalezen) v proceduře\r\n"
                                            "(Form_Load) of (frmPocitejCNB.frm)."}));
  for (std::size_t list = 0; list < 4; ++list) EXPECT_THAT(Texts(list), IsEmpty());
}

TEST_F(PocitejCnbTest, AMalformedRowIsReportedAndEndsTheReading) {
  Load(CrLf({CnbLine("01.01.2003", "30.01.2003", "1,75", "3,50"),
             CnbLine("leden 2003", "25.06.2003", "1,50", "3,00"),
             CnbLine("26.06.2003", "", "1,25", "2,50")}));
  EXPECT_THAT(Reports(), ElementsAre("Chyba 13 (Neshoda typů) v proceduře\r\n"
                                     "(Form_Load) of (frmPocitejCNB.frm)."));
  EXPECT_THAT(Texts(0), ElementsAre("1.1.2003"));
  EXPECT_THAT(Texts(3), ElementsAre("3,50"));
}

TEST_F(PocitejCnbTest, AnEmptyFileIsNoErrorUntilARateIsAskedFor) {
  Load("");
  EXPECT_THAT(Reports(), IsEmpty());

  engine.Text1 = "1.1.2003";
  EXPECT_FALSE(engine.StanoveniPrvniSazby());
  EXPECT_THAT(Reports(), ElementsAre("Chyba 13 (Neshoda typů) v proceduře\r\n"
                                     "(StanoveniPrvniSazby) of (frmPocitejCNB.frm)."));
}

// The row in force

struct Search {
  std::string name;
  std::string day;
  int row;
  Rate rate;
};

void PrintTo(const Search& search, std::ostream* out) { *out << search.day; }

class RowInForceTest : public PocitejCnbTest, public testing::WithParamInterface<Search> {};

TEST_P(RowInForceTest, IsSelectedInAllLists) {
  Load(kFourRows);
  EXPECT_EQ(RateOn(GetParam().day), GetParam().rate);
  EXPECT_THAT(Selected(), testing::Each(GetParam().row));
  EXPECT_EQ(engine.txtVyseSazby, PlainText(GetParam().rate, memory.locale));
}

INSTANTIATE_TEST_SUITE_P(Boundaries, RowInForceTest,
                         testing::Values(Search{"LongBeforeTheTable", "1.1.1950", 0, 3.0F},
                                         Search{"BeforeTheTable", "31.12.2002", 0, 3.0F},
                                         Search{"FirstRowBegins", "1.1.2003", 0, 3.0F},
                                         Search{"FirstRowEnds", "30.1.2003", 0, 3.0F},
                                         Search{"SecondRowBegins", "31.1.2003", 1, 6.0F},
                                         Search{"SecondRowEnds", "25.6.2003", 1, 6.0F},
                                         Search{"ThirdRowBegins", "26.6.2003", 2, 4.0F},
                                         Search{"ThirdRowEnds", "31.12.2003", 2, 4.0F},
                                         Search{"LastRowBegins", "1.1.2004", 3, 14.0F},
                                         Search{"Today", "21.11.2026", 3, 14.0F},
                                         Search{"AfterToday", "1.1.2050", 3, 14.0F}),
                         [](const auto& search) { return search.param.name; });

TEST_F(PocitejCnbTest, TheFoundRateIsShownInItsShortestForm) {
  Load(kFourRows);
  EXPECT_EQ(RateOn("1.1.2004"), 14.0F);
  EXPECT_EQ(engine.txtVyseSazby, "14");
}

TEST_F(PocitejCnbTest, ADayInAGapHasNoRate) {
  Load(CrLf({CnbLine("01.01.2003", "30.01.2003", "1,50", "3,00"),
             CnbLine("31.01.2003", "25.06.2003", "3,00", "6,00"),
             CnbLine("01.01.2004", "", "7,00", "14,00")}));
  engine.txtVyseSazby = "8";
  program.state.EngineRate = 8;
  engine.Text1 = "30.9.2003";
  EXPECT_TRUE(engine.StanoveniPrvniSazby());
  EXPECT_EQ(program.state.EngineRate, 0.0F);
  EXPECT_EQ(engine.txtVyseSazby, "8");
  EXPECT_THAT(Selected(), ElementsAre(1, 1, 1, 1));
  EXPECT_THAT(Reports(), IsEmpty());
}

TEST_F(PocitejCnbTest, TheGapOfATableOfTwoRowsLeavesTheRateAsItWas) {
  Load(CrLf({CnbLine("01.01.2003", "30.01.2003", "1,50", "3,00"),
             CnbLine("01.01.2004", "", "7,00", "14,00")}));
  program.state.EngineRate = 7;
  engine.Text1 = "30.9.2003";
  EXPECT_TRUE(engine.StanoveniPrvniSazby());
  EXPECT_EQ(program.state.EngineRate, 7.0F);
  EXPECT_THAT(Selected(), ElementsAre(0, 0, 0, 0));
}

TEST_F(PocitejCnbTest, ATableOfOneRowServesEveryDay) {
  Load(CrLf({CnbLine("01.01.2003", "", "1,50", "3,00")}));
  for (const char* day : {"1.1.1950", "31.12.2002", "1.1.2003", "21.11.2026", "1.1.2050"}) {
    SCOPED_TRACE(day);
    EXPECT_EQ(RateOn(day), 3.0F);
    EXPECT_THAT(Selected(), ElementsAre(0, 0, 0, 0));
  }
}

TEST_F(PocitejCnbTest, OfOverlappingRowsTheLastThenTheFirstThenTheLowestWins) {
  Load(CrLf({CnbLine("01.01.2003", "31.03.2003", "0,50", "1,00"),
             CnbLine("01.02.2003", "31.08.2003", "1,00", "2,00"),
             CnbLine("01.05.2003", "31.12.2003", "1,50", "3,00"),
             CnbLine("01.08.2003", "", "2,00", "4,00")}));
  EXPECT_EQ(RateOn("1.3.2003"), 1.0F);   // rows 0 and 1
  EXPECT_EQ(RateOn("1.6.2003"), 2.0F);   // rows 1 and 2
  EXPECT_EQ(RateOn("15.8.2003"), 4.0F);  // rows 1, 2 and 3
}

TEST_F(PocitejCnbTest, ASearchOwesNothingToTheOneBefore) {
  Load(kFourRows);
  EXPECT_EQ(RateOn("1.1.2005"), 14.0F);
  EXPECT_EQ(RateOn("1.3.2003"), 6.0F);
  EXPECT_EQ(RateOn("1.1.2003"), 3.0F);
  EXPECT_EQ(RateOn("1.1.2005"), 14.0F);
}

TEST_F(PocitejCnbTest, AStartThatIsNoDateIsReported) {
  Load(kFourRows);
  program.state.EngineRate = 5;
  engine.txtVyseSazby = "5";
  engine.Text1 = "včera";
  EXPECT_FALSE(engine.StanoveniPrvniSazby());
  EXPECT_THAT(Reports(), ElementsAre("Chyba 13 (Neshoda typů) v proceduře\r\n"
                                     "(StanoveniPrvniSazby) of (frmPocitejCNB.frm)."));
  EXPECT_EQ(program.state.EngineRate, 5.0F);
  EXPECT_EQ(engine.txtVyseSazby, "5");
}

TEST_F(PocitejCnbTest, ARateThatIsNoNumberIsReportedWhenItIsNeeded) {
  Load(CrLf({CnbLine("01.01.2003", "30.01.2003", "1,50", ""),
             CnbLine("31.01.2003", "", "3,00", "6,00")}));
  EXPECT_THAT(Reports(), IsEmpty());
  EXPECT_EQ(RateOn("1.1.2004"), 6.0F);
  engine.Text1 = "1.1.2003";
  EXPECT_FALSE(engine.StanoveniPrvniSazby());
  EXPECT_THAT(Reports(), SizeIs(1));
}

// The interest, day by day. The expected sums of doubles come from a separate program.

TEST_F(PocitejCnbTest, ADelayWithoutDaysBearsNothing) {
  Load(kFourRows);
  program.state.InterestAmount = 5;
  Compute("1.3.2004", "1.3.2004", "10000");
  EXPECT_EQ(engine.lblPocetDnu, "0");
  EXPECT_EQ(engine.lblPenale, "0");
  EXPECT_EQ(program.state.InterestAmount, 0);
}

TEST_F(PocitejCnbTest, APaymentBeforeTheDueDateBearsNothing) {
  Load(kFourRows);
  Compute("1.3.2004", "20.2.2004", "10000");
  EXPECT_EQ(engine.lblPocetDnu, "-10");  // 2004 is a leap year: 9 days of February and 1 of March
  EXPECT_EQ(engine.lblPenale, "0");
  EXPECT_EQ(program.state.InterestAmount, 0);
}

struct Delay {
  std::string name;
  std::string due;
  std::string paid;
  std::string amount;
  std::string days;
  std::string interest;
  std::vector<int> selected;
};

void PrintTo(const Delay& delay, std::ostream* out) { *out << delay.due << " - " << delay.paid; }

class DayByDayTest : public PocitejCnbTest, public testing::WithParamInterface<Delay> {};

TEST_P(DayByDayTest, SumsTheInterestOfEachDayAtItsOwnRate) {
  Load(kFourRows);
  const Delay& delay = GetParam();
  Compute(delay.due, delay.paid, delay.amount);
  EXPECT_THAT(Reports(), IsEmpty());
  EXPECT_EQ(engine.lblPocetDnu, delay.days);
  EXPECT_EQ(engine.lblPenale, delay.interest);
  EXPECT_EQ(PlainText(program.state.InterestAmount, memory.locale), delay.interest);
  EXPECT_EQ(Selected(), delay.selected);
}

INSTANTIATE_TEST_SUITE_P(
    Delays, DayByDayTest,
    testing::Values(
        // 30 × 10 000 × 14 / 36500
        Delay{"InTheLastRow",
              "1.3.2004",
              "31.3.2004",
              "10000",
              "30",
              "115,068493150685",
              {3, 3, 3, 3}},
        // 20 × 36 500 × 6 / 36500 = 20 × 6
        Delay{"InsideOneRow", "1.3.2003", "21.3.2003", "36500", "20", "120", {1, 1, 1, 1}},
        // The days 29. and 30.1. at 3, 31.1. and 1.2. at 6: 2 × 3 + 2 × 6
        Delay{"OverARowsEnd", "28.1.2003", "1.2.2003", "36500", "4", "18", {0, 1, 0, 1}},
        // The payment on the row's last day stays at 3.
        Delay{"UpToARowsEnd", "28.1.2003", "30.1.2003", "36500", "2", "6", {0, 0, 0, 0}},
        // Due on the last day of its row: all days are in the next one.
        Delay{"FromARowsEnd", "30.1.2003", "2.2.2003", "36500", "3", "18", {0, 1, 0, 1}},
        // 29. and 30.1. at 3; 31.1.-25.6. 146 days at 6; 26.6.-31.12. 189 days at 4; 1.1. at 14
        Delay{"OverThreeRowsEnds", "28.1.2003", "1.1.2004", "36500", "338", "1652", {0, 3, 0, 3}},
        // Due before the table: its first rate from the first day; 30.12.2002-30.1.2003: 32 × 3
        Delay{"FromBeforeTheTable", "29.12.2002", "30.1.2003", "36500", "32", "96", {0, 0, 0, 0}},
        // The open row ends today, 21.11.2026, and goes on all the same: 20 × 14
        Delay{"PastToday", "11.11.2026", "1.12.2026", "36500", "20", "280", {3, 3, 3, 3}},
        // 366 days of the leap year 2004 / 365: 366 × 14
        Delay{"LeapYear", "31.12.2003", "31.12.2004", "36500", "366", "5124", {2, 3, 2, 3}}),
    [](const auto& delay) { return delay.param.name; });

TEST_F(PocitejCnbTest, TheDaysAreAddedOneByOne) {
  Load(CrLf({CnbLine("01.01.2003", "", "1,25", "2,50")}));
  // 365 additions of the double 10000 × 2.5 / 36500; one multiplication would give 250.
  Compute("1.1.2003", "1.1.2004", "10000");
  EXPECT_EQ(engine.lblPenale, "250,000000000001");
}

TEST_F(PocitejCnbTest, EachDayIsDividedOnce) {
  Load(CrLf({CnbLine("01.01.2003", "", "1,75", "3,50")}));
  // 30 additions of 305.5 × 3.5 / 36500; dividing by 100 and then by 365 gives …357 at the end.
  Compute("1.1.2003", "31.1.2003", "305,5");
  EXPECT_EQ(engine.lblPenale, "0,878835616438356");
}

TEST_F(PocitejCnbTest, TheAmountIsKeptToFourDecimals) {
  Load(CrLf({CnbLine("01.01.2003", "", "1,75", "3,50")}));
  Compute("1.1.2003", "31.1.2003", "0,00005");
  EXPECT_EQ(engine.lblPenale, "0");
}

TEST_F(PocitejCnbTest, LoadedAgainItHasOnlyTheRowsOfTheNewFile) {
  Load(kFourRows);
  Load(CrLf({CnbLine("01.01.2003", "31.12.2010", "1,75", "3,50"),
             CnbLine("01.01.2011", "", "2,50", "5,00")}));
  for (std::size_t list = 0; list < 4; ++list) EXPECT_EQ(Texts(list).size(), 2U);
  EXPECT_EQ(RateOn("1.6.2005"), 3.5F) << "by the new file's dates too";
  Compute("1.1.2020", "2.1.2020", "36500");
  EXPECT_EQ(engine.lblPenale, "5");
}

TEST_F(PocitejCnbTest, ADelayFromAGapBearsNothingUntilTheLastRow) {
  Load(CrLf({CnbLine("01.01.2003", "30.01.2003", "1,50", "3,00"),
             CnbLine("31.01.2003", "25.06.2003", "3,00", "6,00"),
             CnbLine("01.01.2004", "", "7,00", "14,00")}));
  program.state.EngineRate = 0;
  // The first day is past the end of row 1 already, so the last row serves it: 10 × 14.
  Compute("30.9.2003", "10.10.2003", "36500");
  EXPECT_EQ(engine.lblPenale, "140");
  EXPECT_EQ(program.state.EngineRate, 14.0F);
}

TEST_F(PocitejCnbTest, ADelayFromAGapBeforeALaterRowBearsNothingUntilThatRowEnds) {
  // The start, 15.2., lies between rows 1 and 2; the search ends on row 2, of 1.3. to 25.6.
  Load(CrLf({CnbLine("01.01.2003", "30.01.2003", "1,50", "3,00"),
             CnbLine("31.01.2003", "10.02.2003", "3,00", "6,00"),
             CnbLine("01.03.2003", "25.06.2003", "2,00", "4,00"),
             CnbLine("26.06.2003", "", "7,00", "14,00")}));
  Compute("15.2.2003", "25.6.2003", "36500");
  EXPECT_EQ(engine.lblPocetDnu, "130");
  EXPECT_EQ(engine.lblPenale, "0");
  Compute("15.2.2003", "27.6.2003", "36500");  // 26. and 27.6. at 14
  EXPECT_EQ(engine.lblPenale, "28");
}

TEST_F(PocitejCnbTest, AnAmountThatIsNoNumberIsReportedAndTheOutputsStay) {
  Load(kFourRows);
  program.state.InterestAmount = 5;
  engine.lblPocetDnu = "7";
  engine.lblPenale = "1,5";
  Compute("1.3.2004", "31.3.2004", "abc");
  EXPECT_THAT(Reports(), ElementsAre("Chyba 13 (Neshoda typů) v proceduře\r\n"
                                     "(Command1_Click) of (frmPocitejCNB.frm)."));
  EXPECT_EQ(engine.lblPocetDnu, "7");
  EXPECT_EQ(engine.lblPenale, "1,5");
  EXPECT_EQ(program.state.InterestAmount, 5);
}

TEST_F(PocitejCnbTest, AnEndThatIsNoDateIsReported) {
  Load(kFourRows);
  Compute("1.3.2004", "zítra", "10000");
  EXPECT_THAT(Reports(), ElementsAre("Chyba 13 (Neshoda typů) v proceduře\r\n"
                                     "(Command1_Click) of (frmPocitejCNB.frm)."));
}

struct LongDelay {
  std::string name;
  std::string due;
  std::string days;
  std::string interest;  // "" where the days are too many
  int selected = 0;      // in lists 1 and 3
};

void PrintTo(const LongDelay& delay, std::ostream* out) { *out << delay.days; }

class LongDelayTest : public PocitejCnbTest, public testing::WithParamInterface<LongDelay> {};

// The table has one change of rate, after 1.1.2000; the amount is such that a day bears its rate.
TEST_P(LongDelayTest, EndsAt32766Days) {
  Load(CrLf({CnbLine("01.01.1900", "01.01.2000", "0,50", "1,00"),
             CnbLine("02.01.2000", "", "1,00", "2,00")}));
  engine.lblPenale = "before";
  program.state.InterestAmount = 5;
  const LongDelay& delay = GetParam();
  Compute(delay.due, "2.1.2000", "36500");
  EXPECT_EQ(engine.lblPocetDnu, delay.days);
  EXPECT_EQ(engine.lstCnb[1].selected(), delay.selected);
  EXPECT_EQ(engine.lstCnb[3].selected(), delay.selected);
  if (delay.interest.empty()) {
    EXPECT_THAT(Reports(), ElementsAre("Chyba 6 (Přetečení) v proceduře\r\n"
                                       "(Command1_Click) of (frmPocitejCNB.frm)."));
    EXPECT_EQ(engine.lblPenale, "before");
    EXPECT_EQ(program.state.InterestAmount, 5);
  } else {
    EXPECT_THAT(Reports(), IsEmpty());
    EXPECT_EQ(engine.lblPenale, delay.interest);
  }
}

// The due dates by calendar arithmetic of a separate program.
INSTANTIATE_TEST_SUITE_P(
    Days, LongDelayTest,
    testing::Values(
        // 32 765 days at 1 and one at 2
        LongDelay{"TheMostThatIsCounted", "18.4.1910", "32766", "32767", 1},
        // All days are gone through before the count fails: the rate has changed.
        LongDelay{"OneMore", "17.4.1910", "32767", "", 1},
        // These fail at once: the rate is that of the due date.
        LongDelay{"MoreThan16Bits", "16.4.1910", "32768", "", 0},
        LongDelay{"FarMore", "27.6.1890", "40000", "", 0},
        // 40 000 days the other way round
        LongDelay{"FarLess", "9.7.2109", "-40000", "", 1}),
    [](const auto& delay) { return delay.param.name; });

TEST_F(PocitejCnbTest, TmrStartComputesOnceFromTheStart) {
  // In the gap of two rows a rate that is left over would stay; the timer forgets it first.
  Load(CrLf({CnbLine("01.01.2003", "30.01.2003", "1,50", "3,00"),
             CnbLine("01.01.2004", "", "7,00", "14,00")}));
  program.state.EngineRate = 9;
  program.state.InterestAmount = 5;
  engine.Text1 = "30.9.2003";
  engine.Text2 = "30.9.2003";
  engine.txtDluznaCastka = "10000";
  engine.tmrStart.Arm();
  EXPECT_EQ(engine.lblPocetDnu, "Zde se zobrazí počet dnů trvání dluhu");
  memory.event_loop.RunUntilIdle();
  EXPECT_EQ(program.state.EngineRate, 0.0F);
  EXPECT_EQ(engine.lblPocetDnu, "0");
  EXPECT_EQ(program.state.InterestAmount, 0);
  EXPECT_FALSE(engine.tmrStart.armed());

  engine.lblPocetDnu = "untouched";
  memory.event_loop.RunUntilIdle();
  EXPECT_EQ(engine.lblPocetDnu, "untouched");
}

// The supplied table

TEST_F(PocitejCnbTest, TheSuppliedTableHasThePublishedRates) {
  LoadSupplied();
  EXPECT_THAT(Reports(), IsEmpty());
  EXPECT_EQ(engine.lstCnb[0].size(), 77);
  // Twice the discount rate that the ČNB gives for the day.
  EXPECT_EQ(RateOn("1.1.1990"), 8.0F);
  EXPECT_EQ(RateOn("27.5.1997"), 26.0F);
  EXPECT_EQ(RateOn("10.3.2005"), 2.5F);
  EXPECT_EQ(RateOn("31.3.2005"), 2.5F);
  EXPECT_EQ(RateOn("1.4.2005"), 2.0F);
  EXPECT_EQ(RateOn("27.4.2005"), 2.0F);  // the last due date of the discount regime
  EXPECT_EQ(RateOn("21.11.2026"), 5.5F);
}

TEST_F(PocitejCnbTest, InTheSuppliedTableEveryDayHasItsRate) {
  LoadSupplied();
  using std::chrono::sys_days;
  const sys_days first(std::chrono::year(1990) / 1 / 1);
  const sys_days last(std::chrono::year(2026) / 12 / 31);
  int row = 0;
  for (sys_days day = first; day <= last; day += std::chrono::days(1)) {
    ASSERT_GT(RateOn(ShortDateText(day, memory.locale)), 0.0F) << ShortDateText(day, memory.locale);
    const int found = engine.lstCnb[0].selected();
    ASSERT_TRUE(found == row || found == row + 1) << ShortDateText(day, memory.locale);
    row = found;
  }
  EXPECT_EQ(row, 76);
}

}  // namespace
}  // namespace velta
