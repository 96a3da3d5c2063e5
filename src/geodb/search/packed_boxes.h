// packed_boxes.h - a tree of boxes that is built once.
//
// The items lie in the order in which a Hilbert curve passes the middles of their boxes, so
// neighbours in the order are neighbours on the map (I. Kamel and C. Faloutsos, On Packing R-trees,
// Proceedings of CIKM 1993). Sixteen of them form a node, sixteen nodes a node of the level above.
// The place of an item follows from its box, so removing needs no table of places.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_SEARCH_PACKED_BOXES_H
#define ZAV_GEODB_SEARCH_PACKED_BOXES_H

#include <geodb/search/geo_box.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace zav {

struct TBoxEntry {
  int32_t Id = 0;
  TGeoBox Box;
  friend bool operator==(const TBoxEntry&, const TBoxEntry&) = default;
};

// Boxes that a closed point list around a position can have; see TBoxTree::VisitAround.
class TPositionTest {
 public:
  TPositionTest(double Lat, double Long) noexcept : FPosition(TGeoRegion{Lat, Long, Lat, Long}) {}
  bool IsEmpty() const noexcept { return FPosition.IsEmpty(); }
  bool Meets(float LatLow, float LatHigh, float LongLow, float LongHigh) const noexcept {
    return (LongHigh - LongLow > 180) | FPosition.Meets(LatLow, LatHigh, LongLow, LongHigh);
  }

 private:
  TRegionTest FPosition;
};

class TPackedBoxes {
 public:
  // Sixteen boxes. Unused ones are NaN, which passes no test.
  struct TNode {
    static constexpr size_t Size = 16;
    std::array<float, Size> LatLow, LatHigh, LongLow, LongHigh;
  };

  // Entries must have boxes that are not empty.
  explicit TPackedBoxes(const std::vector<TBoxEntry>& Entries);

  // Items that were not removed, and those that were.
  size_t Count() const noexcept { return FIds.size() - FRemoved; }
  size_t Removed() const noexcept { return FRemoved; }
  size_t MemoryUsed() const noexcept;

  // Marks one item with this identifier and box as removed; false when there is none.
  bool Remove(const TBoxEntry& Entry);
  // Appends the items that were not removed.
  void AppendTo(std::vector<TBoxEntry>& Entries) const;

  // Calls Visit(Id) -> bool for each item whose box passes the test; false ends it and is returned.
  // The test must let every box pass that encloses one that passes.
  template <class TTest, class TVisit>
  bool Visit(const TTest& Test, TVisit& Visit) const {
    return VisitNode(FLevels.size() - 1, 0, Test, Visit);
  }

  // For searches of other orders: levels from the items (0) up, and the nodes of a level. The boxes
  // of node N of a level are those of the nodes N * 16 to N * 16 + 15 of the level below, or of the
  // items with these numbers.
  size_t TopLevel() const noexcept { return FLevels.size() - 1; }
  const TNode& Node(size_t Level, size_t Index) const { return FNodes[FLevels[Level] + Index]; }
  int32_t Id(size_t Item) const { return FIds[Item]; }
  bool IsAlive(size_t Item) const {
    return Item < FIds.size() && (FDead.empty() || (FDead[Item / 64] >> Item % 64 & 1) == 0);
  }

 private:
  template <class TTest, class TVisit>
  bool VisitNode(size_t Level, size_t Index, const TTest& Test, TVisit& Visit) const {
    const TNode& Boxes = Node(Level, Index);
    std::array<uint8_t, TNode::Size> Passed;
    size_t Count = 0;
    for (size_t i = 0; i < TNode::Size; ++i) {  // without branches
      Passed[Count] = static_cast<uint8_t>(i);
      Count += Test.Meets(Boxes.LatLow[i], Boxes.LatHigh[i], Boxes.LongLow[i], Boxes.LongHigh[i]);
    }
    for (size_t i = 0; i < Count; ++i) {
      const size_t Child = Index * TNode::Size + Passed[i];
      if (Level > 0) {
        if (!VisitNode(Level - 1, Child, Test, Visit)) return false;
      } else if (IsAlive(Child) && !Visit(FIds[Child])) {
        return false;
      }
    }
    return true;
  }
  TBoxEntry Entry(size_t Item) const;
  void AddLevel();

  std::vector<TNode> FNodes;    // level after level, the items' first
  std::vector<size_t> FLevels;  // the first node of each level
  std::vector<int32_t> FIds;    // of the items
  std::vector<uint64_t> FDead;  // a bit for each item, empty until one is removed
  size_t FRemoved = 0;
};

}  // namespace zav

#endif
