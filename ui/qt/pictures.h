#pragma once

#include <QIcon>
#include <QWidget>

namespace velta::qt {

/// The program's picture of this name (`velta_picture` in resources/CMakeLists.txt), in all sizes
/// for which the build has drawn it. A name without a picture ends the program.
[[nodiscard]] QIcon Picture(const QString& name);

/// Gives the window, its commands and its buttons the pictures that the form says in their property
/// "picture". The form can't name them as icons: one of Qt's has one file, and a single size would
/// be blurred on every other screen.
void SetPictures(QWidget& window);

}  // namespace velta::qt
