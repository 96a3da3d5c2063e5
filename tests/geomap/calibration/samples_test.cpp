// samples_test.cpp - the sample maps, whose control points come from exact georeferences and are
// rounded to whole pixels.
// SPDX-License-Identifier: MIT
#include <geomap/calibration/calibration.h>

#include <gtest/gtest.h>
#include <GeographicLib/UTMUPS.hpp>

#include <cmath>
#include <string>
#include <utility>

#include "sample_maps.h"

namespace zav {
namespace {

using enum TCalibModel;
using test::Number;
using test::ReadCsv;
using test::TRow;

// Rounding to whole pixels alone makes 0.29 pixels along each axis before the fit takes its share.
TEST(Samples, EachMapFitsItsModel) {
  const struct {
    const char* Map;
    TCalibModel Model;
    double Rms;  // of unrounded pixels along the worse axis
  } Cases[] = {{"alps_utm32n", cmUTM, 0.32},
               {"gotthard_utm32n", cmUTM, 0.32},
               {"andes_utm19s", cmUTM, 0.32},
               {"world_equirect", cmEquiRect, 0.32},
               {"iceland", cmEquiRect, 0.32},
               {"sicily_8bit", cmEquiRect, 0.32},
               {"world_miller", cmMillerCylindrical, 0.32},
               {"europe_conic", cmConicConformal, 0.32},
               {"iberia_bonne", cmBiquadraticPn, 0.55},
               {"iberia_bonne", cmParabolicIp, 0.45}};
  for (const auto& Case : Cases) {
    const TCalibration C = test::LoadSample(Case.Map, Case.Model);
    double SumX = 0, SumY = 0, SumGeo = 0;
    const auto Rows = ReadCsv(std::string(Case.Map) + ".points.csv");
    for (const TRow& Row : Rows) {
      const double Lat = Number(Row[0]), Long = Number(Row[1]);
      const double X = Number(Row[2]), Y = Number(Row[3]);
      double PX = 0, PY = 0;
      ASSERT_TRUE(C.ToPixel(Lat, Long, PX, PY)) << Case.Map;
      SumX += (PX - X) * (PX - X);
      SumY += (PY - Y) * (PY - Y);
      // Back from the predicted pixel: the two directions belong together.
      TCoords Position;
      ASSERT_TRUE(C.ToGeo(PX, PY, Position));
      double BackX = 0, BackY = 0;
      ASSERT_TRUE(C.ToPixel(Position.Latit, Position.Longit, BackX, BackY));
      SumGeo += std::hypot(BackX - PX, BackY - PY);
    }
    const auto N = static_cast<double>(Rows.size());
    const double Rms = std::sqrt(std::max(SumX, SumY) / N);
    RecordProperty(std::string(Case.Map) + std::to_string(static_cast<int>(Case.Model)),
                   std::to_string(Rms));
    EXPECT_LT(Rms, Case.Rms) << Case.Map;
    EXPECT_GT(Rms, 0.05) << Case.Map << ": too good for rounded pixels";
    EXPECT_LT(SumGeo / N, 1.0) << Case.Map;
  }
}

// The sheet is 290 m a pixel, turned clockwise by -0.9 degrees, in zone 32; only its origin is
// taken from the control points, as the mean over all of them.
TEST(Samples, AlpsAgreeWithGeographicLibEverywhere) {
  const double Turn = -0.9 * std::acos(-1.0) / 180;
  const auto Sheet = [&](double Lat, double Long) {
    int Zone = 0;
    bool North = false;
    double E = 0, N = 0;
    GeographicLib::UTMUPS::Forward(Lat, Long, Zone, North, E, N, 32);
    const double U = E / 290, V = -N / 290;
    return std::pair(U * std::cos(Turn) - V * std::sin(Turn),
                     U * std::sin(Turn) + V * std::cos(Turn));
  };
  const auto Rows = ReadCsv("alps_utm32n.points.csv");
  double X0 = 0, Y0 = 0;
  for (const TRow& Row : Rows) {
    const auto [U, V] = Sheet(Number(Row[0]), Number(Row[1]));
    X0 += (Number(Row[2]) - U) / static_cast<double>(Rows.size());
    Y0 += (Number(Row[3]) - V) / static_cast<double>(Rows.size());
  }
  TCalibration C = test::LoadSample("alps_utm32n", cmUTM);
  C.SetImageSize(1613, 1552);
  C.RecalcCalibration();
  double Worst = 0;
  for (int I = 0; I < 19; ++I) {
    for (int J = 0; J < 25; ++J) {
      const double Lat = 44.6 + 0.19 * I, Long = 6.2 + 0.23 * J;
      ASSERT_TRUE(C.IsPositionWithinMap(Lat, Long)) << Lat << " " << Long;
      const auto [U, V] = Sheet(Lat, Long);
      double X = 0, Y = 0;
      ASSERT_TRUE(C.ToPixel(Lat, Long, X, Y));
      Worst = std::max(Worst, std::hypot(X - X0 - U, Y - Y0 - V));
      TCoords Position;
      ASSERT_TRUE(C.ToGeo(X0 + U, Y0 + V, Position));
      // 0.3 pixels are 87 m.
      EXPECT_NEAR(Position.Latit, Lat, 0.0008);
      EXPECT_NEAR(Position.Longit, Long, 0.0012);
    }
  }
  RecordProperty("worst", std::to_string(Worst));
  EXPECT_LT(Worst, 0.35);
  EXPECT_NEAR(C.Data().Resolution, 290, 2);
  EXPECT_FALSE(C.IsPositionWithinMap(43, 8));
}

// Parallels of a UTM map run on across the edge of its zone, at 6 degrees here; the ordinary
// conversion jumps there by most of the map's width.
TEST(Samples, MapZoneHasNoJump) {
  const TCalibration C = test::LoadSample("alps_utm32n", cmUTM);
  double InsideX = 0, OutsideX = 0, JumpX = 0, Y = 0;
  ASSERT_TRUE(C.ToPixelInMapZone(46.5, 6.0001, InsideX, Y));
  ASSERT_TRUE(C.ToPixelInMapZone(46.5, 5.9999, OutsideX, Y));
  ASSERT_TRUE(C.ToPixel(46.5, 5.9999, JumpX, Y));
  EXPECT_NEAR(InsideX - OutsideX, 0.053, 0.01);  // 15 m of the parallel at 290 m a pixel
  EXPECT_GT(JumpX - InsideX, 1500);
  // Nor at the equator, where the northing of the south begins anew.
  const TCalibration South = test::LoadSample("andes_utm19s", cmUTM);
  double NorthY = 0, SouthY = 0, X = 0;
  ASSERT_TRUE(South.ToPixelInMapZone(0.0001, -69, X, NorthY));
  ASSERT_TRUE(South.ToPixelInMapZone(-0.0001, -69, X, SouthY));
  EXPECT_NEAR(SouthY - NorthY, 0.24, 0.05);  // 22 m at 92 m a pixel
}

}  // namespace
}  // namespace zav
