// index_set.cpp - see index_set.h.
// SPDX-License-Identifier: MIT
#include <geodb/index_set.h>

#include <algorithm>
#include <cstring>

#include <geodb/sorted_index.h>

namespace zav {
namespace {

constexpr auto KeyFields =
    std::array{&TgdbData::LatLow, &TgdbData::LatHigh, &TgdbData::LongLow, &TgdbData::LongHigh};

// Whether each record has one entry with its key, and keys ascend.
template <class TArray, class TKeyOfRecord>
bool EntriesAreRight(const TArray& Entries, const TRecordTable& Records, TKeyOfRecord KeyOfRecord) {
  if (Entries.size() != Records.size()) return false;
  TMarkSet Seen;
  for (size_t i = 0; i < Entries.size(); ++i) {
    const auto& Entry = Entries[i];
    if (i > 0 && KeyOf(Entries[i - 1]) > KeyOf(Entry)) return false;
    const auto Position = static_cast<size_t>(static_cast<uint32_t>(Entry.index));
    if (Position >= Records.size() || Seen.Has(Position)) return false;
    Seen.Mark(Position);
    const auto Key = KeyOfRecord(Records[Position]);
    const auto Found = KeyOf(Entry);
    if (Found != Key && (Found == Found || Key == Key)) return false;  // NaN agrees with NaN
  }
  return true;
}

// Takes an entry out and leaves the last slot spare; where it was.
template <class TArray, class TKey>
size_t RemoveOne(TArray& Entries, size_t Count, TKey Key, int32_t Position) noexcept {
  const std::optional<size_t> Place = FindEntry(Entries, Count, Key, Position);
  if (!Place) return static_cast<size_t>(-1);
  const size_t Used = std::min(Count, Entries.size());
  std::memmove(Entries.data() + *Place, Entries.data() + *Place + 1,
               (Used - *Place - 1) * sizeof(Entries[0]));
  return *Place;
}

}  // namespace

float CoordKey(const TgdbData& Data, size_t Coord) noexcept { return Data.*KeyFields[Coord]; }

void TIndexSet::Clear() noexcept {
  Ids.release();
  for (TIxLLRecArray& Coord : Coords) Coord.release();
  FChanged = {};
  FMarks.Clear();
  FOrdered = 0;
  FPending = false;
  FIdsUnsorted = false;
  FMovedIds.clear();
}

void* TIndexSet::Bytes(size_t Which) noexcept {
  return Which == 0 ? static_cast<void*>(Ids.data()) : Coords[Which - 1].data();
}

size_t TIndexSet::Count(size_t Which) const noexcept {
  return Which == 0 ? Ids.size() : Coords[Which - 1].size();
}

void TIndexSet::ResizeRaw(size_t Which, size_t Count) {
  if (Which == 0) {
    Ids.resize_raw(Count);
  } else {
    Coords[Which - 1].resize_raw(Count);
  }
}

void TIndexSet::NoteChanged(size_t Which, size_t First, size_t End) noexcept {
  TRange& Range = FChanged[Which];
  Range = Range.IsEmpty() ? TRange{First, End}
                          : TRange{std::min(Range.First, First), std::max(Range.End, End)};
}

void TIndexSet::SetAllChanged() noexcept {
  for (size_t i = 0; i < IndexCount; ++i) NoteAllChanged(i);
}

void TIndexSet::AddEntry(int32_t Position, const TgdbData& Data) {
  // All room first, so that either all indexes grow or none does.
  Ids.reserve(Ids.size() + 1);
  for (TIxLLRecArray& Coord : Coords) Coord.reserve(Coord.size() + 1);
  Ids.resize_raw(Ids.size() + 1);
  for (TIxLLRecArray& Coord : Coords) Coord.resize_raw(Coord.size() + 1);
  NoteTails(Insert(Position, Data));
}

TIndexSet::TPlaces TIndexSet::Insert(int32_t Position, const TgdbData& Data) noexcept {
  TPlaces Places;
  Places[0] = Ids.empty() ? NoPlace : InsertSorted(Ids, {Data.ItemId, Position});
  for (size_t i = 0; i < CoordCount; ++i) {
    Places[i + 1] =
        Coords[i].empty() ? NoPlace : InsertSorted(Coords[i], {CoordKey(Data, i), Position});
  }
  return Places;
}

TIndexSet::TPlaces TIndexSet::Remove(int32_t Position, const TgdbData& Data,
                                     size_t Count) noexcept {
  TPlaces Places;
  Places[0] = RemoveOne(Ids, Count, Data.ItemId, Position);
  for (size_t i = 0; i < CoordCount; ++i) {
    const double Key = CoordKey(Data, i);
    Places[i + 1] = RemoveOne(Coords[i], Count, Key, Position);
  }
  return Places;
}

void TIndexSet::NoteTails(const TPlaces& Places) noexcept {
  for (size_t i = 0; i < IndexCount; ++i) {
    if (Places[i] != NoPlace) NoteChanged(i, Places[i], Count(i));
  }
}

void TIndexSet::InsertIntoSpare(int32_t Position, const TgdbData& Data) noexcept {
  NoteTails(Insert(Position, Data));
}

void TIndexSet::RemoveToSpare(int32_t Position, const TgdbData& Data, size_t Count) noexcept {
  NoteTails(Remove(Position, Data, Count));
}

void TIndexSet::ReplaceEntry(int32_t Position, const TgdbData& Old, const TgdbData& New,
                             size_t Count) {
  const TPlaces From = Remove(Position, Old, Count);
  const TPlaces To = Insert(Position, New);
  for (size_t i = 0; i < IndexCount; ++i) {
    // An index without the old entry lost its last one instead.
    const size_t Removed = From[i] == NoPlace ? this->Count(i) : From[i];
    if (To[i] != NoPlace) {
      NoteChanged(i, std::min(Removed, To[i]), std::max(Removed, To[i]) + 1);
    }
  }
}

void TIndexSet::DeleteEntry(int32_t Position, const TgdbData& Old, const TgdbData& Last,
                            size_t Count) {
  NoteTails(Remove(Position, Old, Count));
  const auto LastPosition = static_cast<int32_t>(Count - 1);
  if (const auto Place = FindEntry(Ids, Count, Last.ItemId, LastPosition)) {
    Ids[*Place].index = Position;
    NoteChanged(0, *Place, *Place + 1);
  }
  for (size_t i = 0; i < CoordCount; ++i) {
    const double Key = CoordKey(Last, i);
    if (const auto Place = FindEntry(Coords[i], Count, Key, LastPosition)) {
      Coords[i][*Place].index = Position;
      NoteChanged(i + 1, *Place, *Place + 1);
    }
  }
  if (Ids.size() >= Count) Ids.resize_raw(Count - 1);
  for (TIxLLRecArray& Coord : Coords) {
    if (Coord.size() >= Count) Coord.resize_raw(Count - 1);
  }
}

void TIndexSet::BeginNotes(size_t Count) noexcept {
  if (!FPending) FOrdered = Count;
  FPending = true;
}

void TIndexSet::NoteAdded(int32_t Position, const TgdbData& Data) {
  BeginNotes(static_cast<size_t>(Position));
  if (!Ids.empty() && Ids.back().ItemID >= Data.ItemId) FIdsUnsorted = true;
  NoteChanged(0, Ids.size(), Ids.size() + 1);
  Ids.push_back({Data.ItemId, Position});
}

void TIndexSet::NoteReplaced(int32_t Position, size_t Count) {
  BeginNotes(Count);
  FMarks.Mark(static_cast<size_t>(Position));
}

void TIndexSet::NoteDeleted(int32_t Position, const TgdbData& Old, const TgdbData& Last,
                            size_t Count) {
  BeginNotes(Count);
  FMarks.Mark(static_cast<size_t>(Position));
  FMarks.Mark(Count - 1);
  FMovedIds[Last.ItemId] = Position;
  FMovedIds[Old.ItemId] = -1;
  // The table stays small beside the index, and making the index anew is cheap a record.
  if (FMovedIds.size() > 1000 + Ids.size() / 16) BringIdsInOrder();
}

int32_t TIndexSet::FindItem(int32_t ItemID) const noexcept {
  if (!FMovedIds.empty()) {
    if (const auto Moved = FMovedIds.find(ItemID); Moved != FMovedIds.end()) return Moved->second;
  }
  if (FIdsUnsorted) {
    for (const TIxItemIDRec& Entry : Ids) {
      if (Entry.ItemID == ItemID) return Entry.index;
    }
    return -1;
  }
  const auto Place = FindId(Ids, ItemID);
  return Place ? Ids[*Place].index : -1;
}

void TIndexSet::BringIdsInOrder() {
  if (!FMovedIds.empty()) {
    size_t To = 0;
    for (size_t i = 0; i < Ids.size(); ++i) {
      TIxItemIDRec Entry = Ids[i];
      if (const auto Moved = FMovedIds.find(Entry.ItemID); Moved != FMovedIds.end()) {
        if (Moved->second < 0) {
          NoteChanged(0, To, Ids.size());
          continue;
        }
        Entry.index = Moved->second;
        NoteChanged(0, To, To + 1);
      }
      Ids[To++] = Entry;
    }
    Ids.resize_raw(To);
    FMovedIds.clear();
  }
  if (FIdsUnsorted) {
    std::stable_sort(Ids.begin(), Ids.end(), [](const TIxItemIDRec& A, const TIxItemIDRec& B) {
      return A.ItemID < B.ItemID;
    });
    NoteChanged(0, 0, Ids.size());
    FIdsUnsorted = false;
  }
}

void TIndexSet::BringCoordInOrder(size_t Coord, const TRecordTable& Records) {
  TIxLLRecArray& Entries = Coords[Coord];
  size_t First = Entries.size();
  if (!FMarks.IsEmpty()) {
    size_t To = 0;
    for (size_t i = 0; i < Entries.size(); ++i) {
      const TIxLLRec Entry = Entries[i];
      if (FMarks.Has(static_cast<uint32_t>(Entry.index))) {
        First = std::min(First, To);
      } else {
        Entries[To++] = Entry;
      }
    }
    Entries.resize_raw(To);
  }
  std::vector<TIxLLRec> New;
  const size_t NewFrom = std::min(FOrdered, Records.size());
  New.reserve(FMarks.Count() + Records.size() - NewFrom);
  FMarks.ForEach([&](size_t Position) {
    if (Position >= NewFrom) return;
    New.push_back({CoordKey(Records[Position], Coord), static_cast<int32_t>(Position)});
  });
  for (size_t Position = NewFrom; Position < Records.size(); ++Position) {
    New.push_back({CoordKey(Records[Position], Coord), static_cast<int32_t>(Position)});
  }
  if (!New.empty()) First = std::min(First, MergeInto(Entries, New));
  NoteChanged(Coord + 1, First, Entries.size());
}

void TIndexSet::BringInOrder(const TRecordTable& Records) {
  if (!FPending) return;
  BringIdsInOrder();
  for (size_t i = 0; i < CoordCount; ++i) BringCoordInOrder(i, Records);
  FMarks.Clear();
  FPending = false;
}

bool TIndexSet::IsRight(size_t Which, const TRecordTable& Records) const {
  if (Which == 0) {
    return EntriesAreRight(Ids, Records, [](const TgdbData& Data) { return Data.ItemId; });
  }
  const size_t Coord = Which - 1;
  return EntriesAreRight(Coords[Coord], Records, [Coord](const TgdbData& Data) {
    return static_cast<double>(CoordKey(Data, Coord));
  });
}

void TIndexSet::Rebuild(size_t Which, const TRecordTable& Records) {
  if (Which == 0) {
    Ids.resize_raw(Records.size());
    for (size_t i = 0; i < Records.size(); ++i) {
      Ids[i] = {Records[i].ItemId, static_cast<int32_t>(i)};
    }
    const auto ById = [](const TIxItemIDRec& A, const TIxItemIDRec& B) {
      return A.ItemID < B.ItemID;
    };
    if (!std::is_sorted(Ids.begin(), Ids.end(), ById)) {
      std::stable_sort(Ids.begin(), Ids.end(), ById);
    }
  } else {
    std::vector<TIxLLRec> New(Records.size());
    for (size_t i = 0; i < Records.size(); ++i) {
      New[i] = {CoordKey(Records[i], Which - 1), static_cast<int32_t>(i)};
    }
    SortEntries(New);
    Coords[Which - 1].clear();
    Coords[Which - 1].append(New.data(), New.size());
  }
  NoteAllChanged(Which);
}

}  // namespace zav
