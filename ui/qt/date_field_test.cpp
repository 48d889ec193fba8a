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
#include "ui/window.h"

namespace velta::qt {
namespace {

using std::chrono::sys_days;

/// The binder ties a field to its model; here the field draws it by itself.
class DateFieldTest : public ::testing::Test {
 protected:
  DateFieldTest() : field_(&window_), other_(&window_) {
    other_.move(0, 60);
    model_.SetDay(Day(2005, 4, 28));
    Tie(field_, model_);
    model_.Change.Connect([this] { picked_.push_back(model_.day()); });
    model_.Mistyped.Connect([this] { ++mistyped_; });
    window_.show();
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    field_.setFocus();
  }

  static void Tie(DateField& field, ui::DatePicker& model) {
    field.SetModel(&model);
    model.Updated.Connect([&field](ui::Aspect) { field.ShowText(); });
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
  LocaleFormat locale_;
  ui::MemoryEventLoop loop_;
  ui::Window form_{"frmVzor", ui::WindowKind::kChild, loop_};
  ui::DatePicker model_{form_, "dtpVzor", clock_, locale_};
  QWidget window_;
  DateField field_;
  QLineEdit other_;
  std::vector<sys_days> picked_;
  int mistyped_ = 0;
};

TEST_F(DateFieldTest, EnterTakesTheDateAndMarksItForTheNextOne) {
  Type("31.12.99");
  EXPECT_EQ(field_.text(), "31.12.99") << "nothing is corrected while it is being typed";
  EXPECT_EQ(model_.text(), "31.12.99");
  EXPECT_TRUE(picked_.empty());
  QTest::keyClick(&field_, Qt::Key_Return);
  EXPECT_EQ(picked_, std::vector{Day(1999, 12, 31)});
  EXPECT_TRUE(field_.hasFocus());
  EXPECT_EQ(field_.selectedText(), "31.12.1999");
}

TEST_F(DateFieldTest, EnterLeavesAMistypedDateAsItStands) {
  Type("30.2.2005");
  QTest::keyClick(&field_, Qt::Key_Enter);
  EXPECT_EQ(mistyped_, 1);
  EXPECT_EQ(field_.text(), "30.2.2005");
  EXPECT_EQ(field_.selectedText(), "");
}

TEST_F(DateFieldTest, TabTakesTheDate) {
  Type("3.5.2011");
  QTest::keyClick(&field_, Qt::Key_Tab);
  EXPECT_EQ(picked_, std::vector{Day(2011, 5, 3)});
}

TEST_F(DateFieldTest, TabFromAMistypedDateArrivesBeforeItIsSaid) {
  Type("30.2.2005");
  QTest::keyClick(&field_, Qt::Key_Tab);
  EXPECT_TRUE(other_.hasFocus());
  EXPECT_EQ(mistyped_, 0);
  loop_.RunUntilIdle();
  EXPECT_EQ(mistyped_, 1);
  EXPECT_EQ(field_.text(), "30.2.2005");
}

TEST_F(DateFieldTest, IsNotSaidWhereTheKeyboardComesBackAtOnce) {
  Type("30.2.2005");
  // So does the frame of a window inside another, when the mouse moves or closes it.
  window_.setFocus(Qt::MouseFocusReason);
  field_.setFocus(Qt::OtherFocusReason);
  loop_.RunUntilIdle();
  EXPECT_EQ(mistyped_, 0);
}

TEST_F(DateFieldTest, PastedCellStandsAsItIsUntilItCounts) {
  field_.selectAll();
  field_.insert("20.6.2005\r\n");
  QTest::keyClick(&field_, Qt::Key_Enter);
  EXPECT_EQ(picked_, std::vector{Day(2005, 6, 20)});
  EXPECT_EQ(field_.text(), "20.6.2005");
}

TEST_F(DateFieldTest, TypingInTheMiddleLeavesTheCursorThere) {
  field_.setCursorPosition(1);
  QTest::keyClicks(&field_, "1");
  EXPECT_EQ(field_.text(), "218.4.2005");
  EXPECT_EQ(field_.cursorPosition(), 2);
}

TEST_F(DateFieldTest, EscMarksTheDateThatStandsThereAgain) {
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

TEST_F(DateFieldTest, NothingIsWrittenIntoADisabledFieldFromAfar) {
  model_.SetEnabled(false);
  other_.setFocus();
  field_.setText("3.5.11");
  EXPECT_EQ(field_.text(), "28.4.2005");
}

TEST_F(DateFieldTest, ProgramsDateIsShown) {
  model_.SetDay(Day(2020, 1, 2));
  EXPECT_EQ(field_.text(), "2.1.2020");
}

TEST_F(DateFieldTest, WheelChangesNothing) {
  QWheelEvent wheel(QPointF(5, 5), field_.mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, 120),
                    Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&field_, &wheel);
  EXPECT_EQ(field_.text(), "28.4.2005");
  EXPECT_TRUE(picked_.empty());
}

TEST_F(DateFieldTest, ArrowKeysMarkThePartThatTheyChange) {
  field_.setCursorPosition(3);
  QTest::keyClick(&field_, Qt::Key_Up);
  EXPECT_EQ(field_.text(), "28.5.2005");
  EXPECT_EQ(field_.selectedText(), "5");
  QTest::keyClick(&field_, Qt::Key_Down, Qt::KeypadModifier);
  QTest::keyClick(&field_, Qt::Key_Down);
  EXPECT_EQ(field_.text(), "28.3.2005");
  QTest::keyClick(&field_, Qt::Key_Up, Qt::ControlModifier);
  EXPECT_EQ(field_.text(), "28.3.2005");
}

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
    Tie(second_, second_model_);
    second_.move(0, 120);
    second_.show();
  }

  ui::DatePicker second_model_{form_, "dtpDruhe", clock_, locale_};
  DateField second_{&window_};
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
