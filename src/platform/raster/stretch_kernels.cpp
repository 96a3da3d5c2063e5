// SPDX-License-Identifier: MIT
#include "platform/raster/stretch_kernels.h"

#include <algorithm>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "platform/raster/simd_clones.h"

namespace zav {

namespace {

// The upper half of a product: one instruction for a whole vector.
inline uint16_t HighProduct(uint16_t A, uint16_t B) {
  return static_cast<uint16_t>(static_cast<uint32_t>(A) * B >> 16);
}
inline uint16_t Widened(uint8_t Value) { return static_cast<uint16_t>(Value << 8); }

// Half a level and about what the sums of both passes lose by dropping fractions.
constexpr uint16_t Rounding = 128 + 4;
inline uint8_t Packed(uint16_t Value) {
  return static_cast<uint8_t>(static_cast<uint16_t>(Value + Rounding) >> 8);
}

ZAV_SIMD_CLONES void SumOneRow(uint16_t* __restrict Sum, const uint8_t* __restrict A, uint16_t WA,
                               size_t Channels) {
  for (size_t I = 0; I < Channels; ++I) Sum[I] = HighProduct(Widened(A[I]), WA);
}

ZAV_SIMD_CLONES void SumTwoRows(uint16_t* __restrict Sum, const uint8_t* __restrict A, uint16_t WA,
                                const uint8_t* __restrict B, uint16_t WB, size_t Channels) {
  for (size_t I = 0; I < Channels; ++I) {
    Sum[I] = static_cast<uint16_t>(HighProduct(Widened(A[I]), WA) + HighProduct(Widened(B[I]), WB));
  }
}

ZAV_SIMD_CLONES void SumThreeRows(uint16_t* __restrict Sum, const uint8_t* __restrict A,
                                  uint16_t WA, const uint8_t* __restrict B, uint16_t WB,
                                  const uint8_t* __restrict C, uint16_t WC, size_t Channels) {
  for (size_t I = 0; I < Channels; ++I) {
    Sum[I] = static_cast<uint16_t>(HighProduct(Widened(A[I]), WA) + HighProduct(Widened(B[I]), WB) +
                                   HighProduct(Widened(C[I]), WC));
  }
}

ZAV_SIMD_CLONES void AddOneRow(uint16_t* __restrict Sum, const uint8_t* __restrict A, uint16_t WA,
                               size_t Channels) {
  for (size_t I = 0; I < Channels; ++I) {
    Sum[I] = static_cast<uint16_t>(Sum[I] + HighProduct(Widened(A[I]), WA));
  }
}

}  // namespace

void SumRows(uint16_t* Sum, const uint8_t* const* Rows, const uint16_t* Weights, int32_t RowCount,
             size_t Channels) {
  if (RowCount == 1) {
    SumOneRow(Sum, Rows[0], Weights[0], Channels);
  } else if (RowCount == 2) {
    SumTwoRows(Sum, Rows[0], Weights[0], Rows[1], Weights[1], Channels);
  } else {
    SumThreeRows(Sum, Rows[0], Weights[0], Rows[1], Weights[1], Rows[2], Weights[2], Channels);
    for (int32_t J = 3; J < RowCount; ++J) AddOneRow(Sum, Rows[J], Weights[J], Channels);
  }
}

ZAV_SIMD_CLONES void AddRow(uint64_t* __restrict Sum, const uint8_t* __restrict Row,
                            uint32_t Weight, size_t Channels) {
  for (size_t I = 0; I < Channels; ++I) Sum[I] += uint64_t{Row[I]} * Weight;
}

void DivideSums(uint16_t* Dest, const uint64_t* Sum, uint64_t Total, size_t Channels) {
  // A byte times Total times this stays below 2^63.
  const uint64_t Reciprocal = (uint64_t{1} << 55) / Total;
  for (size_t I = 0; I < Channels; ++I) Dest[I] = static_cast<uint16_t>(Sum[I] * Reciprocal >> 47);
}

ZAV_SIMD_CLONES void WidenRow(uint16_t* __restrict Dest, const uint8_t* __restrict Source,
                              size_t Channels) {
  for (size_t I = 0; I < Channels; ++I) Dest[I] = Widened(Source[I]);
}

ZAV_SIMD_CLONES void PackRow(uint8_t* __restrict Dest, const uint16_t* __restrict Source,
                             size_t Channels) {
  for (size_t I = 0; I < Channels; ++I) Dest[I] = Packed(Source[I]);
}

ZAV_SIMD_CLONES void BlendRows(uint8_t* __restrict Dest, const uint16_t* __restrict A,
                               const uint16_t* __restrict B, uint16_t WeightA, uint16_t WeightB,
                               size_t Channels) {
  for (size_t I = 0; I < Channels; ++I) {
    Dest[I] =
        Packed(static_cast<uint16_t>(HighProduct(A[I], WeightA) + HighProduct(B[I], WeightB)));
  }
}

ZAV_SIMD_CLONES void HalveRows(uint32_t* __restrict Dest, const uint32_t* __restrict Upper,
                               const uint32_t* __restrict Lower, size_t Count) {
  // Two channels at a time, in the halves of a word: four bytes and the rounding fit in 16 bits.
  constexpr uint32_t Low = 0x00FF00FFU;
  constexpr uint32_t Half = 0x00020002U;
  for (size_t I = 0; I < Count; ++I) {
    const uint32_t A = Upper[2 * I];
    const uint32_t B = Upper[2 * I + 1];
    const uint32_t C = Lower[2 * I];
    const uint32_t D = Lower[2 * I + 1];
    const uint32_t Even = (A & Low) + (B & Low) + (C & Low) + (D & Low) + Half;
    const uint32_t Odd = (A >> 8 & Low) + (B >> 8 & Low) + (C >> 8 & Low) + (D >> 8 & Low) + Half;
    Dest[I] = (Even >> 2 & Low) | (Odd << 6 & ~Low);
  }
}

TRowResampler::TRowResampler(const TTaps& Taps) : FTaps(Taps) {
  if (!Taps.Narrow()) return;
  int32_t Loaded = 2;  // pixels that are read for a target pixel, an even number
  for (const TTaps::TRun& Run : Taps.Runs()) {
    Loaded = std::max(Loaded, Run.Count + Run.Count % 2);
  }
  FPairs = static_cast<size_t>(Loaded) / 2;
  FSources.reserve(Count());
  FWeights.resize(Count() * FPairs);
  size_t Next = 0;
  for (const TTaps::TRun& Run : Taps.Runs()) {
    // A run shorter than the longest is moved back rather than read beyond the row's end.
    const int32_t Spare =
        std::max(Run.Source + Loaded - Taps.SourceCount() - static_cast<int32_t>(Padding), 0);
    const int32_t First = std::max(Run.Source - Spare, 0);
    FSources.push_back(static_cast<size_t>(First) * 4);
    size_t Pixel = static_cast<size_t>(Run.Source - First);
    for (int32_t J = 0; J < Run.Count; ++J, ++Pixel) {
      uint16_t* Weights = FWeights[Next + Pixel / 2].Weights + Pixel % 2 * 4;
      std::fill_n(Weights, 4, Taps.Weights(Run)[J]);
    }
    Next += FPairs;
  }
}

#if defined(__SSE2__)

// Two pixels by two weights at a time; the two halves of the sum are added at the end.
template <int Pairs>
void TRowResampler::ResamplePairs(uint16_t* Dest, const uint16_t* Source, size_t PairCount) const {
  const TPair* Weights = FWeights.data();
  const size_t Steps = Pairs > 0 ? static_cast<size_t>(Pairs) : PairCount;
  for (const size_t First : FSources) {
    __m128i Sum = _mm_setzero_si128();
    for (size_t J = 0; J < Steps; ++J, ++Weights) {
      const __m128i Pixels =
          _mm_loadu_si128(reinterpret_cast<const __m128i*>(Source + First + 8 * J));
      const __m128i Weight = _mm_load_si128(reinterpret_cast<const __m128i*>(Weights->Weights));
      Sum = _mm_add_epi16(Sum, _mm_mulhi_epu16(Pixels, Weight));
    }
    Sum = _mm_add_epi16(Sum, _mm_unpackhi_epi64(Sum, Sum));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(Dest), Sum);
    Dest += 4;
  }
}

#else

template <int Pairs>
void TRowResampler::ResamplePairs(uint16_t* Dest, const uint16_t* Source, size_t PairCount) const {
  const TPair* Weights = FWeights.data();
  const size_t Steps = Pairs > 0 ? static_cast<size_t>(Pairs) : PairCount;
  for (const size_t First : FSources) {
    uint16_t Sum[8] = {};
    for (size_t J = 0; J < Steps; ++J, ++Weights) {
      for (size_t C = 0; C < 8; ++C) {
        Sum[C] = static_cast<uint16_t>(Sum[C] +
                                       HighProduct(Source[First + 8 * J + C], Weights->Weights[C]));
      }
    }
    for (size_t C = 0; C < 4; ++C) Dest[C] = static_cast<uint16_t>(Sum[C] + Sum[C + 4]);
    Dest += 4;
  }
}

#endif

void TRowResampler::ResampleWide(uint16_t* Dest, const uint16_t* Source) const {
  for (const TTaps::TRun& Run : FTaps.Runs()) {
    const uint16_t* Weights = FTaps.Weights(Run);
    const uint16_t* Pixels = Source + static_cast<size_t>(Run.Source) * 4;
    uint64_t Sum[4] = {};
    for (size_t J = 0; J < static_cast<size_t>(Run.Count); ++J) {
      for (size_t C = 0; C < 4; ++C) {
        Sum[C] += uint64_t{Pixels[J * 4 + C]} * Weights[J];
      }
    }
    for (size_t C = 0; C < 4; ++C) Dest[C] = static_cast<uint16_t>(Sum[C] / Run.Total);
    Dest += 4;
  }
}

void TRowResampler::Resample(uint16_t* Dest, const uint16_t* Source) const {
  if (!FTaps.Narrow()) {
    ResampleWide(Dest, Source);
  } else if (FPairs == 1) {
    ResamplePairs<1>(Dest, Source, FPairs);
  } else if (FPairs == 2) {
    ResamplePairs<2>(Dest, Source, FPairs);
  } else {
    ResamplePairs<0>(Dest, Source, FPairs);
  }
}

}  // namespace zav
