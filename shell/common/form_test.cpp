#include "shell/common/form.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "ui/memory/memory_platform.h"

namespace velta {
namespace {

class SampleForm final : public Form {
 public:
  SampleForm(Program& program, std::optional<HelpTopic> topic)
      : Form(program, "frmVzor"), topic_(topic) {}

  void OnLoad() override {}
  std::optional<HelpTopic> help_topic() const override { return topic_; }

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

TEST_F(FormTest, HelpThatIsNotThereIsReported) {
  memory_.help_viewer.fails = true;
  SampleForm form(program_, std::nullopt);
  form.HelpRequested.Raise();
  ASSERT_EQ(memory_.message_box.shown.size(), 1U);
  EXPECT_EQ(memory_.message_box.shown[0].text,
            "Chyba 53 (Soubor nebyl nalezen) v proceduře\r\n(Form_KeyDown) of (frmVzor.frm).");
}

}  // namespace
}  // namespace velta
