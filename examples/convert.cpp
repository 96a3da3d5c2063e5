// convert.cpp - UTM coordinates, and a calibration from control points, without a window and
// without Qt.
// SPDX-License-Identifier: MIT
#include <cstdio>

#include <geobasics/utm.h>
#include <geomap/calibration/calibration.h>

int main() {
  using namespace zav;

  // Vienna, Stephansplatz, as UTM and back again.
  int Zone = 0;
  double Easting = 0;
  double Northing = 0;
  LatLongToUTM(48.2085, 16.3721, TGeoEllipsoid::gelWGS84, Zone, Easting, Northing);
  double Lat = 0;
  double Long = 0;
  UTMToLatLong(Easting, Northing, Zone, false, TGeoEllipsoid::gelWGS84, Lat, Long);
  std::printf("%s %.1f %.1f = %.6f %.6f\n", GeoToUTMZone(Lat, Long).c_str(), Easting, Northing, Lat,
              Long);

  // Four points read off a scan of 800 x 600 pixels: latitude, longitude, column, row.
  TCalibration Map;
  Map.SetImageSize(800, 600);
  Map.SetModel(TCalibModel::cmEquiRect);
  Map.AddCalibPoint(49.0, 15.0, 101, 98);
  Map.AddCalibPoint(49.0, 18.0, 699, 101);
  Map.AddCalibPoint(47.0, 15.0, 99, 499);
  Map.AddCalibPoint(47.0, 18.0, 702, 505);

  double X = 0;
  double Y = 0;
  if (Map.ToPixel(48.2085, 16.3721, X, Y)) std::printf("Vienna is at pixel %.1f, %.1f\n", X, Y);
  TCoords Position;
  if (Map.ToGeo(400, 300, Position))
    std::printf("The middle of the scan is %.4f %.4f\n", Position.Latit, Position.Longit);
  double QualityX = 0;
  double QualityY = 0;
  Map.CalibQuality(QualityX, QualityY);
  std::printf("The points fit to %.2f and %.2f pixels\n", QualityX, QualityY);
}
