#include "ui/qt/end_requests.h"

#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QDialog>
#include <QMainWindow>
#include <cerrno>
#include <chrono>

namespace velta::qt {

namespace {

volatile std::sig_atomic_t signal_pipe = -1;

extern "C" void TellOfSignal(int /*number*/) {
  const int error = errno;
  const char any = 0;
  // Where the pipe is full, the loop has been told already.
  [[maybe_unused]] const auto written = write(signal_pipe, &any, 1);
  errno = error;
}

QWidget* MainWindow() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr) return window;
  }
  return nullptr;
}

}  // namespace

EndRequests::Pipe::Pipe() {
  if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) qFatal("There are no pipes.");
}

EndRequests::Pipe::~Pipe() {
  for (const int end : ends) close(end);
}

EndRequests::EndRequests(EventLoop& event_loop) : event_loop_(event_loop) {
  // One thing after the other: each turns the loop that the next one stands in.
  constexpr std::chrono::milliseconds kStep(20);
  steps_.setInterval(kStep);
  steps_.callOnTimeout([this] { GoOnEnding(); });
  connect(&signal_came_, &QSocketNotifier::activated, this, [this] {
    char any = 0;
    [[maybe_unused]] const auto count = read(pipe_.ends[0], &any, 1);
    steps_.start();
  });
  qApp->installEventFilter(this);

  signal_pipe = pipe_.ends[1];
  struct sigaction tell {};
  tell.sa_handler = TellOfSignal;
  tell.sa_flags = SA_RESTART;
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    sigaction(kSignals.at(i), nullptr, &former_.at(i));
    // Who started the program may want it to outlive the terminal.
    if (former_.at(i).sa_handler != SIG_IGN) sigaction(kSignals.at(i), &tell, nullptr);
  }
}

EndRequests::~EndRequests() {
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    sigaction(kSignals.at(i), &former_.at(i), nullptr);
  }
  signal_pipe = -1;
}

/// At the end of the session Qt asks the application to quit.
bool EndRequests::eventFilter(QObject* watched, QEvent* event) {
  if (watched != qApp || event->type() != QEvent::Quit) return false;
  event->accept();
  steps_.start();
  return true;
}

void EndRequests::GoOnEnding() {
  if (QWidget* popup = QApplication::activePopupWidget()) {
    popup->close();
  } else if (QWidget* modal = QApplication::activeModalWidget()) {
    if (auto* dialog = qobject_cast<QDialog*>(modal)) {
      dialog->reject();
    } else {
      modal->close();
    }
  } else if (QWidget* main = MainWindow()) {
    main->close();
  } else {
    event_loop_.Quit();
  }
}

}  // namespace velta::qt
