// geo_map.cpp - life, copying, observers and painting of the map control.
// SPDX-License-Identifier: MIT
#include <geomap/geo_map.h>

#include <algorithm>
#include <cmath>

#include <geomap/view/renderer.h>
#include <geomap/view/value_guard.h>
#include <platform/host/host.h>
#include <platform/raster/raster_canvas.h>

namespace zav {
namespace {

constexpr TSize DefaultSize = {500, 400};

}  // namespace

// --- life and copying ----------------------------------------------------------------------------

TGeoMap::TGeoMap(TComponent* Owner, THost& Host)
    : TCustomControl(Owner, Host),
      FInternalMapImg(std::make_shared<TBitmap>(TPixelFormat::pf15bit)),
      FLandMarks(std::make_shared<TLandMarkStore>()) {
  FSuppressPaint = true;
  SetSize(DefaultSize.Width, DefaultSize.Height);
  FSuppressPaint = false;
  ClearZoomHistory();
  TGeoMap::Paint();
}

TGeoMap::~TGeoMap() = default;

void TGeoMap::Assign(const TPersistent& Source) {
  const auto* From = dynamic_cast<const TGeoMap*>(&Source);
  if (From == nullptr) return TCustomControl::Assign(Source);
  if (From == this) return;
  if (!FPainting) *FInternalMapImg = From->InternalMapImg();
  FImage = From->FImage;
  FImageBeside = From->FImageBeside;
  FLook = From->FLook;
  FView = From->FView;
  FZoomRing = From->FZoomRing;
  FCalibration = From->FCalibration;
  FCalDatName = From->FCalDatName;
  FMouse = From->FMouse;
  FLandMarks = std::make_shared<TLandMarkStore>(*From->FLandMarks);
  FLMRandSampleLimit = From->FLMRandSampleLimit;
  FHighLMColFG = From->FHighLMColFG;
  FHighLMColBG = From->FHighLMColBG;
  FHighLMTrans = From->FHighLMTrans;

  const auto Alive = Life();
  for (const TNotification What :
       {&TGeoMapObserver::ImageChanged, &TGeoMapObserver::CalibrationChanged,
        &TGeoMapObserver::ViewChanged}) {
    if (!Alive.expired()) Notify(What);
  }
}

void TGeoMap::AssignTo(TPersistent& Dest) const {
  if (dynamic_cast<TGeoMap*>(&Dest) == nullptr) return TCustomControl::AssignTo(Dest);
  Dest.Assign(*this);
}

void TGeoMap::Clear() {
  ForgetImage();
  FTrace.Clear();
  FCalibration.ClearCalibData();
  FCalibration.SetModel(TCalibModel::cmUndefined);
  FCalibration.SetMapFName("");
  FCalibration.SetCaption("");
  const auto Alive = Life();
  Notify(&TGeoMapObserver::ImageChanged);
  if (!Alive.expired()) ReportCalibration();
}

// --- observers and events ------------------------------------------------------------------------

void TGeoMap::AddObserver(TGeoMapObserver* Observer) {
  RemoveObserver(Observer);
  FObservers.push_back(Observer);
}

void TGeoMap::RemoveObserver(TGeoMapObserver* Observer) { std::erase(FObservers, Observer); }

void TGeoMap::Notify(TNotification What) {
  NotifyWith([this, What](TGeoMapObserver& Each) { (Each.*What)(*this); });
}

void TGeoMap::NotifyWith(const std::function<void(TGeoMapObserver&)>& Tell) {
  const auto Alive = Life();
  const std::vector<TGeoMapObserver*> Observers = FObservers;
  for (TGeoMapObserver* Each : Observers) {
    // One that was called before may have taken this one off the list.
    if (std::find(FObservers.begin(), FObservers.end(), Each) == FObservers.end()) continue;
    Tell(*Each);
    if (Alive.expired()) return;
  }
}

// Handlers are called as copies: one that replaces itself, or destroys the control, would otherwise
// destroy the function that runs.

void TGeoMap::DoZoomPanEvent() {
  const auto Alive = Life();
  if (const TZoomPanEvent Handler = OnZoomPan) Handler(this);
  if (!Alive.expired()) Notify(&TGeoMapObserver::ZoomPanned);
}

void TGeoMap::DoSelectRectEvent(int Kind, double X1, double Y1, double X2, double Y2) {
  const auto Alive = Life();
  if (const TSelectRectEvent Handler = OnSelectRect) Handler(this, Kind, X1, Y1, X2, Y2);
  if (Alive.expired()) return;
  NotifyWith([&](TGeoMapObserver& Each) { Each.RectSelected(*this, Kind, X1, Y1, X2, Y2); });
}

// --- painting ------------------------------------------------------------------------------------

double TGeoMap::DeviceScale() {
  const double Scale = Window().Scale();
  return Scale > 0 && std::isfinite(Scale) ? Scale : 1;
}

TRenderScene TGeoMap::Scene() {
  TRenderScene Scene;
  Scene.Control = ControlSize();
  Scene.Scale = DeviceScale();
  Scene.View = FView;
  Scene.Look = FLook;
  Scene.ShowMap = !FImage.Empty() && !Designing();
  Scene.Visible = Visible();
  Scene.Map = FImage.Size();
  Scene.Calibration = FCalibration;
  Scene.LandMarks = LandMarkLayer();
  Scene.Trace = FTrace;
  return Scene;
}

// The handlers' part in a picture; each tells whether the control is still there.
TRenderHooks TGeoMap::Hooks() {
  // The application's handler, then the observers.
  const auto Hook = [this](TRenderEvent TGeoMap::*Slot,
                           void (TGeoMapObserver::*Tell)(TGeoMap&, TCanvas&)) {
    return [this, Slot, Tell, Alive = Life()](TCanvas& Canvas) {
      if (const TRenderEvent Handler = this->*Slot) Handler(this, Canvas);
      if (Alive.expired()) return false;
      NotifyWith([&](TGeoMapObserver& Each) { (Each.*Tell)(*this, Canvas); });
      return !Alive.expired();
    };
  };
  return {Hook(&TGeoMap::OnBeforeRenderData, &TGeoMapObserver::BeforeRenderData),
          Hook(&TGeoMap::OnDataRendered, &TGeoMapObserver::DataRendered), DrawLandMarkHook()};
}

// Draws the picture and returns its size in device pixels.
TSize TGeoMap::Render() {
  const TRenderScene Now = Scene();
  const TSize Size = Now.DeviceSize();
  const std::shared_ptr<TBitmap> Picture = FInternalMapImg;  // outlives the control, if need be
  Picture->SetSize(std::max(Picture->Width(), Size.Width),
                   std::max(Picture->Height(), Size.Height));
  TRasterCanvas Canvas(*Picture, &Host().Fonts());
  RenderMap(Now, {FImage, FGraticule, &FLandMarkCache}, Canvas, Hooks());
  return Size;
}

void TGeoMap::ConstructInternalMapImg() {
  if (FPainting) return;
  const TValueGuard Painting(*this, FPainting, true);
  Render();
}

void TGeoMap::Paint() {
  if (FSuppressPaint || FPainting) return;
  const TValueGuard Painting(*this, FPainting, true);
  const auto Alive = Life();
  const TSize Size = Render();
  if (Alive.expired()) return;
  Window().DeviceCanvas().CopyRect(0, 0, *FInternalMapImg, {0, 0, Size.Width, Size.Height});
  FFeedback.Forget();
  const TRect All = {0, 0, Width(), Height()};
  Window().Show({&All, 1});
  if (!Alive.expired()) Notify(&TGeoMapObserver::Painted);
}

void TGeoMap::SetSuppressPaint(bool Value) {
  if (Value == FSuppressPaint) return;
  FSuppressPaint = Value;
  if (!Value) Paint();
}

}  // namespace zav
