// samples_test.cpp - the sample maps, whose control points come from exact georeferences and are
// rounded to whole pixels.
#include <geomap/calibration/calibration.h>

#include <gtest/gtest.h>
#include <GeographicLib/UTMUPS.hpp>

#include <charconv>
#include <cmath>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace zav {
namespace {

using enum TCalibModel;

using TRow = std::vector<std::string>;

std::vector<TRow> ReadCsv(const std::string& Name) {
  std::ifstream File(std::string(ZAVGEO_SAMPLES "/maps/") + Name);
  std::vector<TRow> Rows;
  std::string Line;
  std::getline(File, Line);  // the names of the columns
  while (std::getline(File, Line)) {
    TRow& Row = Rows.emplace_back();
    std::istringstream Fields(Line);
    for (std::string Field; std::getline(Fields, Field, ',');) Row.push_back(Field);
  }
  EXPECT_FALSE(Rows.empty()) << Name;
  return Rows;
}

double Number(const std::string& Text) {
  double Value = 0;
  std::from_chars(Text.data(), Text.data() + Text.size(), Value);
  return Value;
}

int32_t Integer(const std::string& Text) { return static_cast<int32_t>(Number(Text)); }

TCalibration Load(const std::string& Map, TCalibModel Model) {
  TCalibration C;
  C.SetModel(Model);
  if (Model == cmParabolicIp) {
    for (const TRow& Row : ReadCsv(Map + ".lines.csv")) {
      C.AddCalibPoint(
          Row[0] == "parallel" ? TGratLineKind::gtlParallel : TGratLineKind::gtlMeridian,
          Number(Row[1]), Integer(Row[2]), Integer(Row[3]));
    }
  } else if (Model == cmUTM) {
    for (const TRow& Row : ReadCsv(Map + ".utm_points.csv")) {
      const THemisphere Hemisphere =
          Row[3] == "S" ? THemisphere::hemiSouth : THemisphere::hemiNorth;
      C.SetUTMZone(Integer(Row[2]));
      C.SetUTMHemisphere(Hemisphere);
      C.AddCalibPoint(Number(Row[0]), Number(Row[1]), Integer(Row[2]), Hemisphere, Integer(Row[4]),
                      Integer(Row[5]));
    }
  } else {
    for (const TRow& Row : ReadCsv(Map + ".points.csv")) {
      C.AddCalibPoint(Number(Row[0]), Number(Row[1]), Integer(Row[2]), Integer(Row[3]));
    }
  }
  return C;
}

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
    const TCalibration C = Load(Case.Map, Case.Model);
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
  TCalibration C = Load("alps_utm32n", cmUTM);
  C.SetImageSize(1613, 1552);
  C.RecalcCalibration();
  double Worst = 0;
  for (double Lat = 44.6; Lat < 48.2; Lat += 0.19) {
    for (double Long = 6.2; Long < 11.9; Long += 0.23) {
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

}  // namespace
}  // namespace zav
