// sorted_index.h - arrays of keys with the positions of their records, in ascending order.
//
// Positions here count from 0. Arrays of a damaged file need not be in order: every function then
// still stays within them.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_SORTED_INDEX_H
#define ZAV_GEODB_SORTED_INDEX_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include <geodb/gdb_records.h>
#include <platform/base/api.h>

namespace zav {

// The key of an entry, as it is compared.
inline double KeyOf(const TIxLLRec& Entry) noexcept { return Entry.LLValue; }
inline int32_t KeyOf(const TIxItemIDRec& Entry) noexcept { return Entry.ItemID; }

// Where a key belongs among the first Count entries: at an equal key, the first that the bisection
// meets, else behind all smaller ones.
template <class TEntry, class TKey>
size_t PlaceOf(const TEntry* Entries, size_t Count, TKey Key) noexcept {
  size_t Low = 0;
  size_t High = Count;  // one above the last that comes into question
  while (Low < High) {
    const size_t Middle = (Low + High - 1) / 2;
    const auto Found = KeyOf(Entries[Middle]);
    if (Key > Found) {
      Low = Middle + 1;
    } else if (Key == Found) {
      return Middle;
    } else {
      High = Middle;
    }
  }
  return Low;
}

// Inserts an entry into an array whose last slot is spare; where it went. The array must not be
// empty.
template <class TArray>
size_t InsertSorted(TArray& Entries, typename TArray::value_type Entry) noexcept;

// The place of the entry with this position, looked for at its key first; none when there is no
// such entry among the first Count.
template <class TArray, class TKey>
std::optional<size_t> FindEntry(const TArray& Entries, size_t Count, TKey Key,
                                int32_t Position) noexcept;

// The place of the first entry with this identifier, or none. The keys of a usual database rise
// evenly, so the place is guessed first.
ZAVGEO_API std::optional<size_t> FindId(const TIxItemIDRecArray& Entries, int32_t ItemID) noexcept;

// Puts entries in any order into a sorted array; the first place that changed.
ZAVGEO_API size_t MergeInto(TIxLLRecArray& Entries, std::vector<TIxLLRec>& New);

// Sorts entries; those with equal keys keep their order. NaN comes last.
ZAVGEO_API void SortEntries(std::vector<TIxLLRec>& Entries);

extern template size_t InsertSorted(TIxLLRecArray&, TIxLLRec) noexcept;
extern template size_t InsertSorted(TIxItemIDRecArray&, TIxItemIDRec) noexcept;
extern template std::optional<size_t> FindEntry(const TIxLLRecArray&, size_t, double,
                                                int32_t) noexcept;
extern template std::optional<size_t> FindEntry(const TIxItemIDRecArray&, size_t, int32_t,
                                                int32_t) noexcept;

}  // namespace zav

#endif
