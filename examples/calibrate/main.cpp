// Ties the pixels of a scan to positions with four points, tells how well they fit, and writes the
// calibration file that the viewer and GeoMapWidget open.
// SPDX-License-Identifier: MIT
#include <cstdio>

#include <geomap/calibration/calib_file.h>
#include <geomap/calibration/calibration.h>

int main(int argc, char** argv) {
  zav::TCalibration Map;
  Map.SetImageSize(800, 600);
  Map.SetModel(zav::TCalibModel::cmEquiRect);
  // Latitude, longitude, column, row, as read off the scan.
  Map.AddCalibPoint(49.0, 15.0, 101, 98);
  Map.AddCalibPoint(49.0, 18.0, 699, 101);
  Map.AddCalibPoint(47.0, 15.0, 99, 499);
  Map.AddCalibPoint(47.0, 18.0, 702, 505);

  double ErrorX = 0;
  double ErrorY = 0;
  Map.CalibQuality(ErrorX, ErrorY);
  std::printf("The points fit to %.2f and %.2f pixels.\n", ErrorX, ErrorY);

  double X = 0;
  double Y = 0;
  if (Map.ToPixel(48.2085, 16.3731, X, Y)) std::printf("Vienna is at %.1f, %.1f.\n", X, Y);
  zav::TCoords Middle;
  if (Map.ToGeo(400, 300, Middle))
    std::printf("The middle of the scan is at %.4f, %.4f.\n", Middle.Latit, Middle.Longit);

  zav::TCalibData Data = Map.Data();
  Data.MapFName = "scan.jpg";  // relative to the calibration file
  Data.Caption = "Around Vienna";
  const char* const File = argc > 1 ? argv[1] : "scan.xml";
  zav::SaveCalData(File, "", Data, Map.Model(), "calibrate: ");
  std::printf("Written to %s.\n", File);
}
