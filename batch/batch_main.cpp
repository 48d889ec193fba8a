#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <variant>

#include "batch/batch.h"
#include "batch/input_error.h"
#include "engine/rate_files.h"
#include "values/error.h"
#include "values/file.h"

namespace velta {
namespace {

constexpr int kAllComputed = 0;
constexpr int kSomeNotComputed = 1;
constexpr int kFailed = 2;

int Fail(const std::string& reason) {
  std::fputs(("velta-batch: " + reason + "\n").c_str(), stderr);
  return kFailed;
}

std::string ReadReason(int error) {
  switch (error) {
    case ENOENT:
      return ErrorDescription(ErrorNumber::kFileNotFound);
    case EISDIR:
      return "je to složka, ne soubor";
    case EACCES:
      return ErrorDescription(ErrorNumber::kPermissionDenied);
    default:
      return ErrorDescription(ErrorNumber::kDeviceError);
  }
}

std::string WriteReason(int error) {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
      return "výstup nelze zapsat: na disku není místo";
    case EPIPE:
      return "výstup nelze zapsat: program, který jej četl, skončil dřív";
    default:
      return "výstup nelze zapsat: " + ErrorDescription(ErrorNumber::kDeviceError);
  }
}

/// The folder of the executable, wherever links lead to it.
std::string ProgramFolder() {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? "." : program.parent_path().string();
}

std::size_t ReadFrom(int file, char* to, std::size_t size) {
  for (;;) {
    const ssize_t count = read(file, to, size);
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno != EINTR) throw InputError(0, ReadReason(errno));
  }
}

void WriteOut(std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(STDOUT_FILENO, text.data(), text.size());
    if (count >= 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      throw OutputError(WriteReason(errno));
    }
  }
}

/// A line on the terminal that says how far a long run has come.
class Progress {
 public:
  explicit Progress(int input) : input_(input) {
    struct stat status {};
    if (isatty(STDERR_FILENO) == 0) return;
    shown_from_ = Clock::now() + std::chrono::seconds(1);
    if (fstat(input, &status) == 0 && S_ISREG(status.st_mode)) size_ = status.st_size;
  }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress() {
    if (shown_) std::fputs("\r\x1B[K", stderr);
  }

  void Tell(std::size_t rows) {
    if (Clock::now() < shown_from_) return;
    shown_from_ = Clock::now() + std::chrono::milliseconds(200);
    shown_ = true;
    std::string text = "\r\x1B[Kspočítáno řádků: " + std::to_string(rows);
    if (size_ > 0) {
      const off_t position = lseek(input_, 0, SEEK_CUR);
      text += " (" + std::to_string(position * 100 / size_) + " %)";
    }
    std::fputs(text.c_str(), stderr);
  }

 private:
  using Clock = std::chrono::steady_clock;
  int input_;
  off_t size_ = 0;
  bool shown_ = false;
  Clock::time_point shown_from_ = Clock::time_point::max();
};

BankTables ReadTables(const std::string& folder) {
  for (const char* file : {kCnbFile, kRepoFile}) {
    const std::string path = folder + "/" + file;
    if (!FileExist(path)) throw InputError(0, path + ": tabulka sazeb chybí");
  }
  const auto today = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
  try {
    return ReadBankTables(folder, today, {});
  } catch (const Error& error) {
    throw InputError(0, folder + ": tabulky sazeb nelze přečíst (" +
                            ErrorDescription(error.number()) +
                            "); zkontroluje je velta-check-rates");
  }
}

int Run(const BatchOptions& options) {
  BankTables tables;
  try {
    tables = ReadTables(options.rates_folder.empty() ? ProgramFolder() : options.rates_folder);
  } catch (const InputError& error) {
    return Fail(error.what());
  }
  const std::string name = options.file.empty() ? "standardní vstup" : options.file;
  int input = STDIN_FILENO;
  if (!options.file.empty()) input = open(options.file.c_str(), O_RDONLY | O_CLOEXEC);
  if (input < 0) return Fail(name + ": " + ReadReason(errno));

  try {
    BatchCounts counts;
    {
      Progress progress(input);
      counts = RunBatch(options, tables,
                        {[&](char* to, std::size_t size) { return ReadFrom(input, to, size); },
                         WriteOut, [&](std::size_t rows) { progress.Tell(rows); }});
    }
    // Only now some file systems say that it did not fit.
    if (close(STDOUT_FILENO) != 0) throw OutputError(WriteReason(errno));
    if (counts.errors == 0) return kAllComputed;
    std::fprintf(stderr,
                 "velta-batch: nelze spočítat řádků: %zu z %zu, důvod je ve sloupci chyba\n",
                 counts.errors, counts.rows);
    return kSomeNotComputed;
  } catch (const InputError& error) {
    const std::string line = error.line() == 0 ? "" : ":" + std::to_string(error.line());
    return Fail(name + line + ": " + error.what());
  } catch (const OutputError& error) {
    return Fail(error.what());
  }
}

}  // namespace
}  // namespace velta

int main(int argc, char** argv) {
  // A reader that goes away is then an error of writing, which is told.
  std::signal(SIGPIPE, SIG_IGN);
  try {
    const auto options = velta::ReadOptions(argc, argv, VELTA_VERSION);
    if (const auto* const answer = std::get_if<velta::BatchAnswer>(&options)) {
      if (answer->status == 0) {
        velta::WriteOut(answer->text);
        return 0;
      }
      return velta::Fail(answer->text + "\nVolby programu vypíše velta-batch --help");
    }
    return velta::Run(std::get<velta::BatchOptions>(options));
  } catch (const std::exception& error) {
    return velta::Fail(error.what());
  }
}
