// landmark_shapes.h - outlines that a person draws to choose landmarks, in degrees.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LANDMARK_SHAPES_H
#define ZAV_APPS_VIEWER_LANDMARK_SHAPES_H

#include <vector>

#include <geomap/calibration/calibration.h>

namespace zav {

// As if degrees were a plane: what the removal of landmarks within a radius goes by.
double DegreesBetween(const TCoords& A, const TCoords& B);
// Points about a middle, at a distance in degrees.
std::vector<TCoords> CircleAbout(const TCoords& Middle, double Radius);
// The outline of the parallels and meridians through two corners.
std::vector<TCoords> RectangleOf(const TCoords& A, const TCoords& B);

}  // namespace zav

#endif
