/// @file
/// landmark_store.h - the landmarks of a map: added, found, removed, and which classes are shown.
///
/// Works without a control; who shows the landmarks decides when to draw them again. Landmarks are
/// numbered from 1, 0 means none. A class outside 0..255 means every class. Distances are plain
/// differences of degrees: neither the meridians' convergence nor the date line counts.
///
/// A question asked before an addition or a removal may change the store: what it adds or replaces
/// counts at once; when it removes or clears anything, the numbers are no longer those asked about,
/// and the operation that asked ends without removing anything. A store must not die while it asks.
///
/// What cannot be held in memory throws std::bad_alloc; the store is then as before.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_LANDMARKS_LANDMARK_STORE_H
#define ZAV_GEOMAP_LANDMARKS_LANDMARK_STORE_H

#include <array>
#include <cstdint>
#include <functional>

#include <geomap/landmarks/landmark.h>
#include <geomap/landmarks/landmark_list.h>
#include <platform/base/api.h>
#include <platform/base/geometry.h>

namespace zav {

/// Whether each of the 256 classes is drawn.
using TClassVisibility = std::array<bool, 256>;
/// All classes visible.
inline TClassVisibility AllClasses() noexcept {
  TClassVisibility All;
  All.fill(true);
  return All;
}

/// The landmarks of a map: the list, the template, which classes are seen, which one is
/// highlighted.
class ZAVGEO_API TLandMarkStore {
 public:
  /// Whether the landmark may be added or removed. Without a function everything may.
  using TQuestion = std::function<bool(TLandMarkAction, const TLandMark&)>;

  TLandMark Default;  ///< where new landmarks take everything from that is not given
  TClassVisibility ClassVisible = AllClasses();  ///< all at first

  /// The list at this moment; a copy costs little and stays as it is.
  const TLandMarkList& List() const noexcept { return FList; }
  /// Takes another list, as a reader or an undo step does: nothing is asked, the highlight stays.
  void SetList(TLandMarkList List) noexcept;
  /// How many landmarks there are.
  int32_t Count() const noexcept { return FList.Count(); }

  /// False when it was refused.
  bool Add(const TLandMark& LandMark, const TQuestion& May);
  /// False, and nothing happens, for an index outside 1..Count().
  bool Replace(int32_t Index, const TLandMark& LandMark);

  /// The landmark nearest to a position, the first of equally near ones; 0 when there is none
  /// within 100000 degrees.
  int32_t Find(double Lat, double Long, int32_t ClassFlag) const noexcept;

  /// Each removal from a store that is not empty takes the highlight away. The last landmark takes
  /// the place of the removed one. Returns the index, 0 when nothing was removed.
  int32_t Remove(int32_t Index, const TQuestion& May);
  /// Those nearer than Radius degrees. See TLandMarkList::RemoveMarked for the order of what stays,
  /// here and below. Returns how many were removed.
  int32_t RemoveNear(double Lat, double Long, int32_t ClassFlag, double Radius,
                     const TQuestion& May);
  /// Those strictly inside a rectangle (west, north, east, south).
  int32_t RemoveInside(const TRectDouble& Rect, int32_t ClassFlag, const TQuestion& May);
  /// Those of a class.
  int32_t RemoveClass(uint8_t ClassFlag, const TQuestion& May);
  /// All, without a question; the highlight's number stays.
  void Clear() noexcept;

  /// The highlighted landmark, 0 for none.
  int32_t HighLight() const noexcept { return FHighLight; }
  /// Any index outside 1..Count() means none. True when it is another one than before.
  bool SetHighLight(int32_t Index) noexcept;

 private:
  template <class TRegion>
  int32_t RemoveRegion(const TRegion& Region, const TQuestion& May);
  bool Allowed(TLandMarkAction Action, int32_t Index, const TQuestion& May) const;

  TLandMarkList FList;
  int32_t FHighLight = 0;
  uint64_t FNumberings = 0;  // how often indexes may have got another meaning
};

}  // namespace zav

#endif
