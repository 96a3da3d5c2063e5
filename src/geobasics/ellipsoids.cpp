// ellipsoids.cpp - look-up in the catalogue, shapes from axes.
// SPDX-License-Identifier: MIT
#include <geobasics/ellipsoids.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace zav {

namespace {

constexpr char LowerAscii(char C) noexcept {
  return C >= 'A' && C <= 'Z' ? static_cast<char>(C - 'A' + 'a') : C;
}

bool SameIgnoringCase(std::string_view A, std::string_view B) noexcept {
  return std::equal(A.begin(), A.end(), B.begin(), B.end(),
                    [](char Left, char Right) { return LowerAscii(Left) == LowerAscii(Right); });
}

}  // namespace

std::optional<TGeoEllipsoid> FindGeoEllipsoid(std::string_view Id) noexcept {
  for (size_t i = 0; i < NumGeoEllipsoids; ++i)
    if (SameIgnoringCase(Id, GeoEllipsoidId[i])) return static_cast<TGeoEllipsoid>(i);
  return std::nullopt;
}

TGeoEllipsoid GeoEllipsoidFromId(std::string_view Id) noexcept {
  return FindGeoEllipsoid(Id).value_or(TGeoEllipsoid::gelWGS84);
}

double GeoEllEccSquared(TGeoEllipsoid Ellipsoid) noexcept {
  const TEllipsoidAxes& Axes = AxesOf(Ellipsoid);
  return 1 - Axes.B * Axes.B / (Axes.A * Axes.A);
}

double GeoEllEccSquared(double A, double B) noexcept {
  return A >= B ? 1 - B * B / (A * A) : 1 - A * A / (B * B);
}

double GeoEllEccSquared(double RecipFlat) noexcept {
  if (RecipFlat == 0) return 0;
  const double F = 1 / RecipFlat;
  return 2 * F - F * F;
}

double RecipFlattening(TGeoEllipsoid Ellipsoid) noexcept {
  const TEllipsoidAxes& Axes = AxesOf(Ellipsoid);
  return RecipFlattening(Axes.A, Axes.B);
}

double RecipFlattening(double A, double B) noexcept { return B == A ? 0 : 1 / (1 - B / A); }

double RecipFlattening(double EccSquared) noexcept {
  if (EccSquared < 0 || EccSquared > 1) return std::numeric_limits<double>::quiet_NaN();
  return EccSquared == 0 ? 0 : 1 / (1 - std::sqrt(1 - EccSquared));
}

double EllipsoidMinAxFlat(double MajAx, double RecipFlat) {
  if (RecipFlat < 0) throw EZAVGeoBasicsError("invalid reciprocal flattening");
  return RecipFlat == 0 ? MajAx : MajAx * (1 - 1 / RecipFlat);
}

double EllipsoidMinAxEcc(double MajAx, double EccSquared) {
  if (EccSquared < 0) throw EZAVGeoBasicsError("invalid eccentricity");
  return MajAx * std::sqrt(1 - EccSquared);
}

}  // namespace zav
