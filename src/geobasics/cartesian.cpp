// cartesian.cpp - Bowring's formula, once and until it stands still.
// SPDX-License-Identifier: MIT
#include <geobasics/cartesian.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zav {

namespace {

constexpr double Pi = std::numbers::pi;

constexpr double Cube(double Value) { return Value * Value * Value; }

}  // namespace

void GeoToCartesian(double Lat, double Long, double Height, TGeoEllipsoid Ellipsoid, double& X,
                    double& Y, double& Z) noexcept {
  const double E2 = GeoEllEccSquared(Ellipsoid);
  const double Phi = Lat / 180 * Pi;
  const double Lambda = Long / 180 * Pi;
  const double SinPhi = std::sin(Phi);
  const double CosPhi = std::cos(Phi);
  const double N = AxesOf(Ellipsoid).A / std::sqrt(1 - E2 * SinPhi * SinPhi);
  X = (N + Height) * CosPhi * std::cos(Lambda);
  Y = (N + Height) * CosPhi * std::sin(Lambda);
  Z = (N * (1 - E2) + Height) * SinPhi;
}

void CartesianToGeo(double X, double Y, double Z, TGeoEllipsoid Ellipsoid, double& Lat,
                    double& Long, double& Height) noexcept {
  const double A = AxesOf(Ellipsoid).A;
  const double E2 = GeoEllEccSquared(Ellipsoid);
  const double F = 1 / RecipFlattening(Ellipsoid);
  const double P = std::sqrt(X * X + Y * Y);
  const double R = std::sqrt(P * P + Z * Z);
  const double U = std::atan(Z / P * (1 - F + E2 * A / R));
  const double Lambda = std::atan(Y / X);
  const double Phi = std::atan((Z * (1 - F) + E2 * A * Cube(std::sin(U))) /
                               ((1 - F) * (P - E2 * A * Cube(std::cos(U)))));
  const double SinPhi = std::sin(Phi);
  Height = P * std::cos(Phi) + Z * SinPhi - A * std::sqrt(1 - E2 * SinPhi * SinPhi);
  Lat = Phi * 180 / Pi;
  Long = Lambda * 180 / Pi;
}

void ExactCartesianToGeo(double X, double Y, double Z, TGeoEllipsoid Ellipsoid, double& Lat,
                         double& Long, double& Height) noexcept {
  const auto [A, B] = AxesOf(Ellipsoid);
  const double E2 = GeoEllEccSquared(Ellipsoid);
  const double Ratio = B / A;
  const double P = std::hypot(X, Y);
  const double R = std::hypot(P, Z);
  if (R == 0) {
    Lat = 90;
    Long = 0;
    Height = -B;
    return;
  }
  // The point (S, C) is the direction of the reduced latitude. Near the surface the second round
  // changes nothing any more; from deep inside or far outside it takes a few.
  constexpr int MaxRounds = 20;
  double S = Z * (Ratio + E2 * A / R);
  double C = P;
  double SinPhi = 0;
  double CosPhi = 1;
  double Last = 2;
  for (int i = 0; i < MaxRounds && SinPhi != Last; ++i) {
    const double Length = std::hypot(S, C);
    Last = SinPhi;
    const double Up = Z + E2 / Ratio * A * Cube(S / Length);
    const double Out = std::max(P - E2 * A * Cube(C / Length), 0.0);
    const double Size = std::hypot(Up, Out);
    if (Size == 0) break;
    SinPhi = Up / Size;
    CosPhi = Out / Size;
    S = Ratio * SinPhi;
    C = CosPhi;
  }
  Lat = std::atan2(SinPhi, CosPhi) * 180 / Pi;
  Long = std::atan2(Y, X) * 180 / Pi;
  Height = P * CosPhi + Z * SinPhi - A * std::sqrt(1 - E2 * SinPhi * SinPhi);
}

}  // namespace zav
