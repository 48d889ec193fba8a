#include "ui/qt/help/help_contents.h"

#include <QRegularExpression>
#include <QTextDocumentFragment>
#include <algorithm>

namespace velta::qt {

namespace {

// What the bytes from 0x80 on mean. Whether Qt itself can tell depends on how it was built.
constexpr QStringView kWindows1250 =
    u"€\uFFFD‚\uFFFD„…†‡\uFFFD‰Š‹ŚŤŽŹ\uFFFD‘’“”•–—\uFFFD™š›śťžź"
    u"\u00A0ˇ˘Ł¤Ą¦§¨©Ş«¬\u00AD®Ż°±˛ł´µ¶·¸ąş»Ľ˝ľż"
    u"ŔÁÂĂÄĹĆÇČÉĘËĚÍÎĎĐŃŇÓÔŐÖ×ŘŮÚŰÜÝŢß"
    u"ŕáâăäĺćçčéęëěíîďđńňóôőö÷řůúűüýţ˙";
constexpr uchar kFirstOfTable = 0x80;

QString FromWindows1250(const QByteArray& bytes) {
  QString text;
  text.reserve(bytes.size());
  for (const char byte : bytes) {
    const auto code = static_cast<uchar>(byte);
    text += code < kFirstOfTable ? QChar(code) : kWindows1250[code - kFirstOfTable];
  }
  return text;
}

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
  auto marks = kMark.globalMatch(FromWindows1250(hhc));
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
