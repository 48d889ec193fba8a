// From a click on "&Tisk výpočtu" to the print server: the real windows, the real print dialog and
// a real server.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <functional>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "shell/velta.h"
#include "tests/printing/print_server.h"
#include "tests/support/pdf.h"
#include "ui/memory/memory_platform.h"
#include "ui/qt/qt_platform.h"

namespace velta {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const char* const kFirst = "Kancelar";
const char* const kSecond = "Sklad";
const char* const kReport =
    "Chyba 482 (Chyba tiskárny) v proceduře\n(cmdTiskVyp_Click) of (frmJednotlivy.frm).";

/// One print server for all tests of a run.
class Server final : public ::testing::Environment {
 public:
  void SetUp() override {
    instance = std::make_unique<PrintServer>();
    if (!instance->Start()) return;
    instance->AddQueue(kFirst);
    instance->AddQueue(kSecond);
  }
  void TearDown() override { instance.reset(); }

  inline static std::unique_ptr<PrintServer> instance;
};
const ::testing::Environment* const kServer = ::testing::AddGlobalTestEnvironment(new Server);

class PrintingTest : public ::testing::Test {
 protected:
  void SetUp() override {
    // The windows of the test before are gone only with this turn of the loop.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (!server_->Start()) GTEST_SKIP() << server_->error().toStdString();
    if (!PdfToolsAreInstalled()) GTEST_SKIP() << "poppler-utils is not installed";
    jobs_before_ = server_->Jobs().size();
    answers_.callOnTimeout([this] { AnswerDialogs(); });
    answers_.start(5);

    memory_.program_folder.path = VELTA_SOURCE_DIR "/data";
    for (const auto& [key, value] : {std::pair("Hotovo", "Ano"), std::pair("Zaokrouhlit", "NE")}) {
      ASSERT_TRUE(memory_.settings_store.Write("velta", "Settings", key, value));
    }
    velta_.Start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return velta_.program().windows.IsLoaded("frmMenu"); }));
    velta_.program().windows.Open("frmJednotlivy");
    QApplication::processEvents();
  }

  /// The delay is from 6.11. to 21.11.2026.
  void Compute(const QString& amount, const QString& rate) {
    Fill("txtDluznaCastka", amount);
    Fill("txtVyseSazby", rate);
    ASSERT_TRUE(velta_.program().state.CalculationFinished);
  }

  /// How the user acts on the next print dialog. What he leaves open is cancelled.
  void WillAnswer(std::function<void(QPrintDialog&)> user) { user_ = std::move(user); }

  /// Clicks on the window's print button; `user` acts on the print dialog.
  void Print(std::function<void(QPrintDialog&)> user) {
    WillAnswer(std::move(user));
    QTest::mouseClick(&Find<QPushButton>("cmdTiskVyp"), Qt::LeftButton);
    EXPECT_FALSE(user_) << "no print dialog";
  }

  /// The user who prints on that queue.
  static std::function<void(QPrintDialog&)> PrintOn(const QString& queue, int copies = 1) {
    return [=](QPrintDialog& dialog) {
      auto& printers = *dialog.findChild<QComboBox*>("printers");
      ASSERT_GE(printers.findText(queue), 0);
      printers.setCurrentText(queue);
      dialog.findChild<QSpinBox*>("copies")->setValue(copies);
      Press(dialog, "&Tisk");
    };
  }

  static void Press(QDialog& dialog, const QString& text) {
    for (auto* const button : dialog.findChildren<QPushButton*>()) {
      if (button->text() == text) return QTest::mouseClick(button, Qt::LeftButton);
    }
    FAIL() << "no button " << text.toStdString();
  }

  /// The texts of the message boxes since the last call.
  std::vector<std::string> Messages() { return std::exchange(messages_, {}); }

  qsizetype NewJobs() const { return server_->Jobs().size() - jobs_before_; }
  std::vector<std::string> LinesOfLastJob() const {
    const auto pages = PdfPages(server_->Jobs().constLast());
    EXPECT_EQ(pages.size(), 1U);
    return pages.front();
  }

  template <class Part>
  static Part& Find(const char* name) {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
      if (auto* const part = widget->findChild<Part*>(name)) return *part;
    }
    throw std::logic_error(std::string("no ") + name);
  }

  PrintServer* const server_ = Server::instance.get();
  qsizetype jobs_before_ = 0;
  ui::MemoryPlatform memory_;
  qt::QtPlatform qt_;
  Velta velta_{{qt_.message_box, memory_.clipboard, memory_.settings_store, memory_.launcher,
                memory_.opener, qt_.printer, memory_.help_viewer, memory_.user_name, memory_.clock,
                qt_.event_loop, memory_.program_folder, qt_.window_system, memory_.locale},
               {}};

 private:
  static void Fill(const char* name, const QString& text) {
    auto& field = Find<QLineEdit>(name);
    field.setFocus(Qt::TabFocusReason);
    field.selectAll();
    QTest::keyClicks(&field, text);
  }

  void AnswerDialogs() {
    QWidget* const modal = QApplication::activeModalWidget();
    const QWindow* const window = modal == nullptr ? nullptr : modal->windowHandle();
    if (window == nullptr || !window->isExposed()) return;
    if (auto* const box = qobject_cast<QMessageBox*>(modal)) {
      messages_.push_back(box->text().toStdString());
      box->button(QMessageBox::Ok)->click();
    } else if (auto* const dialog = qobject_cast<QPrintDialog*>(modal)) {
      if (user_) std::exchange(user_, {})(*dialog);
      if (dialog->isVisible()) dialog->reject();
    }
  }

  QTimer answers_;
  std::function<void(QPrintDialog&)> user_;
  std::vector<std::string> messages_;
};

/// Label at column 5, value at column 65.
std::string Row(const QString& label, const QString& value) {
  return ("    " + label.leftJustified(60) + value).toStdString();
}

const std::string kRule = "    " + std::string(73, '*');

TEST_F(PrintingTest, JobReachesTheChosenQueueWithItsCopies) {
  Compute("20000", "12");
  Print(PrintOn(kSecond, 3));
  EXPECT_THAT(Messages(), IsEmpty());
  ASSERT_EQ(NewJobs(), 1);
  const qsizetype job = server_->Jobs().size() - 1;
  EXPECT_EQ(server_->QueueOf(job), kSecond);
  EXPECT_EQ(server_->CopiesOf(job), 3);
  // 20 000 × 12 % × 15 ÷ 365 = 98,630…
  EXPECT_THAT(LinesOfLastJob(),
              ElementsAre("    Podklady pro výpočet úroku z prodlení", kRule,
                          Row("Úrok z prodlení ode dne:", "6.11.2026"),
                          Row("Úrok z prodlení ke dni:", "21.11.2026"),
                          Row("Počet dnů prodlení:", "15"), Row("Úroková sazba:", "12 % ročně"),
                          Row("Dlužná částka:", "20 000,00 Kč"), Row("Úrok z prodlení", "98,63 Kč"),
                          Row("Úrok z prodlení + dlužná částka", "20 098,63 Kč"), kRule));
}

TEST_F(PrintingTest, NextCalculationStartsWithOneCopyAgain) {
  Compute("20000", "12");
  Print(PrintOn(kFirst, 3));
  int copies = 0;
  Print([&](QPrintDialog& dialog) {
    copies = dialog.findChild<QSpinBox*>("copies")->value();
    Press(dialog, "&Tisk");
  });
  EXPECT_EQ(copies, 1);
  ASSERT_EQ(NewJobs(), 2);
  EXPECT_EQ(server_->CopiesOf(server_->Jobs().size() - 1), 1);
}

TEST_F(PrintingTest, CancelledDialogPrintsNothingAndSaysNothing) {
  Compute("20000", "12");
  Print([](QPrintDialog& dialog) { Press(dialog, "Zrušit"); });
  EXPECT_EQ(NewJobs(), 0);
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(PrintingTest, PrintsFromTheMainMenuToo) {
  Compute("20000", "12");
  WillAnswer(PrintOn(kFirst));
  Find<QAction>("mnuTiskVypoctu").trigger();
  EXPECT_EQ(NewJobs(), 0);  // the menu's command is over before the printing begins
  EXPECT_TRUE(QTest::qWaitFor([&] { return NewJobs() == 1; }));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(LinesOfLastJob(), Contains(Row("Úrok z prodlení", "98,63 Kč")));
}

class DefaultPrinterTest : public PrintingTest {
 protected:
  void TearDown() override {
    if (!server_->Start()) return;
    server_->RemoveQueue(kSecond);
    server_->AddQueue(kSecond);
  }

  const ui::PrintedDocument invoice_{"Faktura", "Courier New CE", 10, {{"Penalizační faktura"}}};
};

TEST_F(DefaultPrinterTest, TakesOneCopyWithoutAQuestion) {
  server_->MakeDefault(kSecond);
  WillAnswer([](QPrintDialog&) { FAIL() << "the user was asked"; });
  const auto job = qt_.printer.Default(invoice_.name);
  ASSERT_NE(job, nullptr);
  EXPECT_EQ(job->copies(), 1);
  ASSERT_TRUE(job->Print(invoice_));
  ASSERT_EQ(NewJobs(), 1);
  const qsizetype last = server_->Jobs().size() - 1;
  EXPECT_EQ(server_->QueueOf(last), kSecond);
  EXPECT_EQ(server_->CopiesOf(last), 1);
  EXPECT_THAT(LinesOfLastJob(), ElementsAre("Penalizační faktura"));
}

TEST_F(DefaultPrinterTest, WhereThereIsNoneTheUserChooses) {
  WillAnswer(PrintOn(kSecond, 2));
  const auto job = qt_.printer.Default(invoice_.name);
  ASSERT_NE(job, nullptr);
  EXPECT_EQ(job->copies(), 2);
  ASSERT_TRUE(job->Print(invoice_));
  ASSERT_EQ(NewJobs(), 1);
  EXPECT_EQ(server_->QueueOf(server_->Jobs().size() - 1), kSecond);

  WillAnswer([](QPrintDialog& dialog) { Press(dialog, "Zrušit"); });
  EXPECT_EQ(qt_.printer.Default(invoice_.name), nullptr);
}

TEST_F(DefaultPrinterTest, ThatFailsPrintsNothingAndTheDialogStaysAway) {
  server_->MakeDefault(kSecond);
  const auto job = qt_.printer.Default(invoice_.name);
  ASSERT_NE(job, nullptr);
  server_->Reject(kSecond);
  EXPECT_FALSE(job->Print(invoice_));
  EXPECT_EQ(NewJobs(), 0);
}

/// A printer that is there when the dialog opens and fails before the job comes.
struct Fault {
  const char* name;
  void (*arise)(PrintServer&);
  void (*mend)(PrintServer&);

  friend void PrintTo(const Fault& fault, std::ostream* out) { *out << fault.name; }
};

class PrinterFaultTest : public PrintingTest, public ::testing::WithParamInterface<Fault> {};

TEST_P(PrinterFaultTest, IsReportedAndTheWindowStaysUsable) {
  Compute("20000", "12");
  Print([this](QPrintDialog& dialog) {
    GetParam().arise(*server_);
    jobs_before_ = server_->Jobs().size();  // a queue that is removed takes its old jobs along
    PrintOn(kFirst)(dialog);
  });
  EXPECT_THAT(Messages(), ElementsAre(kReport));
  EXPECT_EQ(NewJobs(), 0);

  GetParam().mend(*server_);
  Compute("30000", "12");
  Print(PrintOn(kFirst));
  EXPECT_THAT(Messages(), IsEmpty());
  ASSERT_EQ(NewJobs(), 1);
  // 30 000 × 12 % × 15 ÷ 365 = 147,945…
  EXPECT_THAT(LinesOfLastJob(), Contains(Row("Úrok z prodlení", "147,95 Kč")));
}

INSTANTIATE_TEST_SUITE_P(
    Faults, PrinterFaultTest,
    ::testing::Values(Fault{"QueueRejects", [](PrintServer& server) { server.Reject(kFirst); },
                            [](PrintServer& server) { server.Accept(kFirst); }},
                      Fault{"QueueIsRemoved",
                            [](PrintServer& server) { server.RemoveQueue(kFirst); },
                            [](PrintServer& server) { server.AddQueue(kFirst); }},
                      Fault{"ServerStops", [](PrintServer& server) { server.Stop(); },
                            [](PrintServer& server) { EXPECT_TRUE(server.Start()); }}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace velta
