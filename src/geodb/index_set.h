// index_set.h - the five sorted indexes of a database in memory.
//
// Changes are entered at once, in the order that single operations give, or noted only, within an
// update: then positions whose record changed are marked, and the indexes are brought into order
// when somebody looks at them, by one pass and one merge. The identifiers are an exception, because
// every deletion looks for one: those whose record moved are noted in a table.
//
// Which part of each index differs from its file is known too, so that only it is written.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_INDEX_SET_H
#define ZAV_GEODB_INDEX_SET_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include <geodb/file_names.h>
#include <geodb/gdb_records.h>
#include <geodb/mark_set.h>
#include <platform/base/api.h>

namespace zav {

using TRecordTable = TRawArray<TgdbData>;

class ZAVGEO_API TIndexSet {
 public:
  static constexpr size_t CoordCount = IndexCount - 1;
  // Places of an index that differ from its file: First up to, not with, End.
  struct TRange {
    size_t First = 0;
    size_t End = 0;
    bool IsEmpty() const noexcept { return First >= End; }
  };

  // The arrays, in the order of the files: identifiers, then LatLow, LatHigh, LongLow, LongHigh.
  // Bring them into order before they are read.
  TIxItemIDRecArray Ids;
  std::array<TIxLLRecArray, CoordCount> Coords;

  // Forgets everything and gives the memory back.
  void Clear() noexcept;
  // The entries of an index as bytes in a file, and their number.
  void* Bytes(size_t Which) noexcept;
  size_t Count(size_t Which) const noexcept;
  // Makes room for an index that is then read into Bytes().
  void ResizeRaw(size_t Which, size_t Count);

  // ---- Changes entered at once. Count is the number of records.
  void AddEntry(int32_t Position, const TgdbData& Data);
  // Data is the record as it stands in the indexes.
  void ReplaceEntry(int32_t Position, const TgdbData& Old, const TgdbData& New, size_t Count);
  // Last is the record that takes the place of the deleted one, Count the number before.
  void DeleteEntry(int32_t Position, const TgdbData& Old, const TgdbData& Last, size_t Count);
  // The steps of these: into a spare last slot, nothing in an empty index; out, leaving one.
  void InsertIntoSpare(int32_t Position, const TgdbData& Data) noexcept;
  void RemoveToSpare(int32_t Position, const TgdbData& Data, size_t Count) noexcept;

  // ---- Changes noted only.
  void NoteAdded(int32_t Position, const TgdbData& Data);
  void NoteReplaced(int32_t Position, size_t Count);
  void NoteDeleted(int32_t Position, const TgdbData& Old, const TgdbData& Last, size_t Count);
  void BringInOrder(const TRecordTable& Records);

  // The position of an identifier, -1 for none; also while changes are noted only.
  int32_t FindItem(int32_t ItemID) const noexcept;

  // Whether an index has just the entries that it must have, in order.
  bool IsRight(size_t Which, const TRecordTable& Records) const;
  // Makes an index anew.
  void Rebuild(size_t Which, const TRecordTable& Records);

  const TRange& Changed(size_t Which) const noexcept { return FChanged[Which]; }
  void SetWritten(size_t Which) noexcept { FChanged[Which] = {}; }
  void NoteAllChanged(size_t Which) noexcept { FChanged[Which] = {0, Count(Which)}; }
  void SetAllChanged() noexcept;

 private:
  using TPlaces = std::array<size_t, IndexCount>;  // NoPlace: none
  static constexpr size_t NoPlace = static_cast<size_t>(-1);
  TPlaces Insert(int32_t Position, const TgdbData& Data) noexcept;
  TPlaces Remove(int32_t Position, const TgdbData& Data, size_t Count) noexcept;
  void NoteChanged(size_t Which, size_t First, size_t End) noexcept;
  void NoteTails(const TPlaces& Places) noexcept;
  void BeginNotes(size_t Count) noexcept;
  void BringIdsInOrder();
  void BringCoordInOrder(size_t Coord, const TRecordTable& Records);

  std::array<TRange, IndexCount> FChanged;
  // Of changes noted only: positions below FOrdered whose record is another now; all from FOrdered
  // on are new.
  TMarkSet FMarks;
  size_t FOrdered = 0;
  bool FPending = false;
  bool FIdsUnsorted = false;
  std::unordered_map<int32_t, int32_t> FMovedIds;  // where to; -1 when deleted
};

// The key of a record in the coordinate index 0 to 3.
ZAVGEO_API float CoordKey(const TgdbData& Data, size_t Coord) noexcept;

}  // namespace zav

#endif
