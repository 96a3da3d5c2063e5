// geo_db_indexes.cpp - see geo_db.h. The sorted indexes and records as they are given out.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <geodb/gdb_change.h>
#include <geodb/sorted_index.h>

namespace zav {
namespace {

// A position as the number that callers know. Damaged files may hold any.
int32_t FromOne(int32_t Position) noexcept {
  return static_cast<int32_t>(static_cast<uint32_t>(Position) + 1);
}

template <class TArray>
typename TArray::value_type EntryAt(const TArray& Entries, int32_t Place, int32_t NumEntries) {
  const int32_t Clamped = std::min(std::max(Place, 1), NumEntries);
  if (Clamped < 1 || static_cast<size_t>(Clamped) > Entries.size()) return {};
  typename TArray::value_type Entry = Entries[static_cast<size_t>(Clamped) - 1];
  Entry.index = FromOne(Entry.index);
  return Entry;
}

template <class TArray, class TKey>
int32_t ClosestPlace(const TArray& Entries, TKey Key) {
  return static_cast<int32_t>(PlaceOf(Entries.data(), Entries.size(), Key)) + 1;
}

}  // namespace

void TGeoDB::SortIxInto(TIxLLRecArray& Ix, TIxLLRec Rec) {
  if (!Ix.empty()) InsertSorted(Ix, Rec);
}

void TGeoDB::SortIxItemIDInto(TIxItemIDRecArray& Ix, TIxItemIDRec Rec) {
  if (!Ix.empty()) InsertSorted(Ix, Rec);
}

void TGeoDB::InsertIntoIndex(int32_t RecNo, const TgdbData& Data) {
  if (RecNo < 1 || RecNo > NumEntries()) return;
  FStore->Indexes().InsertIntoSpare(RecNo - 1, Data);
}

void TGeoDB::RemoveIndexEntries(int32_t RecNo) {
  if (RecNo < 1 || RecNo > NumEntries()) return;
  const TRecordTable& Records = FStore->Records();
  FStore->Indexes().RemoveToSpare(RecNo - 1, Records[static_cast<size_t>(RecNo) - 1],
                                  Records.size());
}

void TGeoDB::SaveIndex(int32_t Which) {
  if (Which < 0 || Which >= static_cast<int32_t>(IndexCount)) return;
  const auto Index = static_cast<size_t>(Which);
  if (IsOpen()) {
    Guarded("SaveIndex", [&] {
      TGdbChange Change(*this, "SaveIndex");
      FStore->SaveIndex(Index);
    });
  } else if (FKeepsNames) {
    TDbFile(FStore->Names().Index[Index], TFileAccess::UpdateOrCreate).Truncate(0);
  }
}

int32_t TGeoDB::GetClosestLatLowIx(double Value) {
  return ClosestPlace(FStore->Indexes().Coords[0], Value);
}
int32_t TGeoDB::GetClosestLatHighIx(double Value) {
  return ClosestPlace(FStore->Indexes().Coords[1], Value);
}
int32_t TGeoDB::GetClosestLongLowIx(double Value) {
  return ClosestPlace(FStore->Indexes().Coords[2], Value);
}
int32_t TGeoDB::GetClosestLongHighIx(double Value) {
  return ClosestPlace(FStore->Indexes().Coords[3], Value);
}
int32_t TGeoDB::GetClosestItemIDIx(int32_t ItemID) {
  return ClosestPlace(FStore->Indexes().Ids, ItemID);
}

int32_t TGeoDB::SearchForItemID(int32_t ItemID) const { return FromOne(FStore->FindItem(ItemID)); }

TIxItemIDRec TGeoDB::GetIxItemID(int32_t Place) {
  return EntryAt(FStore->Indexes().Ids, Place, NumEntries());
}
TIxLLRec TGeoDB::GetIxLatLow(int32_t Place) {
  return EntryAt(FStore->Indexes().Coords[0], Place, NumEntries());
}
TIxLLRec TGeoDB::GetIxLatHigh(int32_t Place) {
  return EntryAt(FStore->Indexes().Coords[1], Place, NumEntries());
}
TIxLLRec TGeoDB::GetIxLongLow(int32_t Place) {
  return EntryAt(FStore->Indexes().Coords[2], Place, NumEntries());
}
TIxLLRec TGeoDB::GetIxLongHigh(int32_t Place) {
  return EntryAt(FStore->Indexes().Coords[3], Place, NumEntries());
}

TgdbData TGeoDB::GetSumdata(int32_t RecNo) const {
  const int32_t Clamped = std::min(std::max(RecNo, 1), NumEntries());
  if (Clamped >= 1) return FStore->Records()[static_cast<size_t>(Clamped) - 1];
  TgdbData Empty;
  ClearGdbData(Empty);
  return Empty;
}

}  // namespace zav
