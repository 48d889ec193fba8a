#include "shell/frmSplash.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "shell/velta.h"
#include "ui/memory/memory_platform.h"

namespace velta {
namespace {

using ::testing::IsEmpty;

class frmSplashTest : public ::testing::Test {
 protected:
  bool Loaded(const std::string& window) { return velta_.program().windows.IsLoaded(window); }
  std::string Stored(const std::string& key) { return velta_.settings().GetSetting(key); }
  std::string Caption(const std::string& window, const std::string& label) {
    const auto* control =
        dynamic_cast<ui::Label*>(velta_.program().windows.Find(window)->Find(label));
    return control == nullptr ? "" : control->caption();
  }

  ui::MemoryPlatform memory_;
  Velta velta_{memory_.platform(), {2, 1, 7, std::chrono::milliseconds(800)}};
};

TEST_F(frmSplashTest, ShowsProductAndVersion) {
  velta_.Start();
  EXPECT_EQ(Caption("frmSplash", "lblCompanyProduct"), "Velta");
  EXPECT_EQ(Caption("frmSplash", "lblVersion"), "Verze : 2. 1. 7");
}

TEST_F(frmSplashTest, FirstRunInitialisesTheStoreAndOpensTheMainWindow) {
  velta_.Start();
  EXPECT_EQ(memory_.settings_store.writes, 14);
  EXPECT_EQ(memory_.settings_store.values.back().key, "Hotovo");
  EXPECT_FALSE(Loaded("frmMenu")) << "only the timer opens it";
  memory_.event_loop.Advance(std::chrono::milliseconds(799));
  EXPECT_FALSE(Loaded("frmMenu"));
  memory_.event_loop.Advance(std::chrono::milliseconds(1));
  EXPECT_TRUE(Loaded("frmMenu"));
  EXPECT_FALSE(Loaded("frmSplash"));
  EXPECT_EQ(velta_.settings().record().Nazev, "Název vaší firmy");
  EXPECT_EQ(velta_.settings().RoundingMode(), "halere");
  EXPECT_FALSE(memory_.event_loop.quit);
  EXPECT_THAT(memory_.message_box.shown, IsEmpty());
}

TEST_F(frmSplashTest, LaterStartWritesNothing) {
  ASSERT_TRUE(memory_.settings_store.Write("velta", "Settings", "Hotovo", "x"));
  memory_.settings_store.writes = 0;
  velta_.Start();
  memory_.event_loop.Advance(std::chrono::seconds(1));
  EXPECT_EQ(memory_.settings_store.writes, 0);
  EXPECT_TRUE(Loaded("frmMenu"));
}

TEST_F(frmSplashTest, EmptyMarkerInitialisesAgain) {
  ASSERT_TRUE(memory_.settings_store.Write("velta", "Settings", "Hotovo", ""));
  ASSERT_TRUE(memory_.settings_store.Write("velta", "Settings", "Nazev", "Pekárna"));
  velta_.Start();
  EXPECT_EQ(Stored("Nazev"), "Název vaší firmy");
  EXPECT_EQ(Stored("Hotovo"), "Ano");
}

TEST_F(frmSplashTest, FailedInitialisationKeepsTheMainWindowShut) {
  memory_.settings_store.writes_before_failure = 3;
  velta_.Start();
  memory_.event_loop.Advance(std::chrono::seconds(5));
  ASSERT_EQ(memory_.message_box.shown.size(), 1U);
  EXPECT_EQ(
      memory_.message_box.shown[0],
      (ui::MemoryMessageBox::Shown{ui::Icon::kCritical, "Velta",
                                   "Chyba 75 (Chyba přístupu k cestě nebo souboru) v proceduře\r\n"
                                   "(Form_Load) of (frmSplash.frm)."}));
  EXPECT_FALSE(Loaded("frmMenu"));
  EXPECT_TRUE(Loaded("frmSplash"));

  velta_.program().windows.Find("frmSplash")->CloseRequested.Raise();
  EXPECT_TRUE(memory_.event_loop.quit) << "closing the start-up window ends the program";

  memory_.settings_store.writes_before_failure = -1;
  memory_.settings_store.writes = 0;
  Velta next(memory_.platform(), {});
  next.Start();
  EXPECT_EQ(memory_.settings_store.writes, 14) << "the next start does it all again";
}

TEST_F(frmSplashTest, PutAwayBeforeItsTimeItOpensTheMainWindowAtOnce) {
  velta_.Start();
  auto& splash = dynamic_cast<frmSplash&>(*velta_.program().windows.Find("frmSplash"));
  splash.CloseRequested.Raise();
  EXPECT_FALSE(splash.Timer1.enabled()) << "its time does not come any more";
  EXPECT_TRUE(Loaded("frmMenu"));
  EXPECT_FALSE(Loaded("frmSplash"));
  memory_.event_loop.Advance(std::chrono::seconds(5));
  EXPECT_TRUE(Loaded("frmMenu"));
  EXPECT_FALSE(memory_.event_loop.quit);
}

}  // namespace
}  // namespace velta
