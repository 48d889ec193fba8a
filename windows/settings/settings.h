#pragma once

#include <array>
#include <string>
#include <string_view>

#include "app/error_report.h"
#include "calc/rounding.h"
#include "ui/platform.h"

namespace velta {

/// The firm's data, the invoice texts and the rounding rule as the program works with them. They
/// are read once, when the main window loads; what the settings dialog writes takes effect at the
/// next start, on purpose. One field for each key of the store, named like it.
struct ProgramSettings {
  std::string Nazev;
  std::string Ulice;
  std::string PSC;
  std::string Obec;
  std::string ICO;
  std::string DIC;
  std::string Banka;
  std::string Rejstrik;
  std::string TextRadku;
  std::string Dovetek0;
  std::string Dovetek1;
  std::string Dovetek2;
  std::string Zaokrouhlit;
};

inline constexpr std::string_view kRoundingKey = "Zaokrouhlit";

/// A text that the user sets in the settings dialog.
struct TextSetting {
  std::string_view key;
  std::string_view first_run_value;  ///< tells what belongs there, and prints until it is replaced
  std::string_view default_value;    ///< where the key is missing
  std::string ProgramSettings::*field;
};

/// In the order in which the first run and the dialog write them.
extern const std::array<TextSetting, 12> kTextSettings;

/// The settings: their keys in the store, their first-run values and the record in memory.
/// A failure of the store throws Error 75.
class Settings {
 public:
  Settings(const ui::Platform& platform, ErrorReport& errors)
      : platform_(platform), errors_(errors) {}

  /// The stored text as it stands, or `default_value` where the key is missing.
  std::string GetSetting(std::string_view key, std::string_view default_value = "") const;
  void SaveSetting(std::string_view key, std::string_view value);

  /// Whether the first run is behind us: "Hotovo" is not empty.
  bool IsInitialised() const;

  /// Writes the first-run value of every key, "Hotovo" last: where it fails part way, the next
  /// start does it all again.
  void InitialiseFirstRun();

  /// Reads the record from the store. A missing rounding rule becomes "NE".
  void LoadProgramSettings();

  /// Reads the rounding rule of the record anew, and nothing else of it.
  void ReloadRounding();

  const ProgramSettings& record() const { return record_; }
  /// The rounding rule in force: "NE", "halere" or "koruny", or whatever word is stored.
  const std::string& RoundingMode() const { return record_.Zaokrouhlit; }
  Rounding rounding() const { return RoundingOf(RoundingMode()); }

  /// An interest in crowns by the rounding rule (calc/rounding.h). What fails in it is reported,
  /// and the result is 0.
  double ApplyRounding(double total) const;

 private:
  const ui::Platform& platform_;
  ErrorReport& errors_;
  ProgramSettings record_;
};

}  // namespace velta
