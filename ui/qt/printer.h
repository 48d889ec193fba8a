#pragma once

#include <QPrinter>
#include <memory>
#include <string>

#include "ui/printer.h"
#include "ui/qt/event_loop.h"

namespace velta::qt {

/// A4 portrait; 90 cells of 6 points and 65 lines of 12 points fit on a page.
class PrintJob final : public ui::PrintJob {
 public:
  explicit PrintJob(std::unique_ptr<QPrinter> printer) : printer_(std::move(printer)) {}

  int copies() const override { return printer_->copyCount(); }
  std::string file() const override;
  bool Print(const ui::PrintedDocument& document) override;

 private:
  std::unique_ptr<QPrinter> printer_;
};

class Printer final : public ui::Printer {
 public:
  explicit Printer(EventLoop& event_loop) : event_loop_(event_loop) {}
  std::unique_ptr<ui::PrintJob> AskUser(const std::string& document_name) override;
  std::unique_ptr<ui::PrintJob> Default(const std::string& document_name) override;

 private:
  EventLoop& event_loop_;
};

/// A printer set up for the program's pages, the default one where the user has it: what the print
/// dialog starts from.
std::unique_ptr<QPrinter> MakePagePrinter();

}  // namespace velta::qt
