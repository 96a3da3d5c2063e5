// free_captions.h - landmarks as people want to see them: captions that can be read, and nothing in
// the wrong place.
//
// On a map of thousands of places the captions hide each other and none can be read. The first
// landmark of the list wins, so lists are best sorted by importance. Symbols are all drawn, and so
// is the caption of the highlighted landmark.
//
// A model converts positions from anywhere on the globe, and may put some that are far away on the
// map: the conic one folds what lies beyond the pole. Such landmarks are not drawn.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_COMMON_FREE_CAPTIONS_H
#define ZAV_APPS_COMMON_FREE_CAPTIONS_H

#include <cstdint>
#include <unordered_map>
#include <vector>

#include <geomap/geo_map.h>

namespace zav {

// Whether the map has the position where it puts it: the pixel converts back to nearly the same.
bool IsPlacedRight(const TCalibration& Calibration, double Lat, double Long);

enum class TCaptions : uint8_t { All, Free, None };

class TFreeCaptions {
 public:
  // With more landmarks than this all is drawn: asking about each takes too long.
  static constexpr int32_t MostLandMarks = 200000;

  // Takes the map's OnBeforeRenderData and OnDrawLandmark while there are landmarks. The map must
  // outlive this object.
  explicit TFreeCaptions(TGeoMap& Map) : FMap(Map) {}
  ~TFreeCaptions();
  TFreeCaptions(const TFreeCaptions&) = delete;
  TFreeCaptions& operator=(const TFreeCaptions&) = delete;

  // Does not repaint.
  void SetCaptions(TCaptions Captions);
  TCaptions Captions() const noexcept { return FCaptions; }
  // To be called when the landmarks have changed.
  void Update();

 private:
  void Detach();
  bool Draw(TCanvas& Canvas, TPoint Position, const TLandMark& LandMark);
  // Whether the box is free; it is taken then.
  bool Take(const TRect& Box);

  TGeoMap& FMap;
  TCaptions FCaptions = TCaptions::All;
  bool FAttached = false;
  std::unordered_map<int64_t, std::vector<TRect>> FTaken;  // boxes by the cells that they touch
};

}  // namespace zav

#endif
