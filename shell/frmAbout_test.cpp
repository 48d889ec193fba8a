#include "shell/frmAbout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/support/program_test.h"

namespace velta {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class frmAboutTest : public ProgramTest {
 protected:
  frmAboutTest() {
    windows().Register("frmAbout", [this] { return std::make_unique<frmAbout>(program_); });
  }
  frmAbout& Open() { return Opened<frmAbout>("frmAbout"); }
};

TEST_F(frmAboutTest, OpensWithItsCaptions) {
  const frmAbout& window = Open();
  EXPECT_EQ(window.caption(), "O programu");
  EXPECT_EQ(window.lblTop.caption(), "Velta");
  EXPECT_EQ(window.Label6.caption(), "Technická podpora");
  EXPECT_EQ(window.Label7.caption(), "Naše www stránky");
  EXPECT_EQ(window.cmdOK.caption(), "&OK");
  EXPECT_THAT(window.Label3.caption(), ::testing::HasSubstr("licencí MIT"));
  EXPECT_THAT(window.Label5.caption(), ::testing::HasSubstr("Qt (licence GNU LGPL"));
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmAboutTest, EscClosesIt) { EXPECT_TRUE(Open().closes_by_esc()); }

TEST_F(frmAboutTest, ShowsTheVersionWithoutBlanks) {
  program_.info = {2, 1, 7, {}};
  EXPECT_EQ(Open().Label2.caption(), "Verze 2.1.7");
}

TEST_F(frmAboutTest, ShowsWhoIsLoggedOn) {
  memory_.user_name.name = "novak";
  EXPECT_EQ(Open().lblUzivatel.caption(), "Uživatel  novak");
}

TEST_F(frmAboutTest, UnknownUserIsNamedSo) {
  memory_.user_name.name = std::nullopt;
  EXPECT_EQ(Open().lblUzivatel.caption(), "Uživatel  <neznámý>");
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmAboutTest, LinksOpenWhatTheyShow) {
  frmAbout& window = Open();
  window.lblInternet.UserClick();
  window.Label8.UserClick();
  window.LblMailto.UserClick();
  EXPECT_THAT(memory_.opener.opened,
              ElementsAre("https://velta.example/", "https://velta.example/podpora/",
                          "mailto:podpora@velta.example"));
  EXPECT_EQ(window.lblInternet.caption(), "https://velta.example/");
  EXPECT_EQ(window.Label8.caption(), "https://velta.example/podpora/");
  EXPECT_EQ(window.LblMailto.caption(), "podpora@velta.example");
}

TEST_F(frmAboutTest, LinkThatNothingOpensIsTold) {
  frmAbout& window = Open();
  memory_.opener.fails = true;
  for (ui::Button* link : {&window.lblInternet, &window.Label8, &window.LblMailto}) {
    link->UserClick();
    EXPECT_THAT(Shown(), ElementsAre("Nenalezen program, který otevře adresu " + link->caption()));
  }
}

TEST_F(frmAboutTest, OkHasTheKeyboardAndClosesTheWindow) {
  frmAbout& window = Open();
  EXPECT_EQ(window.focused(), &window.cmdOK);
  window.FocusNext();
  EXPECT_EQ(window.focused(), &window.LblMailto) << "the links can be reached, too";
  window.cmdOK.UserClick();
  EXPECT_FALSE(windows().IsLoaded("frmAbout"));
}

TEST_F(frmAboutTest, Hints) {
  frmAbout& window = Open();
  for (const auto& [control, hint] : std::vector<std::pair<ui::Control*, const char*>>{
           {&window.cmdOK, "Zavřít okno O Aplikaci"},
           {&window.lblInternet, "Klepnutím na odkaz zobrazíte naše www stránky"},
           {&window.Label8, "Klepnutím na odkaz zobrazíte naše www stránky"},
           {&window.LblMailto, "Zaslat E-mail na technickou podporu"},
           {&window.picTop, "Připraven"},
           {&window.imgTop, "Připraven"},
           {&window.Frame5, "Připraven"}}) {
    program_.status.ShowHint("něco");
    EXPECT_TRUE(control->UserHover());
    EXPECT_EQ(HintText(), hint) << control->name();
  }
  program_.status.ShowHint("něco");
  window.lblInternet.SetFocus();
  EXPECT_EQ(HintText(), "něco") << "only the pointer writes hints here";
  window.MouseMove.Raise();
  EXPECT_EQ(HintText(), "Připraven");
  program_.status.ShowHint("něco");
  window.cmdOK.UserClick();
  EXPECT_EQ(HintText(), "Připraven");
}

}  // namespace
}  // namespace velta
