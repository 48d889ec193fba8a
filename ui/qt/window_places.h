#pragma once

#include <QObject>
#include <QRect>
#include <QString>
#include <memory>
#include <utility>

class QMdiSubWindow;
class QSettings;
class QWidget;

namespace velta::qt {

/// Where the user left the windows, kept apart from the settings:
/// <configuration folder>/<application>/windows.ini. Where the file can be neither read nor written
/// the windows stand where they stand at first; that is worth no message.
class WindowPlaces {
 public:
  explicit WindowPlaces(QString application) : application_(std::move(application)) {}

  /// A top window: size, position, whether maximised. A place that is on no screen any more is
  /// corrected; one that nobody knows leaves the window as it is.
  void Restore(QWidget& window, const QString& name) const;
  void Remember(const QWidget& window, const QString& name) const;

 private:
  friend class ChildPlace;
  [[nodiscard]] std::unique_ptr<QSettings> Open() const;

  QString application_;
};

/// The place of one window inside the main window. What the user did not change is not remembered,
/// so that the program's own choice can follow the screen. Whether it is maximised holds for all of
/// these windows, as on the screen.
class ChildPlace final : public QObject {
 public:
  /// All three must outlive it.
  ChildPlace(const WindowPlaces& places, QMdiSubWindow& window, QString name);

  /// Once, on a window that stands where the program puts it, hidden still. All of the window is in
  /// view afterwards.
  void Restore();
  void Remember() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  const WindowPlaces& places_;
  QMdiSubWindow& window_;
  QString name_;
  bool restored_ = false;
  QRect opened_at_;
  QRect normal_;  // its place while it is neither maximised nor minimised
};

}  // namespace velta::qt
