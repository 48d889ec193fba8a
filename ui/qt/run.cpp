#include "ui/qt/run.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QStyleFactory>
#include <QTranslator>
#include <clocale>
#include <cstdio>
#include <optional>

#include "ui/qt/accessibility.h"
#include "ui/qt/command_line.h"
#include "ui/qt/czech_texts.h"
#include "ui/qt/end_requests.h"
#include "ui/qt/pictures.h"
#include "ui/qt/qt_platform.h"
#include "ui/qt/text.h"

/// The linker leaves out what of a static library nobody asks for.
static void LoadResources() {
  Q_INIT_RESOURCE(pictures);
  Q_INIT_RESOURCE(translations);
}

namespace velta::qt {

/// The program speaks Czech wherever it runs, and so do Qt's own calendar, menus and dialogs.
static void SpeakCzech() {
  // On the console there is no QApplication, which qApp would promise.
  auto* application = QCoreApplication::instance();
  QLocale::setDefault(QLocale(QLocale::Czech, QLocale::CzechRepublic));
  auto* translator = new QTranslator(application);
  if (translator->load("qtbase_cs", QLibraryInfo::path(QLibraryInfo::TranslationsPath)) ||
      translator->load(":/translations/qtbase_cs.qm")) {
    QCoreApplication::installTranslator(translator);
  }
  QCoreApplication::installTranslator(new CzechTexts(application));
}

/// What the console was told, or nothing where the program is to start. Needs no display.
static std::optional<int> AnswerOnConsole(int argc, char** argv, const std::string& version) {
  if (argc < 2) return {};
  const QCoreApplication application(argc, argv);
  LoadResources();
  SpeakCzech();
  const auto answer = AnswerOnConsole(QCoreApplication::arguments(), ToQString(version));
  if (!answer.has_value()) return {};
  std::fputs(answer->text.toUtf8().constData(), answer->exit_code == 0 ? stdout : stderr);
  return answer->exit_code;
}

void PrepareApplication() {
  // On a Czech desktop Qt has just made every std::stod expect a comma.
  std::setlocale(LC_NUMERIC, "C");
  LoadResources();
  SpeakCzech();
  PrepareAccessibility();
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication::setWindowIcon(Picture("logo"));
  QApplication::setQuitOnLastWindowClosed(false);  // the program says when it ends
}

int Run(int argc, char** argv, const std::string& version,
        const std::function<std::shared_ptr<void>(const ui::Platform&)>& start) {
  if (const auto exit_code = AnswerOnConsole(argc, argv, version)) return *exit_code;
  QApplication application(argc, argv);
  PrepareApplication();
  QtPlatform platform;
  const EndRequests end_requests(platform.event_loop);
  int exit_code = 0;
  {
    const std::shared_ptr<void> program = start(platform.platform());
    exit_code = platform.event_loop.Run();
  }
  // The views' widgets wait for a turn of the loop that does not come any more.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  return exit_code;
}

}  // namespace velta::qt
