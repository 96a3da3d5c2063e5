// icons.cpp - the viewer's icons, as strokes on a grid of 24 x 24.
// SPDX-License-Identifier: MIT
#include "icons.h"

#include <cmath>

#include <QColor>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPen>
#include <QPixmap>
#include <QPolygonF>

namespace zav {

namespace {

void AddPolyline(QPainterPath& Path, const QPolygonF& Points) { Path.addPolygon(Points); }

void AddArrow(QPainterPath& Path, bool ToLeft) {
  const double Tip = ToLeft ? 4 : 20;
  const double Tail = ToLeft ? 20 : 4;
  const double Wing = ToLeft ? 11 : 13;
  AddPolyline(Path, {{Tail, 12}, {Tip, 12}});
  AddPolyline(Path, {{Wing, 5}, {Tip, 12}, {Wing, 19}});
}

void AddMagnifier(QPainterPath& Path, bool Plus) {
  Path.addEllipse(QRectF(3, 3, 14, 14));
  AddPolyline(Path, {{15, 15}, {21, 21}});
  AddPolyline(Path, {{6.5, 10}, {13.5, 10}});
  if (Plus) AddPolyline(Path, {{10, 6.5}, {10, 13.5}});
}

void AddFolder(QPainterPath& Path) {
  Path.addPolygon(QPolygonF{{3, 19}, {3, 5}, {9, 5}, {11, 8}, {21, 8}, {21, 19}, {3, 19}});
}

void AddSheet(QPainterPath& Path) {
  Path.addPolygon(QPolygonF{{5, 3}, {14, 3}, {19, 8}, {19, 21}, {5, 21}, {5, 3}});
  AddPolyline(Path, {{14, 3}, {14, 8}, {19, 8}});
}

// Four corners of a frame.
void AddFit(QPainterPath& Path) {
  AddPolyline(Path, {{3, 8}, {3, 3}, {8, 3}});
  AddPolyline(Path, {{16, 3}, {21, 3}, {21, 8}});
  AddPolyline(Path, {{21, 16}, {21, 21}, {16, 21}});
  AddPolyline(Path, {{8, 21}, {3, 21}, {3, 16}});
  Path.addRect(QRectF(8, 8, 8, 8));
}

void AddOneToOne(QPainterPath& Path) {
  AddPolyline(Path, {{3, 8}, {6, 5}, {6, 19}});
  AddPolyline(Path, {{15, 8}, {18, 5}, {18, 19}});
  AddPolyline(Path, {{11, 9}, {11, 10}});
  AddPolyline(Path, {{11, 15}, {11, 16}});
}

// A globe: outline, equator, two parallels, a meridian either side of the middle.
void AddGraticule(QPainterPath& Path) {
  Path.addEllipse(QRectF(3, 3, 18, 18));
  Path.addEllipse(QRectF(8, 3, 8, 18));
  AddPolyline(Path, {{3, 12}, {21, 12}});
  AddPolyline(Path, {{4.5, 7.5}, {19.5, 7.5}});
  AddPolyline(Path, {{4.5, 16.5}, {19.5, 16.5}});
}

void AddList(QPainterPath& Path) {
  Path.addRect(QRectF(3, 4, 18, 16));
  AddPolyline(Path, {{9, 4}, {9, 20}});
  AddPolyline(Path, {{5, 8}, {7, 8}});
  AddPolyline(Path, {{5, 12}, {7, 12}});
  AddPolyline(Path, {{5, 16}, {7, 16}});
}

// A sheet in a larger one, with an arrow into it or out of it.
void AddSheets(QPainterPath& Path, bool Into) {
  Path.addRect(QRectF(3, 3, 18, 18));
  Path.addRect(QRectF(12.5, 12.5, 8.5, 8.5));
  AddPolyline(Path, {{6, 6}, {11, 11}});
  if (Into)
    AddPolyline(Path, {{7, 11}, {11, 11}, {11, 7}});
  else
    AddPolyline(Path, {{6, 10}, {6, 6}, {10, 6}});
}

void AddCopy(QPainterPath& Path) {
  Path.addRect(QRectF(8, 8, 12, 13));
  AddPolyline(Path, {{5, 16}, {4, 16}, {4, 3}, {16, 3}, {16, 5}});
}

void AddDiskette(QPainterPath& Path) {
  Path.addPolygon(QPolygonF{{4, 4}, {16, 4}, {20, 8}, {20, 20}, {4, 20}, {4, 4}});
  AddPolyline(Path, {{8, 4}, {8, 9}, {15, 9}, {15, 4}});
  AddPolyline(Path, {{7, 20}, {7, 13}, {17, 13}, {17, 20}});
}

void AddTurn(QPainterPath& Path, bool ToLeft) {
  const double Tip = ToLeft ? 4 : 20;
  const double Wing = ToLeft ? 9 : 15;
  AddPolyline(Path, {{Wing, 4}, {Tip, 9}, {Wing, 14}});
  Path.moveTo(Tip, 9);
  if (ToLeft) {
    Path.lineTo(14, 9);
    Path.arcTo(QRectF(9, 9, 10, 10), 90, -180);
    Path.lineTo(8, 19);
  } else {
    Path.lineTo(10, 9);
    Path.arcTo(QRectF(5, 9, 10, 10), 90, 180);
    Path.lineTo(16, 19);
  }
}

// A control point: ring and cross hair.
void AddControlPoint(QPainterPath& Path) {
  Path.addEllipse(QRectF(6, 6, 12, 12));
  AddPolyline(Path, {{12, 2}, {12, 10}});
  AddPolyline(Path, {{12, 14}, {12, 22}});
  AddPolyline(Path, {{2, 12}, {10, 12}});
  AddPolyline(Path, {{14, 12}, {22, 12}});
}

void AddWarning(QPainterPath& Path) {
  Path.addPolygon(QPolygonF{{12, 3}, {22, 21}, {2, 21}, {12, 3}});
  AddPolyline(Path, {{12, 9}, {12, 15}});
  AddPolyline(Path, {{12, 17.6}, {12, 18}});
}

// An arrow head at Tip, its wings Back from it.
void AddHead(QPainterPath& Path, QPointF Tip, QPointF Back) {
  const QPointF Side(-Back.y(), Back.x());
  AddPolyline(Path, {Tip + Back + Side, Tip, Tip + Back - Side});
}

void AddDoubleArrow(QPainterPath& Path, QPointF From, QPointF To) {
  const QPointF Back = (To - From) * 3 / std::hypot((To - From).x(), (To - From).y());
  AddPolyline(Path, {From, To});
  AddHead(Path, From, Back);
  AddHead(Path, To, -Back);
}

void AddSmallMagnifier(QPainterPath& Path, QPointF Center) {
  Path.addEllipse(Center, 4.5, 4.5);
  AddPolyline(Path, {Center + QPointF(3.2, 3.2), Center + QPointF(7, 7)});
}

// The sides of a rectangle as dashes about its corners.
void AddDashedRect(QPainterPath& Path, const QRectF& Box) {
  const double W = Box.width();
  const double H = Box.height();
  for (const double X : {0.0, 0.4, 0.8}) {
    AddPolyline(Path, {{Box.left() + X * W, Box.top()}, {Box.left() + (X + 0.2) * W, Box.top()}});
    AddPolyline(Path,
                {{Box.left() + X * W, Box.bottom()}, {Box.left() + (X + 0.2) * W, Box.bottom()}});
  }
  for (const double Y : {0.0, 0.4, 0.8}) {
    AddPolyline(Path, {{Box.left(), Box.top() + Y * H}, {Box.left(), Box.top() + (Y + 0.2) * H}});
    AddPolyline(Path, {{Box.right(), Box.top() + Y * H}, {Box.right(), Box.top() + (Y + 0.2) * H}});
  }
}

// A ruler across the field, with its marks.
void AddRuler(QPainterPath& Path) {
  AddPolyline(Path, {{2, 16}, {16, 2}, {22, 8}, {8, 22}, {2, 16}});
  for (const double At : {0.22, 0.41, 0.6, 0.79}) {
    const QPointF Foot = QPointF(2, 16) + QPointF(14, -14) * At;
    AddPolyline(Path, {Foot, Foot + QPointF(2.4, 2.4)});
  }
}

// A line by hand, with its start.
void AddSquiggle(QPainterPath& Path) {
  Path.addEllipse(QPointF(4, 19), 1.6, 1.6);
  Path.moveTo(5.5, 18);
  Path.cubicTo(11, 15, 3, 9, 9, 7);
  Path.cubicTo(15, 5, 12, 17, 17, 15);
  Path.cubicTo(21, 13, 18, 8, 21, 4);
}

// A pin on the map.
void AddPin(QPainterPath& Path, QPointF Foot, double Size) {
  const QPointF Head = Foot - QPointF(0, 1.6 * Size);
  Path.moveTo(Foot);
  Path.cubicTo(Foot + QPointF(-0.3 * Size, -0.7 * Size), Head + QPointF(-Size, 0.6 * Size),
               Head + QPointF(-0.9 * Size, 0));
  Path.arcTo(QRectF(Head.x() - 0.9 * Size, Head.y() - 0.9 * Size, 1.8 * Size, 1.8 * Size), 180,
             -180);
  Path.cubicTo(Head + QPointF(Size, 0.6 * Size), Foot + QPointF(0.3 * Size, -0.7 * Size), Foot);
  Path.addEllipse(Head, 0.3 * Size, 0.3 * Size);
}

void AddX(QPainterPath& Path, QPointF Middle, double Arm) {
  AddPolyline(Path, {Middle - QPointF(Arm, Arm), Middle + QPointF(Arm, Arm)});
  AddPolyline(Path, {Middle + QPointF(-Arm, Arm), Middle + QPointF(Arm, -Arm)});
}

void AddLandmarkIcon(QPainterPath& Path, ViewerIcon Icon) {
  switch (Icon) {
    case ViewerIcon::LandmarkSelect:
      Path.addPolygon(QPolygonF{
          {6, 3}, {6, 18}, {10, 14.5}, {12.5, 20.5}, {15, 19.5}, {12.6, 13.6}, {18, 13.2}, {6, 3}});
      break;
    case ViewerIcon::LandmarkAdd:
      AddPin(Path, {9, 21}, 7);
      AddPolyline(Path, {{19, 14}, {19, 22}});
      AddPolyline(Path, {{15, 18}, {23, 18}});
      break;
    case ViewerIcon::LandmarkDelete:
      AddPin(Path, {9, 21}, 7);
      AddX(Path, {19, 18}, 3);
      break;
    case ViewerIcon::LandmarkDeleteCircle:
      Path.addEllipse(QRectF(3, 3, 18, 18));
      AddX(Path, {12, 12}, 3.5);
      break;
    case ViewerIcon::LandmarkDeleteRectangle:
      Path.addRect(QRectF(3, 5, 18, 14));
      AddX(Path, {12, 12}, 3.5);
      break;
    default:
      AddPin(Path, {12, 21.5}, 7.5);
      break;
  }
}

void AddTool(QPainterPath& Path, ViewerIcon Icon) {
  switch (Icon) {
    case ViewerIcon::Pan:
      AddDoubleArrow(Path, {2, 12}, {22, 12});
      AddDoubleArrow(Path, {12, 2}, {12, 22});
      break;
    case ViewerIcon::PanHorizontal:
      AddDoubleArrow(Path, {2, 12}, {22, 12});
      break;
    case ViewerIcon::PanVertical:
      AddDoubleArrow(Path, {12, 2}, {12, 22});
      break;
    case ViewerIcon::ZoomBox:
      AddDashedRect(Path, QRectF(3, 3, 15, 12));
      AddSmallMagnifier(Path, {14, 14});
      break;
    case ViewerIcon::ZoomDrag:
      AddSmallMagnifier(Path, {9, 9});
      AddDoubleArrow(Path, {19, 3}, {19, 21});
      break;
    case ViewerIcon::Measure:
      AddRuler(Path);
      break;
    case ViewerIcon::SelectRect:
      AddDashedRect(Path, QRectF(3, 5, 18, 14));
      break;
    case ViewerIcon::Trace:
      AddSquiggle(Path);
      break;
    default:
      AddLandmarkIcon(Path, Icon);
      break;
  }
}

QPainterPath StrokesOf(ViewerIcon Icon) {
  QPainterPath Path;
  switch (Icon) {
    case ViewerIcon::OpenFile:
      AddSheet(Path);
      break;
    case ViewerIcon::OpenFolder:
      AddFolder(Path);
      break;
    case ViewerIcon::ZoomIn:
    case ViewerIcon::ZoomOut:
      AddMagnifier(Path, Icon == ViewerIcon::ZoomIn);
      break;
    case ViewerIcon::Fit:
      AddFit(Path);
      break;
    case ViewerIcon::ActualSize:
      AddOneToOne(Path);
      break;
    case ViewerIcon::Back:
    case ViewerIcon::Forward:
      AddArrow(Path, Icon == ViewerIcon::Back);
      break;
    case ViewerIcon::Graticule:
      AddGraticule(Path);
      break;
    case ViewerIcon::MapList:
      AddList(Path);
      break;
    case ViewerIcon::MapFiner:
    case ViewerIcon::MapCoarser:
      AddSheets(Path, Icon == ViewerIcon::MapFiner);
      break;
    case ViewerIcon::AtlasZoom:
      Path.addRect(QRectF(3, 3, 18, 15));
      Path.addRect(QRectF(6.5, 6, 7, 6));
      AddSmallMagnifier(Path, {15, 15});
      break;
    case ViewerIcon::Copy:
      AddCopy(Path);
      break;
    case ViewerIcon::Save:
      AddDiskette(Path);
      break;
    case ViewerIcon::Undo:
    case ViewerIcon::Redo:
      AddTurn(Path, Icon == ViewerIcon::Undo);
      break;
    case ViewerIcon::Calibrate:
      AddControlPoint(Path);
      break;
    case ViewerIcon::Warning:
      AddWarning(Path);
      break;
    case ViewerIcon::Application:
      break;
    default:
      AddTool(Path, Icon);
      break;
  }
  return Path;
}

// A folded map with its graticule, in colours that show on light and dark grounds.
void DrawApplicationIcon(QPainter& Painter) {
  Painter.setPen(QPen(QColor(0x2b, 0x4a, 0x5e), 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QColor Sheets[3] = {{0xcf, 0xe6, 0xc8}, {0xb2, 0xd8, 0xe8}, {0xf2, 0xe3, 0xb8}};
  for (int i = 0; i < 3; ++i) {
    const double Left = 2 + i * 6.6667;
    const double Right = Left + 6.6667;
    const double LeftDrop = i % 2 == 0 ? 0 : 3;
    Painter.setBrush(Sheets[i]);
    Painter.drawPolygon(QPolygonF{{Left, 3 + LeftDrop},
                                  {Right, 6 - LeftDrop},
                                  {Right, 21 - LeftDrop},
                                  {Left, 18 + LeftDrop}});
  }
  Painter.setPen(QPen(QColor(0xc0, 0x39, 0x2b), 1.6, Qt::SolidLine, Qt::RoundCap));
  Painter.setBrush(QColor(0xe7, 0x4c, 0x3c));
  Painter.drawEllipse(QPointF(12, 11.5), 2.6, 2.6);
}

class StrokeIconEngine final : public QIconEngine {
 public:
  explicit StrokeIconEngine(ViewerIcon Icon) : FIcon(Icon) {}

  void paint(QPainter* Painter, const QRect& Rect, QIcon::Mode Mode, QIcon::State) override {
    Painter->save();
    Painter->setRenderHint(QPainter::Antialiasing);
    Painter->translate(Rect.topLeft());
    Painter->scale(Rect.width() / 24.0, Rect.height() / 24.0);
    if (FIcon == ViewerIcon::Application) {
      DrawApplicationIcon(*Painter);
    } else {
      const auto Group = Mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
      const auto Role = Mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText;
      const QColor Color = QGuiApplication::palette().color(Group, Role);
      Painter->setPen(QPen(Color, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
      Painter->setBrush(Qt::NoBrush);
      Painter->drawPath(StrokesOf(FIcon));
    }
    Painter->restore();
  }

  QPixmap pixmap(const QSize& Size, QIcon::Mode Mode, QIcon::State State) override {
    QPixmap Pixmap(Size);
    Pixmap.fill(Qt::transparent);
    QPainter Painter(&Pixmap);
    paint(&Painter, QRect(QPoint(0, 0), Size), Mode, State);
    return Pixmap;
  }

  QIconEngine* clone() const override { return new StrokeIconEngine(FIcon); }
  bool isNull() override { return false; }

 private:
  ViewerIcon FIcon;
};

}  // namespace

QIcon MakeIcon(ViewerIcon Icon) { return QIcon(new StrokeIconEngine(Icon)); }

}  // namespace zav
