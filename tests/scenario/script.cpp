#include "tests/scenario/script.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <initializer_list>
#include <optional>
#include <stdexcept>
#include <utility>

#include "tests/scenario/state.h"

namespace velta::scenario {

namespace {

/// Why a line cannot be played.
struct Bad : std::invalid_argument {
  using std::invalid_argument::invalid_argument;
};

std::string Quoted(std::string_view word) { return "'" + std::string(word) + "'"; }

/// Takes what stands before the first `separator` off the front of `rest`.
std::string_view TakeUntil(std::string_view& rest, std::string_view separator) {
  const std::size_t at = rest.find(separator);
  const std::string_view head = rest.substr(0, at);
  rest = at == std::string_view::npos ? std::string_view() : rest.substr(at + separator.size());
  return head;
}

/// A whole number without sign.
std::optional<int> WholeNumber(std::string_view text) {
  int value = 0;
  if (text.empty() || text.front() == '-') return std::nullopt;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

int ParseIndex(std::string_view text) {
  const std::optional<int> index = WholeNumber(text);
  if (!index) throw Bad(Quoted(text) + " is no index");
  return *index;
}

std::chrono::sys_days ParseDay(std::string_view text) {
  std::string_view rest = text;
  const std::optional<int> day = WholeNumber(TakeUntil(rest, "."));
  const std::optional<int> month = WholeNumber(TakeUntil(rest, "."));
  const std::optional<int> year = WholeNumber(rest);
  if (day && month && year) {
    const std::chrono::year_month_day date(std::chrono::year{*year},
                                           std::chrono::month{static_cast<unsigned>(*month)},
                                           std::chrono::day{static_cast<unsigned>(*day)});
    if (*day <= 31 && *month <= 12 && rest.size() == 4 && date.ok()) return date;
  }
  throw Bad(Quoted(text) + " is no date D.M.YYYY");
}

std::chrono::minutes ParseTime(std::string_view text) {
  std::string_view rest = text;
  const std::optional<int> hours = WholeNumber(TakeUntil(rest, ":"));
  const std::optional<int> minutes = WholeNumber(rest);
  if (!hours || !minutes || *hours > 23 || *minutes > 59 || rest.size() != 2) {
    throw Bad(Quoted(text) + " is no time H:MM");
  }
  return std::chrono::hours(*hours) + std::chrono::minutes(*minutes);
}

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

/// The property that is meant where none is named.
std::string MainProperty(Kind kind) {
  switch (kind) {
    case Kind::kTextBox:
      return "text";
    case Kind::kDropDown:
    case Kind::kEditableDropDown:
    case Kind::kListBox:
      return "index";
    case Kind::kDatePicker:
      return "date";
    case Kind::kOptionButton:
      return "value";
    case Kind::kTimer:
      return "enabled";
    case Kind::kButton:
    case Kind::kFrame:
    case Kind::kLabel:
    case Kind::kMenuItem:
      break;
  }
  return "caption";
}

bool HasProperty(Kind kind, std::string_view name) {
  if (name == MainProperty(kind) || name == "enabled") return true;
  if (kind == Kind::kTimer) return false;
  if (IsOneOf(name, {"visible", "focused", "tooltip", "background"})) return true;
  switch (kind) {
    case Kind::kDropDown:
    case Kind::kEditableDropDown:
      return IsOneOf(name, {"text", "count", "item", "items"});
    case Kind::kListBox:
      return IsOneOf(name, {"count", "item", "items"});
    case Kind::kOptionButton:
      return name == "caption";
    case Kind::kTextBox:
      return name == "placeholder";
    case Kind::kDatePicker:
      return name == "text";
    case Kind::kButton:
    case Kind::kFrame:
    case Kind::kLabel:
    case Kind::kMenuItem:
    case Kind::kTimer:
      break;
  }
  return false;
}

class Parser {
 public:
  explicit Parser(const Names& names) : names_(names) {}

  Command Parse(std::string_view line) const {
    Command command;
    std::string_view rest = line;
    if (line.substr(0, 7) == "expect ") {
      rest.remove_prefix(7);
      ParseExpectation(rest, command);
    }
    ParseAction(rest, command);
    if (command.expects && !GivesOneValue(command)) throw Bad("expect needs a line with one value");
    command.source = line;
    return command;
  }

 private:
  static void ParseExpectation(std::string_view& rest, Command& command) {
    command.expects = true;
    // The blank at the end of " = " is gone where nothing is expected.
    const bool nothing = rest.size() >= 2 && rest.substr(rest.size() - 2) == " =" &&
                         rest.find(" = ") == std::string_view::npos;
    const std::size_t at = nothing ? rest.size() - 2 : rest.find(" = ");
    if (at == std::string_view::npos) throw Bad("expect needs ' = ' and the value");
    if (!nothing) command.expected_source = rest.substr(at + 3);
    command.expected = Unescape(command.expected_source);
    rest = rest.substr(0, at);
  }

  static bool GivesOneValue(const Command& command) {
    switch (command.verb) {
      case Verb::kGet:
        return command.property.name != "items";
      case Verb::kState:
      case Verb::kLoaded:
      case Verb::kHint:
      case Verb::kClipboard:
      case Verb::kPaycode:
        return true;
      case Verb::kLocale:
      case Verb::kToday:
      case Verb::kUser:
      case Verb::kData:
      case Verb::kStore:
      case Verb::kStart:
      case Verb::kMenu:
      case Verb::kClick:
      case Verb::kType:
      case Verb::kSet:
      case Verb::kDate:
      case Verb::kTypeDate:
      case Verb::kPick:
      case Verb::kFocus:
      case Verb::kHover:
      case Verb::kClose:
      case Verb::kPrintDialog:
      case Verb::kFail:
      case Verb::kMend:
      case Verb::kWait:
      case Verb::kWaitManual:
      case Verb::kWaitAuto:
      case Verb::kPrinted:
      case Verb::kOpened:
      case Verb::kStored:
        break;
    }
    return false;
  }

  void ParseAction(std::string_view line, Command& command) const {
    std::string_view rest = line;
    const std::string_view word = TakeUntil(rest, " ");
    const bool bare = word.size() == line.size();
    static const std::map<std::string_view, void (Parser::*)(std::string_view, Command&) const>
        kWithArguments = {
            {"locale", &Parser::Locale},
            {"today", &Parser::Today},
            {"user", &Parser::User},
            {"data", &Parser::Data},
            {"store", &Parser::Store},
            {"menu", &Parser::Menu},
            {"click", &Parser::Click},
            {"type", &Parser::Type},
            {"set", &Parser::Set},
            {"date", &Parser::Date},
            {"typedate", &Parser::TypeDate},
            {"pick", &Parser::Pick},
            {"focus", &Parser::Focus},
            {"hover", &Parser::Hover},
            {"close", &Parser::Close},
            {"fail", &Parser::Fail},
            {"mend", &Parser::Mend},
            {"wait", &Parser::Wait},
            {"printdialog", &Parser::PrintDialog},
            {"get", &Parser::Get},
            {"state", &Parser::State},
            {"loaded", &Parser::Loaded},
        };
    static const std::map<std::string_view, Verb> kAlone = {
        {"start", Verb::kStart},   {"wait", Verb::kWait},           {"user", Verb::kUser},
        {"hint", Verb::kHint},     {"clipboard", Verb::kClipboard}, {"printed", Verb::kPrinted},
        {"opened", Verb::kOpened}, {"stored", Verb::kStored},       {"paycode", Verb::kPaycode},
    };
    const auto alone = kAlone.find(word);
    if (bare && alone != kAlone.end()) {
      command.verb = alone->second;
      return;
    }
    const auto with_arguments = kWithArguments.find(word);
    if (with_arguments != kWithArguments.end()) {
      if (bare) throw Bad(std::string(word) + " needs an argument");
      (this->*with_arguments->second)(rest, command);
      return;
    }
    if (alone != kAlone.end()) throw Bad(std::string(word) + " takes no argument");
    throw Bad("unknown command " + Quoted(word));
  }

  // The world.

  void Locale(std::string_view rest, Command& command) const {
    if (!IsOneOf(rest, {"cs", "en"})) throw Bad("unknown locale " + Quoted(rest));
    command.verb = Verb::kLocale;
    command.text = rest;
  }

  void Today(std::string_view rest, Command& command) const {
    command.verb = Verb::kToday;
    const bool has_time = rest.find(' ') != std::string_view::npos;
    command.day = ParseDay(TakeUntil(rest, " "));
    command.time = has_time ? ParseTime(rest) : std::chrono::hours(12);
  }

  void User(std::string_view rest, Command& command) const {
    command.verb = Verb::kUser;
    command.text = rest;
    command.has_text = true;
  }

  void Data(std::string_view rest, Command& command) const {
    command.verb = Verb::kData;
    command.text = rest;
  }

  void Store(std::string_view rest, Command& command) const {
    if (rest.find('=') == std::string_view::npos || rest.front() == '=') {
      throw Bad("store needs KEY=TEXT");
    }
    command.verb = Verb::kStore;
    command.key = TakeUntil(rest, "=");
    command.text = Unescape(rest);
  }

  // What the user does.

  void Menu(std::string_view rest, Command& command) const {
    command.verb = Verb::kMenu;
    command.place = {"frmMenu", std::string(rest)};
    if (KindOf(command.place) != Kind::kMenuItem) throw Bad(Quoted(rest) + " is no menu item");
  }

  void Click(std::string_view rest, Command& command) const {
    command.verb = Verb::kClick;
    command.place = ParseControl(rest);
    Require(command.place, {Kind::kButton, Kind::kOptionButton}, "is no button");
    if (KindOf(command.place) == Kind::kOptionButton) command.verb = Verb::kPick;
  }

  void Type(std::string_view rest, Command& command) const {
    command.verb = Verb::kType;
    ParseTextFor(rest, command);
    if (command.text.find('\n') != std::string::npos) throw Bad("no key types a line feed");
  }

  void Set(std::string_view rest, Command& command) const {
    command.verb = Verb::kSet;
    ParseTextFor(rest, command);
  }

  void Date(std::string_view rest, Command& command) const {
    command.verb = Verb::kDate;
    command.place = ParseControl(TakeUntil(rest, " "));
    Require(command.place, {Kind::kDatePicker}, "is no date picker");
    command.day = ParseDay(rest);
  }

  void TypeDate(std::string_view rest, Command& command) const {
    command.verb = Verb::kTypeDate;
    command.place = ParseControl(TakeUntil(rest, " "));
    Require(command.place, {Kind::kDatePicker}, "is no date picker");
    command.text = Unescape(rest);
    const std::size_t other_key = command.text.find_first_of("\t\n\r");
    if (other_key != std::string::npos &&
        (command.text[other_key] != '\r' || other_key + 1 != command.text.size())) {
      throw Bad("a date is typed without leaving the field; Enter may end it");
    }
  }

  void Pick(std::string_view rest, Command& command) const {
    command.verb = Verb::kPick;
    command.place = ParseControl(TakeUntil(rest, " "));
    Require(command.place,
            {Kind::kDropDown, Kind::kEditableDropDown, Kind::kListBox, Kind::kOptionButton},
            "has nothing to pick");
    if (KindOf(command.place) != Kind::kOptionButton) {
      command.number = ParseIndex(rest);
    } else if (!rest.empty()) {
      throw Bad("an option has no rows");
    }
  }

  void Focus(std::string_view rest, Command& command) const {
    command.verb = Verb::kFocus;
    command.place = ParseControl(rest);
    if (KindOf(command.place) == Kind::kTimer) throw Bad(Quoted(rest) + " is a timer");
  }

  void Hover(std::string_view rest, Command& command) const {
    command.verb = Verb::kHover;
    command.place = ParsePlace(rest);
    if (!command.place.control.empty() && KindOf(command.place) == Kind::kTimer) {
      throw Bad(Quoted(rest) + " is a timer");
    }
  }

  void Close(std::string_view rest, Command& command) const {
    command.verb = Verb::kClose;
    command.place = ParseWindow(rest);
  }

  void PrintDialog(std::string_view rest, Command& command) const {
    command.verb = Verb::kPrintDialog;
    if (rest == "cancel") return;  // no copies
    if (TakeUntil(rest, " ") != "copies") throw Bad("printdialog is 'copies N' or 'cancel'");
    command.number = ParseIndex(rest);
    if (command.number == 0) throw Bad("a document has one copy at least");
  }

  void Fail(std::string_view rest, Command& command) const {
    if (!IsOneOf(rest, {"printer", "clipboard", "store", "launcher", "open", "help"})) {
      throw Bad("unknown service " + Quoted(rest));
    }
    command.verb = Verb::kFail;
    command.text = rest;
  }

  void Mend(std::string_view rest, Command& command) const {
    Fail(rest, command);
    command.verb = Verb::kMend;
  }

  void Wait(std::string_view rest, Command& command) const {
    if (!IsOneOf(rest, {"manual", "auto"})) throw Bad("wait is alone, 'manual' or 'auto'");
    command.verb = rest == "manual" ? Verb::kWaitManual : Verb::kWaitAuto;
  }

  // What is read.

  void Get(std::string_view rest, Command& command) const {
    command.verb = Verb::kGet;
    command.property = ParseProperty(rest);
  }

  void State(std::string_view rest, Command& command) const {
    if (!IsStateName(rest)) throw Bad("unknown value " + Quoted(rest));
    command.verb = Verb::kState;
    command.text = rest;
  }

  void Loaded(std::string_view rest, Command& command) const {
    command.verb = Verb::kLoaded;
    command.place = ParseWindow(rest);
  }

  // Their parts.

  Kind KindOf(const Place& place) const {
    const auto window = names_.find(place.window);
    if (window == names_.end()) throw Bad("unknown window " + Quoted(place.window));
    const auto control = window->second.find(place.control);
    if (control == window->second.end()) {
      throw Bad("unknown control " + Quoted(place.window + "." + place.control));
    }
    return control->second;
  }

  void Require(const Place& place, std::initializer_list<Kind> kinds, const char* otherwise) const {
    if (std::find(kinds.begin(), kinds.end(), KindOf(place)) == kinds.end()) {
      throw Bad(Quoted(place.window + "." + place.control) + " " + otherwise);
    }
  }

  Place ParseWindow(std::string_view text) const {
    if (names_.count(std::string(text)) == 0) throw Bad("unknown window " + Quoted(text));
    return {std::string(text), ""};
  }

  Place ParsePlace(std::string_view text) const {
    return text.find('.') == std::string_view::npos ? ParseWindow(text) : ParseControl(text);
  }

  Place ParseControl(std::string_view text) const {
    std::string_view rest = text;
    Place place;
    place.window = TakeUntil(rest, ".");
    place.control = rest;
    KindOf(place);
    return place;
  }

  void ParseTextFor(std::string_view rest, Command& command) const {
    command.place = ParseControl(TakeUntil(rest, " "));
    Require(command.place, {Kind::kTextBox, Kind::kEditableDropDown}, "takes no text");
    command.text = Unescape(rest);
  }

  Property ParseProperty(std::string_view text) const {
    std::string_view rest = text;
    Property property;
    property.place.window = TakeUntil(rest, ".");
    const auto window = names_.find(property.place.window);
    if (window == names_.end()) throw Bad("unknown window " + Quoted(property.place.window));
    const std::string_view second = rest.substr(0, rest.find('.'));
    const auto control = window->second.find(std::string(second));
    if (control == window->second.end()) return ParseWindowProperty(rest, std::move(property));
    property.place.control = second;
    TakeUntil(rest, ".");
    property.name = rest.empty() ? MainProperty(control->second) : std::string(rest);
    if (property.name.substr(0, 5) == "item(" && property.name.back() == ')') {
      property.index = ParseIndex(rest.substr(5, rest.size() - 6));
      property.name = "item";
    } else if (property.name == "item") {
      throw Bad("item needs an index");
    }
    if (!HasProperty(control->second, property.name) || text.back() == '.') {
      throw Bad(Quoted(text) + " is no property");
    }
    return property;
  }

  static Property ParseWindowProperty(std::string_view name, Property property) {
    if (!IsOneOf(name, {"", "caption", "enabled", "visible", "focused"})) {
      throw Bad("unknown control or property " +
                Quoted(property.place.window + "." + std::string(name)));
    }
    property.name = name.empty() ? "caption" : std::string(name);
    return property;
  }

  const Names& names_;
};

}  // namespace

std::string Property::Text() const {
  std::string text = place.window;
  if (!place.control.empty()) text += "." + place.control;
  text += "." + name;
  if (name == "item") text += "(" + std::to_string(index) + ")";
  return text;
}

Script ParseScript(std::istream& in, const Names& names) {
  const Parser parser(names);
  Script script;
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    if (number == 1 && line.rfind("\xEF\xBB\xBF", 0) == 0) line.erase(0, 3);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    line.erase(line.find_last_not_of(' ') + 1);
    if (line.find_first_not_of(" \t") == std::string::npos || line.front() == '#') continue;
    try {
      script.commands.push_back(parser.Parse(line));
    } catch (const std::invalid_argument& bad) {
      script.bad_lines.push_back({number, bad.what()});
    }
  }
  return script;
}

std::string Unescape(std::string_view text) {
  static constexpr std::array<std::pair<char, char>, 5> kEscapes = {
      {{'t', '\t'}, {'n', '\n'}, {'r', '\r'}, {'\\', '\\'}, {'s', ' '}}};
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      plain += text[i];
      continue;
    }
    const char letter = ++i < text.size() ? text[i] : ' ';
    const auto* const escape = std::find_if(kEscapes.begin(), kEscapes.end(),
                                            [&](const auto& pair) { return pair.first == letter; });
    if (escape == kEscapes.end()) throw Bad("unknown escape in " + Quoted(text));
    plain += escape->second;
  }
  return plain;
}

std::string Quote(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    switch (c) {
      case '\t':
        quoted += "\\t";
        break;
      case '\n':
        quoted += "\\n";
        break;
      case '\r':
        quoted += "\\r";
        break;
      case '"':
      case '\\':
        quoted += '\\';
        [[fallthrough]];
      default:
        quoted += c;
    }
  }
  return quoted + "\"";
}

std::vector<std::string_view> Lines(std::string_view text) {
  std::vector<std::string_view> lines;
  for (std::size_t end = text.find('\n'); end < text.size() - 1; end = text.find('\n')) {
    lines.push_back(text.substr(0, end + 1));
    text.remove_prefix(end + 1);
  }
  lines.push_back(text);
  return lines;
}

}  // namespace velta::scenario
