#include "ui/qt/user_name.h"

#include <pwd.h>
#include <unistd.h>

#include <QString>

#include "ui/qt/text.h"

namespace velta::qt {

std::optional<std::string> UserName::Get() const {
  // The user database first: anyone can set a variable.
  if (const passwd* user = getpwuid(getuid()); user != nullptr && *user->pw_name != '\0') {
    return user->pw_name;
  }
  const QString name = qEnvironmentVariable("USER");
  if (name.isEmpty()) return std::nullopt;
  return ToUtf8(name);
}

}  // namespace velta::qt
