// transverse_mercator.cpp - the series and their constants.
//
// Everything that depends on the ellipsoid alone is computed by the compiler, one row an ellipsoid.
// Sums in sines of multiples are evaluated from a single sine and cosine by Clenshaw's recurrence,
// and powers of the longitude difference by Horner's scheme; this differs from the printed formulas
// by rounding only.
// SPDX-License-Identifier: MIT
#include <geobasics/transverse_mercator.h>

#include <cmath>

#include <geobasics/tm_series.h>

namespace zav {

namespace {

double Sum(const TSineSeries& S, double SinX, double CosX) noexcept {
  const double Twice = 2 * (1 - 2 * SinX * SinX);  // 2 cos 2x
  const double B3 = S.C6 + Twice * S.C8;
  const double B2 = S.C4 + Twice * B3 - S.C8;
  const double B1 = S.C2 + Twice * B2 - B3;
  return B1 * (2 * SinX * CosX);
}

double ArcLength(const TTMSeries& S, double Phi, double Sin, double Cos) noexcept {
  return S.Alpha * (Phi + Sum(S.Arc, Sin, Cos));
}

constexpr TTMSeries MakeSeries(const TEllipsoidAxes& Axes) {
  const double A = Axes.A;
  const double B = Axes.B;
  const double N = (A - B) / (A + B);
  const double N2 = N * N;
  const double N3 = N2 * N;
  const double N4 = N2 * N2;
  const double N5 = N4 * N;
  return {(A + B) / 2 * (1 + N2 / 4 + N4 / 64),
          {-3 * N / 2 + 9 * N3 / 16 - 3 * N5 / 32, 15 * N2 / 16 - 15 * N4 / 32,
           -35 * N3 / 48 + 105 * N5 / 256, 315 * N4 / 512},
          {3 * N / 2 - 27 * N3 / 32 + 269 * N5 / 512, 21 * N2 / 16 - 55 * N4 / 32,
           151 * N3 / 96 - 417 * N5 / 128, 1097 * N4 / 512},
          (A * A - B * B) / (B * B),
          A * A / B};
}

constexpr auto SeriesOf = [] {
  std::array<TTMSeries, NumGeoEllipsoids> Rows{};
  for (size_t i = 0; i < Rows.size(); ++i) Rows[i] = MakeSeries(GeoEllipsoidData[i]);
  return Rows;
}();

}  // namespace

const TTMSeries& TMSeriesOf(TGeoEllipsoid Ellipsoid) noexcept {
  const auto Row = static_cast<size_t>(Ellipsoid);
  return SeriesOf[Row < SeriesOf.size() ? Row : 0];
}

double ArcLengthOfMeridian(double Phi, TGeoEllipsoid Ellipsoid) noexcept {
  return ArcLength(TMSeriesOf(Ellipsoid), Phi, std::sin(Phi), std::cos(Phi));
}

void LatLongToTM(double Phi, double Lambda, double Lambda0, TGeoEllipsoid Ellipsoid, double& X,
                 double& Y) noexcept {
  const TTMSeries& S = TMSeriesOf(Ellipsoid);
  const double Sin = std::sin(Phi);
  const double Cos = std::cos(Phi);
  const double T = Sin / Cos;
  const double T2 = T * T;
  const double T4 = T2 * T2;
  const double T6 = T4 * T2;
  const double Nu2 = S.SecondEccSq * Cos * Cos;
  const double N = S.PolarRadius / std::sqrt(1 + Nu2);
  const double L = (Lambda - Lambda0) * Cos;
  const double L2 = L * L;

  const double X3 = (1 - T2 + Nu2) / 6;
  const double X5 = (5 - 18 * T2 + T4 + 14 * Nu2 - 58 * T2 * Nu2) / 120;
  const double X7 = (61 - 479 * T2 + 179 * T4 - T6) / 5040;
  X = N * L * (1 + L2 * (X3 + L2 * (X5 + L2 * X7)));

  const double Y4 = (5 - T2 + 9 * Nu2 + 4 * Nu2 * Nu2) / 24;
  const double Y6 = (61 - 58 * T2 + T4 + 270 * Nu2 - 330 * T2 * Nu2) / 720;
  const double Y8 = (1385 - 3111 * T2 + 543 * T4 - T6) / 40320;
  Y = ArcLength(S, Phi, Sin, Cos) + T * N * L2 * (0.5 + L2 * (Y4 + L2 * (Y6 + L2 * Y8)));
}

void TMToLatLong(double X, double Y, double Lambda0, TGeoEllipsoid Ellipsoid, double& Phi,
                 double& Lambda) noexcept {
  const TTMSeries& S = TMSeriesOf(Ellipsoid);
  const double Arc = Y / S.Alpha;
  const double SinArc = std::sin(Arc);
  const double CosArc = std::cos(Arc);
  const double D = Sum(S.Foot, SinArc, CosArc);
  const double Foot = Arc + D;
  // D is below 0.003, where these Taylor polynomials are exact to rounding: half the time of
  // another sine and cosine.
  const double D2 = D * D;
  const double SinD = D * (1 - D2 / 6 * (1 - D2 / 20));
  const double CosD = 1 - D2 / 2 * (1 - D2 / 12 * (1 - D2 / 30));
  const double Cos = CosArc * CosD - SinArc * SinD;
  const double T = (SinArc * CosD + CosArc * SinD) / Cos;
  const double T2 = T * T;
  const double T4 = T2 * T2;
  const double T6 = T4 * T2;
  const double Nu2 = S.SecondEccSq * Cos * Cos;
  const double Q = X * std::sqrt(1 + Nu2) / S.PolarRadius;  // x over the length of the normal
  const double Q2 = Q * Q;

  const double P2 = (-1 - Nu2) / 2;
  const double P4 = (5 + 3 * T2 + 6 * Nu2 - 6 * T2 * Nu2 - 3 * Nu2 * Nu2 - 9 * T2 * Nu2 * Nu2) / 24;
  const double P6 = (-61 - 90 * T2 - 45 * T4 - 107 * Nu2 + 162 * T2 * Nu2) / 720;
  const double P8 = (1385 + 3633 * T2 + 4095 * T4 + 1575 * T6) / 40320;
  Phi = Foot + T * Q2 * (P2 + Q2 * (P4 + Q2 * (P6 + Q2 * P8)));

  const double P3 = (-1 - 2 * T2 - Nu2) / 6;
  const double P5 = (5 + 28 * T2 + 24 * T4 + 6 * Nu2 + 8 * T2 * Nu2) / 120;
  const double P7 = (-61 - 662 * T2 - 1320 * T4 - 720 * T6) / 5040;
  Lambda = Lambda0 + Q / Cos * (1 + Q2 * (P3 + Q2 * (P5 + Q2 * P7)));
}

}  // namespace zav
