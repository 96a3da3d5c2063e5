// A position in UTM metres, a pixel of a map calibrated from four points, a town of a database,
// maps of an atlas: what an outside program does first with the installed libraries.
// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstdio>
#include <filesystem>

#include <geoatlas/geoatlas.h>
#include <geobasics/geobasics.h>
#include <geodb/geodb.h>
#include <geomap/calibration/calibration.h>
#include <geomap/geomap.h>

int main() {
  // The tower of St Stephen's in Vienna; metres by GeographicLib's GeoConvert.
  int Zone = 0;
  double Easting = 0;
  double Northing = 0;
  zav::LatLongToUTM(48.2085, 16.3731, zav::TGeoEllipsoid::gelWGS84, Zone, Easting, Northing);
  const bool Converted = Zone == 33 && std::abs(Easting - 602012.606761) < 1e-3 &&
                         std::abs(Northing - 5340386.008592) < 1e-3;

  // 100 pixels a degree, with 50 north and 10 east in the corner.
  zav::TCalibration Map;
  Map.SetImageSize(600, 400);
  Map.SetModel(zav::TCalibModel::cmEquiRect);
  Map.AddCalibPoint(49.0, 11.0, 100, 100);
  Map.AddCalibPoint(49.0, 15.0, 500, 100);
  Map.AddCalibPoint(47.0, 11.0, 100, 300);
  Map.AddCalibPoint(47.0, 15.0, 500, 300);
  double X = 0;
  double Y = 0;
  const bool Found =
      Map.ToPixel(48.5, 13.25, X, Y) && std::abs(X - 325) < 1e-6 && std::abs(Y - 150) < 1e-6;

  // In a folder of its own, which goes at the end.
  const auto Folder = std::filesystem::temp_directory_path() / "zavgeo-consumer";
  std::filesystem::remove_all(Folder);
  std::filesystem::create_directory(Folder);
  bool Kept = false;
  {
    zav::TGeoDB Towns;
    Towns.SetGDBName((Folder / "towns").string());
    Towns.AddTown("Vienna", 0, 0, {48.2085F, 16.3731F}, 171, 0, 0);
    const auto Near = Towns.NearestItems(48, 16, 1);
    Kept = Near.size() == 1 && Towns.GetSumdata(Near[0].Id).Name.View() == "Vienna";
  }
  std::filesystem::remove_all(Folder);
  const bool Empty = zav::TMapRegister().Finer(48, 16, 100, 0) == 0;

  std::printf("UTM %d %.3f %.3f, pixel %.3f %.3f\n", Zone, Easting, Northing, X, Y);
  return Converted && Found && Kept && Empty ? 0 : 1;
}
