// geo_map_input.cpp - GeoMapWidget: mouse, wheel, touchpad and keyboard.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>

#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_convert.h>

namespace zav {

namespace {

constexpr int32_t PanStep = 40;  // control pixels

}  // namespace

// --- mouse

// Where zooming met a limit, the control has changed its view without painting it.
bool GeoMapWidget::MouseEvent(const std::function<void()>& Call) {
  const QPointer<GeoMapWidget> Self(this);
  const bool Done = Guarded(Call);
  if (!Done && Self && FMap->View() != FPaintedView) Guarded([this] { FMap->Paint(); });
  return Done;
}

void GeoMapWidget::PressButton(const QMouseEvent& Event, TMouseButton Button) {
  const TPoint At = PixelAt(Event.position());
  FPressed = ToQPoint(At);
  const TShiftState Shift = ToShiftState(Event.modifiers(), Event.buttons());
  FRightEnds = Button == TMouseButton::mbRight && FMap->MouseDragging();
  MouseEvent([&] {
    if (FGestureEnd.isActive()) EndGesture();
    FMap->MouseDown(Button, Shift, At.X, At.Y);
  });
}

void GeoMapWidget::mousePressEvent(QMouseEvent* Event) {
  if (const auto Button = ToMouseButton(Event->button()))
    PressButton(*Event, *Button);
  else
    QWidget::mousePressEvent(Event);
}

void GeoMapWidget::mouseDoubleClickEvent(QMouseEvent* Event) {
  const auto Button = ToMouseButton(Event->button());
  if (!Button) return QWidget::mouseDoubleClickEvent(Event);
  const QPointer<GeoMapWidget> Self(this);
  PressButton(*Event, *Button);
  if (Self && *Button == TMouseButton::mbLeft) Guarded([this] { Q_EMIT doubleClicked(FPressed); });
}

void GeoMapWidget::mouseMoveEvent(QMouseEvent* Event) {
  FMouse = Event->position();
  FMouseInside = rect().contains(ToQPoint(PixelAt(FMouse)));
  const QPointer<GeoMapWidget> Self(this);
  MouseEvent([&] {
    const TPoint At = PixelAt(Event->position());
    FMap->MouseMove(ToShiftState(Event->modifiers(), Event->buttons()), At.X, At.Y);
  });
  if (Self) ReportMousePosition();
}

void GeoMapWidget::mouseReleaseEvent(QMouseEvent* Event) {
  const auto Button = ToMouseButton(Event->button());
  if (!Button) return QWidget::mouseReleaseEvent(Event);
  const QPointer<GeoMapWidget> Self(this);
  const TPoint At = PixelAt(Event->position());
  MouseEvent([&] {
    FMap->MouseUp(*Button, ToShiftState(Event->modifiers(), Event->buttons()), At.X, At.Y);
  });
  if (!Self || *Button != TMouseButton::mbLeft) return;
  if ((ToQPoint(At) - FPressed).manhattanLength() < QApplication::startDragDistance())
    Guarded([&] { Q_EMIT clicked(ToQPoint(At)); });
}

void GeoMapWidget::leaveEvent(QEvent* Event) {
  FMouseInside = false;
  ReportMousePosition();
  QWidget::leaveEvent(Event);
}

void GeoMapWidget::ReportMousePosition() {
  Guarded([this] {
    const TViewState& View = FMap->View();
    const QPointF Map = QPointF(ToQPoint(View.TopLeft)) + FMouse / View.Magnification;
    const bool OnImage = FMouseInside && Map.x() >= 0 && Map.y() >= 0 &&
                         Map.x() < FMap->MapImgWidth() && Map.y() < FMap->MapImgHeight();
    TCoords Position;
    const bool Valid = OnImage && FMap->Calibration().ToGeo(Map.x(), Map.y(), Position);
    if (!Valid) Position = {};
    const TMousePosition Now{Map, Position, Valid};
    if (FToldPosition == Now) return;
    FToldPosition = Now;
    Q_EMIT mousePositionChanged(Map, Position.Latit, Position.Longit, Valid);
  });
}

// --- what the tools tell

void GeoMapWidget::RubberBandBegun(TGeoMap& /*Map*/, TPoint MapPixel) {
  Q_EMIT rubberBandBegun(ToQPoint(MapPixel));
}

void GeoMapWidget::RubberBandContinued(TGeoMap& /*Map*/, TPoint MapPixel) {
  Q_EMIT rubberBandContinued(ToQPoint(MapPixel));
}

void GeoMapWidget::RubberBandEnded(TGeoMap& /*Map*/, TPoint MapPixel) {
  Q_EMIT rubberBandEnded(ToQPoint(MapPixel));
}

void GeoMapWidget::PixelsSelected(TGeoMap& /*Map*/, TPoint From, TPoint To) {
  Q_EMIT pixelsSelected(ToQPoint(From), ToQPoint(To));
}

void GeoMapWidget::RectSelected(TGeoMap& /*Map*/, int Kind, double X1, double Y1, double X2,
                                double Y2) {
  if (Kind == 1) Q_EMIT areaSelected(Y1, X1, Y2, X2);
}

// A button that is held belongs to a widget that is seen; its release may come to another one.
void GeoMapWidget::hideEvent(QHideEvent* Event) {
  if (Guarded([this] { FMap->EndMouseDrag(); })) QWidget::hideEvent(Event);
}

// While the program waits for a box, Escape gives it up wherever the keyboard's focus is, but for
// menus and dialogs that are open.
void GeoMapWidget::MouseBoxChanged(TGeoMap& Map) {
  if (Map.MouseDragging())
    qApp->installEventFilter(this);
  else
    qApp->removeEventFilter(this);
}

bool GeoMapWidget::eventFilter(QObject* Watched, QEvent* Event) {
  const bool Key = Event->type() == QEvent::KeyPress || Event->type() == QEvent::ShortcutOverride;
  if (!Key || static_cast<QKeyEvent*>(Event)->key() != Qt::Key_Escape ||
      QApplication::activePopupWidget() != nullptr || QApplication::activeModalWidget() != nullptr)
    return QWidget::eventFilter(Watched, Event);
  Event->accept();
  if (Event->type() == QEvent::KeyPress) Guarded([this] { FMap->MouseBoxAbort(); });
  return Event->type() == QEvent::KeyPress;
}

// --- zooming and panning without dragging

void GeoMapWidget::ViewChangedByUser() {
  FGestureView = FMap->View();
  FGestureEnd.start();
}

void GeoMapWidget::EndGesture() {
  FGestureEnd.stop();
  // The program may have gone elsewhere meanwhile, through the history for instance.
  if (FMap->View() == FGestureView) FMap->ZoomStateOnStack();
}

void GeoMapWidget::ZoomAt(QPointF Position, int Steps) {
  const QPointer<GeoMapWidget> Self(this);
  bool Changed = false;
  Guarded([&] {
    if (!FMap->MapImgFile().empty()) Changed = FMap->ZoomAt(PixelAt(Position), Steps);
  });
  if (Self && Changed) ViewChangedByUser();
}

void GeoMapWidget::TurnWheel(QPointF Position, double Units) {
  if (Units == 0 || !std::isfinite(Units)) return;
  // Turning back begins anew: a whole step back is a step, whatever was left over.
  if (Units * FWheelUnits < 0) FWheelUnits = 0;
  FWheelUnits += Units;
  const double Steps = std::trunc(FWheelUnits / UnitsPerStep);
  if (Steps == 0) return;
  FWheelUnits -= Steps * UnitsPerStep;
  constexpr double Many = 100;  // more than there are from limit to limit
  ZoomAt(Position, static_cast<int>(std::clamp(Steps, -Many, Many)));
}

void GeoMapWidget::wheelEvent(QWheelEvent* Event) {
  // Some touchpads tell pixels only.
  const int Units =
      Event->angleDelta().isNull() ? Event->pixelDelta().y() : Event->angleDelta().y();
  if (Units == 0 || FMap->MapImgFile().empty()) {
    Event->ignore();
    return;
  }
  Event->accept();
  TurnWheel(Event->position(), Units);
}

void GeoMapWidget::zoomIn() { ZoomAt(QRectF(rect()).center(), 1); }

void GeoMapWidget::zoomOut() { ZoomAt(QRectF(rect()).center(), -1); }

void GeoMapWidget::zoomOneToOne() {
  const QPointer<GeoMapWidget> Self(this);
  const bool Done = Guarded([&] {
    if (FMap->MapImgFile().empty() || FMap->Magnification() == 1) return;
    const TSize Control{FMap->Width(), FMap->Height()};
    const TPoint Middle = FMap->ControlToMapImage({Control.Width / 2, Control.Height / 2});
    TViewState View = CenterOn({FMap->TopLeft(), 1}, Middle, Control);
    if (FMap->ConfinePanToMapImage())
      View = Confine(View, Control, {FMap->MapImgWidth(), FMap->MapImgHeight()});
    FMap->SetView(View.TopLeft, View.Magnification);
    if (Self) FMap->DoZoomPanEvent();
  });
  if (Done) ViewChangedByUser();
}

void GeoMapWidget::zoomToFit() {
  const QPointer<GeoMapWidget> Self(this);
  const bool Done = Guarded([&] {
    if (FMap->MapImgFile().empty()) return;
    FMap->ZoomFitPage();
    if (Self) FMap->DoZoomPanEvent();
  });
  if (Done) ViewChangedByUser();
}

void GeoMapWidget::panBy(QPoint Distance) {
  bool Changed = false;
  const bool Done = Guarded([&] {
    if (!FMap->MapImgFile().empty()) Changed = FMap->PanBy(FromQPoint(Distance));
  });
  if (Done && Changed) ViewChangedByUser();
}

void GeoMapWidget::centerOn(double Latitude, double Longitude) {
  Guarded([&] { FMap->BringLocationToCenter(Latitude, Longitude); });
}

// --- keyboard

bool GeoMapWidget::HandleKey(int Key, bool Far) {
  const int StepX = Far ? std::max(width() * 3 / 4, PanStep) : PanStep;
  const int StepY = Far ? std::max(height() * 3 / 4, PanStep) : PanStep;
  switch (Key) {
    case Qt::Key_Left:
      panBy({-StepX, 0});
      return true;
    case Qt::Key_Right:
      panBy({StepX, 0});
      return true;
    case Qt::Key_Up:
      panBy({0, -StepY});
      return true;
    case Qt::Key_Down:
      panBy({0, StepY});
      return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal:  // the same key without Shift on many keyboards
      zoomIn();
      return true;
    case Qt::Key_Minus:
      zoomOut();
      return true;
    case Qt::Key_0:
      zoomOneToOne();
      return true;
    case Qt::Key_F:
    case Qt::Key_Home:
      zoomToFit();
      return true;
    default:
      return false;
  }
}

void GeoMapWidget::keyPressEvent(QKeyEvent* Event) {
  if (Event->key() == Qt::Key_Escape && MouseBusy()) {
    Guarded([this] { FMap->CancelMouse(); });
    return Event->accept();
  }
  // With other modifiers they are the application's shortcuts.
  const auto Others = Event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
  if (Others != Qt::NoModifier || FMap->MapImgFile().empty()) return QWidget::keyPressEvent(Event);
  Event->accept();
  if (!HandleKey(Event->key(), Event->modifiers().testFlag(Qt::ShiftModifier)))
    QWidget::keyPressEvent(Event);
}

}  // namespace zav
