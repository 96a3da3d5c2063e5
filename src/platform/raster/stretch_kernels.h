// stretch_kernels.h - the inner loops of stretching.
//
// Rows are bytes of four channels a pixel (B, G, R, 255), or 16-bit values of the same order that
// hold a channel in units of 1/256 of a level. All arithmetic is on whole numbers. A weighted sum
// drops the fraction of each product, at most 1/256 of a level; packing adds a constant that makes
// up for what is lost on average and leaves areas of one colour exact.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_RASTER_STRETCH_KERNELS_H
#define ZAV_PLATFORM_RASTER_STRETCH_KERNELS_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include <platform/raster/axis_map.h>

namespace zav {

// Sums Rows[J] * Weights[J] / 65536 over the rows, one to TTaps::MostNarrow, in 1/256 levels.
void SumRows(uint16_t* Sum, const uint8_t* const* Rows, const uint16_t* Weights, int32_t RowCount,
             size_t Channels);

// Adds a row to sums that are divided at the end, for many rows.
void AddRow(uint64_t* Sum, const uint8_t* Row, uint32_t Weight, size_t Channels);
// Divides such sums by the total of their weights.
void DivideSums(uint16_t* Dest, const uint64_t* Sum, uint64_t Total, size_t Channels);

// Bytes to 1/256 levels.
void WidenRow(uint16_t* Dest, const uint8_t* Source, size_t Channels);
// 1/256 levels to bytes, rounded.
void PackRow(uint8_t* Dest, const uint16_t* Source, size_t Channels);
// The weighted sum of two rows of 1/256 levels, packed.
void BlendRows(uint8_t* Dest, const uint16_t* A, const uint16_t* B, uint16_t WeightA,
               uint16_t WeightB, size_t Channels);

// The exact average of 2 x 2 pixels. Count target pixels.
void HalveRows(uint32_t* Dest, const uint32_t* Upper, const uint32_t* Lower, size_t Count);

// Weights arranged for resampling along a row.
class TRowResampler {
 public:
  // Source pixels beyond the last that a row handed to Resample must have room for.
  static constexpr size_t Padding = 1;

  explicit TRowResampler(const TTaps& Taps);

  size_t Count() const noexcept { return FTaps.Runs().size(); }
  // Weighted sums of 1/256 levels along a row.
  void Resample(uint16_t* Dest, const uint16_t* Source) const;

 private:
  struct alignas(16) TPair {
    uint16_t Weights[8];  // of two neighbouring pixels, four times each
  };
  template <int Pairs>
  void ResamplePairs(uint16_t* Dest, const uint16_t* Source, size_t PairCount) const;
  void ResampleWide(uint16_t* Dest, const uint16_t* Source) const;

  const TTaps& FTaps;
  size_t FPairs = 0;             // pairs a target pixel
  std::vector<size_t> FSources;  // index of the first channel for each target pixel
  std::vector<TPair> FWeights;
};

}  // namespace zav

#endif
