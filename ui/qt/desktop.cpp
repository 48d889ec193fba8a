#include "ui/qt/desktop.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <array>

namespace velta::qt {

namespace {

// A debt that grows: a sheet of lined paper with a per cent sign, columns, and a rising curve.
// Drawn and not kept as a picture, for it fills any screen and stays sharp.
constexpr QSizeF kPaper(1200, 800);
constexpr qreal kGroundLine = 680;

QColor Tint(QRgb colour, qreal opacity) {
  QColor tint(colour);
  tint.setAlphaF(static_cast<float>(opacity));
  return tint;
}

QLinearGradient Downwards(qreal top, const QColor& from, qreal bottom, const QColor& to) {
  QLinearGradient gradient(0, top, 0, bottom);
  gradient.setColorAt(0, from);
  gradient.setColorAt(1, to);
  return gradient;
}

QPainterPath Curve() {
  QPainterPath curve(QPointF(120, 640));
  curve.cubicTo(240, 628, 360, 612, 480, 584);
  curve.cubicTo(600, 555, 720, 516, 840, 448);
  curve.cubicTo(960, 380, 1080, 284, 1200, 120);
  return curve;
}

void DrawPaper(QPainter& painter) {
  painter.fillRect(QRectF({0, 0}, kPaper), Downwards(0, 0xfff4f7fa, kPaper.height(), 0xffdfe8f0));
  painter.setPen(Tint(0xffc9d6e3, 0.5));
  for (int y = 40; y < kPaper.height(); y += 40) painter.drawLine(QLineF(0, y, kPaper.width(), y));
  painter.setPen(QPen(Tint(0xffe08a1e, 0.25), 1.5));
  for (const int x : {114, 120}) painter.drawLine(QLineF(x, 0, x, kPaper.height()));
}

void DrawPerCentSign(QPainter& painter) {
  painter.setPen(QPen(Tint(0xffbccfe1, 0.5), 28, Qt::SolidLine, Qt::RoundCap));
  painter.setBrush(Qt::NoBrush);
  painter.drawLine(QLineF(520, 140, 320, 420));
  painter.drawEllipse(QPointF(320, 200), 56, 56);
  painter.drawEllipse(QPointF(520, 360), 56, 56);
}

void DrawColumns(QPainter& painter) {
  painter.setPen(Qt::NoPen);
  QPainterPath area = Curve();
  area.lineTo(kPaper.width(), kGroundLine);
  area.lineTo(120, kGroundLine);
  painter.fillPath(area, Downwards(120, Tint(0xffffffff, 0.7), kGroundLine, Tint(0xffffffff, 0.1)));
  painter.setBrush(Downwards(200, Tint(0xffb4cbe0, 0.8), kGroundLine, Tint(0xffc4d6e7, 0.4)));
  painter.setClipRect(QRectF(0, 0, kPaper.width(), kGroundLine));  // only the tops are round
  qreal x = 400;
  for (const qreal top : {608, 588, 563, 530, 489, 436, 368, 282}) {
    painter.drawRoundedRect(QRectF(x, top, 64, kGroundLine - top + 8), 8, 8);
    x += 100;
  }
  painter.setClipping(false);
}

void DrawCurve(QPainter& painter) {
  constexpr QRgb kLine = 0xff8fb0cf;
  painter.strokePath(Curve(), QPen(Tint(kLine, 0.75), 3.5));
  painter.setPen(QPen(QColor(kLine), 3));
  painter.setBrush(QColor(0xfff6f9fc));
  qreal x = 432;  // the columns' middles
  for (const qreal y : {594, 571, 540, 502, 452, 389, 309, 206}) {
    painter.drawEllipse(QPointF(x, y), 6, 6);
    x += 100;
  }
  painter.setPen(QPen(Tint(0xff9db7d0, 0.8), 2));
  painter.drawLine(QLineF(120, kGroundLine, kPaper.width(), kGroundLine));
}

}  // namespace

Desktop::Desktop(QWidget* parent) : QMdiArea(parent) {
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

void Desktop::paintEvent(QPaintEvent* event) {
  QMdiArea::paintEvent(event);
  if (picture_.size() != (QSizeF(viewport()->size()) * devicePixelRatioF()).toSize()) DrawPicture();
  QPainter painter(viewport());
  // The picture is a light one; on a dark desktop no more than a trace of it is left.
  const QColor ground = palette().color(QPalette::Window);
  if (ground.lightness() < 128) {
    painter.fillRect(viewport()->rect(), ground.darker(130));
    painter.setOpacity(0.08);
  }
  painter.drawPixmap(0, 0, picture_);
}

void Desktop::DrawPicture() {
  const QSizeF area = viewport()->size();
  picture_ = QPixmap((area * devicePixelRatioF()).toSize());
  picture_.setDevicePixelRatio(devicePixelRatioF());
  const QSizeF size = kPaper.scaled(area, Qt::KeepAspectRatioByExpanding);
  QPainter painter(&picture_);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate((area.width() - size.width()) / 2, (area.height() - size.height()) / 2);
  painter.scale(size.width() / kPaper.width(), size.height() / kPaper.height());
  DrawPaper(painter);
  DrawPerCentSign(painter);
  DrawColumns(painter);
  DrawCurve(painter);
}

}  // namespace velta::qt
