// view_history.h - back and forward through the views that the map control remembers.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_VIEW_HISTORY_H
#define ZAV_APPS_VIEWER_VIEW_HISTORY_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include <geomap/view/view_state.h>

namespace zav {

class TGeoMap;

// A place in the control's ring of the last sixteen views. The control adds views by itself (after
// each drag), so the place is found again before each step; equal views in a row count as one.
// The views of a map and the one among them that is shown.
struct ViewTrail {
  std::vector<TViewState> Views;  // oldest first
  size_t Place = 0;
};

class ViewHistory {
 public:
  // The map must outlive this object.
  explicit ViewHistory(TGeoMap& Map) : FMap(Map) {}

  bool canGoBack() const { return target(-1) != NoTarget; }
  bool canGoForward() const { return target(1) != NoTarget; }
  // Shows the next older (newer) view; nothing when there is none.
  void goBack();
  void goForward();
  // Adds the view shown now, unless it is the one where we are.
  void remember();
  // All views, to be shown again later. The one shown now is added.
  ViewTrail trail();
  // Shows the view of a trail that was shown; the views of before are forgotten.
  void restore(const ViewTrail& Trail);
  // Forgets all views but the one shown now.
  void restart();

 private:
  static constexpr int32_t NoTarget = 1;

  bool isShown(int32_t Index) const;
  int32_t place() const;
  int32_t target(int32_t Direction) const;

  TGeoMap& FMap;
  int32_t FPlace = 0;  // 0 = the view added last, -1 the one before, ...
};

}  // namespace zav

#endif
