// velta-render FILE.svg FOLDER SIZE...
// Draws a picture in each size. A number is a square of so many pixels, FOLDER/SIZE.png; 1x and 2x
// are the picture's own size and twice that, FOLDER/FILE.png and FOLDER/FILE@2x.png. The build runs
// it, so that the program needs no part of Qt that reads SVG: on some systems that is a package of
// its own, without which Qt would show nothing and say nothing.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QImage>
#include <QLoggingCategory>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

namespace {

/// What the pictures are written in. In another font their words would not fit.
constexpr const char* kFont = "Liberation Sans";

bool LacksItsFont(const QString& file) {
  QFile source(file);
  return source.open(QIODevice::ReadOnly) && source.readAll().contains("<text") &&
         !QFontDatabase::hasFamily(kFont);
}

}  // namespace

int main(int argc, char** argv) {
  // Text needs an application; nothing needs a screen, nor a session, whose lack Qt would tell.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QLoggingCategory::setFilterRules("default.warning=false");
  const QGuiApplication application(argc, argv);
  const QStringList arguments = QGuiApplication::arguments();
  if (arguments.size() < 4) {
    std::fprintf(stderr, "usage: velta-render FILE.svg FOLDER SIZE...\n");
    return 2;
  }
  const QString& source = arguments[1];
  QSvgRenderer drawing(source);
  if (!drawing.isValid()) {
    std::fprintf(stderr, "%s is no picture\n", qPrintable(source));
    return 1;
  }
  if (LacksItsFont(source)) {
    std::fprintf(stderr,
                 "%s needs the font %s, which is not installed (package fonts-liberation)\n",
                 qPrintable(source), kFont);
    return 1;
  }
  const QDir folder(arguments[2]);
  folder.mkpath(".");
  for (const QString& wanted : arguments.sliced(3)) {
    QString name = wanted;
    QSize size(wanted.toInt(), wanted.toInt());
    if (wanted.endsWith('x')) {
      const int scale = wanted.chopped(1).toInt();
      name = QFileInfo(source).baseName() + (scale == 1 ? "" : '@' + wanted);
      size = drawing.defaultSize() * scale;
    }
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawing.render(&painter);
    painter.end();
    const QString file = folder.filePath(name + ".png");
    if (!picture.save(file)) {
      std::fprintf(stderr, "%s cannot be written\n", qPrintable(file));
      return 1;
    }
  }
  return 0;
}
