// calibration_tool_look.cpp - calibration points on the map: magnifier and cursor.
// SPDX-License-Identifier: MIT
#include <QCursor>

#include <platform/qt/geo_map_widget.h>

#include "calib_document.h"
#include "calibration_tool.h"

namespace zav {

void CalibrationTool::setMagnifierOn(bool On) {
  FMagnifierOn = On;
  updateMagnifier();
}

void CalibrationTool::updateMagnifier() {
  const bool Panning = FDrag == Drag::Pan || FSpaceDown;
  std::optional<TPoint> Pixel;
  const CalibItem* Item = FDocument.findItem(FSelected);
  if (FDrag == Drag::Item || FKeyPause.isActive()) {
    if (Item != nullptr) Pixel = Item->Pixel;
  } else if (FPending) {
    Pixel = FPending;
  } else if (FMouseInside && !FEditor->isAsking() && onImage(pixelUnder(FMouse))) {
    Pixel = pixelUnder(FMouse);
  }
  if (!hasMouse() || !FMagnifierOn || Panning || !Pixel) return FMagnifier->hide();
  FMagnifier->showAt(*Pixel, controlOf(*Pixel).toPoint(),
                     FEditor->isAsking() ? FEditor->geometry() : QRect());
}

void CalibrationTool::updateCursor() {
  if (!hasMouse()) {
    if (FCursorSet) FWidget.unsetCursor();
    FCursorSet = false;
    return;
  }
  FCursorSet = true;
  Qt::CursorShape Shape = Qt::CrossCursor;
  if (FDrag == Drag::Pan)
    Shape = Qt::ClosedHandCursor;
  else if (FSpaceDown)
    Shape = Qt::OpenHandCursor;
  else if (FDrag == Drag::None && FMouseInside && itemNear(FMouse) != 0)
    Shape = Qt::PointingHandCursor;
  if (FWidget.cursor().shape() != Shape) FWidget.setCursor(Shape);
}

}  // namespace zav
