/// @file
/// mouse_trace.h - the path of the mouse, in map pixels.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_MOUSE_TRACE_H
#define ZAV_GEOMAP_VIEW_MOUSE_TRACE_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include <platform/base/api.h>
#include <platform/base/color.h>
#include <platform/base/geometry.h>

namespace zav {

/// Points of a trace at most.
constexpr int32_t MaxMTracePoints = 5000;
constexpr uint16_t mtfStrokeEnd = 1;     ///< the stroke ends at this point
constexpr uint16_t mtfInvert = 2;        ///< the line to this point is drawn by inverting
constexpr uint16_t mtfInvalid = 0xFFFF;  ///< there is no such point or position

/// A point of the mouse's trace, in map pixels.
struct TMouseTracePoint {
  double X = 0;            ///< column, or longitude
  double Y = 0;            ///< row, or latitude
  uint16_t Flags = 0;      ///< mtfStrokeEnd, mtfInvert
  TColor Color = clBlack;  ///< of the line to this point
  friend bool operator==(const TMouseTracePoint&, const TMouseTracePoint&) = default;
};

/// Up to MaxMTracePoints points, numbered from 1.
class ZAVGEO_API TMouseTrace {
 public:
  /// How many points there are.
  int32_t Count() const noexcept { return static_cast<int32_t>(FPoints.size()); }
  /// Point 1..Count().
  const TMouseTracePoint& Point(int32_t Index) const noexcept {
    return FPoints[static_cast<size_t>(Index) - 1];
  }
  /// False, and nothing added, when it is full.
  bool Add(const TMouseTracePoint& Point);
  /// The same for a map pixel; with Invert, as mtfInvert tells.
  bool Add(TPoint Map, TColor Color, bool Invert);
  /// The next point begins a new stroke.
  void EndStroke() noexcept;
  /// Removes all points.
  void Clear() noexcept { FPoints.clear(); }
  /// Whether a line leads to the point from the one before.
  bool Connected(int32_t Index) const noexcept;

 private:
  std::vector<TMouseTracePoint> FPoints;
};

}  // namespace zav

#endif
