// geo_atlas.cpp - see geo_atlas.h.
// SPDX-License-Identifier: MIT
#include <geoatlas/geo_atlas.h>

#include <algorithm>
#include <cmath>

#include <platform/base/errors.h>
#include <platform/base/paths.h>
#include <platform/base/rounding.h>
#include <platform/host/host.h>

namespace zav {
namespace {

constexpr int32_t ModeGroup = 999;
constexpr int32_t ButtonSize = 26;
constexpr int32_t Gap = 3;
constexpr TRect PointerBounds{Gap, Gap, Gap + ButtonSize, Gap + ButtonSize};
constexpr TRect ZoomBounds{PointerBounds.Right + Gap, Gap, PointerBounds.Right + Gap + ButtonSize,
                           Gap + ButtonSize};
constexpr TRect ListBounds{ZoomBounds.Right + 10, 5, ZoomBounds.Right + 310, 29};

// The pixel of a position, in a UTM map's own zone; false where the calibration reaches so far
// beyond the map that its pixel is not that of the position any more.
bool TrustedPixel(const TCalibration& Calibration, const TCoords& Position, TPoint& Pixel) {
  double X = 0;
  double Y = 0;
  TCoords Back;
  if (!Calibration.ToPixelInMapZone(Position.Latit, Position.Longit, X, Y)) return false;
  constexpr double Far = 1e6;  // pixels
  if (!(std::abs(X) < Far) || !(std::abs(Y) < Far)) return false;
  if (!Calibration.ToGeo(X, Y, Back)) return false;
  const TCornerArray& Corners = Calibration.Data().Corners;
  const double Tolerance = std::max({std::abs(Corners[0].Latit - Corners[2].Latit),
                                     std::abs(Corners[0].Longit - Corners[2].Longit), 1e-3}) /
                           10;
  Pixel = {RoundHalfEven(X), RoundHalfEven(Y)};
  return std::abs(Back.Latit - Position.Latit) < Tolerance &&
         std::abs(Back.Longit - Position.Longit) < Tolerance;
}

// Several changes of a map that are to be painted once.
class TPaintedOnce {
 public:
  explicit TPaintedOnce(TGeoMap& Map)
      : FMap(Map), FAlive(Map.Life()), FOutermost(!Map.SuppressPaint()) {
    FMap.SetSuppressPaint(true);
  }
  TPaintedOnce(const TPaintedOnce&) = delete;
  TPaintedOnce& operator=(const TPaintedOnce&) = delete;
  // When something was thrown, what the painting throws is of no interest.
  ~TPaintedOnce() {
    try {
      Paint();
    } catch (...) {
    }
  }
  void Paint() {
    if (FOutermost && !FAlive.expired() && FMap.SuppressPaint()) FMap.SetSuppressPaint(false);
  }

 private:
  TGeoMap& FMap;
  std::weak_ptr<const void> FAlive;
  bool FOutermost;
};

}  // namespace

TGeoAtlas::TGeoAtlas(TComponent* Owner, THost& Host)
    : TCustomControl(Owner, Host),
      FOwnMap(std::make_unique<TGeoMap>(nullptr, Host)),
      FGeoMap(FOwnMap.get()) {
  Build();
}

TGeoAtlas::TGeoAtlas(TComponent* Owner, THost& Host, TGeoMap& Map)
    : TCustomControl(Owner, Host), FGeoMap(&Map) {
  Build();
}

TGeoAtlas::~TGeoAtlas() { FGeoMap->RemoveObserver(this); }

void TGeoAtlas::Build() {
  FCPanel = Host().CreatePanel(*this, PanelHeight);
  FSBPoint = FCPanel->AddSpeedButton(PointerBounds, TGlyph::gyPointer, "Move the map", ModeGroup);
  FSBZoom = FCPanel->AddSpeedButton(ZoomBounds, TGlyph::gyZoom, "Go to more and less detailed maps",
                                    ModeGroup);
  FCboxMaps = FCPanel->AddComboBox(ListBounds, "Maps");
  FSBPoint->SetDown(true);
  FSBPoint->OnClick = [this] { ModeButtonClick(&TGeoAtlas::OnPointerButClick); };
  FSBZoom->OnClick = [this] { ModeButtonClick(&TGeoAtlas::OnZoomButClick); };
  FCboxMaps->OnChange = [this] { CBoxMapsChange(); };
  FGeoMap->AddObserver(this);
  FGeoMap->SetEmptyMsg("TGeoAtlas: Empty");
  if (FGeoMap->KeptImagesLimit() == 0) FGeoMap->SetKeptImagesLimit(DefaultKeptImages);
  SetSize(480, 320);
}

void TGeoAtlas::Resize() {
  TCustomControl::Resize();
  PlaceMap();
}

void TGeoAtlas::PlaceMap() {
  if (!FOwnMap || !FCPanel) return;
  const int32_t Panel = FCPanel->Visible() ? FCPanel->Height() : 0;
  FOwnMap->SetSize(Width(), std::max(Height() - Panel, 0));
}

// --- maps ----------------------------------------------------------------------------------------

void TGeoAtlas::FillList() {
  FCboxMaps->Clear();
  for (int32_t i = 1; i <= FRegister.Count(); ++i) FCboxMaps->Add(FRegister.Title(i));
}

bool TGeoAtlas::RegisterMap(const std::string& MapFName) {
  const bool Done = FRegister.Register(MapFName);
  FProblem = FRegister.Problem();
  if (!Done) return false;
  FillList();
  return true;
}

void TGeoAtlas::UnregisterMap(int32_t Index) {
  if (!FRegister.Unregister(Index)) return;
  FProblem.clear();
  const int32_t Chosen = FCboxMaps->ItemIndex() + 1;
  FillList();
  if (Chosen == Index)
    SelectMap(Chosen);
  else
    FGeoMap->Paint();
}

void TGeoAtlas::UnregisterAll() {
  FProblem.clear();
  FRegister.UnregisterAll();
  FillList();
  FGeoMap->Paint();
}

bool TGeoAtlas::Refuse(const std::string& Why) {
  FProblem = Why;
  return false;
}

bool TGeoAtlas::LoadMap(int32_t Index) {
  const std::string Path = FRegister.Path(Index);
  const auto Alive = Life();
  try {
    ReadMapCalibration(Path);  // throws before anything changes
    const bool Complete = FGeoMap->LoadCalDataFromXML(Path, "");
    if (Alive.expired()) return false;
    // The files have no word for this model.
    if (Complete && FGeoMap->CalibModel() == TCalibModel::cmUndefined)
      FGeoMap->SetCalibModel(TCalibModel::cmParabolicIp);
    if (Alive.expired()) return false;
  } catch (const EZAVError& Error) {
    return !Alive.expired() && Refuse(Error.what());
  }
  const TCalibData& Data = FGeoMap->CalibData();
  FProblem = FGeoMap->MapImgFile().empty()
                 ? Path + ": the map image \"" + Data.MapFName + "\" was not found"
                 : std::string();
  FLoadedResolution = Data.Resolution;
  FRegisteredResolution = FRegister.Definition(Index).Resolution;
  return true;
}

double TGeoAtlas::ShownResolution() const {
  const double Now = FGeoMap->CalibData().Resolution;
  return Now == FLoadedResolution ? FRegisteredResolution : Now;
}

// Paints when the list tells which map it is: that one's outline is not drawn.
bool TGeoAtlas::SelectMap(int32_t Index) {
  if (Index < 1 || Index > FRegister.Count()) return Refuse("There is no such map in the atlas");
  FCurrentMapIdx = Index;
  TPaintedOnce Once(*FGeoMap);
  if (!LoadMap(Index)) return false;
  FCboxMaps->SetItemIndex(Index - 1);
  Once.Paint();
  return true;
}

bool TGeoAtlas::ZoomIn(double CurrentLat, double CurrentLong, double CurrentResolution) {
  return GoTo(FRegister.Finer(CurrentLat, CurrentLong, CurrentResolution, FMinResDiff), CurrentLat,
              CurrentLong);
}

bool TGeoAtlas::ZoomOut(double CurrentLat, double CurrentLong, double CurrentResolution) {
  return GoTo(FRegister.Coarser(CurrentLat, CurrentLong, CurrentResolution), CurrentLat,
              CurrentLong);
}

// Paints once, when the position is in the middle.
bool TGeoAtlas::GoTo(int32_t Index, double Lat, double Long) {
  FProblem.clear();
  if (Index == 0) return false;
  const auto Alive = Life();
  TPaintedOnce Once(*FGeoMap);
  SelectMap(Index);
  if (!Alive.expired()) FGeoMap->BringLocationToCenter(Lat, Long);
  Once.Paint();
  return true;
}

// --- look ----------------------------------------------------------------------------------------

void TGeoAtlas::SetMapOLColor(TColor Color) {
  FMapOLColor = Color;
  FGeoMap->Paint();
}

void TGeoAtlas::SetMapOLVisible(bool Visible) {
  FMapOLVisible = Visible;
  FGeoMap->Paint();
}

void TGeoAtlas::SetCPnlVis(bool Visible) {
  if (Visible == FCPanel->Visible()) return;
  FCPanel->SetVisible(Visible);
  PlaceMap();
}

void TGeoAtlas::DataRendered(TGeoMap& /*Map*/, TCanvas& Canvas) {
  if (!FMapOLVisible) return;
  Canvas.Pen = {FMapOLColor};
  const int32_t Shown = FCboxMaps->ItemIndex() + 1;
  for (int32_t i = 1; i <= FRegister.Count(); ++i) {
    if (i != Shown) Canvas.Polyline(OutlineOf(i));
  }
}

std::vector<TPoint> TGeoAtlas::OutlineOf(int32_t Index) const {
  const TGeoMap& Map = *FGeoMap;
  const bool Trusted = Map.GratInMapZone();
  const auto PixelOf = [&](const TCoords& Corner, TPoint& Pixel) {
    if (!(Trusted ? TrustedPixel(Map.Calibration(), Corner, Pixel)
                  : Map.CalcPixelCoords(Corner.Latit, Corner.Longit, Pixel.X, Pixel.Y)))
      return false;
    Pixel = Map.MapImageToControl(Pixel);
    return true;
  };
  std::vector<TPoint> Outline = MapOutline(FRegister.Definition(Index).Corners, PixelOf);
  if (Trusted && Outline.size() < 5) Outline.clear();
  return Outline;
}

// --- the panel -----------------------------------------------------------------------------------

void TGeoAtlas::ModeButtonClick(TNotifyEvent TGeoAtlas::*Event) {
  FProblem.clear();
  const bool Zoom = FSBZoom->Down();
  const auto Alive = Life();
  FCursor = Zoom ? crGeoZoom : crHandPoint;
  Window().SetCursor(FCursor);
  FGeoMap->SetAllowPan(!Zoom);
  if (!Alive.expired()) Click();
  if (!Alive.expired()) Fire(Event);
}

void TGeoAtlas::PressZoomButton() {
  FSBZoom->SetDown(true);
  ModeButtonClick(&TGeoAtlas::OnZoomButClick);
}

void TGeoAtlas::PressPointerButton() {
  FSBPoint->SetDown(true);
  ModeButtonClick(&TGeoAtlas::OnPointerButClick);
}

void TGeoAtlas::ChooseInList(int32_t ItemIndex) {
  FCboxMaps->SetItemIndex(ItemIndex);
  CBoxMapsChange();
}

void TGeoAtlas::CBoxMapsChange() {
  FCurrentMapIdx = FCboxMaps->ItemIndex() + 1;
  const auto Alive = Life();
  {
    TPaintedOnce Once(*FGeoMap);
    LoadMap(FCurrentMapIdx);
    Once.Paint();
  }
  if (!Alive.expired()) Fire(&TGeoAtlas::OnCBoxMapsChange);
}

// A handler is called as a copy: it may replace itself or destroy the atlas.
void TGeoAtlas::Fire(TNotifyEvent TGeoAtlas::*Event) {
  if (const TNotifyEvent Handler = this->*Event) Handler(this);
}

void TGeoAtlas::Click() { Fire(&TGeoAtlas::OnClick); }

void TGeoAtlas::DblClick() { Fire(&TGeoAtlas::OnDblClick); }

// --- the embedded map ----------------------------------------------------------------------------

void TGeoAtlas::MousePressed(TGeoMap& Map, TMouseButton Button, TShiftState Shift, TPoint At) {
  const auto Alive = Life();
  MouseDown(Button, Shift, At.X, At.Y);
  if (Alive.expired() || !FSBZoom->Down()) return;
  const double Lat = Map.GetLastMClickLatitude();
  const double Long = Map.GetLastMClickLongitude();
  const double Resolution = ShownResolution();
  if (Button == TMouseButton::mbLeft)
    ZoomIn(Lat, Long, Resolution);
  else
    ZoomOut(Lat, Long, Resolution);
}

void TGeoAtlas::MouseMoved(TGeoMap& /*Map*/, TShiftState Shift, TPoint At) {
  MouseMove(Shift, At.X, At.Y);
}

void TGeoAtlas::MouseReleased(TGeoMap& /*Map*/, TMouseButton Button, TShiftState Shift, TPoint At) {
  MouseUp(Button, Shift, At.X, At.Y);
}

void TGeoAtlas::ImageRequested(TGeoMap& /*Map*/, std::string& FileName) {
  const std::string Path = FRegister.Path(FCurrentMapIdx);
  const std::string Beside = DirectoryOf(Path) + StripPath(FileName);
  // A file that lies elsewhere can still be found as it is named.
  if (!Path.empty() && !ResolveFile(Beside).empty()) FileName = Beside;
}

}  // namespace zav
