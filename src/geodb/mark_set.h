// mark_set.h - a set of positions of records, a bit each.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_MARK_SET_H
#define ZAV_GEODB_MARK_SET_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace zav {

class TMarkSet {
 public:
  bool IsEmpty() const noexcept { return FCount == 0; }
  size_t Count() const noexcept { return FCount; }
  void Clear() noexcept {
    std::vector<uint64_t>().swap(FBits);
    FCount = 0;
  }
  void Mark(size_t Position) {
    const size_t Word = Position / 64;
    if (Word >= FBits.size()) FBits.resize(Word + 1 + Word / 8);
    const uint64_t Bit = uint64_t{1} << Position % 64;
    FCount += (FBits[Word] & Bit) == 0 ? 1 : 0;
    FBits[Word] |= Bit;
  }
  bool Has(size_t Position) const noexcept {
    const size_t Word = Position / 64;
    return Word < FBits.size() && (FBits[Word] >> Position % 64 & 1) != 0;
  }
  // Calls Take(Position) in ascending order.
  template <class TTake>
  void ForEach(TTake&& Take) const {
    for (size_t Word = 0; Word < FBits.size(); ++Word) {
      for (uint64_t Rest = FBits[Word]; Rest != 0; Rest &= Rest - 1) {
        Take(Word * 64 + static_cast<size_t>(std::countr_zero(Rest)));
      }
    }
  }

 private:
  std::vector<uint64_t> FBits;
  size_t FCount = 0;
};

}  // namespace zav

#endif
