// view_history.h - back and forward through the views that the map control remembers.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_VIEW_HISTORY_H
#define ZAV_APPS_VIEWER_VIEW_HISTORY_H

#include <cstdint>

namespace zav {

class TGeoMap;

// A place in the control's ring of the last sixteen views. The control adds views by itself (after
// each drag), so the place is found again before each step; equal views in a row count as one.
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
