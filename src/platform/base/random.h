/// @file
/// random.h - random numbers that can be repeated.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_RANDOM_H
#define ZAV_PLATFORM_BASE_RANDOM_H

#include <cstdint>

namespace zav {

/// The same seed gives the same numbers on every machine. Not for secrets. Generator: SplitMix64
/// (G. L. Steele, D. Lea, C. H. Flood, Fast splittable pseudorandom number generators, OOPSLA
/// 2014).
class TRandom {
 public:
  /// A generator that begins with the seed.
  explicit TRandom(uint64_t Seed = 0) noexcept : FState(Seed) {}

  /// Begins anew with the seed.
  void SetSeed(uint64_t Seed) noexcept { FState = Seed; }

  /// As Count calls of Next, at once.
  void Skip(uint64_t Count) noexcept { FState += Count * Step; }

  /// The next number, all 64 bits evenly spread.
  uint64_t Next() noexcept {
    FState += Step;
    uint64_t z = FState;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31);
  }

  /// Evenly spread, 0 <= result < 1.
  double NextDouble() noexcept { return static_cast<double>(Next() >> 11) * 0x1p-53; }

 private:
  static constexpr uint64_t Step = 0x9E3779B97F4A7C15U;
  uint64_t FState;
};

/// True with the given probability; never at 0 or below, always at 1 or above.
inline bool BRandom(TRandom& Random, double Probability) noexcept {
  return Random.NextDouble() < Probability;
}

}  // namespace zav

#endif
