// calibration_points.cpp - the kinds of point tables.
// SPDX-License-Identifier: MIT
#include "common/calibration_points.h"

#include <geobasics/utm.h>
#include <platform/base/rounding.h>
#include <platform/base/text.h>
#include <platform/base/text_format.h>

#include <algorithm>
#include <cmath>

#include "common/geo_columns.h"
#include "common/table.h"

namespace zav {

namespace {

constexpr double MaxPixel = 1000000;  // no image is larger
constexpr double FalseNorthing = 10000000;

// The columns of all kinds; which of them are asked for depends on the table.
enum TPointColumn : size_t {
  Lat,
  Long,
  Northing,
  Easting,
  Zone,
  Hemisphere,
  Kind,
  Value,
  PixelX,
  PixelY,
  Name,
  Enabled,
  NumPointColumns
};

constexpr TColumn PointColumns[NumPointColumns] = {
    LatColumn, LongColumn, {"northing"},  {"easting"},   {"zone", true}, {"hemisphere", true},
    {"kind"},  {"value"},  {"pixel_x|x"}, {"pixel_y|y"}, {"name", true}, {"enabled", true}};

// A table with the places of its columns.
class TPointTable {
 public:
  TPointTable(const std::string& File, TCalibModel Model);
  bool Next() { return FTable.Next(); }
  TPointRow Row() const;
  std::string Place() const { return FTable.Place(); }

 private:
  void ChooseByHeader(TCalibModel Model);
  void ChooseByPlace(TCalibModel Model);
  void Use(std::initializer_list<TPointColumn> Columns, bool Optional = false);
  bool Has(TPointColumn Column) const { return FPlaces[Column].has_value(); }
  // Nothing for a column that the table does not have.
  const std::string& Text(TPointColumn Column) const;
  double Number(TPointColumn Column, double Low, double High) const {
    return FTable.Number(*FPlaces[Column], Low, High);
  }
  void ReadMetres(TPointRow& Row) const;
  std::optional<TGratLineKind> LineKind() const;

  TTable FTable;
  std::vector<TColumn> FColumns;
  std::optional<size_t> FPlaces[NumPointColumns];
  bool FLinesOnly = false;
};

TPointTable::TPointTable(const std::string& File, TCalibModel Model) : FTable(File) {
  FTable.HasHeader() ? ChooseByHeader(Model) : ChooseByPlace(Model);
  FTable.SetColumns(FColumns);
}

void TPointTable::Use(std::initializer_list<TPointColumn> Columns, bool Optional) {
  for (const TPointColumn Each : Columns) {
    FPlaces[Each] = FColumns.size();
    FColumns.push_back(PointColumns[Each]);
    FColumns.back().Optional |= Optional;
  }
}

void TPointTable::ChooseByHeader(TCalibModel Model) {
  const bool Degrees = FTable.HeaderHas(LatColumn.Names);
  const bool Metres = FTable.HeaderHas("northing");
  const bool Lines = FTable.HeaderHas("kind") && FTable.HeaderHas("value");
  const bool Points = Degrees || Metres;
  FLinesOnly = !Points && (Lines || Model == TCalibModel::cmParabolicIp);
  if (Lines || FLinesOnly) Use({Kind, Value}, Points);
  if (Metres) Use({Northing, Easting, Zone, Hemisphere}, Degrees || Lines);
  if (Degrees || (!Metres && !FLinesOnly)) Use({Lat, Long}, Metres || Lines);
  Use({PixelX, PixelY});
  Use({Name, Enabled}, true);
}

void TPointTable::ChooseByPlace(TCalibModel Model) {
  const std::string& First = FTable.FirstField();
  FLinesOnly = Model == TCalibModel::cmParabolicIp || SameText(First, "meridian") ||
               SameText(First, "parallel");
  if (FLinesOnly)
    Use({Kind, Value});
  else if (Model == TCalibModel::cmUTM && FTable.Width() > 4)
    Use({Northing, Easting, Zone, Hemisphere});
  else
    Use({Lat, Long});
  Use({PixelX, PixelY});
}

const std::string& TPointTable::Text(TPointColumn Column) const {
  static const std::string Absent;
  return Has(Column) ? FTable.Text(*FPlaces[Column]) : Absent;
}

// The kind of line that the row is of, if it is a line's point.
std::optional<TGratLineKind> TPointTable::LineKind() const {
  const std::string& Word = Text(Kind);
  if (SameText(Word, "meridian")) return TGratLineKind::gtlMeridian;
  if (SameText(Word, "parallel")) return TGratLineKind::gtlParallel;
  if (FLinesOnly) throw ELineError("kind \"" + Word + "\" is neither meridian nor parallel");
  return std::nullopt;
}

void TPointTable::ReadMetres(TPointRow& Row) const {
  if (!Text(Zone).empty()) {
    const double Number = this->Number(Zone, 1, 60);
    if (Number != std::floor(Number)) throw ELineError("zone " + Text(Zone) + " is not whole");
    Row.Zone = static_cast<int>(Number);
  }
  if (!Text(Hemisphere).empty()) Row.South = IsSouth(Text(Hemisphere));
  Row.Northing = Number(Northing, 0, FalseNorthing);
  Row.Easting = Number(Easting, 0, 1000000);
}

bool IsOff(const std::string& Word) {
  for (const char* Each : {"", "true", "on", "yes", "1"})
    if (SameText(Word, Each)) return false;
  for (const char* Each : {"false", "off", "no", "0"})
    if (SameText(Word, Each)) return true;
  throw ELineError("enabled \"" + Word + "\" is neither true nor false");
}

TPointRow TPointTable::Row() const {
  TPointRow Row;
  Row.FileLine = FTable.Line();
  Row.Line = LineKind();
  if (Row.Line) {
    const double Most = *Row.Line == TGratLineKind::gtlParallel ? 90 : 360;
    Row.Value = Number(Value, -Most, Most);
  } else {
    Row.IsUtm = Has(Northing) && !(Has(Lat) && Text(Northing).empty());
    Row.HasDegrees = Has(Lat) && !(Row.IsUtm && Text(Lat).empty());
    if (Row.IsUtm) ReadMetres(Row);
    if (Row.HasDegrees) Row.Degrees = {Number(Lat, -90, 90), Number(Long, -360, 360)};
    if (!Row.IsUtm && !Row.HasDegrees) throw ELineError("the row holds no position");
  }
  Row.Pixel = {RoundHalfEven(Number(PixelX, -MaxPixel, MaxPixel)),
               RoundHalfEven(Number(PixelY, -MaxPixel, MaxPixel))};
  Row.Name = Text(Name);
  Row.Enabled = !IsOff(Text(Enabled));
  return Row;
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

// Takes a zone or hemisphere over, which must be the same for all points.
template <typename T>
void Agree(std::optional<T>& Known, const std::optional<T>& Told, const char* What) {
  if (!Told) return;
  if (Known.value_or(*Told) != *Told)
    throw ELineError(std::string("another ") + What + " than before");
  Known = Told;
}

// The zone and hemisphere of points in degrees: those asked for, else those of the points' middle.
void FindGrid(const std::vector<TPointRow>& Rows, TPointsOptions& Options) {
  TCoords Middle;
  const auto Count = static_cast<double>(Rows.size());
  for (const TPointRow& Row : Rows) {
    Middle.Latit += Row.Degrees.Latit / Count;
    Middle.Longit += Row.Degrees.Longit / Count;
  }
  int PointsZone = 0;
  char Band = ' ';
  GeoToUTMZone(Middle.Latit, Middle.Longit, PointsZone, Band);
  if (!Options.Zone && PointsZone == 0) throw ELineError("the points are outside the UTM grid");
  Options.Zone = Options.Zone.value_or(PointsZone);
  Options.South = Options.South.value_or(Middle.Latit < 0);
}

void AddMetres(TCalibData& Data, const TPointRow& Row, const TPointsOptions& Grid) {
  if (Row.IsUtm) return AddQuad(Data, Row.Northing, Row.Easting, Row.Pixel);
  double East = 0;
  double North = 0;
  LatLongToUTMZone(Row.Degrees.Latit, Row.Degrees.Longit, *Grid.Zone, Grid.Ellipsoid, East, North);
  // The sheet's grid goes on across the equator.
  if ((Row.Degrees.Latit < 0) != *Grid.South) North += *Grid.South ? FalseNorthing : -FalseNorthing;
  AddQuad(Data, North, East, Row.Pixel);
}

}  // namespace

void FailPointRow(const std::string& File, const TPointRow& Row, const std::string& Reason) {
  const std::string Name = File == "-" ? "standard input" : File;
  throw EInOutError(Name + ":" + IntegerText(Row.FileLine), Reason);
}

std::vector<TPointRow> ReadPointRows(const std::string& File, TCalibModel Model) {
  std::vector<TPointRow> Rows;
  TPointTable Table(File, Model);
  try {
    while (Table.Next()) Rows.push_back(Table.Row());
  } catch (const ELineError& Error) {
    throw EInOutError(Table.Place(), Error.what());
  }
  return Rows;
}

TCalibData ReadCalibrationItems(const std::string& File, const TPointsOptions& Options) {
  const bool Lines = Options.Model == TCalibModel::cmParabolicIp;
  const bool Utm = Options.Model == TCalibModel::cmUTM;
  std::vector<TPointRow> Rows = ReadPointRows(File, Options.Model);
  std::erase_if(
      Rows, [&](const TPointRow& Row) { return !Row.Enabled || Row.Line.has_value() != Lines; });
  TPointsOptions Known = Options;
  TCalibData Data;
  TPointRow Last;
  try {
    bool AllDegrees = !Rows.empty();
    for (const TPointRow& Row : Rows) {
      Last = Row;
      AllDegrees = AllDegrees && !Row.IsUtm;
      Agree(Known.Zone, Row.Zone, "zone");
      Agree(Known.South, Row.South, "hemisphere");
      if (!Lines && !Utm && !Row.HasDegrees)
        throw ELineError("the position is in UTM metres, not in degrees");
    }
    if (Utm && AllDegrees) FindGrid(Rows, Known);
    if (Utm && (!Known.Zone || !Known.South))
      throw ELineError("zone and hemisphere are not told; use --zone and --hemisphere");
    for (const TPointRow& Row : Rows) {
      Last = Row;
      if (Lines)
        AddLinePoint(Data, *Row.Line, Row.Value, Row.Pixel);
      else if (Utm)
        AddMetres(Data, Row, Known);
      else
        AddQuad(Data, Row.Degrees.Latit, Row.Degrees.Longit, Row.Pixel);
    }
  } catch (const ELineError& Error) {
    FailPointRow(File, Last, Error.what());
  }
  if (Utm) {
    Data.UTMZone = *Known.Zone;
    Data.UTMSouth = *Known.South;
  }
  Data.Ellipsoid = Known.Ellipsoid;
  return Data;
}

}  // namespace zav
