#pragma once

#include <QMdiArea>
#include <QPixmap>
#include <QSvgRenderer>

namespace velta::qt {

/// The main window's inside, in which the other windows stand, before a picture that always covers
/// it.
class Desktop final : public QMdiArea {
  Q_OBJECT

 public:
  explicit Desktop(QWidget* parent = nullptr);

  /// The picture's SVG file, usually of the resources. For the form to set.
  void setPicture(const QString& file);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void DrawPicture();

  QSvgRenderer renderer_;
  QPixmap picture_;  // as drawn for the present size
};

}  // namespace velta::qt
