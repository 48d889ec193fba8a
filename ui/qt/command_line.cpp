#include "ui/qt/command_line.h"

#include <QCommandLineParser>

namespace velta::qt {

namespace {

/// Those that a QApplication takes for itself. It cannot be asked: it needs a display first.
void AddQtOptions(QCommandLineParser& parser) {
  const auto add = [&parser](const QString& name, const QString& value) {
    QCommandLineOption option(name, QString(), value);
    option.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOption(option);
  };
  for (const char* name : {"display", "geometry", "icon", "platform", "platformpluginpath",
                           "platformtheme", "plugin", "qwindowgeometry", "qwindowicon",
                           "qwindowtitle", "session", "style", "stylesheet", "title"}) {
    add(name, "value");
  }
  for (const char* name : {"reverse", "widgetcount"}) add(name, QString());
}

}  // namespace

std::optional<ConsoleAnswer> AnswerOnConsole(const QStringList& arguments, const QString& version) {
  const QCommandLineOption help({"h", "help"}, "Vypíše tuto nápovědu a skončí.");
  const QCommandLineOption show_version({"v", "version"}, "Vypíše verzi programu a skončí.");
  QCommandLineParser parser;
  // Qt's own options may begin with one dash.
  parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
  parser.setApplicationDescription(
      "Velta počítá úrok z prodlení, tiskne jej a vystaví na něj fakturu.");
  parser.addOptions({help, show_version});
  AddQtOptions(parser);

  QString mistake;
  if (!parser.parse(arguments)) {
    mistake = parser.errorText();
  } else if (parser.isSet(help)) {
    return ConsoleAnswer{parser.helpText()};
  } else if (parser.isSet(show_version)) {
    return ConsoleAnswer{"Velta " + version + '\n'};
  } else if (!parser.positionalArguments().isEmpty()) {
    mistake = "Neočekávaný argument '" + parser.positionalArguments().first() + "'.";
  } else {
    return {};
  }
  return ConsoleAnswer{mistake + "\nVolby programu vypíše " + arguments.first() + " --help\n", 1};
}

}  // namespace velta::qt
