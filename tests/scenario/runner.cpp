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

Runner::Runner(World& world, Driver& driver, std::ostream& transcript, std::string folder,
               LongTexts long_texts)
    : world_(world),
      driver_(driver),
      transcript_(transcript),
      folder_(std::move(folder)),
      long_texts_(long_texts),
      platform_{driver.message_box(),  driver.clipboard(),    world_.settings_store,
                world_.other_programs, world_.other_programs, world_.printer,
                world_.other_programs, world_.user_name,      world_.clock,
                driver.event_loop(),   world_.program_folder, driver.window_system(),
                world_.locale} {
  driver_.on_message = [this](ui::Icon icon, const std::string& caption, const std::string& text) {
    const std::string kind = icon == ui::Icon::kCritical ? "critical" : "information";
    WriteLine("message " + kind + " " + Quote(caption) + " ", Value::Text(text));
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

template <class C, class Deed>
void Runner::Act(const Command& command, const Deed& deed) {
  ui::Control* const control = FindControl(command.place);
  // The script has been checked: the cast fits the verb.
  EndAct(command, control != nullptr && deed(dynamic_cast<C&>(*control)));
}

template <class Deed>
void Runner::ActOnWindow(const Command& command, const Deed& deed) {
  Form* const window = FindWindow(command.place);
  if (window != nullptr) deed(*window);
  EndAct(command, window != nullptr);
}

void Runner::Do(const Command& command) {
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
    case Verb::kStore:
      Store(command.key, command.text);
      break;
    case Verb::kPrintDialog:
      world_.printer.answer = command.number > 0 ? std::optional(command.number) : std::nullopt;
      break;
    case Verb::kFail:
      SetServiceFails(command.text, true);
      break;
    case Verb::kMend:
      SetServiceFails(command.text, false);
      break;

    case Verb::kStart:
      Start();
      break;
    case Verb::kWaitManual:
      waits_ = false;
      break;
    case Verb::kWaitAuto:
      waits_ = true;
      driver_.Settle();
      break;
    case Verb::kWait:
      driver_.Settle();
      break;
    case Verb::kMenu:
      Act<ui::MenuItem>(command, [&](auto& item) { return driver_.Choose(item); });
      break;
    case Verb::kClick:
      Act<ui::Button>(command, [&](auto& button) { return driver_.Click(button); });
      break;
    case Verb::kType:
      Act<ui::Control>(command, [&](auto& input) { return driver_.Type(input, command.text); });
      break;
    case Verb::kSet:
      Act<ui::Control>(command, [&](auto& input) { return driver_.Paste(input, command.text); });
      break;
    case Verb::kDate:
      Act<ui::DatePicker>(command, [&](auto& date) { return driver_.PickDay(date, command.day); });
      break;
    case Verb::kTypeDate:
      Act<ui::DatePicker>(command,
                          [&](auto& date) { return driver_.TypeDate(date, command.text); });
      break;
    case Verb::kPick:
      Act<ui::Control>(command, [&](auto& control) { return Pick(control, command.number); });
      break;
    case Verb::kFocus:
      Act<ui::Control>(command, [&](auto& control) { return driver_.Focus(control); });
      break;
    case Verb::kHover:
      if (command.place.control.empty()) {
        ActOnWindow(command, [&](auto& window) { driver_.Hover(window); });
      } else {
        Act<ui::Control>(command, [&](auto& control) { return driver_.Hover(control); });
      }
      break;
    case Verb::kClose:
      ActOnWindow(command, [&](auto& window) { driver_.Close(window); });
      break;

    case Verb::kGet:
      if (command.property.name == "items" && FindControl(command.property.place) != nullptr) {
        WriteItems(command.property);
      } else {
        WriteValue(command, command.property.Text(), GetValue(command.property));
      }
      break;
    case Verb::kState:
      WriteValue(command, command.text, GetState(command.text));
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
    case Verb::kPrinted:
      for (const auto& printed : std::exchange(world_.printer.printed, {})) WritePrinted(printed);
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
  }
}

void Runner::Store(const std::string& key, const std::string& text) {
  const bool failed = std::exchange(world_.settings_store.fails, false);
  static_cast<void>(
      world_.settings_store.Write(world_.program_folder.executable_name, kSection, key, text));
  world_.settings_store.fails = failed;
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

void Runner::EndAct(const Command& command, bool done) {
  if (!done) transcript_ << "ignored " << command.source << '\n';
  if (waits_) driver_.Settle();
}

bool Runner::Pick(ui::Control& control, int row) {
  if (auto* const option = dynamic_cast<ui::OptionButton*>(&control)) return driver_.Pick(*option);
  return driver_.Pick(dynamic_cast<ui::ListControl&>(control), row);
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

void Runner::WriteItems(const Property& property) {
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

Value Runner::GetState(const std::string& name) const {
  if (!velta_) return ReadState(name, CalculationState(), "");
  return ReadState(name, velta_->program().state, velta_->settings().RoundingMode());
}

void Runner::WriteValue(const Command& command, const std::string& name, const Value& value) {
  WriteLine(name + " = ", value);
  if (!command.expects || value.plain() == command.expected) return;
  if (IsShownInLines(command.expected)) {
    WriteLine("FAILED expected ", Value::Text(command.expected));
  } else {
    transcript_ << "FAILED expected " << command.expected_source << '\n';
  }
  all_held_ = false;
}

bool Runner::IsShownInLines(std::string_view text) const {
  return long_texts_ == LongTexts::kLineByLine && Lines(text).size() > 1;
}

void Runner::WriteLine(const std::string& heading, const Value& value) {
  if (IsShownInLines(value.plain())) {
    transcript_ << heading.substr(0, heading.find_last_not_of(' ') + 1);
    for (const std::string_view line : Lines(value.plain())) {
      transcript_ << "\n    " << Quote(line);
    }
  } else {
    transcript_ << heading << value.Shown();
  }
  transcript_ << '\n';
}

}  // namespace velta::scenario
