// calib_document_private.h - the insides of the calibration document.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_CALIB_DOCUMENT_PRIVATE_H
#define ZAV_APPS_VIEWER_CALIB_DOCUMENT_PRIVATE_H

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "calib_document.h"
#include "calib_figures.h"
#include "calib_state.h"

namespace zav {

using CalibStatePtr = std::shared_ptr<const CalibState>;

struct UndoStep {
  QString Text;
  CalibStatePtr Other;  // the state on its other side
};

struct CalibDocument::Private {
  // Makes the edit a step of undo, unless it changes nothing; a reason that it returns refuses it.
  QString Edit(const QString& Text, const std::function<QString(CalibState&)>& Change);
  // The same for an item; Change gets a copy that is put in its place.
  QString EditItem(int Id, const char* Text, const std::function<QString(CalibItem&)>& Change);
  void Push(const QString& Text, CalibState NewState);
  // Starts again with a state that is in the file (or nowhere).
  void Restart(CalibState NewState, const QString& File, const std::string& Id);
  std::optional<size_t> Find(int Id) const;
  CalibItemPtr NewItem(CalibItem Item);
  const CalibFit& Fit() const;
  // Writes both files; throws what the savers throw.
  void Write(const std::string& Target, bool KeepRest) const;
  QString SaveAs(const QString& Target);

  CalibDocument* Document = nullptr;
  CalibStatePtr State = std::make_shared<const CalibState>();
  CalibStatePtr Clean = State;
  std::vector<UndoStep> UndoSteps;
  std::vector<UndoStep> RedoSteps;
  int MergedItem = 0;  // whose moves are being joined, 0 = none
  std::vector<UndoStep> RedoBeforeMerge;
  int LastId = 0;

  QString FileName;
  std::string Id;
  QStringList Notes;

  mutable CalibStatePtr FittedState;
  mutable std::optional<CalibFit> Fitted;
};

// A zone for a map under cmUTM that has none, from its points.
void AdoptZone(CalibState& State);
// Why a position cannot be taken; empty when it can.
QString PositionProblem(const CalibState& State, const CalibPosition& Position);
// One line without control characters.
QString CleanName(const QString& Name);

}  // namespace zav

#endif
