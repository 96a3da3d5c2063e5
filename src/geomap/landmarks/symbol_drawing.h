/// @file
/// symbol_drawing.h - the symbols of landmarks, on any canvas.
///
/// Directions are whole degrees clockwise from straight up. Sizes and lengths are pixels of the
/// canvas; any value is accepted, negative ones turn the shape over. Coordinates beyond the range
/// of int32_t stop at its ends.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_LANDMARKS_SYMBOL_DRAWING_H
#define ZAV_GEOMAP_LANDMARKS_SYMBOL_DRAWING_H

#include <array>
#include <cstdint>

#include <geomap/landmarks/landmark.h>
#include <platform/base/api.h>
#include <platform/base/geometry.h>
#include <platform/host/canvas.h>

namespace zav {

/// Draws a symbol about the pixel (x, y): outline in ColorFG, and unless Transparent the inside in
/// ColorBG; the crosses have a halo of ColorBG instead. lmUserDef draws nothing; a value that is no
/// element draws a small upright cross of nine pixels.
///
/// The colours of pen and brush are changed and stay. The brush's style is only changed by an
/// unfilled circle, to bsClear, and stays too: set it before each call.
ZAVGEO_API void DrawLandMarkSymbolOnCanvas(TCanvas& Canvas, int32_t x, int32_t y,
                                           TLandMarkElement Element, TColor ColorFG, TColor ColorBG,
                                           int32_t Size, int32_t Direction, int32_t Length,
                                           bool Transparent);
/// The same for the values of a record.
ZAVGEO_API void DrawLandMarkSymbolOnCanvas(TCanvas& Canvas, int32_t x, int32_t y,
                                           const TSymbolProperties& Symbol);

/// A symbol's shape without place and colours. Two symbols of equal shape are the same pixels.
struct TSymbolShape {
  TLandMarkElement Kind = TLandMarkElement::lmUserDef;  ///< of the symbol
  bool Filled = false;                                  ///< not transparent
  int32_t Size = 0;                                     ///< as given
  /// From the symbol's middle: the corners of a triangle; tip and barbs of an arrow, or its tail
  /// and barbs for lmArrowTo.
  std::array<TPoint, 3> Points{};
  friend bool operator==(const TSymbolShape&, const TSymbolShape&) = default;
};

/// The shape of a symbol about (x, y). The place matters: points that lie just between two pixels
/// are rounded to the even one.
ZAVGEO_API TSymbolShape ShapeOfSymbol(int32_t x, int32_t y,
                                      const TSymbolProperties& Symbol) noexcept;
/// Draws a shape about a pixel, as DrawLandMarkSymbolOnCanvas does.
ZAVGEO_API void DrawSymbolShape(TCanvas& Canvas, int32_t x, int32_t y, const TSymbolShape& Shape,
                                TColor ColorFG, TColor ColorBG);

}  // namespace zav

#endif
