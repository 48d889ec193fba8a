#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ui/timer.h"
#include "ui/window_system.h"

namespace velta {

class Form;

/// The windows by name. Each is a single instance: it is made when it is opened and goes when it is
/// unloaded. Windows ask here for one another, so that none needs to know the others' classes.
class Windows {
 public:
  using Factory = std::function<std::unique_ptr<Form>()>;

  Windows(ui::WindowSystem& window_system, ui::EventLoop& event_loop);
  ~Windows();

  void Register(const std::string& name, Factory factory);

  /// Loads the window if it is not loaded, then shows it, brings it to the front and gives it the
  /// keyboard, also where its load ended in an error report. An unknown name throws Error 5.
  void Open(const std::string& name);

  /// Closes a window; one that is not loaded, or is unloading already, is left alone. The object
  /// lives on until the event loop turns, so that a window may unload itself from its own handlers.
  void Unload(const std::string& name);

  /// Closes all windows but `survivor`, the latest first.
  void UnloadAllBut(const std::string& survivor);

  bool IsLoaded(const std::string& name) const { return Find(name) != nullptr; }
  /// The loaded window of that name, or null.
  Form* Find(const std::string& name) const;
  /// The loaded window that has the keyboard, or null.
  Form* active() const { return open_.empty() ? nullptr : open_.back()->form.get(); }

  /// The user or the program turns to a loaded window: its focused control gets the keyboard.
  void Activate(Form& form);

  /// What is being typed in any of the windows counts from now on. False where something of it is
  /// nothing to go on with; the user has been told then.
  bool CommitTyping();

  std::vector<std::string> names() const;

 private:
  struct Entry {
    std::unique_ptr<Form> form;
    std::unique_ptr<ui::WindowView> view;  // destroyed before its form
  };
  using Entries = std::vector<std::unique_ptr<Entry>>;

  Entry& Load(const std::string& name);
  Entries::const_iterator Position(const std::string& name) const;
  bool BringToTop(const std::string& name);

  ui::WindowSystem& window_system_;
  std::map<std::string, Factory> factories_;
  Entries open_;     // in the order of their last activation, the active one last
  Entries retired_;  // unloaded, waiting for the loop's next turn
  ui::Timer burial_;
};

}  // namespace velta
