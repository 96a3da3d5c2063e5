/// @file
/// qt_page_canvas.h - a canvas on a page: lines stay lines and text stays text.
///
/// What canvas.h says of pixels holds as far as a page has any: positions are printer pixels, a
/// line runs through the middle of its pixels. Text is set in the faces that the screen uses, as
/// outlines that are not hinted. There is no exclusive-or: such pens draw in their own colour,
/// white ones, which would not be seen on paper, in black.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_QT_QT_PAGE_CANVAS_H
#define ZAV_PLATFORM_QT_QT_PAGE_CANVAS_H

#include <platform/base/api.h>
#include <platform/host/canvas.h>

class QPainter;
class QPen;
class QPolygonF;

namespace zav {

/// Draws with a painter on whatever pages it paints on.
class ZAVGEO_API TQtPageCanvas final : public TCanvas {
 public:
  /// A canvas whose (0, 0) is the top left corner of Area, in the painter's own pixels. The painter
  /// must outlive it and gets its state back when the canvas dies.
  TQtPageCanvas(QPainter& Painter, const TRect& Area);
  ~TQtPageCanvas() override;
  TQtPageCanvas(const TQtPageCanvas&) = delete;
  TQtPageCanvas& operator=(const TQtPageCanvas&) = delete;

  void MoveTo(int32_t X, int32_t Y) override { FPosition = {X, Y}; }
  void LineTo(int32_t X, int32_t Y) override;
  void Polyline(std::span<const TPoint> Points) override;
  void Polygon(std::span<const TPoint> Points) override;
  void Rectangle(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) override;
  void Ellipse(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) override;
  void FillRect(const TRect& Area) override;
  void TextOut(int32_t X, int32_t Y, std::string_view Text) override;
  TSize TextExtent(std::string_view Text) override;
  void CopyRect(int32_t X, int32_t Y, const TBitmap& Bitmap, const TRect& Source) override;
  void StretchDraw(const TRect& Dest, const TBitmap& Bitmap, const TRectDouble& Source,
                   TStretchMode Mode) override;

 private:
  QPen PagePen() const;
  void SetUpPainter();

  QPainter& FPainter;
  TPoint FPosition;
};

}  // namespace zav

#endif
