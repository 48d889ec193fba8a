#include "windows/settings/frmNastaveni.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "engine/bank_tables.h"
#include "tests/support/english_locale.h"
#include "tests/support/program_test.h"
#include "tests/support/rate_folder.h"

namespace velta {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

using KeyValue = std::pair<std::string, std::string>;

const std::vector<KeyValue> kStored = {{"Nazev", "Pekárna U Dubu"},
                                       {"Ulice", "Polní 7"},
                                       {"PSC", "602 00"},
                                       {"Obec", "Brno"},
                                       {"ICO", "12345678"},
                                       {"DIC", "CZ12345678"},
                                       {"Banka", "123-456/0100"},
                                       {"Rejstrik", "Zapsána u soudu v Brně"},
                                       {"TextRadku", "Účtujeme úroky"},
                                       {"Dovetek0", "první"},
                                       {"Dovetek1", "druhý"},
                                       {"Dovetek2", "třetí"}};

class frmNastaveniTest : public ProgramTest {
 protected:
  frmNastaveniTest() {
    windows().Register("frmNastaveni",
                       [this] { return std::make_unique<frmNastaveni>(program_, settings_); });
  }

  frmNastaveni& Open() { return Opened<frmNastaveni>("frmNastaveni"); }

  void Store(const std::string& key, const std::string& value) {
    ASSERT_TRUE(memory_.settings_store.Write("velta", "Settings", key, value));
  }
  void StoreTexts() {
    for (const auto& [key, value] : kStored) Store(key, value);
  }
  std::vector<KeyValue> Stored() const {
    std::vector<KeyValue> stored;
    for (const auto& value : memory_.settings_store.values) {
      stored.emplace_back(value.key, value.value);
    }
    return stored;
  }
  std::string Rounding() const { return settings_.GetSetting("Zaokrouhlit"); }

  /// The boxes in the order of their keys.
  static std::vector<ui::TextBox*> Texts(frmNastaveni& window) {
    auto& firm = window.txtfields;
    auto& closing = window.Text2;
    return {&firm[0], &firm[1], &firm[2],      &firm[3],    &firm[4],    &firm[5],
            &firm[6], &firm[7], &window.Text1, &closing[0], &closing[1], &closing[2]};
  }
  static std::vector<std::string> VisiblePages(const frmNastaveni& window) {
    std::vector<std::string> visible;
    for (const ui::Frame* page :
         {&window.fraFaktura, &window.fraFirma, &window.fraCnb, &window.fraRepo}) {
      if (page->visible()) visible.push_back(page->name());
    }
    return visible;
  }
  /// Which of the options is chosen; -1: none.
  template <std::size_t kCount>
  static int Chosen(const std::array<ui::OptionButton, kCount>& options) {
    int chosen = -1;
    for (std::size_t i = 0; i < kCount; ++i) {
      if (!options.at(i).value()) continue;
      EXPECT_EQ(chosen, -1) << "two are chosen";
      chosen = static_cast<int>(i);
    }
    return chosen;
  }
  static std::vector<int> ChosenRows(const frmNastaveni& window) {
    std::vector<int> rows;
    for (const ui::ListBox& column : window.lstCnb) rows.push_back(column.index());
    return rows;
  }

  RateFolder folder_;
};

template <class C, std::size_t kCount>
std::vector<std::string> Captions(const std::array<C, kCount>& controls) {
  std::vector<std::string> captions;
  captions.reserve(kCount);
  for (const C& control : controls) captions.push_back(control.caption());
  return captions;
}

// What it shows

TEST_F(frmNastaveniTest, OpensWithItsCaptions) {
  const frmNastaveni& window = Open();
  EXPECT_EQ(window.caption(), "Nastavení programu");
  EXPECT_THAT(Captions(window.optFramy),
              ElementsAre("Penalizační faktura", "Údaje firmy", "Diskontní sazby", "Repo sazby"));
  EXPECT_EQ(window.fraFirma.caption(), "Nastavení vaší firmy - údaje pro tisk penalizační faktury");
  EXPECT_THAT(Captions(window.lblFields), ElementsAre("Název", "Ulice", "PSČ", "Obec", "IČO", "DIČ",
                                                      "Bank. spoj.", "Obch. rejstřík"));
  EXPECT_EQ(window.fraFaktura.caption(), "Penalizační faktura");
  EXPECT_EQ(window.Frame3.caption(), "Zaokrouhlení částky penále");
  EXPECT_THAT(Captions(window.optZaok),
              ElementsAre("Nezaokrouhlovat", "Na 10 hal nahoru", "Na korunu nahoru"));
  EXPECT_EQ(window.Frame4.caption(), "Zde zadejte text penalizační faktury");
  EXPECT_EQ(window.Frame5.caption(), "Zde zadejte dovětek faktury");
  EXPECT_EQ(window.fraCnb.caption(), "Diskontní sazby ČNB");
  EXPECT_EQ(window.fraSazbyCnb.caption(), "Diskontní sazby ČNB a úroky z prodlení");
  EXPECT_THAT(Captions(window.lblCnb),
              ElementsAre("Platí od", "Platí do", "Diskont", "Úrok z prodlení % p.a."));
  EXPECT_EQ(window.fraRepo.caption(), "Repo sazby ČNB");
  EXPECT_EQ(window.fraRepoCNB.caption(), "Repo sazby ČNB a úroky z prodlení po pololetích");
  EXPECT_THAT(Captions(window.lblRepo),
              ElementsAre("Repo sazba", "platná od", "Úrok z prodlení % p.a."));
  EXPECT_EQ(window.cmdPridat.caption(), "&Aktualizovat");
  EXPECT_EQ(window.cmdRepoAkt.caption(), "&Aktualizovat");
  EXPECT_EQ(window.cmdNapoveda.caption(), "&Nápověda");
  EXPECT_EQ(window.cmdPouzit.caption(), "&Použít");
  EXPECT_EQ(window.cmdKonec.caption(), "&Konec");
}

TEST_F(frmNastaveniTest, OpensOnTheInvoicePageReadyToType) {
  const frmNastaveni& window = Open();
  EXPECT_EQ(Chosen(window.optFramy), 0);
  EXPECT_THAT(VisiblePages(window), ElementsAre("fraFaktura"));
  EXPECT_EQ(window.focused(), &window.Text1);
}

TEST_F(frmNastaveniTest, ShowsTheStoredTexts) {
  StoreTexts();
  const std::vector<ui::TextBox*> texts = Texts(Open());
  ASSERT_EQ(texts.size(), kStored.size());
  for (std::size_t i = 0; i < texts.size(); ++i) {
    EXPECT_EQ(texts[i]->text(), kStored[i].second) << texts[i]->name();
  }
}

TEST_F(frmNastaveniTest, MissingTextsAreEmptyButForTheItemLine) {
  frmNastaveni& window = Open();
  for (const ui::TextBox* box : Texts(window)) {
    EXPECT_EQ(box->text(),
              box == &window.Text1 ? "Fakturujeme Vám úroky z prodlení dle výpočtu" : "")
        << box->name();
  }
}

TEST_F(frmNastaveniTest, StoredEmptyItemLineStaysEmpty) {
  Store("TextRadku", "");
  EXPECT_EQ(Open().Text1.text(), "");
}

struct RoundingRow {
  const char* name;
  const char* word;
  int chosen;
};

class StoredRoundingTest : public frmNastaveniTest,
                           public ::testing::WithParamInterface<RoundingRow> {};

TEST_P(StoredRoundingTest, ChoosesItsOptionAndWritesNothing) {
  StoreTexts();
  Store("Zaokrouhlit", GetParam().word);
  const std::vector<KeyValue> stored = Stored();
  const int writes = memory_.settings_store.writes;
  const frmNastaveni& window = Open();
  EXPECT_EQ(Chosen(window.optZaok), GetParam().chosen);
  EXPECT_EQ(Stored(), stored);
  EXPECT_EQ(memory_.settings_store.writes, writes);
  EXPECT_THAT(Shown(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Words, StoredRoundingTest,
    ::testing::Values(RoundingRow{"None", "NE", 0}, RoundingRow{"Tenths", "halere", 1},
                      RoundingRow{"Crowns", "koruny", 2}, RoundingRow{"OtherCase", "Halere", -1},
                      RoundingRow{"Unknown", "padesátníky", -1}, RoundingRow{"Empty", "", -1}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(frmNastaveniTest, MissingRoundingChoosesNoOption) {
  memory_.settings_store.values.clear();
  EXPECT_EQ(Chosen(Open().optZaok), -1);
  EXPECT_EQ(settings_.RoundingMode(), "NE");
}

// The pages

struct PageRow {
  std::size_t option;
  const char* page;
  const char* focused;
};

TEST_F(frmNastaveniTest, EachButtonShowsItsPageAlone) {
  frmNastaveni& window = Open();
  // Every page from every other one; a rate table leaves the keyboard on the button.
  for (const PageRow& row :
       {PageRow{1, "fraFirma", "txtfields(0)"}, PageRow{2, "fraCnb", "optFramy(2)"},
        PageRow{3, "fraRepo", "optFramy(3)"}, PageRow{2, "fraCnb", "optFramy(2)"},
        PageRow{0, "fraFaktura", "Text1"}, PageRow{3, "fraRepo", "optFramy(3)"},
        PageRow{1, "fraFirma", "txtfields(0)"}, PageRow{0, "fraFaktura", "Text1"}}) {
    window.optFramy.at(row.option).SetFocus();
    EXPECT_TRUE(window.optFramy.at(row.option).UserClick());
    EXPECT_THAT(VisiblePages(window), ElementsAre(row.page));
    EXPECT_EQ(window.focused()->name(), row.focused);
    EXPECT_EQ(Chosen(window.optFramy), static_cast<int>(row.option));
  }
}

TEST_F(frmNastaveniTest, ClickOnThePageThatIsShownLeadsToItsFirstBox) {
  frmNastaveni& window = Open();
  window.optFramy[0].SetFocus();
  EXPECT_TRUE(window.optFramy[0].UserClick());
  EXPECT_THAT(VisiblePages(window), ElementsAre("fraFaktura"));
  EXPECT_EQ(window.focused(), &window.Text1);
}

TEST_F(frmNastaveniTest, ClickOnTheRoundingThatIsChosenStoresNothing) {
  frmNastaveni& window = Open();
  ui::OptionButton& chosen = window.optZaok.at(static_cast<std::size_t>(Chosen(window.optZaok)));
  memory_.settings_store.fails = true;
  EXPECT_TRUE(chosen.UserClick());
  EXPECT_THAT(Shown(), IsEmpty()) << "nothing was written that could fail";
}

TEST_F(frmNastaveniTest, WhatStandsOnAHiddenPageCannotBeReached) {
  frmNastaveni& window = Open();
  EXPECT_FALSE(window.txtfields[0].UserEdit("x"));
  EXPECT_FALSE(window.lstCnb[0].UserPick(0));
  EXPECT_FALSE(window.cmdPridat.UserClick());
  EXPECT_FALSE(window.lstRepo.UserPick(0));
  EXPECT_FALSE(window.cmdRepoAkt.UserClick());
  window.optFramy[1].UserClick();
  EXPECT_TRUE(window.txtfields[0].UserEdit("x"));
  EXPECT_FALSE(window.Text1.UserEdit("x"));
  EXPECT_FALSE(window.Text2[2].UserEdit("x"));
  EXPECT_FALSE(window.optZaok[0].UserClick());
}

TEST_F(frmNastaveniTest, LabelsAreSeenWithTheirPageAlone) {
  frmNastaveni& window = Open();
  const std::vector<std::pair<std::size_t, ui::Label*>> labels = {
      {1, &window.lblFields[0]}, {2, &window.lblCnb[0]}, {3, &window.lblRepo[0]}};
  for (std::size_t page = 0; page < window.optFramy.size(); ++page) {
    window.optFramy.at(page).UserClick();
    for (const auto& [own_page, label] : labels) {
      EXPECT_EQ(label->visible(), page == own_page) << label->name() << " on page " << page;
    }
  }
}

TEST_F(frmNastaveniTest, TabGoesThroughTheShownPageAndTheButtons) {
  frmNastaveni& window = Open();
  const auto round = [&window] {
    std::vector<std::string> stops;
    const ui::Control* const first = window.focused();
    do {
      stops.push_back(window.focused()->name());
      window.FocusNext();
    } while (window.focused() != first);
    return stops;
  };
  EXPECT_THAT(round(), ElementsAre("Text1", "Text2(0)", "Text2(1)", "Text2(2)", "cmdPouzit",
                                   "cmdNapoveda", "cmdKonec", "optFramy(0)", "optZaok(0)"));
  window.optFramy[1].UserClick();
  EXPECT_THAT(round(), ElementsAre("txtfields(0)", "txtfields(1)", "txtfields(2)", "txtfields(3)",
                                   "txtfields(4)", "txtfields(5)", "txtfields(6)", "txtfields(7)",
                                   "cmdPouzit", "cmdNapoveda", "cmdKonec", "optFramy(1)"));
}

TEST_F(frmNastaveniTest, EnterInTheInvoiceTextsMovesOn) {
  frmNastaveni& window = Open();
  for (ui::TextBox* line : {&window.Text1, &window.Text2[0], &window.Text2[1], &window.Text2[2]}) {
    EXPECT_EQ(window.focused(), line);
    ui::KeyPress enter{"\r"};
    line->UserKey(enter);
    EXPECT_EQ(enter.text, "");
    ui::KeyPress letter{"p"};
    line->UserKey(letter);
    EXPECT_EQ(letter.text, "p");
  }
  EXPECT_EQ(window.focused(), &window.cmdPouzit);
}

TEST_F(frmNastaveniTest, EnterInTheFirmsDataDoesNotMoveOn) {
  frmNastaveni& window = Open();
  window.optFramy[1].UserClick();
  ui::KeyPress enter{"\r"};
  window.txtfields[0].UserKey(enter);
  EXPECT_EQ(enter.text, "\r");
  EXPECT_EQ(window.focused(), &window.txtfields[0]);
}

// What it stores

TEST_F(frmNastaveniTest, RoundingIsStoredAtOnce) {
  frmNastaveni& window = Open();
  window.optZaok[1].UserClick();
  EXPECT_EQ(Rounding(), "halere");
  window.optZaok[2].UserClick();
  EXPECT_EQ(Rounding(), "koruny");
  window.optZaok[0].UserClick();
  EXPECT_EQ(Rounding(), "NE");
  EXPECT_THAT(Shown(), IsEmpty()) << "without a word";
}

TEST_F(frmNastaveniTest, OptionThatIsChosenAlreadyStoresNothing) {
  frmNastaveni& window = Open();
  const int writes = memory_.settings_store.writes;
  window.optZaok[0].UserClick();
  EXPECT_EQ(memory_.settings_store.writes, writes);
}

TEST_F(frmNastaveniTest, RoundingCountsWhenTheWindowIsOpenedAgain) {
  SetRounding("halere");
  frmNastaveni& window = Open();
  window.optZaok[2].UserClick();
  EXPECT_EQ(settings_.RoundingMode(), "halere") << "the record keeps the rule";
  EXPECT_DOUBLE_EQ(settings_.ApplyRounding(100.41), 100.5);
  window.cmdKonec.UserClick();
  EXPECT_EQ(settings_.RoundingMode(), "halere");
  Open();
  EXPECT_EQ(settings_.RoundingMode(), "koruny");
  EXPECT_DOUBLE_EQ(settings_.ApplyRounding(100.41), 100);
}

TEST_F(frmNastaveniTest, OpenWindowThatIsOpenedAgainReadsNothing) {
  frmNastaveni& window = Open();
  window.optZaok[2].UserClick();
  window.Text1.UserEdit("rozepsaný text");
  EXPECT_EQ(&Open(), &window);
  EXPECT_EQ(settings_.RoundingMode(), "NE");
  EXPECT_EQ(window.Text1.text(), "rozepsaný text");
}

TEST_F(frmNastaveniTest, ClosingKeepsTheChosenRoundingAndForgetsTheTexts) {
  StoreTexts();
  const std::vector<KeyValue> before = Stored();
  frmNastaveni& window = Open();
  window.optZaok[1].UserClick();
  window.Text1.UserEdit("jiný");
  window.Text2[1].UserEdit("jiný");
  window.optFramy[1].UserClick();
  window.txtfields[3].UserEdit("jiný");
  window.cmdKonec.UserClick();
  EXPECT_FALSE(windows().IsLoaded("frmNastaveni"));
  std::vector<KeyValue> expected = before;
  expected.at(0).second = "halere";  // the first key that this test's ground has written
  EXPECT_EQ(Stored(), expected);
  EXPECT_EQ(Open().Text1.text(), "Účtujeme úroky");
}

TEST_F(frmNastaveniTest, ApplyStoresTheTwelveTextsInOrderAndSaysWhenTheyCount) {
  memory_.settings_store.values.clear();
  frmNastaveni& window = Open();
  std::vector<KeyValue> expected;
  const std::vector<ui::TextBox*> texts = Texts(window);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    expected.emplace_back(kStored[i].first, "  text; „" + std::to_string(i) + "“, \"=\" ");
    texts[i]->SetText(expected.back().second);
  }
  window.cmdPouzit.UserClick();
  EXPECT_THAT(Stored(), ElementsAreArray(expected))
      << "as typed, and the rounding is not among them";
  EXPECT_THAT(memory_.message_box.shown,
              ElementsAre(ui::MemoryMessageBox::Shown{
                  ui::Icon::kInformation, "Velta",
                  "Změna v nastavení programu se projeví\r\naž při příštím startu programu"}));
  EXPECT_TRUE(windows().IsLoaded("frmNastaveni"));
}

TEST_F(frmNastaveniTest, ApplyStoresEmptyBoxesAsEmptyValues) {
  StoreTexts();
  frmNastaveni& window = Open();
  for (ui::TextBox* box : Texts(window)) box->SetText("");
  window.cmdPouzit.UserClick();
  for (const auto& [key, value] : kStored) EXPECT_EQ(settings_.GetSetting(key, "chybí"), "") << key;
}

TEST_F(frmNastaveniTest, AppliedTextsCountFromTheNextStart) {
  StoreTexts();
  settings_.LoadProgramSettings();
  frmNastaveni& window = Open();
  window.Text1.UserEdit("jiný");
  window.cmdPouzit.UserClick();
  EXPECT_EQ(settings_.record().TextRadku, "Účtujeme úroky");
  windows().Unload("frmNastaveni");
  EXPECT_EQ(Open().Text1.text(), "jiný") << "the dialog shows what is stored";
  EXPECT_EQ(settings_.record().TextRadku, "Účtujeme úroky");
  settings_.LoadProgramSettings();
  EXPECT_EQ(settings_.record().TextRadku, "jiný");
}

// The rate tables

TEST_F(frmNastaveniTest, DiscountTableIsShownInFourColumnsAsItStandsInTheFile) {
  folder_.Write("cnb.dat", CrLf({"  " + CnbLine("1.1.1990", "31.03.1990", "4,00", "8,00") + "  ",
                                 "", CnbLine("01.04.1990", "", "5,5", "11")}));
  folder_.Write("repo.dat", "");
  memory_.program_folder.path = folder_.path();
  const frmNastaveni& window = Open();
  EXPECT_THAT(Shown(), IsEmpty());
  const std::string kBlanks(19, ' ');
  EXPECT_THAT(window.lstCnb[0].items(), ElementsAre("1.1.1990           ", "01.04.1990         "));
  EXPECT_THAT(window.lstCnb[1].items(), ElementsAre("31.03.1990         ", kBlanks));
  EXPECT_THAT(window.lstCnb[2].items(), ElementsAre("4,00               ", "5,5                "));
  EXPECT_THAT(window.lstCnb[3].items(), ElementsAre(" 8,00", " 11"));
  EXPECT_THAT(ChosenRows(window), ElementsAre(1, 1, 1, 1));

  const auto rows = ReadBankTables(folder_.path(), Day(2026, 11, 21), memory_.locale).discount;
  EXPECT_EQ(rows[0].interest_rate, "8,00") << "calculations read a column further on";
}

TEST_F(frmNastaveniTest, ShortLinesOfTheDiscountTableHaveEmptyFields) {
  folder_.Write("cnb.dat", "1.1.1990\r\n");
  folder_.Write("repo.dat", "");
  memory_.program_folder.path = folder_.path();
  const frmNastaveni& window = Open();
  EXPECT_THAT(Shown(), IsEmpty()) << "what stands in the file is shown, not judged";
  EXPECT_THAT(window.lstCnb[0].items(), ElementsAre("1.1.1990"));
  for (const std::size_t i : {1U, 2U, 3U})
    EXPECT_THAT(window.lstCnb.at(i).items(), ElementsAre(""));
}

TEST_F(frmNastaveniTest, RepoTableIsShownByHalfYearsWithTheLawsSurcharge) {
  folder_.Write("cnb.dat", "");
  folder_.Write("repo.dat", CrLf({"010120052,50", "01072005 0,05", "010120060,53"}));
  memory_.program_folder.path = folder_.path();
  {
    const frmNastaveni& window = Open();
    EXPECT_THAT(window.lstRepo.items(),
                ElementsAre("1.1.2005\t\t\t\t9,5", "1.7.2005\t\t\t\t7,05", "1.1.2006\t\t\t\t7,53"));
    EXPECT_EQ(window.lstRepo.index(), 2);
    windows().Unload("frmNastaveni");
  }
  memory_.locale = EnglishLocale();
  EXPECT_THAT(Open().lstRepo.items(),
              ElementsAre("1/1/2005\t\t\t\t9.5", "7/1/2005\t\t\t\t7.05", "1/1/2006\t\t\t\t7.53"));
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmNastaveniTest, SuppliedTablesAreShownWhole) {
  const frmNastaveni& window = Open();
  EXPECT_THAT(Shown(), IsEmpty());
  for (const ui::ListBox& column : window.lstCnb) {
    EXPECT_EQ(column.items().size(), 77U);
    EXPECT_EQ(column.index(), 76);
  }
  EXPECT_EQ(window.lstCnb[0].items().front().substr(0, 10), "01.01.1990");
  EXPECT_EQ(window.lstRepo.items().size(), 44U);
  EXPECT_EQ(window.lstRepo.items().front(), "1.1.2005\t\t\t\t9,5");
  EXPECT_EQ(window.lstRepo.index(), 43);
}

TEST_F(frmNastaveniTest, RowChosenInOneColumnIsChosenInAll) {
  frmNastaveni& window = Open();
  window.optFramy[2].UserClick();
  for (std::size_t i = 0; i < window.lstCnb.size(); ++i) {
    const int row = 10 * static_cast<int>(i);
    EXPECT_TRUE(window.lstCnb.at(i).UserPick(row));
    EXPECT_THAT(ChosenRows(window), ElementsAre(row, row, row, row));
  }
  EXPECT_EQ(window.lstRepo.index(), 43) << "that is another table";
}

TEST_F(frmNastaveniTest, EmptyTablesAreEmptyListsWithoutAnError) {
  folder_.Write("cnb.dat", "");
  folder_.Write("repo.dat", "\r\n  \r\n");
  memory_.program_folder.path = folder_.path();
  const frmNastaveni& window = Open();
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_THAT(window.lstCnb[3].items(), IsEmpty());
  EXPECT_THAT(window.lstRepo.items(), IsEmpty());
  EXPECT_THAT(ChosenRows(window), ElementsAre(-1, -1, -1, -1));
  EXPECT_EQ(window.lstRepo.index(), -1);
}

TEST_F(frmNastaveniTest, DiscountMessageAndRepoPage) {
  frmNastaveni& window = Open();
  window.optFramy[2].UserClick();
  window.cmdPridat.UserClick();
  EXPECT_THAT(memory_.message_box.shown,
              ElementsAre(ui::MemoryMessageBox::Shown{
                  ui::Icon::kInformation, "Velta",
                  "Soubor s diskontní sazbou již není nutno aktualizovat."}));
  EXPECT_THAT(memory_.opener.opened, IsEmpty());
  window.optFramy[3].UserClick();
  window.cmdRepoAkt.UserClick();
  EXPECT_THAT(memory_.opener.opened, ElementsAre("https://velta.example/podpora/"));
}

TEST_F(frmNastaveniTest, HelpOpensAtItsContents) {
  Open().cmdNapoveda.UserClick();
  ASSERT_EQ(memory_.help_viewer.opened.size(), 1U);
  EXPECT_EQ(memory_.help_viewer.opened[0].file, VELTA_SOURCE_DIR "/data/VELTA.CHM");
  EXPECT_EQ(memory_.help_viewer.opened[0].topic, std::nullopt);
}

// Hints

TEST_F(frmNastaveniTest, PointerHints) {
  frmNastaveni& window = Open();
  struct Row {
    std::size_t page;
    ui::Control* control;
    const char* hint;
  };
  const std::vector<Row> rows = {
      {0, &window.cmdKonec, "Zavře okno"},
      {0, &window.cmdNapoveda, "Vyvolá nápovědu s tématem"},
      {0, &window.cmdPouzit, "Zapíše provedené změny a uloží je"},
      {0, &window.Text1, "Zde zadejte text penalizační faktury"},
      {0, &window.Text2[0], "Zde zadejte dovětek faktury"},
      {0, &window.Text2[1], "Zde zadejte dovětek faktury"},
      {0, &window.Text2[2], "Zde zadejte dovětek faktury"},
      {0, &window.optZaok[0], "Zaokrouhlení částky penále Nezaokrouhlovat"},
      {0, &window.optZaok[1], "Zaokrouhlení částky penále Na 10 hal nahoru"},
      {0, &window.optZaok[2], "Zaokrouhlení částky penále Na korunu nahoru"},
      {0, &window.fraTop, "Připraven"},
      {0, &window.fraFaktura, "Připraven"},
      {0, &window.Frame3, "Připraven"},
      {0, &window.Frame4, "Připraven"},
      {0, &window.Frame5, "Připraven"},
      {0, &window.optFramy[1], "něco"},  // has no hint and leaves the one that stands there
      {1, &window.fraFirma, "Připraven"},
      {1, &window.txtfields[0], "něco"},
      {2, &window.cmdPridat, "Aktualizuje diskontní sazby ČNB přes internet !"},
      {2, &window.fraCnb, "Připraven"},
      {2, &window.fraSazbyCnb, "Připraven"},
      {2, &window.lstCnb[0], "něco"},
      {3, &window.cmdRepoAkt, "něco"},
      {3, &window.fraRepo, "Připraven"},
      {3, &window.fraRepoCNB, "Připraven"},
  };
  for (const Row& row : rows) {
    window.optFramy.at(row.page).UserClick();
    program_.status.ShowHint("něco");
    EXPECT_TRUE(row.control->UserHover()) << row.control->name();
    EXPECT_EQ(HintText(), row.hint) << row.control->name();
  }
  program_.status.ShowHint("něco");
  window.MouseMove.Raise();
  EXPECT_EQ(HintText(), "Připraven");
}

TEST_F(frmNastaveniTest, TheKeyboardWritesNoHintAndClosingClearsIt) {
  frmNastaveni& window = Open();
  program_.status.ShowHint("něco");
  window.cmdPouzit.SetFocus();
  EXPECT_EQ(HintText(), "něco");
  window.cmdKonec.UserClick();
  EXPECT_EQ(HintText(), "Připraven");
}

// What fails

TEST_F(frmNastaveniTest, MissingDiscountTableIsReportedAndTheRestIsUsable) {
  StoreTexts();
  Store("Zaokrouhlit", "koruny");
  folder_.Write("repo.dat", "010120052,50\r\n");
  memory_.program_folder.path = folder_.path();
  frmNastaveni& window = Open();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 53 (Soubor nebyl nalezen) v proceduře\r\n"
                                   "(Form_Load) of (frmNastaveni.frm)."));
  EXPECT_EQ(window.txtfields[0].text(), "Pekárna U Dubu");
  EXPECT_EQ(Chosen(window.optZaok), 2);
  EXPECT_EQ(settings_.RoundingMode(), "koruny");
  EXPECT_THAT(window.lstRepo.items(), IsEmpty()) << "the load has ended";
  window.optZaok[0].UserClick();
  EXPECT_EQ(Rounding(), "NE");
  window.Text1.UserEdit("jiný");
  window.cmdPouzit.UserClick();
  EXPECT_EQ(settings_.GetSetting("TextRadku"), "jiný");
  window.optFramy[2].UserClick();
  EXPECT_THAT(VisiblePages(window), ElementsAre("fraCnb"));
}

TEST_F(frmNastaveniTest, MissingRepoTableIsReported) {
  folder_.Write("cnb.dat", CrLf({CnbLine("1.1.1990", "", "4,00", "8,00")}));
  memory_.program_folder.path = folder_.path();
  const frmNastaveni& window = Open();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 53 (Soubor nebyl nalezen) v proceduře\r\n"
                                   "(Form_Load) of (frmNastaveni.frm)."));
  EXPECT_THAT(ChosenRows(window), ElementsAre(0, 0, 0, 0)) << "the other table is there";
}

TEST_F(frmNastaveniTest, GarbledRepoTableIsReportedAfterItsGoodRows) {
  folder_.Write("cnb.dat", "");
  folder_.Write("repo.dat", CrLf({"010120052,50", "nesmysl", "010120062,00"}));
  memory_.program_folder.path = folder_.path();
  const frmNastaveni& window = Open();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 13 (Neshoda typů) v proceduře\r\n"
                                   "(Form_Load) of (frmNastaveni.frm)."));
  EXPECT_THAT(window.lstRepo.items(), ElementsAre("1.1.2005\t\t\t\t9,5"));
  EXPECT_EQ(window.lstRepo.index(), -1);
}

TEST_F(frmNastaveniTest, StoreThatCannotBeReadIsReported) {
  memory_.settings_store.fails = true;
  const int writes = memory_.settings_store.writes;
  frmNastaveni& window = Open();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 75 (Chyba přístupu k cestě nebo souboru) v proceduře\r\n"
                                   "(Form_Load) of (frmNastaveni.frm)."));
  EXPECT_EQ(settings_.RoundingMode(), "NE") << "the record keeps what it had";
  EXPECT_EQ(window.cmdKonec.caption(), "&Konec");
  memory_.settings_store.fails = false;
  EXPECT_FALSE(window.cmdPouzit.UserClick()) << "empty boxes must not replace the firm's data";
  EXPECT_EQ(memory_.settings_store.writes, writes);
}

TEST_F(frmNastaveniTest, StoreThatCannotBeWrittenIsReported) {
  frmNastaveni& window = Open();
  memory_.settings_store.fails = true;
  window.optZaok[1].UserClick();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 75 (Chyba přístupu k cestě nebo souboru) v proceduře\r\n"
                                   "(optZaok_Click) of (frmNastaveni.frm)."));
  memory_.settings_store.fails = false;
  memory_.settings_store.writes_before_failure = 3;
  window.cmdPouzit.UserClick();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 75 (Chyba přístupu k cestě nebo souboru) v proceduře\r\n"
                                   "(cmdPouzit_Click) of (frmNastaveni.frm)."))
      << "and no word of a change";
  EXPECT_EQ(settings_.GetSetting("PSC", "chybí"), "") << "the third key is written";
  EXPECT_EQ(settings_.GetSetting("Obec", "chybí"), "chybí");
}

TEST_F(frmNastaveniTest, HelpAndPageThatCannotBeOpenedAreReported) {
  frmNastaveni& window = Open();
  memory_.help_viewer.fails = true;
  window.cmdNapoveda.UserClick();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 53 (Soubor nebyl nalezen) v proceduře\r\n"
                                   "(cmdNapoveda_Click) of (frmNastaveni.frm)."));
  memory_.opener.fails = true;
  window.optFramy[3].UserClick();
  window.cmdRepoAkt.UserClick();
  EXPECT_THAT(Shown(),
              ElementsAre("Nenalezen program, který otevře adresu https://velta.example/podpora/"));
}

}  // namespace
}  // namespace velta
