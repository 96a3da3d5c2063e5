// map_support.h - maps, images and calibrations for the tests of the map control.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_GEOMAP_VIEW_MAP_SUPPORT_H
#define ZAV_TESTS_GEOMAP_VIEW_MAP_SUPPORT_H

#include <geomap/geo_map.h>
#include <support/test_host.h>

#include <charconv>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace zav {

// A colour that tells the pixel's place, exact on 15 bits a pixel.
inline TColor PlaceColor(int32_t X, int32_t Y) {
  return RgbColor(static_cast<uint8_t>(X % 32 * 8), static_cast<uint8_t>(Y % 32 * 8),
                  static_cast<uint8_t>((X / 32 + Y / 32 * 5) % 32 * 8));
}

// A 15-bit colour read back has its high bits repeated.
inline TColor OnPicture(TColor Color) {
  TBitmap Pixel(1, 1, TPixelFormat::pf15bit);
  Pixel.SetPixel(0, 0, Color);
  return Pixel.Pixel(0, 0);
}

inline TBitmap PlaceBitmap(int32_t Width, int32_t Height) {
  TBitmap Bitmap(Width, Height, TPixelFormat::pf32bit);
  for (int32_t Y = 0; Y < Height; ++Y)
    for (int32_t X = 0; X < Width; ++X) Bitmap.SetPixel(X, Y, PlaceColor(X, Y));
  return Bitmap;
}

// Writes down what it is told.
class TCountingObserver final : public TGeoMapObserver {
 public:
  int Views = 0, Calibrations = 0, Images = 0, Paints = 0;
  void ViewChanged(TGeoMap&) override { ++Views; }
  void CalibrationChanged(TGeoMap&) override { ++Calibrations; }
  void ImageChanged(TGeoMap&) override { ++Images; }
  void Painted(TGeoMap&) override { ++Paints; }
};

// A map control named GeoMap1 with an observer.
struct TTestMap {
  TTestHost Host;
  TGeoMap Map{nullptr, Host};
  TCountingObserver Seen;

  TTestMap() {
    Map.SetName("GeoMap1");
    Map.AddObserver(&Seen);
  }
  TTestMap(int32_t Width, int32_t Height) : TTestMap() {
    Map.SetMapBitMap(PlaceBitmap(Width, Height));
    Seen = {};
  }
};

// What an operation throws, "" when nothing.
template <typename TError, typename TOperation>
std::string ErrorOf(TOperation Operation) {
  try {
    Operation();
  } catch (const TError& Error) {
    return Error.what();
  }
  return "";
}

// Control points of a plain map: ten pixels a degree, (North, West) at pixel (0, 0).
inline TCalibData PlainQuads(double North, double West, double PixelsPerDegree,
                             const std::vector<TPoint>& Pixels) {
  TCalibData Data;
  for (const TPoint& P : Pixels) {
    Data.CalQuads[static_cast<size_t>(Data.NumCalQuads++)] = {
        North - P.Y / PixelsPerDegree, West + P.X / PixelsPerDegree, P.X, P.Y};
  }
  return Data;
}

// The control points of a sample's ".utm_points.csv".
inline TCalibData UTMPointsOf(const std::string& Sample) {
  std::ifstream File(ZAVGEO_SAMPLES "/maps/" + Sample + ".utm_points.csv");
  std::string Line;
  std::getline(File, Line);
  TCalibData Data;
  const auto Next = [&Line](auto& Value) {
    const char* End = std::from_chars(Line.data(), Line.data() + Line.size(), Value).ptr;
    Line.erase(0, static_cast<size_t>(End - Line.data()) + 1);
  };
  while (std::getline(File, Line)) {
    TCalQuad& Quad = Data.CalQuads.at(static_cast<size_t>(Data.NumCalQuads++));
    Next(Quad.Latitude);
    Next(Quad.Longitude);
    Next(Data.UTMZone);
    Data.UTMSouth = Line.at(0) == 'S';
    Line.erase(0, 2);
    Next(Quad.MapX);
    Next(Quad.MapY);
  }
  if (Data.NumCalQuads == 0) throw std::runtime_error("no points of " + Sample);
  return Data;
}

}  // namespace zav

#endif
