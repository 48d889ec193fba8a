#include "tests/scenario/runner.h"

#include <filesystem>
#include <ostream>
#include <utility>

#include "tests/scenario/state.h"
#include "tests/support/english_locale.h"

namespace velta::scenario {

namespace {

// The version that the scenarios see, whatever that of the build is; the start-up window holds
// nobody up.
constexpr ProgramInfo kInfo{1, 0, 0, std::chrono::milliseconds(0)};

// Where the program keeps its settings.
constexpr const char* kSection = "Settings";

}  // namespace

Runner::Runner(World& world, Driver& driver, std::ostream& transcript, std::string folder)
    : world_(world),
      driver_(driver),
      transcript_(transcript),
      folder_(std::move(folder)),
      platform_{driver.message_box(),  driver.clipboard(),    world_.settings_store,
                world_.other_programs, world_.other_programs, world_.printer,
                world_.other_programs, world_.user_name,      world_.clock,
                driver.event_loop(),   world_.program_folder, driver.window_system(),
                world_.locale} {
  driver_.on_message = [this](ui::Icon icon, const std::string& caption, const std::string& text) {
    transcript_ << "message " << (icon == ui::Icon::kCritical ? "critical" : "information") << ' '
                << Quote(caption) << ' ' << Quote(text) << '\n';
  };
}

Runner::~Runner() {
  driver_.SetProgram(nullptr);
  driver_.on_message = nullptr;
}

bool Runner::Play(const Script& script) {
  for (const Command& command : script.commands) Do(command);
  return all_held_;
}

void Runner::Do(const Command& command) {
  switch (command.verb) {
    case Verb::kLocale:
    case Verb::kToday:
    case Verb::kUser:
    case Verb::kData:
    case Verb::kStore:
    case Verb::kPrintDialog:
    case Verb::kFail:
    case Verb::kMend:
      ChangeWorld(command);
      break;
    case Verb::kStart:
      Start();
      break;
    case Verb::kWaitManual:
      waits_ = false;
      break;
    case Verb::kWaitAuto:
      waits_ = true;
      [[fallthrough]];
    case Verb::kWait:
      driver_.Settle();
      break;
    case Verb::kMenu:
    case Verb::kClick:
    case Verb::kType:
    case Verb::kSet:
    case Verb::kDate:
    case Verb::kPick:
    case Verb::kFocus:
    case Verb::kHover:
    case Verb::kClose:
      if (!Act(command)) transcript_ << "ignored " << command.source << '\n';
      if (waits_) driver_.Settle();
      break;
    case Verb::kGet:
    case Verb::kState:
    case Verb::kLoaded:
    case Verb::kHint:
    case Verb::kClipboard:
    case Verb::kPrinted:
    case Verb::kPaycode:
    case Verb::kOpened:
    case Verb::kStored:
      Read(command);
      break;
  }
}

void Runner::ChangeWorld(const Command& command) {
  switch (command.verb) {
    case Verb::kLocale:
      world_.next_locale = command.text == "en" ? EnglishLocale() : LocaleFormat();
      break;
    case Verb::kToday:
      world_.clock.now = {command.day, command.time};
      break;
    case Verb::kUser:
      world_.user_name.name = command.has_text ? std::optional(command.text) : std::nullopt;
      break;
    case Verb::kData:
      world_.program_folder.path = (std::filesystem::path(folder_) / command.text).string();
      break;
    case Verb::kStore: {
      const bool failed = std::exchange(world_.settings_store.fails, false);
      static_cast<void>(world_.settings_store.Write(world_.program_folder.executable_name, kSection,
                                                    command.key, command.text));
      world_.settings_store.fails = failed;
      break;
    }
    case Verb::kFail:
    case Verb::kMend:
      SetServiceFails(command.text, command.verb == Verb::kFail);
      break;
    default:
      world_.printer.answer = command.number > 0 ? std::optional(command.number) : std::nullopt;
      break;
  }
}

void Runner::SetServiceFails(const std::string& service, bool fails) {
  if (service == "printer") world_.printer.fails = fails;
  if (service == "clipboard") driver_.SetClipboardFails(fails);
  if (service == "store") world_.settings_store.fails = fails;
  if (service == "launcher") world_.other_programs.launcher_fails = fails;
  if (service == "open") world_.other_programs.opener_fails = fails;
  if (service == "help") world_.other_programs.help_fails = fails;
}

void Runner::Start() {
  driver_.SetProgram(nullptr);
  velta_.reset();
  world_.locale = world_.next_locale;
  velta_ = std::make_unique<Velta>(platform_, kInfo);
  driver_.SetProgram(&velta_->program());
  velta_->Start();
  driver_.Settle();
}

Form* Runner::FindWindow(const Place& place) const {
  return velta_ ? velta_->program().windows.Find(place.window) : nullptr;
}

ui::Control* Runner::FindControl(const Place& place) const {
  const Form* window = FindWindow(place);
  return window == nullptr ? nullptr : window->Find(place.control);
}

bool Runner::Act(const Command& command) {
  if (command.place.control.empty()) {
    Form* const window = FindWindow(command.place);
    if (window == nullptr) return false;
    if (command.verb == Verb::kHover) {
      driver_.Hover(*window);
    } else {
      driver_.Close(*window);
    }
    return true;
  }
  ui::Control* const control = FindControl(command.place);
  if (control == nullptr) return false;
  // The script has been checked: the casts fit the verbs.
  switch (command.verb) {
    case Verb::kMenu:
      return driver_.Choose(dynamic_cast<ui::MenuItem&>(*control));
    case Verb::kClick:
      return driver_.Click(dynamic_cast<ui::Button&>(*control));
    case Verb::kType:
      return driver_.Type(*control, command.text);
    case Verb::kSet:
      return driver_.Paste(*control, command.text);
    case Verb::kDate:
      return driver_.PickDay(dynamic_cast<ui::DatePicker&>(*control), command.day);
    case Verb::kPick:
      if (auto* option = dynamic_cast<ui::OptionButton*>(control)) return driver_.Pick(*option);
      return driver_.Pick(dynamic_cast<ui::ListControl&>(*control), command.number);
    case Verb::kFocus:
      return driver_.Focus(*control);
    default:
      return driver_.Hover(*control);
  }
}

void Runner::Read(const Command& command) {
  switch (command.verb) {
    case Verb::kGet:
      if (command.property.name == "items" && FindControl(command.property.place) != nullptr) {
        ReadItems(command.property);
      } else {
        WriteValue(command, command.property.Text(), GetValue(command.property));
      }
      break;
    case Verb::kState:
      WriteValue(command, command.text,
                 velta_ ? ReadState(command.text, velta_->program().state,
                                    velta_->settings().RoundingMode())
                        : ReadState(command.text, CalculationState(), ""));
      break;
    case Verb::kLoaded:
      WriteValue(command, command.place.window + ".loaded",
                 Value::Truth(FindWindow(command.place) != nullptr));
      break;
    case Verb::kHint:
      WriteValue(command, "hint", GetValue({{"frmMenu", "lblMSG"}, "caption"}));
      break;
    case Verb::kClipboard:
      WriteValue(command, "clipboard", Value::Text(driver_.ClipboardText()));
      break;
    case Verb::kPaycode: {
      const auto& code = world_.printer.last_code;
      WriteValue(command, "paycode", code ? Value::Text(code->payload) : Value::Bare("none"));
      break;
    }
    case Verb::kOpened:
      for (const std::string& line : std::exchange(world_.other_programs.opened, {})) {
        transcript_ << line << '\n';
      }
      break;
    case Verb::kStored:
      for (const ui::MemorySettingsStore::Value& entry : world_.settings_store.values) {
        transcript_ << "  " << entry.key << '=' << Quote(entry.value) << '\n';
      }
      break;
    default:
      for (const auto& printed : std::exchange(world_.printer.printed, {})) WritePrinted(printed);
      break;
  }
}

void Runner::WritePrinted(const ui::MemoryPrinter::Printed& printed) {
  const ui::PrintedDocument& document = printed.document;
  transcript_ << "document " << document.font << ' ' << document.point_size << " copies "
              << printed.copies << '\n';
  for (const ui::PrintedLine& line : document.lines) {
    const std::string text = line.text.substr(0, line.text.find_last_not_of(' ') + 1);
    transcript_ << (line.bold ? "  *" : "  |") << text << '\n';
  }
}

void Runner::ReadItems(const Property& property) {
  Property row = property;
  row.name = "count";
  const Value count = GetValue(row);
  transcript_ << property.Text() << " = " << count.Shown() << '\n';
  row.name = "item";
  for (const int last = std::stoi(count.plain()); row.index < last; ++row.index) {
    transcript_ << "  " << GetValue(row).Shown() << '\n';
  }
}

Value Runner::GetValue(const Property& property) {
  Form* const window = FindWindow(property.place);
  if (window == nullptr) return Value::Bare("unloaded");
  if (property.place.control.empty()) return driver_.Get(*window, property);
  return driver_.Get(*window->Find(property.place.control), property);
}

void Runner::WriteValue(const Command& command, const std::string& name, const Value& value) {
  transcript_ << name << " = " << value.Shown() << '\n';
  if (!command.expects || value.plain() == command.expected) return;
  transcript_ << "FAILED expected " << command.expected_source << '\n';
  all_held_ = false;
}

}  // namespace velta::scenario
