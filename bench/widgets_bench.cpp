#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QTest>

#include "shell/velta.h"
#include "ui/memory/memory_platform.h"
#include "ui/qt/qt_platform.h"
#include "ui/qt/run.h"

namespace velta {
namespace {

QWidget* FindWidget(const QString& name) {
  for (QWidget* widget : QApplication::allWidgets()) {
    if (widget->objectName() == name) return widget;
  }
  return nullptr;
}

/// From the press of a key in the amount box to the repainted results, on real widgets that are not
/// shown on a screen. One turn is one key; every tenth is the deletion of what was typed.
void KeyInTheAmountBox(benchmark::State& state) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static int argc = 1;
  static char name[] = "widgets_bench";
  static char* argv[] = {name, nullptr};
  QApplication application(argc, argv);
  qt::PrepareApplication();
  ui::MemoryPlatform memory;
  memory.program_folder.path = VELTA_SOURCE_DIR "/data";
  qt::QtPlatform qt;
  Velta velta({qt.message_box, memory.clipboard, memory.settings_store, memory.launcher,
               memory.opener, memory.printer, memory.help_viewer, memory.user_name, memory.clock,
               qt.event_loop, memory.program_folder, qt.window_system, memory.locale},
              {});
  velta.Start();
  while (!velta.program().windows.IsLoaded("frmMenu")) QApplication::processEvents();
  velta.program().windows.Open("frmJednotlivy");
  QApplication::processEvents();

  auto* amount = qobject_cast<QLineEdit*>(FindWidget("txtDluznaCastka"));
  auto* rate = qobject_cast<QLineEdit*>(FindWidget("txtVyseSazby"));
  auto* interest = qobject_cast<QLabel*>(FindWidget("lblPenale"));
  if (amount == nullptr || rate == nullptr || interest == nullptr) {
    state.SkipWithError("the window is not there");
    return;
  }
  rate->setFocus(Qt::TabFocusReason);
  QTest::keyClicks(rate, "12");
  amount->setFocus(Qt::TabFocusReason);
  int typed = 0;
  for ([[maybe_unused]] auto _ : state) {
    if (typed++ % 10 == 9) {
      amount->selectAll();
      QTest::keyClick(amount, Qt::Key_Backspace);
    } else {
      QTest::keyClick(amount, static_cast<Qt::Key>(Qt::Key_1 + typed % 9));
    }
    QApplication::processEvents();
  }
  if (interest->text().isEmpty()) state.SkipWithError("nothing was computed");
}
BENCHMARK(KeyInTheAmountBox)->Iterations(1000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velta
