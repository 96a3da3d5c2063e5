// landmark_document.cpp - edits and undo of landmarks.
// SPDX-License-Identifier: MIT
#include "landmark_document.h"

#include <new>
#include <utility>
#include <vector>

#include <platform/qt/qt_convert.h>

namespace zav {

namespace {
// Up to so many changed records are kept one by one.
constexpr size_t MostSingleChanges = 1000;
}  // namespace

QString LandmarkDocument::title(int Index) const {
  const TLandMark& LandMark = FList[Index];
  for (const std::string_view Text : {LandMark.Caption.Text.View(), LandMark.Identifier.View()})
    if (!Text.empty()) return ToQString(Text);
  return tr("Landmark %1").arg(Index);
}

void LandmarkDocument::finish(int Touched) {
  FTouched = Touched;
  emit changed();
}

// --- edits

bool LandmarkDocument::add(const TLandMark& LandMark) {
  try {
    FList.Append(LandMark);
  } catch (const std::bad_alloc&) {
    return false;
  }
  FHistory.push(tr("Add landmark"), LandmarksAdded{{LandMark}});
  finish(count());
  return true;
}

void LandmarkDocument::replace(int Index, const TLandMark& LandMark, const QString& Text,
                               LandmarkMerge Merge) {
  if (!has(Index) || FList[Index] == LandMark) return;
  const TLandMark Before = FList[Index];
  FList.Replace(Index, LandMark);
  if (Merge == LandmarkMerge::Join)
    FHistory.merge(Text, Index, Before, LandMark);
  else
    FHistory.push(Text, LandmarksReplaced{{{Index, Before, LandMark}}});
  finish(Index);
}

void LandmarkDocument::endMerge() {
  if (!FHistory.isMerging()) return;
  FHistory.endMerge();
  finish(FTouched);
}

void LandmarkDocument::cancelMerge() {
  if (!FHistory.isMerging()) return;
  FHistory.cancelMerge(FList);
  finish(FTouched);
}

void LandmarkDocument::remove(int Index) {
  if (!has(Index)) return;
  LandmarksRemoved Change{{Index}, {FList[Index]}};
  const QString Text = tr("Delete \"%1\"").arg(title(Index));
  FList.Remove(Index);
  FHistory.push(Text, std::move(Change));
  finish(0);
}

int LandmarkDocument::removeWhere(const QString& Text, const Condition& Goes) {
  LandmarksRemoved Change;
  std::vector<bool> Marked(static_cast<size_t>(count()), false);
  for (int Index = 1; Index <= count(); ++Index) {
    if (!Goes(FList[Index])) continue;
    Marked[static_cast<size_t>(Index - 1)] = true;
    Change.Indices.push_back(Index);
  }
  const auto Found = static_cast<int>(Change.Indices.size());
  if (Found == 0) return 0;
  if (Found == count()) {
    pushList(Text, {});
    return Found;
  }
  Change.Records.reserve(Change.Indices.size());
  for (const int32_t Index : Change.Indices) Change.Records.push_back(FList[Index]);
  FList.RemoveMarked(Marked);
  FHistory.push(Text, std::move(Change));
  finish(0);
  return Found;
}

int LandmarkDocument::changeWhere(const QString& Text, const Condition& Concerned,
                                  const std::function<void(TLandMark&)>& Change) {
  LandmarksReplaced Single;
  TLandMarkList New = FList;
  int Found = 0;
  for (int Index = 1; Index <= count(); ++Index) {
    if (!Concerned(FList[Index])) continue;
    TLandMark After = FList[Index];
    Change(After);
    if (After == FList[Index]) continue;
    New.Replace(Index, After);
    if (Single.Changes.size() <= MostSingleChanges)
      Single.Changes.push_back({Index, FList[Index], After});
    ++Found;
  }
  if (Found == 0) return 0;
  if (Single.Changes.size() > MostSingleChanges) {
    pushList(Text, std::move(New));
    return Found;
  }
  FList = std::move(New);
  FHistory.push(Text, std::move(Single));
  finish(0);
  return Found;
}

void LandmarkDocument::pushList(const QString& Text, TLandMarkList NewList) {
  FHistory.push(Text, LandmarkListChanged{FList, NewList});
  FList = std::move(NewList);
  finish(0);
}

// --- undo

void LandmarkDocument::undo() {
  FHistory.endMerge();
  if (canUndo()) finish(FHistory.undo(FList));
}

void LandmarkDocument::redo() {
  FHistory.endMerge();
  if (canRedo()) finish(FHistory.redo(FList));
}

}  // namespace zav
