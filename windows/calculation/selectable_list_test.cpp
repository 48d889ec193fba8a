#include "windows/calculation/selectable_list.h"

#include <gtest/gtest.h>

namespace velta {
namespace {

template <class Act>
int NumberThrownBy(Act act) {
  try {
    act();
  } catch (const Error& error) {
    return static_cast<int>(error.number());
  }
  return 0;
}

TEST(SelectableListTest, NothingIsSelectedUntilSomebodySelects) {
  SelectableList list;
  list.Add("leden");
  EXPECT_EQ(list.selected(), -1);
  EXPECT_EQ(list.SelectedText(), "");
  list.Select(0);
  EXPECT_EQ(list.selected(), 0);
  EXPECT_EQ(list.SelectedText(), "leden");
  list.Select(-1);
  EXPECT_EQ(list.SelectedText(), "");
}

TEST(SelectableListTest, ARowThatDoesNotExistCannotBeSelectedAndTheSelectionStays) {
  SelectableList list;
  list.Add("leden");
  list.Add("únor");
  list.Select(1);
  EXPECT_EQ(NumberThrownBy([&] { list.Select(2); }), 380);
  EXPECT_EQ(NumberThrownBy([&] { list.Select(-2); }), 380);
  EXPECT_EQ(list.SelectedText(), "únor");
}

TEST(SelectableListTest, ReadingOutsideTheListIsAnError) {
  SelectableList list;
  EXPECT_EQ(NumberThrownBy([&] { (void)list[0]; }), 9);
  list.Add("leden");
  EXPECT_EQ(list[0], "leden");
  EXPECT_EQ(NumberThrownBy([&] { (void)list[1]; }), 9);
  EXPECT_EQ(NumberThrownBy([&] { (void)list[-1]; }), 9);
}

TEST(SelectableListTest, ClearTakesTheSelectionAlong) {
  SelectableList list;
  list.Add("leden");
  list.Select(0);
  list.Clear();
  EXPECT_EQ(list.size(), 0);
  EXPECT_EQ(list.selected(), -1);
}

}  // namespace
}  // namespace velta
