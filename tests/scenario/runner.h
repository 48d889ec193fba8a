#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>

#include "shell/velta.h"
#include "tests/scenario/driver.h"
#include "tests/scenario/script.h"
#include "tests/scenario/world.h"

namespace velta::scenario {

/// How a transcript shows a text of several lines.
enum class LongTexts {
  kOnOneLine,
  /// Each line quoted on a line of its own, with its line end, below what the text belongs to; put
  /// together they are the text again:
  ///
  ///     frmJednotlivy.txtReport.text =
  ///         "Podklady pro výpočet úroku z prodlení\r\n"
  ///         "\tDlužná částka:\t10 000,00 Kč"
  kLineByLine,
};

/// Plays one scenario: does on the driver what its lines say and writes what the program answers.
class Runner {
 public:
  /// `folder` is where the scenario lies; relative program folders start there.
  Runner(World& world, Driver& driver, std::ostream& transcript, std::string folder,
         LongTexts long_texts = LongTexts::kOnOneLine);
  ~Runner();
  Runner(const Runner&) = delete;
  Runner& operator=(const Runner&) = delete;

  /// Returns whether every expectation held.
  bool Play(const Script& script);

 private:
  void Do(const Command& command);

  void Store(const std::string& key, const std::string& text);
  void SetServiceFails(const std::string& service, bool fails);
  void Start();

  /// Does to the control, which is a C, what the command says. `deed` returns false where the user
  /// could not do it, which the transcript then tells.
  template <class C, class Deed>
  void Act(const Command& command, const Deed& deed);
  template <class Deed>
  void ActOnWindow(const Command& command, const Deed& deed);
  void EndAct(const Command& command, bool done);
  bool Pick(ui::Control& control, int row);

  void WriteValue(const Command& command, const std::string& name, const Value& value);
  /// Writes a line that ends with the value.
  void WriteLine(const std::string& heading, const Value& value);
  bool IsShownInLines(std::string_view text) const;
  void WriteItems(const Property& property);
  void WritePrinted(const ui::MemoryPrinter::Printed& printed);
  Value GetValue(const Property& property);
  Value GetState(const std::string& name) const;

  Form* FindWindow(const Place& place) const;
  ui::Control* FindControl(const Place& place) const;

  World& world_;
  Driver& driver_;
  std::ostream& transcript_;
  std::string folder_;
  LongTexts long_texts_;
  ui::Platform platform_;
  std::unique_ptr<Velta> velta_;  // null until the first start
  bool waits_ = true;
  bool all_held_ = true;
};

}  // namespace velta::scenario
