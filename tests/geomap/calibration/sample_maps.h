// sample_maps.h - the control points and lines of the sample maps. Shared by tests and benchmarks.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_GEOMAP_CALIBRATION_SAMPLE_MAPS_H
#define ZAV_TESTS_GEOMAP_CALIBRATION_SAMPLE_MAPS_H

#include <geomap/calibration/calibration.h>

#include <charconv>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace zav::test {

using TRow = std::vector<std::string>;

inline std::vector<TRow> ReadCsv(const std::string& Name) {
  std::ifstream File(std::string(ZAVGEO_SAMPLES "/maps/") + Name);
  std::vector<TRow> Rows;
  std::string Line;
  std::getline(File, Line);  // the names of the columns
  for (; std::getline(File, Line);) {
    TRow& Row = Rows.emplace_back();
    std::istringstream Fields(Line);
    for (std::string Field; std::getline(Fields, Field, ',');) Row.push_back(Field);
  }
  if (Rows.empty()) throw std::runtime_error("cannot read the sample " + Name);
  return Rows;
}

inline double Number(const std::string& Text) {
  double Value = 0;
  std::from_chars(Text.data(), Text.data() + Text.size(), Value);
  return Value;
}

inline int32_t Integer(const std::string& Text) { return static_cast<int32_t>(Number(Text)); }

// A calibration by the sample map's points or lines of the kind that the model takes.
inline TCalibration LoadSample(const std::string& Map, TCalibModel Model) {
  TCalibration C;
  C.SetModel(Model);
  if (Model == TCalibModel::cmParabolicIp) {
    for (const TRow& Row : ReadCsv(Map + ".lines.csv")) {
      C.AddCalibPoint(
          Row[0] == "parallel" ? TGratLineKind::gtlParallel : TGratLineKind::gtlMeridian,
          Number(Row[1]), Integer(Row[2]), Integer(Row[3]));
    }
  } else if (Model == TCalibModel::cmUTM) {
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

}  // namespace zav::test

#endif
