// view_history.cpp - back and forward through the views that the map control remembers.
// SPDX-License-Identifier: MIT
#include "view_history.h"

#include <geomap/geo_map.h>

namespace zav {

namespace {
constexpr int32_t Oldest = -15;
}

bool ViewHistory::isShown(int32_t Index) const {
  const TgmZoomStackEntry Entry = FMap.GetZoomStackEntry(Index);
  return TPoint{Entry.Left, Entry.Top} == FMap.TopLeft() && Entry.MagF == FMap.Magnification();
}

// Where the view shown now is: 1, newer than all, when it has not been added.
int32_t ViewHistory::place() const {
  if (isShown(FPlace)) return FPlace;
  return isShown(0) ? 0 : 1;
}

int32_t ViewHistory::target(int32_t Direction) const {
  for (int32_t Index = place() + Direction; Index <= 0 && Index >= Oldest; Index += Direction) {
    if (FMap.GetZoomStackEntry(Index).MagF == 0) return NoTarget;  // never filled
    if (!isShown(Index)) return Index;
  }
  return NoTarget;
}

void ViewHistory::goBack() {
  remember();
  const int32_t Index = target(-1);
  if (Index == NoTarget) return;
  FPlace = Index;
  FMap.ZoomHistory(Index);
}

void ViewHistory::goForward() {
  const int32_t Index = target(1);
  if (Index == NoTarget) return;
  FPlace = Index;
  FMap.ZoomHistory(Index);
}

void ViewHistory::remember() {
  FPlace = place();
  if (FPlace <= 0) return;
  FMap.ZoomStateOnStack();
  FPlace = 0;
}

ViewTrail ViewHistory::trail() {
  remember();
  ViewTrail Trail;
  for (int32_t Index = Oldest; Index <= 0; ++Index) {
    const TgmZoomStackEntry Entry = FMap.GetZoomStackEntry(Index);
    if (Entry.MagF == 0) continue;  // never filled
    if (Index == FPlace) Trail.Place = Trail.Views.size();
    Trail.Views.push_back({{Entry.Left, Entry.Top}, Entry.MagF});
  }
  return Trail;
}

void ViewHistory::restore(const ViewTrail& Trail) {
  if (Trail.Place >= Trail.Views.size()) return;
  bool First = true;
  for (const TViewState& View : Trail.Views) {
    FMap.SetView(View.TopLeft, View.Magnification);
    First ? FMap.ClearZoomHistory() : FMap.ZoomStateOnStack();
    First = false;
  }
  const TViewState& Shown = Trail.Views[Trail.Place];
  FMap.SetView(Shown.TopLeft, Shown.Magnification);
  FPlace = static_cast<int32_t>(Trail.Place) - static_cast<int32_t>(Trail.Views.size()) + 1;
}

void ViewHistory::restart() {
  FMap.ClearZoomHistory();
  FPlace = 0;
}

}  // namespace zav
