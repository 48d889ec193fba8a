#include "ui/qt/date_field.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QCalendarWidget>
#include <QTest>
#include <QWheelEvent>
#include <vector>

#include "tests/support/day.h"
#include "ui/memory/memory_platform.h"
#include "ui/qt/text.h"

namespace velta::qt {
namespace {

using std::chrono::sys_days;

constexpr sys_days kBefore = Day(2005, 4, 28);

class DateFieldTest : public ::testing::Test {
 protected:
  DateFieldTest() : field_(&window_, clock_), other_(&window_) {
    clock_.now.day = Day(2026, 11, 21);
    other_.move(0, 60);
    field_.SetDay(kBefore);
    QObject::connect(&field_, &DateField::DayPicked, &field_,
                     [this](sys_days day) { picked_.push_back(day); });
    QObject::connect(&field_, &DateField::Mistyped, &field_, [this] { ++mistyped_; });
    window_.show();
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    field_.setFocus();
  }

  void Type(const char* text) {
    field_.selectAll();
    QTest::keyClicks(&field_, text);
  }

  static QCalendarWidget* Calendar() {
    QWidget* popup = QApplication::activePopupWidget();
    return popup == nullptr ? nullptr : popup->findChild<QCalendarWidget*>();
  }
  static QWidget* Days() { return Calendar()->findChild<QWidget*>("qt_calendar_calendarview"); }

  ui::MemoryClock clock_;
  QWidget window_;
  DateField field_;
  QLineEdit other_;
  std::vector<sys_days> picked_;
  int mistyped_ = 0;
};

struct Typing {
  const char* name;
  const char* typed;
  sys_days day;
};

class TypedDate : public DateFieldTest, public ::testing::WithParamInterface<Typing> {};

// These are the ways in which people write Czech dates; the day after the old month's end and the
// month after a two-digit day are where fields that edit part by part go wrong.
TEST_P(TypedDate, IsTakenOnEnterAndShownInTheUsualForm) {
  Type(GetParam().typed);
  EXPECT_TRUE(picked_.empty()) << "a date must not change while it is being typed";
  QTest::keyClick(&field_, Qt::Key_Return);
  EXPECT_EQ(picked_, std::vector{GetParam().day});
  EXPECT_EQ(field_.day(), GetParam().day);
  EXPECT_TRUE(field_.hasFocus());
  EXPECT_EQ(field_.selectedText(), field_.text()) << "the next date is typed in its place";
}

INSTANTIATE_TEST_SUITE_P(
    Forms, TypedDate,
    ::testing::Values(Typing{"plain", "1.2.2010", Day(2010, 2, 1)},
                      Typing{"day_of_a_longer_month", "31.12.1999", Day(1999, 12, 31)},
                      Typing{"month_after_short_day", "7.11.2004", Day(2004, 11, 7)},
                      Typing{"month_after_long_day", "10.10.2004", Day(2004, 10, 10)},
                      Typing{"leading_zeros", "01.02.2005", Day(2005, 2, 1)},
                      Typing{"with_blanks", "1. 2. 2005", Day(2005, 2, 1)},
                      Typing{"two_digit_year", "1.2.94", Day(1994, 2, 1)},
                      Typing{"this_year", "1.2.", Day(2026, 2, 1)},
                      Typing{"six_digits", "010205", Day(2005, 2, 1)},
                      Typing{"year_first", "2005-02-01", Day(2005, 2, 1)},
                      Typing{"slashes", "1/2/2005", Day(2005, 2, 1)},
                      Typing{"leap_day", "29.2.2004", Day(2004, 2, 29)}),
    [](const auto& test) { return test.param.name; });

struct Refused {
  const char* name;
  const char* typed;
};

class RefusedDate : public DateFieldTest, public ::testing::WithParamInterface<Refused> {};

TEST_P(RefusedDate, StandsAndIsSaid) {
  Type(GetParam().typed);
  EXPECT_EQ(mistyped_, 0);
  QTest::keyClick(&field_, Qt::Key_Enter);
  EXPECT_EQ(mistyped_, 1);
  QTest::keyClick(&field_, Qt::Key_Tab);
  EXPECT_TRUE(other_.hasFocus());
  EXPECT_EQ(mistyped_, 1) << "not while the keyboard is on its way";
  EXPECT_TRUE(field_.IsUncommitted());
  QCoreApplication::processEvents();
  EXPECT_EQ(mistyped_, 2);
  EXPECT_FALSE(field_.IsUncommitted());
  EXPECT_EQ(field_.text(), GetParam().typed);
  EXPECT_EQ(field_.day(), kBefore);
  EXPECT_TRUE(picked_.empty());
}

TEST_F(DateFieldTest, DateOfAClockThatIsWrongIsNotMistyped) {
  field_.SetDay(Day(1583, 1, 1));
  QTest::keyClick(&field_, Qt::Key_Enter);
  QTest::keyClick(&field_, Qt::Key_Tab);
  QCoreApplication::processEvents();
  EXPECT_EQ(mistyped_, 0);
}

TEST_F(DateFieldTest, IsSaidOnceWhereACommandFollowsAtOnce) {
  Type("30.2.2005");
  other_.setFocus(Qt::MouseFocusReason);
  EXPECT_FALSE(field_.Commit());
  QCoreApplication::processEvents();
  EXPECT_EQ(mistyped_, 1);
}

TEST_F(DateFieldTest, IsNotSaidWhereTheKeyboardComesBackAtOnce) {
  Type("30.2.2005");
  // So does the frame of a window inside another, when the mouse moves or closes it.
  window_.setFocus(Qt::MouseFocusReason);
  field_.setFocus(Qt::OtherFocusReason);
  QCoreApplication::processEvents();
  EXPECT_EQ(mistyped_, 0);
}

INSTANTIATE_TEST_SUITE_P(Texts, RefusedDate,
                         ::testing::Values(Refused{"word", "zitra"},
                                           Refused{"empty_but_blank", " "},
                                           Refused{"half_typed", "1."},
                                           Refused{"no_such_day", "30.2.2005"},
                                           Refused{"before_all_dates", "31.12.1899"},
                                           Refused{"year_first_without_signs", "20050310"},
                                           Refused{"behind_all_dates", "1.1.10000"}),
                         [](const auto& test) { return test.param.name; });

TEST_F(DateFieldTest, TakesTheDateWhenTheFieldIsLeft) {
  Type("3.5.2011");
  QTest::keyClick(&field_, Qt::Key_Tab);
  EXPECT_EQ(picked_, std::vector{Day(2011, 5, 3)});
}

TEST_F(DateFieldTest, CopiedCellIsADateInSpiteOfItsLineEnd) {
  field_.setFocus();
  field_.selectAll();
  field_.insert("20.6.2005\r\n");
  QTest::keyClick(&field_, Qt::Key_Enter);
  EXPECT_EQ(picked_, std::vector{Day(2005, 6, 20)});
  EXPECT_EQ(mistyped_, 0);
  EXPECT_EQ(field_.text(), "20.6.2005");
}

TEST_F(DateFieldTest, TheSameDateInAnotherFormChangesNothingButTheText) {
  Type("28. 04. 2005");
  QTest::keyClick(&field_, Qt::Key_Return);
  EXPECT_TRUE(picked_.empty());
  EXPECT_EQ(field_.text(), "28.4.2005");
}

TEST_F(DateFieldTest, EscTakesTypingBack) {
  Type("3.5.2011");
  QTest::keyClick(&field_, Qt::Key_Escape);
  EXPECT_EQ(field_.text(), "28.4.2005");
  EXPECT_EQ(field_.selectedText(), "28.4.2005") << "the next key begins another date";
  QTest::keyClick(&field_, Qt::Key_Tab);
  EXPECT_TRUE(picked_.empty());
}

TEST_F(DateFieldTest, DateThatIsWrittenFromAfarCountsAtOnce) {
  other_.setFocus();
  QAccessible::queryAccessibleInterface(&field_)->setText(QAccessible::Value, "3.5.11");
  QCoreApplication::processEvents();
  EXPECT_EQ(picked_, std::vector{Day(2011, 5, 3)});
  EXPECT_EQ(field_.text(), "3.5.2011");
  field_.setText("31.2.");
  QCoreApplication::processEvents();
  EXPECT_EQ(mistyped_, 1);
}

TEST_F(DateFieldTest, ProgramSetsADateWithoutTheUsersEvent) {
  field_.SetDay(Day(2020, 1, 2));
  EXPECT_EQ(field_.text(), "2.1.2020");
  EXPECT_TRUE(picked_.empty());
}

TEST_F(DateFieldTest, FollowsTheUsersDateForm) {
  field_.SetFormat({".", ",", "M/d/yyyy"});
  EXPECT_EQ(field_.text(), "4/28/2005");
  Type("12/31/1999");
  QTest::keyClick(&field_, Qt::Key_Return);
  EXPECT_EQ(picked_, std::vector{Day(1999, 12, 31)});
}

TEST_F(DateFieldTest, WheelChangesNothing) {
  QWheelEvent wheel(QPointF(5, 5), field_.mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, 120),
                    Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&field_, &wheel);
  EXPECT_EQ(field_.text(), "28.4.2005");
  EXPECT_TRUE(picked_.empty());
}

struct ArrowKey {
  const char* name;
  const char* text;
  int cursor;
  Qt::Key key;
  const char* shown;
  const char* marked;
};

class ArrowKeys : public DateFieldTest, public ::testing::WithParamInterface<ArrowKey> {};

TEST_P(ArrowKeys, ChangeThePartAtTheCursorAndCommitNothing) {
  Type(GetParam().text);
  field_.setCursorPosition(GetParam().cursor);
  QTest::keyClick(&field_, GetParam().key);
  EXPECT_EQ(field_.text(), GetParam().shown);
  EXPECT_EQ(field_.selectedText(), GetParam().marked);
  EXPECT_TRUE(picked_.empty());
  EXPECT_EQ(mistyped_, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Parts, ArrowKeys,
    ::testing::Values(
        ArrowKey{"day_up", "28.4.2005", 0, Qt::Key_Up, "29.4.2005", "29"},
        ArrowKey{"day_down", "28.4.2005", 2, Qt::Key_Down, "27.4.2005", "27"},
        ArrowKey{"day_over_the_years_end", "31.12.2005", 1, Qt::Key_Up, "1.1.2006", "1"},
        ArrowKey{"day_over_the_months_begin", "1.3.2004", 1, Qt::Key_Down, "29.2.2004", "29"},
        ArrowKey{"month_up", "28.4.2005", 3, Qt::Key_Up, "28.5.2005", "5"},
        ArrowKey{"month_over_the_years_begin", "28.1.2005", 4, Qt::Key_Down, "28.12.2004", "12"},
        ArrowKey{"month_without_that_day", "31.1.2005", 4, Qt::Key_Up, "28.2.2005", "2"},
        ArrowKey{"year_up", "28.4.2005", 9, Qt::Key_Up, "28.4.2006", "2006"},
        ArrowKey{"year_without_that_day", "29.2.2004", 9, Qt::Key_Down, "28.2.2003", "2003"},
        ArrowKey{"date_without_a_year", "1.2.", 4, Qt::Key_Up, "1.3.2026", "3"},
        ArrowKey{"date_with_the_year_first", "2005-02-01", 10, Qt::Key_Up, "2.2.2005", "2"},
        ArrowKey{"last_day_of_all", "31.12.9999", 1, Qt::Key_Up, "31.12.9999", ""},
        ArrowKey{"first_day_of_all", "1.1.1900", 1, Qt::Key_Down, "1.1.1900", ""},
        ArrowKey{"no_date", "30.2.2005", 1, Qt::Key_Up, "30.2.2005", ""}),
    [](const auto& test) { return test.param.name; });

TEST_F(DateFieldTest, ArrowKeysCountWhenTheFieldIsLeft) {
  field_.setCursorPosition(0);
  QTest::keyClick(&field_, Qt::Key_Up);
  QTest::keyClick(&field_, Qt::Key_Up);
  QTest::keyClick(&field_, Qt::Key_Tab);
  EXPECT_EQ(picked_, std::vector{Day(2005, 4, 30)});
}

TEST_F(DateFieldTest, F4OpensACzechCalendarOnTheDate) {
  QTest::keyClick(&field_, Qt::Key_F4);
  ASSERT_NE(Calendar(), nullptr);
  EXPECT_EQ(Calendar()->selectedDate(), QDate(2005, 4, 28));
  EXPECT_EQ(Calendar()->firstDayOfWeek(), Qt::Monday);
  EXPECT_EQ(Calendar()->locale().language(), QLocale::Czech);
}

TEST_F(DateFieldTest, F4ThatClosesAWindowOpensNoCalendar) {
  QTest::keyClick(&field_, Qt::Key_F4, Qt::AltModifier);
  QTest::keyClick(&field_, Qt::Key_F4, Qt::ControlModifier);
  EXPECT_EQ(Calendar(), nullptr);
}

TEST_F(DateFieldTest, CalendarOpensOnWhatIsTyped) {
  Type("3.5.2011");
  QTest::keyClick(&field_, Qt::Key_Down, Qt::AltModifier);
  ASSERT_NE(Calendar(), nullptr);
  EXPECT_EQ(Calendar()->selectedDate(), QDate(2011, 5, 3));
}

TEST_F(DateFieldTest, EnterInTheCalendarTakesItsDay) {
  QTest::keyClick(&field_, Qt::Key_F4);
  ASSERT_NE(Calendar(), nullptr);
  QTest::keyClick(Days(), Qt::Key_Right);
  EXPECT_TRUE(picked_.empty()) << "walking through the calendar is not choosing";
  QTest::keyClick(Days(), Qt::Key_Return);
  EXPECT_EQ(picked_, std::vector{Day(2005, 4, 29)});
  EXPECT_EQ(Calendar(), nullptr);
  EXPECT_EQ(field_.text(), "29.4.2005");
}

TEST_F(DateFieldTest, EscInTheCalendarLeavesTheDate) {
  QTest::keyClick(&field_, Qt::Key_F4);
  ASSERT_NE(Calendar(), nullptr);
  QTest::keyClick(Days(), Qt::Key_Right);
  QTest::keyClick(Days(), Qt::Key_Escape);
  EXPECT_EQ(Calendar(), nullptr);
  EXPECT_EQ(field_.text(), "28.4.2005");
  EXPECT_TRUE(picked_.empty());
}

/// Another date beside the one in which is typed, and the arrow of its calendar.
class SecondDateTest : public DateFieldTest {
 protected:
  SecondDateTest() {
    second_.move(0, 120);
    second_.show();
  }

  DateField second_{&window_, clock_};
  QAbstractButton& arrow_ = *second_.findChild<QAbstractButton*>();
};

TEST_F(SecondDateTest, ItsArrowCommitsWhenItIsReleasedAndOpensTheCalendar) {
  Type("3.5.2011");
  QTest::mousePress(&arrow_, Qt::LeftButton);
  EXPECT_TRUE(picked_.empty()) << "a message would swallow the click";
  QTest::mouseRelease(&arrow_, Qt::LeftButton);
  EXPECT_EQ(picked_, std::vector{Day(2011, 5, 3)});
  EXPECT_NE(Calendar(), nullptr);
}

TEST_F(SecondDateTest, ItsArrowOpensNoCalendarUponAMistypedOne) {
  Type("30.2.2005");
  QTest::mouseClick(&arrow_, Qt::LeftButton);
  EXPECT_EQ(mistyped_, 1);
  EXPECT_EQ(Calendar(), nullptr);
}

TEST_F(DateFieldTest, DisabledFieldOpensNoCalendar) {
  field_.setEnabled(false);
  field_.OpenCalendar();
  EXPECT_EQ(Calendar(), nullptr);
}

}  // namespace
}  // namespace velta::qt
