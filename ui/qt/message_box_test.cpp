#include "ui/qt/message_box.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <functional>

namespace velta::qt {
namespace {

using namespace std::chrono_literals;

class MessageBoxTest : public ::testing::Test {
 protected:
  /// Shows the box and lets `user` act on it. A box that stays open in spite of that is closed.
  void Show(ui::Icon icon, const char* text, std::function<void(QMessageBox&)> user) {
    QTimer::singleShot(0, &service_parent_, [this, user = std::move(user)] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      shown_ = true;
      user(*box);
      if (box->isVisible()) box->accept();
    });
    service_.Show(icon, "Velta", text);
    EXPECT_TRUE(shown_);
  }

  QObject service_parent_;
  EventLoop loop_;
  MessageBox service_{loop_};
  bool shown_ = false;
};

TEST_F(MessageBoxTest, HasTheCaptionTheIconAndOneOkButton) {
  Show(ui::Icon::kInformation, "Měním na REPO sazbu", [](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), "Velta");
    EXPECT_EQ(box.text(), "Měním na REPO sazbu");
    EXPECT_EQ(box.icon(), QMessageBox::Information);
    EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
    EXPECT_EQ(box.button(QMessageBox::Ok)->text().remove('&'), "OK");
    EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
  });
}

TEST_F(MessageBoxTest, ShowsRefusalsAsCritical) {
  Show(ui::Icon::kCritical, "x",
       [](QMessageBox& box) { EXPECT_EQ(box.icon(), QMessageBox::Critical); });
}

TEST_F(MessageBoxTest, BreaksLinesAtEveryKindOfLineEnd) {
  Show(ui::Icon::kCritical, "a\rb\r\nc\nd",
       [](QMessageBox& box) { EXPECT_EQ(box.text(), "a\nb\nc\nd"); });
}

TEST_F(MessageBoxTest, DoesNotTearAnAmountFromItsCurrency) {
  const char* text =
      "Maximální hodnota proměnné typu měna je 922 337 203 685 477,58 Kč\r\n pro větší";
  Show(ui::Icon::kCritical, text, [](QMessageBox& box) {
    QCoreApplication::processEvents();
    const auto& label = *box.findChild<QLabel*>("qt_msgbox_label");
    EXPECT_GE(label.width(), label.fontMetrics().size(0, label.text()).width());
    EXPECT_LE(box.width(), box.screen()->availableGeometry().width());
    EXPECT_FALSE(box.text().contains(QChar::Nbsp));
  });
}

TEST_F(MessageBoxTest, TakesTheTextAsItStands) {
  Show(ui::Icon::kCritical, "<b>5 < 6</b>", [](QMessageBox& box) {
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.text(), "<b>5 < 6</b>");
  });
}

TEST_F(MessageBoxTest, EscAnswersIt) {
  Show(ui::Icon::kCritical, "x", [](QMessageBox& box) {
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_FALSE(box.isVisible());
  });
}

TEST_F(MessageBoxTest, CallbacksOfTheProgramWaitForTheAnswer) {
  bool ran = false;
  loop_.After(0ms, [&] { ran = true; });
  Show(ui::Icon::kCritical, "x", [&](QMessageBox& /*box*/) {
    QTest::qWait(30);
    EXPECT_FALSE(ran);
  });
  EXPECT_TRUE(QTest::qWaitFor([&] { return ran; }));
}

}  // namespace
}  // namespace velta::qt
