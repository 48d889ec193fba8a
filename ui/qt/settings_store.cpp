#include "ui/qt/settings_store.h"

#include <QSettings>
#include <QStringList>

#include "ui/qt/text.h"

namespace velta::qt {

namespace {

/// One section of the store, open for one access.
class Section {
 public:
  Section(std::string_view application, std::string_view section)
      : settings_(QSettings::IniFormat, QSettings::UserScope, ToQString(application),
                  ToQString(application)) {
    // A value that the administrator laid down for all users must not stand in for a missing one.
    settings_.setFallbacksEnabled(false);
    settings_.beginGroup(ToQString(section));
  }
  QSettings* operator->() { return &settings_; }
  bool ok() const { return settings_.status() == QSettings::NoError; }

 private:
  QSettings settings_;
};

}  // namespace

bool SettingsStore::Read(std::string_view application, std::string_view section,
                         std::string_view key, std::optional<std::string>& value) {
  Section store(application, section);
  if (!store.ok()) return false;
  const QString name = ToQString(key);
  if (!store->contains(name)) {
    value.reset();
    return true;
  }
  // Somebody's hand-written "Brno, Brno-venkov" is a list to Qt, and its toString() is empty.
  value = ToUtf8(store->value(name).toStringList().join(u','));
  return true;
}

bool SettingsStore::Write(std::string_view application, std::string_view section,
                          std::string_view key, std::string_view value) {
  Section store(application, section);
  if (!store.ok()) return false;
  const QString name = ToQString(key);
  const QVariant before = store->value(name);
  store->setValue(name, ToQString(value));
  store->sync();  // only now the file is written, and only now failures show
  if (store.ok()) return true;
  // Qt would go on showing the value that is not on disk.
  if (before.isValid()) {
    store->setValue(name, before);
  } else {
    store->remove(name);
  }
  return false;
}

}  // namespace velta::qt
