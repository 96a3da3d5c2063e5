// nearest.cpp - the items nearest to a position, by branch and bound.
// SPDX-License-Identifier: MIT
#include <geodb/search/box_tree.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace zav {
namespace {

constexpr size_t NodeSize = TPackedBoxes::TNode::Size;

bool Before(const TNearItem& A, const TNearItem& B) noexcept {
  return A.Distance != B.Distance ? A.Distance < B.Distance : A.Id < B.Id;
}

class TNearestSearch {
 public:
  TNearestSearch(double Lat, double Long, size_t Count, const TBoxTree::TDistanceOf& DistanceOf)
      : FLat(std::clamp(Lat, -90.0, 90.0)), FLong(Long), FCount(Count), FDistanceOf(DistanceOf) {}

  void Look(const TPackedBoxes& Tree) { LookInto(Tree, Tree.TopLevel(), 0); }

  void Take(int32_t Id, const TGeoBox& Box) {
    if (IsFar(Box)) return;
    TakeAt(Id, DistanceToBox(Box, FLat, FLong));
  }

  std::vector<TNearItem> Result() {
    std::sort_heap(FNearest.begin(), FNearest.end(), Before);
    return std::move(FNearest);
  }

 private:
  struct TChild {
    double Distance;
    size_t Index;
  };

  // Children in the order of their distance, so that the far ones need not be looked into.
  void LookInto(const TPackedBoxes& Tree, size_t Level, size_t Index) {
    const TPackedBoxes::TNode& Node = Tree.Node(Level, Index);
    std::array<TChild, NodeSize> Children;
    size_t Count = 0;
    for (size_t i = 0; i < NodeSize; ++i) {
      const TGeoBox Box{Node.LatLow[i], Node.LatHigh[i], Node.LongLow[i], Node.LongHigh[i]};
      if (IsEmptyBox(Box) || IsFar(Box)) continue;
      Children[Count++] = {DistanceToBox(Box, FLat, FLong), Index * NodeSize + i};
    }
    std::sort(Children.begin(), Children.begin() + Count,
              [](const TChild& A, const TChild& B) { return A.Distance < B.Distance; });
    for (size_t i = 0; i < Count; ++i) {
      const TChild& Child = Children[i];
      if (Child.Distance > Reach()) return;
      if (Level > 0) {
        LookInto(Tree, Level - 1, Child.Index);
      } else if (Tree.IsAlive(Child.Index)) {
        TakeAt(Tree.Id(Child.Index), Child.Distance);
      }
    }
  }

  void TakeAt(int32_t Id, double BoxDistance) {
    TNearItem Item{Id, BoxDistance};
    if (BoxDistance > Reach()) return;
    if (FDistanceOf) Item.Distance = FDistanceOf(Id, BoxDistance);
    if (!std::isfinite(Item.Distance)) return;
    if (FNearest.size() == FCount) {
      if (!Before(Item, FNearest.front())) return;
      std::pop_heap(FNearest.begin(), FNearest.end(), Before);
      FNearest.pop_back();
    }
    FNearest.push_back(Item);
    std::push_heap(FNearest.begin(), FNearest.end(), Before);
  }

  // How far away a box may be to matter. Rounding may make the distance of a box greater than that
  // of one inside it, by much less than a millimetre.
  double Reach() const {
    return FNearest.size() < FCount ? HUGE_VAL : FNearest.front().Distance + 1e-3;
  }

  // Whether the latitudes alone tell that a box is too far away.
  bool IsFar(const TGeoBox& Box) const {
    constexpr double MetresPerDegree = MeanEarthRadius * std::numbers::pi / 180;
    const double Gap = std::max<double>(Box.LatLow - FLat, FLat - Box.LatHigh);
    return Gap * MetresPerDegree > Reach();
  }

  double FLat;
  double FLong;
  size_t FCount;
  const TBoxTree::TDistanceOf& FDistanceOf;
  std::vector<TNearItem> FNearest;  // a heap with the farthest on top
};

}  // namespace

std::vector<TNearItem> TBoxTree::Nearest(double Lat, double Long, size_t Count,
                                         const TDistanceOf& DistanceOf) const {
  if (Count == 0 || !std::isfinite(Lat) || !std::isfinite(Long)) return {};
  TNearestSearch Search(Lat, Long, Count, DistanceOf);
  for (const TBoxEntry& Entry : FNew) Search.Take(Entry.Id, Entry.Box);
  for (const TPackedBoxes& Tree : FTrees) Search.Look(Tree);
  return Search.Result();
}

}  // namespace zav
