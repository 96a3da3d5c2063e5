// landmark_document.h - the landmarks that a person works on, with undo and files.
//
// Nothing here draws or asks. What the map shows is set with TGeoMap::SetLandMarks(list()) on each
// changed(). Landmarks are numbered from 1 as in the list; removing one gives the last one its
// number.
//
// Functions that can be refused return the reason for people, empty when done; a refused one
// changes nothing. Unknown numbers are ignored. Every edit is one step of undo, and edits that
// change nothing make none.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LANDMARK_DOCUMENT_H
#define ZAV_APPS_VIEWER_LANDMARK_DOCUMENT_H

#include <functional>
#include <string>
#include <vector>

#include <QObject>
#include <QString>
#include <QStringList>

#include <geomap/landmarks/landmark_store.h>

#include "common/landmark_table.h"
#include "landmark_history.h"

namespace zav {

// Whether an edit joins the one before into one step of undo: a drag, a word that is typed.
enum class LandmarkMerge { Separate, Join };

class LandmarkDocument final : public QObject {
  Q_OBJECT

 public:
  using Condition = std::function<bool(const TLandMark&)>;

  explicit LandmarkDocument(QObject* Parent = nullptr) : QObject(Parent) {}

  const TLandMarkList& list() const { return FList; }
  int count() const { return FList.Count(); }
  bool has(int Index) const { return Index >= 1 && Index <= count(); }
  // Caption or identifier, else the number.
  QString title(int Index) const;

  // --- edits -------------------------------------------------------------------------------------
  // Its number is count() then. False when it cannot be held in memory.
  bool add(const TLandMark& LandMark);
  // Joined replacements of a landmark are one step until endMerge() or another edit.
  void replace(int Index, const TLandMark& LandMark, const QString& Text,
               LandmarkMerge Merge = LandmarkMerge::Separate);
  void endMerge();
  // Takes the running joined edits back (Escape while dragging).
  void cancelMerge();
  bool isMerging() const { return FHistory.isMerging(); }
  void remove(int Index);
  // All that fulfil a condition; returns how many.
  int removeWhere(const QString& Text, const Condition& Goes);
  int changeWhere(const QString& Text, const Condition& Concerned,
                  const std::function<void(TLandMark&)>& Change);

  // --- undo --------------------------------------------------------------------------------------
  bool canUndo() const { return FHistory.canUndo(); }
  bool canRedo() const { return FHistory.canRedo(); }
  QString undoText() const { return FHistory.undoText(); }
  QString redoText() const { return FHistory.redoText(); }
  void undo();
  void redo();
  // The landmark that the last edit, undo or redo was about, 0 = none or several.
  int touched() const { return FTouched; }
  bool isModified() const { return !FHistory.isClean(); }

  // --- files -------------------------------------------------------------------------------------
  // Back to nothing, without a step of undo.
  void clear();
  // The landmarks of a file; of several sets the first one and those behind it.
  QString load(const QString& FileName);
  // Writes them to a file, which takes the document over. One that holds more than one set of
  // landmarks is refused.
  QString saveAs(const QString& FileName);
  // Absolute; empty until saved or loaded.
  QString fileName() const { return FFileName; }
  // Whether the file holds this set only, so that saving loses nothing.
  bool isOwnFile() const { return FOwnFile; }
  // Unsaved work through a crash: all landmarks as the lines of a RecoveryText, and the way back:
  // the file is loaded, if it is still there, and the landmarks take the place of its own, as a
  // step of undo.
  std::string recoveryText() const;
  QString recover(const QString& FileName, const std::vector<std::vector<std::string>>& Lines);
  // How many landmarks have a shape that comes back as a cross: the upright cross, user-defined.
  int shapesNotStored() const;
  // Adds the lines of a table; one step. Problems tells of the lines that could not be taken, at
  // most MostProblems, and ProblemCount how many they are.
  static constexpr int MostProblems = 100;
  struct Imported {
    int Count = 0;
    int ProblemCount = 0;
    QStringList Problems;
  };
  QString importTable(const QString& FileName, const TLandMarkSources& Sources,
                      const TLandMark& Template, Imported& Result);

 Q_SIGNALS:
  // After each edit, undo, redo, load, save: everything may be different.
  void changed();

 private:
  void pushList(const QString& Text, TLandMarkList NewList);
  void finish(int Touched);

  TLandMarkList FList;
  LandmarkHistory FHistory;
  QString FFileName;
  std::string FId;
  bool FOwnFile = true;
  int FTouched = 0;
};

}  // namespace zav

#endif
