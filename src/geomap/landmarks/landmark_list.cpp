// landmark_list.cpp - see landmark_list.h.
// SPDX-License-Identifier: MIT
#include <geomap/landmarks/landmark_list.h>

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

namespace zav {

int32_t TLandMarkList::Allocated() const noexcept {
  return static_cast<int32_t>(std::max<size_t>(FBlocks.size(), 1)) * BlockSize;
}

const TLandMark& TLandMarkList::operator[](int32_t Index) const noexcept {
  static const TLandMark None;
  if (Index < 1 || Index > FCount) return None;
  return FBlocks[BlockOf(Index)]->Records[PlaceOf(Index)];
}

TLandMarkList::TBlock& TLandMarkList::Own(size_t Block) {
  std::shared_ptr<TBlock>& Own = FBlocks[Block];
  if (Own.use_count() > 1) Own = std::make_shared<TBlock>(*Own);
  ++Own->Version;
  return *Own;
}

void TLandMarkList::Append(const TLandMark& LandMark) {
  // The room is counted in whole blocks, which must be a number, too.
  constexpr int32_t MostBlocks = std::numeric_limits<int32_t>::max() / BlockSize;
  const size_t Block = static_cast<size_t>(FCount) / BlockSize;
  if (Block >= static_cast<size_t>(MostBlocks)) throw std::bad_alloc();
  if (Block == FBlocks.size()) FBlocks.push_back(std::make_shared<TBlock>());
  Own(Block).Records.push_back(LandMark);
  ++FCount;
}

void TLandMarkList::Replace(int32_t Index, const TLandMark& LandMark) {
  TLandMark Copy = LandMark;
  Own(BlockOf(Index)).Records[PlaceOf(Index)] = std::move(Copy);
}

void TLandMarkList::Remove(int32_t Index) {
  Own(BlockOf(FCount));
  Own(BlockOf(Index));
  if (Index != FCount) Record(Index) = std::move(Record(FCount));
  CutTo(FCount - 1);
}

void TLandMarkList::RemoveMarked(std::vector<bool>& Marked) {
  const auto IsMarked = [&](int32_t Index) { return Marked[static_cast<size_t>(Index - 1)]; };
  int32_t Low = 1;
  while (Low <= FCount && !IsMarked(Low)) ++Low;
  if (Low > FCount) return;
  const auto Stays =
      FCount - static_cast<int32_t>(std::count(Marked.begin(), Marked.begin() + FCount, true));
  if (Stays == 0) return Clear();
  // Blocks that lose or get records must be own ones; the others stay shared.
  for (size_t Block = BlockOf(Low); Block <= BlockOf(FCount); ++Block) {
    const auto First = static_cast<ptrdiff_t>(Block * BlockSize);
    const auto End = std::min<ptrdiff_t>(First + BlockSize, FCount);
    if (End > Stays || std::count(Marked.begin() + First, Marked.begin() + End, true) > 0) {
      Own(Block);
    }
  }
  int32_t High = FCount;
  for (;;) {
    while (Low <= FCount && !IsMarked(Low)) ++Low;
    while (High >= 1 && IsMarked(High)) --High;
    if (High < Low) break;
    Record(Low) = std::move(Record(High));
    Marked[static_cast<size_t>(High - 1)] = true;
    Marked[static_cast<size_t>(Low - 1)] = false;
  }
  CutTo(High);
}

// The blocks that lose records must be own ones.
void TLandMarkList::CutTo(int32_t Count) noexcept {
  if (Count == 0) return Clear();
  for (size_t Block = BlockOf(FCount); Block > BlockOf(Count); --Block) {
    FBlocks[Block]->Records.clear();
  }
  std::vector<TLandMark>& Last = FBlocks[BlockOf(Count)]->Records;
  Last.erase(Last.begin() + static_cast<ptrdiff_t>(PlaceOf(Count)) + 1, Last.end());
  FCount = Count;
}

void TLandMarkList::Clear() noexcept {
  FBlocks.clear();
  FCount = 0;
}

bool operator==(const TLandMarkList& A, const TLandMarkList& B) noexcept {
  if (A.FCount != B.FCount) return false;
  for (size_t I = 0; I < std::min(A.FBlocks.size(), B.FBlocks.size()); ++I) {
    if (A.FBlocks[I] != B.FBlocks[I] && A.FBlocks[I]->Records != B.FBlocks[I]->Records)
      return false;
  }
  return true;
}

}  // namespace zav
