#include "ui/qt/locale.h"

#include <QRegularExpression>

#include "ui/qt/text.h"

namespace velta::qt {

namespace {

QString DatePattern(const QLocale& locale) {
  QString czech = ToQString(LocaleFormat().date_pattern);
  QString pattern = locale.dateFormat(QLocale::ShortFormat);
  static const QLocale kCzech(QLocale::Czech, QLocale::CzechRepublic);
  if (locale.language() == QLocale::Czech && pattern == kCzech.dateFormat(QLocale::ShortFormat)) {
    return czech;
  }
  static const QRegularExpression kYear("y+");
  static const QRegularExpression kNumeric(
      R"(^(?=.*d)(?=.*M)(?=.*y)(dd?|MM?|yyyy)([ ./-]+(dd?|MM?|yyyy)){2}[ ./-]*$)");
  pattern.replace(kYear, "yyyy");
  return kNumeric.match(pattern).hasMatch() ? pattern : czech;
}

/// In the terms of LocaleFormat.
QString TimePattern(const QLocale& locale) {
  QString pattern = locale.timeFormat(QLocale::ShortFormat);
  static const QRegularExpression kBlank(R"(\s)", QRegularExpression::UseUnicodePropertiesOption);
  static const QRegularExpression kHalf("[aA][pP]?");
  pattern.replace(kBlank, " ").replace(kHalf, "AP");
  static const QRegularExpression kNumeric("^(HH?[:.]mm|hh?[:.]mm ?AP|AP ?hh?[:.]mm)$");
  return kNumeric.match(pattern).hasMatch() ? pattern : ToQString(LocaleFormat().time_pattern);
}

}  // namespace

LocaleFormat LocaleFormatOf(const QLocale& locale) {
  LocaleFormat format;
  if (locale.language() == QLocale::C) return format;
  // The comma is the decimal separator or the point is: rate files, typed separators and pasted
  // amounts know no third. So a point never groups either, lest a pasted "1.5" be read as 15.
  if (locale.decimalPoint() != ",") format.decimal = ".";
  if (format.decimal == "." && locale.groupSeparator() == ",") format.group = ",";
  format.date_pattern = ToUtf8(DatePattern(locale));
  format.time_pattern = ToUtf8(TimePattern(locale));
  format.am = ToUtf8(locale.amText());
  format.pm = ToUtf8(locale.pmText());
  return format;
}

}  // namespace velta::qt
