#include "ui/qt/help/help_page.h"

#include <QMessageBox>

#include "app/addresses.h"
#include "app/error_report.h"
#include "ui/qt/help/chm_file.h"
#include "ui/qt/opener.h"
#include "ui/qt/text.h"

namespace velta::qt {

HelpPage::HelpPage(QWidget* parent) : QTextBrowser(parent) {
  constexpr int kMargin = 16;
  constexpr int kIndent = 24;
  document()->setDocumentMargin(kMargin);
  document()->setIndentWidth(kIndent);
  setOpenLinks(false);
  connect(this, &QTextBrowser::anchorClicked, this, &HelpPage::Follow);
}

QUrl HelpPage::AddressOf(const QString& name) { return "help:" + name; }

QVariant HelpPage::loadResource(int type, const QUrl& name) {
  if (file_ == nullptr) return {};
  if (type == QTextDocument::HtmlResource) loading_ = name;
  const QUrl address = loading_.resolved(name);
  const QByteArray content = file_->Read(address.path());
  if (type == QTextDocument::HtmlResource) return QString::fromUtf8(content);
  return content;
}

void HelpPage::Follow(const QUrl& link) {
  const QUrl home(kHomePage);
  if (link.scheme() == loading_.scheme()) {
    setSource(link);
  } else if (link == home || home.isParentOf(link)) {
    // Out into the browser leads nothing but the maker's own pages.
    const QString address = link.toString();
    if (Opener().Open(ToUtf8(address))) return;
    QMessageBox::critical(this, ToQString(kTitle), ToQString(NothingOpens(ToUtf8(address))));
  }
}

}  // namespace velta::qt
