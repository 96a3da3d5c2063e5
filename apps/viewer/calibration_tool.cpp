// calibration_tool.cpp - calibration points on the map: the mouse and the keys.
// SPDX-License-Identifier: MIT
#include "calibration_tool.h"

#include <algorithm>
#include <cmath>

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_convert.h>

#include "arrow_step.h"
#include "calib_document.h"
#include "view_layout.h"

namespace zav {

namespace {

constexpr double DragThreshold = 4;  // control pixels; a click may shake as much
constexpr int KeyPause = 800;        // milliseconds
constexpr int FarKeyStep = 10;

TPoint Moved(TPoint Pixel, QPoint Step) { return {Pixel.X + Step.x(), Pixel.Y + Step.y()}; }

}  // namespace

CalibrationTool::CalibrationTool(GeoMapWidget& Widget, CalibDocument& Document, QObject* Parent)
    : QObject(Parent),
      FWidget(Widget),
      FDocument(Document),
      FOverlay(new CalibrationOverlay(Widget, Document)),
      FMagnifier(new CalibrationMagnifier(Widget)),
      FEditor(new CalibrationEditor(Widget)) {
  Widget.installEventFilter(this);
  connect(FEditor, &CalibrationEditor::placed, this, &CalibrationTool::updateMagnifier);
  connect(FEditor, &CalibrationEditor::accepted, this, &CalibrationTool::acceptAnswer);
  connect(FEditor, &CalibrationEditor::canceled, this, [this] {
    FEdited = 0;
    setPending(std::nullopt);
  });
  connect(FEditor, &CalibrationEditor::nudged, this, &CalibrationTool::nudgePending);
  connect(&Widget, &GeoMapWidget::viewChanged, this, [this] {
    if (FPending) FEditor->placeBeside(controlOf(*FPending).toPoint());
    updateMagnifier();
  });
  connect(&Document, &CalibDocument::changed, this, [this] {
    if (FSelected != 0 && FDocument.findItem(FSelected) == nullptr) select(0);
    // The question may have no object any more, or another model asks another one.
    if (FEdited != 0 && FDocument.findItem(FEdited) == nullptr) FEditor->cancel();
    if (FPending && FAsksLine != FDocument.isUsed(CalibItemKind::Meridian)) FEditor->cancel();
  });
  connect(&Widget, &GeoMapWidget::settingsChanged, this, [this] {
    updateCursor();
    updateMagnifier();
  });
  FKeyPause.setSingleShot(true);
  FKeyPause.setInterval(KeyPause);
  connect(&FKeyPause, &QTimer::timeout, this, [this] {
    FDocument.endMerge();
    updateMagnifier();
  });
}

void CalibrationTool::setActive(bool Active) {
  if (FActive == Active) return;
  if (!Active) abort();
  FActive = Active;
  FOverlay->setVisible(Active);
  FOverlay->lower();
  FSpaceDown = false;
  updateCursor();
  updateMagnifier();
  emit activeChanged(Active);
}

// --- selection

void CalibrationTool::select(int Id) {
  if (FSelected == Id) return;
  FSelected = Id;
  FOverlay->setSelected(Id);
  emit selectionChanged(Id);
}

void CalibrationTool::goTo(int Id) {
  select(Id);
  const CalibItem* Item = FDocument.findItem(Id);
  if (Item == nullptr) return;
  constexpr int Margin = 20;
  const QRect Seen = FWidget.rect().adjusted(Margin, Margin, -Margin, -Margin);
  if (!Seen.contains(controlOf(Item->Pixel).toPoint()))
    FWidget.map().BringMapPixelToCenter(Item->Pixel);
}

void CalibrationTool::selectNext(int Step) {
  const int Count = FDocument.itemCount();
  if (Count == 0) return;
  const int Now = FDocument.indexOf(FSelected);
  const int Next = Now < 0 ? (Step > 0 ? 0 : Count - 1) : (Now + Step + Count) % Count;
  goTo(FDocument.item(Next).Id);
}

// --- places

QPointF CalibrationTool::controlOf(TPoint MapPixel) const {
  return ControlOf(FWidget.map().View(), MapPixel);
}

TPoint CalibrationTool::pixelUnder(QPointF Control) const {
  return MapPixelUnder(FWidget.map().View(), Control);
}

bool CalibrationTool::onImage(TPoint MapPixel) const {
  const TGeoMap& Map = FWidget.map();
  return MapPixel.X >= 0 && MapPixel.Y >= 0 && MapPixel.X < Map.MapImgWidth() &&
         MapPixel.Y < Map.MapImgHeight();
}

TPoint CalibrationTool::insideImage(TPoint MapPixel) const {
  const TGeoMap& Map = FWidget.map();
  return {std::clamp(MapPixel.X, 0, std::max(0, Map.MapImgWidth() - 1)),
          std::clamp(MapPixel.Y, 0, std::max(0, Map.MapImgHeight() - 1))};
}

int CalibrationTool::itemNear(QPointF Control) const {
  const TViewState& View = FWidget.map().View();
  const QPointF Map = (Control + QPointF(0.5, 0.5)) / View.Magnification - QPointF(0.5, 0.5);
  return FDocument.nearestItem(Map.x() + View.TopLeft.X, Map.y() + View.TopLeft.Y,
                               GrabDistance / View.Magnification);
}

// --- events

bool CalibrationTool::eventFilter(QObject* Watched, QEvent* Event) {
  if (Watched == &FWidget && hasMouse() && !FTelling && handleMap(Event)) return true;
  return QObject::eventFilter(Watched, Event);
}

// Another tool of the map goes first; the hand gives way to this one.
bool CalibrationTool::hasMouse() const {
  using Mode = GeoMapWidget::MouseMode;
  const Mode Now = FWidget.mouseMode();
  return FActive && !FWidget.imageFile().isEmpty() && (Now == Mode::Pan || Now == Mode::NoAction);
}

// The map tells where the mouse is, but must not take a drag for one of its own.
void CalibrationTool::tellMouse(const QMouseEvent& Event) {
  QMouseEvent Told(QEvent::MouseMove, Event.position(), Event.globalPosition(), Qt::NoButton,
                   Qt::NoButton, Event.modifiers());
  FTelling = true;
  QCoreApplication::sendEvent(&FWidget, &Told);
  FTelling = false;
}

bool CalibrationTool::handleMap(QEvent* Event) {
  switch (Event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
      const auto& Mouse = static_cast<QMouseEvent&>(*Event);
      if (Mouse.button() != Qt::LeftButton && Mouse.button() != Qt::MiddleButton) return false;
      if (FDrag != Drag::None) return true;
      press(Mouse);
      const bool Double = Event->type() == QEvent::MouseButtonDblClick;
      if (Double && FDrag == Drag::Item) {
        FDrag = Drag::None;
        editSelected();
      }
      return true;
    }
    case QEvent::MouseMove:
      move(static_cast<QMouseEvent&>(*Event));
      tellMouse(static_cast<QMouseEvent&>(*Event));
      return true;
    case QEvent::MouseButtonRelease: {
      const auto& Mouse = static_cast<QMouseEvent&>(*Event);
      if (Mouse.button() != Qt::LeftButton && Mouse.button() != Qt::MiddleButton) return false;
      release(Mouse);
      return true;
    }
    case QEvent::Wheel: {
      const auto& Wheel = static_cast<QWheelEvent&>(*Event);
      if (!Wheel.modifiers().testFlag(Qt::ControlModifier) || !FMagnifierOn) return false;
      FMagnifier->setFactor(FMagnifier->factor() + (Wheel.angleDelta().y() > 0 ? 1 : -1));
      updateMagnifier();
      emit magnifierChanged();
      return true;
    }
    case QEvent::ContextMenu: {
      const auto& Menu = static_cast<QContextMenuEvent&>(*Event);
      const bool ByMouse = Menu.reason() == QContextMenuEvent::Mouse;
      const int Id = ByMouse ? itemNear(Menu.pos()) : FSelected;
      if (Id == 0) return false;
      select(Id);
      emit menuRequested(Menu.globalPos());
      return true;
    }
    case QEvent::Leave:
      FMouseInside = false;
      updateMagnifier();
      return false;
    case QEvent::ShortcutOverride: {
      // Otherwise Escape closes the window's message first.
      const bool Busy = FDrag != Drag::None || FEditor->isAsking();
      if (static_cast<QKeyEvent&>(*Event).key() != Qt::Key_Escape || !Busy) return false;
      Event->accept();
      return true;
    }
    case QEvent::KeyPress:
      return handleKey(static_cast<QKeyEvent&>(*Event));
    case QEvent::KeyRelease:
      if (static_cast<QKeyEvent&>(*Event).key() != Qt::Key_Space) return false;
      if (!static_cast<QKeyEvent&>(*Event).isAutoRepeat()) FSpaceDown = false;
      updateCursor();
      return true;
    case QEvent::FocusOut:
      FSpaceDown = false;
      return false;
    default:
      return false;
  }
}

void CalibrationTool::press(const QMouseEvent& Event) {
  FPressed = FMouse = Event.position();
  FMouseInside = true;
  FMoved = false;
  FKeyPause.stop();
  FDocument.endMerge();
  if (Event.button() == Qt::MiddleButton || FSpaceDown) {
    startPan();
    return;
  }
  FDrag = Drag::Press;
  const QPointF ToPending = FPending ? controlOf(*FPending) - FPressed : QPointF(HUGE_VAL, 0);
  if (std::hypot(ToPending.x(), ToPending.y()) <= GrabDistance) {
    FDrag = Drag::Pending;
    FGrabbed = *FPending;
  } else if (const int Id = itemNear(FPressed); Id != 0) {
    FDrag = Drag::Item;
    FGrabbed = FDocument.findItem(Id)->Pixel;
    select(Id);
  }
  updateCursor();
  updateMagnifier();
}

void CalibrationTool::move(const QMouseEvent& Event) {
  FMouse = Event.position();
  FMouseInside = FWidget.rect().contains(FMouse.toPoint());
  const QPointF Way = FMouse - FPressed;
  if (FDrag != Drag::None && std::hypot(Way.x(), Way.y()) >= DragThreshold) FMoved = true;
  if (FDrag == Drag::Press && FMoved) startPan();
  if (FMoved) dragTo(FMouse);
  updateCursor();
  updateMagnifier();
}

void CalibrationTool::startPan() {
  FDrag = Drag::Pan;
  FPanAnchor = FWidget.map().TopLeft();
}

void CalibrationTool::dragTo(QPointF Control) {
  const QPointF Way = Control - FPressed;
  const double Magnification = FWidget.map().Magnification();
  // The point keeps its distance from the mouse, so that taking hold of it does not move it.
  const QPoint Step = (Way / Magnification).toPoint();
  switch (FDrag) {
    case Drag::Item:
      FDocument.moveItem(FSelected, insideImage(Moved(FGrabbed, Step)), CalibMerge::Join);
      return;
    case Drag::Pending:
      setPending(insideImage(Moved(FGrabbed, Step)));
      return;
    case Drag::Pan: {
      TGeoMap& Map = FWidget.map();
      TViewState View = PanBy(Map.View(), FPanAnchor, FromQPoint(-Way.toPoint()));
      if (Map.ConfinePanToMapImage())
        View = TidyView(View, {Map.Width(), Map.Height()}, {Map.MapImgWidth(), Map.MapImgHeight()});
      Map.SetTopLeft(View.TopLeft);
      return;
    }
    default:
      return;
  }
}

void CalibrationTool::release(const QMouseEvent& Event) {
  const Drag Done = FDrag;
  FDrag = Drag::None;
  FMouse = Event.position();
  if (Done == Drag::Item) FDocument.endMerge();
  if (Done == Drag::Pan && FMoved) FWidget.map().ZoomStateOnStack();
  if (Done == Drag::Press) addAt(pixelUnder(FMouse));
  if (Done == Drag::Pending && FEditor->isAsking()) FEditor->takeFocus();
  updateCursor();
  updateMagnifier();
}

bool CalibrationTool::handleKey(const QKeyEvent& Event) {
  const int Key = Event.key();
  const auto Others = Event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
  if (Key == Qt::Key_Escape) {
    if (FDrag == Drag::None && !FEditor->isAsking() && FSelected == 0) return false;
    if (FDrag == Drag::None && !FEditor->isAsking())
      select(0);
    else
      abort();
    return true;
  }
  if (Others != Qt::NoModifier) return false;
  if (Key == Qt::Key_Space) {
    FSpaceDown = true;
    updateCursor();
    return true;
  }
  if (Key == Qt::Key_Return || Key == Qt::Key_Enter) {
    if (FSelected == 0) return false;
    editSelected();
    return true;
  }
  const std::optional<QPoint> Step = ArrowStep(Key);
  if (!Step) return false;
  return moveSelected(*Step * (Event.modifiers().testFlag(Qt::ShiftModifier) ? FarKeyStep : 1));
}

bool CalibrationTool::moveSelected(QPoint Step) {
  if (FPending) {
    nudgePending(Step);
    return true;
  }
  const CalibItem* Item = FDocument.findItem(FSelected);
  if (Item == nullptr || FDrag != Drag::None) return false;
  const TPoint To = insideImage(Moved(Item->Pixel, Step));
  FDocument.moveItem(FSelected, To, CalibMerge::Join);
  FKeyPause.start();
  if (!FWidget.rect().contains(controlOf(To).toPoint())) FWidget.map().BringMapPixelToCenter(To);
  updateMagnifier();
  return true;
}

void CalibrationTool::nudgePending(QPoint Step) {
  if (FPending) setPending(insideImage(Moved(*FPending, Step)));
}

void CalibrationTool::abort() {
  if (FDrag == Drag::Item) FDocument.cancelMerge();
  if (FDrag == Drag::Pending) setPending(FGrabbed);
  const bool Dragging = FDrag != Drag::None;
  FDrag = Drag::None;
  FKeyPause.stop();
  FDocument.endMerge();
  if (!Dragging) FEditor->cancel();
  updateCursor();
  updateMagnifier();
}

}  // namespace zav
