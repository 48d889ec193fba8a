#include "windows/settings/settings.h"

#include <optional>

#include "values/error.h"

namespace velta {

namespace {

constexpr std::string_view kSection = "Settings";
constexpr std::string_view kDoneKey = "Hotovo";
constexpr std::string_view kItemText = "Fakturujeme Vám úroky z prodlení dle výpočtu";

}  // namespace

const std::array<TextSetting, 12> kTextSettings{{
    {"Nazev", "Název vaší firmy", "", &ProgramSettings::Nazev},
    {"Ulice", "Sídlo vaší firmy", "", &ProgramSettings::Ulice},
    {"PSC", "PSC", "", &ProgramSettings::PSC},
    {"Obec", "Obec", "", &ProgramSettings::Obec},
    {"ICO", "ICO", "", &ProgramSettings::ICO},
    {"DIC", "DIC", "", &ProgramSettings::DIC},
    {"Banka", "Číslo účtu a kód banky", "", &ProgramSettings::Banka},
    {"Rejstrik", "Dodavatel je zapsán...", "", &ProgramSettings::Rejstrik},
    {"TextRadku", kItemText, kItemText, &ProgramSettings::TextRadku},
    {"Dovetek0", "Zde můžete zadat libovolný text", "", &ProgramSettings::Dovetek0},
    {"Dovetek1", "například slogan Vaší firmy apod.", "", &ProgramSettings::Dovetek1},
    {"Dovetek2", "Tento text bude vytištěn na faktuře", "", &ProgramSettings::Dovetek2},
}};

std::string Settings::GetSetting(std::string_view key, std::string_view default_value) const {
  std::optional<std::string> value;
  if (!platform_.settings_store.Read(platform_.program_folder.ExecutableName(), kSection, key,
                                     value)) {
    throw Error(ErrorNumber::kPathAccess);
  }
  return value ? *std::move(value) : std::string(default_value);
}

void Settings::SaveSetting(std::string_view key, std::string_view value) {
  if (!platform_.settings_store.Write(platform_.program_folder.ExecutableName(), kSection, key,
                                      value)) {
    throw Error(ErrorNumber::kPathAccess);
  }
}

bool Settings::IsInitialised() const { return !GetSetting(kDoneKey).empty(); }

void Settings::InitialiseFirstRun() {
  for (const TextSetting& text : kTextSettings) SaveSetting(text.key, text.first_run_value);
  SaveSetting(kRoundingKey, kUpToTenHaler);
  SaveSetting(kDoneKey, "Ano");
}

void Settings::LoadProgramSettings() {
  for (const TextSetting& text : kTextSettings) {
    record_.*text.field = GetSetting(text.key, text.default_value);
  }
  ReloadRounding();
}

void Settings::ReloadRounding() {
  record_.Zaokrouhlit = GetSetting(kRoundingKey);
  // Not a default of the reading: a key that is there but empty means no rounding as well.
  if (record_.Zaokrouhlit.empty()) record_.Zaokrouhlit = kNoRounding;
}

double Settings::ApplyRounding(double total) const {
  double rounded = 0;
  errors_.Trap("RoundUp", "modPromenne.bas",
               [&] { rounded = velta::ApplyRounding(rounding(), total); });
  return rounded;
}

}  // namespace velta
