#pragma once

#include <QHash>
#include <QObject>
#include <QPoint>
#include <functional>

class QWidget;

namespace velta::qt {

/// Follows the pointer for the status-line hints. It watches the whole application, because a
/// widget that is disabled or a plain label gets no pointer events of its own.
class HintFilter final : public QObject {
 public:
  /// Tells a control that the pointer moved over it; false passes the pointer on to what lies
  /// behind.
  using Hover = std::function<bool()>;

  HintFilter();

  void Watch(QWidget& widget, const Hover& hover);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// The pointer is at a place (on the screen) in a top-level window.
  void PointerAt(const QWidget& window, QPoint position);

  QHash<const QObject*, Hover> hovers_;
  QPoint last_position_{-1, -1};
};

}  // namespace velta::qt
