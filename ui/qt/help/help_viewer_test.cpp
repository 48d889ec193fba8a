#include "ui/qt/help/help_viewer.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <functional>

#include "ui/qt/help/help_window.h"
#include "ui/qt/text.h"

namespace velta::qt {
namespace {

/// Stands for the desktop's way to the web browser.
class Browser {
 public:
  Browser() {
    QFile program(folder_.filePath("xdg-open"));
    EXPECT_TRUE(program.open(QIODevice::WriteOnly));
    program.write("#!/bin/sh\necho \"$1\" >>'" + List().toUtf8() + "'\n");
    program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("PATH", folder_.path().toUtf8());
  }
  Browser(const Browser&) = delete;
  Browser& operator=(const Browser&) = delete;
  ~Browser() { qputenv("PATH", path_); }

  QStringList opened() const {
    QFile list(List());
    if (!list.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(list.readAll()).split('\n', Qt::SkipEmptyParts);
  }

 private:
  QString List() const { return folder_.filePath("opened"); }

  QTemporaryDir folder_;
  QByteArray path_ = qgetenv("PATH");
};

class HelpViewerTest : public ::testing::Test {
 protected:
  void TearDown() override {
    viewer_.CloseAll();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  static QList<HelpWindow*> Windows() {
    QList<HelpWindow*> windows;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      auto* window = qobject_cast<HelpWindow*>(widget);
      if (window != nullptr && window->isVisible()) windows.append(window);
    }
    return windows;
  }

  /// The only help window.
  static HelpWindow& Window() {
    EXPECT_EQ(Windows().size(), 1);
    return *Windows().first();
  }

  HelpWindow& OpenTopic(int topic) {
    EXPECT_TRUE(viewer_.OpenTopic(file_, topic));
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window()));
    return Window();
  }

  template <class Widget>
  static Widget& Find(HelpWindow& window, const char* name) {
    return *window.findChild<Widget*>(name);
  }
  static QTextBrowser& Page(HelpWindow& window) { return Find<QTextBrowser>(window, "page"); }
  static QString Current(HelpWindow& window) {
    return Find<QTreeWidget>(window, "contents").currentItem()->text(0);
  }

  static void ForEachItem(HelpWindow& window, const std::function<void(QTreeWidgetItem*)>& visit) {
    for (QTreeWidgetItemIterator item(&Find<QTreeWidget>(window, "contents")); *item != nullptr;
         ++item) {
      visit(*item);
    }
  }
  static void Choose(HelpWindow& window, const QString& title) {
    ForEachItem(window, [&](QTreeWidgetItem* item) {
      if (item->text(0) == title) Find<QTreeWidget>(window, "contents").setCurrentItem(item);
    });
  }

  const std::string file_ = ToUtf8(QCoreApplication::applicationDirPath() + "/VELTA.CHM");
  HelpViewer viewer_;
};

TEST_F(HelpViewerTest, OpensAtItsContents) {
  ASSERT_TRUE(viewer_.OpenContents(file_));
  EXPECT_EQ(Window().page(), "/obsah.html");
  EXPECT_EQ(Window().windowTitle(), "Nápověda programu Velta");
  EXPECT_EQ(Current(Window()), "Nápověda programu Velta");
  EXPECT_TRUE(Page(Window()).toPlainText().startsWith("Nápověda programu Velta"));
  EXPECT_FALSE(Window().windowIcon().isNull());
}

TEST_F(HelpViewerTest, WindowThatIsJustClosedIsNotBroughtBack) {
  OpenTopic(70).close();
  ASSERT_TRUE(viewer_.OpenTopic(file_, 70));
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(Window().page(), "/jednotlivy-vypocet.html");
}

TEST_F(HelpViewerTest, OpensAtATopic) {
  EXPECT_EQ(OpenTopic(70).page(), "/jednotlivy-vypocet.html");
  EXPECT_EQ(Window().windowTitle(), "Jednotlivý výpočet – Nápověda programu Velta");
  EXPECT_EQ(Current(Window()), "Jednotlivý výpočet");
  viewer_.CloseAll();
  EXPECT_EQ(OpenTopic(110).page(), "/penalizacni-faktura.html");
  EXPECT_EQ(Current(Window()), "Penalizační faktura");
}

TEST_F(HelpViewerTest, UnknownTopicAndMissingOrDamagedFileAreRefused) {
  const QTemporaryDir folder;
  QFile damaged(folder.filePath("VELTA.CHM"));
  ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
  damaged.write("ITSF, but not for long");
  damaged.close();
  EXPECT_FALSE(viewer_.OpenTopic(file_, 71));
  EXPECT_FALSE(viewer_.OpenTopic(file_, 0));
  for (const QString& file : {damaged.fileName(), folder.filePath("neni.chm"), folder.path()}) {
    EXPECT_FALSE(viewer_.OpenContents(ToUtf8(file))) << file.toStdString();
    EXPECT_FALSE(viewer_.OpenTopic(ToUtf8(file), 70)) << file.toStdString();
  }
  EXPECT_TRUE(Windows().isEmpty());
}

TEST_F(HelpViewerTest, EachPageHasItsWindowAndAllCloseTogether) {
  ASSERT_TRUE(viewer_.OpenContents(file_));
  ASSERT_TRUE(viewer_.OpenTopic(file_, 70));
  ASSERT_TRUE(viewer_.OpenTopic(file_, 110));
  EXPECT_EQ(Windows().size(), 3);
  ASSERT_TRUE(viewer_.OpenTopic(file_, 70));
  EXPECT_EQ(Windows().size(), 3) << "its page stands there already";
  viewer_.CloseAll();
  EXPECT_TRUE(Windows().isEmpty());
  ASSERT_TRUE(viewer_.OpenTopic(file_, 70)) << "before the closed windows are gone";
  EXPECT_EQ(Windows().size(), 1);
}

TEST_F(HelpViewerTest, MinimisedWindowComesBack) {
  OpenTopic(70).showMinimized();
  ASSERT_TRUE(viewer_.OpenTopic(file_, 70));
  EXPECT_FALSE(Window().isMinimized());
}

TEST_F(HelpViewerTest, WindowsGoWithTheViewer) {
  {
    HelpViewer viewer;
    ASSERT_TRUE(viewer.OpenContents(file_));
    EXPECT_EQ(Windows().size(), 1);
  }
  EXPECT_TRUE(Windows().isEmpty());
}

TEST_F(HelpViewerTest, EscClosesTheWindow) {
  OpenTopic(70);
  QTest::keyClick(&Page(Window()), Qt::Key_Escape);
  EXPECT_TRUE(Windows().isEmpty());
}

TEST_F(HelpViewerTest, FitsASmallScreen) {
  HelpWindow& window = OpenTopic(70);
  const QSize screen = window.screen()->availableGeometry().size();
  ASSERT_LT(screen.width(), 1020) << "what it takes where there is room";
  EXPECT_LE(window.width(), screen.width());
  EXPECT_LE(window.height(), screen.height());
  Find<QLineEdit>(window, "txtFind").setText("a text that is on no page");
  EXPECT_LE(window.layout()->minimumSize().width(), 1024 / 1.5);
}

TEST_F(HelpViewerTest, BackForwardAndHomeLeadThroughThePages) {
  HelpWindow& window = OpenTopic(70);
  auto& back = Find<QPushButton>(window, "cmdBack");
  auto& forward = Find<QPushButton>(window, "cmdForward");
  EXPECT_FALSE(back.isEnabled());
  EXPECT_FALSE(forward.isEnabled());

  Choose(window, "Otázky a odpovědi");
  EXPECT_EQ(window.page(), "/otazky.html");
  Choose(window, "Program");
  EXPECT_EQ(window.page(), "/otazky.html") << "a heading has no page";
  Find<QPushButton>(window, "cmdHome").click();
  EXPECT_EQ(window.page(), "/obsah.html");

  back.click();
  EXPECT_EQ(window.page(), "/otazky.html");
  EXPECT_EQ(Current(window), "Otázky a odpovědi");
  QTest::keyClick(&Page(window), Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(window.page(), "/jednotlivy-vypocet.html");
  EXPECT_FALSE(back.isEnabled());
  QTest::keyClick(&Page(window), Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(window.page(), "/otazky.html");
  forward.click();
  EXPECT_EQ(window.page(), "/obsah.html");
  EXPECT_FALSE(forward.isEnabled());
  Choose(window, "Jednotlivý výpočet");
  QTest::keyClick(&Page(window), Qt::Key_Home, Qt::AltModifier);
  EXPECT_EQ(window.page(), "/obsah.html");
}

TEST_F(HelpViewerTest, LinksLeadToPagesAndToPlacesInThem) {
  HelpWindow& window = OpenTopic(70);
  QTextBrowser& page = Page(window);
  QTest::keyClick(&page, Qt::Key_Tab);  // to the first link
  QTest::keyClick(&page, Qt::Key_Return);
  EXPECT_EQ(page.source().toString(), "help:/zakonna-sazba.html#tabulka");
  EXPECT_EQ(Current(window), "Zákonná sazba podle data splatnosti");
  QTest::keyClick(&page, Qt::Key_Tab);
  QTest::keyClick(&page, Qt::Key_Return);
  EXPECT_EQ(window.page(), "/starsi-prodleni.html");
  EXPECT_EQ(Current(window), "Prodlení před červencem 2010");
}

TEST_F(HelpViewerTest, OnlyTheMakersPagesOpenInTheBrowser) {
  const Browser browser;
  HelpWindow& window = OpenTopic(70);
  const QStringList makers = {"https://velta.example/", "https://velta.example/podpora/"};
  for (const QString& link : makers) emit Page(window).anchorClicked(link);
  for (const char* link : {"https://velta.example.org/", "https://example.com/",
                           "http://velta.example/", "file:///etc/passwd"}) {
    emit Page(window).anchorClicked(QUrl(link));
  }
  EXPECT_EQ(browser.opened(), makers);
  EXPECT_EQ(window.page(), "/jednotlivy-vypocet.html");
}

TEST_F(HelpViewerTest, FindGoesRoundTheOnlyPageThatHasTheText) {
  HelpWindow& window = OpenTopic(70);
  QTextBrowser& page = Page(window);
  auto& text = Find<QLineEdit>(window, "txtFind");
  const auto position = [&] { return page.textCursor().selectionStart(); };

  QTest::keyClick(&page, Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(QApplication::focusWidget(), &text);
  text.setText("promile");
  QTest::keyClick(&text, Qt::Key_Return);
  const int first = position();
  QTest::keyClick(&text, Qt::Key_Return);
  const int second = position();
  EXPECT_LT(first, second);
  EXPECT_EQ(page.textCursor().selectedText(), "promile");
  QTest::keyClick(&page, Qt::Key_F3);
  EXPECT_EQ(position(), first) << "round the end";
  QTest::keyClick(&page, Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(position(), second) << "round the start";
  Find<QPushButton>(window, "cmdPrevious").click();
  EXPECT_EQ(position(), first);
  EXPECT_EQ(window.page(), "/jednotlivy-vypocet.html");
}

TEST_F(HelpViewerTest, FindGoesThroughAllPagesAndNeedsNoAccents) {
  HelpWindow& window = OpenTopic(70);
  QTextBrowser& page = Page(window);
  Find<QLineEdit>(window, "txtFind").setText("UPLATOU ZA PLNENI");
  EXPECT_EQ(window.page(), "/jednotlivy-vypocet.html") << "typing leads nowhere yet";
  const auto next = [&](Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&page, Qt::Key_F3, modifiers);
    EXPECT_EQ(page.textCursor().selectedText(), "úplatou za plnění");
    EXPECT_EQ(Current(window), page.documentTitle());
    return window.page();
  };
  EXPECT_EQ(next(), "/penalizacni-faktura.html");
  EXPECT_EQ(next(), "/otazky.html");
  EXPECT_EQ(next(), "/nez-urok-vyuctujete.html") << "round the end";
  EXPECT_EQ(next(Qt::ShiftModifier), "/otazky.html") << "round the start";
  EXPECT_EQ(next(Qt::ShiftModifier), "/penalizacni-faktura.html");
}

TEST_F(HelpViewerTest, ContentsShowThePagesThatHaveTheText) {
  HelpWindow& window = OpenTopic(70);
  auto& text = Find<QLineEdit>(window, "txtFind");
  auto& not_found = Find<QLabel>(window, "lblNotFound");
  const auto shown = [&] {
    QStringList titles;
    ForEachItem(window, [&](QTreeWidgetItem* item) {
      if (!item->isHidden()) titles.append(item->text(0));
    });
    return titles;
  };
  const QStringList all = shown();
  text.setText("uplatou za plneni");
  EXPECT_EQ(shown(), (QStringList{"Začínáme", "Než úrok vyúčtujete", "Výstupy",
                                  "Penalizační faktura", "Program", "Otázky a odpovědi"}));
  EXPECT_EQ(not_found.text(), "");

  text.setText("žirafa");
  EXPECT_EQ(shown(), QStringList());
  EXPECT_EQ(not_found.text(), "Nenalezeno");
  Find<QPushButton>(window, "cmdNext").click();
  Find<QPushButton>(window, "cmdPrevious").click();
  EXPECT_EQ(window.page(), "/jednotlivy-vypocet.html");
  EXPECT_FALSE(Page(window).textCursor().hasSelection());

  text.setText("");
  EXPECT_EQ(shown(), all);
  EXPECT_EQ(not_found.text(), "");
  Find<QPushButton>(window, "cmdNext").click();
  EXPECT_FALSE(Page(window).textCursor().hasSelection());
}

TEST_F(HelpViewerTest, LettersGrowAndShrink) {
  HelpWindow& window = OpenTopic(70);
  QTextBrowser& page = Page(window);
  const auto height = [&] { return page.document()->size().height(); };
  const double was = height();
  QTest::keyClick(&page, Qt::Key_Plus, Qt::ControlModifier);
  const double larger = height();
  EXPECT_GT(larger, was);
  Find<QPushButton>(window, "cmdLarger").click();
  EXPECT_GT(height(), larger);
  QTest::keyClick(&page, Qt::Key_Minus, Qt::ControlModifier);
  Find<QPushButton>(window, "cmdSmaller").click();
  EXPECT_EQ(height(), was);
}

TEST_F(HelpViewerTest, ContentsNamesEveryPageByItsTitle) {
  ASSERT_TRUE(viewer_.OpenContents(file_));
  HelpWindow& window = Window();
  QStringList pages;
  ForEachItem(window, [&](QTreeWidgetItem* item) {
    if (!item->data(0, Qt::UserRole).isValid()) return;
    Find<QTreeWidget>(window, "contents").setCurrentItem(item);
    pages.append(window.page().mid(1));
    EXPECT_EQ(Page(window).documentTitle(), item->text(0));
    EXPECT_EQ(Page(window).toPlainText().section('\n', 0, 0).trimmed().toStdString(),
              item->text(0).toStdString());
  });
  pages.sort();
  EXPECT_EQ(pages, QDir(VELTA_SOURCE_DIR "/help").entryList({"*.html"}, QDir::Files, QDir::Name));
}

TEST_F(HelpViewerTest, DrawingIsAsSharpAsTheScreenAndNoLarger) {
  QTextBrowser& page = Page(OpenTopic(70));
  const QUrl name("/pictures/rates.png");
  for (const char* size : {"", "width='620'", "width='620' height='340'"}) {
    page.setHtml(QString("<img src='%1' %2>").arg(name.path(), size));
    const QVariant shown = page.document()->resource(QTextDocument::ImageResource, name);
    const auto picture =
        shown.canConvert<QImage>() ? shown.value<QImage>() : QImage::fromData(shown.toByteArray());
    EXPECT_EQ(picture.width(), page.devicePixelRatioF() > 1 ? 1240 : 620) << size;
    const QSizeF drawn = page.document()->size();
    const double margins = 2 * page.document()->documentMargin();
    EXPECT_EQ(page.document()->idealWidth() - margins, 620) << size;
    EXPECT_NEAR(drawn.height() - margins, 340, 10) << size << ", and the line that it stands on";
  }
}

TEST_F(HelpViewerTest, PictureOfAWindowIsThereOnASharpScreenToo) {
  QTextBrowser& page = Page(OpenTopic(70));
  page.setHtml("<img src='/pictures/frmJednotlivy.png'>");
  EXPECT_EQ(page.document()->idealWidth() - 2 * page.document()->documentMargin(), 620);
}

/// Each piece of text or picture on a page.
void ForEachFragment(const QTextDocument& page, const std::function<void(QTextFragment)>& visit) {
  for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
    for (auto part = block.begin(); !part.atEnd(); ++part) visit(part.fragment());
  }
}

TEST_F(HelpViewerTest, NoLineEndsAfterAOneLetterWordOrWithinANumber) {
  ASSERT_TRUE(viewer_.OpenContents(file_));
  QTextBrowser& page = Page(Window());
  const QRegularExpression apart(
      R"(\b[aikosuvz] |§ |\bč\. |[%‰] (ročně|denně)|\d\. \p{Ll}|\d (\d{3}\b|Kč|%|‰))",
      QRegularExpression::UseUnicodePropertiesOption | QRegularExpression::CaseInsensitiveOption);
  int tied = 0;
  ForEachItem(Window(), [&](QTreeWidgetItem* item) {
    const QUrl address = item->data(0, Qt::UserRole).toUrl();
    if (address.isEmpty()) return;
    page.setSource(address);
    for (QTextBlock block = page.document()->begin(); block.isValid(); block = block.next()) {
      const auto found = apart.match(block.text());
      EXPECT_FALSE(found.hasMatch()) << block.text().toStdString();
      tied += static_cast<int>(block.text().count(QChar(QChar::Nbsp)));
    }
  });
  EXPECT_GT(tied, 100);
}

TEST_F(HelpViewerTest, EveryLinkLeadsSomewhereAndEveryPictureIsThere) {
  ASSERT_TRUE(viewer_.OpenContents(file_));
  QTextBrowser& page = Page(Window());
  QStringList targets;  // pages, and pages with a place in them
  QList<std::pair<QString, QUrl>> links;
  int pictures = 0;
  ForEachItem(Window(), [&](QTreeWidgetItem* item) {
    const QUrl address = item->data(0, Qt::UserRole).toUrl();
    if (address.isEmpty()) return;
    page.setSource(address);
    targets.append(address.toString());
    EXPECT_EQ(page.document()->begin().charFormat().foreground().color(), QColor("#1f4e79"))
        << "the style sheet has been read for " << address.toString().toStdString();
    ForEachFragment(*page.document(), [&](const QTextFragment& part) {
      const QTextCharFormat format = part.charFormat();
      for (const QString& name : format.anchorNames()) {
        targets.append(address.toString() + '#' + name);
      }
      if (!format.anchorHref().isEmpty()) {
        links.append({address.path(), address.resolved(format.anchorHref())});
      }
      if (!format.isImageFormat()) return;
      ++pictures;
      const QUrl picture(format.toImageFormat().name());
      const QVariant shown = page.document()->resource(QTextDocument::ImageResource, picture);
      EXPECT_TRUE(shown.canConvert<QImage>() || !QImage::fromData(shown.toByteArray()).isNull())
          << picture.toString().toStdString();
    });
  });
  EXPECT_GE(pictures, 2);
  EXPECT_GE(links.size(), 30);
  for (const auto& [from, link] : links) {
    EXPECT_TRUE(targets.contains(link.toString()) ||
                link.toString().startsWith("https://velta.example/"))
        << from.toStdString() << " leads to " << link.toString().toStdString();
  }
}

}  // namespace
}  // namespace velta::qt
