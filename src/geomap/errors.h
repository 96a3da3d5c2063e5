/// @file
/// errors.h - the error of the map unit.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_ERRORS_H
#define ZAV_GEOMAP_ERRORS_H

#include <platform/base/api.h>
#include <platform/base/errors.h>

namespace zav {

/// Thrown by maps, calibrations and their files.
class ZAVGEO_API EZAVGeoMapError : public EZAVError {
 public:
  using EZAVError::EZAVError;
};

}  // namespace zav

#endif
