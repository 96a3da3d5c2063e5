// geo_map_widget.cpp - GeoMapWidget: life, painting, loading and the boundary for exceptions.
// SPDX-License-Identifier: MIT
#include <platform/qt/geo_map_widget.h>

#include <cmath>
#include <utility>

#include <QContextMenuEvent>
#include <QEvent>
#include <QImage>
#include <QKeyEvent>
#include <QNativeGestureEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QResizeEvent>

#include <geoatlas/map_register.h>
#include <platform/base/paths.h>
#include <platform/qt/geo_map_accessible.h>
#include <platform/qt/qt_control_window.h>
#include <platform/qt/qt_convert.h>
#include <platform/qt/qt_guard.h>
#include <platform/qt/qt_image.h>

namespace zav {

namespace {

constexpr int GesturePause = 500;  // milliseconds

}  // namespace

GeoMapWidget::GeoMapWidget(QWidget* Parent)
    : QWidget(Parent), FHost(*this), FMap(std::make_unique<TGeoMap>(nullptr, FHost)) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_NoSystemBackground);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  FShownView = FMap->View();
  FMap->AddObserver(this);
  FGestureEnd.setSingleShot(true);
  FGestureEnd.setInterval(GesturePause);
  connect(&FGestureEnd, &QTimer::timeout, this, [this] { Guarded([this] { EndGesture(); }); });
  resize(FMap->Width(), FMap->Height());
  FollowForAccessibility(*this);
}

GeoMapWidget::~GeoMapWidget() { FMap->RemoveObserver(this); }

TQtControlWindow& GeoMapWidget::Window() const {
  // The widget's own host made it.
  return static_cast<TQtControlWindow&>(FMap->Window());
}

QImage GeoMapWidget::picture() const {
  QImage Image = WrapBitmap(std::as_const(Window().Buffer())).convertToFormat(QImage::Format_RGB32);
  Image.setDevicePixelRatio(Window().Scale());
  return Image;
}

// --- the boundary for exceptions

bool GeoMapWidget::Guarded(const std::function<void()>& Call) {
  const QPointer<GeoMapWidget> Self(this);
  const auto AtItsSize = [&] {
    // Qt tells of a new size only when the widget is shown; operations count with it before.
    if (testAttribute(Qt::WA_PendingResizeEvent)) FMap->SetSize(width(), height());
    if (Self) Call();
  };
  return RunGuarded(this, AtItsSize, [this](const QString& Text) { Q_EMIT errorOccurred(Text); });
}

// --- loading

bool GeoMapWidget::loadMap(const QString& CalibrationFile) {
  return Guarded([&] { LoadCalibration(CalibrationFile); });
}

void GeoMapWidget::LoadCalibration(const QString& CalibrationFile) {
  const std::string Path = FromQString(CalibrationFile);
  // Read once before anything changes, because the map keeps silent about a file without
  // calibration.
  const TCalibData Data = ReadMapCalibration(Path);

  const QPointer<GeoMapWidget> Self(this);
  FMapFile = CalibrationFile;
  const bool GraticuleComplete = FMap->LoadCalDataFromXML(Path, "");
  if (Self.isNull()) return;
  // The file format has no word for this model.
  if (GraticuleComplete && FMap->CalibModel() == TCalibModel::cmUndefined)
    FMap->SetCalibModel(TCalibModel::cmParabolicIp);
  if (Self.isNull()) return;
  if (FMap->MapImgFile().empty())
    throw EInOutError(Path, "the map image \"" + Data.MapFName + "\" was not found");
  FMap->ClearZoomHistory();
}

bool GeoMapWidget::loadImage(const QString& ImageFile) {
  return Guarded([&] {
    const std::string Path = FromQString(ImageFile);
    // A handler may know another file for the name.
    if (!FMap->OnMapImageRequest) {
      if (ResolveFile(Path).empty()) throw EInOutError(Path, "no such file");
      if (ImageKindOfName(Path) == TImageKind::ikUnknown)
        throw EInOutError(Path, "no image file that can be read (.bmp, .jpg, .jpeg)");
    }
    FMap->SetMapImgName(Path);
  });
}

void GeoMapWidget::clear() {
  FMapFile.clear();
  Guarded([this] { FMap->Clear(); });
}

// --- what the map tells

void GeoMapWidget::ViewChanged(TGeoMap& Map) {
  const TViewState Before = FShownView;
  const TViewState Now = Map.View();
  FShownView = Now;
  const QPointer<GeoMapWidget> Self(this);
  Q_EMIT viewChanged();
  if (Self && Now.Magnification != Before.Magnification)
    Q_EMIT magnificationChanged(Now.Magnification);
  if (Self && Now.TopLeft != Before.TopLeft) Q_EMIT topLeftChanged(ToQPoint(Now.TopLeft));
  if (Self && FMouseInside) ReportMousePosition();
}

void GeoMapWidget::CalibrationChanged(TGeoMap& /*Map*/) {
  const QPointer<GeoMapWidget> Self(this);
  Q_EMIT calibrationChanged();
  if (Self && FMouseInside) ReportMousePosition();
}

void GeoMapWidget::ImageChanged(TGeoMap& /*Map*/) {
  const QPointer<GeoMapWidget> Self(this);
  Q_EMIT mapChanged();
  if (Self && FMouseInside) ReportMousePosition();
}

// --- painting

void GeoMapWidget::paintEvent(QPaintEvent* Event) {
  // No handler may run within a paint event, so the picture for another scale is drawn afterwards.
  if (Window().Scale() != devicePixelRatioF())
    QTimer::singleShot(0, this, &GeoMapWidget::FollowScreen);
  QPainter Painter(this);
  Window().CopyTo(Painter, Event->region());
}

void GeoMapWidget::BeforePaintEvent(const std::function<void()>& Draw) {
  const QPointer<GeoMapWidget> Self(this);
  Window().SetPaintPending(true);
  Guarded(Draw);
  if (Self) Window().SetPaintPending(false);
}

void GeoMapWidget::FollowScreen() {
  if (Window().Scale() == devicePixelRatioF()) return;
  BeforePaintEvent([this] {
    Window().SetScale(devicePixelRatioF());
    update();
    FMap->Paint();
  });
}

void GeoMapWidget::resizeEvent(QResizeEvent* /*Event*/) {
  FollowScreen();
  BeforePaintEvent([this] { FMap->SetSize(width(), height()); });
}

bool GeoMapWidget::event(QEvent* Event) {
  switch (Event->type()) {
    case QEvent::ShowToParent:
    case QEvent::HideToParent: {
      const bool Visible = Event->type() == QEvent::ShowToParent;
      if (!Guarded([&] { FMap->SetVisible(Visible); })) return true;
      break;
    }
    case QEvent::ContextMenu:
      if (FRightEnds &&
          static_cast<QContextMenuEvent*>(Event)->reason() == QContextMenuEvent::Mouse)
        return true;
      break;
    case QEvent::ShortcutOverride:
      // Escape is the tool's while one is under way, whatever shortcut it is otherwise.
      if (static_cast<QKeyEvent*>(Event)->key() == Qt::Key_Escape && MouseBusy()) {
        Event->accept();
        return true;
      }
      break;
    case QEvent::NativeGesture: {
      const auto* Gesture = static_cast<QNativeGestureEvent*>(Event);
      if (Gesture->gestureType() != Qt::ZoomNativeGesture) break;
      // The value is what is added to a size of 1.
      TurnWheel(Gesture->position(), UnitsPerDoubling * std::log2(1 + Gesture->value()));
      return true;
    }
    default:
      break;
  }
  return QWidget::event(Event);
}

}  // namespace zav
