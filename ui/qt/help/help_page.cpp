#include "ui/qt/help/help_page.h"

#include <QImage>
#include <QMessageBox>
#include <QRegularExpression>

#include "app/addresses.h"
#include "app/error_report.h"
#include "ui/qt/help/chm_file.h"
#include "ui/qt/opener.h"
#include "ui/qt/text.h"

namespace velta::qt {

namespace {

/// The page with blanks at which no line may end, as Czech typography has it: after a one-letter
/// word, within a number or a day, between a number and its unit, after a unit. Tags stay as they
/// are.
QString Tied(QString page) {
  static const QRegularExpression kTie(
      R"((?:(?<=[\s(„>][AIKOSUVZaikosuvz])|(?<=§|č\.)|(?<=[%‰])(?=\s\p{Ll})|)"
      R"((?<=\d\.)(?=\s\p{Ll})|)"
      R"((?<=\d)(?=\s(?:\d{3}\b|Kč|%|‰|Sb\.)))\s(?![^<>]*>))",
      QRegularExpression::UseUnicodePropertiesOption);
  const qsizetype body = page.indexOf("<body");
  if (body < 0) return page;
  return page.left(body) + page.mid(body).replace(kTie, QString(QChar::Nbsp));
}

}  // namespace

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
  if (type == QTextDocument::ImageResource && devicePixelRatioF() > 1) {
    auto sharp = QImage::fromData(file_->Read(address.path().replace(".png", "@2x.png")));
    sharp.setDevicePixelRatio(2);
    if (!sharp.isNull()) return sharp;
  }
  const QByteArray content = file_->Read(address.path());
  if (type == QTextDocument::HtmlResource) return Tied(QString::fromUtf8(content));
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
