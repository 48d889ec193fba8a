#include "app/printing.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/thrown.h"
#include "ui/controls.h"
#include "ui/memory/memory_platform.h"
#include "ui/window.h"

namespace velta {
namespace {

using testing::Thrown;

class PrintingTest : public ::testing::Test {
 protected:
  ui::MemoryPrinter& printer() { return memory_.printer; }

  ui::MemoryPlatform memory_;
  ui::Window window_{"frmMenu", ui::WindowKind::kMain, memory_.event_loop};
  StatusLine status_;
  const ui::PrintedDocument document_{"Faktura", "Courier New CE", 10, {{"řádek"}}};
};

TEST_F(PrintingTest, WithTheDialogAsTheUserChooses) {
  printer().answer = 3;
  EXPECT_TRUE(PrintWithDialog(printer(), status_, document_));
  EXPECT_EQ(printer().asked, std::vector<std::string>{"Faktura"});
  ASSERT_EQ(printer().printed.size(), 1U);
  EXPECT_EQ(printer().printed[0].copies, 3);
  EXPECT_EQ(printer().printed[0].document.lines[0].text, "řádek");
}

TEST_F(PrintingTest, OnTheDefaultPrinterOneCopyWithoutAQuestion) {
  printer().answer = 3;
  EXPECT_TRUE(PrintOnDefaultPrinter(printer(), status_, document_));
  EXPECT_TRUE(printer().asked.empty());
  ASSERT_EQ(printer().printed.size(), 1U);
  EXPECT_EQ(printer().printed[0].copies, 1);
}

TEST_F(PrintingTest, WithoutADefaultPrinterTheUserIsAsked) {
  printer().has_default = false;
  printer().answer = 2;
  EXPECT_TRUE(PrintOnDefaultPrinter(printer(), status_, document_));
  EXPECT_EQ(printer().asked, std::vector<std::string>{"Faktura"});
  ASSERT_EQ(printer().printed.size(), 1U);
  EXPECT_EQ(printer().printed[0].copies, 2);
}

TEST_F(PrintingTest, StatusLineSaysToWhichFileItWent) {
  ui::Label status{window_, "lblMSG"};
  status_.Attach(&status);
  EXPECT_TRUE(PrintWithDialog(printer(), status_, document_));
  EXPECT_EQ(status.caption(), "") << "a printer is no file";
  printer().file = "/home/novak/Faktura.pdf";
  EXPECT_TRUE(PrintWithDialog(printer(), status_, document_));
  EXPECT_EQ(status.caption(), "Uloženo do souboru /home/novak/Faktura.pdf");
  status_.Attach(nullptr);
}

TEST_F(PrintingTest, CancelledDialogPrintsNothing) {
  printer().has_default = false;
  printer().answer = std::nullopt;
  EXPECT_FALSE(PrintWithDialog(printer(), status_, document_));
  EXPECT_FALSE(PrintOnDefaultPrinter(printer(), status_, document_));
  EXPECT_EQ(printer().asked.size(), 2U);
  EXPECT_TRUE(printer().printed.empty());
}

TEST_F(PrintingTest, PrinterThatFailsIsError482) {
  printer().fails = true;
  EXPECT_EQ(Thrown([&] { PrintWithDialog(printer(), status_, document_); }), ErrorNumber::kPrinter);
  EXPECT_EQ(Thrown([&] { PrintOnDefaultPrinter(printer(), status_, document_); }),
            ErrorNumber::kPrinter);
}

}  // namespace
}  // namespace velta
