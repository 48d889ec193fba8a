#pragma once

#include <chrono>
#include <istream>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// The language of scenarios: what stands in a file, checked and taken apart before anything is
/// played.
namespace velta::scenario {

/// What sort of control a place is; it decides which commands and properties make sense there.
enum class Kind {
  kButton,
  kDatePicker,
  kDropDown,
  kEditableDropDown,
  kFrame,
  kLabel,
  kListBox,
  kMenuItem,
  kOptionButton,
  kTextBox,
  kTimer,
};

/// The names that a scenario may use: windows and in each its controls.
using Names = std::map<std::string, std::map<std::string, Kind>>;

/// A control, or a whole window where `control` is empty.
struct Place {
  std::string window;
  std::string control;
};

/// What is read: a property of a control or of a window. item(3) is the property "item" with
/// index 3.
struct Property {
  Place place;
  std::string name;
  int index = 0;

  /// As the transcript heads it: "frmMenu.lblMSG.caption".
  std::string Text() const;
};

enum class Verb {
  kLocale,  ///< text: "cs" or "en"
  kToday,   ///< day, time
  kUser,    ///< text: the name; has_text is false where the query fails
  kData,    ///< text: the folder
  kStore,   ///< key, text
  kStart,
  kMenu,         ///< place
  kClick,        ///< place
  kType,         ///< place, text
  kSet,          ///< place, text
  kDate,         ///< place, day
  kTypeDate,     ///< place, text
  kPick,         ///< place, number; an option button has none
  kFocus,        ///< place
  kHover,        ///< place, also a window
  kClose,        ///< place, a window
  kPrintDialog,  ///< number: the copies; 0 for cancel
  kFail,         ///< text: the service
  kMend,         ///< text: the service
  kWait,
  kWaitManual,
  kWaitAuto,
  kGet,     ///< property
  kState,   ///< text: the name
  kLoaded,  ///< place, a window
  kHint,
  kClipboard,
  kPrinted,
  kPaycode,
  kOpened,
  kStored,
};

/// One line of a scenario.
struct Command {
  std::string source;  ///< the line as it stands, without blanks at its end
  Verb verb = Verb::kWait;
  Place place;
  Property property;
  std::string key;
  std::string text;  ///< with its escapes resolved
  bool has_text = false;
  int number = 0;
  std::chrono::sys_days day;
  std::chrono::minutes time{0};
  bool expects = false;
  std::string expected;         ///< with its escapes resolved
  std::string expected_source;  ///< as it stands in the line
};

struct BadLine {
  int number;  ///< from 1
  std::string reason;
};

struct Script {
  std::vector<Command> commands;
  std::vector<BadLine> bad_lines;  ///< not empty: the scenario must not be played
};

/// Reads a whole scenario. Every line is checked, also those after a bad one.
Script ParseScript(std::istream& in, const Names& names);

/// A text with the escapes \t \n \r \\ and \s (a blank) resolved. Any other use of "\" throws
/// std::invalid_argument with the reason.
std::string Unescape(std::string_view text);

/// A text as transcripts show it: in double quotes, with \t \n \r \" and \\ escaped.
std::string Quote(std::string_view text);

/// A text cut after every line feed: "a\r\nb" is "a\r\n" and "b". A text without one is one line.
std::vector<std::string_view> Lines(std::string_view text);

}  // namespace velta::scenario
