#include "tests/scenario/runner.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include "tests/scenario/program_names.h"

namespace velta::scenario {
namespace {

struct Played {
  std::string transcript;
  bool held = false;
};

Played Play(const std::string& text, LongTexts long_texts = LongTexts::kOnOneLine) {
  std::istringstream in(text);
  const Script script = ParseScript(in, ProgramNames());
  for (const BadLine& bad : script.bad_lines) ADD_FAILURE() << bad.number << ": " << bad.reason;
  std::ostringstream transcript;
  World world;
  world.program_folder.path = VELTA_SOURCE_DIR "/data";
  const std::unique_ptr<Driver> driver = MakeMemoryDriver();
  const bool held = Runner(world, *driver, transcript, "", long_texts).Play(script);
  return {transcript.str(), held};
}

TEST(Runner, AnExpectationThatHoldsLeavesNoTrace) {
  const Played played = Play("start\nexpect hint = Připraven\n");
  EXPECT_EQ(played.transcript, "hint = \"Připraven\"\n");
  EXPECT_TRUE(played.held);
}

TEST(Runner, AnExpectationThatFailsIsShownAsItStands) {
  const Played played = Play("start\nexpect hint = Nic\\s\nexpect loaded frmMenu = true\n");
  EXPECT_EQ(played.transcript,
            "hint = \"Připraven\"\nFAILED expected Nic\\s\nfrmMenu.loaded = true\n");
  EXPECT_FALSE(played.held);
}

TEST(Runner, MessagesStandWhereTheyHappen) {
  EXPECT_EQ(Play("start\nhint\nmenu mnuTiskVypoctu\nhint\n").transcript,
            "hint = \"Připraven\"\n"
            "message critical \"Velta\" \"Výpočet ještě není dokončen, nelze tisknout\"\n"
            "hint = \"Připraven\"\n");
}

TEST(Runner, NothingCanBeDoneBeforeTheStart) {
  EXPECT_EQ(Play("menu mnuObsah\nclose frmMenu\nget frmMenu.lblMSG\nhint\nstate DueDate\nstored\n")
                .transcript,
            "ignored menu mnuObsah\n"
            "ignored close frmMenu\n"
            "frmMenu.lblMSG.caption = unloaded\n"
            "hint = unloaded\n"
            "DueDate = unset\n");
}

TEST(Runner, WhatWasHandedOverIsShownOnce) {
  EXPECT_EQ(Play("start\nmenu mnuObsah\nmenu mnuKalkulacka\nopened\nopened\n").transcript,
            "help VELTA.CHM contents\nlaunch calc.exe\n");
}

TEST(Runner, ARowThatIsNotThereCannotBePicked) {
  EXPECT_EQ(Play("start\nmenu mnuJednotlivyVypocet\npick frmJednotlivy.cboDruhSazby 6\n"
                 "get frmJednotlivy.cboDruhSazby\n")
                .transcript,
            "ignored pick frmJednotlivy.cboDruhSazby 6\nfrmJednotlivy.cboDruhSazby.index = 1\n");
}

TEST(Runner, StartAgainDropsTheRunningProgramAndKeepsWhatSurroundsIt) {
  EXPECT_EQ(Play("start\nmenu mnuJednotlivyVypocet\nmenu mnuKalkulacka\nstart\n"
                 "loaded frmJednotlivy\nopened\n")
                .transcript,
            "frmJednotlivy.loaded = false\nlaunch calc.exe\n");
}

TEST(Runner, TheProgramWaitsWhereItIsToldTo) {
  const std::string due_and_amount =
      "today 20.5.2006\nstart\nmenu mnuJednotlivyVypocet\ndate frmJednotlivy.dtpSplatnost "
      "15.3.2006\n"
      "pick frmJednotlivy.cboDruhSazby 5\nwait manual\ntype frmJednotlivy.txtDluznaCastka 10000\n";
  EXPECT_EQ(Play(due_and_amount + "state InterestAmount\nwait\nloaded frmJednotlivy\n").transcript,
            "InterestAmount = 0\nfrmJednotlivy.loaded = true\n");
  EXPECT_EQ(
      Play(due_and_amount + "wait auto\nexpect get frmJednotlivy.lblPocetDnu = 66\n").transcript,
      "frmJednotlivy.lblPocetDnu.caption = \"66\"\n");
}

TEST(Runner, KeysThatMeetNoTextBoxAreLost) {
  // From the amount Enter leads to the list of kinds, Tab from there to the rate.
  EXPECT_EQ(
      Play("start\nmenu mnuJednotlivyVypocet\ntype frmJednotlivy.txtDluznaCastka 1\\r2\\r\\t3\n"
           "get frmJednotlivy.txtDluznaCastka\nget frmJednotlivy.txtVyseSazby\n")
          .transcript,
      "frmJednotlivy.txtDluznaCastka.text = \"1\"\nfrmJednotlivy.txtVyseSazby.text = \"3\"\n");
}

TEST(Runner, APastedTextBecomesOneLine) {
  EXPECT_EQ(
      Play("start\nmenu mnuJednotlivyVypocet\nset frmJednotlivy.txtVyseSazby a\\r\\nb\\nc\\r\\n\n"
           "get frmJednotlivy.txtVyseSazby\n")
          .transcript,
      "frmJednotlivy.txtVyseSazby.text = \"a b c\"\n");
}

TEST(Runner, LongTextsStandOnOneLine) {
  EXPECT_EQ(Play("start\nmenu mnuPostupnyVypocet\nget frmPostupny.txtPostup\n").transcript,
            R"(frmPostupny.txtPostup.text = "Podklady pro výpočet úroku z prodlení\r\n)"
            R"(****************************************************\r\n")"
            "\n");
}

TEST(Runner, LongTextsLineByLine) {
  const Played played = Play(
      "today 20.6.2005\nstart\nmenu mnuPostupnyVypocet\nget frmPostupny.txtPostup\n"
      "expect get frmPostupny.txtPostup = a\\r\\n\\nb\\s\\\\n\n"
      "expect get frmPostupny.txtPostup = a\\r\\n\n"
      "get frmPostupny.txtPostup.enabled\nget frmPostupny.cboDruhSazby.items\n"
      "fail help\nmenu mnuObsah\nhint\n",
      LongTexts::kLineByLine);
  const std::string text = R"(frmPostupny.txtPostup.text =
    "Podklady pro výpočet úroku z prodlení\r\n"
    "****************************************************\r\n"
)";
  EXPECT_EQ(played.transcript, text + text +
                                   R"(FAILED expected
    "a\r\n"
    "\n"
    "b \\n"
)" + text + R"(FAILED expected a\r\n
frmPostupny.txtPostup.enabled = true
frmPostupny.cboDruhSazby.items = 6
  "% denně"
  "% ročně"
  "‰ denně"
  "‰ ročně"
  "Dle Diskontní sazby ČNB"
  "Dle Repo sazby ČNB"
message critical "Velta"
    "Chyba 53 (Soubor nebyl nalezen) v proceduře\r\n"
    "(mnuObsah_Click) of (frmMenu.frm)."
hint = "Zadejte celkovou částku faktury"
)");
  EXPECT_FALSE(played.held);
}

}  // namespace
}  // namespace velta::scenario
