#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ui/platform.h"

/// A whole platform without a screen: every service keeps in memory what the program asked of it,
/// and can be told to fail. Its members are open to whoever plays the user.
namespace velta::ui {

class Control;

/// A loop whose time passes only when somebody runs it, and then as fast as it can.
class MemoryEventLoop final : public EventLoop {
 public:
  using EventLoop::After;
  /// No box stays open here, so none is waited for.
  Ticket After(std::chrono::milliseconds delay, InBoxes in_boxes,
               std::function<void()> callback) override;
  void Cancel(Ticket ticket) override;
  void Quit() override { quit = true; }

  /// Runs the callbacks that are due now or on the next turn, also those that they ask for, until
  /// only later ones are left.
  void RunUntilIdle();
  /// Runs the next callback that is due; false where none is.
  bool RunNext() { return RunNext(now_); }
  /// Lets that much time pass, running what falls due.
  void Advance(std::chrono::milliseconds time);

  bool quit = false;

 private:
  bool RunNext(std::chrono::milliseconds until);

  std::chrono::milliseconds now_{0};
  Ticket last_ticket_ = 0;
  std::map<std::pair<std::chrono::milliseconds, Ticket>, std::function<void()>> due_;
};

/// Answers every box with OK and remembers it.
class MemoryMessageBox final : public MessageBox {
 public:
  struct Shown {
    Icon icon;
    std::string caption;
    std::string text;
    friend bool operator==(const Shown&, const Shown&) = default;
  };
  void Show(Icon icon, std::string_view caption, std::string_view text) override;

  std::vector<Shown> shown;
  std::function<void(const Shown&)> on_show;  ///< what happens while the box is open; may be empty
};

class MemoryClipboard final : public Clipboard {
 public:
  bool SetText(std::string_view new_text) override;

  std::string text;
  bool fails = false;
};

class MemorySettingsStore final : public SettingsStore {
 public:
  struct Value {
    std::string application;
    std::string section;
    std::string key;
    std::string value;
    friend bool operator==(const Value&, const Value&) = default;
  };
  bool Read(std::string_view application, std::string_view section, std::string_view key,
            std::optional<std::string>& value) override;
  bool Write(std::string_view application, std::string_view section, std::string_view key,
             std::string_view value) override;

  std::vector<Value> values;  ///< in the order of their first writing
  int writes = 0;             ///< successful ones
  bool fails = false;
  int writes_before_failure = -1;  ///< so many writes succeed, then all fail; -1: no such limit
};

class MemoryLauncher final : public Launcher {
 public:
  bool Start(std::string_view program) override;

  std::vector<std::string> started;
  bool fails = false;
};

class MemoryOpener final : public Opener {
 public:
  bool Open(std::string_view address) override;

  std::vector<std::string> opened;
  bool fails = false;
};

/// Answers every print dialog in the same way and keeps what is printed.
class MemoryPrinter final : public Printer {
 public:
  struct Printed {
    PrintedDocument document;
    int copies = 0;
  };
  std::unique_ptr<PrintJob> AskUser(const std::string& document_name) override;
  std::unique_ptr<PrintJob> Default(const std::string& document_name) override;

  std::optional<int> answer = 1;   ///< the copies that the user chooses; nullopt: he cancels
  std::vector<std::string> asked;  ///< the documents for which the dialog was shown
  std::vector<Printed> printed;
  std::optional<PrintedCode> last_code;  ///< of the document that was printed last
  std::string file;                      ///< that is written in place of a printer
  bool has_default = true;
  bool fails = false;
};

/// Looks for no file: it records what it was asked to show.
class MemoryHelpViewer final : public HelpViewer {
 public:
  struct Opened {
    std::string file;
    std::optional<int> topic;  ///< nullopt: the contents
  };
  bool OpenContents(std::string_view file) override;
  bool OpenTopic(std::string_view file, int topic) override;
  void CloseAll() override;

  std::vector<Opened> opened;
  int times_closed = 0;
  bool close_throws = false;
  bool fails = false;
};

class MemoryUserName final : public UserName {
 public:
  std::optional<std::string> Get() const override { return name; }

  std::optional<std::string> name = "Novák";
};

class MemoryClock final : public Clock {
 public:
  Moment Now() const override { return now; }

  Moment now{std::chrono::sys_days(std::chrono::year{2026} / 11 / 21), std::chrono::hours(12)};
};

class MemoryProgramFolder final : public ProgramFolder {
 public:
  std::string Path() const override { return path; }
  std::string Separator() const override { return separator; }
  std::string ExecutableName() const override { return executable_name; }

  std::string path;
  std::string separator = "/";
  std::string executable_name = "velta";
};

/// Views that nobody looks at; the models are the whole truth. It knows where the keyboard is, and
/// as on a screen a date is left when the keyboard goes elsewhere.
class MemoryWindowSystem final : public WindowSystem {
 public:
  std::unique_ptr<WindowView> CreateView(Window& window) override;

  /// A button that the mouse presses takes the keyboard, but leaves no date.
  bool button_goes_down = false;

 private:
  class View;
  void FollowKeyboard();

  const Window* active_ = nullptr;
  Control* keyboard_ = nullptr;  // the control that has it
};

struct MemoryPlatform {
  MemoryMessageBox message_box;
  MemoryClipboard clipboard;
  MemorySettingsStore settings_store;
  MemoryLauncher launcher;
  MemoryOpener opener;
  MemoryPrinter printer;
  MemoryHelpViewer help_viewer;
  MemoryUserName user_name;
  MemoryClock clock;
  MemoryEventLoop event_loop;
  MemoryProgramFolder program_folder;
  MemoryWindowSystem window_system;
  LocaleFormat locale;

  Platform platform() { return platform(window_system); }
  /// The same with windows of another kind.
  Platform platform(WindowSystem& windows) {
    return {message_box, clipboard, settings_store, launcher,       opener,  printer, help_viewer,
            user_name,   clock,     event_loop,     program_folder, windows, locale};
  }
};

}  // namespace velta::ui
