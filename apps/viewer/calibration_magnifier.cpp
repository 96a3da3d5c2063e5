// calibration_magnifier.cpp - the pixels about one of them, enlarged.
// SPDX-License-Identifier: MIT
#include "calibration_magnifier.h"

#include <algorithm>

#include <QImage>
#include <QPainter>

#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_convert.h>

#include "position_readout.h"

namespace zav {

namespace {

constexpr int Side = 168;  // of the picture, about
constexpr int Frame = 1;
constexpr int Distance = 28;  // from the point it is shown beside

}  // namespace

CalibrationMagnifier::CalibrationMagnifier(GeoMapWidget& Widget)
    : QWidget(&Widget), FWidget(Widget) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  setAccessibleName(tr("Magnifier"));
  fitSize();
  hide();
}

int CalibrationMagnifier::pixelsAcross() const { return (Side / FFactor) | 1; }

void CalibrationMagnifier::fitSize() {
  const int Across = pixelsAcross() * FFactor + 2 * Frame;
  resize(Across, Across + fontMetrics().height() + 2);
}

void CalibrationMagnifier::setFactor(int Factor) {
  FFactor = std::clamp(Factor, MinFactor, MaxFactor);
  fitSize();
  update();
}

void CalibrationMagnifier::showAt(TPoint MapPixel, QPoint Beside, const QRect& Avoid) {
  FCenter = MapPixel;
  const int Right = Beside.x() + Distance;
  const int Left = Beside.x() - Distance - width();
  const int Above = Beside.y() - Distance - height();
  const int Below = Beside.y() + Distance;
  // Beside the point; else, also farther away, beside what it must not cover.
  for (const QPoint Corner :
       {QPoint(Right, Above), QPoint(Left, Above), QPoint(Right, Below), QPoint(Left, Below),
        QPoint(Right, Avoid.top() - height()), QPoint(Left, Avoid.top() - height()),
        QPoint(Avoid.left() - width(), Above), QPoint(Avoid.left() - width(), Below)}) {
    move(std::clamp(Corner.x(), 0, std::max(0, FWidget.width() - width())),
         std::clamp(Corner.y(), 0, std::max(0, FWidget.height() - height())));
    if (!geometry().intersects(Avoid) && !geometry().contains(Beside)) break;
  }
  raise();
  show();
  update();
}

QImage CalibrationMagnifier::pixels() const {
  const int Count = pixelsAcross();
  QImage Image(Count, Count, QImage::Format_RGB32);
  const TBitmap& Map = FWidget.map().MapBitmap();
  for (int Y = 0; Y < Count; ++Y)
    for (int X = 0; X < Count; ++X) {
      const int MapX = FCenter.X + X - Count / 2;
      const int MapY = FCenter.Y + Y - Count / 2;
      const bool Inside = MapX >= 0 && MapY >= 0 && MapX < Map.Width() && MapY < Map.Height();
      const QColor Color = Inside ? ToQColor(Map.Pixel(MapX, MapY)) : FWidget.backgroundColor();
      Image.setPixelColor(X, Y, Color);
    }
  return Image;
}

void CalibrationMagnifier::paintEvent(QPaintEvent*) {
  QPainter Painter(this);
  const int Across = pixelsAcross() * FFactor;
  const QRect Picture(Frame, Frame, Across, Across);
  Painter.fillRect(rect(), palette().color(QPalette::ToolTipBase));
  Painter.drawImage(Picture, pixels());

  // The pixel in the middle stays free of the cross hair; white beside black shows on any map.
  const QRect Cell(Frame + Across / 2 - FFactor / 2, Frame + Across / 2 - FFactor / 2, FFactor,
                   FFactor);
  const QPoint Middle = Cell.center();
  for (const auto& [Color, Shift] : {std::pair{Qt::white, 1}, std::pair{Qt::black, 0}}) {
    Painter.setPen(Color);
    Painter.drawLine(Picture.left(), Middle.y() + Shift, Cell.left() - 2, Middle.y() + Shift);
    Painter.drawLine(Cell.right() + 2, Middle.y() + Shift, Picture.right(), Middle.y() + Shift);
    Painter.drawLine(Middle.x() + Shift, Picture.top(), Middle.x() + Shift, Cell.top() - 2);
    Painter.drawLine(Middle.x() + Shift, Cell.bottom() + 2, Middle.x() + Shift, Picture.bottom());
  }
  Painter.setPen(Qt::white);
  Painter.drawRect(Cell.adjusted(-2, -2, 1, 1));
  Painter.setPen(Qt::black);
  Painter.drawRect(Cell.adjusted(-1, -1, 0, 0));

  Painter.setPen(palette().color(QPalette::ToolTipText));
  Painter.drawText(QRect(0, Picture.bottom() + 1, width(), height() - Picture.bottom() - 2),
                   Qt::AlignCenter,
                   tr("%1   %2x").arg(PixelText(QPointF(ToQPoint(FCenter)))).arg(FFactor));
  Painter.setPen(palette().color(QPalette::Shadow));
  Painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace zav
