// geometry.h - points, sizes and rectangles of whole pixels, and rectangles of real numbers.
//
// Plain values. A rectangle covers Left..Right-1 and Top..Bottom-1.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_GEOMETRY_H
#define ZAV_PLATFORM_BASE_GEOMETRY_H

#include <cstdint>

namespace zav {

struct TPoint {
  int32_t X = 0;
  int32_t Y = 0;
  friend bool operator==(const TPoint&, const TPoint&) = default;
};

struct TSize {
  int32_t Width = 0;
  int32_t Height = 0;
  friend bool operator==(const TSize&, const TSize&) = default;
};

struct TRect {
  int32_t Left = 0;
  int32_t Top = 0;
  int32_t Right = 0;
  int32_t Bottom = 0;

  int32_t Width() const noexcept { return Right - Left; }
  int32_t Height() const noexcept { return Bottom - Top; }
  bool Empty() const noexcept { return Right <= Left || Bottom <= Top; }
  friend bool operator==(const TRect&, const TRect&) = default;
};

// The part that two rectangles have in common; empty when there is none.
constexpr TRect Intersection(const TRect& A, const TRect& B) noexcept {
  return {A.Left > B.Left ? A.Left : B.Left, A.Top > B.Top ? A.Top : B.Top,
          A.Right < B.Right ? A.Right : B.Right, A.Bottom < B.Bottom ? A.Bottom : B.Bottom};
}

// Four real numbers: geographic (west, north, east, south) or pixel positions.
struct TRectDouble {
  double Left = 0;
  double Top = 0;
  double Right = 0;
  double Bottom = 0;
  friend bool operator==(const TRectDouble&, const TRectDouble&) = default;
};

}  // namespace zav

#endif
