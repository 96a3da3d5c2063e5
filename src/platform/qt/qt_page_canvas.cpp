// qt_page_canvas.cpp - a canvas on a page: lines stay lines and text stays text.
// SPDX-License-Identifier: MIT
#include <platform/qt/qt_page_canvas.h>

#include <algorithm>
#include <cmath>

#include <QBrush>
#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPen>
#include <QPolygonF>
#include <QRectF>

#include <platform/base/rounding.h>
#include <platform/qt/qt_convert.h>
#include <platform/qt/qt_fonts.h>
#include <platform/qt/qt_image.h>

namespace zav {

namespace {

QPointF MiddleOf(TPoint Pixel) { return {Pixel.X + 0.5, Pixel.Y + 0.5}; }

QPolygonF Middles(std::span<const TPoint> Points) {
  QPolygonF Polygon;
  Polygon.reserve(static_cast<qsizetype>(Points.size()));
  for (const TPoint& Each : Points) Polygon.append(MiddleOf(Each));
  return Polygon;
}

QRectF ToQRectF(const TRect& Area) {
  return {static_cast<double>(Area.Left), static_cast<double>(Area.Top),
          static_cast<double>(Area.Right) - Area.Left, static_cast<double>(Area.Bottom) - Area.Top};
}

// The middles of the outline's pixels for a shape that covers X1..X2-1 and Y1..Y2-1.
QRectF Outline(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) {
  const auto [Left, Right] = std::minmax(X1, X2);
  const auto [Top, Bottom] = std::minmax(Y1, Y2);
  return QRectF(QPointF(Left + 0.5, Top + 0.5), QPointF(Right - 0.5, Bottom - 0.5));
}

// The whole pixels of a side that a source range touches.
struct TPixelRange {
  int32_t First = 0;
  int32_t Count = 0;
};
TPixelRange Touched(double From, double To, int32_t Size) {
  const double First = std::clamp(std::floor(From), 0.0, static_cast<double>(Size));
  const double End = std::clamp(std::ceil(To), 0.0, static_cast<double>(Size));
  return {static_cast<int32_t>(First), static_cast<int32_t>(End - First)};
}

}  // namespace

TQtPageCanvas::TQtPageCanvas(QPainter& Painter, const TRect& Area) : FPainter(Painter) {
  FPainter.save();
  FPainter.translate(Area.Left, Area.Top);
  FPainter.setClipRect(QRectF(0, 0, Area.Width(), Area.Height()), Qt::IntersectClip);
  FPainter.setRenderHint(QPainter::Antialiasing);
  // JPEG would blur the fine coloured lines of a map.
  FPainter.setRenderHint(QPainter::LosslessImageRendering);
}

TQtPageCanvas::~TQtPageCanvas() { FPainter.restore(); }

QPen TQtPageCanvas::PagePen() const {
  if (Pen.Style == TPenStyle::psClear) return QPen(Qt::NoPen);
  const bool Unseen = Pen.Mode == TPenMode::pmXor && (Pen.Color & clWhite) == clWhite;
  QPen Result(Unseen ? QColor(Qt::black) : ToQColor(Pen.Color), std::max(Pen.Width, 1));
  Result.setCapStyle(Qt::RoundCap);
  Result.setJoinStyle(Qt::RoundJoin);
  if (Pen.Style == TPenStyle::psDot) {
    Result.setCapStyle(Qt::FlatCap);
    Result.setDashPattern({3, 3});  // in pen widths
  }
  return Result;
}

void TQtPageCanvas::SetUpPainter() {
  FPainter.setPen(PagePen());
  FPainter.setBrush(Brush.Style == TBrushStyle::bsClear ? QBrush(Qt::NoBrush)
                                                        : QBrush(ToQColor(Brush.Color)));
}

void TQtPageCanvas::LineTo(int32_t X, int32_t Y) {
  const TPoint From = FPosition;
  FPosition = {X, Y};
  if (From == FPosition) return;
  FPainter.setPen(PagePen());
  FPainter.drawLine(MiddleOf(From), MiddleOf(FPosition));
}

void TQtPageCanvas::Polyline(std::span<const TPoint> Points) {
  if (Points.size() < 2) return;
  FPainter.setPen(PagePen());
  FPainter.drawPolyline(Middles(Points));
}

void TQtPageCanvas::Polygon(std::span<const TPoint> Points) {
  if (Points.size() < 2) return;
  SetUpPainter();
  FPainter.drawPolygon(Middles(Points), Qt::OddEvenFill);
}

void TQtPageCanvas::Rectangle(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) {
  if (X1 == X2 || Y1 == Y2) return;
  SetUpPainter();
  FPainter.drawRect(Outline(X1, Y1, X2, Y2));
}

void TQtPageCanvas::Ellipse(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) {
  if (X1 == X2 || Y1 == Y2) return;
  SetUpPainter();
  FPainter.drawEllipse(Outline(X1, Y1, X2, Y2));
}

void TQtPageCanvas::FillRect(const TRect& Area) {
  if (!Area.Empty()) FPainter.fillRect(ToQRectF(Area), ToQColor(Brush.Color));
}

void TQtPageCanvas::TextOut(int32_t X, int32_t Y, std::string_view Text) {
  if (Text.empty()) return;
  const QFont Face = PageFont(Font);
  const QString Shown = PrintableText(Text);
  const QFontMetricsF Metrics(Face);
  FPainter.save();
  FPainter.translate(X, Y);
  FPainter.rotate(-Font.Direction);
  if (Brush.Style == TBrushStyle::bsSolid) {
    FPainter.fillRect(QRectF(0, 0, Metrics.horizontalAdvance(Shown), Metrics.height()),
                      ToQColor(Brush.Color));
  }
  FPainter.setFont(Face);
  FPainter.setPen(ToQColor(Font.Color));
  FPainter.drawText(QPointF(0, Metrics.ascent()), Shown);
  FPainter.restore();
}

TSize TQtPageCanvas::TextExtent(std::string_view Text) {
  const QFontMetricsF Metrics(PageFont(Font));
  return {RoundHalfEven(std::ceil(Metrics.horizontalAdvance(PrintableText(Text)))),
          RoundHalfEven(std::ceil(Metrics.height()))};
}

void TQtPageCanvas::CopyRect(int32_t X, int32_t Y, const TBitmap& Bitmap, const TRect& Source) {
  const QRectF Pixels = ToQRectF(Source);
  StretchDraw({X, Y, X + Source.Width(), Y + Source.Height()}, Bitmap,
              {Pixels.left(), Pixels.top(), Pixels.right(), Pixels.bottom()},
              TStretchMode::smColorOnColor);
}

// A page takes whole pixels of an image only; so what they cover is computed, and the parts that
// stick out of the source are cut off.
void TQtPageCanvas::StretchDraw(const TRect& Dest, const TBitmap& Bitmap, const TRectDouble& Source,
                                TStretchMode Mode) {
  const double Width = Source.Right - Source.Left;
  const double Height = Source.Bottom - Source.Top;
  if (Dest.Empty() || !(Width > 0) || !(Height > 0) || std::isinf(Width + Height)) return;
  const TPixelRange X = Touched(Source.Left, Source.Right, Bitmap.Width());
  const TPixelRange Y = Touched(Source.Top, Source.Bottom, Bitmap.Height());
  if (X.Count < 1 || Y.Count < 1) return;
  const double ScaleX = Dest.Width() / Width;
  const double ScaleY = Dest.Height() / Height;
  const QRectF Target(Dest.Left + (X.First - Source.Left) * ScaleX,
                      Dest.Top + (Y.First - Source.Top) * ScaleY, X.Count * ScaleX,
                      Y.Count * ScaleY);
  FPainter.save();
  FPainter.setClipRect(ToQRectF(Dest), Qt::IntersectClip);
  FPainter.setRenderHint(QPainter::SmoothPixmapTransform, Mode == TStretchMode::smHalftone);
  FPainter.drawImage(Target, WrapBitmap(Bitmap).copy(X.First, Y.First, X.Count, Y.Count));
  FPainter.restore();
}

}  // namespace zav
