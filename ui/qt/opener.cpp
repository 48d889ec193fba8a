#include "ui/qt/opener.h"

#include <unistd.h>

#include <QObject>
#include <QProcess>
#include <QStandardPaths>
#include <memory>

#include "ui/qt/text.h"

namespace velta::qt {

namespace {

/// Whether the program takes the address: it ends well, or is still there after a while because it
/// is the browser itself. It goes on without us, and what it has to say is not for our user.
bool Takes(const QString& program, const QString& address) {
  constexpr int kWhile = 1000;  // milliseconds; who finds no browser ends sooner
  auto process = std::make_unique<QProcess>();
  process->setStandardInputFile(QProcess::nullDevice());
  process->setStandardOutputFile(QProcess::nullDevice());
  process->setStandardErrorFile(QProcess::nullDevice());
  process->setChildProcessModifier([] { ::setsid(); });
  process->start(program, {address});
  if (!process->waitForStarted()) return false;
  if (process->waitForFinished(kWhile)) {
    return process->exitStatus() == QProcess::NormalExit && process->exitCode() == 0;
  }
  // Who deletes a process ends it.
  QProcess* const running = process.release();
  QObject::connect(running, &QProcess::finished, running, &QObject::deleteLater);
  return true;
}

}  // namespace

bool Opener::Open(std::string_view address) {
  // Qt's own service tells nobody whether the desktop has found a program, and lets that complain
  // in English on our standard error.
  const QString url = ToQString(address);
  const QString desktop = QStandardPaths::findExecutable("xdg-open");
  if (!desktop.isEmpty()) return Takes(desktop, url);
  const QString browser = QStandardPaths::findExecutable("x-www-browser");
  return !browser.isEmpty() && url.startsWith("http") && Takes(browser, url);
}

}  // namespace velta::qt
