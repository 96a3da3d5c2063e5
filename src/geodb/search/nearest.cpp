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

// --- how near a box can be, told quickly
//
// In squares of the sine of half the angle. By the haversine formula that of two positions is
// sin2(dLat / 2) + cos(Lat1) cos(Lat2) sin2(dLong / 2); each factor is replaced by its least value
// in the box, and sine and cosine by beginnings of their series that end with a negative term,
// which are never above them.

double SineAtLeast(double X) {
  const double Q = X * X;
  return X * (1 - Q / 6 * (1 - Q / 20 * (1 - Q / 42)));
}
double CosineAtLeast(double X) {
  const double Q = X * X;
  return std::max(0.0, 1 - Q / 2 * (1 - Q / 12 * (1 - Q / 30)));
}
double SquaredSine(double Metres) {
  const double Sine = std::sin(std::min(Metres / (2 * MeanEarthRadius), std::numbers::pi / 2));
  return Sine * Sine;
}

class TBound {
 public:
  TBound(double Lat, double Long) : FLat(Lat), FLong(Long), FCosine(CosineAtLeast(Lat * Radians)) {}
  double Of(const TGeoBox& Box) const {
    const double South = std::clamp<double>(Box.LatLow, -90, 90);
    const double North = std::clamp<double>(Box.LatHigh, -90, 90);
    const double Lat = SineAtLeast(std::max({South - FLat, FLat - North, 0.0}) * Radians / 2);
    const double Long = SineAtLeast(LongGap(Box.LongLow, Box.LongHigh) * Radians / 2);
    const double Cosine = CosineAtLeast(std::max(-South, North) * Radians);
    return Lat * Lat + FCosine * Cosine * Long * Long;
  }

 private:
  static constexpr double Radians = std::numbers::pi / 180;
  double LongGap(double West, double East) const {
    const double Width = East - West;
    if (!(Width >= 0 && Width < 360)) return 0;  // all longitudes, or a rare box across 180 degrees
    const double Turns = (West - FLong) / 360;
    const double Eastward = (Turns - std::floor(Turns)) * 360;
    return std::max(0.0, std::min(Eastward, 360 - Width - Eastward));
  }

  double FLat;
  double FLong;
  double FCosine;
};

class TNearestSearch {
 public:
  TNearestSearch(double Lat, double Long, size_t Count, const TBoxTree::TDistanceOf& DistanceOf)
      : FLat(std::clamp(Lat, -90.0, 90.0)),
        FLong(std::remainder(Long, 360.0)),
        FCount(Count),
        FDistanceOf(DistanceOf),
        FBound(FLat, FLong) {}

  void Look(const TPackedBoxes& Tree) { LookInto(Tree, Tree.TopLevel(), 0); }

  void Take(int32_t Id, const TGeoBox& Box) {
    TNearItem Item{Id, DistanceToBox(Box, FLat, FLong)};
    if (Item.Distance > FReach) return;
    if (FDistanceOf) Item.Distance = FDistanceOf(Id, Item.Distance);
    if (!std::isfinite(Item.Distance)) return;
    if (FNearest.size() == FCount) {
      if (!Before(Item, FNearest.front())) return;
      std::pop_heap(FNearest.begin(), FNearest.end(), Before);
      FNearest.pop_back();
    }
    FNearest.push_back(Item);
    std::push_heap(FNearest.begin(), FNearest.end(), Before);
    if (FNearest.size() == FCount) SetReach(FNearest.front().Distance);
  }

  std::vector<TNearItem> Result() {
    std::sort_heap(FNearest.begin(), FNearest.end(), Before);
    return std::move(FNearest);
  }

 private:
  struct TChild {
    double Bound;
    size_t Index;  // in its node
  };

  // Children in the order of their bounds, so that the far ones need not be looked into.
  void LookInto(const TPackedBoxes& Tree, size_t Level, size_t Index) {
    const TPackedBoxes::TNode& Node = Tree.Node(Level, Index);
    std::array<TChild, NodeSize> Children;
    size_t Count = 0;
    for (size_t i = 0; i < NodeSize; ++i) {
      const TGeoBox Box = Node.Box(i);
      if (IsEmptyBox(Box)) continue;
      const double Bound = FBound.Of(Box);
      if (Bound <= FReachBound) Children[Count++] = {Bound, i};
    }
    std::sort(Children.begin(), Children.begin() + Count,
              [](const TChild& A, const TChild& B) { return A.Bound < B.Bound; });
    for (size_t i = 0; i < Count && Children[i].Bound <= FReachBound; ++i) {
      const size_t Child = Index * NodeSize + Children[i].Index;
      if (Level > 0) {
        LookInto(Tree, Level - 1, Child);
      } else if (Tree.IsAlive(Child)) {
        Take(Tree.Id(Child), Node.Box(Children[i].Index));
      }
    }
  }

  // What is farther away than so many metres cannot matter. Rounding makes an error of much less
  // than a millimetre.
  void SetReach(double Metres) {
    FReach = Metres + 1e-3;
    FReachBound = SquaredSine(FReach);
  }

  double FLat;
  double FLong;
  size_t FCount;
  const TBoxTree::TDistanceOf& FDistanceOf;
  TBound FBound;
  double FReach = HUGE_VAL;
  double FReachBound = HUGE_VAL;
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
