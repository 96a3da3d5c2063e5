// line_distance.cpp - see line_distance.h.
// SPDX-License-Identifier: MIT
#include <geodb/search/line_distance.h>

#include <algorithm>
#include <numbers>

#include <geodb/search/geo_box.h>

namespace zav {
namespace {

using TVector = std::array<double, 3>;

double Dot(const TVector& A, const TVector& B) noexcept {
  return A[0] * B[0] + A[1] * B[1] + A[2] * B[2];
}
TVector Cross(const TVector& A, const TVector& B) noexcept {
  return {A[1] * B[2] - A[2] * B[1], A[2] * B[0] - A[0] * B[2], A[0] * B[1] - A[1] * B[0]};
}
double Length(const TVector& A) noexcept { return std::sqrt(Dot(A, A)); }

// By sine and cosine: exact for small angles, too.
double Angle(const TVector& A, const TVector& B) noexcept {
  return std::atan2(Length(Cross(A, B)), Dot(A, B));
}

}  // namespace

TLineDistance::TVector TLineDistance::VectorOf(double Lat, double Long) noexcept {
  constexpr double Radians = std::numbers::pi / 180;
  const double Parallel = std::cos(Lat * Radians);
  return {Parallel * std::cos(Long * Radians), Parallel * std::sin(Long * Radians),
          std::sin(Lat * Radians)};
}

TLineDistance::TLineDistance(double Lat, double Long) noexcept : FPosition(VectorOf(Lat, Long)) {}

void TLineDistance::Add(double Lat, double Long) noexcept {
  if (!std::isfinite(Lat) || !std::isfinite(Long)) return;
  const TVector Point = VectorOf(Lat, Long);
  FAngle = std::min(FAngle, Angle(FPosition, Point));
  if (FAny) {
    const TVector Normal = Cross(FLast, Point);
    // The foot of the position lies between the points: beside the line, not beyond its ends.
    if (Dot(Cross(Normal, FLast), FPosition) > 0 && Dot(Cross(Point, Normal), FPosition) > 0) {
      const double Sine = std::abs(Dot(Normal, FPosition)) / Length(Normal);
      FAngle = std::min(FAngle, std::asin(std::min(Sine, 1.0)));
    }
  }
  FLast = Point;
  FAny = true;
}

double TLineDistance::Metres() const noexcept { return FAngle * MeanEarthRadius; }

}  // namespace zav
