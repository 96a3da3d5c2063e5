// tm_series.h - the constants of an ellipsoid in the series of transverse_mercator.cpp; for
// geobasics itself.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_TM_SERIES_H
#define ZAV_GEOBASICS_TM_SERIES_H

#include <geobasics/ellipsoids.h>

namespace zav {

// Coefficients of sin(2x), sin(4x), sin(6x), sin(8x).
struct TSineSeries {
  double C2, C4, C6, C8;
};

struct TTMSeries {
  double Alpha;        // mean length of a radian of the meridian
  TSineSeries Arc;     // meridian arc from the latitude
  TSineSeries Foot;    // footpoint latitude from the meridian arc
  double SecondEccSq;  // (a^2 - b^2) / b^2
  double PolarRadius;  // radius of curvature at the pole, a^2 / b
};

const TTMSeries& TMSeriesOf(TGeoEllipsoid Ellipsoid) noexcept;

}  // namespace zav

#endif
