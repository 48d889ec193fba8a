#include "ui/qt/window_system.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QScreen>
#include <QShortcut>
#include <QShortcutEvent>
#include <QStyle>
#include <algorithm>
#include <optional>

#include "ui/qt/binder.h"
#include "ui/qt/forms.h"
#include "ui/qt/room.h"
#include "ui/qt/text.h"
#include "ui/window.h"

namespace velta::qt {

/// What the views of all kinds have in common. `content` are the form's widgets, `frame` is what
/// stands on the screen: the same widget, or the sub-window around it.
class WindowSystem::View : public QObject, public ui::WindowView {
 public:
  View(WindowSystem& system, ui::Window& window, QWidget* content, QWidget* frame)
      : system_(system),
        window_(window),
        content_(content),
        frame_(frame),
        binder_(new Binder(window, *content, system.hints_)) {
    frame->installEventFilter(this);
    const QPointer<View> self(this);
    const auto show_caption = [this] { content_->setWindowTitle(ToQString(window_.caption())); };
    show_caption();
    window.CaptionChanged.Connect([self, show_caption] {
      if (self != nullptr) show_caption();
    });
    window.BusyChanged.Connect([self] {
      if (self != nullptr) self->ShowPointer(self->window_.busy());
    });
    window.FocusMoved.Connect([self] {
      if (self != nullptr && self->IsActive()) self->binder_->FollowFocus();
    });
  }

  ~View() override {
    ShowPointer(false);
    binder_->StopListening();
    frame_->removeEventFilter(this);
    frame_->hide();
    // Not at once: a widget may be on its way through one of its own events.
    frame_->deleteLater();
  }

  void Close() override {
    const QScopedValueRollback acting(system_.program_acts_, true);
    binder_->StopListening();
    listening_ = false;
    ShowPointer(false);
    frame_->hide();
  }

 protected:
  virtual bool IsActive() const = 0;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched != frame_) return false;
    if (event->type() == QEvent::Close) {
      // The window itself decides whether it goes.
      event->ignore();
      AskToClose();
      return true;
    }
    return false;
  }

  void AskToClose() {
    if (listening_) window_.CloseRequested.Raise();
  }

  WindowSystem& system_;
  ui::Window& window_;
  QWidget* content_;
  QWidget* frame_;
  Binder* binder_;  // lives with the content

 private:
  void ShowPointer(bool busy) {
    if (busy == busy_) return;
    busy_ = busy;
    if (busy) {
      QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
      QApplication::restoreOverrideCursor();
    }
  }

  bool listening_ = true;
  bool busy_ = false;
};

/// The splash and the main window.
class WindowSystem::TopView final : public WindowSystem::View {
 public:
  TopView(WindowSystem& system, ui::Window& window, QWidget* content)
      : View(system, window, content, content) {
    // Where there is no room for it the window takes the whole screen, so that its lower edge, the
    // status strip, stays in view.
    const QRect screen = content->screen()->availableGeometry();
    const QSize fitting = content->size().boundedTo(RoomOnScreen(*content));
    if (fitting != content->size()) content->setWindowState(Qt::WindowMaximized);
    content->resize(fitting);
    content->move(screen.center() - content->rect().center());
    if (KeepsPlace()) system_.places_->Restore(*content, ToQString(window.name()));
  }

  void Show() override {
    frame_->setWindowState(frame_->windowState() & ~Qt::WindowMinimized);
    frame_->show();
    Activate();
  }

  void Activate() override {
    const QScopedValueRollback acting(system_.program_acts_, true);
    if (!frame_->isActiveWindow()) {
      frame_->raise();
      frame_->activateWindow();
    }
    binder_->TakeFocus();
  }

  void Close() override {
    if (KeepsPlace()) system_.places_->Remember(*frame_, ToQString(window_.name()));
    View::Close();
  }

 protected:
  bool IsActive() const override { return frame_->isActiveWindow(); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == frame_ && window_.kind() == ui::WindowKind::kSplash && PutsAway(*event)) {
      AskToClose();
      return true;
    }
    return View::eventFilter(watched, event);
  }

 private:
  bool KeepsPlace() const {
    return system_.places_ != nullptr && window_.kind() == ui::WindowKind::kMain;
  }

  /// The splash has no close box: a click or a key does it.
  static bool PutsAway(const QEvent& event) {
    return event.type() == QEvent::MouseButtonRelease || event.type() == QEvent::KeyPress;
  }
};

class WindowSystem::ChildView final : public WindowSystem::View {
 public:
  ChildView(WindowSystem& system, ui::Window& window, QWidget* content)
      : View(system, window, content, new QMdiSubWindow),
        sub_window_(static_cast<QMdiSubWindow*>(frame_)) {
    sub_window_->setWidget(content);
    sub_window_->setAttribute(Qt::WA_DeleteOnClose, false);
    sub_window_->setWindowIcon(content->windowIcon());
    // Ctrl+W is too easily hit by somebody who types; Ctrl+F4 closes a window inside another.
    for (QAction* action : sub_window_->systemMenu()->actions()) {
      if (!action->shortcut().isEmpty()) action->setShortcut(Qt::CTRL | Qt::Key_F4);
    }
    auto* next = sub_window_->systemMenu()->addAction(QStringLiteral("Da&lší okno"));
    next->setShortcut(Qt::CTRL | Qt::Key_F6);
    next->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    sub_window_->addAction(next);
    connect(next, &QAction::triggered, system.desktop_, &QMdiArea::activateNextSubWindow);
    if (window.closes_by_esc()) {
      auto* esc = new QShortcut(Qt::Key_Escape, content);
      esc->setContext(Qt::WidgetWithChildrenShortcut);
      connect(esc, &QShortcut::activated, this, [this] { AskToClose(); });
    }
    system.children_.insert(sub_window_, &window);
    const QScopedValueRollback acting(system.program_acts_, true);
    system.desktop_->addSubWindow(sub_window_);
    sub_window_->hide();
    if (system.places_ != nullptr) {
      place_.emplace(*system.places_, *sub_window_, ToQString(window.name()));
    }
  }

  ~ChildView() override { Remove(); }

  void Show() override {
    const QScopedValueRollback acting(system_.program_acts_, true);
    if (!placed_) {
      Place();
      if (place_.has_value()) place_->Restore();
    }
    if (sub_window_->isMinimized()) {
      sub_window_->showNormal();
    } else {
      sub_window_->show();
      content_->show();
    }
    Activate();
  }

  void Activate() override {
    const QScopedValueRollback acting(system_.program_acts_, true);
    system_.desktop_->setActiveSubWindow(sub_window_);
    binder_->TakeFocus();
  }

  void Close() override {
    if (place_.has_value()) place_->Remember();
    View::Close();
    Remove();
  }

 protected:
  /// Also while another program has the keyboard.
  bool IsActive() const override {
    return sub_window_->isVisible() && system_.desktop_->currentSubWindow() == sub_window_;
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == frame_ && event->type() == QEvent::WindowStateChange) KeepFocus();
    return View::eventFilter(watched, event);
  }

 private:
  /// Qt hides a window for a moment to restore it, and moves the keyboard on by one.
  void KeepFocus() {
    if (sub_window_->isMinimized()) return;
    binder_->HoldFocus(true);
    const auto go_on = [this] {
      binder_->HoldFocus(false);
      if (IsActive()) binder_->TakeFocus();
    };
    QMetaObject::invokeMethod(this, go_on, Qt::QueuedConnection);
  }

  /// Out of the desktop at once, so that the activation of the next window belongs to this moment.
  void Remove() {
    if (system_.children_.remove(sub_window_) == 0 || system_.desktop_ == nullptr) return;
    const QScopedValueRollback acting(system_.program_acts_, true);
    system_.desktop_->removeSubWindow(sub_window_);
  }

  /// Each a little below and to the right of the one before, all of it in view.
  void Place() {
    constexpr int kStep = 28;
    constexpr int kSteps = 6;
    placed_ = true;
    if (sub_window_->isMaximized()) return;  // opens as large as the one before
    LayOutHidden();
    const QSize area = system_.desktop_->viewport()->size();
    QSize wanted = sub_window_->sizeHint();
    // A scroll bar takes its place beside what it scrolls.
    if (wanted.height() > area.height()) {
      wanted.rwidth() += sub_window_->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    }
    const QSize size = wanted.boundedTo(area).expandedTo(sub_window_->minimumSizeHint());
    const auto others = system_.desktop_->subWindowList();
    const auto visible = std::count_if(others.begin(), others.end(),
                                       [](const auto* other) { return other->isVisible(); });
    const int offset = kStep / 2 + kStep * (static_cast<int>(visible) % kSteps);
    sub_window_->setGeometry(
        QRect(QPoint(std::clamp(offset, 0, std::max(0, area.width() - size.width())),
                     std::clamp(offset, 0, std::max(0, area.height() - size.height()))),
              size));
  }

  /// The captions came while the form was hidden, when no layout hears of it: from the innermost
  /// outwards they are told.
  void LayOutHidden() {
    const auto widgets = content_->findChildren<QWidget*>();
    for (auto widget = widgets.rbegin(); widget != widgets.rend(); ++widget) {
      if ((*widget)->layout() != nullptr) (*widget)->layout()->activate();
      (*widget)->updateGeometry();
    }
  }

  QMdiSubWindow* sub_window_;
  bool placed_ = false;
  std::optional<ChildPlace> place_;
};

WindowSystem::WindowSystem(const WindowPlaces* places) : places_(places) {
  qApp->installEventFilter(this);
}

std::unique_ptr<ui::WindowView> WindowSystem::CreateView(ui::Window& window) {
  QWidget* content = MakeForm(ToQString(window.name()));
  if (content == nullptr) qFatal("There is no form for %s.", window.name().c_str());
  if (window.kind() == ui::WindowKind::kChild) {
    return std::make_unique<ChildView>(*this, window, content);
  }
  if (window.kind() == ui::WindowKind::kSplash) {
    content->setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    return std::make_unique<TopView>(*this, window, content);
  }
  desktop_ = content->findChild<QMdiArea*>();
  connect(desktop_, &QMdiArea::subWindowActivated, this, &WindowSystem::SubWindowActivated);
  auto* menu_bar = static_cast<QMainWindow*>(content)->menuBar();
  connect(new QShortcut(Qt::Key_F10, content), &QShortcut::activated, menu_bar,
          [menu_bar] { menu_bar->setActiveAction(menu_bar->actions().value(0)); });
  main_ = &window;
  GiveCommandsTheirKeys(*content);
  return std::make_unique<TopView>(*this, window, content);
}

/// The menus show the keys. A Czech keyboard writes "+" and "ě" with the keys of 1 and 2.
void WindowSystem::GiveCommandsTheirKeys(const QWidget& content) {
  constexpr auto kECaron = static_cast<Qt::Key>(u'Ě');
  const std::pair<const char*, QList<QKeySequence>> commands[] = {
      {"mnuJednotlivyVypocet", {Qt::CTRL | Qt::Key_1, Qt::CTRL | Qt::Key_Plus}},
      {"mnuPostupnyVypocet", {Qt::CTRL | Qt::Key_2, Qt::CTRL | kECaron}},
      {"mnuTiskVypoctu", {Qt::CTRL | Qt::Key_P}},
      {"mnuKopirovat", {Qt::CTRL | Qt::SHIFT | Qt::Key_C}},
  };
  for (const auto& [name, keys] : commands) {
    auto* command = content.findChild<QAction*>(name);
    command->setShortcuts(keys);
    command->setAutoRepeat(false);
  }
  // Beside the help's contents, but it asks the window in front, which may know a better page.
  help_ = content.findChild<QAction*>("mnuObsah");
  help_->setShortcut(Qt::Key_F1);
  help_->setAutoRepeat(false);
}

/// An access key presses its button at once and once, Enter once, and a command's key gives it
/// once. Qt would press a button a tenth of a second after its access key, when the user may have
/// gone on already, and all of them again for as long as the key is held.
bool WindowSystem::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:  // comes before every press
      FollowKey(*static_cast<QKeyEvent*>(event));
      return false;
    case QEvent::KeyPress: {
      const int key = static_cast<QKeyEvent*>(event)->key();
      const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
      return key_is_held_ && enter && qobject_cast<QAbstractButton*>(watched) != nullptr;
    }
    case QEvent::Shortcut: {
      if (watched == help_) {
        if (!key_is_held_) RequestHelp();
        return true;
      }
      if (key_is_held_ && qobject_cast<QAction*>(watched) != nullptr) return true;
      const auto& shortcut = *static_cast<QShortcutEvent*>(event);
      auto* button = shortcut.isAmbiguous() ? ButtonInActiveChild(shortcut.key())
                                            : qobject_cast<QAbstractButton*>(watched);
      if (button == nullptr) return false;
      if (!key_is_held_) button->click();
      return true;
    }
    default:
      return false;
  }
}

/// X repeats a key that is held as its going up and down in the same moment. Qt takes that for a
/// repetition only where it has read both already, which is a matter of luck.
void WindowSystem::FollowKey(const QKeyEvent& event) {
  if (event.type() == QEvent::KeyRelease) {
    released_key_ = event.key();
    released_at_ = event.timestamp();
    return;
  }
  key_is_held_ = event.isAutoRepeat() || (event.key() == released_key_ && released_at_ != 0 &&
                                          event.timestamp() == released_at_);
}

void WindowSystem::SubWindowActivated(QMdiSubWindow* sub_window) {
  // None is active while the keyboard is in another program or in a message box.
  if (sub_window == nullptr || sub_window == active_) return;
  active_ = sub_window;
  if (program_acts_) return;
  if (ui::Window* window = children_.value(sub_window)) window->Activated.Raise();
}

void WindowSystem::RequestHelp() {
  ui::Window* child = children_.value(desktop_->activeSubWindow());
  (child == nullptr ? main_ : child)->HelpRequested.Raise();
}

/// Alt+V is a menu and, in the calculation windows, a button: then the button is meant. Qt by
/// itself would do neither.
QAbstractButton* WindowSystem::ButtonInActiveChild(const QKeySequence& access_key) const {
  if (desktop_ == nullptr || desktop_->activeSubWindow() == nullptr) return nullptr;
  for (auto* button : desktop_->activeSubWindow()->findChildren<QAbstractButton*>()) {
    if (button->isVisible() && button->isEnabled() && button->shortcut() == access_key) {
      return button;
    }
  }
  return nullptr;
}

}  // namespace velta::qt
