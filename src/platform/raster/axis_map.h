// axis_map.h - which source pixels belong to a target pixel, along one axis of a stretch.
//
// Target pixel I covers the source from (I + Phase) * Scale on, Scale source pixels long, measured
// from the image's own origin. Scale and Phase are rounded to values that do not depend on the last
// bits of the rectangles, so that the same mapping comes out after the source was moved by whole
// target pixels.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_RASTER_AXIS_MAP_H
#define ZAV_PLATFORM_RASTER_AXIS_MAP_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zav {

class TAxisMap {
 public:
  // Maps DestFrom..DestTo-1 to the source from SourceFrom to SourceTo, of an image of SourceSize
  // pixels; only target pixels 0..DestSize-1 are drawn. Nothing is drawn when a range is empty,
  // turned round or not finite.
  TAxisMap(int32_t DestFrom, int32_t DestTo, int32_t DestSize, double SourceFrom, double SourceTo,
           int32_t SourceSize) noexcept;

  // The target pixels to draw: inside the target, their middle inside the source.
  int32_t First() const noexcept { return FFirst; }
  int32_t Count() const noexcept { return FCount; }
  // Source pixels a target pixel.
  double Scale() const noexcept { return FScale; }
  int32_t SourceSize() const noexcept { return FSourceSize; }

  // Where target pixel First() + I begins, and its middle, in source pixels.
  double Begin(int32_t I) const noexcept { return (FFirst + I + FPhase) * FScale; }
  double Middle(int32_t I) const noexcept { return (FFirst + I + (FPhase + Half)) * FScale; }
  // The source pixel under the middle.
  int32_t Nearest(int32_t I) const noexcept { return static_cast<int32_t>(Middle(I)); }

  // True when each target pixel is exactly Ratio whole source pixels, 1 or 2.
  bool IsWhole(int32_t Ratio) const noexcept;

 private:
  // Half a pixel, and a little more than the rounding of the phase, so that a middle exactly
  // between two source pixels always goes to the right or lower one.
  static constexpr double Half = 0.5 + 1.0 / 65536;

  double FScale = 0;
  double FPhase = 0;
  int32_t FFirst = 0;
  int32_t FCount = 0;
  int32_t FSourceSize = 0;
};

// The source pixels of each target pixel of a map with their weights.
class TTaps {
 public:
  struct TRun {
    int32_t Source;      // the first source pixel, from FirstSource()
    int32_t Count;       // source pixels, at least 1
    size_t FirstWeight;  // index in Weights
    uint64_t Total;      // the sum of the weights
  };

  // Interpolates where the map enlarges (at most two source pixels), averages where it shrinks.
  explicit TTaps(const TAxisMap& Map);

  // True when the weights of every target pixel sum to WeightOne for at most MostNarrow pixels.
  // Else a whole source pixel has the weight WidePixel. Depends on the scale only.
  bool Narrow() const noexcept { return FNarrow; }
  static constexpr int32_t MostNarrow = 16;
  static constexpr int32_t WeightOne = 65535;
  static constexpr int32_t WidePixel = 256;

  int32_t FirstSource() const noexcept { return FFirstSource; }
  int32_t SourceCount() const noexcept { return FSourceCount; }

  const std::vector<TRun>& Runs() const noexcept { return FRuns; }
  const uint16_t* Weights(const TRun& Run) const noexcept {
    return FWeights.data() + Run.FirstWeight;
  }

 private:
  void AddInterpolation(const TAxisMap& Map, int32_t I);
  void AddNarrowAverage(const TAxisMap& Map, int32_t I);
  void AddWideAverage(const TAxisMap& Map, int32_t I);
  void SetSourceRange();

  bool FNarrow = true;
  int32_t FFirstSource = 0;
  int32_t FSourceCount = 0;
  std::vector<TRun> FRuns;  // one for each target pixel of the map
  std::vector<uint16_t> FWeights;
};

}  // namespace zav

#endif
