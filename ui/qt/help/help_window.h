#pragma once

#include <QString>
#include <QWidget>
#include <memory>

#include "ui/qt/help/chm_file.h"
#include "ui/qt/help/help_search.h"

class QTreeWidgetItem;

namespace Ui {
class HelpWindow;
}

namespace velta::qt {

/// A window with the help: the contents tree and the page. While there is a text to be found, the
/// tree shows the pages that have it. The window goes when it is closed.
class HelpWindow final : public QWidget {
  Q_OBJECT

 public:
  /// Shows the page of that full name.
  HelpWindow(std::unique_ptr<ChmFile> file, const QString& page);
  ~HelpWindow() override;

  /// The full name of the page that is shown.
  QString page() const;

 private:
  void FillContents();
  void Wire();
  void WireKeys();
  void ShowInContents(const QUrl& address);
  void ShowPagesWithText();
  void Find(bool backwards);
  bool FindOnPage(const QString& text, qsizetype from, bool backwards);

  std::unique_ptr<ChmFile> file_;
  HelpSearch search_{*file_};
  std::unique_ptr<Ui::HelpWindow> ui_;
};

}  // namespace velta::qt
