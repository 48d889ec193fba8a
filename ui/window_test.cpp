#include "ui/window.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "ui/controls.h"
#include "ui/memory/memory_platform.h"

namespace velta::ui {
namespace {

class SampleWindow : public Window {
 public:
  explicit SampleWindow(EventLoop& loop) : Window("frmVzor", WindowKind::kChild, loop) {}

  Label lblJmeno{*this, "lblJmeno"};
  TextBox txtJmeno{*this, "txtJmeno"};
  std::array<TextBox, 2> txtUdaj = ControlArray<TextBox, 2>(*this, "txtUdaj");
  Button cmdKonec{*this, "cmdKonec"};
};

class WindowTest : public ::testing::Test {
 protected:
  WindowTest() {
    for (Control* control : window_.controls()) {
      control->GotFocus.Connect([this, control] { focused_.push_back(control->name()); });
    }
  }

  MemoryEventLoop loop_;
  SampleWindow window_{loop_};
  std::vector<std::string> focused_;
};

TEST_F(WindowTest, ControlsStandInReadingOrderUnderTheirNames) {
  std::vector<std::string> names;
  for (const Control* control : window_.controls()) names.push_back(control->name());
  EXPECT_EQ(names, (std::vector<std::string>{"lblJmeno", "txtJmeno", "txtUdaj(0)", "txtUdaj(1)",
                                             "cmdKonec"}));
  EXPECT_EQ(window_.Find("txtUdaj(1)"), &window_.txtUdaj[1]);
  EXPECT_EQ(window_.Find("txtUdaj"), nullptr);
}

TEST_F(WindowTest, FocusStartsAtTheFirstInputAndGoesRound) {
  window_.FocusFirst();
  for (int i = 0; i < 4; ++i) window_.FocusNext();
  EXPECT_EQ(focused_, (std::vector<std::string>{"txtJmeno", "txtUdaj(0)", "txtUdaj(1)", "cmdKonec",
                                                "txtJmeno"}));
}

TEST_F(WindowTest, FocusPassesOverDisabledAndHiddenControls) {
  window_.txtJmeno.SetEnabled(false);
  window_.txtUdaj[0].SetVisible(false);
  window_.FocusFirst();
  EXPECT_EQ(window_.focused(), &window_.txtUdaj[1]);
  window_.txtJmeno.SetFocus();
  EXPECT_EQ(window_.focused(), &window_.txtUdaj[1]) << "a disabled control takes no focus";
}

TEST_F(WindowTest, FocusOnTheFocusedControlIsNoEvent) {
  window_.txtJmeno.SetFocus();
  window_.txtJmeno.SetFocus();
  EXPECT_EQ(focused_.size(), 1U);
}

TEST_F(WindowTest, DisablingTheFocusedControlMovesTheFocusOn) {
  window_.txtUdaj[1].SetFocus();
  window_.txtUdaj[1].SetEnabled(false);
  EXPECT_EQ(window_.focused(), &window_.cmdKonec);
  EXPECT_EQ(focused_.back(), "cmdKonec");
}

TEST_F(WindowTest, FocusLeavesAControlWhoseFrameIsHidden) {
  Frame page(window_, "fraStrana");
  Frame box(window_, "fraRamec");
  page.Hold({&box});
  box.Hold(window_.txtUdaj);
  window_.txtUdaj[0].SetFocus();
  page.SetVisible(false);
  EXPECT_EQ(window_.focused(), &window_.cmdKonec);
  window_.txtJmeno.SetFocus();
  page.SetVisible(true);
  page.SetVisible(false);
  EXPECT_EQ(window_.focused(), &window_.txtJmeno) << "it was elsewhere";
}

TEST_F(WindowTest, FocusPassesOverTheOptionsThatAreNotChosen) {
  std::array<OptionButton, 2> options = ControlArray<OptionButton, 2>(window_, "optVzor");
  options[1].Choose();
  window_.cmdKonec.SetFocus();
  window_.FocusNext();
  EXPECT_EQ(window_.focused(), &options[1]);
  window_.FocusNext();
  EXPECT_EQ(window_.focused(), &window_.txtJmeno);
}

TEST_F(WindowTest, ReadFirstPutsTheseInFrontAndLeavesTheOthersInTheirOrder) {
  window_.ReadFirst({&window_.cmdKonec, &window_.txtUdaj[0]});
  std::vector<std::string> names;
  for (const Control* control : window_.controls()) names.push_back(control->name());
  EXPECT_EQ(names, (std::vector<std::string>{"cmdKonec", "txtUdaj(0)", "lblJmeno", "txtJmeno",
                                             "txtUdaj(1)"}));
  window_.FocusFirst();
  window_.FocusNext();
  EXPECT_EQ(focused_, (std::vector<std::string>{"cmdKonec", "txtUdaj(0)"}));
}

TEST_F(WindowTest, TheLastControlToBeDisabledLeavesNoFocus) {
  window_.txtJmeno.SetFocus();
  for (Control* control : window_.controls()) control->SetEnabled(false);
  EXPECT_EQ(window_.focused(), nullptr);
  window_.FocusNext();
  EXPECT_EQ(window_.focused(), nullptr);
}

}  // namespace
}  // namespace velta::ui
