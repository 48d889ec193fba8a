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
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <utility>
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
    for (const char* item : {"jedna", "dvě", "tři"}) {
      cboDruh.AddItem(item);
      cboText.AddItem(item);
    }
    cboText.SetEditable();
    fraStrana.Hold({&txtStrana});
    ReadFirst({&lstRadky});
    dtpDen.SetDay(Day(2005, 4, 28));
    txtReport.SetReadOnly();
    txtReport.SetTabStops({5, 108});
  }

  ui::MemoryClock clock;
  LocaleFormat locale;
  ui::Frame fraTop{*this, "fraTop"};
  ui::TextBox txtFaktura{*this, {"txtFaktura", 3}};
  ui::TextBox txtSazba{*this, "txtSazba"};
  ui::DropDown cboDruh{*this, "cboDruh"};
  ui::DatePicker dtpDen{*this, "dtpDen", clock, locale};
  ui::TextBox txtReport{*this, "txtReport"};
  ui::Button cmdKonec{*this, "cmdKonec"};
  ui::Button cmdTisk{*this, "cmdTisk"};
  ui::Label lblPenale{*this, "lblPenale"};
  ui::MenuItem mnuKonec{*this, "mnuKonec"};
  std::array<ui::OptionButton, 2> optFramy =
      ui::ControlArray<ui::OptionButton, 2>(*this, "optFramy");
  std::array<ui::OptionButton, 3> optZaok = ui::ControlArray<ui::OptionButton, 3>(*this, "optZaok");
  ui::ListBox lstRadky{*this, "lstRadky"};
  ui::DropDown cboText{*this, "cboText"};
  ui::Frame fraStrana{*this, "fraStrana"};
  ui::TextBox txtStrana{*this, "txtStrana"};
  ui::TimerControl tmrRepo{*this, "tmrRepo", ui::Timer::Kind::kOneShot, {}};
  ui::MenuItem mnuTisk{*this, "mnuTisk"};
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
    auto* page = new QFrame();
    auto* on_page = new QVBoxLayout(page);
    on_page->addWidget(Named(new QLineEdit(), "txtStrana"));
    layout.addWidget(Named(page, "fraStrana"));
    auto* typed = new QComboBox();
    typed->setEditable(true);
    layout.addWidget(Named(typed, "cboText"));
    layout.addWidget(Named(new QListWidget(), "lstRadky"));
    // Two groups of options side by side.
    for (const char* name : {"optFramy_0", "optFramy_1"}) {
      layout.addWidget(Named(new QPushButton(), name));
    }
    for (const char* name : {"optZaok_0", "optZaok_1", "optZaok_2"}) {
      layout.addWidget(Named(new QRadioButton(), name));
    }
    layout.addWidget(Named(new QPushButton(), "cmdTisk"));
    for (const char* name : {"mnuKonec", "mnuTisk"}) (new QAction(&root))->setObjectName(name);
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
    form_.root.resize(400, 700);
    form_.root.show();
    form_.root.activateWindow();
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
  Model model_{loop_};
  HintFilter hints_;
  Form form_;
  Binder& binder_{*new Binder(model_, form_.root, hints_)};
  QLineEdit& edit_ = form_.Get<QLineEdit>("txtFaktura_3");
  QLineEdit& rate_ = form_.Get<QLineEdit>("txtSazba");
  QComboBox& list_ = form_.Get<QComboBox>("cboDruh");
  DateField& date_ = form_.Get<DateField>("dtpDen");
  ReportBox& report_ = form_.Get<ReportBox>("txtReport");
  QPushButton& button_ = form_.Get<QPushButton>("cmdKonec");
  QLabel& label_ = form_.Get<QLabel>("lblPenale");
  QListWidget& rows_ = form_.Get<QListWidget>("lstRadky");
  QComboBox& typed_ = form_.Get<QComboBox>("cboText");
  std::array<QRadioButton*, 3> options_ = {&form_.Get<QRadioButton>("optZaok_0"),
                                           &form_.Get<QRadioButton>("optZaok_1"),
                                           &form_.Get<QRadioButton>("optZaok_2")};
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
  model_.txtSazba.SetPlaceholder("zákonná 11,75");
  model_.txtReport.SetPlaceholder("nic");
  EXPECT_EQ(edit_.text(), "10 000,50");
  EXPECT_EQ(list_.currentIndex(), 2);
  EXPECT_EQ(date_.text(), "31.12.1999");
  EXPECT_EQ(button_.text(), "&Konec");
  EXPECT_EQ(label_.text(), "431,30 Kč");
  EXPECT_EQ(form_.Get<QGroupBox>("fraTop").title(), "Výsledek");
  EXPECT_EQ(form_.root.findChild<QAction*>("mnuKonec")->text(), "&Konec programu");
  EXPECT_EQ(button_.toolTip(), "Zavře okno");
  EXPECT_EQ(report_.toPlainText(), "a\nb\nc\n");
  EXPECT_EQ(rate_.placeholderText(), "zákonná 11,75");
  EXPECT_EQ(rate_.text(), "");
  EXPECT_EQ(report_.placeholderText(), "nic");
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

TEST_F(BinderTest, TypingInTheMiddleOfALineLeavesTheCursorThere) {
  model_.txtFaktura.SetText("1000");
  edit_.setCursorPosition(1);
  QTest::keyClicks(&edit_, "23");
  EXPECT_EQ(model_.txtFaktura.text(), "123000");
}

TEST_F(BinderTest, LabelShowsItsCaptionAsItIs) {
  model_.lblPenale.SetCaption("Uživatel  <b>Novák</b>");
  EXPECT_EQ(label_.textFormat(), Qt::PlainText);
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

TEST_F(BinderTest, TypingGoesOnAtTheEndOfATextThatIsSetWhileABoxHasTheKeyboard) {
  edit_.setFocus();
  QWidget box;
  box.show();
  box.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
  ASSERT_FALSE(edit_.hasFocus());
  model_.txtFaktura.SetText("477,58");
  EXPECT_EQ(edit_.cursorPosition(), 6);
}

TEST_F(BinderTest, CopiedCellsLoseTheirLineEnd) {
  Paste(edit_, "10 000,50\r\n");
  EXPECT_EQ(model_.txtFaktura.text(), "10 000,50");
  EXPECT_EQ(edit_.text(), "10 000,50");
}

TEST_F(BinderTest, LongPasteIsNotCutOff) {
  const std::string pasted(40'000, 'x');
  Paste(edit_, QString::fromStdString(pasted));
  EXPECT_EQ(model_.txtFaktura.text().size(), pasted.size());
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

TEST_F(BinderTest, TypingInAnEditableListReachesTheModelKeyByKey) {
  std::vector<std::string> texts;
  model_.cboText.Change.Connect([&] {
    texts.push_back(model_.cboText.text() + " " + std::to_string(model_.cboText.index()));
  });
  typed_.setFocus(Qt::TabFocusReason);
  QTest::keyClicks(&typed_, "jedna");
  QTest::keyClick(&typed_, Qt::Key_Backspace);
  EXPECT_THAT(texts, ElementsAre("j -1", "je -1", "jed -1", "jedn -1", "jedna 0", "jedn -1"));
  EXPECT_EQ(typed_.currentText(), "jedn") << "nothing is completed";
  EXPECT_EQ(typed_.count(), 3);
}

TEST_F(BinderTest, TypedTextThatDiffersFromAnItemInItsCaseStays) {
  typed_.setFocus(Qt::TabFocusReason);
  QTest::keyClicks(&typed_, "JEDNA");
  QTest::keyClick(&typed_, Qt::Key_Return);
  edit_.setFocus(Qt::TabFocusReason);
  EXPECT_EQ(typed_.currentText(), "JEDNA");
  EXPECT_EQ(model_.cboText.text(), "JEDNA");
  EXPECT_EQ(model_.cboText.index(), -1);
  EXPECT_EQ(typed_.count(), 3);
}

TEST_F(BinderTest, TypingInTheMiddleOfAnEditableListsTextLeavesTheCursorThere) {
  model_.cboText.SetText("1% denně");
  typed_.setFocus(Qt::TabFocusReason);
  typed_.lineEdit()->setCursorPosition(1);
  QTest::keyClicks(&typed_, "25");
  EXPECT_EQ(model_.cboText.text(), "125% denně");
  EXPECT_EQ(typed_.lineEdit()->cursorPosition(), 3);

  model_.cboText.SetText("jena");
  typed_.lineEdit()->setCursorPosition(2);
  QTest::keyClicks(&typed_, "d");
  EXPECT_EQ(model_.cboText.index(), 0) << "also where an item comes of it";
  EXPECT_EQ(typed_.lineEdit()->cursorPosition(), 3);
}

TEST_F(BinderTest, EditableListShowsTheModelsTextAndMayBePickedFromAfterwards) {
  const auto pick = [this](int row) {
    QTest::keyClick(&typed_, Qt::Key_F4);
    QTest::keyClick(typed_.view(), Qt::Key_Home);
    for (int i = 0; i < row; ++i) QTest::keyClick(typed_.view(), Qt::Key_Down);
    QTest::keyClick(typed_.view(), Qt::Key_Return);
  };
  EXPECT_EQ(typed_.currentText(), "") << "nothing is chosen at first";
  model_.cboText.SetIndex(1);
  EXPECT_EQ(typed_.currentText(), "dvě");
  QTest::keyClick(&typed_, Qt::Key_Down);
  EXPECT_EQ(model_.cboText.index(), 2) << "the arrow goes on from the model's choice";
  model_.cboText.SetText("čtyři");
  EXPECT_EQ(typed_.currentText(), "čtyři");
  pick(2);
  EXPECT_EQ(model_.cboText.index(), 2) << "also the item that was the chosen one before";
  model_.cboText.SetText("");
  EXPECT_EQ(typed_.currentText(), "");
  pick(0);
  EXPECT_EQ(model_.cboText.index(), 0);
}

TEST_F(BinderTest, EditableListShowsAnotherChoiceOfTheModels) {
  model_.cboText.Change.Connect([this] {
    if (model_.cboText.index() == 1) model_.cboText.SetIndex(2);
  });
  typed_.setCurrentIndex(1);
  EXPECT_EQ(typed_.currentText(), "tři");
  EXPECT_EQ(model_.cboText.index(), 2);
}

TEST_F(BinderTest, WhatAnEditableListHoldsIsMarkedWhenTheProgramLeadsTheKeyboardThere) {
  model_.FocusMoved.Connect([this] { binder_.FollowFocus(); });
  model_.cboText.SetText("dvě");
  model_.cboText.SetFocus();
  EXPECT_TRUE(typed_.hasFocus());
  EXPECT_EQ(typed_.lineEdit()->selectedText(), "dvě");
}

TEST_F(BinderTest, RowsAreAddedToThoseThatAreThere) {
  model_.lstRadky.AddItem("první");
  rows_.item(0)->setStatusTip("týž");
  model_.lstRadky.AddItem("druhý");
  ASSERT_EQ(rows_.count(), 2);
  EXPECT_EQ(rows_.item(0)->statusTip(), "týž");
  EXPECT_TRUE(rows_.item(0)->sizeHint().isValid()) << "it is not measured again";
  EXPECT_EQ(rows_.item(1)->text(), "druhý");
  EXPECT_THAT(rows_.selectedItems(), IsEmpty());
}

TEST_F(BinderTest, ClearedListIsEmptyAndMayBeFilledAgain) {
  model_.lstRadky.AddItem("první");
  model_.lstRadky.AddItem("druhý");
  model_.lstRadky.SetIndex(1);
  model_.lstRadky.Clear();
  EXPECT_EQ(rows_.count(), 0);
  model_.lstRadky.AddItem("třetí");
  model_.lstRadky.AddItem("čtvrtý");
  ASSERT_EQ(rows_.count(), 2);
  EXPECT_EQ(rows_.item(0)->text(), "třetí");
  EXPECT_THAT(rows_.selectedItems(), IsEmpty());
}

TEST_F(BinderTest, NewestRowIsInView) {
  for (int i = 0; i < 1000; ++i) model_.lstRadky.AddItem("řádek " + std::to_string(i));
  QCoreApplication::processEvents();
  const QRect newest = rows_.visualItemRect(rows_.item(999));
  EXPECT_TRUE(rows_.viewport()->rect().contains(newest.center()));
  model_.lstRadky.AddItem("ještě jeden");
  QCoreApplication::processEvents();
  EXPECT_EQ(rows_.verticalScrollBar()->value(), rows_.verticalScrollBar()->maximum());
}

TEST_F(BinderTest, RowThatIsWiderThanTheOthersCanBeSeenWhole) {
  model_.lstRadky.AddItem("krátký");
  model_.lstRadky.AddItem(std::string(500, 'm'));
  QCoreApplication::processEvents();
  EXPECT_GT(rows_.horizontalScrollBar()->maximum(), 0);
}

TEST_F(BinderTest, PickedRowReachesTheModel) {
  for (const char* row : {"první", "druhý", "třetí"}) model_.lstRadky.AddItem(row);
  std::vector<int> picked;
  model_.lstRadky.Change.Connect([&] { picked.push_back(model_.lstRadky.index()); });
  const auto click = [this](int row, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(rows_.viewport(), Qt::LeftButton, keys,
                      rows_.visualItemRect(rows_.item(row)).center());
  };
  click(1);
  click(1);
  EXPECT_THAT(picked, ElementsAre(1));
  click(1, Qt::ControlModifier);
  EXPECT_TRUE(rows_.item(1)->isSelected()) << "a chosen row is left only for another one";
  QTest::keyClick(&rows_, Qt::Key_Down);
  EXPECT_THAT(picked, ElementsAre(1, 2));
}

TEST_F(BinderTest, KeyboardThatComesToAListChoosesNothing) {
  model_.lstRadky.AddItem("první");
  rows_.setFocus(Qt::TabFocusReason);
  EXPECT_EQ(model_.lstRadky.index(), -1);
  EXPECT_THAT(rows_.selectedItems(), IsEmpty());
  QTest::keyClick(&rows_, Qt::Key_Space);
  EXPECT_EQ(model_.lstRadky.index(), 0);
}

TEST_F(BinderTest, ListShowsTheModelsRow) {
  for (const char* row : {"první", "druhý", "třetí"}) model_.lstRadky.AddItem(row);
  model_.lstRadky.Change.Connect([this] {
    if (model_.lstRadky.index() == 1) model_.lstRadky.SetIndex(2);
  });
  rows_.setCurrentRow(1);
  EXPECT_TRUE(rows_.item(2)->isSelected());
  EXPECT_FALSE(rows_.item(1)->isSelected());
  model_.lstRadky.SetIndex(0);
  EXPECT_TRUE(rows_.item(0)->isSelected());
  model_.lstRadky.SetIndex(-1);
  EXPECT_THAT(rows_.selectedItems(), IsEmpty());
}

TEST_F(BinderTest, OptionsThatTheProgramChoosesAreNoClicks) {
  int clicks = 0;
  for (ui::OptionButton& option : model_.optZaok) option.Click.Connect([&] { ++clicks; });
  for (const QRadioButton* option : options_) EXPECT_FALSE(option->isChecked());
  model_.optZaok[1].Choose();
  EXPECT_TRUE(options_[1]->isChecked());
  model_.optZaok[0].Choose();
  EXPECT_TRUE(options_[0]->isChecked());
  EXPECT_FALSE(options_[1]->isChecked());
  EXPECT_EQ(clicks, 0);
}

TEST_F(BinderTest, ClickOnAnOptionChoosesItOnce) {
  std::vector<std::string> clicked;
  for (ui::OptionButton& option : model_.optZaok) {
    option.Click.Connect([&clicked, &option] { clicked.push_back(option.name()); });
  }
  for (const int index : {2, 2, 0}) options_[static_cast<std::size_t>(index)]->click();
  EXPECT_THAT(clicked, ElementsAre("optZaok(2)", "optZaok(0)"));
  EXPECT_TRUE(model_.optZaok[0].value());
  EXPECT_TRUE(options_[0]->isChecked());
}

TEST_F(BinderTest, ArrowKeysChooseAmongTheOptionsOfOneGroup) {
  model_.optZaok[1].Choose();
  options_[1]->setFocus(Qt::TabFocusReason);
  QTest::keyClick(options_[1], Qt::Key_Down);
  EXPECT_TRUE(model_.optZaok[2].value());
  EXPECT_TRUE(options_[2]->hasFocus());
  QTest::keyClick(options_[2], Qt::Key_Up);
  QTest::keyClick(options_[1], Qt::Key_Up);
  EXPECT_TRUE(model_.optZaok[0].value());
}

TEST_F(BinderTest, GroupsOfOptionsInOneFrameDoNotMix) {
  model_.optFramy[1].Choose();
  options_[0]->click();
  EXPECT_TRUE(form_.Get<QPushButton>("optFramy_1").isChecked());
  EXPECT_TRUE(model_.optFramy[1].value());
  form_.Get<QPushButton>("optFramy_0").click();
  EXPECT_TRUE(model_.optFramy[0].value());
  EXPECT_FALSE(form_.Get<QPushButton>("optFramy_1").isChecked());
  EXPECT_TRUE(options_[0]->isChecked());
}

TEST_F(BinderTest, TabComesToTheChosenOption) {
  model_.optZaok[2].Choose();
  form_.Get<QPushButton>("optFramy_0").setFocus(Qt::TabFocusReason);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_THAT(focused_, ElementsAre("optFramy(0)", "optZaok(2)", "cboText"));
}

TEST_F(BinderTest, HiddenFrameHidesAndShowsWhatItHolds) {
  const QLineEdit& on_page = form_.Get<QLineEdit>("txtStrana");
  model_.fraStrana.SetVisible(false);
  EXPECT_FALSE(on_page.isVisible());
  model_.txtStrana.SetVisible(false);
  model_.fraStrana.SetVisible(true);
  EXPECT_FALSE(on_page.isVisible()) << "it was hidden by itself meanwhile";
  model_.fraStrana.SetVisible(false);
  model_.txtStrana.SetVisible(true);
  EXPECT_FALSE(on_page.isVisible());
  model_.fraStrana.SetVisible(true);
  EXPECT_TRUE(on_page.isVisible());
}

TEST_F(BinderTest, KeyboardLeavesAFrameThatIsHidden) {
  model_.txtStrana.SetFocus();
  ASSERT_TRUE(form_.Get<QLineEdit>("txtStrana").hasFocus());
  focused_.clear();
  model_.fraStrana.SetVisible(false);
  EXPECT_TRUE(rows_.hasFocus());
  EXPECT_THAT(focused_, ElementsAre("lstRadky"));
}

TEST_F(BinderTest, PickedDayReachesTheModel) {
  date_.setFocus();
  date_.selectAll();
  QTest::keyClicks(&date_, "31.12.1999");
  QTest::keyClick(&date_, Qt::Key_Return);
  EXPECT_EQ(model_.dtpDen.day(), Day(1999, 12, 31));
}

/// What comes of a date that is being typed when the user turns to something else.
class TypedDateTest : public BinderTest {
 protected:
  TypedDateTest() {
    model_.cmdTisk.SetUsesInputs();
    model_.mnuTisk.SetUsesInputs();
    for (ui::Command* command : std::initializer_list<ui::Command*>{
             &model_.cmdTisk, &model_.mnuTisk, &model_.cmdKonec, &model_.mnuKonec}) {
      command->Click.Connect([this, command] { events_.push_back(command->name()); });
    }
    model_.dtpDen.Mistyped.Connect([this] { events_.emplace_back("mistyped"); });
    model_.dtpDen.Change.Connect([this] {
      events_.emplace_back("change");
      if (model_.dtpDen.day() < Day(2000, 1, 1)) model_.dtpDen.Refuse();
    });
  }

  void Type(const char* text) {
    date_.setFocus();
    date_.selectAll();
    QTest::keyClicks(&date_, text);
  }
  /// What has happened since the last call.
  std::vector<std::string> Events() {
    QCoreApplication::processEvents();
    loop_.RunUntilIdle();
    return std::exchange(events_, {});
  }

  QPushButton& print_ = form_.Get<QPushButton>("cmdTisk");
  std::vector<std::string> events_;
};

TEST_F(TypedDateTest, NoCommandThatUsesItIsGivenUponAMistypedOne) {
  Type("31.2.2004");
  form_.root.findChild<QAction*>("mnuTisk")->trigger();
  EXPECT_THAT(Events(), ElementsAre("mistyped"));
  EXPECT_EQ(date_.text(), "31.2.2004");
  print_.click();  // by its access key
  EXPECT_THAT(Events(), ElementsAre("mistyped"));
  // The mouse takes the keyboard along to the button.
  QTest::mouseClick(&print_, Qt::LeftButton);
  EXPECT_THAT(Events(), ElementsAre("mistyped"));
  Type("1.3.2004");
  QTest::mouseClick(&print_, Qt::LeftButton);
  EXPECT_THAT(Events(), ElementsAre("change", "cmdTisk"));
  EXPECT_EQ(model_.dtpDen.day(), Day(2004, 3, 1));
}

TEST_F(TypedDateTest, NoCommandThatUsesItIsGivenUponARefusedOne) {
  Type("31.12.1999");
  form_.root.findChild<QAction*>("mnuTisk")->trigger();
  EXPECT_THAT(Events(), ElementsAre("change"));
  Type("30.12.1999");
  QTest::mouseClick(&print_, Qt::LeftButton);
  EXPECT_THAT(Events(), ElementsAre("change"));
  EXPECT_EQ(date_.text(), "30.12.1999");
  Type("1.1.2000");
  form_.root.findChild<QAction*>("mnuTisk")->trigger();
  EXPECT_THAT(Events(), ElementsAre("change", "mnuTisk"));
}

TEST_F(TypedDateTest, PressOfTheMouseCommitsWhenTheButtonIsReleased) {
  Type("1.3.2004");
  QTest::mousePress(&print_, Qt::LeftButton);
  EXPECT_THAT(Events(), IsEmpty()) << "a message would leave the button down";
  EXPECT_TRUE(print_.isDown());
  QTest::mouseRelease(&print_, Qt::LeftButton);
  EXPECT_FALSE(print_.isDown());
  EXPECT_THAT(Events(), ElementsAre("change", "cmdTisk"));
}

TEST_F(TypedDateTest, KeyboardIsWhereTheUserLedItAlsoWhereAMessageCameFirst) {
  model_.dtpDen.Change.Connect([this] {
    QMessageBox box(&form_.root);
    QMetaObject::invokeMethod(&box, &QDialog::accept, Qt::QueuedConnection);
    box.exec();
  });
  Type("1.3.2004");
  focused_.clear();
  QTest::keyClick(&date_, Qt::Key_Tab);
  EXPECT_THAT(Events(), ElementsAre("change"));
  EXPECT_THAT(focused_, ElementsAre("txtReport"));
  EXPECT_EQ(model_.focused(), &model_.txtReport);
}

TEST_F(TypedDateTest, PressThatIsThoughtBetterOfLeavesTheTyping) {
  Type("1.3.2");
  QTest::mousePress(&print_, Qt::LeftButton);
  QTest::mouseRelease(&print_, Qt::LeftButton, {}, QPoint(-20, -20));
  EXPECT_THAT(Events(), IsEmpty());
  EXPECT_TRUE(date_.hasFocus());
  EXPECT_EQ(model_.focused(), &model_.dtpDen);
  QTest::keyClicks(&date_, "004");
  EXPECT_EQ(date_.text(), "1.3.2004") << "nothing is marked, so typing goes on";
}

TEST_F(TypedDateTest, OtherCommandsNeverAskForADate) {
  Type("31.2.2004");
  form_.root.findChild<QAction*>("mnuKonec")->trigger();
  EXPECT_THAT(Events(), ElementsAre("mnuKonec"));
  QTest::mouseClick(&button_, Qt::LeftButton);
  EXPECT_THAT(Events(), ElementsAre("cmdKonec"));
  EXPECT_TRUE(date_.hasFocus()) << "typing goes on";
  EXPECT_EQ(date_.text(), "31.2.2004");
}

TEST_F(TypedDateTest, PressTakesTheKeyboardFromADateInWhichNothingWasTyped) {
  date_.setFocus(Qt::TabFocusReason);
  QTest::mouseClick(&button_, Qt::LeftButton);
  QCoreApplication::processEvents();
  EXPECT_TRUE(button_.hasFocus());
  EXPECT_EQ(model_.focused(), &model_.cmdKonec);
}

TEST_F(TypedDateTest, ButtonOfAnotherWindowLeavesTheDate) {
  ui::Window invoice("frmFaktura", ui::WindowKind::kChild, loop_);
  ui::Button help(invoice, "cmdHelp");
  auto* page = new QWidget(&form_.root);
  auto* button = new QPushButton(page);
  button->setObjectName("cmdHelp");
  page->show();
  const Binder& binder = *new Binder(invoice, *page, hints_);
  ASSERT_EQ(binder.parent(), page);
  Type("1.3.2004");
  QTest::mousePress(button, Qt::LeftButton);
  EXPECT_THAT(Events(), IsEmpty());
  QTest::mouseRelease(button, Qt::LeftButton);
  EXPECT_THAT(Events(), ElementsAre("change"));
  EXPECT_TRUE(button->hasFocus());
}

TEST_F(TypedDateTest, ToolbarButtonLeavesItToItsOwnWindow) {
  // The toolbar's window is around that of the date, with a binder that does not know it.
  ui::Window main("frmMenu", ui::WindowKind::kMain, loop_);
  ui::Button help(main, {"cmdMenu", 8});
  auto* button = new QPushButton(&form_.root);
  button->setObjectName("cmdMenu_8");
  button->setFocusPolicy(Qt::NoFocus);
  button->show();
  const Binder& binder = *new Binder(main, form_.root, hints_);
  ASSERT_EQ(binder.parent(), &form_.root);
  Type("1.3.2004");
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_THAT(Events(), IsEmpty()) << "the keyboard has stayed";
  QTest::mousePress(&print_, Qt::LeftButton);
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_THAT(Events(), ElementsAre("change"));
}

TEST_F(TypedDateTest, CommandTakesItOverAlsoWhereAnotherWindowIsActive) {
  Type("1.3.2004");
  QWidget help;
  help.show();
  help.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&help));
  EXPECT_THAT(Events(), IsEmpty());
  print_.click();
  EXPECT_THAT(Events(), ElementsAre("change", "cmdTisk"));
}

TEST_F(TypedDateTest, DateThatIsLeftForAnotherWindowStillCounts) {
  Type("1.3.2004");
  QFocusEvent left(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
  QCoreApplication::sendEvent(&date_, &left);
  EXPECT_THAT(Events(), IsEmpty()) << "the user may come back and type on";
  edit_.setFocus(Qt::ActiveWindowFocusReason);
  EXPECT_THAT(Events(), IsEmpty());
  form_.root.findChild<QAction*>("mnuTisk")->trigger();
  EXPECT_THAT(Events(), ElementsAre("change", "mnuTisk"));
}

TEST_F(BinderTest, MistypedDateOfADisabledFieldTurnsBack) {
  date_.setFocus();
  date_.selectAll();
  QTest::keyClicks(&date_, "31.2.2004");
  model_.dtpDen.SetEnabled(false);
  loop_.RunUntilIdle();
  EXPECT_EQ(date_.text(), "28.4.2005");
}

TEST_F(BinderTest, ButtonsClick) {
  int clicks = 0;
  model_.cmdKonec.Click.Connect([&] { ++clicks; });
  QTest::mouseClick(&button_, Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
  button_.setFocus();
  QTest::keyClick(&button_, Qt::Key_Space);
  EXPECT_EQ(clicks, 2);
  QTest::keyClick(&button_, Qt::Key_Return);
  QTest::keyClick(&button_, Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_EQ(clicks, 4);
}

TEST_F(BinderTest, TabGoesInTheModelsReadingOrderAndRaisesTheHint) {
  for (int i = 0; i < 12; ++i) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_THAT(focused_, ElementsAre("txtSazba", "cboDruh", "dtpDen", "txtReport", "cmdKonec",
                                    "cmdTisk", "optFramy(0)", "optZaok(0)", "cboText", "txtStrana",
                                    "lstRadky", "txtFaktura(3)"));
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
  date_.setFocus();
  QTest::keyClicks(&date_, "1");
  binder_.StopListening();
  QTest::keyClicks(&date_, "0");
  QTest::keyClick(&date_, Qt::Key_Return);
  QTest::keyClick(&date_, Qt::Key_F4);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  QTest::keyClicks(&edit_, "1");
  list_.setCurrentIndex(1);
  QTest::mouseMove(&button_);
  rate_.setFocus(Qt::TabFocusReason);
  EXPECT_EQ(model_.txtFaktura.text(), "");
  EXPECT_EQ(model_.cboDruh.index(), -1);
  EXPECT_EQ(model_.dtpDen.text(), "28.4.20051");
  EXPECT_EQ(model_.dtpDen.day(), Day(2005, 4, 28));
  EXPECT_THAT(hovered_, IsEmpty());
  EXPECT_THAT(focused_, IsEmpty());
}

TEST(BinderDeathTest, ControlWithoutItsWidgetEndsTheProgram) {
  ui::MemoryEventLoop loop;
  ui::Window model("frmTest", ui::WindowKind::kChild, loop);
  ui::TextBox box(model, "txtNikde");
  EXPECT_DEATH(
      {
        HintFilter hints;
        QWidget root;
        new Binder(model, root, hints);
      },
      "frmTest has no widget of its kind for txtNikde");
}

TEST(BinderDeathTest, EditableListWhoseFormSaysOtherwiseEndsTheProgram) {
  ui::MemoryEventLoop loop;
  ui::Window model("frmTest", ui::WindowKind::kChild, loop);
  ui::DropDown list(model, "cboText");
  list.SetEditable();
  EXPECT_DEATH(
      {
        HintFilter hints;
        QWidget root;
        auto* box = new QComboBox(&root);
        box->setObjectName("cboText");
        new Binder(model, root, hints);
      },
      "frmTest has no widget of its kind for cboText");
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

/// Where on the screen the text behind the last tab of each line begins.
std::set<int> ValueColumns(ReportBox& box) {
  std::set<int> columns;
  for (QTextBlock line = box.document()->begin(); line.isValid(); line = line.next()) {
    const auto tab = static_cast<int>(line.text().lastIndexOf(u'\t'));
    if (tab < 0) continue;
    QTextCursor cursor(line);
    cursor.setPosition(line.position() + tab + 1);
    columns.insert(box.cursorRect(cursor).left());
  }
  return columns;
}

TEST(ReportBoxTest, ValuesBehindOneTabAndBehindTwoMeetInOneColumn) {
  ReportBox box;
  box.setOneValueColumn(true);
  box.resize(600, 400);
  box.SetReport("Nadpis\n", {});
  box.Append("Úrok z prodlení ode dne:\t1.1.2004\nPočet dnů prodlení:\t\t30\nCelkem\t41,10 Kč\n");
  EXPECT_EQ(ValueColumns(box).size(), 1U);
  const int column = *ValueColumns(box).begin();
  box.Append("Ještě o něco delší označení řádku:\t1\n");
  EXPECT_EQ(ValueColumns(box).size(), 1U);
  EXPECT_GT(*ValueColumns(box).begin(), column);
  box.SetReport("a\t1\n", {});
  EXPECT_LT(*ValueColumns(box).begin(), column) << "a new report begins anew";
  EXPECT_EQ(box.toPlainText(), "a\t1\n");
}

TEST(ReportBoxTest, WithoutTabStopsTheFontIsFixedPitch) {
  ReportBox box;
  box.SetReport("a\tb", {});
  EXPECT_TRUE(QFontInfo(box.font()).fixedPitch());
  EXPECT_NEAR(box.tabStopDistance(), 8 * QFontMetricsF(box.font()).horizontalAdvance(u' '), 0.01);
}

TEST(ReportBoxTest, WithoutTabStopsTabsGoToEveryEighthCharacter) {
  ReportBox box;
  box.SetReport("", {});
  // Each of these ends at the sixteenth character, also where it came later.
  box.Append("\t\t|\n1234567\t\t|\n");
  box.Append("žluťoučký\t|\n1234567890123456|\n");
  std::vector<int> ends;
  for (QTextBlock line = box.document()->begin(); !line.text().isEmpty(); line = line.next()) {
    QTextCursor before_bar(line);
    before_bar.setPosition(line.position() + line.length() - 2);
    ends.push_back(box.cursorRect(before_bar).left());
  }
  EXPECT_EQ(ends, std::vector<int>(4, ends.front()));
}

}  // namespace
}  // namespace velta::qt
