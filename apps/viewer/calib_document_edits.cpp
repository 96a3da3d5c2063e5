// calib_document_edits.cpp - the edits of the calibration document.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include <QFileInfo>

#include <platform/base/text_format.h>
#include <platform/codec/image_file.h>
#include <platform/qt/qt_convert.h>

#include "calib_document.h"
#include "calib_document_private.h"
#include "map_source.h"

namespace zav {

namespace {

// Takes the items at the places (ascending) out of a state; they can be restored.
void TakeOut(CalibState& State, const std::vector<size_t>& Places) {
  auto Removed = std::make_shared<RemovedItems>();
  for (const size_t Place : Places) Removed->Items.emplace_back(Place, State.Items[Place]);
  for (auto Place = Places.rbegin(); Place != Places.rend(); ++Place)
    State.Items.erase(State.Items.begin() + static_cast<std::ptrdiff_t>(*Place));
  Removed->Before = std::move(State.Removed);
  State.Removed = std::move(Removed);
}

bool IsAngle(double Degrees, double Most) {
  return std::isfinite(Degrees) && std::abs(Degrees) <= Most;
}

}  // namespace

void AdoptZone(CalibState& State) {
  if (State.Model != TCalibModel::cmUTM || State.Grid.Zone != 0) return;
  State.Grid = GridOfItems(State.Items, State.Grid.Ellipsoid);
}

QString PositionProblem(const CalibState& State, const CalibPosition& Position) {
  if (!Position.IsUtm) {
    if (IsAngle(Position.Degrees.Latit, 90) && IsAngle(Position.Degrees.Longit, 360)) return {};
    return CalibDocument::tr("The position is not on the globe.");
  }
  if (!IsAngle(Position.Metres.Northing, 1e8) || !IsAngle(Position.Metres.Easting, 1e8) ||
      Position.Zone < 0 || Position.Zone > 60)
    return CalibDocument::tr("The position is outside the UTM grid.");
  if (Position.Zone == 0 && State.Grid.Zone == 0)
    return CalibDocument::tr(
        "UTM metres need a zone: type it before them, as 32T 470693 5150563, "
        "or set the map's zone first.");
  return {};
}

QString CleanName(const QString& Name) {
  const auto EndsLine = [](QChar C) {
    return C.category() == QChar::Other_Control || C.category() == QChar::Separator_Line ||
           C.category() == QChar::Separator_Paragraph;
  };
  QString Clean = Name;
  std::replace_if(Clean.begin(), Clean.end(), EndsLine, QLatin1Char(' '));
  return Clean.trimmed();
}

// --- items ---------------------------------------------------------------------------------------

QString CalibDocument::addPoint(const CalibPosition& Position, TPoint Pixel, const QString& Name) {
  return F->Edit(tr("Add point %1").arg(itemCount() + 1), [&](CalibState& State) {
    CalibItem Item;
    Item.Position = Position;
    Item.Pixel = Pixel;
    Item.Name = CleanName(Name);
    QString Problem = PositionProblem(State, Position);
    if (!Problem.isEmpty()) return Problem;
    State.Items.push_back(F->NewItem(Item));
    AdoptZone(State);
    return LimitProblem(State.Items);
  });
}

QString CalibDocument::addLinePoint(TGratLineKind Kind, double Value, TPoint Pixel,
                                    const QString& Name) {
  return F->Edit(tr("Add point %1").arg(itemCount() + 1), [&](CalibState& State) {
    if (!IsAngle(Value, Kind == TGratLineKind::gtlParallel ? 90 : 360))
      return tr("The line is not on the globe.");
    CalibItem Item;
    Item.Kind = ItemKindOf(Kind);
    Item.Value = Value + 0.0;  // no negative zero, which would be another line
    Item.Pixel = Pixel;
    Item.Name = CleanName(Name);
    State.Items.push_back(F->NewItem(Item));
    return LimitProblem(State.Items);
  });
}

void CalibDocument::moveItem(int Id, TPoint Pixel, CalibMerge Merge) {
  const auto Index = F->Find(Id);
  if (!Index) return;
  if (Merge == CalibMerge::Separate || F->MergedItem != Id) {
    endMerge();
    if (F->State->Items[*Index]->Pixel == Pixel) return;
    auto Redo = Merge == CalibMerge::Join ? F->RedoSteps : std::vector<UndoStep>();
    CalibState State = *F->State;
    CalibItem Item = *State.Items[*Index];
    Item.Pixel = Pixel;
    State.Items[*Index] = std::make_shared<const CalibItem>(std::move(Item));
    if (Merge == CalibMerge::Join) {
      F->MergedItem = Id;
      F->RedoBeforeMerge = std::move(Redo);
    }
    F->Push(tr("Move point %1").arg(*Index + 1), std::move(State));
    return;
  }
  if (F->State->Items[*Index]->Pixel == Pixel) return;
  auto State = std::make_shared<CalibState>(*F->State);
  auto Item = std::make_shared<CalibItem>(*State->Items[*Index]);
  Item->Pixel = Pixel;
  State->Items[*Index] = std::move(Item);
  F->State = std::move(State);
  Q_EMIT changed();
}

void CalibDocument::removeItem(int Id) { removeItems({Id}); }

void CalibDocument::removeItems(const std::vector<int>& Ids) {
  std::vector<size_t> Places;
  for (const int Id : Ids)
    if (const auto Found = F->Find(Id)) Places.push_back(*Found);
  std::sort(Places.begin(), Places.end());
  Places.erase(std::unique(Places.begin(), Places.end()), Places.end());
  if (Places.empty()) return;
  const QString Text = Places.size() == 1
                           ? tr("Remove point %1").arg(Places.front() + 1)
                           : tr("Remove %n points", nullptr, static_cast<int>(Places.size()));
  F->Edit(Text, [&](CalibState& State) {
    TakeOut(State, Places);
    return QString();
  });
}

bool CalibDocument::removeNearest(double X, double Y) {
  const int Id = nearestItem(X, Y, std::numeric_limits<double>::infinity());
  const CalibItem* Item = findItem(Id);
  if (Item == nullptr || !isUsed(Item->Kind)) return false;
  removeItem(Id);
  return true;
}

bool CalibDocument::canRestoreRemoved() const { return F->State->Removed != nullptr; }

QString CalibDocument::restoreLastRemoved() {
  if (!canRestoreRemoved()) return {};
  const auto Removed = F->State->Removed;
  const QString Text =
      Removed->Items.size() == 1
          ? tr("Restore point %1").arg(Removed->Items.front().first + 1)
          : tr("Restore %n points", nullptr, static_cast<int>(Removed->Items.size()));
  return F->Edit(Text, [&](CalibState& State) {
    for (const auto& [Place, Item] : Removed->Items)
      State.Items.insert(
          State.Items.begin() + static_cast<std::ptrdiff_t>(std::min(Place, State.Items.size())),
          Item);
    State.Removed = Removed->Before;
    return LimitProblem(State.Items);
  });
}

QString CalibDocument::setPosition(int Id, const CalibPosition& Position) {
  const auto Index = F->Find(Id);
  if (!Index || F->State->Items[*Index]->IsLinePoint()) return {};
  return F->Edit(tr("Change position of point %1").arg(*Index + 1), [&](CalibState& State) {
    CalibItem Item = *State.Items[*Index];
    Item.Position = Position;
    State.Items[*Index] = std::make_shared<const CalibItem>(std::move(Item));
    AdoptZone(State);
    return PositionProblem(State, Position);
  });
}

QString CalibDocument::setLine(int Id, TGratLineKind Kind, double Value) {
  const auto Index = F->Find(Id);
  if (!Index || !F->State->Items[*Index]->IsLinePoint()) return {};
  return F->Edit(tr("Change line of point %1").arg(*Index + 1), [&](CalibState& State) {
    if (!IsAngle(Value, Kind == TGratLineKind::gtlParallel ? 90 : 360))
      return tr("The line is not on the globe.");
    CalibItem Item = *State.Items[*Index];
    Item.Kind = ItemKindOf(Kind);
    Item.Value = Value + 0.0;
    State.Items[*Index] = std::make_shared<const CalibItem>(std::move(Item));
    return LimitProblem(State.Items);
  });
}

void CalibDocument::setName(int Id, const QString& Name) {
  F->EditItem(Id, QT_TR_NOOP("Name point %1"), [&](CalibItem& Item) {
    Item.Name = CleanName(Name);
    return QString();
  });
}

void CalibDocument::setEnabled(int Id, bool Enabled) {
  const char* Text = Enabled ? QT_TR_NOOP("Switch on point %1") : QT_TR_NOOP("Switch off point %1");
  F->EditItem(Id, Text, [&](CalibItem& Item) {
    Item.Enabled = Enabled;
    return QString();
  });
}

// --- the map -------------------------------------------------------------------------------------

void CalibDocument::setModel(TCalibModel Model) {
  F->Edit(tr("Change model to \"%1\"").arg(ModelName(Model)), [&](CalibState& State) {
    State.Model = Model;
    AdoptZone(State);
    return QString();
  });
}

QString CalibDocument::setZone(int Zone, bool South) {
  const QString Text =
      (South ? tr("Change zone to %1 south") : tr("Change zone to %1 north")).arg(Zone);
  return F->Edit(Text, [&](CalibState& State) {
    if (Zone < 1 || Zone > 60) return tr("UTM zones are 1 to 60.");
    State.Grid.Zone = Zone;
    State.Grid.South = South;
    return QString();
  });
}

void CalibDocument::setEllipsoid(TGeoEllipsoid Ellipsoid) {
  F->Edit(tr("Change ellipsoid"), [&](CalibState& State) {
    State.Grid.Ellipsoid = Ellipsoid;
    return QString();
  });
}

QString CalibDocument::setCaption(const QString& Caption) {
  return F->Edit(tr("Change caption"), [&](CalibState& State) {
    if (CleanName(Caption) != Caption.trimmed() || Caption.contains(QLatin1Char('"')))
      return tr("Calibration files cannot hold a double quote or a line break in the caption.");
    // A caption of other bytes than UTF-8 stays as it is until it is edited.
    if (Caption != ToQString(State.Caption)) State.Caption = FromQString(Caption);
    return QString();
  });
}

QString CalibDocument::setImage(const QString& ImagePath) {
  return F->Edit(tr("Change image"), [&](CalibState& State) {
    const MapSource Source = InspectMap(ImagePath);
    if (Source.Kind != MapSourceKind::Image && Source.Problem.isEmpty())
      return tr("\"%1\" is no image.").arg(ImagePath);
    // Too large an image to be shown can be calibrated all the same.
    if (Source.ImageSize.isEmpty()) return Source.Problem;
    State.ImagePath = Source.Path;
    State.ImageSize = Source.ImageSize;
    return QString();
  });
}

}  // namespace zav
