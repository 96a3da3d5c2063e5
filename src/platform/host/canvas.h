/// @file
/// canvas.h - the interface on which maps, symbols and captions are drawn.
///
/// Raster rules, the same for every implementation on pixels:
/// - A line excludes its last pixel and is the same pixels in both directions and under any clip.
/// - Rectangles and ellipses cover X1..X2-1 and Y1..Y2-1.
/// - A polygon's fill meets its outline without gap or leak.
/// - Pens are Pen.Width pixels wide and are not smoothed.
/// - Drawing twice with the exclusive-or mode restores every pixel.
/// - Text is placed by its top left corner and turned about it; with a solid brush the text's box
///   is filled with the brush colour first.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_HOST_CANVAS_H
#define ZAV_PLATFORM_HOST_CANVAS_H

#include <cstdint>
#include <span>
#include <string_view>

#include <platform/base/api.h>
#include <platform/base/color.h>
#include <platform/base/geometry.h>
#include <platform/host/font.h>

namespace zav {

class TBitmap;

/// How a pen draws.
enum class TPenStyle : uint8_t {
  psSolid,  ///< every pixel
  psDot,    ///< with gaps
  psClear   ///< nothing
};
/// pmXor: the pixel becomes its exclusive-or with the pen colour.
enum class TPenMode : uint8_t {
  pmCopy,  ///< the pixel becomes the pen colour
  pmXor    ///< the pixel becomes its exclusive-or with the pen colour
};
/// How insides are filled.
enum class TBrushStyle : uint8_t {
  bsSolid,  ///< with the brush colour
  bsClear   ///< not at all
};
/// How bitmaps are stretched: smColorOnColor takes the nearest pixel; smHalftone averages all
/// source pixels under a target pixel when shrinking and interpolates when enlarging.
enum class TStretchMode : uint8_t {
  smColorOnColor,  ///< the nearest pixel
  smHalftone       ///< smoothly
};

/// What lines and outlines are drawn with.
struct TPen {
  TColor Color = clBlack;                ///< of the line
  TPenStyle Style = TPenStyle::psSolid;  ///< solid, dotted or none
  TPenMode Mode = TPenMode::pmCopy;      ///< drawn over, or exclusive-or
  int32_t Width = 1;                     ///< pixels, 1 or more
  friend bool operator==(const TPen&, const TPen&) = default;
};

/// What insides are filled with.
struct TBrush {
  TColor Color = clWhite;                    ///< of the inside
  TBrushStyle Style = TBrushStyle::bsSolid;  ///< solid or none
  friend bool operator==(const TBrush&, const TBrush&) = default;
};

/// Draws on a bitmap, a window's buffer or a page. Coordinates may be any; what lies outside of the
/// target is clipped.
class ZAVGEO_API TCanvas {
 public:
  virtual ~TCanvas() = default;

  /// The drawing state; set it before a call, it stays until it is changed.
  TPen Pen;
  TBrush Brush;  ///< of insides and of text boxes
  TFont Font;    ///< of texts

  /// The current position, for LineTo.
  virtual void MoveTo(int32_t X, int32_t Y) = 0;
  /// Draws from the current position to (X, Y), which becomes the current position.
  virtual void LineTo(int32_t X, int32_t Y) = 0;
  /// Draws lines through the points; the current position is not used and not changed.
  virtual void Polyline(std::span<const TPoint> Points) = 0;
  /// Closes the outline, fills with the brush, draws the outline with the pen.
  virtual void Polygon(std::span<const TPoint> Points) = 0;
  /// Outline with the pen, inside with the brush.
  virtual void Rectangle(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) = 0;
  /// The ellipse that fills the rectangle: outline with the pen, inside with the brush.
  virtual void Ellipse(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) = 0;
  /// Fills with the brush colour; the pen is not used.
  virtual void FillRect(const TRect& Area) = 0;

  /// Writes one line of UTF-8 text in Font, (X, Y) being the top left corner of its box. It is
  /// turned about that corner by Font.Direction.
  virtual void TextOut(int32_t X, int32_t Y, std::string_view Text) = 0;
  /// Width and height of the text in Font as if it were not turned; 0 x 0 where there are no fonts.
  virtual TSize TextExtent(std::string_view Text) = 0;

  /// Copies Source of the bitmap to (X, Y) pixel by pixel (after any scale of the canvas). Parts of
  /// Source outside the bitmap are not drawn.
  virtual void CopyRect(int32_t X, int32_t Y, const TBitmap& Bitmap, const TRect& Source) = 0;
  /// Stretches Source, which may lie between pixels and stick out of the bitmap, over Dest. The
  /// mapping follows from the two whole rectangles; what of Source lies outside is not drawn.
  virtual void StretchDraw(const TRect& Dest, const TBitmap& Bitmap, const TRectDouble& Source,
                           TStretchMode Mode) = 0;
};

}  // namespace zav

#endif
