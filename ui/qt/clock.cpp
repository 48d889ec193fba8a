#include "ui/qt/clock.h"

#include <QDateTime>

#include "ui/qt/text.h"

namespace velta::qt {

ui::Moment Clock::Now() const {
  const QDateTime now = QDateTime::currentDateTime();
  return {ToDay(now.date()), std::chrono::minutes(now.time().hour() * 60 + now.time().minute())};
}

}  // namespace velta::qt
