// helmert.cpp - seven parameters there and back.
// SPDX-License-Identifier: MIT
#include <geobasics/helmert.h>

#include <array>
#include <cstddef>
#include <numbers>

#include <geobasics/arrays/kernels.h>
#include <geobasics/cartesian.h>
#include <geobasics/helmert_step.h>

namespace zav {

namespace {

constexpr double Radians(double Seconds) { return Seconds * std::numbers::pi / 648000; }

int CodeOf(int SourceDatum, double Lat, double Long, int TargetDatum) noexcept {
  if (!(Long >= -180 && Long <= 180)) return -4;
  if (!(Lat >= -90 && Lat <= 90)) return -3;
  if (DatumRow(TargetDatum) == nullptr) return -2;
  return DatumRow(SourceDatum) == nullptr ? -1 : 0;
}

// Columns of a matrix are the images of the unit vectors.
void SetMatrix(double* Matrix, const TDatumRow& Linear,
               void (*Move)(const TDatumRow&, double&, double&, double&) noexcept) noexcept {
  for (size_t Column = 0; Column < 3; ++Column) {
    double Image[3] = {};
    Image[Column] = 1;
    Move(Linear, Image[0], Image[1], Image[2]);
    for (size_t Row = 0; Row < 3; ++Row) Matrix[3 * Row + Column] = Image[Row];
  }
}

THelmertStep StepOf(const TDatumRow& Row) noexcept {
  THelmertStep Step{{Row.Dx, Row.Dy, Row.Dz}, {}, {}};
  TDatumRow Linear = Row;
  Linear.Dx = Linear.Dy = Linear.Dz = 0;
  SetMatrix(Step.Turn, Linear, HelmertToWGS84);
  SetMatrix(Step.BackTurn, Linear, ExactHelmertFromWGS84);
  return Step;
}

// All signs turned: translations last, as on the way to WGS 84.
TDatumRow Turned(TDatumRow Row) noexcept {
  for (double* Value : {&Row.Dx, &Row.Dy, &Row.Dz, &Row.Ds, &Row.Rx, &Row.Ry, &Row.Rz})
    *Value = -*Value;
  return Row;
}

struct TPlace {
  double Lat, Long, Height;
};

// From one datum to the other; Back leads from WGS 84, ToGeo from cartesian coordinates.
template <typename TBack, typename TToGeo>
int Shift(int SourceDatum, const TPlace& From, int TargetDatum, TBack Back, TToGeo ToGeo,
          double& Lat2, double& Long2, double& Height2) noexcept {
  const int Code = CodeOf(SourceDatum, From.Lat, From.Long, TargetDatum);
  if (Code != 0) return Code;
  const TDatumRow& Source = *DatumRow(SourceDatum);
  const TDatumRow& Target = *DatumRow(TargetDatum);
  double X = 0;
  double Y = 0;
  double Z = 0;
  GeoToCartesian(From.Lat, From.Long, From.Height, Source.Ellipsoid, X, Y, Z);
  HelmertToWGS84(Source, X, Y, Z);
  Back(Target, X, Y, Z);
  ToGeo(X, Y, Z, Target.Ellipsoid, Lat2, Long2, Height2);
  return 0;
}

}  // namespace

void HelmertToWGS84(const TDatumRow& Datum, double& X, double& Y, double& Z) noexcept {
  const double Rx = Radians(Datum.Rx);
  const double Ry = Radians(Datum.Ry);
  const double Rz = Radians(Datum.Rz);
  const double K = 1 + Datum.Ds * 1e-6;
  const double X1 = Datum.Dx + K * (X - Y * Rz + Z * Ry);
  const double Y1 = Datum.Dy + K * (X * Rz + Y - Z * Rx);
  Z = Datum.Dz + K * (-X * Ry + Y * Rx + Z);
  X = X1;
  Y = Y1;
}

// With w the vector of the rotations, (1 + [w x]) has the inverse (1 - [w x] + w wT) / (1 + w w).
void ExactHelmertFromWGS84(const TDatumRow& Datum, double& X, double& Y, double& Z) noexcept {
  const double Rx = Radians(Datum.Rx);
  const double Ry = Radians(Datum.Ry);
  const double Rz = Radians(Datum.Rz);
  const double K = 1 + Datum.Ds * 1e-6;
  const double X1 = (X - Datum.Dx) / K;
  const double Y1 = (Y - Datum.Dy) / K;
  const double Z1 = (Z - Datum.Dz) / K;
  const double Along = Rx * X1 + Ry * Y1 + Rz * Z1;
  const double Size = 1 + Rx * Rx + Ry * Ry + Rz * Rz;
  X = (X1 + Y1 * Rz - Z1 * Ry + Rx * Along) / Size;
  Y = (Y1 - X1 * Rz + Z1 * Rx + Ry * Along) / Size;
  Z = (Z1 + X1 * Ry - Y1 * Rx + Rz * Along) / Size;
}

int HelmertTransform(int SourceDatum, double Lat, double Long, double Height, int TargetDatum,
                     double& Lat2, double& Long2, double& Height2) noexcept {
  const auto Back = [](const TDatumRow& Target, double& X, double& Y, double& Z) {
    HelmertToWGS84(Turned(Target), X, Y, Z);
  };
  return Shift(SourceDatum, {Lat, Long, Height}, TargetDatum, Back, CartesianToGeo, Lat2, Long2,
               Height2);
}

const THelmertStep& HelmertStep(int Row) noexcept {
  static const auto Steps = [] {
    std::array<THelmertStep, NumDatumRows> All{};
    for (int I = 1; I <= NumDatumRows; ++I) All[static_cast<size_t>(I - 1)] = StepOf(*DatumRow(I));
    return All;
  }();
  return Steps[static_cast<size_t>(Row - 1)];
}

// A single point takes the way of arrays, whose sines and arctangents are faster.
int ExactHelmertTransform(int SourceDatum, double Lat, double Long, double Height, int TargetDatum,
                          double& Lat2, double& Long2, double& Height2) noexcept {
  const int Code = CodeOf(SourceDatum, Lat, Long, TargetDatum);
  if (Code != 0) return Code;
  return ArrayKernels().Helmert({&Lat, &Long, &Height}, SourceDatum, TargetDatum,
                                HelmertStep(SourceDatum), HelmertStep(TargetDatum),
                                {&Lat2, &Long2, &Height2}, 1);
}

int SingleExactHelmert(int SourceDatum, double Lat, double Long, double Height, int TargetDatum,
                       double& Lat2, double& Long2, double& Height2) noexcept {
  return Shift(SourceDatum, {Lat, Long, Height}, TargetDatum, ExactHelmertFromWGS84,
               ExactCartesianToGeo, Lat2, Long2, Height2);
}

}  // namespace zav
