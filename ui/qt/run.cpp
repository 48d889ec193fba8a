#include "ui/qt/run.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QStyleFactory>
#include <QTranslator>
#include <clocale>

#include "ui/qt/czech_texts.h"
#include "ui/qt/pictures.h"
#include "ui/qt/qt_platform.h"

/// The linker leaves out what of a static library nobody asks for.
static void LoadResources() {
  Q_INIT_RESOURCE(pictures);
  Q_INIT_RESOURCE(translations);
}

namespace velta::qt {

void PrepareApplication() {
  LoadResources();
  // On a Czech desktop Qt has just made every std::stod expect a comma.
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication::setWindowIcon(Picture("logo"));
  QApplication::setQuitOnLastWindowClosed(false);  // the program says when it ends

  // The program speaks Czech wherever it runs, and so do Qt's own calendar, menus and dialogs.
  QLocale::setDefault(QLocale(QLocale::Czech, QLocale::CzechRepublic));
  auto* translator = new QTranslator(qApp);
  if (translator->load("qtbase_cs", QLibraryInfo::path(QLibraryInfo::TranslationsPath)) ||
      translator->load(":/translations/qtbase_cs.qm")) {
    QCoreApplication::installTranslator(translator);
  }
  QCoreApplication::installTranslator(new CzechTexts(qApp));
}

int Run(int argc, char** argv,
        const std::function<std::shared_ptr<void>(const ui::Platform&)>& start) {
  QApplication application(argc, argv);
  PrepareApplication();
  QtPlatform platform;
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
