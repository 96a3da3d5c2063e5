/// @file
/// geo_atlas.h - one of several maps at a time, and the way from each to the more or less detailed
/// ones that cover a place.
///
/// A panel at the top holds a pointer button, a zoom button and the list of maps. While the zoom
/// button is down a click with the left button goes to a more detailed map, with any other button
/// to a less detailed one. The outlines of the other maps are drawn over the map.
///
/// Images of the maps that were shown last stay in memory, up to DefaultKeptImages bytes besides
/// the one that is shown, so that going back to one takes no decoding: TGeoMap::SetKeptImagesLimit.
///
/// Nothing here throws but what the embedded map throws while it paints; a map that cannot be shown
/// is told by false. Handlers may change or destroy the atlas.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOATLAS_GEO_ATLAS_H
#define ZAV_GEOATLAS_GEO_ATLAS_H

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <geoatlas/map_register.h>
#include <geomap/geo_map.h>
#include <platform/base/api.h>
#include <platform/host/control.h>
#include <platform/host/widgets.h>

namespace zav {

/// Cursors of the atlas, for TControlWindow::SetCursor.
inline constexpr int32_t crGeoZoom = 1000;
inline constexpr int32_t crGeoHand = 1001;   ///< for hosts; the atlas does not use it
inline constexpr int32_t crHandPoint = -21;  ///< the desktop's pointing hand

/// The atlas control: several maps, one of which is shown.
class ZAVGEO_API TGeoAtlas : public TCustomControl, private TGeoMapObserver {
 public:
  static constexpr int32_t PanelHeight = 33;  ///< control pixels
  /// Eight maps of the largest size, 32 bits a pixel.
  static constexpr int64_t DefaultKeptImages = int64_t{8} * 4 * MaxMapPixels;

  /// 480 x 320 control pixels, without maps. The map is made by the atlas and fills what the panel
  /// leaves.
  TGeoAtlas(TComponent* Owner, THost& Host);
  /// The map is the host's, which places it and lets it outlive the atlas. Its limit of kept images
  /// is raised to DefaultKeptImages if it is 0.
  TGeoAtlas(TComponent* Owner, THost& Host, TGeoMap& Map);
  ~TGeoAtlas() override;

  /// The embedded map. Its event slots are free for the application.
  TGeoMap& GeoMap() noexcept { return *FGeoMap; }
  /// The same for reading.
  const TGeoMap& GeoMap() const noexcept { return *FGeoMap; }

  /// @name Maps
  /// Numbered from 1.
  /// @{

  /// Adds a map, or reads it again; see TMapRegister. The list is filled anew, without a choice;
  /// the map that is shown stays. True when the map is in the register now; Problem() tells why
  /// not.
  bool RegisterMap(const std::string& MapFName);
  /// Does nothing outside 1..GetNumRegMaps(). When the map chosen in the list is removed, the one
  /// that moves into its place is shown; CurrentMapIdx() is not adjusted otherwise.
  void UnregisterMap(int32_t Index);
  /// Removes all; the map that is shown stays.
  void UnregisterAll();
  /// How many maps there are, 0 to 200.
  int32_t GetNumRegMaps() const noexcept { return FRegister.Count(); }
  /// What is known of a map; see TMapRegister::Definition.
  TMapDefinition GetMapDef(int32_t Index) const { return FRegister.Definition(Index); }
  /// All of them, for reading.
  const TMapRegister& Maps() const noexcept { return FRegister; }
  /// The map selected last, 0 for none, also when it could not be loaded.
  int32_t CurrentMapIdx() const noexcept { return FCurrentMapIdx; }
  /// Shows a map. False outside 1..GetNumRegMaps() and when its file cannot be read.
  bool SelectMap(int32_t Index);
  /// What went wrong in the last operation on maps, for people: why it was false, why a map that
  /// was chosen could not be loaded, or that its image was not found. Empty when all went well.
  const std::string& Problem() const noexcept { return FProblem; }
  /// The registered resolution of the map that is shown, so that a map is neither finer nor coarser
  /// than itself by rounding; that of the calibration when it has been changed since.
  double ShownResolution() const;

  /// Shows the least step more (less) detailed map that covers a position, which then is in the
  /// middle as far as the map's edge allows. Resolutions are metres per pixel. False, and nothing
  /// changes, when there is none.
  bool ZoomIn(double CurrentLat, double CurrentLong, double CurrentResolution);
  /// The same towards less detail.
  bool ZoomOut(double CurrentLat, double CurrentLong, double CurrentResolution);
  /// How much more detailed, in percent, a map must be for ZoomIn. Default 10.
  double MinResDiff() const noexcept { return FMinResDiff; }
  /// Any value; below 0 maps that are less detailed count, too.
  void SetMinResDiff(double Percent) noexcept { FMinResDiff = Percent; }
  /// @}

  /// @name Look
  /// @{

  /// Colour of the outlines. Blue at first.
  TColor MapOutlineColor() const noexcept { return FMapOLColor; }
  /// Repaints.
  void SetMapOLColor(TColor Color);
  /// Whether outlines are drawn. True at first.
  bool MapOutlineVisible() const noexcept { return FMapOLVisible; }
  /// Repaints.
  void SetMapOLVisible(bool Visible);
  /// The outline of a registered map on the one that is shown, in control pixels: from the top
  /// right corner on, closed; corners that have no pixel are left out. With TGeoMap::GratInMapZone
  /// they run on beyond the zone of a UTM map, as its graticule does, and an outline that lies too
  /// far away for the calibration is left out as a whole.
  std::vector<TPoint> OutlineOf(int32_t Index) const;
  /// Whether the panel is there. True at first.
  bool GetCPnlVis() const { return FCPanel->Visible(); }
  /// Places the map anew.
  void SetCPnlVis(bool Visible);
  /// @}

  /// @name The panel
  /// Pressing and choosing are what the user does, done by the program: the events fire.
  /// @{

  /// Zoom mode begins.
  void PressZoomButton();
  /// Zoom mode ends.
  void PressPointerButton();
  void ChooseInList(int32_t ItemIndex);  ///< from 0
  /// Whether clicks go to other maps.
  bool ZoomMode() const { return FSBZoom->Down(); }
  /// The line chosen in the list, from 0; -1 for none.
  int32_t ListItemIndex() const { return FCboxMaps->ItemIndex(); }
  /// Chooses a line, or none by -1, without loading anything: for a host that shows maps by itself.
  void MarkInList(int32_t ItemIndex) { FCboxMaps->SetItemIndex(ItemIndex); }
  /// The cursor over the map, one of the numbers above or 0.
  int32_t Cursor() const noexcept { return FCursor; }

  /// Called by the host for a click on the map.
  void Click();
  /// The same for a double click.
  void DblClick();
  /// @}

  /// @name Events
  /// OnMouseDown, OnMouseMove and OnMouseUp fire with the map's coordinates. OnClick fires for the
  /// buttons of the panel, too.
  /// @{

  TNotifyEvent OnClick;            ///< a click on the map or a button
  TNotifyEvent OnDblClick;         ///< a double click on the map
  TNotifyEvent OnZoomButClick;     ///< the zoom button was pressed
  TNotifyEvent OnPointerButClick;  ///< the pointer button was pressed
  TNotifyEvent OnCBoxMapsChange;   ///< a map was chosen in the list
                                   /// @}

 protected:
  void Resize() override;

 private:
  void Build();
  void PlaceMap();
  void FillList();
  bool LoadMap(int32_t Index);
  bool Refuse(const std::string& Why);
  bool GoTo(int32_t Index, double Lat, double Long);
  void ModeButtonClick(TNotifyEvent TGeoAtlas::*Event);
  void CBoxMapsChange();
  void Fire(TNotifyEvent TGeoAtlas::*Event);

  void MousePressed(TGeoMap& Map, TMouseButton Button, TShiftState Shift, TPoint At) override;
  void MouseMoved(TGeoMap& Map, TShiftState Shift, TPoint At) override;
  void MouseReleased(TGeoMap& Map, TMouseButton Button, TShiftState Shift, TPoint At) override;
  void DataRendered(TGeoMap& Map, TCanvas& Canvas) override;
  void ImageRequested(TGeoMap& Map, std::string& FileName) override;

  std::unique_ptr<TGeoMap> FOwnMap;
  TGeoMap* FGeoMap;
  std::unique_ptr<TPanel> FCPanel;
  std::unique_ptr<TSpeedButton> FSBPoint;
  std::unique_ptr<TSpeedButton> FSBZoom;
  std::unique_ptr<TComboBox> FCboxMaps;
  TMapRegister FRegister;
  std::string FProblem;
  int32_t FCurrentMapIdx = 0;
  // Of the map loaded last: as its calibration tells it, and as it was registered.
  double FLoadedResolution = 0;
  double FRegisteredResolution = 0;
  int32_t FCursor = 0;
  double FMinResDiff = 10;
  TColor FMapOLColor = 0xFF0000;
  bool FMapOLVisible = true;
};

}  // namespace zav

#endif
