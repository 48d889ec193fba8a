#pragma once

#include <QIcon>
#include <QWidget>

namespace velta::qt {

/// A picture that fills its widget, as far as its shape allows.
class PictureBox final : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

  /// The picture's name (`Picture`). For the form to set.
  void setPicture(const QString& name);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QIcon picture_;
};

}  // namespace velta::qt
