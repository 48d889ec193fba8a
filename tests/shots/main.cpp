// velta-shots [--dark] [--font POINTS] [--maximized] [--screen WIDTHxHEIGHT] FOLDER
//
// Draws the program's windows into pictures, each empty and filled in as on a working day, on a
// screen of that size with the given palette and font. QT_SCALE_FACTOR scales it all. Nothing of it
// appears anywhere: the windows are real, the screen and the rest of the platform are in memory.

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QPalette>
#include <QTemporaryDir>
#include <QTimer>
#include <iostream>
#include <string>

#include "app/form.h"
#include "shell/velta.h"
#include "tests/support/day.h"
#include "ui/memory/memory_platform.h"
#include "ui/qt/message_box.h"
#include "ui/qt/run.h"
#include "ui/qt/text.h"
#include "ui/qt/window_system.h"

namespace velta {

namespace {

/// What a desktop takes of the screen's height: its panel and the main window's title bar.
constexpr int kTakenByDesktop = 60;

QPalette DarkPalette() {
  QPalette palette(QColor(0x35, 0x35, 0x35), QColor(0x2d, 0x2d, 0x2d));
  palette.setColor(QPalette::Base, QColor(0x23, 0x23, 0x23));
  palette.setColor(QPalette::AlternateBase, QColor(0x2a, 0x2a, 0x2a));
  palette.setColor(QPalette::Link, QColor(0x5d, 0xad, 0xe2));
  palette.setColor(QPalette::Highlight, QColor(0x2a, 0x6f, 0xb0));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::PlaceholderText, QColor(0x9a, 0x9a, 0x9a));
  for (const QPalette::ColorRole role :
       {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
  }
  return palette;
}

/// The platform's screen, for QT_QPA_PLATFORM. The file has to stay until there is an application.
QByteArray ScreenOf(QSize size, const QString& file) {
  QFile description(file);
  if (!description.open(QIODevice::WriteOnly)) return "offscreen";
  description.write(QStringLiteral(R"({"screens": [{"name": "shots", "x": 0, "y": 0, "width": %1,
    "height": %2, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
                        .arg(size.width())
                        .arg(size.height())
                        .toUtf8());
  return "offscreen:configfile=" + file.toUtf8();
}

/// One start of the program, up to its main window.
class Shots {
 public:
  Shots(QString folder, bool maximized) : folder_(std::move(folder)), maximized_(maximized) {
    memory_.program_folder.path = VELTA_SOURCE_DIR "/data";
    memory_.clock.now.day = Day(2026, 11, 20);
    Store("Nazev", "Dřevovýroba Horní Lhota, společnost s ručením omezeným");
    Store("Ulice", "Průmyslová 1472/16a");
    Store("PSC", "530 03");
    Store("Obec", "Pardubice – Bílé Předměstí");
    Store("ICO", "27074358");
    Store("DIC", "CZ27074358");
    Store("Banka", "19-2000145399/0800");
    Store("Rejstrik", "Krajský soud v Hradci Králové, oddíl C, vložka 123456");
    Store("TextRadku", "Fakturujeme Vám úroky z prodlení dle výpočtu");
    Store("Dovetek0", "Úrok z prodlení je splatný bez ohledu na zaplacení jistiny.");
    Store("Zaokrouhlit", "halere");
    Store("Hotovo", "Ano");
  }

  void Splash() {
    velta_.Start();
    Settle();
    Keep(TopLevel("frmSplash"), "frmSplash");
  }

  void MainWindow() {
    memory_.event_loop.Advance(std::chrono::minutes(1));
    Settle();
    if (maximized_) Main().showMaximized();
    Settle();
    Keep(Main(), "frmMenu");
  }

  void SingleWindow() {
    Open("frmJednotlivy");
    Keep("frmJednotlivy-empty");
    PickDay("dtpSplatnost", Day(2026, 3, 15));
    PickDay("dtpZaplaceni", Day(2026, 11, 20));
    Keep("frmJednotlivy-lawful-rate");
    Type("txtDluznaCastka", "100000");
    Type("txtVyseSazby", "11,5");
    Keep("frmJednotlivy");
    PickDay("dtpSplatnost", Day(2005, 5, 1));
    PickDay("dtpZaplaceni", Day(2008, 6, 20));
    Pick("cboDruhSazby", 5);
    Type("txtDluznaCastka", "12345678901234,5");
    Keep("frmJednotlivy-repo");
    Close();
  }

  void ProgressiveWindow() {
    Open("frmPostupny");
    Keep("frmPostupny-empty");
    PickDay("dtpSplatnost", Day(2022, 3, 10));
    Keep("frmPostupny-lawful-rate");
    EnterInvoice("100000", Day(2004, 1, 31), 1, "12,5");
    AddPayment(Day(2004, 2, 28), "20000");
    AddPayment(Day(2004, 3, 15), "1234,5");
    AddPayment(Day(2004, 12, 1), "5000,25");
    Pick("List2", 1);
    Keep("frmPostupny");
    for (unsigned day = 1; day < 25; ++day) AddPayment(Day(2005, 1, day), "2500");
    AddPayment(Day(2005, 2, 1), Box("txtData(0)").text());
    Keep("frmPostupny-many");
    Open("frmFaktura");
    Keep("frmFaktura-empty");
    FillInvoice();
    Keep("frmFaktura");
    Close();  // and with it the calculation
  }

  void RepoPayments() {
    Open("frmPostupny");
    EnterInvoice("12345678901234,5", Day(2005, 6, 1), 5, "");
    AddPayment(Day(2006, 3, 1), "12345678900000");
    AddPayment(Day(2007, 3, 1), Box("txtData(0)").text());
    Pick("List1", 0);
    Keep("frmPostupny-repo");
    Close();
  }

  void SettingsWindow() {
    Open("frmNastaveni");
    for (const int page : {0, 1, 2, 3}) {
      Control<ui::OptionButton>("optFramy(" + std::to_string(page) + ")").UserClick();
      Keep("frmNastaveni-" + std::to_string(page));
    }
    Close();
  }

  void SmallWindows() {
    for (const char* name : {"frmAbout", "frmHistory"}) {
      Open(name);
      Keep(name);
      Close();
    }
  }

  void LongMessage() {
    qt::EventLoop loop;
    qt::MessageBox box(loop);
    QTimer::singleShot(50, [this] {
      Settle();
      Keep(*QApplication::activeModalWidget(), "message");
      QApplication::activeModalWidget()->close();
    });
    box.Show(ui::Icon::kCritical, "Velta",
             "Maximální hodnota proměnné typu měna je 922 337 203 685 477,58 Kč\r\n pro větší "
             "hodnotu nelze použít");
  }

 private:
  void Store(const char* key, const char* text) {
    memory_.settings_store.Write("velta", "Settings", key, text);
  }

  void Open(const std::string& window) {
    window_ = window;
    velta_.program().windows.Open(window);
    Settle();
    if (maximized_) {
      for (auto* sub_window : Main().findChildren<QMdiSubWindow*>()) {
        if (sub_window->isVisible()) sub_window->showMaximized();
      }
    }
  }
  void Close() { velta_.program().windows.Unload(window_); }

  template <class C>
  C& Control(const std::string& name) {
    return dynamic_cast<C&>(*velta_.program().windows.Find(window_)->Find(name));
  }
  ui::TextBox& Box(const std::string& name) { return Control<ui::TextBox>(name); }
  void Type(const std::string& name, const std::string& text) { Box(name).UserEdit(text); }
  void Pick(const std::string& name, int row) { Control<ui::ListControl>(name).UserPick(row); }
  void PickDay(const std::string& name, std::chrono::sys_days day) {
    Control<ui::DatePicker>(name).UserPick(day);
  }

  void EnterInvoice(const std::string& amount, std::chrono::sys_days due, int kind,
                    const std::string& rate) {
    Type("txtData(0)", amount);
    PickDay("dtpSplatnost", due);
    Pick("cboDruhSazby", kind);
    Type("txtData(2)", rate);
  }
  void AddPayment(std::chrono::sys_days day, const std::string& amount) {
    PickDay("dtpZaplaceni", day);
    Type("txtData(1)", amount);
    Control<ui::Button>("cmdPridat").UserClick();
    Settle();
  }

  void FillInvoice() {
    const std::array<const char*, 8> texts = {
        "2005001",      "Zednictví Nejedlý a synové, veřejná obchodní společnost",
        "U Pekařky 15", "Praha 8 – Libeň",
        "180 00",       "27082440",
        "CZ27082440",   "2004/117"};
    for (std::size_t i = 0; i < texts.size(); ++i) {
      Type("txtFaktura(" + std::to_string(i) + ")", texts.at(i));
    }
    Type("txtFaktura(14)", "14");
  }

  /// Lets the program and the layouts come to rest.
  void Settle() {
    memory_.event_loop.RunUntilIdle();
    for (int turn = 0; turn < 5; ++turn) QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  static QWidget& TopLevel(const char* name) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == name) return *widget;
    }
    qFatal("There is no window %s.", name);
  }
  static QWidget& Main() { return TopLevel("frmMenu"); }

  void Keep(const char* name) {
    Settle();
    Keep(Main(), name);
  }
  void Keep(const std::string& name) { Keep(name.c_str()); }
  void Keep(QWidget& widget, const char* name) {
    const QString file = folder_ + "/" + name + ".png";
    if (!widget.grab().save(file)) qFatal("%s cannot be written.", qPrintable(file));
    std::cout << file.toStdString() << '\n';
  }

  QString folder_;
  bool maximized_;
  std::string window_;
  ui::MemoryPlatform memory_;
  qt::WindowSystem window_system_;
  Velta velta_{memory_.platform(window_system_), {1, 0, 0, std::chrono::milliseconds(1)}};
};

}  // namespace

}  // namespace velta

int main(int argc, char** argv) {
  QCommandLineParser parser;
  parser.addOption({"dark", "In a dark palette."});
  parser.addOption({"maximized", "Windows fill the main window."});
  parser.addOption({"font", "The font's size.", "points", "9"});
  parser.addOption({"screen", "The screen's size.", "size", "1366x768"});
  parser.addPositionalArgument("folder", "Where the pictures go.");
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments.append(QString::fromLocal8Bit(argv[i]));
  const bool understood = parser.parse(arguments) && parser.positionalArguments().size() == 1;
  const QStringList size = parser.value("screen").split(u'x');
  const QString folder = understood ? parser.positionalArguments().front() : QString();
  if (!understood || size.size() != 2 || !QDir().mkpath(folder)) {
    std::cerr << parser.helpText().toStdString();
    return 2;
  }
  const QTemporaryDir scratch;
  const QSize screen(size[0].toInt(), size[1].toInt() - velta::kTakenByDesktop);
  qputenv("QT_QPA_PLATFORM", velta::ScreenOf(screen, scratch.filePath("screen.json")));
  QApplication application(argc, argv);
  velta::qt::PrepareApplication();
  if (parser.isSet("dark")) QApplication::setPalette(velta::DarkPalette());
  QFont font = QApplication::font();
  font.setPointSize(parser.value("font").toInt());
  QApplication::setFont(font);

  velta::Shots shots(folder, parser.isSet("maximized"));
  shots.Splash();
  shots.MainWindow();
  shots.SingleWindow();
  shots.ProgressiveWindow();
  shots.RepoPayments();
  shots.SettingsWindow();
  shots.SmallWindows();
  shots.LongMessage();
  return 0;
}
