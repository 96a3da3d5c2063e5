/// @file
/// box_tree.h - boxes of items, found by region and by nearness.
///
/// Items are pairs of an identifier and a box. Most of them lie in packed trees (packed_boxes.h)
/// that never change: a removed item is only marked there. New items wait in a short list that
/// every search looks through; a full list becomes a tree, and trees of like size become one. So an
/// item takes 21 to 25 bytes, and a change costs in the mean a few logarithmic steps; now and then
/// one takes as long as building the tree anew, some 0.2 seconds for a million items.
///
/// Searches change nothing and take no memory beyond their result, so several threads may search at
/// once while none changes the tree.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_SEARCH_BOX_TREE_H
#define ZAV_GEODB_SEARCH_BOX_TREE_H

#include <geodb/search/geo_box.h>
#include <geodb/search/packed_boxes.h>
#include <platform/base/api.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace zav {

/// An item and how far it is.
struct TNearItem {
  int32_t Id = 0;       ///< of the item
  double Distance = 0;  ///< metres, see DistanceToBox
  friend bool operator==(const TNearItem&, const TNearItem&) = default;
};

/// Items with boxes, found by place. Searches change nothing, so several threads may search at once
/// while none changes the tree.
class ZAVGEO_API TBoxTree {
 public:
  /// The distance in metres of an item, told by who knows more of it than its box: at least
  /// BoxDistance, infinite or NaN for an item that is not wanted.
  using TDistanceOf = std::function<double(int32_t Id, double BoxDistance)>;

  /// Forgets all items and takes these. Faster than adding them one by one. Items with an empty box
  /// are left out here and in Insert: no search could find them.
  void Assign(std::vector<TBoxEntry> Items);
  /// Forgets all items.
  void Clear();

  /// Identifiers may be any number, and need not differ.
  void Insert(int32_t Id, const TGeoBox& Box);
  /// Takes out one item with this identifier and exactly this box; false when there is none.
  bool Remove(int32_t Id, const TGeoBox& Box);

  /// The number of items.
  size_t Count() const noexcept;
  /// Bytes of memory in use.
  size_t MemoryUsed() const noexcept;

  /// Calls Visit(Id) -> bool for each item whose box meets the region, in no order; false from
  /// Visit ends the search.
  template <class TVisit>
  void VisitMeeting(const TGeoRegion& Region, TVisit&& Visit) const {
    const TRegionTest Test(Region);
    if (!Test.IsEmpty()) VisitAll(Test, Visit);
  }

  /// The same for each item that a closed point list with this box could make contain the position:
  /// boxes that contain it, and boxes more than 180 degrees wide, since the box of points on both
  /// sides of 180 degrees, or around a pole, tells nothing (see ring_test.h).
  template <class TVisit>
  void VisitAround(double Lat, double Long, TVisit&& Visit) const {
    const TPositionTest Test(Lat, Long);
    if (!Test.IsEmpty()) VisitAll(Test, Visit);
  }

  /// The Count items whose boxes are nearest to a position, by ascending distance and identifier;
  /// fewer when there are fewer. With DistanceOf, the nearest by that distance. None for a position
  /// that is not finite. Latitudes beyond the poles count as the poles.
  std::vector<TNearItem> Nearest(double Lat, double Long, size_t Count,
                                 const TDistanceOf& DistanceOf = {}) const;

 private:
  template <class TTest, class TVisit>
  void VisitAll(const TTest& Test, TVisit& Visit) const {
    for (const TBoxEntry& Entry : FNew) {
      const TGeoBox& Box = Entry.Box;
      if (Test.Meets(Box.LatLow, Box.LatHigh, Box.LongLow, Box.LongHigh) && !Visit(Entry.Id))
        return;
    }
    for (const TPackedBoxes& Tree : FTrees)
      if (!Tree.Visit(Test, Visit)) return;
  }
  void Pack(size_t First);

  std::vector<TPackedBoxes> FTrees;  // larger ones first
  std::vector<TBoxEntry> FNew;       // few
};

}  // namespace zav

#endif
