#pragma once

#include <QMdiArea>
#include <QPixmap>

namespace velta::qt {

/// The main window's inside, in which the other windows stand, before a picture that always covers
/// it.
class Desktop final : public QMdiArea {
  Q_OBJECT

 public:
  explicit Desktop(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void DrawPicture();

  QPixmap picture_;  // as drawn for the present size
};

}  // namespace velta::qt
