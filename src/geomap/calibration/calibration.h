/// @file
/// calibration.h - a calibration: its items, the fitted model and the conversions between pixels
/// and geographic positions. Works without any control or image.
///
/// Every operation that changes an item fits the model again and recomputes corners and resolution.
/// Errors are EZAVGeoMapError with the bare reason as text; a control puts its own name before it.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_CALIBRATION_CALIBRATION_H
#define ZAV_GEOMAP_CALIBRATION_CALIBRATION_H

#include <cstdint>
#include <string>

#include <geomap/calibration/calib_data.h>
#include <geomap/calibration/conversion.h>
#include <geomap/calibration/fitting.h>
#include <geomap/errors.h>
#include <platform/base/api.h>
#include <platform/base/matrix.h>
#include <platform/base/progress.h>

namespace zav {

/// A calibration: the items that tie pixels to positions, the model, and the coefficients that were
/// fitted. A value; needs no control and no image.
class ZAVGEO_API TCalibration {
 public:
  TCalibration();

  /// @name State
  /// @{

  /// Items, corners and texts.
  const TCalibData& Data() const noexcept { return FData; }
  /// The model that is fitted.
  TCalibModel Model() const noexcept { return FModel; }
  /// What the last fit left; which of it counts depends on the model.
  const TCalibCoefficients& Coefficients() const noexcept { return FCoef; }
  /// 5 columns (1 = parallel or 0 = meridian, value, c0, c1, c2), one row a calibration line.
  const TMatrix& GratMat() const noexcept { return FGratMat; }

  /// Replaces items and model at once, then recalculates once. Counts beyond the arrays are cut.
  /// Corners and resolution of Data stay while the image size is not known.
  void SetData(const TCalibData& Data, TCalibModel Model);
  /// The same without recalculating: all coefficients that ClearCalibData clears are 0. For a
  /// reader that must do something between reading and fitting, such as loading the image.
  void SetDataUnfitted(const TCalibData& Data, TCalibModel Model);
  /// Keeps the items and recalculates.
  void SetModel(TCalibModel Model);
  /// The map image's size in pixels, 0 when there is none. It is an input of the conic fit and of
  /// the corners; nothing is recalculated by this call.
  void SetImageSize(int32_t Width, int32_t Height) noexcept;
  /// Pixels, 0 when it is not known.
  int32_t ImageWidth() const noexcept { return FImageWidth; }
  /// Pixels, 0 when it is not known.
  int32_t ImageHeight() const noexcept { return FImageHeight; }

  /// The name under which files tell the map image; nothing is loaded.
  void SetMapFName(const std::string& Name) { FData.MapFName = Name; }
  /// The map's name for people.
  void SetCaption(const std::string& Caption) { FData.Caption = Caption; }
  /// Accepts 1..60, ignores anything else. No refit, like the hemisphere and the ellipsoid.
  void SetUTMZone(int32_t Zone) noexcept;
  /// Nothing is fitted again.
  void SetUTMHemisphere(THemisphere Hemisphere) noexcept;
  /// Nothing is fitted again.
  void SetEllipsoid(TGeoEllipsoid Ellipsoid) noexcept { FData.Ellipsoid = Ellipsoid; }
  /// @}

  /// @name Items
  /// @{

  /// Adds a point of a graticule line; cmParabolicIp only. Always false, whether added or not; a
  /// full line (10 points) or table (25 lines) ignores the point.
  bool AddCalibPoint(TGratLineKind LineKind, double LineValue, int32_t X, int32_t Y);
  /// Adds a control point in degrees; all models but cmParabolicIp, cmUTM and cmUndefined. False
  /// when there are 200 already.
  bool AddCalibPoint(double Lat, double Long, int32_t X, int32_t Y);
  /// Adds a control point in UTM metres; cmUTM only, in the zone and hemisphere set before. False
  /// when there are 200 already.
  bool AddCalibPoint(double Northing, double Easting, int32_t Zone, THemisphere Hemisphere,
                     int32_t X, int32_t Y);
  /// Removes the item nearest to the pixel, the first of equally near ones, and remembers it. The
  /// last item takes its place. False when there was none.
  bool RemoveCalibPoint(int32_t X, int32_t Y);
  /// Removes the point (X, Y) of the named line, or the line's last point when none is there;
  /// cmParabolicIp only. Always false.
  bool RemoveCalibPoint(TGratLineKind LineKind, double LineValue, int32_t X, int32_t Y);
  /// Adds the item again that RemoveCalibPoint(X, Y) removed last. Refused under cmUTM with the
  /// error of AddCalibPoint.
  void RestoreLastDeletedCalPoint();
  /// Removes all items, corners, zone, ellipsoid and the polynomial coefficients; map file name,
  /// caption, model, Miller and conic parameters stay.
  void ClearCalibData();
  /// Multiplies every pixel position by Factor, rounded, and recalculates.
  void ScalePixels(double Factor);
  /// @}

  /// @name Fitting
  /// @{

  /// All of the fitting: RecalcGratMat, FitModel, CalcExtentsAndResolution. The polynomials count
  /// steps of Progress; aborted, it leaves coefficients of zeros.
  void RecalcCalibration(TProgress& Progress = DefaultProgress());
  /// The parabolas of the graticule lines. True with at least 2 parallels and 2 meridians of 3 or
  /// more points; otherwise the matrix is one row of zeros.
  bool RecalcGratMat();
  /// Fits the current model, without RecalcGratMat and CalcExtentsAndResolution.
  void FitModel(TProgress& Progress = DefaultProgress());
  /// Corners and resolution from the fitted model and the image size.
  void CalcExtentsAndResolution();
  /// Whether the current model has a fit, so that conversions mean something.
  bool IsFitted() const noexcept { return zav::IsFitted(Fit()); }
  /// Standard deviation, in pixels along X and Y, of the difference between the control points'
  /// pixels as predicted (rounded) and as given. 0 without control points. The points are always
  /// taken as degrees, so that the figures mean nothing under cmUTM; use Residual there.
  void CalibQuality(double& QualX, double& QualY) const;
  /// Predicted minus given pixel, not rounded, of control point Index (from 1); under cmUTM from
  /// its metres. False, and the outputs 0, when there is no such point or no fit.
  bool Residual(int32_t Index, double& DX, double& DY) const;
  /// @}

  /// @name Conversion
  /// @{

  /// Degrees of a pixel. Valid = false and 0 when the model cannot tell.
  /// Latitude of a pixel; Valid = false and 0 when the model cannot tell.
  double CalcLatitude(int32_t X, int32_t Y, bool& Valid) const;
  /// The same for a point.
  double CalcLatitude(TPoint P, bool& Valid) const { return CalcLatitude(P.X, P.Y, Valid); }
  /// Longitude of a pixel, likewise.
  double CalcLongitude(int32_t X, int32_t Y, bool& Valid) const;
  /// The same for a point.
  double CalcLongitude(TPoint P, bool& Valid) const { return CalcLongitude(P.X, P.Y, Valid); }
  /// Pixel of a position in degrees; the result tells whether it is valid. X and Y are left alone
  /// where the model gives nothing.
  bool CalcPixelCoords(double Lat, double Long, int32_t& X, int32_t& Y) const;
  /// Pixel of a UTM position in metres; under other models than cmUTM (0, 0) and false.
  bool CalcPixelCoordsUTM(double Northing, double Easting, int32_t& X, int32_t& Y) const;
  /// Where a pixel column (row) meets the grid line of a northing (easting); cmUTM only.
  int32_t CalcUTMyFromNorthingX(double Northing, int32_t X) const;
  /// The column for an easting and a row.
  int32_t CalcUTMxFromEastingY(double Easting, int32_t Y) const;
  /// Whether the position lies strictly between the map's corners, see PositionInMap.
  bool IsPositionWithinMap(double Lat, double Long) const;

  /// The same conversions between pixels and degrees without rounding. ToPixel uses the unrounded
  /// row in the conic model. False, and the outputs 0, without a fit or a finite result.
  bool ToGeo(double X, double Y, TCoords& Position) const;
  /// The pixel of a position.
  bool ToPixel(double Lat, double Long, double& X, double& Y) const;
  /// ToPixel, but a UTM map takes every position in its own zone and hemisphere, so that lines run
  /// on across their borders. CalcPixelCoords and ToPixel take each in the zone that it lies in.
  bool ToPixelInMapZone(double Lat, double Long, double& X, double& Y) const;
  /// The position in metres of the map's UTM zone and hemisphere, which must be set (UTMZone >= 1).
  void ToUTMInMapZone(double Lat, double Long, double& Easting, double& Northing) const;

  friend bool operator==(const TCalibration&, const TCalibration&) = default;
  /// @}

 private:
  TFittedModel Fit() const noexcept {
    return {FModel, FCoef, FGratMat, FData.UTMZone, FData.UTMSouth, FData.Ellipsoid};
  }
  void AppendQuad(const TCalQuad& NewQuad);
  bool RemoveNearestLinePoint(int32_t X, int32_t Y);
  bool RemoveNearestQuad(int32_t X, int32_t Y);
  void RemoveLinePoint(int32_t Index, int32_t Point);
  TCalibLine& Line(int32_t Index) { return FData.CalLines[static_cast<size_t>(Index - 1)]; }
  TCalQuad& Quad(int32_t Index) { return FData.CalQuads[static_cast<size_t>(Index - 1)]; }

  TCalibData FData;
  TCalibModel FModel = TCalibModel::cmUndefined;
  TCalibCoefficients FCoef;
  TMatrix FGratMat;
  int32_t FImageWidth = 0;
  int32_t FImageHeight = 0;

  // What RemoveCalibPoint(X, Y) removed last.
  TCalQuad FLastDelQuad;
  bool FLastDelQuadValid = false;
  TGratLineKind FLastDelLineKind = TGratLineKind::gtlMeridian;
  double FLastDelLineValue = 0;
  TPoint FLastDelLinePt;
  bool FLastDelLinePtValid = false;
};

/// Whether the position lies strictly inside the quadrilateral of the corners.
ZAVGEO_API bool PositionInMap(double Lat, double Long, const TCornerArray& Corners);

}  // namespace zav

#endif
