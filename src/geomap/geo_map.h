/// @file
/// geo_map.h - the map control: one calibrated map image that can be zoomed, panned and read off.
///
/// The control holds order and consequences; the work is done by its parts: TCalibration
/// (calibration/), TViewState, TZoomRing, TMapImage, TMouseTools and the rendering passes (view/).
///
/// Pixels are control pixels (origin at the control's top left) or map pixels (origin at the
/// image's top left); positions are degrees, north and east positive. Unless told otherwise a
/// setter repaints before it returns, values out of range are brought into it, and errors carry the
/// control's name: Component "NAME": reason. Properties are read by the function of their name, or
/// by Get and the name. Belongs to the thread of its window.
///
/// Handlers and observers may change the control, or destroy it, while they are called. A paint
/// request while the control paints is ignored.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_GEO_MAP_H
#define ZAV_GEOMAP_GEO_MAP_H

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <geomap/calibration/calib_file.h>
#include <geomap/calibration/calibration.h>
#include <geomap/errors.h>
#include <geomap/landmarks/landmark.h>
#include <geomap/landmarks/landmark_store.h>
#include <geomap/view/graticule.h>
#include <geomap/view/landmark_layer.h>
#include <geomap/view/map_image.h>
#include <geomap/view/map_look.h>
#include <geomap/view/map_part.h>
#include <geomap/view/mouse_tools.h>
#include <geomap/view/mouse_trace.h>
#include <geomap/view/render_scene.h>
#include <geomap/view/renderer.h>
#include <geomap/view/view_state.h>
#include <geomap/view/zoom_ring.h>
#include <platform/base/api.h>
#include <platform/base/random.h>
#include <platform/host/control.h>
#include <platform/raster/bitmap.h>

namespace zav {

class TGeoMap;
struct TEmptyMap;

/// Listens to a map without taking the user's event slots. Nothing is owned; an observer must take
/// itself off the list before it dies. Each call comes after the change and before its repaint, and
/// after the event of the same meaning.
class ZAVGEO_API TGeoMapObserver {
 public:
  virtual ~TGeoMapObserver() = default;
  virtual void ViewChanged(TGeoMap& /*Map*/) {}         ///< TopLeft or Magnification
  virtual void CalibrationChanged(TGeoMap& /*Map*/) {}  ///< items, model, corners, caption
  virtual void ImageChanged(TGeoMap& /*Map*/) {}        ///< picture, its name or its size
  virtual void Painted(TGeoMap& /*Map*/) {}             ///< the new picture is on the window

  /// As OnBeforeRenderData, after it: what is drawn on the canvas, in control pixels, lands in the
  /// picture.
  virtual void BeforeRenderData(TGeoMap& /*Map*/, TCanvas& /*Canvas*/) {}
  /// As OnDataRendered, after it, likewise.
  virtual void DataRendered(TGeoMap& /*Map*/, TCanvas& /*Canvas*/) {}
  /// An image file loads; 0 to 100.
  virtual void DataLoading(TGeoMap& /*Map*/, int /*PercentDone*/) {}
  virtual void ZoomPanned(TGeoMap& /*Map*/) {}  ///< by the user
  /// A line or a selection begins at a map pixel.
  virtual void RubberBandBegun(TGeoMap& /*Map*/, TPoint /*MapPixel*/) {}
  /// A line ends and the next begins.
  virtual void RubberBandContinued(TGeoMap& /*Map*/, TPoint /*MapPixel*/) {}
  /// A line ends.
  virtual void RubberBandEnded(TGeoMap& /*Map*/, TPoint /*MapPixel*/) {}
  /// Two corners in map pixels, wherever they are.
  virtual void PixelsSelected(TGeoMap& /*Map*/, TPoint /*From*/, TPoint /*To*/) {}
  /// The values of OnSelectRect.
  virtual void RectSelected(TGeoMap& /*Map*/, int /*Kind*/, double /*X1*/, double /*Y1*/,
                            double /*X2*/, double /*Y2*/) {}
  virtual void MouseBoxChanged(TGeoMap& /*Map*/) {}  ///< MouseBox begins to wait, or has ended

  /// After OnMouseDown, with the same arguments.
  virtual void MousePressed(TGeoMap& /*Map*/, TMouseButton, TShiftState, TPoint /*Control*/) {}
  /// After OnMouseMove, likewise.
  virtual void MouseMoved(TGeoMap& /*Map*/, TShiftState, TPoint /*Control*/) {}
  /// After OnMouseUp, likewise.
  virtual void MouseReleased(TGeoMap& /*Map*/, TMouseButton, TShiftState, TPoint /*Control*/) {}
  /// After OnMapImageRequest; may name another file.
  virtual void ImageRequested(TGeoMap& /*Map*/, std::string& /*FileName*/) {}
};

/// The map control: a map, its view, its look, what lies on it, and what the mouse does.
class ZAVGEO_API TGeoMap : public TCustomControl {
 public:
  /// A map without image, 500 x 400 control pixels, already painted. The host must outlive it.
  TGeoMap(TComponent* Owner, THost& Host);
  ~TGeoMap() override;

  /// Copies picture, image, look, view, zoom stack, calibration and landmark settings of another
  /// TGeoMap; not its handlers, observers, size, mouse action and trace. Does not repaint. Any
  /// other source throws EConvertError.
  void Assign(const TPersistent& Source) override;
  void AssignTo(TPersistent& Dest) const override;

  /// Removes calibration, map name, caption, trace and image name; the landmarks, the bitmap, the
  /// zoom stack and the view stay.
  void Clear();

  /// @name Painting
  /// @{

  /// Renders the picture and copies it to the window, unless painting is suppressed.
  void Paint() override;
  /// Renders without showing.
  void ConstructInternalMapImg();
  /// The picture last rendered, in device pixels, 15 bits a pixel; may be larger than the control.
  const TBitmap& InternalMapImg() const noexcept { return *FInternalMapImg; }
  /// While true, Paint does nothing. False at first.
  bool SuppressPaint() const noexcept { return FSuppressPaint; }
  /// Turning it off paints.
  void SetSuppressPaint(bool Value);
  /// @}

  /// @name Image
  /// @{

  /// The image's file name as it was given, empty without a map.
  const std::string& MapImgFile() const noexcept { return FImage.Name(); }
  /// Loads a ".jpg", ".jpeg" or ".bmp" file, after OnMapImageRequest; the view goes to (0, 0) and
  /// the calibration stays. A file that does not exist is looked up without regard to case; if
  /// there is none the map becomes empty without an error. Another extension takes the name and
  /// keeps the picture. Throws EZAVGeoMapError for more than 3000000 pixels: name, size and view
  /// then stay, but MapBitmap holds the new pixels (not beyond MaxDecodablePixels: then it stays,
  /// too). EInOutError and EImageCancelled come from the decoder and leave the picture.
  void SetMapImgName(const std::string& Name);
  /// The image's pixels; the size that counts is MapImgWidth and MapImgHeight.
  const TBitmap& MapBitmap() const noexcept { return FImage.Bitmap(); }
  /// Takes a copy of the bitmap under the name "$unknown$"; the same limit.
  void SetMapBitMap(const TBitmap& Bitmap);
  /// Pixels, 0 without a map.
  int32_t MapImgWidth() const noexcept { return FImage.Width(); }
  /// Pixels, 0 without a map.
  int32_t MapImgHeight() const noexcept { return FImage.Height(); }
  /// Images that were shown stay in memory, decoded, up to so many bytes in all besides the one
  /// that is shown; those shown longest ago go first. Loading such a file again takes no decoding
  /// and tells no progress; one that was written since is read anew. 0, none, at first.
  int64_t KeptImagesLimit() const noexcept { return FKeptImages.Limit(); }
  /// Images beyond a smaller limit go at once.
  void SetKeptImagesLimit(int64_t Bytes) { FKeptImages.SetLimit(Bytes); }
  /// Decodes an image file so that it is kept for loading, whatever is shown; one larger than the
  /// limit is only decoded. Throws as SetMapImgName does, and EInOutError when there is no such
  /// file.
  void KeepImage(const std::string& Name);
  /// Scales the image, and the calibration with it, so that the longer side gets LongestSide
  /// pixels, or by Factor. The view goes to (0, 0), the magnification stays. Without an image, or
  /// with a factor that is not above 0, nothing happens. Throws EZAVGeoMapError when the result
  /// could not be held in memory.
  void ResizeMap(int32_t LongestSide);
  /// The same by a factor above 0.
  void ResizeMap(double Factor);
  /// @}

  /// @name Generated maps
  /// @{

  /// Draws the host's own data on a generated map: the pixels of the whole bitmap are Width x
  /// Height, its borders in degrees those given. A plain function or nothing (nullptr).
  using TDrawEmptyMapProc =
      std::function<void(TGeoMap* Sender, TCanvas& Canvas, double LatLow, double LongLow,
                         double LatHigh, double LongHigh, int32_t Width, int32_t Height)>;
  /// Makes a white map of a rectangle of degrees with parallels and meridians at multiples of the
  /// grid distances, labelled; calibrated as cmEquiRect by nine points. The corners may come in any
  /// order; a distance not above 0 is 1 degree, a side below 100 pixels 100. With Margin the
  /// rectangle lies 30 pixels inside the bitmap, in a frame. The image's name is "$unknown$".
  /// Throws as SetMapBitMap; for more than MaxDecodablePixels, and for a corner that is not finite,
  /// everything stays.
  void CreateEmptyMapInMemory(double Lat1, double Long1, double Lat2, double Long2,
                              double LatGridDist, double LongGridDist, int32_t Width,
                              int32_t Height, bool Margin, const TDrawEmptyMapProc& DrawProc);
  /// The same without margin, written to files and loaded from them: FileName with the extensions
  /// ".bmp" and ".xml", in this order and each replaced whole; FileName itself is then loaded, so
  /// it should end in ".xml". A map of more than MaxMapPixels, which could not be loaded, is
  /// refused with EZAVGeoMapError before anything is written. Throws EInOutError.
  void CreateAndLoadEmptyMap(const std::string& FileName, double Lat1, double Long1, double Lat2,
                             double Long2, double LatGridDist, double LongGridDist, int32_t Width,
                             int32_t Height, const TDrawEmptyMapProc& DrawProc);
  /// @}

  /// @name Saving and copying
  /// @{

  /// Writes the image, encoded again as JPEG of quality 95, and the calibration with the Id: both
  /// have FileName's folder and name, with the extensions ".jpg" and ".xml". From then on
  /// MapImgFile and the calibration name that image, without folder. OnDataLoading tells the
  /// progress. Each file is replaced whole; where anything fails (EInOutError, EImageCancelled,
  /// EZAVGeoMapError for a text that the calibration file cannot hold) both files and the names
  /// stay as they were, unless the very last step, putting the image in its place, is what fails.
  /// Without pixels: EInOutError.
  void SaveMap(const std::string& FileName, const std::string& Id);
  /// Gives the image's file another name in its folder, with its extension: NewName without the
  /// characters that short file names do not have, without folder and extension. False, and nothing
  /// happens, when no name is left, when there is no file of that name (it is looked for as it was
  /// when it was loaded), or when another file has the new name already. The calibration, its name
  /// of the image and its file stay. Throws EInOutError when the system refuses.
  bool RenameMapImg(const std::string& NewName);

  /// Puts the picture last rendered on the clipboard, with a black line in the place of the frame.
  /// Throws EZAVError when the host has no clipboard.
  void CopyToClipboard();
  /// Puts the whole map at magnification 1 with all layers on the clipboard; nothing without a
  /// map. Throws EZAVError when the host has no clipboard.
  void CopyEntireMapToClipboard();
  /// Draws a part of the map with all its layers, without frame, into the rectangle of Width x
  /// Height pixels at (Left, Top) of a bitmap; the rest of the bitmap stays. TopLeft is the map
  /// pixel at the rectangle's corner, Scale the bitmap's pixels per map pixel. A bitmap that is too
  /// small becomes larger. Nothing happens without a bitmap, a map or an area. Throws
  /// EZAVGeoMapError for a Scale that is not above 0, and when the bitmap would get more than
  /// MaxDecodablePixels.
  void CopyToBMP(TBitmap* Bitmap, TPoint TopLeft, double Scale, int32_t Left, int32_t Top,
                 int32_t Width, int32_t Height);
  /// @}

  /// @name Printing
  /// Sizes on paper are printer pixels from the top left of the printable area, parts of the map
  /// rectangles of map pixels. Texts, markers and lines are as large as on a screen of 96 dots per
  /// inch. A scale 1:Denominator follows from the map's Resolution, exact along its middle row;
  /// Denominator 0 or less means as large as it fits. Nothing happens without a map or an area.
  /// Throws EPrinterError where there is no printer, or no document is open on it; EZAVGeoMapError
  /// for a true scale of a map whose Resolution is not known.
  /// @{

  /// Prints the map on a page of its own; Scale is the share of the largest size that the page
  /// holds, 1 at most. Not above 0: nothing. When it fails the document is thrown away.
  void PrintIt(double Scale);
  /// Draws the map on the open page at (X, Y), at this share of what the page holds to the right
  /// and below. X and Y become the right and bottom edge of what was drawn.
  void CopyToOpenPrinter(int32_t& X, int32_t& Y, double Scale);
  /// Draws a part of the map on the open page at (Left, Top); 0: as large as it fits from there.
  void CopyToOpenPrinter(const TRect& MapPart, int32_t Denominator, int32_t Left, int32_t Top);
  /// Fills a rectangle of the open page with the map from the map pixel TopLeft on, as far as it
  /// goes; 0: all that lies right of and below that pixel.
  void CopyToOpenPrinter(TPoint TopLeft, int32_t Denominator, int32_t Left, int32_t Top,
                         int32_t Width, int32_t Height);
  /// The printed size of a part of the map; 0: as large as the page holds. 0 x 0 for an empty part
  /// and when the scale cannot be told. Needs no open document.
  void CalcExtentsOfPrint(const TRect& MapPart, int32_t Denominator, int32_t& Width,
                          int32_t& Height);
  /// @}

  /// @name Drawing elsewhere
  /// @{

  /// Draws a part of the map on any canvas. The render events fire as for a repaint; while they do,
  /// the view is that of the drawing. False when a handler destroyed the control; a call while the
  /// control paints draws nothing.
  bool DrawPart(TCanvas& Canvas, const TMapPart& Part);
  /// The size, in control pixels, of the picture that is being drawn; in handlers of the rendering
  /// events. At other times the control's.
  TSize DrawnSize() const noexcept { return FDrawnSize.Width > 0 ? FDrawnSize : ControlSize(); }
  /// @}

  /// @name View
  /// @{

  /// The part of the map that is shown.
  const TViewState& View() const noexcept { return FView; }
  /// Map pixel at the control's top left corner. Not confined to the map.
  TPoint TopLeft() const noexcept { return FView.TopLeft; }
  /// Any map pixel; ConfinePanToMapImage does not count here.
  void SetTopLeft(TPoint TopLeft);
  /// Control pixels per map pixel. 1 at first.
  double Magnification() const noexcept { return FView.Magnification; }
  /// Throws EZAVError below 0.5 and above 2.0. The view's corner stays, the zoom stack is not
  /// pushed.
  void SetMagnification(double Magnification);
  /// Both at once, painted once. Any magnification above 0 is taken; others throw EZAVError.
  void SetView(TPoint TopLeft, double Magnification);
  /// The map pixel at a control pixel, rounded.
  TPoint ControlToMapImage(TPoint Control) const noexcept;
  /// The control pixel of a map pixel, rounded.
  TPoint MapImageToControl(TPoint Map) const noexcept;
  /// The corner may leave the map.
  void BringMapPixelToCenter(TPoint Map);
  /// As near as the map's edges allow; nothing for a position that has no pixel.
  void BringLocationToCenter(double Lat, double Long);
  /// Moves the view inside the map; does not repaint.
  void PanMapToFillWindow();
  /// The whole map; the magnification may leave 0.5..2.0. No map: only the corner goes to (0, 0).
  void ZoomFitPage();
  /// Steps (in when positive; four double the magnification) about a control pixel, whose map
  /// position stays under it within a pixel; as many steps back as had an effect return to the very
  /// view. Confined when ConfinePanToMapImage. Repaints, fires OnZoomPan and returns true when
  /// something changed; the zoom stack is left to the caller, who knows when the gesture ends.
  bool ZoomAt(TPoint Control, int Steps);
  /// Moves the view by control pixels, as a drag by the opposite does; confined, painted and
  /// reported like ZoomAt.
  bool PanBy(TPoint Control);
  /// Whether what the user does keeps the view inside the map. True at first.
  bool ConfinePanToMapImage() const noexcept { return FConfinePan; }
  /// Turning it on moves the view inside the map; never repaints.
  void SetConfinePan(bool Value);
  /// @}

  /// @name Zoom history
  /// @{

  /// Pushes the view; not while the control is being loaded from a stream.
  void ZoomStateOnStack();
  /// The view pushed last for 0, back to -15; zeros for anything else.
  TgmZoomStackEntry GetZoomStackEntry(int32_t Index) const noexcept;
  /// Goes to that view; pushes nothing. Ignores other indices and empty places.
  void ZoomHistory(int32_t Index);
  /// Forgets all views and pushes the current one.
  void ClearZoomHistory();
  /// @}

  /// @name Look
  /// @{

  /// All of the following at once.
  const TMapLook& Look() const noexcept { return FLook; }
  /// Whether the image is shrunk and enlarged smoothly. True at first.
  bool AntiAlias() const noexcept { return FLook.AntiAlias; }
  /// Repaints.
  void SetAntiAlias(bool Value);
  /// Below this magnification the scaled map is kept for panning; 0 to 2/3. 2/3 at first.
  double CacheMagLimit() const noexcept { return FLook.CacheMagLimit; }
  /// Beyond its range: the nearest value. Repaints when the magnification is below 2/3.
  void SetCacheMagLimit(double Value);
  /// Around the map. Silver at first.
  TColor ColorBackGnd() const noexcept { return FLook.ColorBackGnd; }
  /// Repaints.
  void SetColorBakGnd(TColor Color);
  /// Of graticule and grid. Blue at first.
  TColor ColorGraticule() const noexcept { return FLook.ColorGraticule; }
  /// Repaints.
  void SetColorGratLine(TColor Color);
  /// Of calibration points and lines. Red at first.
  TColor ColorCalibPoints() const noexcept { return FLook.ColorCalibPoints; }
  /// Repaints.
  void SetColorGratPoints(TColor Color);
  /// Of the message on an empty map. Black at first.
  TColor ColorFrame() const noexcept { return FLook.ColorFrame; }
  /// Repaints.
  void SetColorFrame(TColor Color);
  /// The message on an empty map. "GeoMap: empty" at first.
  const std::string& EmptyMsg() const noexcept { return FLook.EmptyMsg; }
  /// One line; empty for nothing. Repaints.
  void SetEmptyMsg(const std::string& Text);
  /// What the control is framed by. Sunken at first.
  TFrameStyle FrameStyle() const noexcept { return FLook.FrameStyle; }
  /// Repaints when different; a style that does not exist draws no frame.
  void SetFrameStyle(TFrameStyle Style);
  /// What of the calibration is shown. Nothing at first.
  TShowGrat ShowGraticule() const noexcept { return FLook.ShowGraticule; }
  /// Repaints when different.
  void SetShowGrat(TShowGrat Value);
  /// Degrees between lines of the graticule, 0 to 60; 0, at first, is automatic.
  double GratLineDist() const noexcept { return FLook.GratLineDist; }
  /// Beyond its range: the nearest value. Repaints.
  void SetGratLineDist(double Degrees);
  /// Whether graticule and grid of a UTM map run on beyond the edges of the map's zone (TMapLook).
  /// False at first.
  bool GratInMapZone() const noexcept { return FLook.GratInMapZone; }
  /// Repaints when different.
  void SetGratInMapZone(bool Value);
  /// Metres between lines of the UTM grid, 0 to 10000000; 0, at first, is automatic.
  int32_t UTMGridDist() const noexcept { return FLook.UTMGridDist; }
  /// Beyond its range: the nearest value. Repaints.
  void SetUTMGridDist(int32_t Metres);
  /// @}

  /// @name Calibration
  /// Operations that change it fit again, recompute corners and resolution, and repaint; see
  /// TCalibration for what each does and returns. Errors are EZAVGeoMapError.
  /// @{

  /// The calibration at this moment, for reading.
  const TCalibration& Calibration() const noexcept { return FCalibration; }
  /// Items, corners and texts.
  const TCalibData& CalibData() const noexcept { return FCalibration.Data(); }
  /// Replaces all items, the caption and the like, keeps the model; recalculates and repaints once.
  void SetCalibData(const TCalibData& Data) { SetCalibration(Data, CalibModel()); }
  /// Replaces items and model, recalculates and repaints once.
  void SetCalibration(const TCalibData& Data, TCalibModel Model);
  /// The model that is fitted.
  TCalibModel CalibModel() const noexcept { return FCalibration.Model(); }
  /// Fits the items to another model.
  void SetCalibModel(TCalibModel Model);
  /// The map's name for people.
  const std::string& GetMapCaption() const noexcept { return CalibData().Caption; }
  void SetMapCaption(const std::string& Caption);  ///< does not repaint
  /// The zone of the points that are added under cmUTM; -1 when it is not set.
  int32_t GetUTMZone() const noexcept { return CalibData().UTMZone; }
  /// Accepts 1..60, ignores anything else. Neither refits nor repaints.
  void SetUTMZone(int32_t Zone);
  /// The hemisphere of the points that are added under cmUTM. North at first.
  THemisphere GetUTMHemisphere() const noexcept;
  /// Neither refits nor repaints.
  void SetUTMHemisphere(THemisphere Hemisphere);

  /// A point of a graticule line, cmParabolicIp only.
  bool AddCalibPoint(TGratLineKind LineKind, double LineValue, int32_t X, int32_t Y);
  /// A control point in degrees; not under cmParabolicIp, cmUTM and cmUndefined.
  bool AddCalibPoint(double Lat, double Long, int32_t X, int32_t Y);
  /// A control point in UTM metres, cmUTM only.
  bool AddCalibPoint(double Northing, double Easting, int32_t Zone, THemisphere Hemisphere,
                     int32_t X, int32_t Y);
  /// Removes the nearest item; see RestoreLastDeletedCalPoint.
  bool RemoveCalibPoint(int32_t X, int32_t Y);
  /// Removes a point of a graticule line.
  bool RemoveCalibPoint(TGratLineKind LineKind, double LineValue, int32_t X, int32_t Y);
  /// Adds again what RemoveCalibPoint(X, Y) removed last.
  void RestoreLastDeletedCalPoint();
  /// Removes all items; the model stays.
  void ClearCalibData();
  /// Fits again.
  void RecalcCalibration();
  void CalcExtentsAndResolution();  ///< does not repaint
  /// Standard deviation of the control points along X and Y, pixels; of no use under cmUTM.
  void CalibQuality(double& QualX, double& QualY) const;
  /// @}

  /// @name Conversion
  /// By the fitted model; see TCalibration.
  /// @{

  /// Latitude of a map pixel; Valid = false and 0 when the model cannot tell.
  double CalcLatitude(int32_t X, int32_t Y, bool& Valid) const;
  /// The same for a point.
  double CalcLatitude(TPoint P, bool& Valid) const;
  /// Longitude of a map pixel.
  double CalcLongitude(int32_t X, int32_t Y, bool& Valid) const;
  /// The same for a point.
  double CalcLongitude(TPoint P, bool& Valid) const;
  /// Map pixel of a position, rounded; false where the model gives none. X and Y are left alone
  /// when it gives nothing.
  bool CalcPixelCoords(double Lat, double Long, int32_t& X, int32_t& Y) const;
  /// Map pixel of UTM metres in the map's zone; (0, 0) and false under other models than cmUTM.
  bool CalcPixelCoordsUTM(double Northing, double Easting, int32_t& X, int32_t& Y) const;
  /// Row of a northing in a column, cmUTM only.
  int32_t CalcUTMyFromNorthingX(double Northing, int32_t X) const;
  /// Column of an easting in a row, cmUTM only.
  int32_t CalcUTMxFromEastingY(double Easting, int32_t Y) const;
  /// Whether a position lies strictly inside the map's corners.
  bool IsPositionWithinMap(double Lat, double Long) const;
  /// @}

  /// @name Calibration files
  /// @{

  /// The file last given to SetCalDatName.
  const std::string& CalibDataFile() const noexcept { return FCalDatName; }
  /// Loads the file's first calibration. A file that does not exist makes the map empty instead.
  void SetCalDatName(const std::string& Name);
  /// Reads the calibration with the Id, or the first for an empty Id, and its map image, looked up
  /// as named, then beside the file; fits and repaints. True when the graticule lines are complete,
  /// which only cmParabolicIp needs: false does not mean failure. Nothing changes when there is
  /// none. Throws EInOutError, and EZAVGeoMapError for a damaged file or an image that is too
  /// large.
  bool LoadCalDataFromXML(const std::string& FileName, const std::string& Id);
  /// The same from a stream, from its position on.
  bool LoadCalDataFromXML(TMemoryStream& Stream, const std::string& Id);
  /// The same from a file that is open for reading, from its position on.
  bool ReadCalDataFromOpenXMLFile(TextFile& F, const std::string& Id);
  /// Writes the calibration with the Id; the file is replaced when everything is written, or not at
  /// all. Throws EInOutError, and EZAVGeoMapError for a text that the format cannot hold.
  void SaveCalDataAsXML(const std::string& FileName, const std::string& Id) const;
  /// The same to a stream, at its position.
  void SaveCalDataAsXML(TStream& Stream, const std::string& Id) const;
  /// The same to a file that is open for writing; WithHeader begins with the XML line.
  void WriteCalDataToOpenXMLFile(TextFile& F, bool WithHeader, const std::string& Id) const;
  /// @}

  /// @name Landmarks
  /// Numbered from 1, 0 means none. What is near and inside, which class is meant and in which
  /// order landmarks stay is told in TLandMarkStore. Adding and removing ask OnLandMarkAction
  /// first; a change that memory does not allow throws EZAVGeoMapError "insufficient memory" and is
  /// not done. Positions are degrees, an altitude is carried only; texts that are too long are cut.
  /// @{

  /// How many landmarks there are.
  int32_t NumLandMarks() const noexcept { return FLandMarks->Count(); }
  /// The list at this moment; a copy costs little and stays as it is.
  const TLandMarkList& LandMarks() const noexcept { return FLandMarks->List(); }
  /// Another list, as from undoing; nothing is asked.
  void SetLandMarks(const TLandMarkList& List);
  /// Where new landmarks take everything from that is not given. Does not repaint.
  const TLandMark& LandMarkDefault() const noexcept { return FLandMarks->Default; }
  /// Does not repaint.
  void SetLandMarkDefault(const TLandMark& Value) { FLandMarks->Default = Value; }

  /// With the template's look.
  void AddLandMark(double Lat, double Long, double Altitude);
  /// With an identifier and a time.
  void AddLandMark(double Lat, double Long, double Altitude, const TLMIdentifier& Identifier,
                   TDateTime Time);
  /// With a caption.
  void AddLandMark(double Lat, double Long, double Altitude, const std::string& CaptionText,
                   int32_t CaptionSize, TColor CaptionColor);
  /// With an identifier, a time and a caption.
  void AddLandMark(double Lat, double Long, double Altitude, const TLMIdentifier& Identifier,
                   TDateTime Time, const std::string& CaptionText, int32_t CaptionSize,
                   TColor CaptionColor);
  /// With the template's caption.
  void AddLandMark(double Lat, double Long, double Altitude, TLandMarkElement Element,
                   uint8_t ClassFlag, const TLMIdentifier& Identifier, TDateTime Time, int32_t Tag,
                   TColor ColorFG, TColor ColorBG, int32_t Size, bool Transparent,
                   int32_t Direction, int32_t Length);
  /// The index of the nearest one.
  int32_t FindLandMark(double Lat, double Long, int32_t ClassFlag) const noexcept;
  /// 1..NumLandMarks; another index gives default values.
  TLandMark GetLandMarkData(int32_t Index) const { return FLandMarks->List()[Index]; }
  /// Ignores other indices.
  void SetLandMarkData(int32_t Index, const TLandMark& LandMark);

  /// Removing takes the highlight away, whether something goes or not, and repaints; an empty list
  /// stays as it is without a repaint, but for RemoveLastLandMark and RemoveAllLandMarks().
  /// Returns the index, 0 when nothing was removed.
  int32_t RemoveLandMark(int32_t LmIndex);
  /// The nearest one. Returns 0 always: compare NumLandMarks to see whether one was removed.
  int32_t RemoveLandMark(double Lat, double Long, int32_t ClassFlag);
  /// Those nearer than Radius degrees; returns how many.
  int32_t RemoveLandMark(double Lat, double Long, int32_t ClassFlag, double Radius);
  /// Those strictly inside the rectangle (west, north, east, south); returns how many.
  int32_t RemoveLandMark(const TRectDouble& Rect, int32_t ClassFlag);
  /// The last one; asks and repaints.
  void RemoveLastLandMark();
  /// Without asking; the highlight's number stays.
  void RemoveAllLandMarks();
  /// Those of a class; asks for each.
  void RemoveAllLandMarks(uint8_t ClassFlag);

  /// Replaces the landmarks by those of the file's set with the DataID, or of the first for an
  /// empty DataID; highlight and visibility stay, nothing is asked. False, and the landmarks stay,
  /// when there is no such set, or LoadLandMarks cannot open the file. Only LoadLandMarks repaints.
  bool ReadLandMarksFromOpenXMLFile(TextFile& F, const std::string& DataID);
  /// From a file; repaints.
  bool LoadLandMarks(const std::string& FileName, const std::string& DataID);
  /// Writes the landmarks as a set; see WriteLandMarks in landmark_file.h for what is refused.
  void WriteLandMarksToOpenXMLFile(TextFile& F, const std::string& DataID) const;
  /// The file is replaced when everything is written, or not at all.
  void SaveLandmarks(const std::string& FileName, const std::string& DataID) const;

  /// Whether landmarks of a class are drawn; all are at first.
  bool GetClassVisibility(uint8_t ClassFlag) const noexcept {
    return FLandMarks->ClassVisible[ClassFlag];
  }
  /// Repaints.
  void SetClassVisibility(uint8_t ClassFlag, bool Visible);
  /// The largest number drawn in one picture; more are thinned out at random. 20000 at first.
  int32_t LMRandomDisplayThreshold() const noexcept { return FLMRandSampleLimit; }
  /// At least 1001, smaller values are ignored; repaints when different.
  void SetRandSampleLimit(int32_t Value);
  /// The pictures that follow leave out the same landmarks after the same seed. Does not repaint.
  void SetThinningSeed(uint64_t Seed) noexcept { FThinning.SetSeed(Seed); }
  /// The highlighted landmark, 0 for none.
  int32_t HighLightLandMark() const noexcept { return FLandMarks->HighLight(); }
  /// Any index outside 1..NumLandMarks means none. Repaints when different.
  void SetHighLM(int32_t Index);
  /// Outline of the highlighted landmark. Blue at first.
  TColor HighLightFGColor() const noexcept { return FHighLMColFG; }
  /// Inside of the highlighted landmark. Yellow at first.
  TColor HighLightBGColor() const noexcept { return FHighLMColBG; }
  /// Whether its inside is left out. False at first.
  bool HighLightTransparent() const noexcept { return FHighLMTrans; }
  /// All three at once; repaints.
  void SetHighLightProperties(TColor ColorFG, TColor ColorBG, bool Transparent);
  /// @}

  /// @name Mouse
  /// @{

  /// What the left button does. maPan at first.
  TMouseActMode MouseAction() const noexcept { return FMouseAction; }
  /// Another action cancels what the mouse has begun. Does not repaint.
  void SetMouseAction(TMouseActMode Action);
  /// Whether MouseAction is maPan.
  bool GetAllowPan() const noexcept { return FMouseAction == TMouseActMode::maPan; }
  /// maPan, or maNone for false.
  void SetAllowPan(bool Value);
  /// Whether a zoom box is being drawn. One that could not be shown, because its magnification was
  /// at a limit, stays until the next release.
  bool ZoomState() const noexcept { return FMouse.ZoomBoxActive(); }
  /// Whether a line follows the mouse.
  bool RubberBandActive() const noexcept { return FMouse.RubberBandActive(); }
  /// Whether something is under way that ends when the button is let go: a drag, a box, MouseBox.
  bool MouseDragging() const noexcept { return FMouse.Dragging(); }
  /// Ends that as if the button had never been pressed: without an event, and MouseBox returns
  /// false. A trace keeps its points. Being hidden does it, too.
  void EndMouseDrag();
  /// The same, and the rubber band is gone.
  void CancelMouse();

  /// Lets the user drag a box with any button but the right one, whatever MouseAction is, and gives
  /// its corners in control pixels, X1 <= X2 and Y1 <= Y2; they may lie outside the control. Events
  /// are delivered meanwhile. False, and the corners stay, when the user gave up with the right
  /// button, when the control is hidden or destroyed, when the application ends, by MouseBoxAbort,
  /// and by another call of MouseBox meanwhile.
  bool MouseBox(int32_t& X1, int32_t& Y1, int32_t& X2, int32_t& Y2);
  /// Ends a MouseBox that waits, which returns false.
  void MouseBoxAbort();
  /// The column of the last button press, in map pixels.
  int32_t LastClickPosX() const noexcept { return FMouse.LastClick().X; }
  /// The row of the last press.
  int32_t LastClickPosY() const noexcept { return FMouse.LastClick().Y; }
  /// The column of the last move.
  int32_t LastMousePosX() const noexcept { return FMouse.LastMove().X; }
  /// The row of the last move.
  int32_t LastMousePosY() const noexcept { return FMouse.LastMove().Y; }
  /// The latitude of the last button press, degrees; 0 when it cannot be told.
  double GetLastMClickLatitude() const;
  /// The longitude, likewise.
  double GetLastMClickLongitude() const;

  /// Colour of the trace that the mouse leaves in maMouseTrace. White at first.
  TColor MouseTraceColor() const noexcept { return FTraceColor; }
  /// Counts for the points that come; does not repaint.
  void SetMouseTraceColor(TColor Color) { FTraceColor = Color; }
  /// Whether lines of the trace invert the picture. True at first.
  bool MouseTraceInvert() const noexcept { return FTraceInvert; }
  /// Counts for the points that come; does not repaint.
  void SetMouseTraceInvert(bool Value) { FTraceInvert = Value; }
  /// The trace, in map pixels.
  const TMouseTrace& MouseTrace() const noexcept { return FTrace; }
  /// Points of the trace, at most MaxMTracePoints.
  int32_t NumMTracePoints() const noexcept { return FTrace.Count(); }
  /// Point 1..NumMTracePoints, X and Y replaced by longitude and latitude; Flags are mtfInvalid for
  /// another index and where there is no position.
  TMouseTracePoint GetMTracePoint(int32_t Index) const;
  /// Forgets all points and repaints.
  void ClearMouseTrace();
  /// Draws the trace on a bitmap whose pixel (Left, Top) is the control's top left.
  void DrawMouseTrace(int32_t Left, int32_t Top, TBitmap& Bitmap) const;

  void MouseDown(TMouseButton Button, TShiftState Shift, int32_t X, int32_t Y) override;
  void MouseMove(TShiftState Shift, int32_t X, int32_t Y) override;
  /// Throws EZAVError "Magnification factor too high" or "too small" where zooming by the mouse met
  /// a limit; the magnification is the limit then, nothing else of the view changed, and nothing
  /// was painted. MouseMove does, too.
  void MouseUp(TMouseButton Button, TShiftState Shift, int32_t X, int32_t Y) override;
  /// @}

  /// @name Events
  /// All belong to the application; the sender comes first. A canvas is in control pixels, and what
  /// is drawn on it lands in the picture, which DrawnSize() tells the size of: a part of the map
  /// that is printed or copied can be larger than the control.
  /// @{

  /// Handler of progress; Cancel ends the loading.
  using TProgressEvent = std::function<void(TGeoMap*, int PercentDone, bool& Cancel)>;
  /// Handler that draws.
  using TRenderEvent = std::function<void(TGeoMap*, TCanvas& Canvas)>;
  /// Handler of a landmark; Handled: it is not drawn any more.
  using TDrawLandMarkEvent = std::function<void(TGeoMap*, bool& Handled, TCanvas& Canvas,
                                                TPoint Position, const TLandMark& LandMark)>;
  /// Handler that may name another file.
  using TMapImgRequestEvent = std::function<void(TGeoMap*, std::string& FileName)>;
  /// Handler that may forbid.
  using TLandMarkActionEvent =
      std::function<void(TGeoMap*, bool& Allowed, TLandMarkAction, const TLandMark& LandMarkData)>;
  /// Handler without arguments.
  using TZoomPanEvent = std::function<void(TGeoMap*)>;
  /// Handler of a click that belongs to a line.
  using TOnRubberBandActionEvent = std::function<void(TGeoMap*, TPoint Map)>;
  /// Kind 1: longitude and latitude of two corners; 0: their map pixels.
  using TSelectRectEvent =
      std::function<void(TGeoMap*, int Kind, double X1, double Y1, double X2, double Y2)>;

  TProgressEvent OnDataLoading;  ///< while an image file loads; cancelling throws EImageCancelled
  TRenderEvent OnBeforeRenderData;        ///< the map image is drawn, nothing above it yet
  TRenderEvent OnDataRendered;            ///< landmarks are drawn, the highlighted one not yet
  TDrawLandMarkEvent OnDrawLandmark;      ///< before each landmark; handled ones are not drawn
  TMapImgRequestEvent OnMapImageRequest;  ///< before an image file loads; may name another file
  TLandMarkActionEvent OnLandMarkAction;  ///< before a landmark is added or removed
  TZoomPanEvent OnZoomPan;                ///< after the user zoomed or panned
  TOnRubberBandActionEvent OnBeginRubberBand;  ///< a click began a line, or a selection begins
  TOnRubberBandActionEvent
      OnContinueRubberBand;                  ///< a click with Ctrl ended a line and began another
  TOnRubberBandActionEvent OnEndRubberBand;  ///< a click ended the line
  TSelectRectEvent OnSelectRect;             ///< a rectangle was selected

  /// Fires OnZoomPan and tells the observers.
  void DoZoomPanEvent();
  /// Fires OnSelectRect and tells the observers.
  void DoSelectRectEvent(int Kind, double X1, double Y1, double X2, double Y2);

  /// An observer is called once however often it was added.
  void AddObserver(TGeoMapObserver* Observer);
  /// An observer that is not there: nothing.
  void RemoveObserver(TGeoMapObserver* Observer);
  /// @}

 private:
  using TNotification = void (TGeoMapObserver::*)(TGeoMap&);
  using TReadCalibration = std::function<TCalibReadResult(const std::string& ErrorPrefix)>;

  // A handler or observer may destroy the control in Paint and in each of the following. So they
  // are the last thing that a caller does, or it asks Life() before it goes on.
  void Notify(TNotification What);
  void NotifyWith(const std::function<void(TGeoMapObserver&)>& Tell);
  void ChangeView(const TViewState& View);
  void ChangeViewAndPaint(const TViewState& View);
  void ReportCalibration();  // to the observers, then paints
  void ReportImage();        // the view goes to (0, 0), too
  bool MoveViewByUser(const TViewState& View);
  void LoadImage(const std::string& Name, const std::string& BesideFile);
  TCalibReadResult LoadCalibration(const std::string& FileName, const std::string& Id);
  TCalibReadResult LoadCalibration(const TReadCalibration& Read, const std::string& BesideFile);

  template <typename T>
  void Store(T& Member, const T& Value) {
    Member = Value;
    Paint();
  }
  template <typename T>
  void StoreIfDifferent(T& Member, const T& Value) {
    if (Member != Value) Store(Member, Value);
  }
  // Calls the operation of a part and puts the control's name before its error.
  template <typename TOperation>
  auto Framed(TOperation Operation) const {
    try {
      return Operation();
    } catch (const EZAVGeoMapError& Error) {
      throw EZAVGeoMapError(ComponentMessage(Error.what()));
    }
  }

  TSize ControlSize() const noexcept { return {Width(), Height()}; }
  TMouseContext MouseContext() const;
  void Hidden() override;
  void Perform(const TMouseResult& Result);
  void TellNews(const TMouseResult& Result);
  void SelectRect(TPoint From, TPoint To);
  double DeviceScale();
  TLandMarkStore::TQuestion LandMarkQuestion();
  void AddLandMark(const TLandMark& LandMark);
  template <typename TOperation>
  auto WithMemory(TOperation Operation) const;
  template <typename TOperation>
  int32_t RemoveLandMarks(TOperation Operation);
  TLandMarkLayer LandMarkLayer();
  TDrawLandMarkHook DrawLandMarkHook();
  TRenderScene Scene();
  TRenderHooks Hooks();
  TSize Render();
  void AcceptImage(const std::string& Name);
  void TakeBitmap(const TBitmap& Bitmap);  // does not paint
  TBitmap DrawnEmptyMap(const TEmptyMap& Map, const TDrawEmptyMapProc& DrawProc);
  TImageProgress ImageProgress();
  std::string ImagePath() const;
  double PrintFactor(TSize MapPart, int32_t Denominator, TSize Page) const;
  void PrintPart(TPoint TopLeft, double Factor, const TRect& Area);
  void ForgetImage() noexcept;
  void SizePictureToMap();
  void TraceMouse(TPoint Control);

  TCalibration FCalibration;
  std::string FCalDatName;

  TMapImage FImage;
  TImageStore FKeptImages;
  std::string FImageBeside;  // the file beside which the image was looked for, empty = none
  TViewState FView;
  TZoomRing FZoomRing;
  TZoomGesture FZoomGesture;
  bool FConfinePan = true;

  TMapLook FLook;
  TGraticule FGraticule;
  std::shared_ptr<TBitmap> FInternalMapImg;  // shared with a rendering under way
  bool FSuppressPaint = false;
  bool FPainting = false;
  TSize FDrawnSize;  // of the part that DrawPart draws, else empty

  std::shared_ptr<TLandMarkStore> FLandMarks;  // outlives the control while it asks a handler
  TLandMarkCache FLandMarkCache;
  int32_t FLMRandSampleLimit = 20000;
  TRandom FThinning;
  TColor FHighLMColFG = clBlue;
  TColor FHighLMColBG = clYellow;
  bool FHighLMTrans = false;

  TMouseActMode FMouseAction = TMouseActMode::maPan;
  TMouseTools FMouse;
  TMouseFeedback FFeedback;
  TMouseTrace FTrace;
  TColor FTraceColor = clWhite;
  bool FTraceInvert = true;

  std::vector<TGeoMapObserver*> FObservers;
};

}  // namespace zav

#endif
