// qt_glyphs.cpp - see qt_glyphs.h.
//
// Everything is drawn on a field of 24 x 24.
// SPDX-License-Identifier: MIT
#include <platform/qt/qt_glyphs.h>

#include <cmath>

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPixmap>
#include <QPolygonF>
#include <QTransform>

#include <geoatlas/geo_atlas.h>

namespace zav {
namespace {

constexpr int Field = 24;
constexpr QPoint ZoomHotSpot{10, 10};
constexpr QPoint HandHotSpot{12, 10};

QPainterPath Magnifier() {
  QPainterPath Path;
  Path.addEllipse(QPointF(10, 10), 7, 7);
  Path.moveTo(15, 15);
  Path.lineTo(21.5, 21.5);
  Path.moveTo(6.5, 10);
  Path.lineTo(13.5, 10);
  Path.moveTo(10, 6.5);
  Path.lineTo(10, 13.5);
  return Path;
}

QPainterPath Arrow() {
  QPainterPath Path;
  Path.addPolygon(QPolygonF{
      {6, 2.5}, {6, 18.5}, {10, 14.8}, {12.6, 21}, {15.4, 19.8}, {12.8, 13.8}, {18, 13.4}});
  Path.closeSubpath();
  return Path;
}

// Four fingers, a thumb, a palm.
QPainterPath Hand() {
  QPainterPath Path;
  Path.setFillRule(Qt::WindingFill);
  for (const QRectF& Finger : {QRectF(7, 5, 2.8, 10), QRectF(10, 3, 2.8, 11),
                               QRectF(13, 3.8, 2.8, 11), QRectF(16, 6, 2.8, 10)})
    Path.addRoundedRect(Finger, 1.4, 1.4);
  Path.addRoundedRect(QRectF(7, 11, 11.8, 10), 4, 4);
  QPainterPath Thumb;
  Thumb.addRoundedRect(QRectF(-1.4, -7, 2.8, 9), 1.4, 1.4);
  Path.addPath(QTransform().translate(9, 18).rotate(-40).map(Thumb));
  return Path.simplified();
}

void DrawCursor(QPainter& Painter, int32_t Number) {
  if (Number == crGeoHand) {
    Painter.setPen(QPen(Qt::black, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    Painter.setBrush(Qt::white);
    Painter.drawPath(Hand());
    return;
  }
  // A light edge on both sides, so that it is seen on any map.
  Painter.setBrush(Qt::NoBrush);
  Painter.setPen(QPen(Qt::white, 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  Painter.drawPath(Magnifier());
  Painter.setPen(QPen(Qt::black, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  Painter.drawPath(Magnifier());
}

}  // namespace

void DrawGlyph(QPainter& Painter, const QRectF& Square, TGlyph Glyph, const QColor& Color) {
  Painter.save();
  Painter.setRenderHint(QPainter::Antialiasing);
  Painter.translate(Square.topLeft());
  Painter.scale(Square.width() / Field, Square.height() / Field);
  Painter.setPen(QPen(Color, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  Painter.setBrush(Qt::NoBrush);
  Painter.drawPath(Glyph == TGlyph::gyZoom ? Magnifier() : Arrow());
  Painter.restore();
}

QCursor MakeCursor(int32_t Number, double Ratio) {
  if (Number == crHandPoint) return QCursor(Qt::PointingHandCursor);
  if (Number != crGeoZoom && Number != crGeoHand) return QCursor(Qt::ArrowCursor);
  const int Size = static_cast<int>(std::ceil(Field * Ratio));
  QPixmap Pixmap(Size, Size);
  Pixmap.setDevicePixelRatio(Ratio);
  Pixmap.fill(Qt::transparent);
  QPainter Painter(&Pixmap);
  Painter.setRenderHint(QPainter::Antialiasing);
  DrawCursor(Painter, Number);
  Painter.end();
  const QPoint Hot = Number == crGeoZoom ? ZoomHotSpot : HandHotSpot;
  return QCursor(Pixmap, Hot.x(), Hot.y());
}

}  // namespace zav
