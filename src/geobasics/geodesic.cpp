// geodesic.cpp - see geodesic.h.
// SPDX-License-Identifier: MIT
#include <geobasics/geodesic.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>

#include <platform/base/great_circle.h>

namespace zav {
namespace {

constexpr double Pi = std::numbers::pi;
constexpr double Radian = Pi / 180;
constexpr double Tolerance = 1e-13;  // radians of longitude, below a micrometre
constexpr int MostRounds = 100;

// A point on the auxiliary sphere: sine and cosine of its reduced latitude.
struct TReduced {
  double Sin;
  double Cos;
};

TReduced Reduced(const TEllipsoidAxes& Ellipsoid, double Lat) {
  const double Angle = std::clamp(Lat, -90.0, 90.0) * Radian;
  const double U = std::atan2(Ellipsoid.B * std::sin(Angle), Ellipsoid.A * std::cos(Angle));
  return {std::sin(U), std::cos(U)};
}

double AzimuthOf(double Y, double X) {
  const double Degrees = std::atan2(Y, X) / Radian;
  return Degrees < 0 ? Degrees + 360 : Degrees + 0.0;
}

// Equations (3) and (4): the length of the line from what is known of it on the sphere.
double LengthOf(const TEllipsoidAxes& Ellipsoid, double Sigma, double SinSigma, double CosSigma,
                double CosSqAlpha, double Cos2Mid) {
  const double A = Ellipsoid.A;
  const double B = Ellipsoid.B;
  const double USq = CosSqAlpha * (A * A - B * B) / (B * B);
  const double CA = 1 + USq / 16384 * (4096 + USq * (-768 + USq * (320 - 175 * USq)));
  const double CB = USq / 1024 * (256 + USq * (-128 + USq * (74 - 47 * USq)));
  const double MidSq = Cos2Mid * Cos2Mid;
  const double Inner = CosSigma * (-1 + 2 * MidSq) -
                       CB / 6 * Cos2Mid * (-3 + 4 * SinSigma * SinSigma) * (-3 + 4 * MidSq);
  return B * CA * (Sigma - CB * SinSigma * (Cos2Mid + CB / 4 * Inner));
}

std::optional<TGeodesic> Inverse(const TEllipsoidAxes& Ellipsoid, TReduced P, TReduced Q,
                                 double Long) {
  const double F = (Ellipsoid.A - Ellipsoid.B) / Ellipsoid.A;
  double Lambda = Long;
  for (int Round = 0; Round < MostRounds; ++Round) {
    const double SinL = std::sin(Lambda);
    const double CosL = std::cos(Lambda);
    const double Y = Q.Cos * SinL;
    const double X = P.Cos * Q.Sin - P.Sin * Q.Cos * CosL;
    const double SinSigma = std::hypot(Y, X);
    const double CosSigma = P.Sin * Q.Sin + P.Cos * Q.Cos * CosL;
    const double Sigma = std::atan2(SinSigma, CosSigma);
    if (SinSigma == 0) {
      if (CosSigma > 0) return TGeodesic{};
      return std::nullopt;
    }
    const double SinAlpha = P.Cos * Q.Cos * SinL / SinSigma;
    const double CosSqAlpha = 1 - SinAlpha * SinAlpha;
    // A line along the equator has no such point.
    const double Cos2Mid = CosSqAlpha > 0 ? CosSigma - 2 * P.Sin * Q.Sin / CosSqAlpha : 0;
    const double C = F / 16 * CosSqAlpha * (4 + F * (4 - 3 * CosSqAlpha));
    const double Before = Lambda;
    Lambda =
        Long + (1 - C) * F * SinAlpha *
                   (Sigma + C * SinSigma * (Cos2Mid + C * CosSigma * (-1 + 2 * Cos2Mid * Cos2Mid)));
    if (std::abs(Lambda) > Pi) return std::nullopt;
    if (std::abs(Lambda - Before) > Tolerance) continue;
    return TGeodesic{LengthOf(Ellipsoid, Sigma, SinSigma, CosSigma, CosSqAlpha, Cos2Mid),
                     AzimuthOf(Y, X)};
  }
  return std::nullopt;
}

}  // namespace

TGeodesic GeodesicBetween(const TEllipsoidAxes& Ellipsoid, double Lat1, double Long1, double Lat2,
                          double Long2) {
  const double Long = std::remainder(Long2 - Long1, 360) * Radian;
  if (!std::isfinite(Long) || !std::isfinite(Lat1) || !std::isfinite(Lat2)) {
    constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
    return {NaN, NaN};
  }
  const TReduced P = Reduced(Ellipsoid, Lat1);
  const TReduced Q = Reduced(Ellipsoid, Lat2);
  if (const auto Line = Inverse(Ellipsoid, P, Q, Long)) return *Line;
  const double Radius = (2 * Ellipsoid.A + Ellipsoid.B) / 3;
  const double Y = Q.Cos * std::sin(Long);
  const double X = P.Cos * Q.Sin - P.Sin * Q.Cos * std::cos(Long);
  return {SphereGreatCircleDist(Radius, std::clamp(Lat1, -90.0, 90.0), 0,
                                std::clamp(Lat2, -90.0, 90.0), Long / Radian),
          AzimuthOf(Y, X)};
}

}  // namespace zav
