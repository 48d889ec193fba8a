#pragma once

#include <QSvgRenderer>
#include <QWidget>

namespace velta::qt {

/// A picture from an SVG file, as large as its widget allows and sharp at any scale.
class SvgPicture final : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

  /// The file, usually of the resources. For the form to set.
  void setSource(const QString& file);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QSvgRenderer renderer_;
};

}  // namespace velta::qt
