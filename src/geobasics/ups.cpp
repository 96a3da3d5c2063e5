// ups.cpp - polar stereographic projection through the isometric polar distance.
// SPDX-License-Identifier: MIT
#include <geobasics/ups.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace zav {

namespace {

constexpr double Pi = std::numbers::pi;
constexpr double Scale = 0.994;
constexpr double FalseOrigin = 2000000.0;
constexpr int MaxNewtonSteps = 6;

struct TShape {
  explicit TShape(TGeoEllipsoid Ellipsoid) noexcept
      : A(AxesOf(Ellipsoid).A), E2(1 - RatioSq(Ellipsoid)), E(std::sqrt(std::fabs(E2))) {}

  // exp(e artanh(e x)): what the ellipsoid adds to the tangent of half the polar distance.
  double Stretch(double X) const noexcept { return std::exp(E * std::atanh(E * X)); }

  double A, E2, E;

 private:
  static double RatioSq(TGeoEllipsoid Ellipsoid) noexcept {
    const TEllipsoidAxes& Axes = AxesOf(Ellipsoid);
    return Axes.B / Axes.A * (Axes.B / Axes.A);
  }
};

// Solves 2 tan(chi/2) Stretch(cos chi) = S for the polar distance chi.
double PolarDistance(const TShape& Shape, double S) noexcept {
  const double Tiny = 0.1 * std::sqrt(std::numeric_limits<double>::min());
  double Chi = 2 * std::atan(S / 2);
  for (int i = 0; i < MaxNewtonSteps; ++i) {
    const double Cos = std::cos(Chi);
    const double W = Shape.Stretch(Cos);
    const double H = Chi / 2;
    const double CosH = std::cos(H);
    const double Slope = (1 - Shape.E2) * W / ((1 - Shape.E2 * Cos * Cos) * CosH * CosH);
    const double Step = -(2 * std::tan(H) * W - S) / Slope;
    Chi += Step;
    if (std::fabs(Step) < Tiny) break;
  }
  return Chi;
}

}  // namespace

void LatLongToUPS(double Lat, double Long, TGeoEllipsoid Ellipsoid, double& X, double& Y) noexcept {
  const TShape Shape(Ellipsoid);
  const double Z = (Lat < 0 ? Lat + 90 : 90 - Lat) * Pi / 180;
  const double Rho = Shape.A * Scale * 2 * std::tan(Z / 2) * Shape.Stretch(std::cos(Z)) /
                     (std::sqrt(1 - Shape.E2) * Shape.Stretch(1));
  if (Long >= 180)
    Long -= 360;
  else if (Long < -180)
    Long += 360;
  const double Lambda = Long * Pi / 180;
  // The sine of pi and the cosine of pi/2 are not 0 in floating point; the axes of the grid are.
  X = Long == -180 ? 0 : Rho * std::sin(Lambda);
  Y = std::fabs(Long) == 90 ? 0 : Rho * std::cos(Lambda);
  if (Lat >= 0) Y = -Y;
  X += FalseOrigin;
  Y += FalseOrigin;
}

void UPSToLatLong(double X, double Y, bool SouthHemi, TGeoEllipsoid Ellipsoid, double& Lat,
                  double& Long) noexcept {
  const TShape Shape(Ellipsoid);
  const double Dx = X - FalseOrigin;
  const double Dy = Y - FalseOrigin;
  const double Rho = std::hypot(Dx, Dy);
  const double S = Rho * std::sqrt(1 - Shape.E2) * Shape.Stretch(1) / (Scale * Shape.A);
  Lat = 90 - PolarDistance(Shape, S) / Pi * 180;
  if (SouthHemi) Lat = -Lat;
  // Both signs turned, so that a point on the 180 degree meridian is at +180.
  Long = -std::atan2(-Dx, SouthHemi ? Dy : -Dy) / Pi * 180;
}

}  // namespace zav
