/// @file
/// geomap.h - everything of the map unit that applications use.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_GEOMAP_H
#define ZAV_GEOMAP_GEOMAP_H

#include <geomap/calibration/calib_file.h>
#include <geomap/calibration/calibration.h>
#include <geomap/calibration/calibration_arrays.h>
#include <geomap/errors.h>
#include <geomap/geo_map.h>
#include <geomap/landmarks/landmark_file.h>
#include <geomap/landmarks/symbol_drawing.h>
#include <geomap/landmarks/symbol_repository.h>

#endif
