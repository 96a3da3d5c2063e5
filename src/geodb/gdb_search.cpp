// gdb_search.cpp - see gdb_search.h.
// SPDX-License-Identifier: MIT
#include <geodb/gdb_search.h>

#include <vector>

namespace zav {

TGeoBox BoxOf(const TgdbData& Data) noexcept {
  return {Data.LatLow, Data.LatHigh, Data.LongLow, Data.LongHigh};
}

void TGdbSearch::Clear() noexcept {
  FBoxes.reset();
  FNames.reset();
}

const TBoxTree& TGdbSearch::Boxes(const TRecordTable& Records) {
  if (!FBoxes) {
    std::vector<TBoxEntry> Entries(Records.size());
    for (size_t i = 0; i < Records.size(); ++i) {
      Entries[i] = {static_cast<int32_t>(i), BoxOf(Records[i])};
    }
    TBoxTree Tree;
    Tree.Assign(std::move(Entries));
    FBoxes = std::move(Tree);
  }
  return *FBoxes;
}

const TNameIndex& TGdbSearch::Names(const TRecordTable& Records) {
  if (!FNames) {
    TNameIndex Names;
    size_t Next = 0;
    Names.Assign([&](int32_t& Id, std::string_view& Name) {
      if (Next == Records.size()) return false;
      Id = static_cast<int32_t>(Next);
      Name = Records[Next++].Name.View();
      return true;
    });
    FNames = std::move(Names);
  }
  return *FNames;
}

template <class TWork>
void TGdbSearch::Follow(TWork&& Work) noexcept {
  if (!FBoxes && !FNames) return;
  try {
    Work();
  } catch (...) {
    Clear();
  }
}

void TGdbSearch::Insert(int32_t Position, const TgdbData& Data) {
  if (FBoxes) FBoxes->Insert(Position, BoxOf(Data));
  if (FNames) FNames->Insert(Position, Data.Name.View());
}

void TGdbSearch::Remove(int32_t Position, const TgdbData& Data) {
  if (FBoxes) FBoxes->Remove(Position, BoxOf(Data));
  if (FNames) FNames->Remove(Position, Data.Name.View());
}

void TGdbSearch::Added(int32_t Position, const TgdbData& Data) noexcept {
  Follow([&] { Insert(Position, Data); });
}

void TGdbSearch::Replaced(int32_t Position, const TgdbData& Old, const TgdbData& New) noexcept {
  Follow([&] {
    Remove(Position, Old);
    Insert(Position, New);
  });
}

void TGdbSearch::Deleted(int32_t Position, const TgdbData& Old, int32_t LastPosition,
                         const TgdbData& Last) noexcept {
  Follow([&] {
    Remove(Position, Old);
    if (Position == LastPosition) return;
    Remove(LastPosition, Last);
    Insert(Position, Last);
  });
}

}  // namespace zav
