// arrays_test.cpp - conversions of whole arrays against the single ones, in every model.
// SPDX-License-Identifier: MIT
#include <geomap/calibration/calibration_arrays.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "sample_maps.h"

namespace zav::test {
namespace {

constexpr double AngleBound = 1e-8 / 111320;  // degrees of 1e-8 m

TEST(CalibrationArrays, AreTheSingleConversions) {
  const struct {
    const char* Map;
    TCalibModel Model;
    double PixelBound;
  } Cases[] = {
      {"iceland", TCalibModel::cmEquiRect, 0},
      {"iberia_bonne", TCalibModel::cmBiquadraticPn, 0},
      {"alps_utm32n", TCalibModel::cmUTM, 1e-9},
      {"andes_utm19s", TCalibModel::cmUTM, 1e-9},
      {"world_miller", TCalibModel::cmMillerCylindrical, 0},
      {"europe_conic", TCalibModel::cmConicConformal, 0},
      {"europe_conic", TCalibModel::cmUndefined, 0},
  };
  for (const auto& Case : Cases) {
    SCOPED_TRACE(Case.Map);
    const TCalibration C =
        Case.Model == TCalibModel::cmUndefined ? TCalibration() : LoadSample(Case.Map, Case.Model);
    // A length that is no multiple of anything, with points that have no result.
    const double NaN = std::numeric_limits<double>::quiet_NaN();
    std::vector<double> X, Y;
    for (int I = 0; I < 1001; ++I) {
      X.push_back(I % 37 * 50.25);
      Y.push_back(I % 41 * 40.5);
    }
    X[5] = NaN;
    Y[1000] = std::numeric_limits<double>::infinity();
    std::vector<double> Lat = X, Long = Y;
    size_t Good = 0;
    const size_t Found = ToPositions(C, Lat, Long, Lat, Long);  // in place
    for (size_t I = 0; I < X.size(); ++I) {
      TCoords Single;
      if (C.ToGeo(X[I], Y[I], Single)) {
        ++Good;
        ASSERT_NEAR(Lat[I], Single.Latit, AngleBound) << I;
        ASSERT_NEAR(Long[I], Single.Longit, 2 * AngleBound) << I;
      } else {
        ASSERT_TRUE(std::isnan(Lat[I]) && std::isnan(Long[I])) << I;
      }
    }
    EXPECT_EQ(Found, Good);
    Lat[7] = NaN;
    std::vector<double> Px(Lat.size()), Py(Lat.size());
    size_t Pixels = 0;
    const size_t PixelsFound = ToPixels(C, Lat, Long, Px, Py);
    for (size_t I = 0; I < Lat.size(); ++I) {
      double SingleX = 0, SingleY = 0;
      if (C.ToPixel(Lat[I], Long[I], SingleX, SingleY)) {
        ++Pixels;
        ASSERT_NEAR(Px[I], SingleX, Case.PixelBound) << I;
        ASSERT_NEAR(Py[I], SingleY, Case.PixelBound) << I;
      } else {
        ASSERT_TRUE(std::isnan(Px[I]) && std::isnan(Py[I])) << I;
      }
    }
    EXPECT_EQ(PixelsFound, Pixels);
    EXPECT_THROW(ToPixels(C, Lat, {}, Px, Py), EZAVGeoMapError);
  }
}

}  // namespace
}  // namespace zav::test
