#include "shell/frmHistory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/support/program_test.h"
#include "tests/support/rate_folder.h"

namespace velta {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class frmHistoryTest : public ProgramTest {
 protected:
  frmHistoryTest() {
    memory_.program_folder.path = folder_.path();
    windows().Register("frmHistory", [this] { return std::make_unique<frmHistory>(program_); });
  }
  frmHistory& Open() { return Opened<frmHistory>("frmHistory"); }

  /// The lines of the one document that has been printed.
  std::vector<std::string> Printed() const {
    EXPECT_EQ(memory_.printer.printed.size(), 1U);
    std::vector<std::string> lines;
    for (const auto& line : memory_.printer.printed.at(0).document.lines) {
      EXPECT_FALSE(line.bold);
      lines.push_back(line.text);
    }
    return lines;
  }

  RateFolder folder_;
};

TEST_F(frmHistoryTest, EscClosesIt) { EXPECT_TRUE(Open().closes_by_esc()); }

TEST_F(frmHistoryTest, ShowsTheWholeFileToReadOnly) {
  const std::string kText = "Verze 1.0.0\r\n\r\n\tprvní žluťoučký řádek\r\nposlední bez konce";
  folder_.Write("HISTORY.TXT", kText);
  frmHistory& window = Open();
  EXPECT_EQ(window.txtHistory.text(), kText);
  EXPECT_TRUE(window.txtHistory.read_only());
  EXPECT_FALSE(window.txtHistory.UserEdit("jiný"));
  EXPECT_EQ(window.caption(), "Historie verzí");
  EXPECT_EQ(window.cmdTisk.caption(), "&Tisk");
  EXPECT_EQ(window.cmdKonec.caption(), "&Konec");
  EXPECT_EQ(window.focused(), &window.txtHistory);
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmHistoryTest, ByteOrderMarkIsNoPartOfTheText) {
  folder_.Write("HISTORY.TXT", "\xEF\xBB\xBFVerze 1.0.0\n");
  EXPECT_EQ(Open().txtHistory.text(), "Verze 1.0.0\n");
}

TEST_F(frmHistoryTest, FileThatIsNotUtf8IsReadAsWindows1250) {
  folder_.Write("HISTORY.TXT", "Verze 1.0.0\r\nP\xF8\xEDli\x9A \x9Elu\x9Dou\xE8k\xFD\r\n");
  EXPECT_EQ(Open().txtHistory.text(), "Verze 1.0.0\r\nPříliš žluťoučký\r\n");
}

TEST_F(frmHistoryTest, ReadsUnderTheHourglass) {
  folder_.Write("HISTORY.TXT", "text");
  std::vector<bool> busy;
  windows().Register("frmHistory", [&] {
    auto window = std::make_unique<frmHistory>(program_);
    window->txtHistory.Change.Connect(
        [&busy, &window = *window] { busy.push_back(window.busy()); });
    return window;
  });
  EXPECT_FALSE(Open().busy());
  EXPECT_THAT(busy, ElementsAre(true));
}

TEST_F(frmHistoryTest, MissingFileIsReportedAndTheWindowStaysOpen) {
  frmHistory& window = Open();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 53 (Soubor nebyl nalezen) v proceduře\r\n"
                                   "(Form_Load) of (frmHistory.frm)."));
  EXPECT_TRUE(windows().IsLoaded("frmHistory"));
  EXPECT_EQ(window.txtHistory.text(), "");
  EXPECT_FALSE(window.busy());
  EXPECT_EQ(window.caption(), "Historie verzí");
  window.cmdKonec.UserClick();
  EXPECT_FALSE(windows().IsLoaded("frmHistory"));
}

TEST_F(frmHistoryTest, PrintsTwoEmptyLinesAndTheTextOnTheDefaultPrinter) {
  folder_.Write("HISTORY.TXT", "Verze 1.0.0\r\n\r\n\tprvní\n" + std::string(91, 'x') + "\r\nkonec");
  Open().cmdTisk.UserClick();
  EXPECT_THAT(Printed(), ElementsAre("", "", "Verze 1.0.0", "", "        první",
                                     std::string(90, 'x'), "x", "konec"));
  const auto& printed = memory_.printer.printed.at(0);
  EXPECT_EQ(printed.document.font, "Courier New CE");
  EXPECT_EQ(printed.document.name, "Historie verzí");
  EXPECT_EQ(printed.copies, 1);
  EXPECT_THAT(memory_.printer.asked, IsEmpty()) << "without a dialog";
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmHistoryTest, EveryKindOfLineEndEndsTheLine) {
  folder_.Write("HISTORY.TXT", "první\rdruhý\r\rčtvrtý\r\npátý\nšestý\n\rosmý\r");
  Open().cmdTisk.UserClick();
  EXPECT_THAT(Printed(),
              ElementsAre("", "", "první", "druhý", "", "čtvrtý", "pátý", "šestý", "", "osmý"));
}

TEST_F(frmHistoryTest, EmptyFileIsAnEmptyBoxAndTwoEmptyLinesOnPaper) {
  folder_.Write("HISTORY.TXT", "");
  frmHistory& window = Open();
  EXPECT_EQ(window.txtHistory.text(), "");
  EXPECT_THAT(Shown(), IsEmpty());
  window.cmdTisk.UserClick();
  EXPECT_THAT(Printed(), ElementsAre("", ""));
}

TEST_F(frmHistoryTest, WithoutADefaultPrinterTheUserIsAsked) {
  folder_.Write("HISTORY.TXT", "text");
  memory_.printer.has_default = false;
  frmHistory& window = Open();
  window.cmdTisk.UserClick();
  EXPECT_THAT(memory_.printer.asked, ElementsAre("Historie verzí"));
  EXPECT_THAT(Printed(), ElementsAre("", "", "text"));
  memory_.printer.answer = std::nullopt;
  window.cmdTisk.UserClick();
  EXPECT_EQ(memory_.printer.printed.size(), 1U);
  EXPECT_THAT(Shown(), IsEmpty()) << "the user knows that he cancelled";
}

TEST_F(frmHistoryTest, PrinterThatFailsIsReported) {
  folder_.Write("HISTORY.TXT", "text");
  memory_.printer.fails = true;
  Open().cmdTisk.UserClick();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 482 (Chyba tiskárny) v proceduře\r\n"
                                   "(cmdTisk_Click) of (frmHistory.frm)."));
}

TEST_F(frmHistoryTest, Hints) {
  folder_.Write("HISTORY.TXT", "text");
  frmHistory& window = Open();
  for (const auto& [button, hint] : std::vector<std::pair<ui::Button*, const char*>>{
           {&window.cmdTisk, "Vytiskne historii verzí"}, {&window.cmdKonec, "Zavřít okno"}}) {
    program_.status.ClearHint();
    button->SetFocus();
    EXPECT_EQ(HintText(), hint);
    program_.status.ClearHint();
    button->UserHover();
    EXPECT_EQ(HintText(), hint);
  }
  for (ui::Control* surface : {static_cast<ui::Control*>(&window.fraHistory),
                               static_cast<ui::Control*>(&window.txtHistory)}) {
    program_.status.ShowHint("něco");
    surface->UserHover();
    EXPECT_EQ(HintText(), "Připraven") << surface->name();
  }
  program_.status.ShowHint("něco");
  window.MouseMove.Raise();
  EXPECT_EQ(HintText(), "Připraven");
  program_.status.ShowHint("něco");
  window.cmdKonec.UserClick();
  EXPECT_EQ(HintText(), "Připraven");
}

}  // namespace
}  // namespace velta
