// atlas_files.h - calibration files of generated maps.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_GEOATLAS_ATLAS_FILES_H
#define ZAV_TESTS_GEOATLAS_ATLAS_FILES_H

#include <fstream>
#include <string>

#include <geomap/calibration/calib_file.h>
#include <geomap/calibration/calibration.h>

namespace zav::test {

// A plate carree of 200 x 100 pixels, DegreesHigh from south to north and twice as wide; its image,
// which need not exist, is NAME.bmp in a folder that is not the file's.
inline void WriteMap(const std::string& Path, const std::string& Image, const std::string& Caption,
                     double South, double West, double DegreesHigh) {
  TCalibData Data;
  Data.MapFName = "elsewhere/" + Image;
  Data.Caption = Caption;
  const double North = South + DegreesHigh;
  const double East = West + 2 * DegreesHigh;
  Data.CalQuads[0] = {North, West, 0, 0};
  Data.CalQuads[1] = {South, West, 0, 100};
  Data.CalQuads[2] = {South, East, 200, 100};
  Data.CalQuads[3] = {North, East, 200, 0};
  Data.NumCalQuads = 4;
  TCalibration Calibration;
  Calibration.SetImageSize(200, 100);
  Calibration.SetData(Data, TCalibModel::cmEquiRect);
  SaveCalData(Path, "", Calibration.Data(), TCalibModel::cmEquiRect, "");
}

// The image of such a map: 24 bits a pixel, all black.
inline void WriteImage(const std::string& Path) {
  std::string Bytes("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\xC8\0\0\0\x64\0\0\0\1\0\x18\0", 30);
  Bytes.resize(54 + 200 * 100 * 3);
  std::ofstream(Path, std::ios::binary) << Bytes;
}

}  // namespace zav::test

#endif
