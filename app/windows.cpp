#include "app/windows.h"

#include <algorithm>
#include <utility>

#include "app/form.h"
#include "values/error.h"

namespace velta {

Windows::Windows(ui::WindowSystem& window_system, ui::EventLoop& event_loop)
    : window_system_(window_system), burial_(event_loop) {
  burial_.Tick.Connect([this] { retired_.clear(); });
}

Windows::~Windows() = default;

void Windows::Register(const std::string& name, Factory factory) {
  factories_[name] = std::move(factory);
}

void Windows::Open(const std::string& name) {
  if (Form* loaded = Find(name)) {
    (*Position(name))->view->Show();
    Activate(*loaded);
    loaded->OpenedAgain();
    return;
  }
  Entry& entry = Load(name);
  Form& form = *entry.form;
  if (Find(name) != &form) return;  // it has unloaded itself
  entry.view->Show();
  if (form.focused() == nullptr) form.FocusFirst();
}

Windows::Entry& Windows::Load(const std::string& name) {
  const auto factory = factories_.find(name);
  if (factory == factories_.end()) throw Error(ErrorNumber::kBadArgument);
  auto entry = std::make_unique<Entry>();
  entry->form = factory->second();
  Form& form = *entry->form;
  entry->view = window_system_.CreateView(form);
  form.CloseRequested.Connect([this, name] { Unload(name); });
  form.Activated.Connect([this, &form] { Activate(form); });
  open_.push_back(std::move(entry));
  Entry& loaded = *open_.back();
  form.Load();
  BringToTop(name);  // above whatever its load opened or closed
  return loaded;
}

void Windows::Unload(const std::string& name) {
  const auto at = Position(name);
  if (at == open_.end()) return;
  const bool was_active = at + 1 == open_.end();
  retired_.push_back(std::move(open_[static_cast<std::size_t>(at - open_.begin())]));
  open_.erase(at);
  Entry& entry = *retired_.back();
  entry.form->Unload();
  entry.view->Close();
  // The keyboard goes back to where it was before; that is no act of the user, so no hint is
  // written.
  if (was_active && !open_.empty()) open_.back()->view->Activate();
  burial_.Arm();
}

void Windows::UnloadAllBut(const std::string& survivor) {
  for (;;) {
    const auto latest = std::find_if(open_.rbegin(), open_.rend(), [&](const auto& entry) {
      return entry->form->name() != survivor;
    });
    if (latest == open_.rend()) return;
    Unload((*latest)->form->name());
  }
}

Form* Windows::Find(const std::string& name) const {
  const auto at = Position(name);
  return at == open_.end() ? nullptr : (*at)->form.get();
}

void Windows::Activate(Form& form) {
  if (&form == active() || !BringToTop(form.name())) return;
  open_.back()->view->Activate();
  if (ui::Control* control = form.focused()) control->GotFocus.Raise();
}

bool Windows::CommitTyping() {
  // By their names: a commit may open and close windows.
  for (const std::string& name : names()) {
    Form* const form = Find(name);
    if (form != nullptr && !form->CommitTyping()) return false;
  }
  return true;
}

std::vector<std::string> Windows::names() const {
  std::vector<std::string> names;
  for (const auto& [name, factory] : factories_) names.push_back(name);
  return names;
}

Windows::Entries::const_iterator Windows::Position(const std::string& name) const {
  return std::find_if(open_.begin(), open_.end(),
                      [&](const auto& entry) { return entry->form->name() == name; });
}

bool Windows::BringToTop(const std::string& name) {
  const auto at = Position(name);
  if (at == open_.end()) return false;
  const auto index = at - open_.begin();
  std::rotate(open_.begin() + index, open_.begin() + index + 1, open_.end());
  return true;
}

}  // namespace velta
