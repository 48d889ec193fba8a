#include "ui/qt/message_box.h"

#include <QApplication>
#include <QMessageBox>

#include "ui/qt/text.h"

namespace velta::qt {

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
  box.exec();
}

}  // namespace velta::qt
