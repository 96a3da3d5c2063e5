// geo_map_empty.cpp - maps that the control makes itself.
// SPDX-License-Identifier: MIT
#include <geomap/geo_map.h>

#include <string_view>

#include <geomap/view/empty_map.h>
#include <platform/base/atomic_file.h>
#include <platform/base/paths.h>
#include <platform/base/stream.h>
#include <platform/codec/image_file.h>
#include <platform/host/host.h>
#include <platform/raster/raster_canvas.h>

namespace zav {

namespace {

// Throws EZAVGeoMapError, before any memory is taken, for more than Limit pixels, too.
TEmptyMap PlanEmptyMap(double Lat1, double Long1, double Lat2, double Long2, double LatGridDist,
                       double LongGridDist, TSize Size, bool Margin, int64_t Limit) {
  const TEmptyMap Map = MakeEmptyMap(Lat1, Long1, Lat2, Long2, LatGridDist, LongGridDist,
                                     Size.Width, Size.Height, Margin);
  CheckMapPixels({Map.Width, Map.Height}, Limit);
  return Map;
}

}  // namespace

// The handler may destroy the control.
TBitmap TGeoMap::DrawnEmptyMap(const TEmptyMap& Map, const TDrawEmptyMapProc& DrawProc) {
  TBitmap Bitmap(Map.Width, Map.Height, TPixelFormat::pf24bit);
  TRasterCanvas Canvas(Bitmap, &Host().Fonts());
  DrawEmptyMap(Map, Canvas);
  if (DrawProc) {
    DrawProc(this, Canvas, Map.LatLow, Map.LongLow, Map.LatHigh, Map.LongHigh, Map.Width,
             Map.Height);
  }
  return Bitmap;
}

void TGeoMap::CreateEmptyMapInMemory(double Lat1, double Long1, double Lat2, double Long2,
                                     double LatGridDist, double LongGridDist, int32_t Width,
                                     int32_t Height, bool Margin,
                                     const TDrawEmptyMapProc& DrawProc) {
  const TEmptyMap Map = Framed([&] {
    return PlanEmptyMap(Lat1, Long1, Lat2, Long2, LatGridDist, LongGridDist, {Width, Height},
                        Margin, MaxDecodablePixels);
  });
  const auto Alive = Life();
  const TBitmap Bitmap = DrawnEmptyMap(Map, DrawProc);
  if (Alive.expired()) return;
  // The new picture is not shown under the old calibration.
  TakeBitmap(Bitmap);
  if (!Alive.expired()) SetCalibration(EmptyMapCalibration(Map), TCalibModel::cmEquiRect);
}

void TGeoMap::CreateAndLoadEmptyMap(const std::string& FileName, double Lat1, double Long1,
                                    double Lat2, double Long2, double LatGridDist,
                                    double LongGridDist, int32_t Width, int32_t Height,
                                    const TDrawEmptyMapProc& DrawProc) {
  constexpr const char* Id = "ZAV_geomap_caldata";
  const TEmptyMap Map = Framed([&] {
    return PlanEmptyMap(Lat1, Long1, Lat2, Long2, LatGridDist, LongGridDist, {Width, Height}, false,
                        MaxMapPixels);
  });
  const auto Alive = Life();
  // The handler may change what it refers to. NOLINTNEXTLINE(performance-unnecessary-copy-*)
  const std::string Name = FileName;
  const TBitmap Bitmap = DrawnEmptyMap(Map, DrawProc);
  if (Alive.expired()) return;
  const std::string Base = StripExtension(Name);
  TCalibData Data = EmptyMapCalibration(Map);
  Data.MapFName = StripPath(Base) + ".bmp";
  // A name that a calibration file cannot hold is refused before the image is written.
  TMemoryStream Text;
  WriteCalDataToStream(Text, Id, Data, TCalibModel::cmEquiRect, ComponentMessage(""));
  SaveBmpFile(Base + ".bmp", Bitmap);
  WriteWholeFile(Base + ".xml",
                 std::string_view(reinterpret_cast<const char*>(Text.Memory()), Text.Size()));
  LoadCalDataFromXML(Name, Id);
}

}  // namespace zav
