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
  format.decimal = ToUtf8(locale.decimalPoint());
  QString group = locale.groupSeparator();
  // Texts with the no-break blanks cannot be typed, searched or pasted into other programs.
  group.replace(QChar(0x00A0), u' ').replace(QChar(0x202F), u' ');
  format.group = ToUtf8(group);
  format.date_pattern = ToUtf8(DatePattern(locale));
  return format;
}

}  // namespace velta::qt
