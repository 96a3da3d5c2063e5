// atlas_history.cpp - see atlas_history.h.
// SPDX-License-Identifier: MIT
#include "atlas_history.h"

namespace zav {

const AtlasHistory::Visit* AtlasHistory::neighbour(int Direction) const {
  if (Direction < 0) return FAt > 0 ? &FVisits[FAt - 1] : nullptr;
  return FAt + 1 < FVisits.size() ? &FVisits[FAt + 1] : nullptr;
}

void AtlasHistory::leave(const ViewTrail& Trail) {
  if (FAt < FVisits.size()) FVisits[FAt].Trail = Trail;
}

void AtlasHistory::arrive(const QString& Path, int Step) {
  if (Step != 0 && neighbour(Step) != nullptr) {
    FAt = Step < 0 ? FAt - 1 : FAt + 1;
    return;
  }
  if (FAt < FVisits.size() && FVisits[FAt].Path == Path) return;
  if (!FVisits.empty())
    FVisits.erase(FVisits.begin() + static_cast<ptrdiff_t>(FAt) + 1, FVisits.end());
  FVisits.push_back({Path, {}});
  if (FVisits.size() > MostVisits) FVisits.erase(FVisits.begin());
  FAt = FVisits.size() - 1;
}

}  // namespace zav
