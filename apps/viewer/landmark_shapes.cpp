// landmark_shapes.cpp - see landmark_shapes.h.
// SPDX-License-Identifier: MIT
#include "landmark_shapes.h"

#include <cmath>
#include <numbers>

namespace zav {

std::vector<TCoords> CircleAbout(const TCoords& Middle, double Radius) {
  constexpr int Steps = 72;
  std::vector<TCoords> Points;
  for (int i = 0; i < Steps; ++i) {
    const double Angle = 2 * std::numbers::pi * i / Steps;
    Points.push_back(
        {Middle.Latit + Radius * std::cos(Angle), Middle.Longit + Radius * std::sin(Angle)});
  }
  return Points;
}

std::vector<TCoords> RectangleOf(const TCoords& A, const TCoords& B) {
  constexpr int Steps = 16;
  const TCoords Corners[] = {A, {A.Latit, B.Longit}, B, {B.Latit, A.Longit}};
  std::vector<TCoords> Points;
  for (size_t k = 0; k < 4; ++k)
    for (int i = 0; i < Steps; ++i) {
      const double Share = static_cast<double>(i) / Steps;
      const TCoords& From = Corners[k];
      const TCoords& To = Corners[(k + 1) % 4];
      Points.push_back({From.Latit + (To.Latit - From.Latit) * Share,
                        From.Longit + (To.Longit - From.Longit) * Share});
    }
  return Points;
}

double DegreesBetween(const TCoords& A, const TCoords& B) {
  return std::hypot(A.Latit - B.Latit, A.Longit - B.Longit);
}

}  // namespace zav
