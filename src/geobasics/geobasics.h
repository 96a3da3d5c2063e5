/// @file
/// geobasics.h - everything of geobasics: ellipsoids, countries, datums, cartesian coordinates,
/// distances, Transverse Mercator, UTM, UPS and MGRS, positions as text.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_GEOBASICS_H
#define ZAV_GEOBASICS_GEOBASICS_H

#include <geobasics/cartesian.h>            // IWYU pragma: export
#include <geobasics/coordinate_arrays.h>    // IWYU pragma: export
#include <geobasics/countries.h>            // IWYU pragma: export
#include <geobasics/datums.h>               // IWYU pragma: export
#include <geobasics/ellipsoids.h>           // IWYU pragma: export
#include <geobasics/geodesic.h>             // IWYU pragma: export
#include <geobasics/helmert.h>              // IWYU pragma: export
#include <geobasics/mgrs.h>                 // IWYU pragma: export
#include <geobasics/position_text.h>        // IWYU pragma: export
#include <geobasics/transverse_mercator.h>  // IWYU pragma: export
#include <geobasics/ups.h>                  // IWYU pragma: export
#include <geobasics/utm.h>                  // IWYU pragma: export

#endif
