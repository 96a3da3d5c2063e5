// kernels.h - the array forms' inner loops, chosen by what the processor can do.
//
// Points that are unusual (not finite, far from a zone, near the earth's centre) are handed to the
// single calls, so that they come out as they do there. Inputs are read before outputs are written:
// an output may be the very array of an input.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_ARRAYS_KERNELS_H
#define ZAV_GEOBASICS_ARRAYS_KERNELS_H

#include <cstddef>

#include <geobasics/datums.h>
#include <geobasics/ellipsoids.h>
#include <geobasics/helmert_step.h>

namespace zav {

// Two or three coordinates of each point.
struct TColumns {
  const double* A;
  const double* B;
  const double* C;
};
struct TResultColumns {
  double* A;
  double* B;
  double* C;
};

// Central meridians in radians, one for all (Step 0) or one a point (Step 1).
struct TMeridians {
  const double* First;
  size_t Step;
};

struct TArrayKernels {
  void (*ToUTM)(TColumns LatLong, TMeridians Meridians, TGeoEllipsoid Ellipsoid,
                TResultColumns Grid, size_t Count);
  // Hemispheres: null takes South for all.
  void (*FromUTM)(TColumns Grid, TMeridians Meridians, const THemisphere* Hemispheres, bool South,
                  TGeoEllipsoid Ellipsoid, TResultColumns LatLong, size_t Count);
  void (*ToUPS)(TColumns LatLong, TGeoEllipsoid Ellipsoid, TResultColumns Grid, size_t Count);
  void (*FromUPS)(TColumns Grid, bool South, TGeoEllipsoid Ellipsoid, TResultColumns LatLong,
                  size_t Count);
  void (*ToCartesian)(TColumns Position, TGeoEllipsoid Ellipsoid, TResultColumns Cartesian,
                      size_t Count);
  void (*FromCartesian)(TColumns Cartesian, TGeoEllipsoid Ellipsoid, TResultColumns Position,
                        size_t Count);
  // Both rows exist. Returns the code of the first position that is refused, else 0.
  int (*Helmert)(TColumns Position, int SourceDatum, int TargetDatum, const THelmertStep& Source,
                 const THelmertStep& Target, TResultColumns Result, size_t Count);
  // Two polynomials of two arguments: C[0] + C[1] A + C[2] B, and with C[3] AA + C[4] AB + C[5] BB.
  // Both results are NaN where one is not finite; returns at how many points they are finite.
  size_t (*FirstOrder)(const double* CoefA, const double* CoefB, TColumns From, TResultColumns To,
                       size_t Count);
  size_t (*SecondOrder)(const double* CoefA, const double* CoefB, TColumns From, TResultColumns To,
                        size_t Count);
};

extern const TArrayKernels PlainArrayKernels;
#if defined(ZAVGEO_AVX2_KERNELS)
extern const TArrayKernels Avx2ArrayKernels;
#endif

// AxesOf, compiled for any processor.
TEllipsoidAxes KernelAxes(TGeoEllipsoid Ellipsoid) noexcept;

// The fastest that this processor has.
const TArrayKernels& ArrayKernels() noexcept;

}  // namespace zav

#endif
