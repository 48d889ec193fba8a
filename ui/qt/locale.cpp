#include "ui/qt/locale.h"

#include <QRegularExpression>

#include "ui/qt/text.h"

namespace velta::qt {

namespace {

QString DatePattern(const QLocale& locale) {
  QString czech = ToQString(ui::LocaleFormat().date_pattern);
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

}  // namespace

ui::LocaleFormat LocaleFormatOf(const QLocale& locale) {
  ui::LocaleFormat format;
  if (locale.language() == QLocale::C) return format;
  // The comma is the decimal separator or the point is: rate files, typed separators and pasted
  // amounts know no third. So a point never groups either, lest a pasted "1.5" be read as 15.
  if (locale.decimalPoint() != ",") format.decimal = ".";
  if (format.decimal == "." && locale.groupSeparator() == ",") format.group = ",";
  format.date_pattern = ToUtf8(DatePattern(locale));
  return format;
}

}  // namespace velta::qt
