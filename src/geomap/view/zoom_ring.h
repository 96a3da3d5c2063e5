/// @file
/// zoom_ring.h - the last sixteen views, oldest overwritten.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_ZOOM_RING_H
#define ZAV_GEOMAP_VIEW_ZOOM_RING_H

#include <array>
#include <cstddef>
#include <cstdint>

#include <geomap/view/view_state.h>
#include <platform/base/api.h>

namespace zav {

/// A view: its TopLeft and Magnification. An entry of zeros is an empty place.
struct TgmZoomStackEntry {
  int32_t Left = 0;  ///< column of the map pixel at the top left
  int32_t Top = 0;   ///< its row
  double MagF = 0;   ///< 0 for an empty place
  friend bool operator==(const TgmZoomStackEntry&, const TgmZoomStackEntry&) = default;
};

/// The last views, the oldest of which a new one replaces.
class ZAVGEO_API TZoomRing {
 public:
  static constexpr int32_t Size = 16;  ///< views that are kept

  /// Removes all views.
  void Clear() noexcept { *this = {}; }
  /// Keeps a view.
  void Push(const TViewState& View) noexcept;
  /// The view pushed last for Index = 0, the one before for -1, ... down to -15. An empty entry for
  /// a place that holds no view and for any other index.
  TgmZoomStackEntry Entry(int32_t Index) const noexcept;

  friend bool operator==(const TZoomRing&, const TZoomRing&) = default;

 private:
  std::array<TgmZoomStackEntry, Size> FEntries{};
  size_t FNext = 0;  // where the next push goes
};

}  // namespace zav

#endif
