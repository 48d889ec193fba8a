#pragma once

#include "ui/platform.h"
#include "ui/qt/clipboard.h"
#include "ui/qt/clock.h"
#include "ui/qt/event_loop.h"
#include "ui/qt/help/help_viewer.h"
#include "ui/qt/launcher.h"
#include "ui/qt/locale.h"
#include "ui/qt/message_box.h"
#include "ui/qt/opener.h"
#include "ui/qt/printer.h"
#include "ui/qt/program_folder.h"
#include "ui/qt/settings_store.h"
#include "ui/qt/text.h"
#include "ui/qt/user_name.h"
#include "ui/qt/window_places.h"
#include "ui/qt/window_system.h"

namespace velta::qt {

/// All services on Qt. Needs a QApplication that outlives it.
struct QtPlatform {
  ui::Platform platform() {
    return {message_box,    clipboard,     settings_store, launcher, opener,
            printer,        help_viewer,   user_name,      clock,    event_loop,
            program_folder, window_system, locale};
  }

  LocaleFormat locale = LocaleFormatOf(QLocale::system());
  EventLoop event_loop;
  MessageBox message_box{event_loop};
  Clipboard clipboard;
  SettingsStore settings_store;
  Launcher launcher;
  Opener opener;
  Printer printer{event_loop};
  HelpViewer help_viewer;
  UserName user_name;
  Clock clock;
  ProgramFolder program_folder;
  WindowPlaces window_places{ToQString(program_folder.ExecutableName())};
  WindowSystem window_system{&window_places};
};

}  // namespace velta::qt
