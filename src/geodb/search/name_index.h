/// @file
/// name_index.h - names of items, found without regard to case and accents.
///
/// Names are compared in the form that SearchKey gives (platform/base/text.h). These keys lie
/// sorted in one block of memory: a prefix is found by bisection, a part by looking through the
/// block. New names wait in a list of their own, removed ones are marked, until so many have
/// changed that the block is made anew.
///
/// Searches change nothing, so several threads may search at once while none changes the index.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_SEARCH_NAME_INDEX_H
#define ZAV_GEODB_SEARCH_NAME_INDEX_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <platform/base/api.h>

namespace zav {

/// What of a name must be the searched text.
enum class TNameMatch {
  nmWhole,   ///< all of it
  nmPrefix,  ///< its beginning
  nmPart     ///< any part of it
};

/// Names with identifiers.
class ZAVGEO_API TNameIndex {
 public:
  /// Gives the next item; false when there are no more. The name must stay until the next call.
  using TNextName = std::function<bool(int32_t& Id, std::string_view& Name)>;

  /// Forgets all items and takes these. Faster than adding them one by one. Items without a name
  /// are left out here and in Insert: no search finds them.
  void Assign(const TNextName& Next);
  /// Forgets all items.
  void Clear();

  /// Identifiers may be any number, and need not differ.
  void Insert(int32_t Id, std::string_view Name);
  /// Takes out one item with this identifier and a name of the same key; false when there is none.
  bool Remove(int32_t Id, std::string_view Name);

  /// The number of items with a name.
  size_t Count() const noexcept;
  /// Bytes of memory in use.
  size_t MemoryUsed() const noexcept;

  /// The items whose names match Text, sorted by key and identifier; at most Limit. An empty text
  /// finds nothing.
  std::vector<int32_t> Find(std::string_view Text, TNameMatch Match, size_t Limit = SIZE_MAX) const;

 private:
  static constexpr size_t KeysPerStart = 16;
  // A key of FNewKeys.
  struct TNewName {
    uint64_t Beginning = 0;  // its first eight bytes as a number that sorts like them
    size_t Start = 0;
    int32_t Id = 0;
  };
  struct THit {
    std::string_view Key;
    int32_t Id = 0;
    friend bool operator<(const THit& A, const THit& B) noexcept {
      return A.Key != B.Key ? A.Key < B.Key : A.Id < B.Id;
    }
  };

  // A name of the block.
  struct TCursor {
    size_t Start = 0;
    size_t Item = 0;
  };

  void AddNew(int32_t Id, std::string_view Name);
  void Pack();
  std::string_view KeyAt(size_t Start) const { return FKeys.c_str() + Start; }
  std::string_view NewKey(const TNewName& Name) const { return FNewKeys.c_str() + Name.Start; }
  bool IsAlive(size_t Item) const {
    return FDead.empty() || (FDead[Item / 64] >> Item % 64 & 1) == 0;
  }
  void Step(TCursor& At) const;
  TCursor Before(const THit& Wanted) const;
  void FindSorted(std::string_view Text, TNameMatch Match, size_t Limit,
                  std::vector<THit>& Hits) const;
  void FindParts(std::string_view Text, size_t Limit, std::vector<THit>& Hits) const;

  std::string FKeys;            // sorted by key and identifier, each ended by a zero byte
  std::vector<size_t> FStarts;  // of each KeysPerStart-th key
  std::vector<int32_t> FIds;    // of the items, in the order of their keys
  std::vector<uint64_t> FDead;  // a bit for each of them, empty until one is removed
  size_t FRemoved = 0;
  std::string FNewKeys;  // the same in the order of coming
  std::vector<TNewName> FNew;
};

}  // namespace zav

#endif
