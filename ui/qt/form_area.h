#pragma once

#include <QScrollArea>

namespace velta::qt {

/// Holds what stands above a form's buttons. Where the window is too small for it, it scrolls, so
/// that the buttons below it are always whole; what has the keyboard is scrolled into view.
class FormArea final : public QScrollArea {
  Q_OBJECT

 public:
  explicit FormArea(QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
};

}  // namespace velta::qt
