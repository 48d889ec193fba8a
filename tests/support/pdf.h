#pragma once

#include <gtest/gtest.h>

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QString>
#include <QStringList>
#include <string>
#include <vector>

/// What a PDF holds, as the tools of poppler-utils read it.
namespace velta {

inline bool PdfToolsAreInstalled() {
  return !QStandardPaths::findExecutable("pdftotext").isEmpty() &&
         !QStandardPaths::findExecutable("pdffonts").isEmpty();
}

/// What the tool writes. A test in which the tool fails has failed.
inline QString RunPdfTool(const QString& tool, const QStringList& arguments) {
  QProcess process;
  process.start(tool, arguments);
  EXPECT_TRUE(process.waitForFinished());
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  return QString::fromUtf8(process.readAllStandardOutput());
}

/// The lines that have text, page by page. In a line every character stands in its own column, the
/// first at the left edge of the printable area.
inline std::vector<std::vector<std::string>> PdfPages(const QString& file) {
  std::vector<std::vector<std::string>> pages;
  // Without the margin of 27 points, which is no whole number of columns.
  const QString text = RunPdfTool("pdftotext", {"-layout", "-fixed", "6", "-r", "72", "-x", "26",
                                                "-y", "0", "-W", "569", "-H", "842", file, "-"});
  for (const QString& page : text.split('\f', Qt::SkipEmptyParts)) {
    std::vector<std::string>& lines = pages.emplace_back();
    for (const QString& line : page.split('\n')) {
      if (line.trimmed().isEmpty()) continue;
      lines.push_back(line.toStdString());
    }
  }
  return pages;
}

/// A word of a page with its place, in points from the paper's left upper corner.
struct PdfWord {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
  QString text;
};

inline std::vector<PdfWord> PdfWords(const QString& file) {
  static const QRegularExpression kWord(
      R"re(<word xMin="(.*)" yMin="(.*)" xMax="(.*)" yMax="(.*)">(.*)</word>)re");
  std::vector<PdfWord> words;
  auto found = kWord.globalMatch(RunPdfTool("pdftotext", {"-bbox", file, "-"}));
  while (found.hasNext()) {
    const QRegularExpressionMatch word = found.next();
    words.push_back({word.captured(1).toDouble(), word.captured(2).toDouble(),
                     word.captured(3).toDouble(), word.captured(4).toDouble(), word.captured(5)});
  }
  return words;
}

/// One row for each font, as pdffonts writes it.
inline QStringList PdfFonts(const QString& file) {
  return RunPdfTool("pdffonts", {file}).split('\n', Qt::SkipEmptyParts).mid(2);
}

}  // namespace velta
