// mouse_trace.cpp - see mouse_trace.h.
// SPDX-License-Identifier: MIT
#include <geomap/view/mouse_trace.h>

namespace zav {

bool TMouseTrace::Add(const TMouseTracePoint& Point) {
  if (Count() >= MaxMTracePoints) return false;
  FPoints.push_back(Point);
  return true;
}

bool TMouseTrace::Add(TPoint Map, TColor Color, bool Invert) {
  return Add({static_cast<double>(Map.X), static_cast<double>(Map.Y),
              static_cast<uint16_t>(Invert ? mtfInvert : 0), Color});
}

void TMouseTrace::EndStroke() noexcept {
  if (!FPoints.empty()) FPoints.back().Flags |= mtfStrokeEnd;
}

bool TMouseTrace::Connected(int32_t Index) const noexcept {
  return Index > 1 && (Point(Index - 1).Flags & mtfStrokeEnd) == 0;
}

}  // namespace zav
