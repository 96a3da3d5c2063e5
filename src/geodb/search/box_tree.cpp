// box_tree.cpp - changes of the trees. Nearness is in nearest.cpp.
// SPDX-License-Identifier: MIT
#include <geodb/search/box_tree.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace zav {
namespace {

// The most new items that searches look through one by one.
constexpr size_t MaxNew = 128;
// A tree is joined with the next larger one when this is less than so many times as large.
constexpr size_t Growth = 4;

}  // namespace

void TBoxTree::Assign(std::vector<TBoxEntry> Items) {
  Clear();
  std::erase_if(Items, [](const TBoxEntry& Item) { return IsEmptyBox(Item.Box); });
  if (!Items.empty()) FTrees.emplace_back(Items);
}

void TBoxTree::Clear() {
  FTrees.clear();
  FNew.clear();
}

void TBoxTree::Insert(int32_t Id, const TGeoBox& Box) {
  if (IsEmptyBox(Box)) return;
  FNew.push_back({Id, Box});
  if (FNew.size() < MaxNew) return;
  size_t First = FTrees.size();
  size_t Joined = FNew.size();
  while (First > 0 && FTrees[First - 1].Count() < Growth * Joined)
    Joined += FTrees[--First].Count();
  Pack(First);
}

// Makes one tree of the trees from First on and the new items.
void TBoxTree::Pack(size_t First) {
  size_t Total = FNew.size();
  for (size_t i = First; i < FTrees.size(); ++i) Total += FTrees[i].Count();
  std::vector<TBoxEntry> Items;
  Items.reserve(Total);
  for (size_t i = First; i < FTrees.size(); ++i) FTrees[i].AppendTo(Items);
  Items.insert(Items.end(), FNew.begin(), FNew.end());
  FTrees.reserve(First + 1);
  TPackedBoxes Tree(Items);
  FTrees.erase(FTrees.begin() + static_cast<std::ptrdiff_t>(First), FTrees.end());
  if (Tree.Count() > 0) FTrees.push_back(std::move(Tree));
  FNew.clear();
}

bool TBoxTree::Remove(int32_t Id, const TGeoBox& Box) {
  const TBoxEntry Wanted{Id, Box};
  const auto New = std::find(FNew.begin(), FNew.end(), Wanted);
  if (New != FNew.end()) {
    *New = FNew.back();
    FNew.pop_back();
    return true;
  }
  if (IsEmptyBox(Box)) return false;
  for (size_t i = 0; i < FTrees.size(); ++i) {
    if (!FTrees[i].Remove(Wanted)) continue;
    if (FTrees[i].Removed() > FTrees[i].Count()) Pack(i);
    return true;
  }
  return false;
}

size_t TBoxTree::Count() const noexcept {
  size_t Count = FNew.size();
  for (const TPackedBoxes& Tree : FTrees) Count += Tree.Count();
  return Count;
}

size_t TBoxTree::MemoryUsed() const noexcept {
  size_t Bytes = FNew.capacity() * sizeof(TBoxEntry) + FTrees.capacity() * sizeof(TPackedBoxes);
  for (const TPackedBoxes& Tree : FTrees) Bytes += Tree.MemoryUsed();
  return Bytes;
}

}  // namespace zav
