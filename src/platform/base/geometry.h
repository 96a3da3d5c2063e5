/// @file
/// geometry.h - points, sizes and rectangles of whole pixels, and rectangles of real numbers.
///
/// Plain values. A rectangle covers Left..Right-1 and Top..Bottom-1.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_GEOMETRY_H
#define ZAV_PLATFORM_BASE_GEOMETRY_H

#include <cstdint>

namespace zav {

/// A pixel.
struct TPoint {
  int32_t X = 0;  ///< to the right
  int32_t Y = 0;  ///< down
  friend bool operator==(const TPoint&, const TPoint&) = default;
};

/// An extent in pixels.
struct TSize {
  int32_t Width = 0;   ///< columns
  int32_t Height = 0;  ///< rows
  friend bool operator==(const TSize&, const TSize&) = default;
};

/// A rectangle of pixels.
struct TRect {
  int32_t Left = 0;    ///< first column
  int32_t Top = 0;     ///< first row
  int32_t Right = 0;   ///< column behind the last one
  int32_t Bottom = 0;  ///< row behind the last one

  /// Columns; below 0 for a rectangle that is turned round.
  int32_t Width() const noexcept { return Right - Left; }
  /// Rows; below 0 for a rectangle that is turned round.
  int32_t Height() const noexcept { return Bottom - Top; }
  /// Whether it covers no pixel.
  bool Empty() const noexcept { return Right <= Left || Bottom <= Top; }
  friend bool operator==(const TRect&, const TRect&) = default;
};

/// The part that two rectangles have in common; empty when there is none.
constexpr TRect Intersection(const TRect& A, const TRect& B) noexcept {
  return {A.Left > B.Left ? A.Left : B.Left, A.Top > B.Top ? A.Top : B.Top,
          A.Right < B.Right ? A.Right : B.Right, A.Bottom < B.Bottom ? A.Bottom : B.Bottom};
}

/// Four real numbers: geographic (west, north, east, south) or pixel positions.
struct TRectDouble {
  double Left = 0;    ///< west, or the left edge
  double Top = 0;     ///< north, or the upper edge
  double Right = 0;   ///< east, or the right edge
  double Bottom = 0;  ///< south, or the lower edge
  friend bool operator==(const TRectDouble&, const TRectDouble&) = default;
};

}  // namespace zav

#endif
