#include "ui/date_picker.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/day.h"
#include "ui/memory/memory_platform.h"
#include "ui/window.h"

namespace velta::ui {
namespace {

constexpr DatePicker::Day kBefore = Day(2005, 4, 28);

class DatePickerTest : public ::testing::Test {
 protected:
  DatePickerTest() {
    clock_.now.day = Day(2026, 11, 21);
    picker_.SetDay(kBefore);
    picker_.Change.Connect([this] { picked_.push_back(picker_.day()); });
    picker_.Mistyped.Connect([this] { ++mistyped_; });
  }

  MemoryEventLoop loop_;
  MemoryClock clock_;
  LocaleFormat locale_;
  Window window_{"frmVzor", WindowKind::kChild, loop_};
  DatePicker picker_{window_, "dtpVzor", clock_, locale_};
  std::vector<DatePicker::Day> picked_;
  int mistyped_ = 0;
};

TEST_F(DatePickerTest, BeginsWithToday) {
  const DatePicker picker(window_, "dtpDnes", clock_, locale_);
  EXPECT_EQ(picker.day(), Day(2026, 11, 21));
  EXPECT_EQ(picker.text(), "21.11.2026");
}

TEST_F(DatePickerTest, KeepsToItsRange) {
  picker_.SetDay(Day(1899, 12, 31));
  EXPECT_TRUE(picker_.UserPick(Day(10000, 1, 1)));
  picker_.SetDay(kBefore);
  EXPECT_TRUE(picked_.empty());
  EXPECT_EQ(picker_.day(), kBefore);
  picker_.SetDay(Day(1900, 1, 1));
  picker_.SetDay(Day(9999, 12, 31));
  EXPECT_EQ(picked_.size(), 2U);
  EXPECT_EQ(picker_.text(), "31.12.9999");
}

TEST_F(DatePickerTest, UserCannotReachADisabledOne) {
  picker_.SetEnabled(false);
  EXPECT_FALSE(picker_.UserPick(Day(2005, 1, 1)));
  EXPECT_FALSE(picker_.UserEdit("1.1.2005"));
  EXPECT_FALSE(picker_.UserStep(1, 0));
  EXPECT_FALSE(picker_.UserRevert());
  EXPECT_EQ(picker_.text(), "28.4.2005");
}

TEST_F(DatePickerTest, FollowsTheUsersDateForm) {
  locale_.date_pattern = "M/d/yyyy";
  EXPECT_TRUE(picker_.UserRevert());
  EXPECT_EQ(picker_.text(), "4/28/2005");
  EXPECT_TRUE(picker_.UserEdit("12/31/1999"));
  EXPECT_TRUE(picker_.UserCommit());
  EXPECT_EQ(picked_, std::vector{Day(1999, 12, 31)});
}

struct Typing {
  const char* name;
  const char* typed;
  DatePicker::Day day;
  const char* shown;
};

class TypedDate : public DatePickerTest, public ::testing::WithParamInterface<Typing> {};

// These are the ways in which people write Czech dates; the day after the old month's end and the
// month after a two-digit day are where fields that edit part by part go wrong.
TEST_P(TypedDate, CountsOnceItIsCommittedAndIsShownInTheUsualForm) {
  EXPECT_TRUE(picker_.UserEdit(GetParam().typed));
  EXPECT_EQ(picker_.text(), GetParam().typed);
  EXPECT_EQ(picker_.TypedDay(), GetParam().day);
  EXPECT_TRUE(picker_.IsBeingTyped());
  EXPECT_TRUE(picked_.empty()) << "a date must not change while it is being typed";
  EXPECT_EQ(picker_.day(), kBefore);
  EXPECT_TRUE(picker_.UserCommit());
  EXPECT_EQ(picked_, std::vector{GetParam().day});
  EXPECT_EQ(picker_.text(), GetParam().shown);
  EXPECT_FALSE(picker_.IsBeingTyped());
  EXPECT_EQ(mistyped_, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, TypedDate,
    ::testing::Values(
        Typing{"plain", "1.2.2010 ", Day(2010, 2, 1), "1.2.2010"},
        Typing{"day_of_a_longer_month", "31. 12. 1999", Day(1999, 12, 31), "31.12.1999"},
        Typing{"month_after_short_day", "07.11.2004", Day(2004, 11, 7), "7.11.2004"},
        Typing{"month_after_long_day", "10.10.04", Day(2004, 10, 10), "10.10.2004"},
        Typing{"leading_zeros", "01.02.2005", Day(2005, 2, 1), "1.2.2005"},
        Typing{"two_digit_year", "1.2.94", Day(1994, 2, 1), "1.2.1994"},
        Typing{"this_year", "1.2.", Day(2026, 2, 1), "1.2.2026"},
        Typing{"six_digits", "010205", Day(2005, 2, 1), "1.2.2005"},
        Typing{"year_first", "2005-02-01", Day(2005, 2, 1), "1.2.2005"},
        Typing{"slashes", "1/2/2005", Day(2005, 2, 1), "1.2.2005"},
        Typing{"leap_day", "29.2.04", Day(2004, 2, 29), "29.2.2004"},
        Typing{"first_of_all", "01.1.1900", Day(1900, 1, 1), "1.1.1900"},
        Typing{"copied_cell_with_its_line_end", "\t20.6.2005\r\n", Day(2005, 6, 20), "20.6.2005"}),
    [](const auto& test) { return test.param.name; });

struct Refused {
  const char* name;
  const char* typed;
};

class RefusedDate : public DatePickerTest, public ::testing::WithParamInterface<Refused> {};

TEST_P(RefusedDate, StandsAndIsSaid) {
  EXPECT_TRUE(picker_.UserEdit(GetParam().typed));
  EXPECT_EQ(picker_.TypedDay(), std::nullopt);
  EXPECT_EQ(mistyped_, 0);
  EXPECT_FALSE(picker_.UserCommit());
  EXPECT_EQ(mistyped_, 1);
  EXPECT_FALSE(picker_.UserCommit());
  EXPECT_EQ(mistyped_, 2) << "and again, whenever the user would go on from it";
  EXPECT_EQ(picker_.text(), GetParam().typed);
  EXPECT_TRUE(picker_.IsBeingTyped());
  EXPECT_EQ(picker_.day(), kBefore);
  EXPECT_TRUE(picked_.empty());
}

INSTANTIATE_TEST_SUITE_P(Texts, RefusedDate,
                         ::testing::Values(Refused{"word", "zitra"}, Refused{"empty", ""},
                                           Refused{"empty_but_blank", " "},
                                           Refused{"half_typed", "1."},
                                           Refused{"no_such_day", "30.2.2005"},
                                           Refused{"before_all_dates", "31.12.1899"},
                                           Refused{"year_first_without_signs", "20050310"},
                                           Refused{"behind_all_dates", "1.1.10000"}),
                         [](const auto& test) { return test.param.name; });

TEST_F(DatePickerTest, DateOfAClockThatIsWrongIsNotMistyped) {
  clock_.now.day = Day(1583, 1, 1);
  DatePicker picker(window_, "dtpDnes", clock_, locale_);
  EXPECT_EQ(picker.text(), "1.1.1583");
  picker.UserEdit("01.01.1583");
  EXPECT_TRUE(picker.UserCommit());
  EXPECT_EQ(picker.text(), "1.1.1583");
  picker.UserEdit("2.1.1583");
  EXPECT_FALSE(picker.UserCommit());
}

TEST_F(DatePickerTest, TheSameDateInAnotherFormChangesNothingButTheText) {
  picker_.UserEdit("28. 04. 2005");
  EXPECT_TRUE(picker_.UserCommit());
  EXPECT_TRUE(picked_.empty());
  EXPECT_EQ(picker_.text(), "28.4.2005");
}

TEST_F(DatePickerTest, EscTakesTypingBack) {
  picker_.UserEdit("3.5.2011");
  EXPECT_TRUE(picker_.UserRevert());
  EXPECT_EQ(picker_.text(), "28.4.2005");
  EXPECT_TRUE(picker_.UserCommit());
  EXPECT_TRUE(picked_.empty());
}

TEST_F(DatePickerTest, ViewsDrawWhatIsTypedAndWhatComesOfIt) {
  std::vector<std::string> drawn;
  picker_.Updated.Connect([&](Aspect aspect) {
    if (aspect == Aspect::kValue) drawn.push_back(picker_.text());
  });
  picker_.UserEdit("1.5.");
  picker_.UserEdit("1.5.");
  picker_.UserCommit();
  picker_.SetDay(Day(2005, 6, 1));
  EXPECT_EQ(drawn, (std::vector<std::string>{"1.5.", "1.5.2026", "1.6.2005"}));
}

TEST_F(DatePickerTest, ProgramsDateTakesThePlaceOfTheTyping) {
  picker_.UserEdit("3.5.2011");
  picker_.SetDay(kBefore);
  EXPECT_EQ(picker_.text(), "3.5.2011") << "that is the date already";
  picker_.SetDay(Day(2020, 1, 2));
  EXPECT_EQ(picker_.text(), "2.1.2020");
  EXPECT_FALSE(picker_.IsBeingTyped());
}

TEST_F(DatePickerTest, DayOfTheCalendarTakesThePlaceOfTheTyping) {
  picker_.UserEdit("3.5.2011");
  EXPECT_TRUE(picker_.UserPick(kBefore));
  EXPECT_EQ(picker_.text(), "28.4.2005");
  EXPECT_TRUE(picked_.empty());
  picker_.UserEdit("3.5.2011");
  EXPECT_TRUE(picker_.UserPick(Day(2004, 1, 1)));
  EXPECT_EQ(picker_.text(), "1.1.2004");
  EXPECT_EQ(picked_, std::vector{Day(2004, 1, 1)});
}

TEST_F(DatePickerTest, RefusedDayIsTheDateButNothingToGoOnWith) {
  picker_.Change.Connect([this] {
    if (picker_.day() < Day(2000, 1, 1)) picker_.Refuse();
  });
  picker_.UserEdit("31.12.1999");
  EXPECT_FALSE(picker_.UserCommit());
  EXPECT_EQ(picker_.day(), Day(1999, 12, 31));
  EXPECT_EQ(mistyped_, 0);
  EXPECT_TRUE(picker_.UserCommit()) << "the user has been told, once";
  picker_.UserEdit("1.1.2000");
  EXPECT_TRUE(picker_.UserCommit());
}

TEST_F(DatePickerTest, CountsWhenTheFieldIsLeft) {
  picker_.UserEdit("3.5.2011");
  picker_.UserLeave();
  EXPECT_EQ(picked_, std::vector{Day(2011, 5, 3)});
}

TEST_F(DatePickerTest, NothingComesOfAFieldThatIsLeftAsItWas) {
  picker_.UserLeave();
  loop_.RunUntilIdle();
  EXPECT_TRUE(picked_.empty());
  EXPECT_EQ(mistyped_, 0);
}

TEST_F(DatePickerTest, MistypedOneIsSaidWhenTheKeyboardHasArrivedElsewhere) {
  picker_.UserEdit("30.2.2005");
  picker_.UserLeave();
  EXPECT_EQ(mistyped_, 0) << "not while the keyboard is on its way";
  loop_.RunUntilIdle();
  EXPECT_EQ(mistyped_, 1);
  loop_.RunUntilIdle();
  EXPECT_EQ(mistyped_, 1);
}

TEST_F(DatePickerTest, MistypedOneIsNotSaidWhereTheKeyboardComesBackAtOnce) {
  picker_.UserEdit("30.2.2005");
  picker_.UserLeave();
  picker_.UserReturn();
  loop_.RunUntilIdle();
  EXPECT_EQ(mistyped_, 0);
  picker_.UserLeave();
  loop_.RunUntilIdle();
  EXPECT_EQ(mistyped_, 1);
}

TEST_F(DatePickerTest, MistypedOneIsSaidOnceWhereACommandFollowsAtOnce) {
  picker_.UserEdit("30.2.2005");
  picker_.UserLeave();
  EXPECT_FALSE(picker_.UserCommit());
  loop_.RunUntilIdle();
  EXPECT_EQ(mistyped_, 1);
}

TEST_F(DatePickerTest, TwoMistypedOnesDoNotTakeTheKeyboardFromOneAnother) {
  DatePicker second(window_, "dtpDruhe", clock_, locale_);
  int mistyped_second = 0;
  second.Mistyped.Connect([&] { ++mistyped_second; });
  picker_.Mistyped.Connect([&] { second.UserLeave(); });
  picker_.UserEdit("30.2.2005");
  picker_.UserLeave();
  second.UserEdit("31.2.2005");
  loop_.RunUntilIdle();
  EXPECT_EQ(mistyped_, 1);
  EXPECT_EQ(mistyped_second, 0);
  EXPECT_FALSE(second.CommitTyping()) << "a command asks for it all the same";
  second.UserEdit("28.2.2005");
  picker_.UserLeave();
  loop_.RunUntilIdle();
  EXPECT_EQ(second.day(), Day(2005, 2, 28)) << "what is a date counts";
}

TEST_F(DatePickerTest, MistypedOneOfADisabledFieldTurnsBack) {
  picker_.UserEdit("30.2.2005");
  picker_.UserLeave();
  picker_.SetEnabled(false);
  loop_.RunUntilIdle();
  EXPECT_EQ(picker_.text(), "28.4.2005");
  EXPECT_EQ(mistyped_, 0);
}

TEST_F(DatePickerTest, CommandsThatUseInputsTakeTheTypingOver) {
  Button print(window_, "cmdTisk");
  Button help(window_, "cmdHelp");
  print.SetUsesInputs();
  std::vector<std::string> given;
  for (Button* button : {&print, &help}) {
    button->Click.Connect([&given, button] { given.push_back(button->name()); });
  }
  picker_.UserEdit("30.2.2005");
  EXPECT_TRUE(print.UserClick());
  EXPECT_TRUE(given.empty());
  EXPECT_EQ(mistyped_, 1);
  EXPECT_TRUE(help.UserClick());
  EXPECT_EQ(given, std::vector<std::string>{"cmdHelp"}) << "help leaves the typing alone";
  EXPECT_EQ(mistyped_, 1);
  EXPECT_EQ(picker_.text(), "30.2.2005");
  picker_.UserEdit("28.2.2005");
  EXPECT_TRUE(print.UserClick());
  EXPECT_EQ(given, (std::vector<std::string>{"cmdHelp", "cmdTisk"}));
  EXPECT_EQ(picker_.day(), Day(2005, 2, 28));
}

TEST_F(DatePickerTest, CommandThatACommitClosesIsNotGiven) {
  Button print(window_, "cmdTisk");
  print.SetUsesInputs();
  int given = 0;
  print.Click.Connect([&] { ++given; });
  picker_.Change.Connect([&] { print.SetEnabled(false); });
  picker_.UserEdit("28.2.2005");
  EXPECT_TRUE(print.UserClick());
  EXPECT_EQ(given, 0);
  EXPECT_EQ(picker_.day(), Day(2005, 2, 28));
}

TEST_F(DatePickerTest, OtherDatesCountBeforeACalendarOpens) {
  DatePicker second(window_, "dtpDruhe", clock_, locale_);
  EXPECT_TRUE(second.CommitOthers());
  picker_.UserEdit("3.5.2011");
  second.UserEdit("30.2.2005");
  EXPECT_TRUE(second.CommitOthers()) << "its own text does not matter";
  EXPECT_EQ(picked_, std::vector{Day(2011, 5, 3)});
  EXPECT_EQ(second.text(), "30.2.2005");
  picker_.UserEdit("30.2.2005");
  EXPECT_FALSE(second.CommitOthers());
  EXPECT_EQ(mistyped_, 1);
}

struct ArrowKey {
  const char* name;
  const char* text;
  std::size_t cursor;
  int by;
  const char* shown;
  const char* marked;  // null: nothing
};

class ArrowKeys : public DatePickerTest, public ::testing::WithParamInterface<ArrowKey> {};

TEST_P(ArrowKeys, ChangeThePartAtTheCursorAndCommitNothing) {
  picker_.UserEdit(GetParam().text);
  const auto part = picker_.UserStep(GetParam().by, GetParam().cursor);
  EXPECT_EQ(picker_.text(), GetParam().shown);
  ASSERT_EQ(part.has_value(), GetParam().marked != nullptr);
  if (part) {
    EXPECT_EQ(picker_.text().substr(part->first, part->second), GetParam().marked);
  }
  EXPECT_TRUE(picked_.empty());
  EXPECT_EQ(mistyped_, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Parts, ArrowKeys,
    ::testing::Values(ArrowKey{"day_up", "28.4.2005", 0, 1, "29.4.2005", "29"},
                      ArrowKey{"day_down", "28.4.2005", 2, -1, "27.4.2005", "27"},
                      ArrowKey{"day_over_the_years_end", "31.12.2005", 1, 1, "1.1.2006", "1"},
                      ArrowKey{"day_over_the_months_begin", "1.3.2004", 1, -1, "29.2.2004", "29"},
                      ArrowKey{"month_up", "28.4.2005", 3, 1, "28.5.2005", "5"},
                      ArrowKey{"month_over_the_years_begin", "28.1.2005", 4, -1, "28.12.2004",
                               "12"},
                      ArrowKey{"month_without_that_day", "31.1.2005", 4, 1, "28.2.2005", "2"},
                      ArrowKey{"year_up", "28.4.2005", 9, 1, "28.4.2006", "2006"},
                      ArrowKey{"year_without_that_day", "29.2.2004", 9, -1, "28.2.2003", "2003"},
                      ArrowKey{"date_without_a_year", "1.2.", 4, 1, "1.3.2026", "3"},
                      ArrowKey{"date_with_the_year_first", "2005-02-01", 10, 1, "2.2.2005", "2"},
                      ArrowKey{"last_day_of_all", "31.12.9999", 1, 1, "31.12.9999", nullptr},
                      ArrowKey{"first_day_of_all", "1.1.1900", 1, -1, "1.1.1900", nullptr},
                      ArrowKey{"no_date", "30.2.2005", 1, 1, "30.2.2005", nullptr}),
    [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace velta::ui
