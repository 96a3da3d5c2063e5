// line_series.h - equally spaced values at which lines of a graticule or grid are drawn.
//
// However small the spacing, a picture has no more lines than pixels: a line closer than one pixel
// to the last one drawn is left out, and whole stretches of such lines are skipped by bisection.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_LINE_SERIES_H
#define ZAV_GEOMAP_VIEW_LINE_SERIES_H

#include <algorithm>
#include <cmath>

namespace zav {

// The multiples of 1 / Factor from Trunc(Start * Factor) / Factor up to, not including, End.
struct TLineSeries {
  double First = 0;  // the first line's value, in steps
  double Factor = 1;
  double Count = 0;  // whole; 0 where the numbers make no series

  double Value(double Index) const noexcept { return (First + Index) / Factor; }
};

inline TLineSeries MakeLineSeries(double Start, double End, double Factor) noexcept {
  TLineSeries Series{std::trunc(Start * Factor), Factor, 0};
  const double Count = std::ceil(End * Factor - Series.First);
  if (!std::isfinite(Series.First) || !std::isfinite(Count) || !(Factor > 0)) return Series;
  // One more or less where the product was rounded across a multiple.
  Series.Count = std::max(Count - 1, 0.0);
  for (int I = 0; I < 2 && Series.Value(Series.Count) < End; ++I) ++Series.Count;
  return Series;
}

// Whether two points of the map, Factor device pixels a unit, are a device pixel or more apart
// along an axis. False for a point that is not finite.
inline bool APixelApart(double X1, double Y1, double X2, double Y2, double Factor) noexcept {
  const double Distance = std::max(std::fabs(X2 - X1), std::fabs(Y2 - Y1)) * Factor;
  return Distance >= 1 && std::isfinite(Distance);
}

// No picture has as many pixels across; it bounds the time that a calibration gone wild can take.
constexpr int MaxSeriesLines = 20000;

// Calls Draw(Index) for the lines. Apart(A, B) tells whether lines A and B are a pixel or more
// apart somewhere; it must not turn false again as B moves on.
template <typename TApart, typename TDraw>
void ForEachLine(const TLineSeries& Series, TApart Apart, TDraw Draw) {
  double Index = 0;
  double Stride = 1;  // lines are about evenly apart, so the last stride is a good guess
  for (int Drawn = 0; Index < Series.Count && Drawn < MaxSeriesLines; ++Drawn) {
    Draw(Index);
    const double Left = Series.Count - 1 - Index;  // lines after this one
    if (Left < 1) return;
    double Near = 0;                      // that many further on it is too close
    double Far = std::min(Stride, Left);  // that many further on it is not
    while (!Apart(Index, Index + Far)) {
      if (Far >= Left) return;
      Near = Far;
      Far = std::min(Far * 2, Left);
    }
    while (Far - Near > 1) {
      const double Middle = std::floor((Near + Far) / 2);
      if (Middle <= Near || Middle >= Far) break;  // beyond the whole numbers of a double
      (Apart(Index, Index + Middle) ? Far : Near) = Middle;
    }
    Stride = Far;
    Index += Far;
  }
}

}  // namespace zav

#endif
