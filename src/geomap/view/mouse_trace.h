// mouse_trace.h - the path of the mouse, in map pixels.
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

constexpr int32_t MaxMTracePoints = 5000;
constexpr uint16_t mtfStrokeEnd = 1;  // the stroke ends at this point
constexpr uint16_t mtfInvert = 2;     // the line to this point is drawn by inverting
constexpr uint16_t mtfInvalid = 0xFFFF;

// A point of the mouse's trace, in map pixels.
struct TMouseTracePoint {
  double X = 0;
  double Y = 0;
  uint16_t Flags = 0;
  TColor Color = clBlack;
  friend bool operator==(const TMouseTracePoint&, const TMouseTracePoint&) = default;
};

// Up to MaxMTracePoints points, numbered from 1.
class ZAVGEO_API TMouseTrace {
 public:
  int32_t Count() const noexcept { return static_cast<int32_t>(FPoints.size()); }
  // Point 1..Count().
  const TMouseTracePoint& Point(int32_t Index) const noexcept {
    return FPoints[static_cast<size_t>(Index) - 1];
  }
  // False, and nothing added, when it is full.
  bool Add(const TMouseTracePoint& Point);
  bool Add(TPoint Map, TColor Color, bool Invert);
  // The next point begins a new stroke.
  void EndStroke() noexcept;
  void Clear() noexcept { FPoints.clear(); }
  // Whether a line leads to the point from the one before.
  bool Connected(int32_t Index) const noexcept;

 private:
  std::vector<TMouseTracePoint> FPoints;
};

}  // namespace zav

#endif
