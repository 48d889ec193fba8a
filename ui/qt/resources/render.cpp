// velta-render FILE.svg FOLDER SIZE...
// Draws a square picture in each size, in pixels, as FOLDER/SIZE.png. The build runs it, so that
// the program needs no part of Qt that reads SVG: on some systems that is a package of its own,
// without which Qt would show nothing and say nothing.

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

int main(int argc, char** argv) {
  if (argc < 4) {
    std::fprintf(stderr, "usage: velta-render FILE.svg FOLDER SIZE...\n");
    return 2;
  }
  QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
  const QDir folder(QString::fromLocal8Bit(argv[2]));
  if (!drawing.isValid()) {
    std::fprintf(stderr, "%s is no picture\n", argv[1]);
    return 1;
  }
  folder.mkpath(".");
  for (int i = 3; i < argc; ++i) {
    const int size = QByteArray(argv[i]).toInt();
    QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawing.render(&painter);
    painter.end();
    const QString file = folder.filePath(QString("%1.png").arg(size));
    if (!picture.save(file)) {
      std::fprintf(stderr, "%s cannot be written\n", qPrintable(file));
      return 1;
    }
  }
  return 0;
}
