// zoom_ring.cpp - see zoom_ring.h.
// SPDX-License-Identifier: MIT
#include <geomap/view/zoom_ring.h>

namespace zav {

void TZoomRing::Push(const TViewState& View) noexcept {
  FEntries[FNext] = {View.TopLeft.X, View.TopLeft.Y, View.Magnification};
  FNext = (FNext + 1) % Size;
}

TgmZoomStackEntry TZoomRing::Entry(int32_t Index) const noexcept {
  if (Index > 0 || Index <= -Size) return {};
  return FEntries[(FNext + static_cast<size_t>(Size - 1 + Index)) % Size];
}

}  // namespace zav
