#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>

#include "ui/qt/hint_filter.h"
#include "ui/qt/window_places.h"
#include "ui/window_system.h"

class QAbstractButton;
class QAction;
class QKeyEvent;
class QKeySequence;
class QMdiArea;
class QMdiSubWindow;

namespace velta::qt {

/// Makes the views of all windows. A child opens in the main window, so that one has to be made
/// first.
class WindowSystem final : public QObject, public ui::WindowSystem {
 public:
  /// `places`, where the windows' places are kept, must outlive the window system; null: nowhere.
  explicit WindowSystem(const WindowPlaces* places = nullptr);

  [[nodiscard]] std::unique_ptr<ui::WindowView> CreateView(ui::Window& window) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  class View;
  class TopView;
  class ChildView;

  void FollowKey(const QKeyEvent& event);
  void SubWindowActivated(QMdiSubWindow* sub_window);
  void GiveCommandsTheirKeys(const QWidget& content);
  void RequestHelp();
  [[nodiscard]] QAbstractButton* ButtonInActiveChild(const QKeySequence& access_key) const;

  const WindowPlaces* places_;
  HintFilter hints_;
  ui::Window* main_ = nullptr;
  QPointer<QMdiArea> desktop_;
  QPointer<QAction> help_;  // beside which F1 stands in the menu
  QHash<const QObject*, ui::Window*> children_;
  const QObject* active_ = nullptr;  // the sub-window that was activated last
  int released_key_ = 0;
  quint64 released_at_ = 0;    // 0: no time is known
  bool key_is_held_ = false;   // the key that is pressed now, or last
  bool program_acts_ = false;  // activations that follow are not the user's
};

}  // namespace velta::qt
