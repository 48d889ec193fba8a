#include "ui/qt/help/help_window.h"

#include <QShortcut>
#include <QSignalBlocker>
#include <QTreeWidgetItemIterator>

#include "ui/qt/help/help_contents.h"
#include "ui/qt/pictures.h"
#include "ui/qt/room.h"
#include "ui_HelpWindow.h"

namespace velta::qt {

namespace {

constexpr int kPageRole = Qt::UserRole;  // the address of an entry's page; headings have none
constexpr const char* kHelp = "Nápověda programu Velta";
constexpr int kContentsWidth = 328;

}  // namespace

HelpWindow::HelpWindow(std::unique_ptr<ChmFile> file, const QString& page)
    : file_(std::move(file)), ui_(std::make_unique<Ui::HelpWindow>()) {
  ui_->setupUi(this);
  SetPictures(*this);
  setAttribute(Qt::WA_DeleteOnClose);
  resize(size().boundedTo(RoomOnScreen(*this)));
  ui_->panes->setSizes({kContentsWidth, width() - kContentsWidth});
  ui_->page->SetFile(*file_);
  FillContents();
  Wire();
  WireKeys();
  ui_->page->setSource(HelpPage::AddressOf(page));
  ui_->page->setFocus();
}

HelpWindow::~HelpWindow() = default;

QString HelpWindow::page() const { return ui_->page->source().path(); }

void HelpWindow::FillContents() {
  QList<QTreeWidgetItem*> path = {ui_->contents->invisibleRootItem()};
  for (const HelpEntry& entry : ReadHelpContents(file_->Read(file_->contents()))) {
    path.resize(qMin(path.size(), qsizetype{entry.level} + 1));
    auto* item = new QTreeWidgetItem(path.last(), {entry.title});
    if (!entry.page.isEmpty()) item->setData(0, kPageRole, HelpPage::AddressOf(u'/' + entry.page));
    path.append(item);
  }
  ui_->contents->expandAll();
}

void HelpWindow::Wire() {
  const auto* page = ui_->page;
  connect(ui_->contents, &QTreeWidget::currentItemChanged, this, [this](const auto* item) {
    const QUrl address = item == nullptr ? QUrl() : item->data(0, kPageRole).toUrl();
    if (!address.isEmpty()) ui_->page->setSource(address);
  });
  connect(page, &QTextBrowser::sourceChanged, this, &HelpWindow::ShowInContents);
  connect(page, &QTextBrowser::backwardAvailable, ui_->cmdBack, &QWidget::setEnabled);
  connect(page, &QTextBrowser::forwardAvailable, ui_->cmdForward, &QWidget::setEnabled);
  connect(ui_->cmdBack, &QPushButton::clicked, page, &QTextBrowser::backward);
  connect(ui_->cmdForward, &QPushButton::clicked, page, &QTextBrowser::forward);
  connect(ui_->cmdHome, &QPushButton::clicked, this,
          [this] { ui_->page->setSource(HelpPage::AddressOf(file_->home())); });
  connect(ui_->cmdLarger, &QPushButton::clicked, page, [this] { ui_->page->zoomIn(); });
  connect(ui_->cmdSmaller, &QPushButton::clicked, page, [this] { ui_->page->zoomOut(); });
  connect(ui_->txtFind, &QLineEdit::textChanged, this, &HelpWindow::ShowPagesWithText);
  connect(ui_->txtFind, &QLineEdit::returnPressed, this, [this] { Find(false); });
  connect(ui_->cmdNext, &QPushButton::clicked, this, [this] { Find(false); });
  connect(ui_->cmdPrevious, &QPushButton::clicked, this, [this] { Find(true); });
}

void HelpWindow::WireKeys() {
  const auto press = [this](const QKeySequence& keys, QAbstractButton* button) {
    connect(new QShortcut(keys, this), &QShortcut::activated, button,
            [button] { button->click(); });
  };
  press(Qt::ALT | Qt::Key_Left, ui_->cmdBack);
  press(Qt::ALT | Qt::Key_Right, ui_->cmdForward);
  press(Qt::ALT | Qt::Key_Home, ui_->cmdHome);
  press(Qt::CTRL | Qt::Key_Plus, ui_->cmdLarger);
  press(Qt::CTRL | Qt::Key_Equal, ui_->cmdLarger);  // the same key without Shift
  press(Qt::CTRL | Qt::Key_Minus, ui_->cmdSmaller);
  press(Qt::Key_F3, ui_->cmdNext);
  press(Qt::SHIFT | Qt::Key_F3, ui_->cmdPrevious);
  connect(new QShortcut(Qt::CTRL | Qt::Key_F, this), &QShortcut::activated, ui_->txtFind, [this] {
    ui_->txtFind->setFocus();
    ui_->txtFind->selectAll();
  });
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
}

void HelpWindow::ShowInContents(const QUrl& address) {
  const QString title = ui_->page->documentTitle();
  setWindowTitle(title == kHelp ? title : title + " – " + kHelp);
  const QSignalBlocker quiet(ui_->contents);
  for (QTreeWidgetItemIterator item(ui_->contents); *item != nullptr; ++item) {
    if ((*item)->data(0, kPageRole).toUrl() == address.adjusted(QUrl::RemoveFragment)) {
      ui_->contents->setCurrentItem(*item);
    }
  }
}

void HelpWindow::ShowPagesWithText() {
  const QString text = Folded(ui_->txtFind->text());
  bool found = false;
  for (QTreeWidgetItemIterator item(ui_->contents); *item != nullptr; ++item) {
    const QUrl page = (*item)->data(0, kPageRole).toUrl();
    const bool has_text = text.isEmpty() || (!page.isEmpty() && search_.IsOnPage(text, page));
    (*item)->setHidden(!has_text);
    for (auto* above = (*item)->parent(); has_text && above != nullptr; above = above->parent()) {
      above->setHidden(false);
    }
    found = found || has_text;
  }
  ui_->lblNotFound->setText(found ? QString() : "Nenalezeno");
}

/// Goes on from the last find, then on the next page that has the text, round the help's end.
void HelpWindow::Find(bool backwards) {
  const QString text = Folded(ui_->txtFind->text());
  if (text.isEmpty()) return;
  const QTextCursor cursor = ui_->page->textCursor();
  if (FindOnPage(text, backwards ? cursor.selectionStart() - 1 : cursor.selectionEnd(),
                 backwards)) {
    return;
  }
  const QUrl here = ui_->page->source().adjusted(QUrl::RemoveFragment);
  QList<QUrl> pages;  // this one, and those that have the text
  for (QTreeWidgetItemIterator item(ui_->contents); *item != nullptr; ++item) {
    const QUrl page = (*item)->data(0, kPageRole).toUrl();
    if (page == here || (!page.isEmpty() && !(*item)->isHidden())) pages.append(page);
  }
  const qsizetype step = backwards ? pages.size() - 1 : 1;
  const QUrl next = pages.value((pages.indexOf(here) + step) % pages.size());
  if (next != here) ui_->page->setSource(next);
  FindOnPage(text, backwards ? ui_->page->document()->characterCount() - 1 : 0, backwards);
}

/// Marks the first find from there on, or the last one that begins there or before.
bool HelpWindow::FindOnPage(const QString& text, qsizetype from, bool backwards) {
  const QString page = Folded(ui_->page->toPlainText());
  if (from < 0) return false;
  const qsizetype found = backwards ? page.lastIndexOf(text, from) : page.indexOf(text, from);
  if (found < 0) return false;
  QTextCursor cursor(ui_->page->document());
  cursor.setPosition(static_cast<int>(found));
  cursor.setPosition(static_cast<int>(found + text.size()), QTextCursor::KeepAnchor);
  ui_->page->setTextCursor(cursor);
  ui_->page->ensureCursorVisible();
  return true;
}

}  // namespace velta::qt
