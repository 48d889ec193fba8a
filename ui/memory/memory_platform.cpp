#include "ui/memory/memory_platform.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "ui/date_picker.h"
#include "ui/window.h"

namespace velta::ui {

EventLoop::Ticket MemoryEventLoop::After(std::chrono::milliseconds delay, InBoxes /*in_boxes*/,
                                         std::function<void()> callback) {
  due_.emplace(std::pair(now_ + delay, ++last_ticket_), std::move(callback));
  return last_ticket_;
}

void MemoryEventLoop::Cancel(Ticket ticket) {
  const auto found = std::find_if(due_.begin(), due_.end(),
                                  [&](const auto& due) { return due.first.second == ticket; });
  if (found != due_.end()) due_.erase(found);
}

bool MemoryEventLoop::RunNext(std::chrono::milliseconds until) {
  if (due_.empty() || due_.begin()->first.first > until) return false;
  auto next = due_.extract(due_.begin());
  now_ = std::max(now_, next.key().first);
  next.mapped()();
  return true;
}

void MemoryEventLoop::RunUntilIdle() {
  while (RunNext(now_)) {
  }
}

void MemoryEventLoop::Advance(std::chrono::milliseconds time) {
  const auto until = now_ + time;
  while (RunNext(until)) {
  }
  now_ = until;
}

void MemoryMessageBox::Show(Icon icon, std::string_view caption, std::string_view text) {
  shown.push_back({icon, std::string(caption), std::string(text)});
  if (on_show) on_show(Shown(shown.back()));
}

bool MemoryClipboard::SetText(std::string_view new_text) {
  if (fails) return false;
  text = new_text;
  return true;
}

bool MemorySettingsStore::Read(std::string_view application, std::string_view section,
                               std::string_view key, std::optional<std::string>& value) {
  if (fails) return false;
  const auto found = std::find_if(values.begin(), values.end(), [&](const Value& entry) {
    return entry.application == application && entry.section == section && entry.key == key;
  });
  value = found == values.end() ? std::nullopt : std::optional(found->value);
  return true;
}

bool MemorySettingsStore::Write(std::string_view application, std::string_view section,
                                std::string_view key, std::string_view value) {
  if (fails || writes_before_failure == 0) return false;
  if (writes_before_failure > 0) --writes_before_failure;
  ++writes;
  for (Value& entry : values) {
    if (entry.application == application && entry.section == section && entry.key == key) {
      entry.value = value;
      return true;
    }
  }
  values.push_back(
      {std::string(application), std::string(section), std::string(key), std::string(value)});
  return true;
}

bool MemoryLauncher::Start(std::string_view program) {
  if (fails) return false;
  started.emplace_back(program);
  return true;
}

bool MemoryOpener::Open(std::string_view address) {
  if (fails) return false;
  opened.emplace_back(address);
  return true;
}

namespace {

class MemoryPrintJob final : public PrintJob {
 public:
  MemoryPrintJob(MemoryPrinter& printer, int copies) : printer_(printer), copies_(copies) {}
  int copies() const override { return copies_; }
  std::string file() const override { return printer_.file; }
  bool Print(const PrintedDocument& document) override {
    if (printer_.fails) return false;
    printer_.printed.push_back({document, copies_});
    printer_.last_code = document.code;
    return true;
  }

 private:
  MemoryPrinter& printer_;
  int copies_;
};

}  // namespace

std::unique_ptr<PrintJob> MemoryPrinter::AskUser(const std::string& document_name) {
  asked.push_back(document_name);
  if (!answer) return nullptr;
  return std::make_unique<MemoryPrintJob>(*this, *answer);
}

std::unique_ptr<PrintJob> MemoryPrinter::Default(const std::string& document_name) {
  if (!has_default) return AskUser(document_name);
  return std::make_unique<MemoryPrintJob>(*this, 1);
}

bool MemoryHelpViewer::OpenContents(std::string_view file) {
  if (fails) return false;
  opened.push_back({std::string(file), std::nullopt});
  return true;
}

void MemoryHelpViewer::CloseAll() {
  if (close_throws) throw std::runtime_error("the help windows do not close");
  ++times_closed;
}

bool MemoryHelpViewer::OpenTopic(std::string_view file, int topic) {
  if (fails) return false;
  opened.push_back({std::string(file), topic});
  return true;
}

class MemoryWindowSystem::View final : public WindowView {
 public:
  View(MemoryWindowSystem& system, const Window& window) : system_(system), window_(window) {}
  ~View() override { Close(); }

  void Show() override { Activate(); }
  void Activate() override {
    system_.active_ = &window_;
    system_.FollowKeyboard();
  }
  void Close() override {
    if (system_.active_ != &window_) return;
    system_.active_ = nullptr;
    system_.keyboard_ = nullptr;
  }

 private:
  MemoryWindowSystem& system_;
  const Window& window_;
};

std::unique_ptr<WindowView> MemoryWindowSystem::CreateView(Window& window) {
  window.FocusMoved.Connect([this, &window] {
    if (active_ == &window) FollowKeyboard();
  });
  return std::make_unique<View>(*this, window);
}

void MemoryWindowSystem::FollowKeyboard() {
  Control* const now = active_->focused();
  Control* const before = std::exchange(keyboard_, now);
  if (now == before) return;
  auto* const left = dynamic_cast<DatePicker*>(before);
  if (left != nullptr && !button_goes_down) left->UserLeave();
  if (auto* const entered = dynamic_cast<DatePicker*>(now)) entered->UserReturn();
}

}  // namespace velta::ui
