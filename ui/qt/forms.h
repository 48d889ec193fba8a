#pragma once

#include <QString>

class QWidget;

namespace velta::qt {

/// Makes the widgets of a window as its form in ui/qt/forms lays them out; null where there is no
/// form of that name. A window is added by its form and by its line in the table of forms.cpp.
QWidget* MakeForm(const QString& name);

}  // namespace velta::qt
