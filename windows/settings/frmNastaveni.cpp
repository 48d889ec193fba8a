#include "windows/settings/frmNastaveni.h"

#include <string>
#include <string_view>

#include "app/addresses.h"
#include "app/help.h"
#include "app/modPromenne.h"
#include "engine/rate_files.h"

namespace velta {

namespace {

constexpr const char* kRoundingTitle = "Zaokrouhlení částky penále";

/// What the options for rounding are called and what they store.
struct RoundingOption {
  const char* caption;
  std::string_view rule;
};
constexpr std::array<RoundingOption, 3> kRoundingOptions = {{
    {"Nezaokrouhlovat", kNoRounding},
    {"Na 10 hal nahoru", kUpToTenHaler},
    {"Na korunu nahoru", kToCrowns},
}};

// The interest begins in column 61; from 60 on it stands a little apart from the rate before it.
constexpr std::array<std::size_t, 4> kCnbColumns = {1, 20, 40, 60};

template <class C, std::size_t kCount>
void SetCaptionsOf(std::array<C, kCount>& controls,
                   const std::array<const char*, kCount>& captions) {
  for (std::size_t i = 0; i < kCount; ++i) controls.at(i).SetCaption(captions.at(i));
}

void SelectLast(ui::ListBox& list) { list.SetIndex(static_cast<int>(list.items().size()) - 1); }

}  // namespace

frmNastaveni::frmNastaveni(Program& program, Settings& settings)
    : Form(program, "frmNastaveni"), settings_(settings) {
  MakePages();
  WireEvents();
  WireHints();
}

void frmNastaveni::MakePages() {
  fraFaktura.Hold({&Frame3, &Frame4, &Frame5});
  Frame3.Hold(optZaok);
  Frame4.Hold({&Text1});
  Frame5.Hold(Text2);
  fraFirma.Hold(lblFields);
  fraFirma.Hold(txtfields);
  fraCnb.Hold({&fraSazbyCnb, &cmdPridat});
  fraSazbyCnb.Hold(lblCnb);
  fraSazbyCnb.Hold(lstCnb);
  fraRepo.Hold({&fraRepoCNB, &cmdRepoAkt});
  fraRepoCNB.Hold(lblRepo);
  fraRepoCNB.Hold({&lstRepo});
}

void frmNastaveni::WireEvents() {
  for (std::size_t page = 0; page < optFramy.size(); ++page) {
    OnClick(optFramy.at(page), [this, page] { ShowPage(page); });
    // A click on the page that is shown already puts the keyboard into its first box.
    OnClickAgain(optFramy.at(page), [this, page] { ShowPage(page); });
  }
  for (std::size_t i = 0; i < optZaok.size(); ++i) {
    OnClick(optZaok.at(i),
            [this, i] { settings_.SaveSetting(kRoundingKey, kRoundingOptions.at(i).rule); });
  }
  for (ui::TextBox* line : {&Text1, &Text2[0], &Text2[1], &Text2[2]}) {
    OnKeyPress(*line, [this](ui::KeyPress& key) { EnterMovesOn(key); });
  }
  for (ui::ListBox& column : lstCnb) {
    OnChange(column, [this, &column] {
      for (ui::ListBox& other : lstCnb) other.SetIndex(column.index());
    });
  }
  OnClick(cmdPridat, [this] {
    Message(ui::Icon::kInformation, "Soubor s diskontní sazbou již není nutno aktualizovat.");
  });
  OnClick(cmdRepoAkt, [this] { OpenWeb(program_.platform, kSupportPage); });
  OnClick(cmdNapoveda, [this] { OpenHelp(program_.platform); });
  OnClick(cmdPouzit, [this] { cmdPouzit_Click(); });
  OnClick(cmdKonec, [this] { Close(); });
}

void frmNastaveni::WireHints() {
  PointerHint(cmdKonec, "Zavře okno");
  PointerHint(cmdNapoveda, "Vyvolá nápovědu s tématem");
  PointerHint(cmdPouzit, "Zapíše provedené změny a uloží je");
  PointerHint(cmdPridat, "Aktualizuje diskontní sazby ČNB přes internet !");
  PointerHint(Text1, "Zde zadejte text penalizační faktury");
  for (ui::TextBox& line : Text2) PointerHint(line, "Zde zadejte dovětek faktury");
  for (std::size_t i = 0; i < optZaok.size(); ++i) {
    PointerHint(optZaok.at(i), std::string(kRoundingTitle) + " " + kRoundingOptions.at(i).caption);
  }
  for (ui::Frame* frame : {&fraTop, &fraFaktura, &Frame3, &Frame4, &Frame5, &fraFirma, &fraCnb,
                           &fraSazbyCnb, &fraRepo, &fraRepoCNB}) {
    SurfaceHint(*frame);
  }
}

void frmNastaveni::OnLoad() {
  optFramy[0].Choose();
  ShowPage(0);
  SetCaptions();
  // Where the store cannot be read the boxes stay empty, and must not be stored over what is there.
  cmdPouzit.SetEnabled(false);
  ShowSettings();
  cmdPouzit.SetEnabled(true);
  // The tables come last, so that without their files everything else is there all the same.
  ShowDiscountRates();
  ShowRepoRates();
}

void frmNastaveni::SetCaptions() {
  SetCaption("Nastavení programu");
  SetCaptionsOf(optFramy, {"Penalizační faktura", "Údaje firmy", "Diskontní sazby", "Repo sazby"});
  fraFaktura.SetCaption("Penalizační faktura");
  Frame3.SetCaption(kRoundingTitle);
  for (std::size_t i = 0; i < optZaok.size(); ++i) {
    optZaok.at(i).SetCaption(kRoundingOptions.at(i).caption);
  }
  Frame4.SetCaption("Zde zadejte text penalizační faktury");
  Frame5.SetCaption("Zde zadejte dovětek faktury");
  fraFirma.SetCaption("Nastavení vaší firmy - údaje pro tisk penalizační faktury");
  SetCaptionsOf(lblFields,
                {"Název", "Ulice", "PSČ", "Obec", "IČO", "DIČ", "Bank. spoj.", "Obch. rejstřík"});
  fraCnb.SetCaption("Diskontní sazby ČNB");
  fraSazbyCnb.SetCaption("Diskontní sazby ČNB a úroky z prodlení");
  SetCaptionsOf(lblCnb, {"Platí od", "Platí do", "Diskont", "Úrok z prodlení % p.a."});
  cmdPridat.SetCaption("&Aktualizovat");
  fraRepo.SetCaption("Repo sazby ČNB");
  fraRepoCNB.SetCaption("Repo sazby ČNB a úroky z prodlení po pololetích");
  SetCaptionsOf(lblRepo, {"Repo sazba", "platná od", "Úrok z prodlení % p.a."});
  cmdRepoAkt.SetCaption("&Aktualizovat");
  cmdNapoveda.SetCaption("&Nápověda");
  cmdPouzit.SetCaption("&Použít");
  cmdKonec.SetCaption("&Konec");
}

void frmNastaveni::ShowSettings() {
  const std::array<ui::TextBox*, 12> texts = Texts();
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const TextSetting& setting = kTextSettings.at(i);
    texts.at(i)->SetText(settings_.GetSetting(setting.key, setting.default_value));
  }
  settings_.ReloadRounding();
  // By the word in the store and not by the record, which says "NE" also where nothing is stored.
  const std::string rounding = settings_.GetSetting(kRoundingKey);
  for (std::size_t i = 0; i < optZaok.size(); ++i) {
    if (rounding == kRoundingOptions.at(i).rule) optZaok.at(i).Choose();
  }
}

void frmNastaveni::ShowDiscountRates() {
  ForEachLine(ProgramFile(program_.platform.program_folder, kCnbFile), [&](std::string_view line) {
    for (std::size_t i = 0; i < lstCnb.size(); ++i) {
      lstCnb.at(i).AddItem(std::string(Columns(line, kCnbColumns.at(i), kCnbFieldWidth)));
    }
  });
  SelectLast(lstCnb[0]);
}

void frmNastaveni::ShowRepoRates() {
  const LocaleFormat& locale = program_.platform.locale;
  ForEachLine(ProgramFile(program_.platform.program_folder, kRepoFile), [&](std::string_view line) {
    const RepoRow row = ParseRepoRow(line, locale);
    lstRepo.AddItem(ShortDateText(row.start, locale) + "\t\t\t\t" + PlainText(row.rate, locale));
  });
  SelectLast(lstRepo);
}

void frmNastaveni::ShowPage(std::size_t page) {
  const std::array<ui::Frame*, 4> pages = {&fraFaktura, &fraFirma, &fraCnb, &fraRepo};
  for (std::size_t i = 0; i < pages.size(); ++i) pages.at(i)->SetVisible(i == page);
  if (page == 0) Text1.SetFocus();
  if (page == 1) txtfields[0].SetFocus();
}

void frmNastaveni::cmdPouzit_Click() {
  const std::array<ui::TextBox*, 12> texts = Texts();
  for (std::size_t i = 0; i < texts.size(); ++i) {
    settings_.SaveSetting(kTextSettings.at(i).key, texts.at(i)->text());
  }
  Message(ui::Icon::kInformation,
          "Změna v nastavení programu se projeví\r\naž při příštím startu programu");
}

std::array<ui::TextBox*, 12> frmNastaveni::Texts() {
  return {&txtfields[0], &txtfields[1], &txtfields[2], &txtfields[3], &txtfields[4], &txtfields[5],
          &txtfields[6], &txtfields[7], &Text1,        &Text2[0],     &Text2[1],     &Text2[2]};
}

}  // namespace velta
