// ellipse_rows.h - which pixels of each row an ellipse covers.
//
// A pixel belongs to the ellipse inscribed in its box when the half pixel toward the axes, either
// across or down, still lies on or inside the true curve: the midpoint rule. It is symmetric both
// ways, touches all four sides of the box, and holds for every size from one pixel up.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_RASTER_ELLIPSE_ROWS_H
#define ZAV_PLATFORM_RASTER_ELLIPSE_ROWS_H

#include <cstdint>

namespace zav {

class TEllipseRows {
 public:
  // Pixels Left..Right-1 of a row, from the left side of the box.
  struct TExtent {
    int64_t Left;
    int64_t Right;
  };

  // A box of Width x Height pixels, each 1..2^32-1.
  TEllipseRows(int64_t Width, int64_t Height) noexcept : FWidth(Width), FHeight(Height) {}

  // 0 <= Row < Height; outside the extent is empty.
  TExtent Extent(int64_t Row) const noexcept;

 private:
  int64_t FWidth;
  int64_t FHeight;
};

}  // namespace zav

#endif
