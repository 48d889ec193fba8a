#include "ui/controls.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/day.h"
#include "ui/memory/memory_platform.h"
#include "ui/window.h"

namespace velta::ui {
namespace {

class ControlsTest : public ::testing::Test {
 protected:
  MemoryEventLoop loop_;
  Window window_{"frmVzor", WindowKind::kChild, loop_};
};

TEST_F(ControlsTest, TextBoxRaisesChangeOnlyForAnotherText) {
  TextBox box(window_, "txtVzor");
  int changes = 0;
  box.Change.Connect([&] { ++changes; });
  box.SetText("");
  EXPECT_EQ(changes, 0);
  box.SetText("5");
  box.SetText("5");
  EXPECT_TRUE(box.UserEdit("5"));
  EXPECT_EQ(changes, 1);
  EXPECT_TRUE(box.UserEdit("56"));
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(box.text(), "56");
}

TEST_F(ControlsTest, PlaceholderIsDrawnAnewButIsNoText) {
  TextBox box(window_, "txtVzor");
  std::vector<Aspect> redrawn;
  int changes = 0;
  box.Updated.Connect([&](Aspect aspect) { redrawn.push_back(aspect); });
  box.Change.Connect([&] { ++changes; });
  EXPECT_EQ(box.placeholder(), "");
  box.SetPlaceholder("");
  EXPECT_TRUE(redrawn.empty());
  box.SetPlaceholder("povinný údaj");
  box.SetPlaceholder("povinný údaj");
  EXPECT_EQ(box.placeholder(), "povinný údaj");
  EXPECT_EQ(redrawn, std::vector{Aspect::kPlaceholder});
  EXPECT_EQ(box.text(), "");
  EXPECT_EQ(changes, 0);
}

TEST_F(ControlsTest, ChangeHandlerMaySetTheTextAgain) {
  TextBox box(window_, "txtVzor");
  std::vector<std::string> seen;
  box.Change.Connect([&] {
    seen.push_back(box.text());
    if (box.text() == "abc") box.SetText("");
  });
  box.SetText("abc");
  EXPECT_EQ(seen, (std::vector<std::string>{"abc", ""}));
}

TEST_F(ControlsTest, UserCannotReachDisabledHiddenOrReadOnlyBoxes) {
  TextBox box(window_, "txtVzor");
  KeyPress key{"x"};
  box.SetEnabled(false);
  EXPECT_FALSE(box.UserEdit("x"));
  EXPECT_FALSE(box.UserKey(key));
  EXPECT_FALSE(box.UserHover());
  box.SetEnabled(true);
  box.SetVisible(false);
  EXPECT_FALSE(box.UserEdit("x"));
  EXPECT_FALSE(box.UserHover());
  box.SetVisible(true);
  box.SetReadOnly();
  EXPECT_FALSE(box.UserEdit("x"));
  EXPECT_FALSE(box.UserKey(key));
  EXPECT_TRUE(box.UserHover());
  EXPECT_EQ(box.text(), "");
  box.SetText("program");
  EXPECT_EQ(box.text(), "program");
}

TEST_F(ControlsTest, PastedLinesBecomeOne) {
  TextBox box(window_, "txtVzor");
  for (const auto& [pasted, kept] :
       std::vector<std::pair<std::string, std::string>>{{"10000\r\n", "10000"},
                                                        {"10000\n", "10000"},
                                                        {"Pekárna\r\nBrno", "Pekárna Brno"},
                                                        {"a\nb\rc\n\n", "a b c"},
                                                        {"a\tb", "a\tb"},
                                                        {"\n", ""}}) {
    EXPECT_TRUE(box.UserEdit(pasted));
    EXPECT_EQ(box.text(), kept);
  }
}

TEST_F(ControlsTest, KeyFilterReplacesAndSwallows) {
  TextBox box(window_, "txtVzor");
  box.KeyPress.Connect([](KeyPress& key) {
    if (key.text == ".") key.text = ",";
    if (key.text == "\r") key.text.clear();
  });
  KeyPress point{"."};
  KeyPress enter{"\r"};
  KeyPress letter{"ř"};
  EXPECT_TRUE(box.UserKey(point));
  EXPECT_TRUE(box.UserKey(enter));
  EXPECT_TRUE(box.UserKey(letter));
  EXPECT_EQ(point.text, ",");
  EXPECT_EQ(enter.text, "");
  EXPECT_EQ(letter.text, "ř");
}

TEST_F(ControlsTest, AppendTellsViewsOnlyWhatIsNew) {
  TextBox box(window_, "txtVzor");
  std::vector<std::string> appended;
  int redrawn = 0;
  int changes = 0;
  box.Appended.Connect([&](std::string_view text) { appended.emplace_back(text); });
  box.Updated.Connect([&](Aspect) { ++redrawn; });
  box.Change.Connect([&] { ++changes; });
  box.Append("a\r\n");
  box.Append("");
  box.Append("b");
  EXPECT_EQ(box.text(), "a\r\nb");
  EXPECT_EQ(appended, (std::vector<std::string>{"a\r\n", "b"}));
  EXPECT_EQ(redrawn, 0);
  EXPECT_EQ(changes, 2);
}

TEST_F(ControlsTest, DropDownChoosesByIndex) {
  DropDown list(window_, "cboVzor");
  list.AddItem("první");
  list.AddItem("druhá");
  int changes = 0;
  list.Change.Connect([&] { ++changes; });
  EXPECT_EQ(list.text(), "");
  EXPECT_TRUE(list.UserPick(1));
  EXPECT_TRUE(list.UserPick(1));
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(list.text(), "druhá");
  list.SetEnabled(false);
  EXPECT_FALSE(list.UserPick(0));
  EXPECT_EQ(list.index(), 1);
  list.SetIndex(0);
  EXPECT_EQ(list.text(), "první");
}

TEST_F(ControlsTest, OnlyAnEditableDropDownTakesTypedText) {
  DropDown list(window_, "cboVzor");
  list.AddItem("první");
  EXPECT_FALSE(list.UserEdit("první"));
  EXPECT_EQ(list.index(), -1);
  list.SetEditable();
  list.SetEnabled(false);
  EXPECT_FALSE(list.UserEdit("první"));
  list.SetEnabled(true);
  EXPECT_TRUE(list.UserEdit("jiná\r\n"));
  EXPECT_EQ(list.text(), "jiná");
}

TEST_F(ControlsTest, IndexOfAnEditableDropDownFollowsItsText) {
  DropDown list(window_, "cboVzor");
  list.SetEditable();
  for (const char* item : {"první", "druhá"}) list.AddItem(item);
  std::vector<std::pair<std::string, int>> changes;
  list.Change.Connect([&] { changes.emplace_back(list.text(), list.index()); });
  EXPECT_TRUE(list.UserEdit("druh"));
  EXPECT_TRUE(list.UserEdit("druhá"));
  EXPECT_TRUE(list.UserPick(1));  // it is the chosen one already
  EXPECT_TRUE(list.UserEdit("DRUHÁ"));
  EXPECT_TRUE(list.UserPick(1));
  list.SetText("částka Kč denně");
  list.SetText("první");
  list.SetIndex(-1);
  EXPECT_EQ(changes, (std::vector<std::pair<std::string, int>>{{"druh", -1},
                                                               {"druhá", 1},
                                                               {"DRUHÁ", -1},
                                                               {"druhá", 1},
                                                               {"částka Kč denně", -1},
                                                               {"první", 0},
                                                               {"", -1}}));
}

TEST_F(ControlsTest, ListBoxChoosesARowOrNone) {
  ListBox list(window_, "lstVzor");
  for (const char* item : {"5000", "5000", "7000"}) list.AddItem(item);
  std::vector<int> chosen;
  list.Change.Connect([&] { chosen.push_back(list.index()); });
  EXPECT_TRUE(list.UserPick(1)) << "rows may be alike";
  EXPECT_TRUE(list.UserPick(1));
  list.SetIndex(2);
  list.SetIndex(-1);
  EXPECT_EQ(chosen, (std::vector<int>{1, 2, -1}));
  list.SetVisible(false);
  EXPECT_FALSE(list.UserPick(0));
  EXPECT_EQ(list.index(), -1);
}

TEST_F(ControlsTest, RowsThatComeAndGoAreDrawnButChooseNothing) {
  ListBox list(window_, "lstVzor");
  std::vector<Aspect> drawn;
  int changes = 0;
  list.Updated.Connect([&](Aspect aspect) { drawn.push_back(aspect); });
  list.Change.Connect([&] { ++changes; });
  list.AddItem("první");
  EXPECT_EQ(drawn, (std::vector<Aspect>{Aspect::kItems}));
  EXPECT_EQ(list.index(), -1);
  list.SetIndex(0);
  ASSERT_EQ(changes, 1);
  drawn.clear();
  list.Clear();
  EXPECT_EQ(drawn, (std::vector<Aspect>{Aspect::kItems}));
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(list.index(), -1);
  EXPECT_TRUE(list.items().empty());
}

class OptionsTest : public ControlsTest {
 protected:
  OptionsTest() {
    for (OptionButton* option : {&zaok_[0], &zaok_[1], &zaok_[2], &stranka_}) {
      option->Click.Connect([this, option] { clicked_.push_back(option->name()); });
      option->Updated.Connect([this, option](Aspect) { drawn_.push_back(option->name()); });
    }
  }
  /// The chosen options of the group, by their indexes.
  std::vector<int> Chosen() const {
    std::vector<int> chosen;
    for (int i = 0; i < 3; ++i) {
      if (zaok_[static_cast<std::size_t>(i)].value()) chosen.push_back(i);
    }
    return chosen;
  }

  std::array<OptionButton, 3> zaok_ = ControlArray<OptionButton, 3>(window_, "optZaok");
  Label label_{window_, "optZaokPopis"};
  OptionButton stranka_{window_, "optZaokrouhlit"};
  std::vector<std::string> clicked_;
  std::vector<std::string> drawn_;
};

TEST_F(OptionsTest, AtMostOneOfAGroupIsChosen) {
  EXPECT_EQ(Chosen(), std::vector<int>{}) << "none at first";
  stranka_.Choose();
  zaok_[2].Choose();
  EXPECT_EQ(Chosen(), std::vector<int>{2});
  zaok_[0].Choose();
  EXPECT_EQ(Chosen(), std::vector<int>{0});
  EXPECT_TRUE(stranka_.value()) << "it is of another group";
  EXPECT_EQ(clicked_, std::vector<std::string>{}) << "the program chose";
}

TEST_F(OptionsTest, UsersChoiceIsOneClickAndTheNextOneAnother) {
  int again = 0;
  zaok_[1].ClickAgain.Connect([&again] { ++again; });
  EXPECT_TRUE(zaok_[1].UserClick());
  EXPECT_EQ(again, 0);
  EXPECT_TRUE(zaok_[1].UserClick());
  EXPECT_EQ(again, 1);
  EXPECT_EQ(Chosen(), std::vector<int>{1});
  EXPECT_EQ(clicked_, std::vector<std::string>{"optZaok(1)"});
  zaok_[0].SetEnabled(false);
  EXPECT_FALSE(zaok_[0].UserClick());
  EXPECT_EQ(Chosen(), std::vector<int>{1});
}

TEST_F(OptionsTest, ElementsKnowTheirArrayAndTheirPlaceInIt) {
  for (std::size_t i = 0; i < zaok_.size(); ++i) {
    EXPECT_EQ(zaok_.at(i).array(), "optZaok");
    EXPECT_EQ(zaok_.at(i).array_index(), i);
    EXPECT_EQ(zaok_.at(i).name(), "optZaok(" + std::to_string(i) + ")");
  }
  const Label alone(window_, "lblMSG");
  EXPECT_EQ(alone.array(), "lblMSG");
  EXPECT_EQ(alone.array_index(), std::nullopt);
}

TEST_F(OptionsTest, OnlyWhatHasChangedIsDrawnAnew) {
  zaok_[0].Choose();
  drawn_.clear();
  zaok_[2].Choose();
  zaok_[2].Choose();
  EXPECT_EQ(drawn_, (std::vector<std::string>{"optZaok(0)", "optZaok(2)"}));
}

TEST_F(OptionsTest, ClickHandlerFindsTheChoiceMade) {
  std::vector<int> seen;
  zaok_[2].Click.Connect([&] { seen = Chosen(); });
  zaok_[2].UserClick();
  EXPECT_EQ(seen, std::vector<int>{2});
}

TEST_F(OptionsTest, TabStopsAtTheChosenOptionOrElseAtTheFirst) {
  const auto stops = [this] {
    std::vector<std::string> names;
    for (const Control* control : window_.controls()) {
      if (control->IsTabStop()) names.push_back(control->name());
    }
    return names;
  };
  EXPECT_EQ(stops(), (std::vector<std::string>{"optZaok(0)", "optZaokrouhlit"}));
  zaok_[2].Choose();
  EXPECT_EQ(stops(), (std::vector<std::string>{"optZaok(2)", "optZaokrouhlit"}));
  zaok_[1].SetFocus();
  EXPECT_EQ(window_.focused(), &zaok_[1]) << "a click may lead the keyboard to any";
}

TEST_F(ControlsTest, FrameHidesWhatItHolds) {
  Frame page(window_, "fraStrana");
  Frame box(window_, "fraRamec");
  std::array<TextBox, 2> data = ControlArray<TextBox, 2>(window_, "txtData");
  TextBox beside(window_, "txtVedle");
  page.Hold({&box});
  box.Hold(data);
  EXPECT_TRUE(data[0].visible());
  page.SetVisible(false);
  EXPECT_FALSE(data[0].visible());
  EXPECT_TRUE(data[0].shown());
  EXPECT_FALSE(data[1].UserEdit("x"));
  EXPECT_FALSE(data[1].CanTakeFocus());
  EXPECT_TRUE(beside.visible());
  data[1].SetVisible(false);
  page.SetVisible(true);
  EXPECT_TRUE(data[0].visible());
  EXPECT_FALSE(data[1].visible());
}

TEST_F(ControlsTest, DisabledCommandsDoNothing) {
  Button button(window_, "cmdVzor");
  MenuItem item(window_, "mnuVzor");
  int clicks = 0;
  button.Click.Connect([&] { ++clicks; });
  item.Click.Connect([&] { ++clicks; });
  EXPECT_TRUE(button.UserClick());
  EXPECT_TRUE(item.UserClick());
  EXPECT_EQ(clicks, 2);
  button.SetEnabled(false);
  item.SetEnabled(false);
  EXPECT_FALSE(button.UserClick());
  EXPECT_FALSE(item.UserClick());
  EXPECT_EQ(clicks, 2);
}

TEST_F(ControlsTest, ToolbarButtonLeavesTheFocusWhereItIs) {
  Button button(window_, {"cmdMenu", 0});
  button.SetTakesFocus(false);
  button.SetFocus();
  EXPECT_EQ(window_.focused(), nullptr);
}

TEST_F(ControlsTest, TimerIsEnabledWhileItIsArmed) {
  TimerControl timer(window_, "tmrVzor", Timer::Kind::kOneShot, std::chrono::milliseconds(0));
  bool enabled_in_handler = true;
  int ticks = 0;
  timer.Tick.Connect([&] {
    enabled_in_handler = timer.enabled();
    ++ticks;
  });
  EXPECT_FALSE(timer.enabled());
  timer.SetEnabled(true);
  EXPECT_TRUE(timer.enabled());
  loop_.RunUntilIdle();
  EXPECT_EQ(ticks, 1);
  EXPECT_FALSE(enabled_in_handler);
  timer.SetEnabled(true);
  timer.SetEnabled(false);
  loop_.RunUntilIdle();
  EXPECT_EQ(ticks, 1);
}

TEST_F(ControlsTest, UnchangedPropertiesAreNotDrawnAnew) {
  Label label(window_, "lblVzor");
  std::vector<Aspect> drawn;
  label.Updated.Connect([&](Aspect aspect) { drawn.push_back(aspect); });
  label.SetCaption("a");
  label.SetCaption("a");
  label.SetEnabled(true);
  label.SetVisible(true);
  label.SetBackground(Background::kFace);
  label.SetBackground(Background::kFace);
  label.SetToolTip("tip");
  EXPECT_EQ(drawn, (std::vector<Aspect>{Aspect::kCaption, Aspect::kBackground, Aspect::kToolTip}));
}

}  // namespace
}  // namespace velta::ui
