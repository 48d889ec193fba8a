// velta-scenario [--platform memory|qt] [--lines] [FILE...|-]
//
// Plays scenarios and writes their transcripts, with --lines for people to read: a text of several
// lines takes several lines. Exit status: 0 when every expectation holds, 1 when one does not, 2
// for a bad line or a wrong call.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "tests/scenario/program_names.h"
#include "tests/scenario/qt_driver.h"
#include "tests/scenario/runner.h"

namespace velta::scenario {

namespace {

enum ExitStatus { kHeld = 0, kFailed = 1, kBad = 2 };

struct Call {
  std::string platform = "memory";
  LongTexts long_texts = LongTexts::kOnOneLine;
  std::vector<std::string> files;
  bool wrong = false;
};

Call ParseCall(const std::vector<std::string>& arguments) {
  Call call;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i] == "--platform" && i + 1 < arguments.size()) {
      call.platform = arguments[++i];
    } else if (arguments[i] == "--lines") {
      call.long_texts = LongTexts::kLineByLine;
    } else if (arguments[i].size() > 1 && arguments[i].front() == '-') {
      call.wrong = true;
    } else {
      call.files.push_back(arguments[i]);
    }
  }
  if (call.platform != "memory" && call.platform != "qt") call.wrong = true;
  if (call.files.empty()) call.files.emplace_back("-");
  return call;
}

ExitStatus PlayFile(const std::string& file, const Call& call, const Names& names) {
  std::ifstream from_file;
  if (file != "-") {
    from_file.open(file);
    if (!from_file || std::filesystem::is_directory(file)) {
      std::cerr << file << ": cannot be read\n";
      return kBad;
    }
  }
  const Script script = ParseScript(file == "-" ? std::cin : from_file, names);
  for (const BadLine& bad : script.bad_lines) {
    std::cerr << file << ':' << bad.number << ": " << bad.reason << '\n';
  }
  if (!script.bad_lines.empty()) return kBad;
  if (call.files.size() > 1) std::cout << "== " << file << '\n';
  World world;
  world.program_folder.path = VELTA_DATA_DIR;
  const std::unique_ptr<Driver> driver =
      call.platform == "qt" ? MakeQtDriver(world.locale) : MakeMemoryDriver();
  Runner runner(world, *driver, std::cout, std::filesystem::path(file).parent_path().string(),
                call.long_texts);
  return runner.Play(script) ? kHeld : kFailed;
}

int Main(int argc, char** argv) {
  const Call call = ParseCall(std::vector<std::string>(argv + 1, argv + argc));
  if (call.wrong) {
    std::cerr << "usage: velta-scenario [--platform memory|qt] [--lines] [FILE...|-]\n";
    return kBad;
  }
  const Names names = ProgramNames();
  const auto play_all = [&] {
    ExitStatus status = kHeld;
    for (const std::string& file : call.files) {
      status = std::max(status, PlayFile(file, call, names));
    }
    return status;
  };
  return call.platform == "qt" ? WithQt(argv, play_all) : play_all();
}

}  // namespace

}  // namespace velta::scenario

int main(int argc, char** argv) { return velta::scenario::Main(argc, argv); }
