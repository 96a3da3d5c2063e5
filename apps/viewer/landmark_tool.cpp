// landmark_tool.cpp - see landmark_tool.h.
// SPDX-License-Identifier: MIT
#include "landmark_tool.h"

#include <algorithm>
#include <cmath>

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_convert.h>

#include "arrow_step.h"
#include "common/free_captions.h"
#include "landmark_document.h"
#include "landmark_overlay.h"
#include "landmark_shapes.h"

namespace zav {

namespace {

constexpr double DragThreshold = 4;  // control pixels; a click may shake as much
constexpr int KeyPause = 800;        // milliseconds
constexpr int FarKeyStep = 10;       // control pixels, with Shift

// A centimetre on the ground; more digits would only be in the way.
double Rounded(double Degrees) { return std::round(Degrees * 1e7) / 1e7; }

double LengthOf(QPointF Way) { return std::hypot(Way.x(), Way.y()); }

}  // namespace

LandmarkTool::LandmarkTool(GeoMapWidget& Widget, LandmarkDocument& Document, QObject* Parent)
    : QObject(Parent), FWidget(Widget), FDocument(Document), FOverlay(new LandmarkOverlay(Widget)) {
  Widget.installEventFilter(this);
  connect(&Widget, &GeoMapWidget::clicked, this, &LandmarkTool::click);
  connect(&Widget, &GeoMapWidget::settingsChanged, this, &LandmarkTool::updateCursor);
  connect(&Widget, &GeoMapWidget::mapChanged, this, &LandmarkTool::abort);
  connect(&Widget, &GeoMapWidget::viewChanged, this, &LandmarkTool::updateRing);
  connect(&Widget, &GeoMapWidget::calibrationChanged, this, &LandmarkTool::updateRing);
  connect(&Document, &LandmarkDocument::changed, this, &LandmarkTool::updateRing);
  FKeyPause.setSingleShot(true);
  FKeyPause.setInterval(KeyPause);
  connect(&FKeyPause, &QTimer::timeout, &Document, &LandmarkDocument::endMerge);
}

void LandmarkTool::setActive(bool Active) {
  if (FActive == Active) return;
  if (!Active) abort();
  FActive = Active;
  updateCursor();
  updateRing();
  emit activeChanged(Active);
}

bool LandmarkTool::hasMouse() const {
  using Mode = GeoMapWidget::MouseMode;
  const Mode Now = FWidget.mouseMode();
  return FActive && !FWidget.imageFile().isEmpty() && (Now == Mode::Pan || Now == Mode::NoAction);
}

void LandmarkTool::setMode(LandmarkMode Mode) {
  abort();
  FMode = Mode;
  if (Mode != LandmarkMode::Select) select(0);
  updateCursor();
  emit modeChanged();
}

// --- selection

void LandmarkTool::select(int Landmark) {
  if (!FDocument.has(Landmark)) Landmark = 0;
  if (FSelected == Landmark) return;
  FDocument.endMerge();
  FSelected = Landmark;
  updateRing();
  emit selectionChanged(Landmark);
}

void LandmarkTool::goTo(int Landmark) {
  select(Landmark);
  if (FSelected == 0) return;
  constexpr int Margin = 20;
  const TLandMark& To = FDocument.list()[FSelected];
  bool Known = false;
  const QPointF At = controlOf({To.Latitude, To.Longitude}, Known);
  const QRect Seen = FWidget.rect().adjusted(Margin, Margin, -Margin, -Margin);
  Known = Known && IsPlacedRight(FWidget.map().Calibration(), To.Latitude, To.Longitude);
  if (!Known) return emit refused(tr("\"%1\" is not on this map.").arg(FDocument.title(Landmark)));
  if (!Seen.contains(At.toPoint())) FWidget.map().BringLocationToCenter(To.Latitude, To.Longitude);
}

void LandmarkTool::removeSelected() {
  const int Landmark = FSelected;
  if (Landmark == 0) return;
  abort();
  select(0);
  FDocument.remove(Landmark);
}

// --- places

int LandmarkTool::landmarkAt(QPointF Control) {
  return FPicker.at(FWidget.map(), Control, GrabDistance);
}

// Of the middle of a control pixel.
std::optional<TCoords> LandmarkTool::positionAt(QPointF Control) const {
  const TGeoMap& Map = FWidget.map();
  const TViewState& View = Map.View();
  const QPointF Pixel = (Control + QPointF(0.5, 0.5)) / View.Magnification - QPointF(0.5, 0.5) +
                        QPointF(View.TopLeft.X, View.TopLeft.Y);
  if (Pixel.x() < -0.5 || Pixel.y() < -0.5 || Pixel.x() > Map.MapImgWidth() - 0.5 ||
      Pixel.y() > Map.MapImgHeight() - 0.5)
    return std::nullopt;
  TCoords Position;
  if (!Map.Calibration().ToGeo(Pixel.x(), Pixel.y(), Position)) return std::nullopt;
  return Position;
}

QPointF LandmarkTool::controlOf(const TCoords& Position, bool& Known) const {
  const TGeoMap& Map = FWidget.map();
  const TViewState& View = Map.View();
  double X = 0;
  double Y = 0;
  Known = Map.Calibration().Model() != TCalibModel::cmUndefined &&
          Map.Calibration().ToPixel(Position.Latit, Position.Longit, X, Y);
  return QPointF(X - View.TopLeft.X + 0.5, Y - View.TopLeft.Y + 0.5) * View.Magnification -
         QPointF(0.5, 0.5);
}

// --- events

bool LandmarkTool::eventFilter(QObject* Watched, QEvent* Event) {
  if (Watched == &FWidget && hasMouse() && handleMap(Event)) return true;
  return QObject::eventFilter(Watched, Event);
}

bool LandmarkTool::handleMap(QEvent* Event) {
  switch (Event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return press(static_cast<QMouseEvent&>(*Event));
    case QEvent::MouseMove:
      return move(static_cast<QMouseEvent&>(*Event));
    case QEvent::MouseButtonRelease:
      return release(static_cast<QMouseEvent&>(*Event));
    case QEvent::ContextMenu: {
      const auto& Menu = static_cast<QContextMenuEvent&>(*Event);
      const bool ByMouse = Menu.reason() == QContextMenuEvent::Mouse;
      const int Landmark = ByMouse ? landmarkAt(Menu.pos()) : FSelected;
      if (Landmark == 0) return false;
      select(Landmark);
      emit menuRequested(Menu.globalPos());
      return true;
    }
    case QEvent::ShortcutOverride:
      // Otherwise Escape closes the window's message first.
      if (static_cast<QKeyEvent&>(*Event).key() != Qt::Key_Escape || FDrag == Drag::None)
        return false;
      Event->accept();
      return true;
    case QEvent::KeyPress:
      return handleKey(static_cast<QKeyEvent&>(*Event));
    default:
      return false;
  }
}

bool LandmarkTool::press(const QMouseEvent& Event) {
  if (FDrag != Drag::None) return true;
  if (Event.button() != Qt::LeftButton) return false;
  FPressed = FMouse = Event.position();
  FMoved = false;
  FDocument.endMerge();
  if (FMode == LandmarkMode::DeleteCircle || FMode == LandmarkMode::DeleteRectangle) {
    if (!positionAt(FPressed)) return false;
    FDrag = Drag::Shape;
    return true;
  }
  if (FMode != LandmarkMode::Select) return false;
  const int Landmark = landmarkAt(FPressed);
  if (Landmark == 0) return false;
  select(Landmark);
  const TLandMark& Grabbed = FDocument.list()[Landmark];
  bool Known = false;
  FGrabbed = controlOf({Grabbed.Latitude, Grabbed.Longitude}, Known);
  FDrag = Drag::Landmark;
  FWidget.setFocus();
  updateCursor();
  return true;
}

bool LandmarkTool::move(const QMouseEvent& Event) {
  FMouse = Event.position();
  if (FDrag == Drag::None) {
    if (Event.buttons() == Qt::NoButton) updateCursor();
    return false;
  }
  if (LengthOf(FMouse - FPressed) >= DragThreshold) FMoved = true;
  if (!FMoved) return true;
  FDrag == Drag::Landmark ? moveTo(FGrabbed + FMouse - FPressed) : showShape(FMouse);
  return true;
}

bool LandmarkTool::release(const QMouseEvent& Event) {
  if (FDrag == Drag::None) return false;
  if (Event.button() != Qt::LeftButton) return true;
  const Drag Done = FDrag;
  FDrag = Drag::None;
  FOverlay->setShape({});
  if (Done == Drag::Landmark) FDocument.endMerge();
  if (Done == Drag::Shape && FMoved) removeInShape(Event.position());
  updateCursor();
  return true;
}

bool LandmarkTool::handleKey(const QKeyEvent& Event) {
  // With other keys held, arrows are the window's, also when it has nothing to do for them.
  const auto Others = Event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
  const std::optional<QPoint> Step = ArrowStep(Event.key());
  if (Step && Others == Qt::NoModifier) {
    return moveSelected(*Step * (Event.modifiers().testFlag(Qt::ShiftModifier) ? FarKeyStep : 1));
  }
  if (Event.key() != Qt::Key_Escape || Event.modifiers() != Qt::NoModifier) return false;
  if (FDrag != Drag::None) {
    abort();
  } else if (FMode != LandmarkMode::Select) {
    setMode(LandmarkMode::Select);
  } else if (FSelected != 0) {
    select(0);
  } else {
    return false;
  }
  return true;
}

bool LandmarkTool::moveSelected(QPoint Step) {
  if (FDrag != Drag::None || !FDocument.has(FSelected)) return false;
  const TLandMark& Shown = FDocument.list()[FSelected];
  bool Known = false;
  const QPointF At = controlOf({Shown.Latitude, Shown.Longitude}, Known);
  if (!Known) return false;
  FKeyPause.stop();
  moveTo(At + Step);
  FKeyPause.start();
  goTo(FSelected);
  return true;
}

void LandmarkTool::abort() {
  const Drag Was = FDrag;
  FKeyPause.stop();
  FDrag = Drag::None;
  FOverlay->setShape({});
  if (Was == Drag::Landmark)
    FDocument.cancelMerge();
  else
    FDocument.endMerge();
}

// The map saw a click on a place that this tool has not taken.
void LandmarkTool::click(QPoint Control) {
  if (!hasMouse()) return;
  if (FMode == LandmarkMode::Add) return addAt(Control);
  if (FMode == LandmarkMode::Select) return select(0);
  if (FMode != LandmarkMode::Delete) return;
  const int Landmark = landmarkAt(Control);
  if (Landmark == 0) return emit refused(tr("There is no landmark here."));
  const QString Name = FDocument.title(Landmark);
  FDocument.remove(Landmark);
  emit done(tr("Deleted \"%1\"").arg(Name));
}

// --- edits

void LandmarkTool::addAt(QPointF Control) {
  const std::optional<TCoords> Position = positionAt(Control);
  if (!Position)
    return emit refused(FWidget.calibrationModel() == GeoMapWidget::CalibrationModel::Undefined
                            ? tr("Landmarks need a position, and this map is not calibrated.")
                            : tr("This place has no position on the map."));
  TLandMark New = FLook;
  New.Latitude = Rounded(Position->Latit);
  New.Longitude = Rounded(Position->Longit);
  if (!FDocument.add(New))
    return emit refused(tr("There is not enough memory for so many landmarks."));
  select(FDocument.count());
  emit added(FSelected);
}

void LandmarkTool::moveTo(QPointF Control) {
  const std::optional<TCoords> Position = positionAt(Control);
  if (!Position || !FDocument.has(FSelected)) return;
  TLandMark Moved = FDocument.list()[FSelected];
  Moved.Latitude = Rounded(Position->Latit);
  Moved.Longitude = Rounded(Position->Longit);
  FDocument.replace(FSelected, Moved, tr("Move \"%1\"").arg(FDocument.title(FSelected)),
                    LandmarkMerge::Join);
}

void LandmarkTool::showShape(QPointF To) {
  const std::optional<TCoords> A = positionAt(FPressed);
  const std::optional<TCoords> B = positionAt(To);
  if (!A || !B) return;
  const std::vector<TCoords> Outline = FMode == LandmarkMode::DeleteCircle
                                           ? CircleAbout(*A, DegreesBetween(*A, *B))
                                           : RectangleOf(*A, *B);
  QPolygonF Shape;
  for (const TCoords& Point : Outline) {
    bool Known = false;
    const QPointF At = controlOf(Point, Known);
    if (Known) Shape << At;
  }
  FOverlay->setShape(Shape);
}

void LandmarkTool::removeInShape(QPointF To) {
  const std::optional<TCoords> A = positionAt(FPressed);
  const std::optional<TCoords> B = positionAt(To);
  if (!A || !B) return emit refused(tr("That shape reaches beyond the map."));
  if (FMode == LandmarkMode::DeleteCircle) {
    const double Radius = DegreesBetween(*A, *B);
    return removeVisible(tr("Delete in a circle"), [&](const TLandMark& Each) {
      return DegreesBetween(*A, {Each.Latitude, Each.Longitude}) < Radius;
    });
  }
  const auto [South, North] = std::minmax(A->Latit, B->Latit);
  const auto [West, East] = std::minmax(A->Longit, B->Longit);
  removeVisible(tr("Delete in a rectangle"), [&, S = South, N = North, W = West,
                                              E = East](const TLandMark& Each) {
    return Each.Latitude > S && Each.Latitude < N && Each.Longitude > W && Each.Longitude < E;
  });
}

// What is not seen is not to be lost by accident.
void LandmarkTool::removeVisible(const QString& Text,
                                 const std::function<bool(const TLandMark&)>& Inside) {
  select(0);
  const TGeoMap& Map = FWidget.map();
  const int Count = FDocument.removeWhere(Text, [&](const TLandMark& Each) {
    return Map.GetClassVisibility(Each.ClassFlag) && Inside(Each);
  });
  emit done(tr("Deleted %n landmark(s)", nullptr, Count));
}

// So that even a small symbol is found again.
void LandmarkTool::updateRing() {
  std::optional<QPointF> Middle;
  if (FActive && FDocument.has(FSelected)) {
    const TLandMark& Shown = FDocument.list()[FSelected];
    bool Known = false;
    const QPointF At = controlOf({Shown.Latitude, Shown.Longitude}, Known);
    if (Known) Middle = At + QPointF(0.5, 0.5);
  }
  FOverlay->setRing(Middle);
}

void LandmarkTool::updateCursor() {
  const bool Mine = hasMouse();
  if (!Mine && !FCursorSet) return;
  FCursorSet = Mine;
  if (!Mine) return;  // the map's own tool has set its cursor
  Qt::CursorShape Shape = Qt::ArrowCursor;
  if (FDrag == Drag::Landmark)
    Shape = Qt::SizeAllCursor;
  else if (FMode == LandmarkMode::Select)
    Shape = landmarkAt(FMouse) != 0 ? Qt::PointingHandCursor : Qt::OpenHandCursor;
  else if (FMode == LandmarkMode::Delete)
    Shape = landmarkAt(FMouse) != 0 ? Qt::PointingHandCursor : Qt::ForbiddenCursor;
  else
    Shape = Qt::CrossCursor;
  if (FWidget.cursor().shape() != Shape) FWidget.setCursor(Shape);
}

}  // namespace zav
