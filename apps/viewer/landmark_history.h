// landmark_history.h - edits of a list of landmarks, undone and redone.
//
// A step keeps what it changed, not the list: a thousand steps on a million landmarks take no more
// room than on ten. Only edits of most of the list keep lists, which share what is equal.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LANDMARK_HISTORY_H
#define ZAV_APPS_VIEWER_LANDMARK_HISTORY_H

#include <cstdint>
#include <variant>
#include <vector>

#include <QString>

#include <geomap/landmarks/landmark_list.h>

namespace zav {

// Landmarks behind the last one.
struct LandmarksAdded {
  std::vector<TLandMark> Records;
};
struct LandmarksReplaced {
  struct Change {
    int32_t Index;
    TLandMark Before;
    TLandMark After;
  };
  std::vector<Change> Changes;
};
// As TLandMarkList::RemoveMarked does it.
struct LandmarksRemoved {
  std::vector<int32_t> Indices;    // rising
  std::vector<TLandMark> Records;  // as many
};
struct LandmarkListChanged {
  TLandMarkList Before;
  TLandMarkList After;
};
using LandmarkChange =
    std::variant<LandmarksAdded, LandmarksReplaced, LandmarksRemoved, LandmarkListChanged>;

// Does a change to the list, and takes it back.
void ApplyChange(const LandmarkChange& Change, TLandMarkList& List);
void RevertChange(const LandmarkChange& Change, TLandMarkList& List);
// A landmark that the change is about: after it was done, or taken back. 0 = none.
int32_t TouchedBy(const LandmarkChange& Change, bool Done, const TLandMarkList& List);

// Each step must be pushed after, and undone on, the very list it was made on.
class LandmarkHistory {
 public:
  // Forgets all; the list is in the file as it is.
  void restart();
  // A step that is done already. What could be redone is forgotten.
  void push(const QString& Text, LandmarkChange Change);
  // Joins a replacement to the last step, if that replaces the same landmark and was pushed or
  // joined with this function since endMerge(); pushes it otherwise.
  void merge(const QString& Text, int32_t Index, const TLandMark& Before, const TLandMark& After);
  void endMerge();
  // Takes the joined steps back as if they had never been.
  void cancelMerge(TLandMarkList& List);
  bool isMerging() const { return FMerging; }

  bool canUndo() const { return FPosition > 0; }
  bool canRedo() const { return FPosition < FSteps.size(); }
  QString undoText() const { return canUndo() ? FSteps[FPosition - 1].Text : QString(); }
  QString redoText() const { return canRedo() ? FSteps[FPosition].Text : QString(); }
  // Return what TouchedBy does. Nothing without a step.
  int32_t undo(TLandMarkList& List);
  int32_t redo(TLandMarkList& List);

  // Whether the list is as in the file.
  bool isClean() const { return FClean == static_cast<int64_t>(FPosition); }
  void setClean() { FClean = static_cast<int64_t>(FPosition); }

 private:
  struct Step {
    QString Text;
    LandmarkChange Change;
  };
  std::vector<Step> FSteps;
  size_t FPosition = 0;  // steps before it are done
  int64_t FClean = 0;    // -1: that state cannot be reached any more
  bool FMerging = false;
  std::vector<Step> FRedoBeforeMerge;
  int64_t FCleanBeforeMerge = 0;
};

}  // namespace zav

#endif
