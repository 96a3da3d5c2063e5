// landmark_history.cpp - see landmark_history.h.
// SPDX-License-Identifier: MIT
#include "landmark_history.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zav {

namespace {

void Apply(const LandmarksAdded& Change, TLandMarkList& List) {
  for (const TLandMark& Record : Change.Records) List.Append(Record);
}
void Revert(const LandmarksAdded& Change, TLandMarkList& List) {
  for (size_t i = 0; i < Change.Records.size(); ++i) List.Remove(List.Count());
}

void Apply(const LandmarksReplaced& Change, TLandMarkList& List) {
  for (const auto& Each : Change.Changes) List.Replace(Each.Index, Each.After);
}
void Revert(const LandmarksReplaced& Change, TLandMarkList& List) {
  for (const auto& Each : Change.Changes) List.Replace(Each.Index, Each.Before);
}

void Apply(const LandmarksRemoved& Change, TLandMarkList& List) {
  std::vector<bool> Marked(static_cast<size_t>(List.Count()), false);
  for (const int32_t Index : Change.Indices) Marked[static_cast<size_t>(Index - 1)] = true;
  List.RemoveMarked(Marked);
}

// Removing has filled the places that became free, from the first one on, with those that stayed,
// from the last one on. They go back behind the rest, among the removed ones.
void Revert(const LandmarksRemoved& Change, TLandMarkList& List) {
  const int32_t Left = List.Count();
  const auto Removed = static_cast<int32_t>(Change.Indices.size());
  const auto Tail = std::upper_bound(Change.Indices.begin(), Change.Indices.end(), Left);
  size_t Filled = static_cast<size_t>(Tail - Change.Indices.begin());  // places not yet emptied
  const size_t Low = Filled;
  size_t Next = Low;  // the removed one that comes next behind the rest
  for (int32_t Index = Left + 1; Index <= Left + Removed; ++Index) {
    if (Next < Change.Indices.size() && Change.Indices[Next] == Index) {
      List.Append(Change.Records[Next++]);
    } else {
      const TLandMark Moved = List[Change.Indices[--Filled]];
      List.Append(Moved);
    }
  }
  for (size_t i = 0; i < Low; ++i) List.Replace(Change.Indices[i], Change.Records[i]);
}

void Apply(const LandmarkListChanged& Change, TLandMarkList& List) { List = Change.After; }
void Revert(const LandmarkListChanged& Change, TLandMarkList& List) { List = Change.Before; }

}  // namespace

void ApplyChange(const LandmarkChange& Change, TLandMarkList& List) {
  std::visit([&](const auto& Each) { Apply(Each, List); }, Change);
}

void RevertChange(const LandmarkChange& Change, TLandMarkList& List) {
  std::visit([&](const auto& Each) { Revert(Each, List); }, Change);
}

int32_t TouchedBy(const LandmarkChange& Change, bool Done, const TLandMarkList& List) {
  if (const auto* Replaced = std::get_if<LandmarksReplaced>(&Change))
    return Replaced->Changes.size() == 1 ? Replaced->Changes.front().Index : 0;
  const auto* Removed = std::get_if<LandmarksRemoved>(&Change);
  if (Removed != nullptr && !Done && Removed->Indices.size() == 1) return Removed->Indices.front();
  const auto* Added = std::get_if<LandmarksAdded>(&Change);
  return Added != nullptr && Done && Added->Records.size() == 1 ? List.Count() : 0;
}

// --- LandmarkHistory

void LandmarkHistory::restart() { *this = {}; }

void LandmarkHistory::push(const QString& Text, LandmarkChange Change) {
  endMerge();
  FSteps.erase(FSteps.begin() + static_cast<ptrdiff_t>(FPosition), FSteps.end());
  if (FClean > static_cast<int64_t>(FPosition)) FClean = -1;
  FSteps.push_back({Text, std::move(Change)});
  ++FPosition;
}

void LandmarkHistory::merge(const QString& Text, int32_t Index, const TLandMark& Before,
                            const TLandMark& After) {
  if (FMerging) {
    auto& Last = std::get<LandmarksReplaced>(FSteps[FPosition - 1].Change).Changes.front();
    if (Last.Index == Index) {
      Last.After = After;
      return;
    }
  }
  endMerge();
  const auto Redo = FSteps.begin() + static_cast<ptrdiff_t>(FPosition);
  std::vector<Step> Forgotten(std::make_move_iterator(Redo), std::make_move_iterator(FSteps.end()));
  const int64_t Clean = FClean;
  push(Text, LandmarksReplaced{{{Index, Before, After}}});
  FRedoBeforeMerge = std::move(Forgotten);
  FCleanBeforeMerge = Clean;
  FMerging = true;
}

// A replacement that was joined back to what was there before is no step.
void LandmarkHistory::endMerge() {
  if (!FMerging) return;
  FMerging = false;
  const auto& Last = std::get<LandmarksReplaced>(FSteps[FPosition - 1].Change).Changes.front();
  if (Last.Before == Last.After) {
    FSteps.pop_back();
    --FPosition;
    std::move(FRedoBeforeMerge.begin(), FRedoBeforeMerge.end(), std::back_inserter(FSteps));
    FClean = FCleanBeforeMerge;
  }
  FRedoBeforeMerge.clear();
}

void LandmarkHistory::cancelMerge(TLandMarkList& List) {
  if (!FMerging) return;
  auto& Last = std::get<LandmarksReplaced>(FSteps[FPosition - 1].Change).Changes.front();
  List.Replace(Last.Index, Last.Before);
  Last.After = Last.Before;
  endMerge();
}

int32_t LandmarkHistory::undo(TLandMarkList& List) {
  endMerge();
  if (!canUndo()) return 0;
  const LandmarkChange& Change = FSteps[--FPosition].Change;
  RevertChange(Change, List);
  return TouchedBy(Change, false, List);
}

int32_t LandmarkHistory::redo(TLandMarkList& List) {
  endMerge();
  if (!canRedo()) return 0;
  const LandmarkChange& Change = FSteps[FPosition++].Change;
  ApplyChange(Change, List);
  return TouchedBy(Change, true, List);
}

}  // namespace zav
