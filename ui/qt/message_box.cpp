#include "ui/qt/message_box.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <algorithm>

#include "ui/qt/room.h"
#include "ui/qt/text.h"

namespace velta::qt {

/// The icon and the margins of a box.
static constexpr int kBesideText = 120;

void MessageBox::Show(ui::Icon icon, std::string_view caption, std::string_view text) {
  const EventLoop::Pause pause(event_loop_);
  QString lines = ToQString(text);
  lines.replace("\r\n", "\n").replace(u'\r', u'\n');
  QMessageBox box(QApplication::activeWindow());
  box.setIcon(icon == ui::Icon::kCritical ? QMessageBox::Critical : QMessageBox::Information);
  box.setWindowTitle(ToQString(caption));
  box.setTextFormat(Qt::PlainText);
  box.setText(lines);
  box.setStandardButtons(QMessageBox::Ok);
  box.setWindowModality(Qt::ApplicationModal);
  // Qt breaks long lines at any blank, also between an amount and its "Kč": where the screen has
  // the room, each of the text's lines is one.
  if (auto* label = box.findChild<QLabel*>("qt_msgbox_label")) {
    const QSize text_size = label->fontMetrics().size(0, lines);
    label->setMinimumWidth(std::min(text_size.width(), RoomOnScreen(box).width() - kBesideText));
  }
  box.exec();
}

}  // namespace velta::qt
