#pragma once

#include <QDate>
#include <QString>
#include <chrono>
#include <string>
#include <string_view>

namespace velta::qt {

/// Texts are UTF-8 in the logic and UTF-16 in Qt.
inline QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string ToUtf8(const QString& text) { return text.toStdString(); }

/// Days count from 1.1.1970 in the logic and by Julian numbers in Qt.
inline constexpr qint64 kJulianDayOf1970 = 2440588;
inline QDate ToQDate(std::chrono::sys_days day) {
  return QDate::fromJulianDay(kJulianDayOf1970 + day.time_since_epoch().count());
}
inline std::chrono::sys_days ToDay(QDate date) {
  return std::chrono::sys_days(
      std::chrono::days(static_cast<int>(date.toJulianDay() - kJulianDayOf1970)));
}

}  // namespace velta::qt
