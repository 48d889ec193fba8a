#include "app/windows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/form.h"
#include "ui/memory/memory_platform.h"
#include "values/error.h"

namespace velta {
namespace {

using ::testing::ElementsAre;

/// What the views of all windows were told, as "frmA show".
class RecordingWindowSystem final : public ui::WindowSystem {
 public:
  std::unique_ptr<ui::WindowView> CreateView(ui::Window& window) override {
    return std::make_unique<View>(window.name(), log);
  }
  std::vector<std::string> log;

 private:
  class View final : public ui::WindowView {
   public:
    View(std::string name, std::vector<std::string>& log) : name_(std::move(name)), log_(log) {}
    void Show() override { log_.push_back(name_ + " show"); }
    void Activate() override { log_.push_back(name_ + " activate"); }
    void Close() override { log_.push_back(name_ + " close"); }

   private:
    std::string name_;
    std::vector<std::string>& log_;
  };
};

class SampleForm final : public Form {
 public:
  SampleForm(Program& program, const std::string& name, std::vector<std::string>& log)
      : Form(program, name), log_(log) {
    OnClick(cmdKonec, [this] { Close(); });
    OnClick(cmdChyba, [this] {
      log_.push_back("before");
      throw Error(ErrorNumber::kDivisionByZero);
    });
    FocusHint(txtUdaj, "Zadejte údaj");
  }
  ~SampleForm() override { log_.push_back(name() + " destroyed"); }

  void OnLoad() override {
    log_.push_back(name() + " load");
    if (on_load) on_load();
  }
  void OnUnload() override {
    log_.push_back(name() + " unload");
    if (on_unload) on_unload();
  }
  void OnOpenedAgain() override {
    log_.push_back(name() + " opened again");
    if (on_opened_again) on_opened_again();
  }

  ui::TextBox txtUdaj{*this, "txtUdaj"};
  ui::Button cmdKonec{*this, "cmdKonec"};
  ui::Button cmdChyba{*this, "cmdChyba"};
  static inline std::function<void()> on_load;
  static inline std::function<void()> on_unload;
  static inline std::function<void()> on_opened_again;

 private:
  std::vector<std::string>& log_;
};

class WindowsTest : public ::testing::Test {
 protected:
  WindowsTest() {
    SampleForm::on_load = nullptr;
    SampleForm::on_unload = nullptr;
    SampleForm::on_opened_again = nullptr;
    program_.status.Attach(&lblMSG_);
    for (const char* name : {"frmA", "frmB", "frmC"}) {
      windows().Register(
          name, [this, name] { return std::make_unique<SampleForm>(program_, name, log()); });
    }
  }
  Windows& windows() { return program_.windows; }
  std::vector<std::string>& log() { return window_system_.log; }
  SampleForm& form(const std::string& name) {
    return dynamic_cast<SampleForm&>(*windows().Find(name));
  }

  ui::MemoryPlatform memory_;
  RecordingWindowSystem window_system_;
  ui::Window strip_{"strip", ui::WindowKind::kMain, memory_.event_loop};
  ui::Label lblMSG_{strip_, "lblMSG"};
  Program program_{memory_.platform(window_system_), {}};
};

TEST_F(WindowsTest, OpenLoadsShowsAndFocuses) {
  windows().Open("frmA");
  EXPECT_THAT(log(), ElementsAre("frmA load", "frmA show"));
  EXPECT_TRUE(windows().IsLoaded("frmA"));
  EXPECT_EQ(windows().active(), &form("frmA"));
  EXPECT_EQ(form("frmA").focused(), &form("frmA").txtUdaj);
  EXPECT_EQ(lblMSG_.caption(), "Zadejte údaj");
}

TEST_F(WindowsTest, OpenAgainBringsTheSameWindowToTheFront) {
  windows().Open("frmA");
  const Form* first = windows().Find("frmA");
  windows().Open("frmB");
  log().clear();
  windows().Open("frmA");
  EXPECT_THAT(log(), ElementsAre("frmA show", "frmA activate", "frmA opened again"));
  EXPECT_EQ(windows().Find("frmA"), first);
  EXPECT_EQ(windows().active(), first);
}

TEST_F(WindowsTest, ErrorOfAWindowOpenedAgainIsTheCallers) {
  windows().Open("frmA");
  SampleForm::on_opened_again = [] { throw Error(ErrorNumber::kTypeMismatch); };
  EXPECT_THROW(windows().Open("frmA"), Error);
  EXPECT_THAT(memory_.message_box.shown, ElementsAre());
}

TEST_F(WindowsTest, UnknownWindowIsABadArgument) {
  try {
    windows().Open("frmX");
    ADD_FAILURE() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), ErrorNumber::kBadArgument);
  }
}

TEST_F(WindowsTest, LoadThatFailsIsReportedAndTheWindowStillOpens) {
  SampleForm::on_load = [] { throw Error(ErrorNumber::kFileNotFound); };
  windows().Open("frmA");
  ASSERT_EQ(memory_.message_box.shown.size(), 1U);
  EXPECT_EQ(memory_.message_box.shown[0].text,
            "Chyba 53 (Soubor nebyl nalezen) v proceduře\r\n(Form_Load) of (frmA.frm).");
  EXPECT_THAT(log(), ElementsAre("frmA load", "frmA show"));
}

TEST_F(WindowsTest, UnloadClosesClearsTheHintAndDestroysLater) {
  windows().Open("frmA");
  log().clear();
  windows().Unload("frmA");
  EXPECT_FALSE(windows().IsLoaded("frmA"));
  EXPECT_EQ(lblMSG_.caption(), "Připraven");
  EXPECT_THAT(log(), ElementsAre("frmA unload", "frmA close"));
  memory_.event_loop.RunUntilIdle();
  EXPECT_EQ(log().back(), "frmA destroyed");
}

TEST_F(WindowsTest, UnloadOfAWindowThatIsNotLoadedDoesNothing) {
  windows().Unload("frmA");
  windows().Unload("frmX");
  EXPECT_THAT(log(), ElementsAre());
}

TEST_F(WindowsTest, UnloadThatUnloadsItselfRunsOnce) {
  windows().Open("frmA");
  SampleForm::on_unload = [this] { windows().Unload("frmA"); };
  log().clear();
  windows().Unload("frmA");
  EXPECT_THAT(log(), ElementsAre("frmA unload", "frmA close"));
}

TEST_F(WindowsTest, WindowMayUnloadItselfFromItsOwnHandler) {
  windows().Open("frmA");
  form("frmA").cmdKonec.UserClick();
  EXPECT_FALSE(windows().IsLoaded("frmA"));
  windows().Open("frmA");
  EXPECT_TRUE(windows().IsLoaded("frmA")) << "and may be opened again before it is destroyed";
  memory_.event_loop.RunUntilIdle();
  EXPECT_TRUE(windows().IsLoaded("frmA"));
  EXPECT_THAT(memory_.message_box.shown, ElementsAre());
}

TEST_F(WindowsTest, WindowThatUnloadsItselfWhileLoadingStaysShut) {
  SampleForm::on_load = [this] { windows().Unload("frmA"); };
  windows().Open("frmA");
  EXPECT_FALSE(windows().IsLoaded("frmA"));
  EXPECT_THAT(log(), ElementsAre("frmA load", "frmA unload", "frmA close"));
}

TEST_F(WindowsTest, WindowWhoseLoadOpensAnotherIsInFront) {
  SampleForm::on_load = [this] {
    SampleForm::on_load = nullptr;
    windows().Open("frmB");
  };
  windows().Open("frmA");
  EXPECT_EQ(windows().active(), &form("frmA"));
  EXPECT_TRUE(windows().IsLoaded("frmB"));
}

TEST_F(WindowsTest, FocusThatTheLoadHasSetStays) {
  SampleForm::on_load = [this] { form("frmA").cmdKonec.SetFocus(); };
  windows().Open("frmA");
  EXPECT_EQ(form("frmA").focused(), &form("frmA").cmdKonec);
}

TEST_F(WindowsTest, ClosingTheActiveWindowGivesTheFocusBackWithoutAHint) {
  windows().Open("frmA");
  windows().Open("frmB");
  windows().Open("frmC");
  windows().Open("frmA");
  log().clear();
  windows().Unload("frmA");
  EXPECT_THAT(log(), ElementsAre("frmA unload", "frmA close", "frmC activate"));
  EXPECT_EQ(windows().active(), &form("frmC"));
  EXPECT_EQ(lblMSG_.caption(), "Připraven");
  log().clear();
  windows().Unload("frmB");
  EXPECT_THAT(log(), ElementsAre("frmB unload", "frmB close")) << "it was not the active one";
}

TEST_F(WindowsTest, UserTurningToAnotherWindowSeesItsHint) {
  windows().Open("frmA");
  windows().Open("frmB");
  lblMSG_.SetCaption("");
  form("frmA").Activated.Raise();
  EXPECT_EQ(windows().active(), &form("frmA"));
  EXPECT_EQ(lblMSG_.caption(), "Zadejte údaj");
  lblMSG_.SetCaption("");
  form("frmA").Activated.Raise();
  EXPECT_EQ(lblMSG_.caption(), "") << "it was the active one already";
}

TEST_F(WindowsTest, UsersCloseBoxUnloads) {
  windows().Open("frmA");
  form("frmA").CloseRequested.Raise();
  EXPECT_FALSE(windows().IsLoaded("frmA"));
}

TEST_F(WindowsTest, AllButOneCloseTheLatestFirst) {
  windows().Open("frmA");
  windows().Open("frmB");
  windows().Open("frmC");
  log().clear();
  windows().UnloadAllBut("frmB");
  EXPECT_THAT(log(), ElementsAre("frmC unload", "frmC close", "frmB activate", "frmA unload",
                                 "frmA close"));
}

TEST_F(WindowsTest, ErrorInAHandlerIsReportedOnceAndTheWindowGoesOn) {
  windows().Open("frmA");
  log().clear();
  form("frmA").cmdChyba.UserClick();
  ASSERT_EQ(memory_.message_box.shown.size(), 1U);
  EXPECT_EQ(memory_.message_box.shown[0],
            (ui::MemoryMessageBox::Shown{ui::Icon::kCritical, "Velta",
                                         "Chyba 11 (Dělení nulou) v proceduře\r\n"
                                         "(cmdChyba_Click) of (frmA.frm)."}));
  EXPECT_THAT(log(), ElementsAre("before")) << "what was done stays, the rest is skipped";
  form("frmA").cmdChyba.UserClick();
  EXPECT_EQ(memory_.message_box.shown.size(), 2U);
}

}  // namespace
}  // namespace velta
