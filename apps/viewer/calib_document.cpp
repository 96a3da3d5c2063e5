// calib_document.cpp - what the document holds, finding, undo, figures.
// SPDX-License-Identifier: MIT
#include "calib_document.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include <platform/qt/qt_convert.h>

#include "calib_document_private.h"

namespace zav {

CalibDocument::CalibDocument(QObject* Parent) : QObject(Parent), F(std::make_unique<Private>()) {
  F->Document = this;
}

CalibDocument::~CalibDocument() = default;

// --- what it holds -------------------------------------------------------------------------------

bool CalibDocument::isEmpty() const {
  return F->FileName.isEmpty() && F->State->ImagePath.isEmpty() && F->State->Items.empty();
}

int CalibDocument::itemCount() const { return static_cast<int>(F->State->Items.size()); }

const CalibItem& CalibDocument::item(int Index) const {
  return *F->State->Items.at(static_cast<size_t>(Index));
}

int CalibDocument::indexOf(int Id) const {
  const auto Found = F->Find(Id);
  return Found ? static_cast<int>(*Found) : -1;
}

const CalibItem* CalibDocument::findItem(int Id) const {
  const auto Found = F->Find(Id);
  return Found ? F->State->Items[*Found].get() : nullptr;
}

TCalibModel CalibDocument::model() const { return F->State->Model; }
UtmGrid CalibDocument::utmGrid() const { return F->State->Grid; }
TGeoEllipsoid CalibDocument::ellipsoid() const { return F->State->Grid.Ellipsoid; }
QString CalibDocument::caption() const { return ToQString(F->State->Caption); }
QString CalibDocument::imagePath() const { return F->State->ImagePath; }
QSize CalibDocument::imageSize() const { return F->State->ImageSize; }
bool CalibDocument::isUsed(CalibItemKind Kind) const { return UsesKind(F->State->Model, Kind); }

std::optional<TCoords> CalibDocument::degreesOf(const CalibItem& Item) const {
  if (Item.IsLinePoint()) return std::nullopt;
  return DegreesOf(Item.Position, F->State->Grid);
}

std::optional<UtmMetres> CalibDocument::metresOf(const CalibItem& Item) const {
  if (Item.IsLinePoint()) return std::nullopt;
  return MetresOf(Item.Position, F->State->Grid);
}

QString CalibDocument::itemTitle(int Index) const {
  if (Index < 0 || Index >= itemCount()) return {};
  return ItemTitle(*F->State, static_cast<size_t>(Index));
}

TCalibData CalibDocument::data() const { return F->Fit().Record.Data; }
const TCalibration& CalibDocument::calibration() const { return F->Fit().Calibration; }

// --- finding -------------------------------------------------------------------------------------

int CalibDocument::nearestItem(double X, double Y, double MaxDistance) const {
  for (const bool Used : {true, false}) {
    const CalibItem* Nearest = nullptr;
    double Least = std::numeric_limits<double>::infinity();
    for (const CalibItemPtr& Item : F->State->Items) {
      const double Distance = std::hypot(Item->Pixel.X - X, Item->Pixel.Y - Y);
      if (isUsed(Item->Kind) != Used || Distance > MaxDistance || Distance >= Least) continue;
      Nearest = Item.get();
      Least = Distance;
    }
    if (Nearest != nullptr) return Nearest->Id;
  }
  return 0;
}

// --- figures -------------------------------------------------------------------------------------

CalibResidual CalibDocument::residual(int Index) const {
  if (Index < 0 || Index >= itemCount()) return {};
  return F->Fit().Residuals[static_cast<size_t>(Index)];
}

CalibQuality CalibDocument::quality() const { return F->Fit().Quality; }

std::vector<CalibWarning> CalibDocument::warnings() const {
  if (isEmpty()) return {};
  return WarningsOf(*F->State, F->Fit());
}

// --- undo ----------------------------------------------------------------------------------------

bool CalibDocument::canUndo() const { return !F->UndoSteps.empty(); }
bool CalibDocument::canRedo() const { return !F->RedoSteps.empty(); }
bool CalibDocument::isModified() const { return F->State != F->Clean; }

QString CalibDocument::undoText() const {
  return F->UndoSteps.empty() ? QString() : F->UndoSteps.back().Text;
}

QString CalibDocument::redoText() const {
  return F->RedoSteps.empty() ? QString() : F->RedoSteps.back().Text;
}

void CalibDocument::undo() {
  endMerge();
  if (F->UndoSteps.empty()) return;
  UndoStep Step = std::move(F->UndoSteps.back());
  F->UndoSteps.pop_back();
  std::swap(F->State, Step.Other);
  F->RedoSteps.push_back(std::move(Step));
  Q_EMIT changed();
}

void CalibDocument::redo() {
  endMerge();
  if (F->RedoSteps.empty()) return;
  UndoStep Step = std::move(F->RedoSteps.back());
  F->RedoSteps.pop_back();
  std::swap(F->State, Step.Other);
  F->UndoSteps.push_back(std::move(Step));
  Q_EMIT changed();
}

void CalibDocument::endMerge() {
  if (std::exchange(F->MergedItem, 0) == 0) return;
  // Moved back to where it was: nothing happened.
  if (F->UndoSteps.back().Other->SameAs(*F->State)) {
    F->State = std::move(F->UndoSteps.back().Other);
    F->UndoSteps.pop_back();
    F->RedoSteps = std::move(F->RedoBeforeMerge);
  }
  F->RedoBeforeMerge.clear();
}

void CalibDocument::cancelMerge() {
  if (std::exchange(F->MergedItem, 0) == 0) return;
  F->State = std::move(F->UndoSteps.back().Other);
  F->UndoSteps.pop_back();
  F->RedoSteps = std::exchange(F->RedoBeforeMerge, {});
  Q_EMIT changed();
}

// --- insides -------------------------------------------------------------------------------------

std::optional<size_t> CalibDocument::Private::Find(int ItemId) const {
  const auto Found =
      std::find_if(State->Items.begin(), State->Items.end(),
                   [ItemId](const CalibItemPtr& Each) { return Each->Id == ItemId; });
  if (Found == State->Items.end()) return std::nullopt;
  return static_cast<size_t>(Found - State->Items.begin());
}

CalibItemPtr CalibDocument::Private::NewItem(CalibItem Item) {
  Item.Id = ++LastId;
  return std::make_shared<const CalibItem>(std::move(Item));
}

const CalibFit& CalibDocument::Private::Fit() const {
  if (FittedState != State || !Fitted) {
    Fitted.emplace(*State);
    FittedState = State;
  }
  return *Fitted;
}

void CalibDocument::Private::Push(const QString& Text, CalibState NewState) {
  UndoSteps.push_back({Text, State});
  RedoSteps.clear();
  State = std::make_shared<const CalibState>(std::move(NewState));
  Q_EMIT Document->changed();
}

QString CalibDocument::Private::Edit(const QString& Text,
                                     const std::function<QString(CalibState&)>& Change) {
  Document->endMerge();
  CalibState NewState = *State;
  QString Problem = Change(NewState);
  if (Problem.isEmpty() && !NewState.SameAs(*State)) Push(Text, std::move(NewState));
  return Problem;
}

QString CalibDocument::Private::EditItem(int ItemId, const char* Text,
                                         const std::function<QString(CalibItem&)>& Change) {
  const auto Index = Find(ItemId);
  if (!Index) return {};
  return Edit(tr(Text).arg(*Index + 1), [&](CalibState& NewState) {
    CalibItem Item = *NewState.Items[*Index];
    QString Problem = Change(Item);
    NewState.Items[*Index] = std::make_shared<const CalibItem>(std::move(Item));
    return Problem;
  });
}

void CalibDocument::Private::Restart(CalibState NewState, const QString& File,
                                     const std::string& NewId) {
  State = Clean = std::make_shared<const CalibState>(std::move(NewState));
  UndoSteps.clear();
  RedoSteps.clear();
  MergedItem = 0;
  RedoBeforeMerge.clear();
  FileName = File;
  Id = NewId;
  Q_EMIT Document->changed();
}

}  // namespace zav
