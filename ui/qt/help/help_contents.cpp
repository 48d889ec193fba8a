#include "ui/qt/help/help_contents.h"

#include <QRegularExpression>
#include <QTextDocumentFragment>
#include <algorithm>

#include "ui/qt/text.h"
#include "values/text_encoding.h"

namespace velta::qt {

namespace {

/// An attribute's value without its entities.
QString Decoded(const QString& value) {
  return QTextDocumentFragment::fromHtml(value).toPlainText();
}

}  // namespace

QList<HelpEntry> ReadHelpContents(const QByteArray& hhc) {
  static const QRegularExpression kMark(
      R"re(<(ul|/ul|object)\b[^>]*>|<param name="(name|local)" value="([^"]*)">)re",
      QRegularExpression::CaseInsensitiveOption);
  QList<HelpEntry> entries;
  int depth = 0;
  auto marks = kMark.globalMatch(ToQString(FromWindows1250(hhc.toStdString())));
  while (marks.hasNext()) {
    const QRegularExpressionMatch mark = marks.next();
    const QString tag = mark.captured(1).toLower();
    if (tag == "ul") ++depth;
    if (tag == "/ul") --depth;
    if (tag == "object") entries.append({{}, {}, std::max(0, depth - 1)});
    if (!tag.isEmpty() || entries.isEmpty()) continue;
    const bool is_name = mark.captured(2).compare("name", Qt::CaseInsensitive) == 0;
    (is_name ? entries.last().title : entries.last().page) = Decoded(mark.captured(3));
  }
  return entries;
}

}  // namespace velta::qt
