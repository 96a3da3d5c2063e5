// Something of your own on the map: circles of 250, 500 and 750 km around Vienna, below the
// landmarks, wherever the map is moved and however it is magnified.
// SPDX-License-Identifier: MIT
#include <cmath>
#include <numbers>
#include <vector>

#include <QApplication>

#include <platform/qt/geo_map_widget.h>

// A circle on a sphere, as control pixels.
static std::vector<zav::TPoint> Circle(const zav::TGeoMap& Map, double Lat, double Long,
                                       double Km) {
  constexpr double Radians = std::numbers::pi / 180;
  const double Angle = Km / 6371.0;
  std::vector<zav::TPoint> Points;
  for (int Degree = 0; Degree <= 360; Degree += 2) {
    const double Sine = std::sin(Lat * Radians) * std::cos(Angle) +
                        std::cos(Lat * Radians) * std::sin(Angle) * std::cos(Degree * Radians);
    const double East =
        std::atan2(std::sin(Degree * Radians) * std::sin(Angle) * std::cos(Lat * Radians),
                   std::cos(Angle) - std::sin(Lat * Radians) * Sine);
    zav::TPoint Pixel;
    if (Map.CalcPixelCoords(std::asin(Sine) / Radians, Long + East / Radians, Pixel.X, Pixel.Y))
      Points.push_back(Map.MapImageToControl(Pixel));
  }
  return Points;
}

int main(int argc, char** argv) {
  QApplication App(argc, argv);
  zav::GeoMapWidget Widget;
  Widget.resize(1000, 700);
  // Before the map is loaded and painted; later, Paint() would show it.
  Widget.map().OnBeforeRenderData = [](zav::TGeoMap* Map, zav::TCanvas& Canvas) {
    Canvas.Pen = {zav::clRed, zav::TPenStyle::psSolid, zav::TPenMode::pmCopy, 2};
    for (const double Km : {250.0, 500.0, 750.0}) Canvas.Polyline(Circle(*Map, 48.2, 16.37, Km));
  };
  Widget.loadMap(argc > 1 ? argv[1] : "europe_conic.xml");
  Widget.zoomToFit();
  Widget.show();
  return QApplication::exec();
}
