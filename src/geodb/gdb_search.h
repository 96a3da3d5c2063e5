// gdb_search.h - the search structures of a database: built when first asked for, then kept right.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_GDB_SEARCH_H
#define ZAV_GEODB_GDB_SEARCH_H

#include <cstdint>
#include <optional>

#include <geodb/index_set.h>
#include <geodb/search/box_tree.h>
#include <geodb/search/name_index.h>
#include <platform/base/api.h>

namespace zav {

// Identifiers in the structures are positions of records, from 0.
class ZAVGEO_API TGdbSearch {
 public:
  void Clear() noexcept;
  const TBoxTree& Boxes(const TRecordTable& Records);
  const TNameIndex& Names(const TRecordTable& Records);

  // A structure that cannot follow for want of memory is forgotten.
  void Added(int32_t Position, const TgdbData& Data) noexcept;
  void Replaced(int32_t Position, const TgdbData& Old, const TgdbData& New) noexcept;
  // Last is the record at LastPosition, which takes the place of the deleted one.
  void Deleted(int32_t Position, const TgdbData& Old, int32_t LastPosition,
               const TgdbData& Last) noexcept;

 private:
  template <class TWork>
  void Follow(TWork&& Work) noexcept;
  void Insert(int32_t Position, const TgdbData& Data);
  void Remove(int32_t Position, const TgdbData& Data);

  std::optional<TBoxTree> FBoxes;
  std::optional<TNameIndex> FNames;
};

ZAVGEO_API TGeoBox BoxOf(const TgdbData& Data) noexcept;

}  // namespace zav

#endif
