/// @file
/// packed_boxes.h - a tree of boxes that is built once.
///
/// The items lie in the order in which a Hilbert curve passes the middles of their boxes, so
/// neighbours in the order are neighbours on the map (I. Kamel and C. Faloutsos, On Packing
/// R-trees, Proceedings of CIKM 1993). Sixteen of them form a node, sixteen nodes a node of the
/// level above. The place of an item follows from its box, so removing needs no table of places.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_SEARCH_PACKED_BOXES_H
#define ZAV_GEODB_SEARCH_PACKED_BOXES_H

#include <geodb/search/geo_box.h>
#include <platform/base/api.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace zav {

/// Vectors of the compiler (GCC and Clang): arithmetic on four numbers at once.
using TFourFloats = float __attribute__((vector_size(16)));
/// Four whole numbers.
using TFourWords = int32_t __attribute__((vector_size(16)));

/// An item and its box.
struct TBoxEntry {
  int32_t Id = 0;  ///< of the item
  TGeoBox Box;     ///< of the item
  friend bool operator==(const TBoxEntry&, const TBoxEntry&) = default;
};

/// Boxes that a closed point list around a position can have; see TBoxTree::VisitAround.
class TPositionTest {
 public:
  /// Degrees; a position that is not finite meets nothing.
  TPositionTest(double Lat, double Long) noexcept : FPosition(TGeoRegion{Lat, Long, Lat, Long}) {}
  /// Whether no box can pass.
  bool IsEmpty() const noexcept { return FPosition.IsEmpty(); }
  template <class T>
  /// Whether a box passes; for single numbers and for vectors of four.
  auto Meets(T LatLow, T LatHigh, T LongLow, T LongHigh) const noexcept {
    return (LongHigh - LongLow > 180.0F) | FPosition.Meets(LatLow, LatHigh, LongLow, LongHigh);
  }

 private:
  TRegionTest FPosition;
};

/// A tree of boxes that is built once; items can be taken out, not added.
class ZAVGEO_API TPackedBoxes {
 public:
  /// Sixteen boxes. Unused ones are NaN, which passes no test.
  struct alignas(64) TNode {
    static constexpr size_t Size = 16;  ///< boxes in a node
    std::array<float, Size> LatLow;     ///< southern edges, degrees
    std::array<float, Size> LatHigh;    ///< northern edges
    std::array<float, Size> LongLow;    ///< western edges
    std::array<float, Size> LongHigh;   ///< eastern edges

    /// One of the boxes.
    TGeoBox Box(size_t Index) const {
      return {LatLow[Index], LatHigh[Index], LongLow[Index], LongHigh[Index]};
    }
    /// A bit for each box that passes the test, the lowest for the first; four boxes at a time.
    template <class TTest>
    uint32_t Passing(const TTest& Test) const noexcept {
      TFourWords Passed{};
      TFourWords Bits{1, 2, 4, 8};
      for (size_t i = 0; i < Size; i += 4, Bits <<= 4)
        Passed |= Bits & Test.Meets(Four(LatLow, i), Four(LatHigh, i), Four(LongLow, i),
                                    Four(LongHigh, i));
      return static_cast<uint32_t>(Passed[0] | Passed[1] | Passed[2] | Passed[3]);
    }

   private:
    static TFourFloats Four(const std::array<float, Size>& Edges, size_t First) noexcept {
      TFourFloats Result;
      std::memcpy(&Result, &Edges[First], sizeof Result);
      return Result;
    }
  };

  /// Entries must have boxes that are not empty.
  explicit TPackedBoxes(const std::vector<TBoxEntry>& Entries);

  /// Items that were not removed, and those that were.
  size_t Count() const noexcept { return FIds.size() - FRemoved; }
  size_t Removed() const noexcept { return FRemoved; }  ///< items that were
  /// Bytes of memory in use.
  size_t MemoryUsed() const noexcept;

  /// Marks one item with this identifier and box as removed; false when there is none.
  bool Remove(const TBoxEntry& Entry);
  /// Appends the items that were not removed.
  void AppendTo(std::vector<TBoxEntry>& Entries) const;

  /// Calls Visit(Id) -> bool for each item whose box passes the test; false ends it and is
  /// returned. The test must let every box pass that encloses one that passes.
  template <class TTest, class TVisit>
  bool Visit(const TTest& Test, TVisit& Visit) const {
    return VisitNode(FLevels.size() - 1, 0, Test, Visit);
  }

  /// For searches of other orders: levels from the items (0) up, and the nodes of a level. The
  /// boxes of node N of a level are those of the nodes N * 16 to N * 16 + 15 of the level below, or
  /// of the items with these numbers.
  size_t TopLevel() const noexcept { return FLevels.size() - 1; }
  /// A node, not checked.
  const TNode& Node(size_t Level, size_t Index) const { return FNodes[FLevels[Level] + Index]; }
  /// The identifier of an item, not checked.
  int32_t Id(size_t Item) const { return FIds[Item]; }
  /// Whether there is such an item and it was not removed.
  bool IsAlive(size_t Item) const {
    return Item < FIds.size() && (FDead.empty() || (FDead[Item / 64] >> Item % 64 & 1) == 0);
  }

 private:
  template <class TTest, class TVisit>
  bool VisitNode(size_t Level, size_t Index, const TTest& Test, TVisit& Visit) const {
    const TNode& Boxes = Node(Level, Index);
    const size_t FirstChild = Index * TNode::Size;
    const uint32_t Passing = Boxes.Passing(Test);
    if (Level == 1)
      for (uint32_t Left = Passing; Left != 0; Left &= Left - 1) Fetch(FirstChild + Lowest(Left));
    for (uint32_t Left = Passing; Left != 0; Left &= Left - 1) {
      const size_t Child = FirstChild + Lowest(Left);
      if (Level > 0) {
        if (!VisitNode(Level - 1, Child, Test, Visit)) return false;
      } else if (IsAlive(Child) && !Visit(FIds[Child])) {
        return false;
      }
    }
    return true;
  }
  static size_t Lowest(uint32_t Bits) noexcept {
    return static_cast<size_t>(std::countr_zero(Bits));
  }
  // Has a node of items brought from memory while others are looked at.
  void Fetch(size_t Index) const noexcept {
    const TNode& Items = FNodes[Index];
    for (const auto* Edges : {&Items.LatLow, &Items.LatHigh, &Items.LongLow, &Items.LongHigh})
      __builtin_prefetch(Edges);
    __builtin_prefetch(&FIds[Index * TNode::Size]);
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
