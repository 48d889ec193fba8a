// The tests' own main: Qt's widgets need an application, and on a machine without a screen one that
// draws nowhere. CTest asks for the tests' names at build time, so this can't be left to its
// settings.

#include <gmock/gmock.h>

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

#include "ui/qt/run.h"

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  velta::qt::PrepareApplication();
  // Nothing that a test does may reach the settings of whoever runs it.
  const QTemporaryDir settings;
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
