/// @file
/// geoatlas.h - everything of geoatlas: the atlas control, its register of maps, lists of maps.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOATLAS_GEOATLAS_H
#define ZAV_GEOATLAS_GEOATLAS_H

#include <geoatlas/atlas_list.h>    // IWYU pragma: export
#include <geoatlas/geo_atlas.h>     // IWYU pragma: export
#include <geoatlas/map_register.h>  // IWYU pragma: export

#endif
