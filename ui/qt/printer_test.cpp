#include "ui/qt/printer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <csignal>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/pdf.h"
#include "ui/qt/czech_texts.h"

namespace velta::qt {
namespace {

// The printers of whoever runs the tests are none of ours. The printing library looks here once.
const bool kWithoutPrinters = qputenv("CUPS_SERVER", "/nonexistent/cups.sock");

constexpr double kTenthOfPoint = 0.1;

class PrintJobTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!PdfToolsAreInstalled()) GTEST_SKIP() << "poppler-utils is not installed";
  }

  static ui::PrintedDocument Document(std::vector<ui::PrintedLine> lines) {
    return {"Zkouška", "Courier New CE", 10, std::move(lines)};
  }
  /// Lines "1", "2" and so on, the first and the last column marked.
  static ui::PrintedDocument NumberedLines(int count) {
    std::vector<ui::PrintedLine> lines;
    for (int i = 1; i <= count; ++i) lines.push_back({NumberedLine(i)});
    return Document(std::move(lines));
  }
  static std::string NumberedLine(int number) {
    return "[" + QString::number(number).leftJustified(88, '.').toStdString() + "]";
  }
  /// The lines of a page, and below them its number where it has one.
  static std::vector<std::string> NumbersFrom(int first, int last,
                                              const std::string& page_number = "") {
    std::vector<std::string> lines;
    for (int i = first; i <= last; ++i) lines.push_back(NumberedLine(i));
    if (!page_number.empty()) lines.push_back(page_number);
    return lines;
  }
  /// The pages, without the blanks before the numbers.
  std::vector<std::vector<std::string>> Pages() const {
    auto pages = PdfPages(file_);
    for (auto& page : pages) {
      for (std::string& line : page) {
        const std::size_t number = line.find("strana ");
        if (number != std::string::npos) line.erase(0, number);
      }
    }
    return pages;
  }

  std::unique_ptr<QPrinter> FilePrinter() const {
    auto printer = MakePagePrinter();
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(file_);
    return printer;
  }
  bool Print(const ui::PrintedDocument& document) const {
    return PrintJob(FilePrinter()).Print(document);
  }

  QTemporaryDir folder_;
  QString file_ = folder_.filePath("výpočet.pdf");
};

TEST_F(PrintJobTest, EveryCharacterStandsInItsColumn) {
  const std::vector<std::string> lines = {
      "....5...10...15...20...25...30...35...40...45...50...55...60...65...70...75...80...85...90",
      "    ÁČĎÉĚÍŇÓŘŠŤÚŮÝŽ áčďéěíňóřšťúůýž  Příliš žluťoučký kůň úpěl ďábelské ódy",
      "    0,5 ‰ denně                                                 3  %",
      std::string(88, ' ') + "Kč",
      std::string(89, '*') + "‰",
  };
  std::vector<ui::PrintedLine> printed;
  printed.reserve(lines.size());
  for (const std::string& line : lines) printed.push_back({line});
  ASSERT_TRUE(Print(Document(printed)));
  EXPECT_THAT(PdfPages(file_), ::testing::ElementsAre(lines));
}

TEST_F(PrintJobTest, ColumnsAreSixPointsWideAndLinesTwelvePointsHigh) {
  std::vector<ui::PrintedLine> lines(ui::kLinesOfPage);
  const std::string last_column = std::string(43, ' ') + "m" + std::string(44, ' ') + "m";
  lines.front().text = "m" + last_column;
  lines.back().text = "ž" + last_column;
  ASSERT_TRUE(Print(Document(lines)));

  const std::vector<PdfWord> words = PdfWords(file_);
  ASSERT_EQ(words.size(), 6U);
  for (const std::size_t row : {0U, 3U}) {
    EXPECT_NEAR(words[row].left, 27, kTenthOfPoint);
    EXPECT_NEAR(words[row + 1].left, 27 + 44 * 6, kTenthOfPoint);
    EXPECT_NEAR(words[row + 2].left, 27 + 89 * 6, kTenthOfPoint);
    EXPECT_LE(words[row + 2].right, 595 - 27 + 1);
  }
  EXPECT_NEAR(words[3].top - words[0].top, 64 * 12, kTenthOfPoint);
  EXPECT_GE(words[0].top, 27);
  EXPECT_LE(words[3].bottom, 842 - 27);
}

TEST_F(PrintJobTest, FullPageGoesOnToTheNextAndNoLineIsLost) {
  ASSERT_TRUE(Print(NumberedLines(150)));
  EXPECT_THAT(Pages(),
              ::testing::ElementsAre(NumbersFrom(1, 65), NumbersFrom(66, 130, "strana 2 / 3"),
                                     NumbersFrom(131, 150, "strana 3 / 3")));
}

TEST_F(PrintJobTest, LinesThatBelongTogetherGoOnTheNextPageTogether) {
  ui::PrintedDocument document = NumberedLines(70);
  for (std::size_t i = 60; i < 66; ++i) document.lines[i].keep_with_next = true;
  ASSERT_TRUE(Print(document));
  EXPECT_THAT(Pages(),
              ::testing::ElementsAre(NumbersFrom(1, 60), NumbersFrom(61, 70, "strana 2 / 2")));
}

TEST_F(PrintJobTest, PageNumberStandsBelowTheLinesWithinTheMargins) {
  ASSERT_TRUE(Print(NumberedLines(2 * ui::kLinesOfPage)));
  const std::vector<PdfWord> words = PdfWords(file_);
  const PdfWord& last_line = words[2 * ui::kLinesOfPage - 1];
  const PdfWord& number = words.back();
  EXPECT_EQ(number.text, "2");
  EXPECT_GT(number.bottom, last_line.bottom + 2);
  EXPECT_LE(number.bottom, 842 - 27 + 2) << "the room below the baseline is empty";
  EXPECT_NEAR(number.right, 27 + 90 * 6, 1);
}

TEST_F(PrintJobTest, ExactlyFullPageIsFollowedByNoEmptyOne) {
  ASSERT_TRUE(Print(NumberedLines(ui::kLinesOfPage)));
  EXPECT_THAT(PdfPages(file_), ::testing::ElementsAre(NumbersFrom(1, 65)));
}

TEST_F(PrintJobTest, OnlyTheChosenPagesArePrinted) {
  auto printer = FilePrinter();
  printer->setPrintRange(QPrinter::PageRange);
  printer->setFromTo(2, 3);
  ASSERT_TRUE(PrintJob(std::move(printer)).Print(NumberedLines(4 * ui::kLinesOfPage)));
  EXPECT_THAT(Pages(), ::testing::ElementsAre(NumbersFrom(66, 130, "strana 2 / 4"),
                                              NumbersFrom(131, 195, "strana 3 / 4")));
}

TEST_F(PrintJobTest, PrinterWithWideMarginsPrintsSmallerAndCutsNothingOff) {
  // All wide; below alone, where many printers cannot go as near to the edge.
  for (const QMarginsF& margins : {QMarginsF(60, 60, 60, 60), QMarginsF(27, 27, 27, 60)}) {
    auto printer = FilePrinter();
    printer->setPageMargins(margins, QPageLayout::Point);
    ASSERT_TRUE(PrintJob(std::move(printer)).Print(NumberedLines(150)));

    EXPECT_EQ(PdfPages(file_).size(), 3U);
    int number = 0;
    for (const PdfWord& word : PdfWords(file_)) {
      // The number of a page too is within the margins.
      if (word.text.startsWith('[')) {
        EXPECT_EQ(word.text.toStdString(), NumberedLine(++number));
      }
      EXPECT_GE(word.left, margins.left() - kTenthOfPoint);
      EXPECT_LE(word.right, 595 - margins.right() + 1);
      EXPECT_LE(word.bottom, 842 - margins.bottom() + 2);
    }
    EXPECT_EQ(number, 150);
  }
}

/// A picture of the first page in gray, so many dots to an inch.
QImage PictureOf(const QString& file, int dots) {
  RunPdfTool("pdftoppm", {"-r", QString::number(dots), "-gray", "-singlefile", file, file});
  return QImage(file + ".pgm");
}

TEST_F(PrintJobTest, BarsAndRulesAreLinesWithoutGaps) {
  const std::string rule = "    |" + std::string(10, '-') + "|";
  const std::string empty = "    |    |     |";
  ASSERT_TRUE(Print(Document({{rule}, {empty}, {empty}, {rule}, {empty}, {rule}, {"| a-b | --"}})));
  EXPECT_THAT(PdfPages(file_), ::testing::ElementsAre(std::vector<std::string>{
                                   rule, empty, empty, rule, empty, rule, "| a-b | --"}))
      << "the characters are still there";

  constexpr int kDots = 144;  // two to a point
  const QImage page = PictureOf(file_, kDots);
  const auto is_dark = [&](double x, double y) {
    // Somewhere about: a line is about a point wide, and the picture has its own rounding.
    int darkest = 255;
    for (int dx = -2; dx <= 2; ++dx) {
      for (int dy = -2; dy <= 2; ++dy) {
        const QPoint dot(static_cast<int>(2 * x) + dx, static_cast<int>(2 * y) + dy);
        darkest = std::min(darkest, qGray(page.pixel(dot)));
      }
    }
    return darkest < 128;
  };
  const auto cell = [](int column) { return 27 + (column - 0.5) * 6; };
  constexpr double kTop = 27 + 6;  // the middle of the first line
  for (const int column : {5, 10, 16}) {
    for (double y = kTop; y <= kTop + 5 * 12; y += 0.5) {
      EXPECT_TRUE(is_dark(cell(column), y)) << "column " << column << " at " << y;
    }
  }
  for (const int line : {0, 3, 5}) {
    for (double x = cell(5); x <= cell(16); x += 0.5) {
      EXPECT_TRUE(is_dark(x, kTop + line * 12)) << "line " << line << " at " << x;
    }
  }
  EXPECT_FALSE(is_dark(cell(5), kTop - 5)) << "nothing stands out of the box's corner";
  for (const int column : {1, 7}) {
    EXPECT_FALSE(is_dark(cell(column), kTop + 6 * 12 - 7)) << "a bar in a text is a character";
  }
}

TEST_F(PrintJobTest, CodeIsReadBackFromThePage) {
  if (QStandardPaths::findExecutable("zbarimg").isEmpty()) {
    GTEST_SKIP() << "zbar-tools is not installed";
  }
  ui::PrintedDocument document = NumberedLines(80);
  for (std::size_t i = 65; i < 76; ++i) document.lines[i].text.clear();
  const std::string payload =
      "SPD*1.0*ACC:CZ6508000000192000145399*AM:1234.50*CC:CZK*X-VS:2026001*DT:20260129*MSG:"
      "PENALIZACNI FAKTURA 2026001";
  document.code = {payload, "QR Platba", 66, 74, 7};
  ASSERT_TRUE(Print(document));
  EXPECT_EQ(PdfPages(file_)[0], NumbersFrom(1, 65));
  EXPECT_EQ(Pages()[1], NumbersFrom(77, 80, "strana 2 / 2")) << "the caption is no text";

  // As a telephone sees it, and a fax machine.
  for (const char* dots : {"300", "100"}) {
    RunPdfTool("pdftoppm", {"-r", dots, "-f", "2", "-png", "-singlefile", file_, file_});
    EXPECT_EQ(RunPdfTool("zbarimg", {"-q", "--raw", "--nodbus", file_ + ".png"}).toStdString(),
              payload + "\n");
  }
}

TEST_F(PrintJobTest, CombiningMarkIsDrawnOntoItsLetter) {
  const std::string text = "x\u0323y";
  ASSERT_TRUE(Print(Document({{text + "|"}})));
  EXPECT_NEAR(PdfWords(file_).back().right, 27 + 3 * 6, 1) << "three cells, not four";
}

TEST_F(PrintJobTest, FontsAreEmbeddedAndOfFixedPitch) {
  ASSERT_TRUE(Print(Document({{"Úrok z prodlení 0,5 ‰"}})));
  const QStringList fonts = PdfFonts(file_);
  ASSERT_EQ(fonts.size(), 1);
  // name, type, encoding, embedded, subset, with a table back to Unicode
  EXPECT_THAT(fonts[0].toStdString(),
              ::testing::MatchesRegex(
                  ".*(CourierNew|LiberationMono|DejaVuSansMono).* yes +(yes|no) +yes .*"));
}

TEST_F(PrintJobTest, BoldLinesAreInABoldFontOfTheSamePitch) {
  const std::string text = std::string(89, '*') + "ž";
  ASSERT_TRUE(Print(Document({{text, true}, {text}})));
  EXPECT_THAT(PdfPages(file_), ::testing::ElementsAre(std::vector({text, text})));
  const QStringList fonts = PdfFonts(file_);
  EXPECT_EQ(fonts.size(), 2);
  EXPECT_EQ(fonts.filter("Bold").size(), 1);
}

TEST_F(PrintJobTest, FailsWhereTheFileCannotBeWritten) {
  QFile in_the_way(file_);
  ASSERT_TRUE(in_the_way.open(QFile::WriteOnly));
  file_ += "/below-a-file.pdf";
  EXPECT_FALSE(Print(NumberedLines(1)));
}

TEST_F(PrintJobTest, FailsWhereTheDiskIsFull) {
  // No file may grow beyond a few bytes for a while, which to the writer looks the same.
  const auto old_handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit old_limit{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old_limit), 0);
  rlimit limit = old_limit;
  limit.rlim_cur = 4096;
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  const bool printed = Print(NumberedLines(1));
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &old_limit), 0);
  std::signal(SIGXFSZ, old_handler);
  EXPECT_FALSE(printed);
  EXPECT_TRUE(Print(NumberedLines(1)));
}

class PrintDialogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(home_.isValid());
    qputenv("HOME", home_.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", home_.filePath(".config").toUtf8());
    QSettings(QSettings::IniFormat, QSettings::UserScope, QCoreApplication::applicationName(),
              "printing")
        .clear();
  }
  void TearDown() override {
    qputenv("HOME", old_home_);
    qunsetenv("XDG_CONFIG_HOME");
    if (!old_config_.isEmpty()) qputenv("XDG_CONFIG_HOME", old_config_);
  }

  using Question = std::unique_ptr<ui::PrintJob> (Printer::*)(const std::string&);

  /// Asks for a printer for `document_` and lets `user` act on the dialog, which is cancelled if it
  /// is still open after that.
  std::unique_ptr<ui::PrintJob> Ask(const std::function<void(QPrintDialog&)>& user,
                                    Question question = &Printer::AskUser) {
    bool shown = false;
    QTimer::singleShot(0, &context_, [&] {
      auto* const dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      shown = true;
      user(*dialog);
      if (dialog->isVisible()) dialog->reject();
    });
    auto job = (service_.*question)(document_);
    EXPECT_TRUE(shown);
    return job;
  }

  template <class Part>
  static Part& Find(QDialog& dialog, const char* name) {
    auto* const part = dialog.findChild<Part*>(name);
    if (part == nullptr) throw std::logic_error(std::string("no ") + name);
    return *part;
  }
  static void Press(QDialog& dialog, const QString& text) {
    for (auto* const button : dialog.findChildren<QPushButton*>()) {
      if (button->text() == text) return button->click();
    }
    FAIL() << "no button " << text.toStdString();
  }

  /// Prints to the file that the user names.
  std::unique_ptr<ui::PrintJob> PrintTo(const QString& name) {
    auto job = Ask([&](QPrintDialog& dialog) {
      Find<QLineEdit>(dialog, "filename").setText(name);
      Press(dialog, "&Tisk");
    });
    EXPECT_NE(job, nullptr);
    EXPECT_TRUE(job->Print({"Zkouška", "Courier New CE", 10, {{"řádek"}}}));
    return job;
  }
  QString Suggested() {
    QString name;
    Ask([&](QPrintDialog& dialog) { name = Find<QLineEdit>(dialog, "filename").text(); });
    return name;
  }

  std::string document_ = "Výpočet úroku z prodlení";
  QTemporaryDir home_;
  QByteArray old_home_ = qgetenv("HOME");
  QByteArray old_config_ = qgetenv("XDG_CONFIG_HOME");
  QObject context_;
  EventLoop loop_;
  Printer service_{loop_};
};

TEST_F(PrintDialogTest, WithoutAnyPrinterOffersAFile) {
  Ask([](QPrintDialog& dialog) {
    const auto& printers = Find<QComboBox>(dialog, "printers");
    EXPECT_EQ(printers.count(), 1);
    EXPECT_EQ(printers.currentText(), "Tisk do souboru (PDF)");
    EXPECT_TRUE(Find<QLineEdit>(dialog, "filename").isEnabled());
  });
}

TEST_F(PrintDialogTest, SuggestsAFileInTheHomeFolder) {
  Ask([&](QPrintDialog& dialog) {
    EXPECT_EQ(Find<QLineEdit>(dialog, "filename").text(),
              home_.filePath("Výpočet úroku z prodlení.pdf"));
  });
}

TEST_F(PrintDialogTest, SuggestsAFileInTheDocumentsWhereThereIsSuchAFolder) {
  ASSERT_TRUE(QDir(home_.path()).mkdir("Dokumenty"));
  ASSERT_TRUE(QDir(home_.path()).mkdir(".config"));
  QFile folders(home_.filePath(".config/user-dirs.dirs"));
  ASSERT_TRUE(folders.open(QFile::WriteOnly));
  folders.write("XDG_DOCUMENTS_DIR=\"$HOME/Dokumenty\"\n");
  folders.close();
  Ask([&](QPrintDialog& dialog) {
    EXPECT_EQ(Find<QLineEdit>(dialog, "filename").text(),
              home_.filePath("Dokumenty/Výpočet úroku z prodlení.pdf"));
  });
}

TEST_F(PrintDialogTest, SuggestsANameThatFilesCanHave) {
  document_ = "Penalizační faktura 2026/001: \"A\\B\" <*?|\n>";
  EXPECT_EQ(Suggested(), home_.filePath("Penalizační faktura 2026-001- -A-B- ------.pdf"));
  document_ = "Faktura " + std::string(300, 'x');
  EXPECT_EQ(Suggested(), home_.filePath("Faktura " + QString(112, 'x') + ".pdf"));
}

TEST_F(PrintDialogTest, NextFileIsSuggestedInTheFolderOfTheLast) {
  ASSERT_TRUE(QDir(home_.path()).mkpath("Faktury/2026"));
  PrintTo(home_.filePath("Faktury/2026/první.pdf"));
  EXPECT_EQ(Suggested(), home_.filePath("Faktury/2026/Výpočet úroku z prodlení.pdf"));
  ASSERT_TRUE(QDir(home_.filePath("Faktury")).removeRecursively());
  EXPECT_EQ(Suggested(), home_.filePath("Výpočet úroku z prodlení.pdf"));
}

TEST_F(PrintDialogTest, FileGetsItsEndingAndItsFolder) {
  struct Row {
    const char* typed;
    const char* file;
  };
  for (const auto& [typed, file] :
       {Row{"jedna", "jedna.pdf"}, Row{"dva.pdf", "dva.pdf"}, Row{"tri.PDF", "tri.PDF"},
        Row{"výpočet 10.3.2005", "výpočet 10.3.2005.pdf"},
        Row{" Novák s.r.o. ", "Novák s.r.o..pdf"}, Row{"jiný.ps7", "jiný.ps7"}}) {
    EXPECT_EQ(PrintTo(typed)->file(), home_.filePath(file).toStdString()) << typed;
    EXPECT_TRUE(QFile::exists(home_.filePath(file))) << typed;
  }
}

TEST_F(PrintDialogTest, ReplacesNoFileByTheEndingThatItAdds) {
  QFile file(home_.filePath("jedna.pdf"));
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  bool asked = false;
  const auto job = Ask([&](QPrintDialog& dialog) {
    Find<QLineEdit>(dialog, "filename").setText("jedna");
    QTimer::singleShot(0, &context_, [&] {
      auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      asked = true;
      box->button(QMessageBox::No)->click();
    });
    Press(dialog, "&Tisk");
  });
  EXPECT_TRUE(asked);
  EXPECT_EQ(job, nullptr);
}

TEST_F(PrintDialogTest, ShowsTheCopiesAtOnceAndStartsWithOne) {
  Ask([](QPrintDialog& dialog) {
    const auto& copies = Find<QSpinBox>(dialog, "copies");
    EXPECT_TRUE(copies.isVisible());
    EXPECT_EQ(copies.value(), 1);
  });
}

TEST_F(PrintDialogTest, LeavesThePaperAlone) {
  Ask([](QPrintDialog& dialog) {
    EXPECT_FALSE(Find<QPushButton>(dialog, "properties").isVisible());
  });
}

TEST_F(PrintDialogTest, CancelledGivesNoJob) {
  EXPECT_EQ(Ask([](QPrintDialog& dialog) { Press(dialog, "Zrušit"); }), nullptr);
  EXPECT_EQ(Ask([](QPrintDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }), nullptr);
  EXPECT_TRUE(QDir(home_.path()).isEmpty());
}

TEST_F(PrintDialogTest, PrintsToTheFileThatTheUserNames) {
  const QString file = home_.filePath("jiný.pdf");
  const auto job = Ask([&](QPrintDialog& dialog) {
    Find<QLineEdit>(dialog, "filename").setText(file);
    Find<QSpinBox>(dialog, "copies").setValue(4);
    Press(dialog, "&Tisk");
  });
  ASSERT_NE(job, nullptr);
  EXPECT_EQ(job->copies(), 4);
  const std::string line(90, 'm');
  ASSERT_TRUE(job->Print({"Zkouška", "Courier New CE", 10, {{line}}}));
  if (!PdfToolsAreInstalled()) GTEST_SKIP() << "poppler-utils is not installed";
  EXPECT_THAT(PdfPages(file), ::testing::ElementsAre(std::vector({line})));
}

TEST_F(PrintDialogTest, IsShownForTheDefaultPrinterWhereThereIsNone) {
  const auto job = Ask(
      [](QPrintDialog& dialog) {
        EXPECT_EQ(Find<QComboBox>(dialog, "printers").currentText(), "Tisk do souboru (PDF)");
        Press(dialog, "&Tisk");
      },
      &Printer::Default);
  ASSERT_NE(job, nullptr);
  ASSERT_TRUE(job->Print({"Zkouška", "Courier New CE", 10, {{"řádek"}}}));
  EXPECT_TRUE(QFile::exists(home_.filePath("Výpočet úroku z prodlení.pdf")));
  EXPECT_EQ(Ask([](QPrintDialog& dialog) { Press(dialog, "Zrušit"); }, &Printer::Default), nullptr);
}

TEST_F(PrintDialogTest, PrintsThePagesThatTheUserChooses) {
  if (!PdfToolsAreInstalled()) GTEST_SKIP() << "poppler-utils is not installed";
  const auto job = Ask([](QPrintDialog& dialog) {
    Find<QRadioButton>(dialog, "printRange").click();
    Find<QSpinBox>(dialog, "to").setValue(2);
    Find<QSpinBox>(dialog, "from").setValue(2);
    Press(dialog, "&Tisk");
  });
  ASSERT_NE(job, nullptr);
  constexpr std::size_t kPage = ui::kLinesOfPage;
  std::vector<ui::PrintedLine> lines(3 * kPage);
  lines[0].text = "první";
  lines[kPage].text = "druhá";
  lines[2 * kPage].text = "třetí";
  ASSERT_TRUE(job->Print({"Zkouška", "Courier New CE", 10, lines}));
  const auto pages = PdfPages(home_.filePath("Výpočet úroku z prodlení.pdf"));
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_EQ(pages[0].front(), "druhá");
}

TEST_F(PrintDialogTest, AsksInCzechBeforeItReplacesAFile) {
  QFile file(home_.filePath("Výpočet úroku z prodlení.pdf"));
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  QString question;
  QStringList answers;
  const auto job = Ask([&](QPrintDialog& dialog) {
    QTimer::singleShot(0, &context_, [&] {
      auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      question = box->text();
      for (const auto* const button : box->buttons()) answers.append(button->text().remove('&'));
      box->button(QMessageBox::No)->click();
    });
    Press(dialog, "&Tisk");
    EXPECT_TRUE(dialog.isVisible());
  });
  EXPECT_EQ(job, nullptr);
  EXPECT_THAT(
      question.toStdString(),
      ::testing::AllOf(::testing::HasSubstr(file.fileName().toStdString()),
                       ::testing::HasSubstr("již existuje"), ::testing::HasSubstr("přepsat?")));
  EXPECT_EQ(answers, QStringList({"Ano", "Ne"}));
}

TEST_F(PrintDialogTest, CallbacksOfTheProgramWaitForTheAnswer) {
  bool ran = false;
  loop_.After(std::chrono::milliseconds(0), [&] { ran = true; });
  Ask([&](QPrintDialog& /*dialog*/) {
    QTest::qWait(30);
    EXPECT_FALSE(ran);
  });
  EXPECT_TRUE(QTest::qWaitFor([&] { return ran; }));
}

/// All that a widget says or could say.
QStringList TextsOf(const QWidget& widget) {
  QStringList texts;
  for (const char* property : {"text", "title", "windowTitle", "toolTip", "statusTip", "whatsThis",
                               "placeholderText", "prefix", "suffix", "accessibleName"}) {
    texts.append(widget.property(property).toString());
  }
  if (const auto* const list = qobject_cast<const QComboBox*>(&widget)) {
    for (int i = 0; i < list->count(); ++i) texts.append(list->itemText(i));
  }
  if (const auto* const tabs = qobject_cast<const QTabWidget*>(&widget)) {
    for (int i = 0; i < tabs->count(); ++i) texts.append(tabs->tabText(i));
  }
  texts.removeAll(QString());
  return texts;
}

TEST_F(PrintDialogTest, SpeaksCzechInAllItsTexts) {
  static const QRegularExpression kEnglish(
      R"(\b(advanced|all|binding|cancel|collate|colou?r|copies|copy|current|double|even|file|form|from|)"
      R"(grayscale|jobs?|local|location|long|name|none|odd|off|options|output|pages?|preview|print(er|ing)?|)"
      R"(properties|range|reverse|save|selection|settings?|short|side[ds]?|specify|type|write)\b)",
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
  QStringList texts;
  Ask([&](QPrintDialog& dialog) {
    texts = TextsOf(dialog);
    for (const auto* const widget : dialog.findChildren<QWidget*>()) texts += TextsOf(*widget);
  });
  for (const QString& text : texts) {
    if (text.startsWith(home_.path())) continue;  // the file's path
    const QString plain = QString(text).remove('&');
    EXPECT_FALSE(kEnglish.match(plain).hasMatch()) << plain.toStdString();
  }
  // The dialog as it stands: that something has been looked at.
  EXPECT_THAT(texts, ::testing::IsSupersetOf({"Tisk", "Zrušit", "Oboustranný tisk", "Vypnuto",
                                              "Vazba na delší straně", "Počet exemplářů:"}));
}

TEST(CzechTextsTest, TranslatesWhatQtLeavesInEnglish) {
  const CzechTexts texts;
  EXPECT_EQ(texts.translate("QPrintSettingsOutput", "Off", nullptr, -1), "Vypnuto");
  EXPECT_EQ(texts.translate("QPrintDialog", "Page Setup Conflicts", nullptr, -1),
            "Neslučitelné nastavení strany");
}

TEST(CzechTextsTest, HyphenBetweenTwoPagesIsNotCalledADash) {
  const CzechTexts texts;
  for (const char* source :
       {"Specify pages or ranges separated by commas. Ranges are specified by two numbers "
        "separated by a hyphen. E.g: 3,5-7,9 prints pages 3, 5, 6, 7 and 9.",
        "%1 does not follow the correct syntax. Please use ',' to separate ranges and pages, '-' "
        "to define ranges and make sure ranges do not intersect with each other."}) {
    const QString text = texts.translate("QPrintDialog", source, nullptr, -1);
    EXPECT_TRUE(text.contains("se spojovníkem")) << text.toStdString();
    EXPECT_FALSE(text.contains("pomlčk")) << text.toStdString();
  }
}

TEST(CzechTextsTest, LeavesTheRestToQt) {
  const CzechTexts texts;
  EXPECT_TRUE(texts.translate("QPrintDialog", "Copies", nullptr, -1).isNull());
  EXPECT_TRUE(texts.translate("QDialogButtonBox", "Off", nullptr, -1).isNull());
}

}  // namespace
}  // namespace velta::qt
