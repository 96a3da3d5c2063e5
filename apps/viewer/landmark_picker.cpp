// landmark_picker.cpp - see landmark_picker.h.
// SPDX-License-Identifier: MIT
#include "landmark_picker.h"

#include <cmath>

#include <geomap/geo_map.h>

#include "common/free_captions.h"

namespace zav {

namespace {

// Map pixels about the mouse; differences wrap around.
struct Range {
  uint32_t Left, Top, Extent;

  Range(const TViewState& View, QPointF Control, double Distance) {
    const double Reach = Distance / View.Magnification + 2;
    const auto Edge = [&](int32_t From, double At) {
      return static_cast<uint32_t>(From) + static_cast<uint32_t>(static_cast<int32_t>(
                                               std::floor(At / View.Magnification - Reach)));
    };
    Left = Edge(View.TopLeft.X, Control.x());
    Top = Edge(View.TopLeft.Y, Control.y());
    Extent = static_cast<uint32_t>(std::ceil(2 * Reach)) + 1;
  }
  // 1 or 0.
  unsigned holds(int32_t X, int32_t Y) const {
    return static_cast<unsigned>(static_cast<uint32_t>(X) - Left <= Extent) &
           static_cast<unsigned>(static_cast<uint32_t>(Y) - Top <= Extent);
  }
};

}  // namespace

int LandmarkPicker::at(const TGeoMap& Map, QPointF Control, double Distance) {
  if (Map.NumLandMarks() == 0) return 0;
  const TLandMarkPixels::TChunks Chunks = FPixels.Update(Map.LandMarks(), Map.Calibration());
  const TViewState& View = Map.View();
  const Range Near(View, Control, Distance);
  TLandMarkPixels::TChunk::TColumn<uint16_t> Found;
  int Best = 0;
  double Least = Distance;
  int Before = 0;
  for (const auto& Chunk : Chunks) {
    size_t Count = 0;
    for (size_t i = 0; i < Chunk->Count; ++i) {
      Found[Count] = static_cast<uint16_t>(i);
      Count += Near.holds(Chunk->X[i], Chunk->Y[i]);
    }
    for (size_t k = 0; k < Count; ++k) {
      const size_t i = Found[k];
      if (!Chunk->OnMap[i] || !Map.GetClassVisibility(Chunk->Class[i])) continue;
      const TPoint At = MapImageToControl(View, {Chunk->X[i], Chunk->Y[i]});
      const double Away = std::hypot(At.X - Control.x(), At.Y - Control.y());
      if (Away > Least ||
          !IsPlacedRight(Map.Calibration(), Chunk->Latitude[i], Chunk->Longitude[i]))
        continue;
      Least = Away;
      Best = Before + static_cast<int>(i) + 1;
    }
    Before += static_cast<int>(Chunk->Count);
  }
  return Best;
}

}  // namespace zav
