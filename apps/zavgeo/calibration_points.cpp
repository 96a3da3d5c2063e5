// calibration_points.cpp - the three kinds of point tables.
// SPDX-License-Identifier: MIT
#include "calibration_points.h"

#include <geobasics/utm.h>
#include <platform/base/rounding.h>
#include <platform/base/text.h>
#include <platform/base/text_format.h>

#include <algorithm>
#include <cmath>

#include "geo_columns.h"
#include "table.h"

namespace zav {

namespace {

constexpr double MaxPixel = 1000000;  // no image is larger

constexpr TColumn PixelX{"pixel_x|x"};
constexpr TColumn PixelY{"pixel_y|y"};

TPoint PixelOf(const TTable& Table, size_t Column) {
  return {RoundHalfEven(Table.Number(Column, -MaxPixel, MaxPixel)),
          RoundHalfEven(Table.Number(Column + 1, -MaxPixel, MaxPixel))};
}

void AddQuad(TCalibData& Data, double Latitude, double Longitude, TPoint Pixel) {
  if (Data.NumCalQuads == MaxCalQuads)
    throw ELineError("more than " + IntegerText(MaxCalQuads) + " control points");
  Data.CalQuads[static_cast<size_t>(Data.NumCalQuads++)] = {Latitude, Longitude, Pixel.X, Pixel.Y};
}

void AddLinePoint(TCalibData& Data, TGratLineKind Kind, double Value, TPoint Pixel) {
  TCalibLine* const End = Data.CalLines.data() + Data.NumCalLines;
  TCalibLine* Line = std::find_if(Data.CalLines.data(), End, [&](const TCalibLine& Each) {
    return Each.LineType == Kind && Each.LineValue == Value;
  });
  if (Line == End) {
    if (Data.NumCalLines == MaxCalLines)
      throw ELineError("more than " + IntegerText(MaxCalLines) + " graticule lines");
    Line->LineType = Kind;
    Line->LineValue = Value;
    ++Data.NumCalLines;
  }
  if (Line->NumPoints == MaxCalLinePoints)
    throw ELineError("more than " + IntegerText(MaxCalLinePoints) + " points on one line");
  Line->CalPoints[static_cast<size_t>(Line->NumPoints++)] = Pixel;
}

void ReadLinePoint(const TTable& Table, TCalibData& Data) {
  const std::string& Kind = Table.Text(0);
  if (SameText(Kind, "meridian"))
    AddLinePoint(Data, TGratLineKind::gtlMeridian, Table.Longitude(1), PixelOf(Table, 2));
  else if (SameText(Kind, "parallel"))
    AddLinePoint(Data, TGratLineKind::gtlParallel, Table.Latitude(1), PixelOf(Table, 2));
  else
    throw ELineError("kind \"" + Kind + "\" is neither meridian nor parallel");
}

// Takes a zone or hemisphere over, which must be the same for all points.
template <typename T>
void Agree(std::optional<T>& Known, T Value, const char* What) {
  if (Known.value_or(Value) != Value)
    throw ELineError(std::string("another ") + What + " than before");
  Known = Value;
}

void ReadUtmPoint(const TTable& Table, TPointsOptions& Options, TCalibData& Data) {
  if (!Table.Text(2).empty()) {
    const double Zone = Table.Number(2, 1, 60);
    if (Zone != std::floor(Zone)) throw ELineError("zone " + Table.Text(2) + " is not whole");
    Agree(Options.Zone, static_cast<int>(Zone), "zone");
  }
  if (!Table.Text(3).empty()) Agree(Options.South, IsSouth(Table.Text(3)), "hemisphere");
  AddQuad(Data, Table.Number(0, 0, 10000000), Table.Number(1, 0, 1000000), PixelOf(Table, 4));
}

// Turns degrees into metres of one zone: the one asked for, else the zone of the points' middle.
void ProjectQuads(TPointsOptions& Options, TCalibData& Data) {
  if (Data.NumCalQuads == 0) return;
  TCoords Middle;
  for (int32_t i = 0; i < Data.NumCalQuads; ++i) {
    const TCalQuad& Quad = Data.CalQuads[static_cast<size_t>(i)];
    Middle.Latit += Quad.Latitude / Data.NumCalQuads;
    Middle.Longit += Quad.Longitude / Data.NumCalQuads;
  }
  int Zone = 0;
  char Band = ' ';
  GeoToUTMZone(Middle.Latit, Middle.Longit, Zone, Band);
  if (!Options.Zone && Zone == 0) throw ELineError("the points are outside the UTM grid");
  Options.Zone = Options.Zone.value_or(Zone);
  Options.South = Options.South.value_or(Middle.Latit < 0);
  for (int32_t i = 0; i < Data.NumCalQuads; ++i) {
    TCalQuad& Quad = Data.CalQuads[static_cast<size_t>(i)];
    const bool BeyondEquator = (Quad.Latitude < 0) != *Options.South;
    double Easting = 0;
    double Northing = 0;
    LatLongToUTMZone(Quad.Latitude, Quad.Longitude, *Options.Zone, Options.Ellipsoid, Easting,
                     Northing);
    // The sheet's grid goes on across the equator.
    if (BeyondEquator) Northing += *Options.South ? 10000000 : -10000000;
    Quad.Latitude = Northing;
    Quad.Longitude = Easting;
  }
}

// Whether a table for cmUTM holds metres. Without a header its width tells.
bool HoldsMetres(const TTable& Table) {
  return Table.HasHeader() ? Table.HeaderHas("northing") : Table.Width() > 4;
}

}  // namespace

TCalibData ReadCalibrationItems(const std::string& File, const TPointsOptions& Options) {
  TPointsOptions Known = Options;
  TCalibData Data;
  TTable Table(File);
  const bool Lines = Known.Model == TCalibModel::cmParabolicIp;
  const bool Utm = Known.Model == TCalibModel::cmUTM;
  const bool Metres = Utm && HoldsMetres(Table);
  if (Lines)
    Table.SetColumns({{"kind"}, {"value"}, PixelX, PixelY});
  else if (Metres)
    Table.SetColumns(
        {{"northing"}, {"easting"}, {"zone", true}, {"hemisphere", true}, PixelX, PixelY});
  else
    Table.SetColumns({LatColumn, LongColumn, PixelX, PixelY});
  try {
    while (Table.Next()) {
      if (Lines)
        ReadLinePoint(Table, Data);
      else if (Metres)
        ReadUtmPoint(Table, Known, Data);
      else
        AddQuad(Data, Table.Latitude(0), Table.Longitude(1), PixelOf(Table, 2));
    }
    if (Utm && !Metres) ProjectQuads(Known, Data);
    if (Utm && (!Known.Zone || !Known.South))
      throw ELineError("zone and hemisphere are not told; use --zone and --hemisphere");
  } catch (const ELineError& Error) {
    throw EInOutError(Table.Place(), Error.what());
  }
  if (Utm) {
    Data.UTMZone = *Known.Zone;
    Data.UTMSouth = *Known.South;
  }
  Data.Ellipsoid = Known.Ellipsoid;
  return Data;
}

}  // namespace zav
