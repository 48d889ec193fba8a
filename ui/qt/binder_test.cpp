#include "ui/qt/binder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QInputMethodEvent>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/day.h"
#include "ui/memory/memory_platform.h"
#include "ui/qt/date_field.h"
#include "ui/qt/hint_filter.h"
#include "ui/qt/report_box.h"
#include "ui/qt/text.h"
#include "ui/window.h"

namespace velta::qt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// One control of every kind.
struct Model : ui::Window {
  explicit Model(ui::EventLoop& loop) : ui::Window("frmTest", ui::WindowKind::kChild, loop) {
    for (const char* item : {"jedna", "dvě", "tři"}) cboDruh.AddItem(item);
    txtReport.SetReadOnly();
    txtReport.SetTabStops({5, 108});
  }

  ui::Frame fraTop{*this, "fraTop"};
  ui::TextBox txtFaktura{*this, "txtFaktura(3)"};
  ui::TextBox txtSazba{*this, "txtSazba"};
  ui::DropDown cboDruh{*this, "cboDruh"};
  ui::DatePicker dtpDen{*this, "dtpDen", Day(2005, 4, 28)};
  ui::TextBox txtReport{*this, "txtReport"};
  ui::Button cmdKonec{*this, "cmdKonec"};
  ui::Label lblPenale{*this, "lblPenale"};
  ui::MenuItem mnuKonec{*this, "mnuKonec"};
  ui::TimerControl tmrRepo{*this, "tmrRepo", ui::Timer::Kind::kOneShot, {}};
};

/// Its widgets, in another order than the controls.
struct Form {
  Form() : layout(&root) {
    layout.addWidget(Named(new QPushButton(), "cmdKonec"));
    layout.addWidget(Named(new QLabel("z formuláře"), "lblPenale"));
    auto* frame = new QGroupBox("Rámeček");
    auto* inside = new QVBoxLayout(frame);
    inside->addWidget(Named(new QLineEdit(), "txtSazba"));
    layout.addWidget(Named(frame, "fraTop"));
    layout.addWidget(Named(new ReportBox(), "txtReport"));
    layout.addWidget(Named(new DateField(), "dtpDen"));
    layout.addWidget(Named(new QComboBox(), "cboDruh"));
    layout.addWidget(Named(new QLineEdit(), "txtFaktura_3"));
    auto* item = new QAction(&root);
    item->setObjectName("mnuKonec");
  }

  static QWidget* Named(QWidget* widget, const char* name) {
    widget->setObjectName(name);
    return widget;
  }
  template <class W>
  W& Get(const char* name) {
    return *root.findChild<W*>(name);
  }

  QWidget root;
  QVBoxLayout layout;
};

class BinderTest : public ::testing::Test {
 protected:
  BinderTest() {
    form_.root.resize(400, 400);
    form_.root.show();
    QApplication::setActiveWindow(&form_.root);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form_.root));
    for (ui::Control* control : model_.controls()) {
      control->GotFocus.Connect([this, control] { focused_.push_back(control->name()); });
      control->MouseMove.Connect([this, control] { hovered_.push_back(control->name()); });
    }
    model_.MouseMove.Connect([this] { hovered_.emplace_back("window"); });
    model_.txtFaktura.Change.Connect([this] { changes_.push_back(model_.txtFaktura.text()); });
    model_.FocusMoved.Connect([this] { binder_.TakeFocus(); });
    edit_.setFocus(Qt::OtherFocusReason);
  }

  void Paste(QLineEdit& edit, const QString& text) {
    QApplication::clipboard()->setText(text);
    edit.selectAll();
    edit.paste();
  }

  ui::MemoryEventLoop loop_;
  ui::LocaleFormat locale_;
  Model model_{loop_};
  HintFilter hints_;
  Form form_;
  Binder& binder_{*new Binder(model_, form_.root, hints_, locale_)};
  QLineEdit& edit_ = form_.Get<QLineEdit>("txtFaktura_3");
  QLineEdit& rate_ = form_.Get<QLineEdit>("txtSazba");
  QComboBox& list_ = form_.Get<QComboBox>("cboDruh");
  DateField& date_ = form_.Get<DateField>("dtpDen");
  ReportBox& report_ = form_.Get<ReportBox>("txtReport");
  QPushButton& button_ = form_.Get<QPushButton>("cmdKonec");
  QLabel& label_ = form_.Get<QLabel>("lblPenale");
  std::vector<std::string> focused_;
  std::vector<std::string> hovered_;
  std::vector<std::string> changes_;
};

TEST_F(BinderTest, ShowsWhatTheModelHoldsAndLeavesTheFormsOwnCaptions) {
  EXPECT_EQ(list_.count(), 3);
  EXPECT_EQ(list_.currentIndex(), -1);
  EXPECT_EQ(date_.text(), "28.4.2005");
  EXPECT_EQ(label_.text(), "z formuláře");
  EXPECT_EQ(form_.Get<QGroupBox>("fraTop").title(), "Rámeček");
}

TEST_F(BinderTest, FollowsTheModel) {
  model_.txtFaktura.SetText("10 000,50");
  model_.cboDruh.SetIndex(2);
  model_.dtpDen.SetDay(Day(1999, 12, 31));
  model_.cmdKonec.SetCaption("&Konec");
  model_.lblPenale.SetCaption("431,30 Kč");
  model_.fraTop.SetCaption("Výsledek");
  model_.mnuKonec.SetCaption("&Konec programu");
  model_.cmdKonec.SetToolTip("Zavře okno");
  model_.txtReport.SetText("a\r\nb\r\n");
  model_.txtReport.Append("c\r\n");
  EXPECT_EQ(edit_.text(), "10 000,50");
  EXPECT_EQ(list_.currentIndex(), 2);
  EXPECT_EQ(date_.text(), "31.12.1999");
  EXPECT_EQ(button_.text(), "&Konec");
  EXPECT_EQ(label_.text(), "431,30 Kč");
  EXPECT_EQ(form_.Get<QGroupBox>("fraTop").title(), "Výsledek");
  EXPECT_EQ(form_.root.findChild<QAction*>("mnuKonec")->text(), "&Konec programu");
  EXPECT_EQ(button_.toolTip(), "Zavře okno");
  EXPECT_EQ(report_.toPlainText(), "a\nb\nc\n");
  model_.lblPenale.SetCaption("");
  EXPECT_EQ(label_.text(), "");
}

TEST_F(BinderTest, FollowsEnabledVisibleAndBackground) {
  model_.txtFaktura.SetEnabled(false);
  model_.txtFaktura.SetBackground(ui::Background::kFace);
  model_.cmdKonec.SetVisible(false);
  model_.mnuKonec.SetEnabled(false);
  EXPECT_FALSE(edit_.isEnabled());
  EXPECT_FALSE(button_.isVisible());
  EXPECT_FALSE(form_.root.findChild<QAction*>("mnuKonec")->isEnabled());
  const QPalette usual = QApplication::palette(&edit_);
  EXPECT_EQ(edit_.palette().color(QPalette::Base), usual.color(QPalette::Active, QPalette::Button));
  model_.txtFaktura.SetBackground(ui::Background::kWindow);
  EXPECT_EQ(edit_.palette().color(QPalette::Active, QPalette::Base),
            usual.color(QPalette::Active, QPalette::Base));
}

TEST_F(BinderTest, TypingReachesTheModelKeyByKey) {
  QTest::keyClicks(&edit_, "12");
  EXPECT_THAT(changes_, ElementsAre("1", "12"));
  QTest::keyClick(&edit_, Qt::Key_Backspace);
  EXPECT_EQ(model_.txtFaktura.text(), "1");
}

TEST_F(BinderTest, LettersOfDeadKeysComeWithoutAKeyAndStillReachTheModel) {
  QInputMethodEvent letter;
  letter.setCommitString("ď");
  QApplication::sendEvent(&edit_, &letter);
  EXPECT_EQ(model_.txtFaktura.text(), "ď");
}

TEST_F(BinderTest, DigitsOfTheCzechKeyboardComeWithShift) {
  QTest::sendKeyEvent(QTest::Click, &edit_, Qt::Key_1, QString("1"), Qt::ShiftModifier);
  EXPECT_EQ(model_.txtFaktura.text(), "1");
}

TEST_F(BinderTest, KeyHandlersMayReplaceAKey) {
  model_.txtFaktura.KeyPress.Connect([](ui::KeyPress& key) {
    if (key.text == ".") key.text = ",";
  });
  QTest::keyClicks(&edit_, "1.5");
  EXPECT_EQ(edit_.text(), "1,5");
  EXPECT_THAT(changes_, ElementsAre("1", "1,", "1,5"));
}

TEST_F(BinderTest, KeyHandlersMaySwallowEnterAndMoveOn) {
  std::vector<std::string> keys;
  model_.txtFaktura.KeyPress.Connect([&](ui::KeyPress& key) {
    keys.push_back(key.text);
    key.text.clear();
    model_.FocusNext();
  });
  model_.txtFaktura.SetFocus();
  QTest::keyClick(&edit_, Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_THAT(keys, ElementsAre("\r"));
  EXPECT_TRUE(rate_.hasFocus());
  EXPECT_EQ(edit_.text(), "");
}

TEST_F(BinderTest, ShortcutsAreNotAskedAsKeys) {
  model_.txtFaktura.KeyPress.Connect([](ui::KeyPress& key) { key.text.clear(); });
  model_.txtFaktura.SetText("abc");
  QTest::keyClick(&edit_, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(edit_.selectedText(), "abc");
  QTest::keyClick(&edit_, Qt::Key_Delete);
  EXPECT_EQ(model_.txtFaktura.text(), "");
}

TEST_F(BinderTest, WidgetShowsWhatTheHandlersMadeOfAPaste) {
  model_.txtFaktura.Change.Connect([this] {
    if (model_.txtFaktura.text() == "abc") model_.txtFaktura.SetText("");
  });
  Paste(edit_, "abc");
  EXPECT_EQ(edit_.text(), "");
  EXPECT_THAT(changes_, ElementsAre("abc", ""));
}

TEST_F(BinderTest, CopiedCellsLoseTheirLineEnd) {
  Paste(edit_, "10 000,50\r\n");
  EXPECT_EQ(model_.txtFaktura.text(), "10 000,50");
  EXPECT_EQ(edit_.text(), "10 000,50");
}

TEST_F(BinderTest, ChoosingInTheListReachesTheModel) {
  list_.setFocus();
  QTest::keyClick(&list_, Qt::Key_Down);
  EXPECT_EQ(model_.cboDruh.index(), 0);
  QTest::keyClick(&list_, Qt::Key_End);
  EXPECT_EQ(model_.cboDruh.index(), 2);
}

TEST_F(BinderTest, ListShowsAnotherChoiceOfTheModels) {
  model_.cboDruh.Change.Connect([this] {
    if (model_.cboDruh.index() == 1) model_.cboDruh.SetIndex(2);
  });
  list_.setCurrentIndex(1);
  EXPECT_EQ(list_.currentIndex(), 2);
}

TEST_F(BinderTest, WheelOverAListWithoutFocusIsForThePage) {
  model_.cboDruh.SetIndex(1);
  QWheelEvent wheel(QPointF(5, 5), list_.mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -120),
                    Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&list_, &wheel);
  EXPECT_EQ(model_.cboDruh.index(), 1);
}

TEST_F(BinderTest, PickedDayReachesTheModel) {
  date_.setFocus();
  date_.selectAll();
  QTest::keyClicks(&date_, "31.12.1999");
  QTest::keyClick(&date_, Qt::Key_Return);
  EXPECT_EQ(model_.dtpDen.day(), Day(1999, 12, 31));
}

TEST_F(BinderTest, DayThatTheModelRefusesTurnsBack) {
  date_.setFocus();
  date_.selectAll();
  QTest::keyClicks(&date_, "31.12.1899");
  QTest::keyClick(&date_, Qt::Key_Return);
  EXPECT_EQ(date_.text(), "28.4.2005");
}

TEST_F(BinderTest, TypedDateCountsWhenACommandIsGiven) {
  std::vector<std::chrono::sys_days> days;
  model_.mnuKonec.Click.Connect([&] { days.push_back(model_.dtpDen.day()); });
  date_.setFocus();
  date_.selectAll();
  QTest::keyClicks(&date_, "1.2.2010");
  form_.root.findChild<QAction*>("mnuKonec")->trigger();
  EXPECT_THAT(days, ElementsAre(Day(2010, 2, 1)));
}

TEST_F(BinderTest, ButtonsClick) {
  int clicks = 0;
  model_.cmdKonec.Click.Connect([&] { ++clicks; });
  QTest::mouseClick(&button_, Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
  button_.setFocus();
  QTest::keyClick(&button_, Qt::Key_Space);
  EXPECT_EQ(clicks, 2);
}

TEST_F(BinderTest, TabGoesInTheModelsOrderAndRaisesTheHint) {
  for (int i = 0; i < 6; ++i) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_THAT(focused_, ElementsAre("txtSazba", "cboDruh", "dtpDen", "txtReport", "cmdKonec",
                                    "txtFaktura(3)"));
}

TEST_F(BinderTest, FocusByTheProgramOrByAWindowComingUpIsNoActOfTheUser) {
  rate_.setFocus(Qt::OtherFocusReason);
  edit_.setFocus(Qt::ActiveWindowFocusReason);
  EXPECT_THAT(focused_, IsEmpty());
  rate_.setFocus(Qt::MouseFocusReason);
  EXPECT_THAT(focused_, ElementsAre("txtSazba"));
}

TEST_F(BinderTest, TakeFocusFollowsTheModel) {
  model_.dtpDen.SetFocus();
  EXPECT_TRUE(date_.hasFocus());
  EXPECT_THAT(focused_, ElementsAre("dtpDen")) << "once, by the model itself";
}

TEST_F(BinderTest, WhatABoxHoldsIsMarkedWhenTheProgramLeadsTheKeyboardThere) {
  model_.FocusMoved.Connect([this] { binder_.FollowFocus(); });
  edit_.setText("123");
  edit_.deselect();
  rate_.setFocus(Qt::OtherFocusReason);
  model_.txtFaktura.SetFocus();
  EXPECT_EQ(edit_.selectedText(), "123");

  model_.txtSazba.SetFocus();
  edit_.deselect();
  edit_.setFocus(Qt::MouseFocusReason);
  EXPECT_EQ(edit_.selectedText(), "") << "who clicks into a text means that place";
}

TEST_F(BinderTest, PointerOverControlsFramesAndTheBareWindow) {
  QTest::mouseMove(&button_);
  QTest::mouseMove(&label_);
  QTest::mouseMove(&report_);
  QTest::mouseMove(&form_.Get<QGroupBox>("fraTop"), QPoint(3, 30));
  QTest::mouseMove(&form_.root, QPoint(1, 1));
  hovered_.erase(std::unique(hovered_.begin(), hovered_.end()), hovered_.end());
  EXPECT_THAT(hovered_, ElementsAre("cmdKonec", "lblPenale", "txtReport", "fraTop", "window"));
}

TEST_F(BinderTest, PointerOverADisabledControlIsOverItsFrame) {
  model_.txtSazba.SetEnabled(false);
  QTest::mouseMove(&rate_);
  ASSERT_FALSE(hovered_.empty());
  EXPECT_EQ(hovered_.back(), "fraTop");
}

TEST_F(BinderTest, PointerAtRestWritesNothing) {
  QTest::mouseMove(&button_, QPoint(5, 5));
  hovered_.clear();
  const QPointF global = button_.mapToGlobal(QPointF(5, 5));
  QEnterEvent again(QPointF(5, 5), QPointF(5, 5), global);
  QApplication::sendEvent(&button_, &again);
  EXPECT_THAT(hovered_, IsEmpty());
}

TEST_F(BinderTest, NothingReachesTheModelOnceItsWindowIsClosed) {
  binder_.StopListening();
  QTest::keyClicks(&edit_, "1");
  list_.setCurrentIndex(1);
  QTest::mouseMove(&button_);
  rate_.setFocus(Qt::TabFocusReason);
  EXPECT_EQ(model_.txtFaktura.text(), "");
  EXPECT_EQ(model_.cboDruh.index(), -1);
  EXPECT_THAT(hovered_, IsEmpty());
  EXPECT_THAT(focused_, IsEmpty());
}

TEST(BinderDeathTest, ControlWithoutItsWidgetEndsTheProgram) {
  ui::MemoryEventLoop loop;
  ui::Window model("frmTest", ui::WindowKind::kChild, loop);
  ui::TextBox box(model, "txtNikde");
  const ui::LocaleFormat locale;
  EXPECT_DEATH(
      {
        HintFilter hints;
        QWidget root;
        new Binder(model, root, hints, locale);
      },
      "frmTest has no widget of its kind for txtNikde");
}

TEST_F(BinderTest, ReportValuesStandInOneColumnRightOfTheWidestLabel) {
  const QFontMetricsF metrics(report_.font());
  const auto stops = [&] { return report_.document()->defaultTextOption().tabs(); };
  model_.txtReport.SetText("\tA\t1\r\n");
  ASSERT_EQ(stops().size(), 2);
  // 5 and 108 quarters of a character.
  EXPECT_NEAR(stops()[0].position, 1.25 * metrics.averageCharWidth(), 0.01);
  EXPECT_NEAR(stops()[1].position, 27 * metrics.averageCharWidth(), 0.01);
  const QString wide(60, u'W');
  model_.txtReport.SetText("\tA\t1\r\n\t" + ToUtf8(wide) + "\t2\r\n");
  EXPECT_GT(stops()[1].position, stops()[0].position + metrics.horizontalAdvance(wide));
}

TEST(ReportBoxTest, WithoutTabStopsTheFontIsFixedPitch) {
  ReportBox box;
  box.SetReport("a\tb", {});
  EXPECT_TRUE(QFontInfo(box.font()).fixedPitch());
  EXPECT_NEAR(box.tabStopDistance(), 8 * QFontMetricsF(box.font()).horizontalAdvance(u' '), 0.01);
}

}  // namespace
}  // namespace velta::qt
