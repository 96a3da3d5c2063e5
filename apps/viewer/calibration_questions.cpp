// calibration_questions.cpp - calibration points on the map: what position a point has.
// SPDX-License-Identifier: MIT
#include <cmath>

#include <QLocale>

#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_convert.h>

#include "calib_document.h"
#include "calibration_proposal.h"
#include "calibration_table.h"
#include "calibration_tool.h"
#include "position_parser.h"

namespace zav {

void CalibrationTool::addAtMouse() {
  const TPoint AtMouse = pixelUnder(FMouse);
  const QPointF Middle = QRectF(FWidget.rect()).center();
  addAt(FMouseInside && onImage(AtMouse) ? AtMouse : insideImage(pixelUnder(Middle)));
}

void CalibrationTool::addAt(TPoint MapPixel) {
  if (!FActive || !onImage(MapPixel)) return;
  // Another place for the point that is asked about.
  if (FEditor->isAsking() && FPending) {
    setPending(MapPixel);
    FEditor->takeFocus();
    return;
  }
  select(0);
  FEdited = 0;
  FPending = MapPixel;
  FOverlay->setPending(MapPixel);
  FEditor->ask(questionFor(nullptr, MapPixel), controlOf(MapPixel).toPoint());
  updateMagnifier();
}

void CalibrationTool::editSelected() {
  const CalibItem* Item = FDocument.findItem(FSelected);
  if (!FActive || Item == nullptr) return;
  FEditor->cancel();
  FEdited = Item->Id;
  FEditor->ask(questionFor(Item, Item->Pixel), controlOf(Item->Pixel).toPoint());
  updateMagnifier();
}

void CalibrationTool::removeSelected() { FDocument.removeItem(FSelected); }

void CalibrationTool::removeNearestToMouse() {
  const QPointF At = FMouseInside ? FMouse : QRectF(FWidget.rect()).center();
  const TPoint Pixel = pixelUnder(At);
  FDocument.removeNearest(Pixel.X, Pixel.Y);
}

void CalibrationTool::setPending(std::optional<TPoint> MapPixel) {
  FPending = MapPixel;
  FOverlay->setPending(MapPixel);
  if (MapPixel) {
    FEditor->setTitle(tr("New point at %1").arg(PixelText(QPointF(ToQPoint(*MapPixel)))));
    FEditor->placeBeside(controlOf(*MapPixel).toPoint());
  }
  updateMagnifier();
}

CalibrationEditor::Question CalibrationTool::questionFor(const CalibItem* Item, TPoint Pixel) {
  CalibrationEditor::Question Asked;
  FAsksLine = Item != nullptr ? Item->IsLinePoint() : FDocument.isUsed(CalibItemKind::Meridian);
  if (FAsksLine) {
    Asked.Proposal = Item != nullptr ? LineText(Item->Kind, Item->Value) : FLastLine;
    Asked.Example = tr("The line it is on: 50 N is a parallel, 10.5 E a meridian");
    Asked.Read = [this](const QString& Text) { return readLine(Text); };
  } else {
    Asked.Proposal = Item != nullptr ? TypedText(Item->Position) : proposalAt(Pixel);
    Asked.Example = tr("47.5 8.25   or   47 30 N, 8 15 E   or   32T 470693 5150563");
    Asked.Read = [this](const QString& Text) { return readText(Text); };
  }
  Asked.Title = Item != nullptr ? FDocument.itemTitle(FDocument.indexOf(Item->Id))
                                : tr("New point at %1").arg(PixelText(QPointF(ToQPoint(Pixel))));
  if (Item != nullptr) Asked.Name = Item->Name;
  return Asked;
}

// With fewer points a fit says nothing about other places.
bool CalibrationTool::canPropose() const {
  const int Needed = FDocument.model() == TCalibModel::cmBiquadraticPn ? 6 : 3;
  const CalibQuality Quality = FDocument.quality();
  return Quality.Valid && Quality.Count >= Needed;
}

QString CalibrationTool::proposalAt(TPoint Pixel) const {
  return canPropose() ? ProposedPosition(FDocument.calibration(), Pixel, FFormat) : QString();
}

// How far the fit is from what was typed: a slip of the pen shows before it does harm.
QString CalibrationTool::distanceText(const TCoords& Position) const {
  const CalibItem* Item = FDocument.findItem(FEdited);
  if (!canPropose() || (!FPending && Item == nullptr)) return {};
  double X = 0;
  double Y = 0;
  if (!FDocument.calibration().ToPixel(Position.Latit, Position.Longit, X, Y)) return {};
  const TPoint Here = FPending ? *FPending : Item->Pixel;
  return tr("The other points put it %1 pixels from here.")
      .arg(QLocale().toString(std::hypot(X - Here.X, Y - Here.Y), 'f', 1));
}

CalibrationEditor::Reading CalibrationTool::readText(const QString& Text) const {
  const TypedPosition Typed = ParseTypedPosition(Text);
  if (!Typed.Position) return {false, Typed.Problem};
  QStringList Told;
  const std::optional<TCoords> Degrees = DegreesOf(*Typed.Position, FDocument.utmGrid());
  if (Degrees) {
    const double Resolution = FDocument.calibration().Data().Resolution;
    Told << tr("= %1").arg(PositionText(*Degrees, FFormat, FDocument.ellipsoid(), Resolution));
  } else {
    Told << tr("= %1").arg(TypedText(*Typed.Position));
  }
  if (!Typed.Note.isEmpty()) Told << Typed.Note;
  const QString Distance = Degrees ? distanceText(*Degrees) : QString();
  if (!Distance.isEmpty()) Told << Distance;
  return {true, Told.join(QLatin1Char('\n'))};
}

CalibrationEditor::Reading CalibrationTool::readLine(const QString& Text) const {
  const TypedLine Line = ParseTypedLine(Text);
  if (!Line.Degrees) return {false, Line.Problem};
  const QString Value = LineText(ItemKindOf(Line.Kind), *Line.Degrees);
  return {true, Line.Kind == TGratLineKind::gtlMeridian ? tr("= meridian %1").arg(Value)
                                                        : tr("= parallel %1").arg(Value)};
}

void CalibrationTool::acceptAnswer(const QString& Position, const QString& Name) {
  const TPoint Pixel = FPending.value_or(TPoint{});
  const int Edited = FEdited;
  FEdited = 0;
  setPending(std::nullopt);
  const TypedLine Line = FAsksLine ? ParseTypedLine(Position) : TypedLine{};
  const TypedPosition Typed = FAsksLine ? TypedPosition{} : ParseTypedPosition(Position);
  QString Problem;
  if (Line.Degrees) {
    FLastLine = LineText(ItemKindOf(Line.Kind), *Line.Degrees);
    Problem = Edited != 0 ? FDocument.setLine(Edited, Line.Kind, *Line.Degrees)
                          : FDocument.addLinePoint(Line.Kind, *Line.Degrees, Pixel, Name);
  } else if (Typed.Position) {
    Problem = Edited != 0 ? FDocument.setPosition(Edited, *Typed.Position)
                          : FDocument.addPoint(*Typed.Position, Pixel, Name);
  }
  if (!Problem.isEmpty()) {
    emit refused(Problem);
  } else if (Edited != 0) {
    FDocument.setName(Edited, Name);
  } else {
    select(FDocument.item(FDocument.itemCount() - 1).Id);
  }
  updateMagnifier();
}

}  // namespace zav
