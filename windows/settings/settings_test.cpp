#include "windows/settings/settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "ui/memory/memory_platform.h"
#include "values/error.h"

namespace velta {
namespace {

using ::testing::ElementsAreArray;

using KeyValue = std::pair<std::string, std::string>;

class SettingsTest : public ::testing::Test {
 protected:
  void Store(const std::string& key, const std::string& value) {
    ASSERT_TRUE(memory_.settings_store.Write("velta", "Settings", key, value));
  }
  std::vector<KeyValue> Stored() const {
    std::vector<KeyValue> stored;
    for (const auto& value : memory_.settings_store.values)
      stored.emplace_back(value.key, value.value);
    return stored;
  }

  ui::MemoryPlatform memory_;
  ui::Platform platform_ = memory_.platform();
  ErrorReport errors_{memory_.message_box};
  Settings settings_{platform_, errors_};
};

const std::vector<KeyValue> kFirstRun = {
    {"Nazev", "Název vaší firmy"},
    {"Ulice", "Sídlo vaší firmy"},
    {"PSC", "PSC"},
    {"Obec", "Obec"},
    {"ICO", "ICO"},
    {"DIC", "DIC"},
    {"Banka", "Číslo účtu a kód banky"},
    {"Rejstrik", "Dodavatel je zapsán..."},
    {"TextRadku", "Fakturujeme Vám úroky z prodlení dle výpočtu"},
    {"Dovetek0", "Zde můžete zadat libovolný text"},
    {"Dovetek1", "například slogan Vaší firmy apod."},
    {"Dovetek2", "Tento text bude vytištěn na faktuře"},
    {"Zaokrouhlit", "halere"},
    {"Hotovo", "Ano"},
};

TEST_F(SettingsTest, FirstRunWritesEveryKeyInOrder) {
  settings_.InitialiseFirstRun();
  EXPECT_THAT(Stored(), ElementsAreArray(kFirstRun));
  EXPECT_EQ(memory_.settings_store.writes, 14);
}

TEST_F(SettingsTest, ValuesLieUnderTheExecutablesNameAndOneSection) {
  memory_.program_folder.executable_name = "velta-zkouska";
  settings_.SaveSetting("Nazev", "Pekárna");
  EXPECT_EQ(memory_.settings_store.values.at(0),
            (ui::MemorySettingsStore::Value{"velta-zkouska", "Settings", "Nazev", "Pekárna"}));
  EXPECT_EQ(settings_.GetSetting("Nazev"), "Pekárna");
  memory_.program_folder.executable_name = "velta";
  EXPECT_EQ(settings_.GetSetting("Nazev"), "") << "another executable has a store of its own";
}

TEST_F(SettingsTest, FirstRunOverwritesWhatIsThere) {
  Store("Nazev", "Pekárna");
  settings_.InitialiseFirstRun();
  EXPECT_EQ(settings_.GetSetting("Nazev"), "Název vaší firmy");
}

TEST_F(SettingsTest, FirstRunThatFailsLeavesTheMarkerUnwritten) {
  memory_.settings_store.writes_before_failure = 5;
  EXPECT_THROW(settings_.InitialiseFirstRun(), Error);
  EXPECT_EQ(Stored().size(), 5U) << "what was written stays";
  EXPECT_FALSE(settings_.IsInitialised());
}

TEST_F(SettingsTest, OnlyTheMarkersEmptinessCounts) {
  EXPECT_FALSE(settings_.IsInitialised());
  Store("Hotovo", "");
  EXPECT_FALSE(settings_.IsInitialised());
  Store("Hotovo", "x");
  EXPECT_TRUE(settings_.IsInitialised());
}

TEST_F(SettingsTest, StoreFailureIsAPathAccessError) {
  memory_.settings_store.fails = true;
  for (const auto& act : std::vector<std::function<void()>>{
           [&] { settings_.GetSetting("Nazev"); },
           [&] { settings_.SaveSetting("Nazev", "x"); },
           [&] { settings_.LoadProgramSettings(); },
       }) {
    try {
      act();
      ADD_FAILURE() << "no error";
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), ErrorNumber::kPathAccess);
    }
  }
}

TEST_F(SettingsTest, MissingKeyGivesTheDefault) {
  EXPECT_EQ(settings_.GetSetting("Nazev", "nic"), "nic");
  EXPECT_EQ(settings_.GetSetting("Nazev"), "");
  Store("Nazev", "");
  EXPECT_EQ(settings_.GetSetting("Nazev", "nic"), "") << "a stored empty value is a value";
}

TEST_F(SettingsTest, RecordCarriesTheFirstRunValues) {
  settings_.InitialiseFirstRun();
  settings_.LoadProgramSettings();
  const ProgramSettings& record = settings_.record();
  EXPECT_EQ(record.Nazev, "Název vaší firmy");
  EXPECT_EQ(record.Ulice, "Sídlo vaší firmy");
  EXPECT_EQ(record.PSC, "PSC");
  EXPECT_EQ(record.Obec, "Obec");
  EXPECT_EQ(record.ICO, "ICO");
  EXPECT_EQ(record.DIC, "DIC");
  EXPECT_EQ(record.Banka, "Číslo účtu a kód banky");
  EXPECT_EQ(record.Rejstrik, "Dodavatel je zapsán...");
  EXPECT_EQ(record.TextRadku, "Fakturujeme Vám úroky z prodlení dle výpočtu");
  EXPECT_EQ(record.Dovetek0, "Zde můžete zadat libovolný text");
  EXPECT_EQ(record.Dovetek1, "například slogan Vaší firmy apod.");
  EXPECT_EQ(record.Dovetek2, "Tento text bude vytištěn na faktuře");
  EXPECT_EQ(record.Zaokrouhlit, "halere");
}

TEST_F(SettingsTest, RecordOfAStoreWithMissingKeys) {
  Store("Hotovo", "Ano");
  settings_.LoadProgramSettings();
  EXPECT_EQ(settings_.RoundingMode(), "NE");
  EXPECT_EQ(settings_.record().TextRadku, "Fakturujeme Vám úroky z prodlení dle výpočtu");
  EXPECT_EQ(settings_.record().Dovetek1, "");
  EXPECT_EQ(settings_.record().Nazev, "");
}

TEST_F(SettingsTest, StoredEmptyRoundingIsNone) {
  Store("Zaokrouhlit", "");
  settings_.LoadProgramSettings();
  EXPECT_EQ(settings_.RoundingMode(), "NE");
}

TEST_F(SettingsTest, RecordKeepsItsValuesUntilItIsLoadedAgain) {
  Store("Zaokrouhlit", "halere");
  Store("Nazev", "Pekárna");
  settings_.LoadProgramSettings();
  settings_.SaveSetting("Zaokrouhlit", "koruny");
  settings_.SaveSetting("Nazev", "Mlékárna");
  EXPECT_EQ(settings_.RoundingMode(), "halere");
  EXPECT_EQ(settings_.record().Nazev, "Pekárna");
}

TEST_F(SettingsTest, RoundingAloneCanBeLoadedAgain) {
  Store("Zaokrouhlit", "halere");
  Store("Nazev", "Pekárna");
  settings_.LoadProgramSettings();
  settings_.SaveSetting("Zaokrouhlit", "koruny");
  settings_.SaveSetting("Nazev", "Mlékárna");
  settings_.ReloadRounding();
  EXPECT_EQ(settings_.RoundingMode(), "koruny");
  EXPECT_EQ(settings_.record().Nazev, "Pekárna");
  settings_.SaveSetting("Zaokrouhlit", "");
  settings_.ReloadRounding();
  EXPECT_EQ(settings_.RoundingMode(), "NE");
}

struct RoundingCase {
  const char* name;
  const char* mode;
  double total;
  double expected;
};

class ApplyRoundingTest : public SettingsTest,
                          public ::testing::WithParamInterface<RoundingCase> {};

TEST_P(ApplyRoundingTest, RoundsByTheStoredWord) {
  Store("Zaokrouhlit", GetParam().mode);
  settings_.LoadProgramSettings();
  EXPECT_DOUBLE_EQ(settings_.ApplyRounding(GetParam().total), GetParam().expected);
  EXPECT_TRUE(memory_.message_box.shown.empty());
}

// The figures are the rounding rules' own worked examples, and ties counted by hand.
INSTANTIATE_TEST_SUITE_P(
    Words, ApplyRoundingTest,
    ::testing::Values(RoundingCase{"CrownsTieToEvenHundred", "koruny", 100.50, 100},
                      RoundingCase{"CrownsTieToEvenHundredTwo", "koruny", 101.50, 102},
                      RoundingCase{"CrownsBelowTie", "koruny", 100.49, 100},
                      RoundingCase{"CrownsAboveTie", "koruny", 100.51, 101},
                      RoundingCase{"CrownsTieTwo", "koruny", 2.5, 2},
                      RoundingCase{"CrownsTieFour", "koruny", 3.5, 4},
                      RoundingCase{"CrownsBelow", "koruny", 2.4, 2},
                      RoundingCase{"CrownsAbove", "koruny", 2.6, 3},
                      RoundingCase{"CrownsNegativeTieTwo", "koruny", -2.5, -2},
                      RoundingCase{"CrownsNegativeTieFour", "koruny", -3.5, -4},
                      RoundingCase{"CrownsNotUpward", "koruny", 1234.40, 1234},
                      RoundingCase{"TenthsUpward", "halere", 1234.41, 1234.5},
                      RoundingCase{"TenthsExact", "halere", 1234.4, 1234.4},
                      RoundingCase{"TenthsZero", "halere", 0, 0},
                      RoundingCase{"TenthsNegative", "halere", -12.34, -12.3},
                      RoundingCase{"None", "NE", 1234.41, 1234.41},
                      RoundingCase{"Missing", "", 1234.41, 1234.41},
                      RoundingCase{"OtherCase", "HALERE", 1234.41, 1234.41},
                      RoundingCase{"LeadingBlank", " halere", 1234.41, 1234.41},
                      RoundingCase{"OtherCaseCrowns", "Koruny", 1234.41, 1234.41}),
    [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace velta
