#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ui/memory/memory_platform.h"

namespace velta::scenario {

/// The user's other programs: what the program hands to them is noted in one list, in order.
class OtherPrograms final : public ui::Launcher, public ui::Opener, public ui::HelpViewer {
 public:
  bool Start(std::string_view program) override {
    return Note(launcher_fails, "launch " + std::string(program));
  }
  bool Open(std::string_view address) override {
    return Note(opener_fails, "open " + std::string(address));
  }
  bool OpenContents(std::string_view file) override {
    return Note(help_fails, "help " + FileName(file) + " contents");
  }
  bool OpenTopic(std::string_view file, int topic) override {
    return Note(help_fails, "help " + FileName(file) + " topic " + std::to_string(topic));
  }
  void CloseAll() override {}

  bool launcher_fails = false;
  bool opener_fails = false;
  bool help_fails = false;
  std::vector<std::string> opened;

 private:
  bool Note(bool fails, std::string line) {
    if (!fails) opened.push_back(std::move(line));
    return !fails;
  }
  static std::string FileName(std::string_view file) {
    return std::string(file.substr(file.find_last_of("/\\") + 1));
  }
};

/// What surrounds the program and is the same on every platform: it lives as long as the scenario
/// and outlasts the runs of the program in it.
struct World {
  ui::MemorySettingsStore settings_store;
  OtherPrograms other_programs;
  ui::MemoryPrinter printer;
  ui::MemoryUserName user_name;
  ui::MemoryClock clock;
  ui::MemoryProgramFolder program_folder;
  LocaleFormat locale;       ///< of the running program
  LocaleFormat next_locale;  ///< of the program that is started next
};

}  // namespace velta::scenario
