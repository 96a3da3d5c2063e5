// atlas_history.h - back and forward through the maps that were shown, each with its views.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_ATLAS_HISTORY_H
#define ZAV_APPS_VIEWER_ATLAS_HISTORY_H

#include <vector>

#include <QString>

#include "view_history.h"

namespace zav {

class AtlasHistory {
 public:
  struct Visit {
    QString Path;
    ViewTrail Trail;  // when it was left
  };

  // The visit before (-1) or after (1) this one, none at the ends.
  const Visit* neighbour(int Direction) const;
  // To be called before another map is shown.
  void leave(const ViewTrail& Trail);
  // A map is shown now. Step -1 and 1 went to a neighbour; 0 is a new visit, and what was ahead is
  // forgotten. The same map again is the same visit.
  void arrive(const QString& Path, int Step);

 private:
  static constexpr size_t MostVisits = 100;

  std::vector<Visit> FVisits;
  size_t FAt = 0;
};

}  // namespace zav

#endif
