#pragma once

#include <QTextBrowser>
#include <QUrl>

namespace velta::qt {

class ChmFile;

/// Shows pages of a compiled help file. A page's address is "help:" and its full name in the file.
class HelpPage final : public QTextBrowser {
  Q_OBJECT

 public:
  explicit HelpPage(QWidget* parent = nullptr);

  /// The file that pages are read from; it must outlive this widget.
  void SetFile(const ChmFile& file) { file_ = &file; }

  static QUrl AddressOf(const QString& name);

 protected:
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  void Follow(const QUrl& link);

  const ChmFile* file_ = nullptr;
  QUrl loading_;  // the page under way: while its parts are asked for, source() is the one before
};

}  // namespace velta::qt
