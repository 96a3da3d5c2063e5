// SPDX-License-Identifier: MIT
#include "platform/raster/axis_map.h"

#include <algorithm>
#include <cmath>

#include <platform/base/rounding.h>

namespace zav {

namespace {

// Keeps the first 32 binary digits: fine enough for any picture, and coarse enough that two ways to
// compute the same rectangle end at the same number.
double Trimmed(double Value) {
  int Exponent = 0;
  const double Mantissa = std::frexp(Value, &Exponent);
  return std::ldexp(std::nearbyint(std::ldexp(Mantissa, 32)), Exponent - 32);
}

// To steps of 1/65536. The limit between two steps lies where no simple fraction does, so that
// positions that people choose are never close to it.
double Stepped(double Value) {
  constexpr double Steps = 65536;
  constexpr double Offset = 0.41421356;
  return std::floor(Value * Steps + Offset) / Steps;
}

// The first of Low..High for which Reached is true, which it stays from there on; else High.
template <class TReached>
int32_t FirstWhere(int32_t Low, int32_t High, TReached&& Reached) {
  while (Low < High) {
    const int32_t Middle = static_cast<int32_t>((static_cast<int64_t>(Low) + High) >> 1);
    if (Reached(Middle)) {
      High = Middle;
    } else {
      Low = Middle + 1;
    }
  }
  return Low;
}

}  // namespace

TAxisMap::TAxisMap(int32_t DestFrom, int32_t DestTo, int32_t DestSize, double SourceFrom,
                   double SourceTo, int32_t SourceSize) noexcept
    : FSourceSize(SourceSize) {
  const int32_t Low = std::max(DestFrom, 0);
  const int32_t High = std::min(DestTo, DestSize);
  if (Low >= High || SourceSize <= 0) return;
  const double Length = static_cast<double>(DestTo) - DestFrom;
  FScale = Trimmed((SourceTo - SourceFrom) / Length);
  if (!std::isfinite(FScale) || FScale <= 0 || !std::isfinite(SourceFrom)) return;
  FPhase = Stepped(SourceFrom / FScale) - DestFrom;
  if (!std::isfinite(FPhase)) return;

  const auto MiddleOf = [&](int32_t I) { return (I + (FPhase + Half)) * FScale; };
  FFirst = FirstWhere(Low, High, [&](int32_t I) { return MiddleOf(I) >= 0; });
  FCount = FirstWhere(FFirst, High, [&](int32_t I) { return MiddleOf(I) >= SourceSize; }) - FFirst;
}

bool TAxisMap::IsWhole(int32_t Ratio) const noexcept {
  return FScale == Ratio && FPhase == std::floor(FPhase);
}

TTaps::TTaps(const TAxisMap& Map) : FNarrow(Map.Scale() <= MostNarrow - 2) {
  FRuns.reserve(static_cast<size_t>(Map.Count()));
  for (int32_t I = 0; I < Map.Count(); ++I) {
    if (Map.Scale() < 1) {
      AddInterpolation(Map, I);
    } else if (FNarrow) {
      AddNarrowAverage(Map, I);
    } else {
      AddWideAverage(Map, I);
    }
  }
  SetSourceRange();
}

void TTaps::AddInterpolation(const TAxisMap& Map, int32_t I) {
  const int32_t Last = Map.SourceSize() - 1;
  // Between the centres of two source pixels; beyond the outermost centres those pixels go on.
  const double Position = std::clamp<double>(Map.Middle(I) - 0.5, 0, Last);
  const int32_t Source = std::min(static_cast<int32_t>(Position), std::max(Last - 1, 0));
  const int32_t Right = RoundHalfEven((Position - Source) * WeightOne);
  FRuns.push_back({Source, Last > 0 ? 2 : 1, FWeights.size(), WeightOne});
  FWeights.push_back(static_cast<uint16_t>(WeightOne - Right));
  if (Last > 0) FWeights.push_back(static_cast<uint16_t>(Right));
}

void TTaps::AddNarrowAverage(const TAxisMap& Map, int32_t I) {
  const double Begin = std::max(Map.Begin(I), 0.0);
  const double End = std::min<double>(Map.Begin(I + 1), Map.SourceSize());
  const int32_t Source = static_cast<int32_t>(Begin);
  const int32_t Count = std::max(static_cast<int32_t>(std::ceil(End)) - Source, 1);
  FRuns.push_back({Source, Count, FWeights.size(), WeightOne});
  // The rounded share of the area up to each pixel's end, less that up to its start, so that the
  // weights have the exact sum.
  const double PerPixel = WeightOne / (End - Begin);
  int32_t Before = 0;
  for (int32_t J = 1; J <= Count; ++J) {
    const double Covered = J == Count ? End : static_cast<double>(Source + J);
    const int32_t UpTo = RoundHalfEven((Covered - Begin) * PerPixel);
    FWeights.push_back(static_cast<uint16_t>(UpTo - Before));
    Before = UpTo;
  }
}

void TTaps::AddWideAverage(const TAxisMap& Map, int32_t I) {
  const double Begin = std::max(Map.Begin(I), 0.0);
  const double End = std::min<double>(Map.Begin(I + 1), Map.SourceSize());
  const int32_t Source = static_cast<int32_t>(Begin);
  const int32_t Count = std::max(static_cast<int32_t>(std::ceil(End)) - Source, 1);
  TRun Run{Source, Count, FWeights.size(), 0};
  for (int32_t J = 0; J < Count; ++J) {
    const double Covered =
        std::min<double>(Source + J + 1, End) - std::max<double>(Source + J, Begin);
    const uint16_t Weight = static_cast<uint16_t>(RoundHalfEven(Covered * WidePixel));
    FWeights.push_back(Weight);
    Run.Total += Weight;
  }
  FRuns.push_back(Run);
}

void TTaps::SetSourceRange() {
  if (FRuns.empty()) return;
  FFirstSource = FRuns.front().Source;
  FSourceCount = FRuns.back().Source + FRuns.back().Count - FFirstSource;
  for (TRun& Run : FRuns) Run.Source -= FFirstSource;
}

}  // namespace zav
