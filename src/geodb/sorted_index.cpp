// sorted_index.cpp - see sorted_index.h.
// SPDX-License-Identifier: MIT
#include <geodb/sorted_index.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace zav {
namespace {

// A number whose order is that of the floating-point values; both zeros are the same and NaN is
// above all.
uint32_t Order(float Value) noexcept {
  if (Value != Value) return UINT32_MAX;
  const uint32_t Bits = std::bit_cast<uint32_t>(Value + 0.0F);
  return (Bits & 0x80000000U) != 0 ? ~Bits : Bits | 0x80000000U;
}

}  // namespace

template <class TArray>
size_t InsertSorted(TArray& Entries, typename TArray::value_type Entry) noexcept {
  const size_t Used = Entries.size() - 1;
  const size_t Place = PlaceOf(Entries.data(), Used, KeyOf(Entry));
  std::memmove(Entries.data() + Place + 1, Entries.data() + Place, (Used - Place) * sizeof(Entry));
  Entries[Place] = Entry;
  return Place;
}

template <class TArray, class TKey>
std::optional<size_t> FindEntry(const TArray& Entries, size_t Count, TKey Key,
                                int32_t Position) noexcept {
  const size_t Used = std::min(Count, Entries.size());
  const size_t Place = PlaceOf(Entries.data(), Used, Key);
  for (size_t i = Place; i < Used && KeyOf(Entries[i]) == Key; ++i) {
    if (Entries[i].index == Position) return i;
  }
  for (size_t i = Place; i > 0 && KeyOf(Entries[i - 1]) == Key; --i) {
    if (Entries[i - 1].index == Position) return i - 1;
  }
  // A key that is NaN, or an index that is not in order.
  for (size_t i = 0; i < Used; ++i) {
    if (Entries[i].index == Position) return i;
  }
  return std::nullopt;
}

std::optional<size_t> FindId(const TIxItemIDRecArray& Entries, int32_t ItemID) noexcept {
  const size_t Count = Entries.size();
  if (Count == 0) return std::nullopt;
  const int64_t First = Entries[0].ItemID;
  const int64_t Span = int64_t{Entries[Count - 1].ItemID} - First;
  size_t Low = 0;
  size_t High = Count;
  if (Span > 0 && ItemID >= First && ItemID - First <= Span) {
    const auto Guess =
        static_cast<size_t>(static_cast<double>(ItemID - First) *
                            (static_cast<double>(Count - 1) / static_cast<double>(Span)));
    const size_t Place = std::min(Guess, Count - 1);
    if (Entries[Place].ItemID == ItemID) return Place;
    // Steps that double, until the identifier is enclosed.
    if (Entries[Place].ItemID < ItemID) {
      Low = Place + 1;
      for (size_t Step = 1; Place + Step < Count; Step *= 2) {
        if (Entries[Place + Step].ItemID >= ItemID) {
          High = Place + Step + 1;
          break;
        }
        Low = Place + Step + 1;
      }
    } else {
      High = Place;
      for (size_t Step = 1; Step <= Place; Step *= 2) {
        if (Entries[Place - Step].ItemID <= ItemID) {
          Low = Place - Step;
          break;
        }
        High = Place - Step;
      }
    }
  }
  const size_t Place = Low + PlaceOf(Entries.data() + Low, High - Low, ItemID);
  if (Place >= Count || Entries[Place].ItemID != ItemID) return std::nullopt;
  return Place;
}

size_t MergeInto(TIxLLRecArray& Entries, std::vector<TIxLLRec>& New) {
  SortEntries(New);
  size_t Old = Entries.size();
  size_t Rest = New.size();
  Entries.resize_raw(Old + Rest);
  size_t To = Entries.size();
  while (Rest > 0) {
    const uint32_t Key = Order(New[Rest - 1].LLValue);
    while (Old > 0 && Order(Entries[Old - 1].LLValue) > Key) Entries[--To] = Entries[--Old];
    Entries[--To] = New[--Rest];
  }
  return To;
}

void SortEntries(std::vector<TIxLLRec>& Entries) {
  constexpr size_t Few = 2000;
  if (Entries.size() < Few) {
    std::stable_sort(Entries.begin(), Entries.end(), [](const TIxLLRec& A, const TIxLLRec& B) {
      return Order(A.LLValue) < Order(B.LLValue);
    });
    return;
  }
  // By 11 bits of the key at a time, the lowest first.
  constexpr uint32_t Bits = 11;
  constexpr uint32_t Mask = (1U << Bits) - 1;
  std::array<std::array<uint32_t, Mask + 1>, 3> Starts = {};
  for (const TIxLLRec& Entry : Entries) {
    const uint32_t Key = Order(Entry.LLValue);
    for (uint32_t Pass = 0; Pass < 3; ++Pass) ++Starts[Pass][Key >> Pass * Bits & Mask];
  }
  std::vector<TIxLLRec> Other(Entries.size());
  for (uint32_t Pass = 0; Pass < 3; ++Pass) {
    uint32_t Sum = 0;
    for (uint32_t& Start : Starts[Pass]) {
      const uint32_t Count = Start;
      Start = Sum;
      Sum += Count;
    }
    for (const TIxLLRec& Entry : Entries) {
      Other[Starts[Pass][Order(Entry.LLValue) >> Pass * Bits & Mask]++] = Entry;
    }
    Entries.swap(Other);
  }
}

template size_t InsertSorted(TIxLLRecArray&, TIxLLRec) noexcept;
template size_t InsertSorted(TIxItemIDRecArray&, TIxItemIDRec) noexcept;
template std::optional<size_t> FindEntry(const TIxLLRecArray&, size_t, double, int32_t) noexcept;
template std::optional<size_t> FindEntry(const TIxItemIDRecArray&, size_t, int32_t,
                                         int32_t) noexcept;

}  // namespace zav
