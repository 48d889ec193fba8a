#include "ui/qt/help/help_search.h"

#include "ui/qt/help/help_page.h"

namespace velta::qt {

QString Folded(const QString& text) {
  QString folded = text;
  for (QChar& character : folded) {
    const QString parts =
        character.decompositionTag() == QChar::Canonical ? character.decomposition() : QString();
    if (!parts.isEmpty()) character = parts.front();
    character = character.isSpace() ? QChar(u' ') : character.toCaseFolded();
  }
  return folded;
}

bool HelpSearch::IsOnPage(const QString& folded_text, const QUrl& page) {
  auto text = pages_.find(page);
  if (text == pages_.end()) {
    HelpPage reader;
    reader.SetFile(file_);
    reader.setSource(page);
    text = pages_.insert(page, Folded(reader.toPlainText()));
  }
  return text->contains(folded_text);
}

}  // namespace velta::qt
