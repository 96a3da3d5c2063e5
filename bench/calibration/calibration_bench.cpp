// calibration_bench.cpp - polynomial fits and conversions against GDAL's transformer over control
// points.
//
// Prints the largest difference on the sample maps and exits with 1 when it is over 1e-6 pixel;
// then times fits of 200 points and conversions, ours and GDAL's in turn.
// SPDX-License-Identifier: MIT
#include <gdal_alg.h>
#include <geomap/calibration/calibration_arrays.h>

#include <cmath>
#include <iostream>
#include <memory>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "geomap/calibration/sample_maps.h"
#include "support/rounds.h"

namespace {

using zav::TCalibData;
using zav::TCalibModel;
using zav::TCalibration;
using zav::TCalQuad;

constexpr double LargestDifference = 1e-6;  // pixel

struct TGdalDelete {
  void operator()(void* Transformer) const { GDALDestroyGCPTransformer(Transformer); }
};
using TGdal = std::unique_ptr<void, TGdalDelete>;

std::span<const TCalQuad> QuadsOf(const TCalibData& Data) {
  return {Data.CalQuads.data(), static_cast<size_t>(Data.NumCalQuads)};
}

TGdal MakeGdal(const TCalibData& Data, int Order) {
  char Empty[] = "";
  std::vector<GDAL_GCP> Points;
  for (const TCalQuad& Quad : QuadsOf(Data)) {
    const auto X = static_cast<double>(Quad.MapX);
    const auto Y = static_cast<double>(Quad.MapY);
    Points.push_back({Empty, Empty, X, Y, Quad.Longitude, Quad.Latitude, 0});
  }
  return TGdal(
      GDALCreateGCPTransformer(static_cast<int>(Points.size()), Points.data(), Order, FALSE));
}

// Largest difference in pixels over the control points, in both directions. Degrees or metres are
// turned into pixels by the slopes of the first-order fit.
double Difference(const std::string& Map, TCalibModel Model) {
  const TCalibration C = zav::test::LoadSample(Map, Model);
  const TGdal Gdal = MakeGdal(C.Data(), Model == TCalibModel::cmBiquadraticPn ? 2 : 1);
  zav::TCalibCoefficients Slopes;
  FitFirstOrder(C.Data(), Slopes, zav::DefaultProgress());
  double Worst = 0;
  int32_t Index = 0;
  for (const TCalQuad& Quad : QuadsOf(C.Data())) {
    double X = Quad.Longitude, Y = Quad.Latitude, Z = 0;
    int Success = 0;
    GDALGCPTransform(Gdal.get(), TRUE, 1, &X, &Y, &Z, &Success);
    double DX = 0, DY = 0;
    C.Residual(++Index, DX, DY);
    Worst = std::max(Worst, std::hypot(Quad.MapX + DX - X, Quad.MapY + DY - Y));

    double East = Quad.MapX, North = Quad.MapY;
    GDALGCPTransform(Gdal.get(), FALSE, 1, &East, &North, &Z, &Success);
    const auto& F = C.Coefficients();
    const double PX = Quad.MapX, PY = Quad.MapY;
    const auto First = [&](const auto& K) { return K[0] + K[1] * PX + K[2] * PY; };
    const auto Second = [&](const auto& K) {
      return First(K) + K[3] * PX * PX + K[4] * PX * PY + K[5] * PY * PY;
    };
    const bool IsSecond = Model == TCalibModel::cmBiquadraticPn;
    const double DNorth = (IsSecond ? Second(F.BiqCoefLat) : First(F.CalCoefLat)) - North;
    const double DEast = (IsSecond ? Second(F.BiqCoefLong) : First(F.CalCoefLong)) - East;
    const auto InPixels = [&](const auto& K) { return K[1] * DNorth + K[2] * DEast; };
    Worst = std::max(Worst, std::hypot(InPixels(Slopes.CalCoefPixX), InPixels(Slopes.CalCoefPixY)));
  }
  std::cout << "  " << Map << " order " << (Model == TCalibModel::cmBiquadraticPn ? 2 : 1) << ": "
            << std::scientific << Worst << " px\n";
  return Worst;
}

TCalibData TwoHundredPoints() {
  std::mt19937 Random(1);
  std::uniform_int_distribution<int32_t> X(0, 1999), Y(0, 1499);
  TCalibData Data;
  for (TCalQuad& Quad : Data.CalQuads) {
    Quad.MapX = X(Random);
    Quad.MapY = Y(Random);
    Quad.Latitude = 88 - 0.02 * std::hypot(Quad.MapX - 900, Quad.MapY + 800);
    Quad.Longitude = 12 + 70 * std::atan((Quad.MapX - 900.0) / (Quad.MapY + 800.0));
  }
  Data.NumCalQuads = zav::MaxCalQuads;
  return Data;
}

void Time() {
  const TCalibData Data = TwoHundredPoints();
  zav::TCalibCoefficients Coef;
  auto& Progress = zav::DefaultProgress();
  const auto Gdal = [&](int Order) {
    return zav::bench::TCompetitor{"GDAL", [&Data, Order] { MakeGdal(Data, Order); }};
  };
  using zav::bench::Compare;
  Compare("Fit of 200 points, order 1, both directions", 1, 301,
          {{"zavgeo", [&] { FitFirstOrder(Data, Coef, Progress); }}, Gdal(1)});
  Compare("Fit of 200 points, order 2, both directions", 1, 301,
          {{"zavgeo", [&] { FitBiquadratic(Data, Coef, Progress); }}, Gdal(2)});
  Compare("Fit of 200 points, cone", 1, 51,
          {{"zavgeo", [&] { FitConic(Data, 2000, 1500, Coef); }}});

  constexpr size_t Count = 20000;
  TCalibration C;
  C.SetData(Data, TCalibModel::cmBiquadraticPn);
  const TGdal Transformer = MakeGdal(Data, 2);
  std::vector<double> Lat(Count), Long(Count), X(Count), Y(Count), Z(Count);
  std::vector<int> Success(Count);
  for (size_t I = 0; I < Count; ++I) {
    Lat[I] = 30 + 0.002 * static_cast<double>(I);
    Long[I] = 10 + 0.001 * static_cast<double>(I % 977);
  }
  Compare(
      "Position to pixel, order 2, a point", Count, 101,
      {{"zavgeo array", [&] { ToPixels(C, Lat, Long, X, Y); }},
       {"zavgeo ToPixel",
        [&] {
          for (size_t I = 0; I < Count; ++I) C.ToPixel(Lat[I], Long[I], X[I], Y[I]);
        }},
       {"GDAL array",  // in place; the positions are copied in, which takes it a tenth of the time
        [&] {
          X = Long;
          Y = Lat;
          GDALGCPTransform(Transformer.get(), TRUE, static_cast<int>(Count), X.data(), Y.data(),
                           Z.data(), Success.data());
        },
        0.5}});
}

}  // namespace

int main() {
  std::cout << "Largest difference from GDAL on the control points\n";
  double Worst = 0;
  for (const char* Map : {"world_equirect", "iceland", "sicily_8bit"}) {
    Worst = std::max(Worst, Difference(Map, TCalibModel::cmEquiRect));
  }
  for (const char* Map : {"alps_utm32n", "gotthard_utm32n", "andes_utm19s"}) {
    Worst = std::max(Worst, Difference(Map, TCalibModel::cmUTM));
  }
  for (const char* Map : {"iberia_bonne", "europe_conic", "namerica_lcc", "australia_laea"}) {
    Worst = std::max(Worst, Difference(Map, TCalibModel::cmBiquadraticPn));
  }
  if (!(Worst <= LargestDifference)) {
    std::cerr << "differs from GDAL by " << Worst << " pixel\n";
    return 1;
  }
  Time();
  return 0;
}
