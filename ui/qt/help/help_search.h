#pragma once

#include <QHash>
#include <QString>
#include <QUrl>

namespace velta::qt {

class ChmFile;

/// A text as it is compared in a search: small letters without their accents, every kind of blank
/// the same. It has as many characters as the text, so that a place in one is the place in the
/// other.
QString Folded(const QString& text);

/// Finds texts on the pages of a help file.
class HelpSearch {
 public:
  /// `file` must outlive it.
  explicit HelpSearch(const ChmFile& file) : file_(file) {}

  /// Whether the page has a text, which is folded already.
  bool IsOnPage(const QString& folded_text, const QUrl& page);

 private:
  const ChmFile& file_;
  QHash<QUrl, QString> pages_;  // folded, as far as they have been read
};

}  // namespace velta::qt
