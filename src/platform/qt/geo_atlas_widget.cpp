// geo_atlas_widget.cpp - see geo_atlas_widget.h.
// SPDX-License-Identifier: MIT
#include <platform/qt/geo_atlas_widget.h>

#include <QPointer>
#include <QResizeEvent>
#include <QVBoxLayout>
#include <QWindow>

#include <platform/qt/qt_convert.h>
#include <platform/qt/qt_glyphs.h>
#include <platform/qt/qt_guard.h>
#include <platform/qt/qt_panel.h>
#include <platform/raster/raster_canvas.h>

namespace zav {
namespace {

// The atlas draws nothing of its own: its window is the cursor.
class TAtlasWindow final : public TControlWindow {
 public:
  explicit TAtlasWindow(QWidget& Widget) : FWidget(Widget) {}
  double Scale() const override { return FWidget.devicePixelRatioF(); }
  void Resize(int32_t /*Width*/, int32_t /*Height*/) override {}
  TCanvas& Canvas() override { return FCanvas; }
  TCanvas& DeviceCanvas() override { return FCanvas; }
  void Show(std::span<const TRect> /*Areas*/) override {}
  void SetCursor(int32_t Cursor) override { FWidget.setCursor(MakeCursor(Cursor, Scale())); }

 private:
  QWidget& FWidget;
  TBitmap FNothing;
  TRasterCanvas FCanvas{FNothing};
};

}  // namespace

// Fonts and all else are those of the map's host.
class GeoAtlasWidget::TAtlasHost final : public THost {
 public:
  explicit TAtlasHost(GeoAtlasWidget& Widget)
      : FWidget(Widget), FMapHost(Widget.FMapWidget->map().Host()) {}

  TFontEngine& Fonts() override { return FMapHost.Fonts(); }
  TClipboard& Clipboard() override { return FMapHost.Clipboard(); }
  TPrinter& Printer() override { return FMapHost.Printer(); }
  bool ProcessMessages(const std::function<bool()>& Done) override {
    return FMapHost.ProcessMessages(Done);
  }
  std::unique_ptr<TControlWindow> CreateControlWindow(TCustomControl& /*Control*/) override {
    return std::make_unique<TAtlasWindow>(FWidget);
  }
  std::unique_ptr<TPanel> CreatePanel(TCustomControl& /*Parent*/, int32_t Height) override {
    auto Panel = std::make_unique<TQtPanel>(
        FWidget, Height,
        TQtPanelOwner{
            [this](const std::function<void()>& Handler) {
              FWidget.Operate([&] {
                Handler();
                return true;
              });
            },
            [this](TGlyph Glyph) {
              if (Glyph == TGlyph::gyZoom)
                FWidget.Guarded([this] { Q_EMIT FWidget.zoomButtonClicked(); });
              else
                FWidget.Guarded([this] { Q_EMIT FWidget.pointerButtonClicked(); });
            },
            [this](int Line) { FWidget.Guarded([&] { Q_EMIT FWidget.mapChosen(Line + 1); }); }});
    static_cast<QVBoxLayout*>(FWidget.layout())->insertWidget(0, &Panel->Widget());
    return Panel;
  }

 private:
  GeoAtlasWidget& FWidget;
  THost& FMapHost;
};

GeoAtlasWidget::GeoAtlasWidget(QWidget* Parent)
    : QWidget(Parent), FMapWidget(new GeoMapWidget(this)) {
  auto* Layout = new QVBoxLayout(this);
  Layout->setContentsMargins(0, 0, 0, 0);
  Layout->setSpacing(0);
  Layout->addWidget(FMapWidget, 1);
  setFocusProxy(FMapWidget);
  FHost = std::make_unique<TAtlasHost>(*this);
  FAtlas = std::make_unique<TGeoAtlas>(nullptr, *FHost, FMapWidget->map());
  // After the atlas, which has done its work by then.
  FMapWidget->map().AddObserver(this);
  connect(FMapWidget, &GeoMapWidget::errorOccurred, this, &GeoAtlasWidget::errorOccurred);
  connect(FMapWidget, &GeoMapWidget::clicked, this, [this](QPoint At) {
    if (Guarded([this] { FAtlas->Click(); })) Guarded([&] { Q_EMIT clicked(At); });
  });
  connect(FMapWidget, &GeoMapWidget::doubleClicked, this, [this](QPoint At) {
    if (Guarded([this] { FAtlas->DblClick(); })) Guarded([&] { Q_EMIT doubleClicked(At); });
  });
  resize(FAtlas->Width(), FAtlas->Height());
}

GeoAtlasWidget::~GeoAtlasWidget() {
  FMapWidget->map().RemoveObserver(this);
  FAtlas.reset();  // before the map, which goes with the children
}

bool GeoAtlasWidget::Guarded(const std::function<void()>& Call) {
  return RunGuarded(this, Call, [this](const QString& Text) { Q_EMIT errorOccurred(Text); });
}

bool GeoAtlasWidget::Operate(const std::function<bool()>& Operation) {
  bool Result = false;
  const QPointer<GeoAtlasWidget> Self(this);
  const bool Whole = Guarded([&] { Result = Operation(); });
  if (!Self) return Result;
  Guarded([this] { TellChanges(); });
  if (Self && Whole && !FAtlas->Problem().empty())
    Guarded([this] { Q_EMIT errorOccurred(ToQString(FAtlas->Problem())); });
  return Whole && Result;
}

void GeoAtlasWidget::TellChanges() {
  const QPointer<GeoAtlasWidget> Self(this);
  if (const int Count = mapCount(); std::exchange(FToldCount, Count) != Count) Q_EMIT mapsChanged();
  if (!Self) return;
  if (const int Current = currentMap(); std::exchange(FToldCurrent, Current) != Current)
    Q_EMIT currentMapChanged(Current);
  if (!Self) return;
  if (const bool Zoom = zoomMode(); std::exchange(FToldZoomMode, Zoom) != Zoom)
    Q_EMIT zoomModeChanged(Zoom);
}

// Within the map widget's own boundary for exceptions.
void GeoAtlasWidget::MousePressed(TGeoMap& /*Map*/, TMouseButton, TShiftState, TPoint) {
  if (zoomMode()) Operate([] { return true; });
}

// --- maps

int GeoAtlasWidget::mapCount() const { return FAtlas->GetNumRegMaps(); }

int GeoAtlasWidget::currentMap() const { return FAtlas->CurrentMapIdx(); }

QString GeoAtlasWidget::mapFile(int Index) const { return ToQString(FAtlas->Maps().Path(Index)); }

QString GeoAtlasWidget::mapCaption(int Index) const {
  return ToQString(FAtlas->Maps().Title(Index));
}

bool GeoAtlasWidget::registerMap(const QString& CalibrationFile) {
  return Operate([&] { return FAtlas->RegisterMap(FromQString(CalibrationFile)); });
}

void GeoAtlasWidget::unregisterMap(int Index) {
  Operate([&] {
    FAtlas->UnregisterMap(Index);
    return true;
  });
}

void GeoAtlasWidget::unregisterAll() {
  Operate([&] {
    FAtlas->UnregisterAll();
    return true;
  });
}

bool GeoAtlasWidget::selectMap(int Index) {
  return Operate([&] { return FAtlas->SelectMap(Index); });
}

bool GeoAtlasWidget::zoomIn(double Latitude, double Longitude) {
  return Operate([&] { return FAtlas->ZoomIn(Latitude, Longitude, FAtlas->ShownResolution()); });
}

bool GeoAtlasWidget::zoomOut(double Latitude, double Longitude) {
  return Operate([&] { return FAtlas->ZoomOut(Latitude, Longitude, FAtlas->ShownResolution()); });
}

bool GeoAtlasWidget::zoomMode() const { return FAtlas->ZoomMode(); }

void GeoAtlasWidget::setZoomMode(bool On) {
  if (On == zoomMode()) return;
  Operate([&] {
    On ? FAtlas->PressZoomButton() : FAtlas->PressPointerButton();
    return true;
  });
}

// --- settings

bool GeoAtlasWidget::commandPanelVisible() const { return FAtlas->GetCPnlVis(); }
QColor GeoAtlasWidget::mapOutlineColor() const { return ToQColor(FAtlas->MapOutlineColor()); }
bool GeoAtlasWidget::mapOutlineVisible() const { return FAtlas->MapOutlineVisible(); }
double GeoAtlasWidget::minResDiff() const { return FAtlas->MinResDiff(); }
qint64 GeoAtlasWidget::keptImagesLimit() const { return FMapWidget->map().KeptImagesLimit(); }

void GeoAtlasWidget::Change(const std::function<void()>& Set) {
  if (Guarded(Set)) Guarded([this] { Q_EMIT settingsChanged(); });
}

void GeoAtlasWidget::setCommandPanelVisible(bool On) {
  if (On != commandPanelVisible()) Change([&] { FAtlas->SetCPnlVis(On); });
}

void GeoAtlasWidget::setMapOutlineColor(const QColor& Color) {
  if (Color != mapOutlineColor()) Change([&] { FAtlas->SetMapOLColor(FromQColor(Color)); });
}

void GeoAtlasWidget::setMapOutlineVisible(bool On) {
  if (On != mapOutlineVisible()) Change([&] { FAtlas->SetMapOLVisible(On); });
}

void GeoAtlasWidget::setMinResDiff(double Percent) {
  if (Percent != minResDiff()) Change([&] { FAtlas->SetMinResDiff(Percent); });
}

void GeoAtlasWidget::setKeptImagesLimit(qint64 Bytes) {
  if (Bytes != keptImagesLimit()) Change([&] { FMapWidget->map().SetKeptImagesLimit(Bytes); });
}

// --- events

void GeoAtlasWidget::resizeEvent(QResizeEvent* /*Event*/) {
  Guarded([this] { FAtlas->SetSize(width(), height()); });
}

void GeoAtlasWidget::showEvent(QShowEvent* Event) {
  if (QWindow* Window = window()->windowHandle())
    connect(Window, &QWindow::screenChanged, this, &GeoAtlasWidget::FollowScreen,
            Qt::UniqueConnection);
  FollowScreen();
  QWidget::showEvent(Event);
}

// Another screen may have other pixels.
void GeoAtlasWidget::FollowScreen() {
  if (FAtlas->Cursor() != 0) FAtlas->Window().SetCursor(FAtlas->Cursor());
}

}  // namespace zav
