#include "ui/qt/window_places.h"

#include <QEvent>
#include <QMdiSubWindow>
#include <QSettings>
#include <QWindowStateChangeEvent>
#include <algorithm>

namespace velta::qt {

namespace {

constexpr const char* kFile = "windows";
constexpr const char* kPlace = "/place";
constexpr const char* kMaximised = "childrenMaximised";  // all of them are, or none

/// As large as it was, or as there is room for, and in view with all its edges.
QRect InView(const QRect& place, const QSize& least, const QSize& area) {
  const QSize size = place.size().boundedTo(area).expandedTo(least);
  return {QPoint(std::clamp(place.x(), 0, std::max(0, area.width() - size.width())),
                 std::clamp(place.y(), 0, std::max(0, area.height() - size.height()))),
          size};
}

bool IsNormal(Qt::WindowStates state) {
  return (state & (Qt::WindowMaximized | Qt::WindowMinimized)) == Qt::WindowNoState;
}

}  // namespace

std::unique_ptr<QSettings> WindowPlaces::Open() const {
  auto file =
      std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, application_, kFile);
  file->setFallbacksEnabled(false);
  file->beginGroup("Windows");
  return file;
}

void WindowPlaces::Restore(QWidget& window, const QString& name) const {
  window.restoreGeometry(Open()->value(name + kPlace).toByteArray());
}

void WindowPlaces::Remember(const QWidget& window, const QString& name) const {
  Open()->setValue(name + kPlace, window.saveGeometry());
}

ChildPlace::ChildPlace(const WindowPlaces& places, QMdiSubWindow& window, QString name)
    : places_(places), window_(window), name_(std::move(name)) {
  window.installEventFilter(this);
}

void ChildPlace::Restore() {
  restored_ = true;
  if (window_.isMaximized()) return;  // as the one before it is
  const auto file = places_.Open();
  const QRect place = file->value(name_ + kPlace).toRect();
  if (place.isValid()) {
    window_.setGeometry(InView(place, window_.minimumSizeHint(), window_.parentWidget()->size()));
  }
  opened_at_ = normal_ = window_.geometry();
  if (file->value(kMaximised).toBool()) window_.showMaximized();
}

void ChildPlace::Remember() const {
  if (!restored_) return;
  const auto file = places_.Open();
  const QRect place = IsNormal(window_.windowState()) ? window_.geometry() : normal_;
  if (place != opened_at_) file->setValue(name_ + kPlace, place);
  if (window_.isMaximized() || file->contains(kMaximised)) {
    file->setValue(kMaximised, window_.isMaximized());
  }
}

/// The place is taken when the window leaves it, and not with every move: Qt takes a maximised
/// window out of its state for a moment whenever its area changes.
bool ChildPlace::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::WindowStateChange && restored_) {
    const auto& change = *static_cast<QWindowStateChangeEvent*>(event);
    if (!change.isOverride() && IsNormal(change.oldState())) normal_ = window_.geometry();
  }
  return false;
}

}  // namespace velta::qt
