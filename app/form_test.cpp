#include "app/form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ui/memory/memory_platform.h"
#include "values/error.h"

namespace velta {
namespace {

class SampleForm final : public Form {
 public:
  SampleForm(Program& program, std::optional<HelpTopic> topic)
      : Form(program, "frmVzor"), topic_(topic) {
    FocusHint(txtUdaj[1], "Zadejte údaj");
    PointerHint(txtUdaj[1], "Údaj");
  }

  void OnLoad() override {}
  void OnUnload() override { throw Error(ErrorNumber::kOverflow); }
  std::optional<HelpTopic> help_topic() const override { return topic_; }

  std::array<ui::TextBox, 2> txtUdaj = ui::ControlArray<ui::TextBox, 2>(*this, "txtUdaj");

 private:
  std::optional<HelpTopic> topic_;
};

class FormTest : public ::testing::Test {
 protected:
  std::vector<ui::MemoryHelpViewer::Opened>& opened() { return memory_.help_viewer.opened; }

  ui::MemoryPlatform memory_;
  Program program_{memory_.platform(), {}};
};

TEST_F(FormTest, F1OpensTheHelpAtTheWindowsTopic) {
  SampleForm form(program_, HelpTopic::kInvoice);
  form.HelpRequested.Raise();
  ASSERT_EQ(opened().size(), 1U);
  EXPECT_EQ(opened()[0].topic, 110);
}

TEST_F(FormTest, F1OpensTheContentsWhereTheWindowHasNoTopic) {
  SampleForm form(program_, std::nullopt);
  form.HelpRequested.Raise();
  ASSERT_EQ(opened().size(), 1U);
  EXPECT_EQ(opened()[0].topic, std::nullopt);
}

class DateForm final : public Form {
 public:
  explicit DateForm(Program& program) : Form(program, "frmDatum") {}
  void OnLoad() override {}

  ui::DatePicker dtpDen{*this, "dtpDen", program_.platform.clock, program_.platform.locale};
};

class CommandForm final : public Form {
 public:
  explicit CommandForm(Program& program) : Form(program, "frmPrikazy") {
    mnuTisk.SetUsesInputs();
    OnClick(mnuTisk, [this] { ++printed; });
  }
  void OnLoad() override {}

  ui::MenuItem mnuTisk{*this, "mnuTisk"};
  int printed = 0;
};

TEST_F(FormTest, CommandTakesOverADateThatIsTypedInAnotherWindow) {
  Windows& windows = program_.windows;
  windows.Register("frmDatum", [this] { return std::make_unique<DateForm>(program_); });
  windows.Register("frmPrikazy", [this] { return std::make_unique<CommandForm>(program_); });
  windows.Open("frmDatum");
  windows.Open("frmPrikazy");
  auto& commands = dynamic_cast<CommandForm&>(*windows.Find("frmPrikazy"));
  auto& date = dynamic_cast<DateForm&>(*windows.Find("frmDatum")).dtpDen;
  date.UserEdit("31.2.2005");
  EXPECT_TRUE(commands.mnuTisk.UserClick());
  EXPECT_EQ(commands.printed, 0);
  date.UserEdit("28.2.2005");
  EXPECT_TRUE(commands.mnuTisk.UserClick());
  EXPECT_EQ(commands.printed, 1);
  EXPECT_EQ(date.text(), "28.2.2005");
  EXPECT_FALSE(date.IsBeingTyped());
}

TEST_F(FormTest, HelpThatIsNotThereIsReported) {
  memory_.help_viewer.fails = true;
  SampleForm form(program_, std::nullopt);
  form.HelpRequested.Raise();
  ASSERT_EQ(memory_.message_box.shown.size(), 1U);
  EXPECT_EQ(memory_.message_box.shown[0].text,
            "Chyba 53 (Soubor nebyl nalezen) v proceduře\r\n(Form_KeyDown) of (frmVzor.frm).");
}

TEST_F(FormTest, FaultIsReportedUnderTheNamesOfControlAndEvent) {
  ui::Window strip("frmMenu", ui::WindowKind::kMain, memory_.event_loop);
  ui::Label lblMSG(strip, "lblMSG");
  lblMSG.Updated.Connect([](ui::Aspect) { throw Error(ErrorNumber::kOverflow); });
  program_.status.Attach(&lblMSG);
  SampleForm form(program_, std::nullopt);
  form.txtUdaj[1].SetFocus();
  form.txtUdaj[1].UserHover();
  form.MouseMove.Raise();
  program_.status.Attach(nullptr);
  form.Unload();
  std::vector<std::string> shown;
  for (const auto& box : memory_.message_box.shown) shown.push_back(box.text);
  const auto report = [](const std::string& procedure) {
    return "Chyba 6 (Přetečení) v proceduře\r\n(" + procedure + ") of (frmVzor.frm).";
  };
  EXPECT_THAT(shown, ::testing::ElementsAre(report("txtUdaj_GotFocus"), report("txtUdaj_MouseMove"),
                                            report("Form_MouseMove"), report("Form_Unload")));
}

}  // namespace
}  // namespace velta
