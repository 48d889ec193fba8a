#pragma once

#include "ui/clipboard.h"
#include "ui/clock.h"
#include "ui/event_loop.h"
#include "ui/help_viewer.h"
#include "ui/launcher.h"
#include "ui/message_box.h"
#include "ui/opener.h"
#include "ui/printer.h"
#include "ui/program_folder.h"
#include "ui/settings_store.h"
#include "ui/user_name.h"
#include "ui/window_system.h"
#include "values/locale.h"

namespace velta::ui {

/// All that the program asks of the platform, handed in by reference. Whoever builds a platform
/// keeps the services alive for as long as the program runs.
struct Platform {
  MessageBox& message_box;
  Clipboard& clipboard;
  SettingsStore& settings_store;
  Launcher& launcher;
  Opener& opener;
  Printer& printer;
  HelpViewer& help_viewer;
  UserName& user_name;
  Clock& clock;
  EventLoop& event_loop;
  ProgramFolder& program_folder;
  WindowSystem& window_system;
  const LocaleFormat& locale;
};

}  // namespace velta::ui
