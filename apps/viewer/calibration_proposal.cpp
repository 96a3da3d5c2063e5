// calibration_proposal.cpp - what position a point of the map probably has.
// SPDX-License-Identifier: MIT
#include "calibration_proposal.h"

#include <cmath>
#include <optional>

#include "calib_items.h"
#include "position_parser.h"

namespace zav {

namespace {

// A hand and a fit that is still rough are not off by more than this, and lines that are closer
// together could be mistaken for each other.
constexpr double NearPixels = 6;
constexpr double ApartPixels = 30;

constexpr double RoundSeconds[] = {36000, 18000, 7200, 3600, 1800, 900, 600,
                                   300,   120,   60,   30,   10,   5,   1};
constexpr double RoundMetres[] = {100000, 50000, 10000, 5000, 1000, 500, 100};

double Rounded(double Value, double Step) { return std::nearbyint(Value / Step) * Step; }

// The distance on the map image between a pixel and a position that Find gives the pixel of.
template <typename TFind>
double Distance(const TFind& Find, double North, double East, TPoint Pixel) {
  double X = 0;
  double Y = 0;
  return Find(North, East, X, Y) ? std::hypot(X - Pixel.X, Y - Pixel.Y) : HUGE_VAL;
}

struct TCrossing {
  double North = 0;
  double East = 0;
};

template <typename TFind, size_t N>
std::optional<TCrossing> RoundCrossing(const double (&Steps)[N], double Unit, double North,
                                       double East, TPoint Pixel, const TFind& Find) {
  for (const double Each : Steps) {
    const double Step = Each / Unit;
    const TCrossing Found{Rounded(North, Step), Rounded(East, Step)};
    if (Distance(Find, Found.North + Step, Found.East, Pixel) < ApartPixels ||
        Distance(Find, Found.North, Found.East + Step, Pixel) < ApartPixels)
      break;
    if (Distance(Find, Found.North, Found.East, Pixel) <= NearPixels) return Found;
  }
  return std::nullopt;
}

// "46\u00b0 10' N": a whole number of seconds, no more than there is to say.
QString AngleText(double Degrees, char Positive, char Negative) {
  const auto Seconds = static_cast<int>(std::lround(std::abs(Degrees) * 3600));
  QString Text = QStringLiteral("%1\u00b0").arg(Seconds / 3600);
  if (Seconds % 3600 != 0) Text += QStringLiteral(" %1'").arg(Seconds / 60 % 60);
  if (Seconds % 60 != 0) Text += QStringLiteral(" %1\"").arg(Seconds % 60);
  return Text + QLatin1Char(' ') + QLatin1Char(Degrees < 0 && Seconds != 0 ? Negative : Positive);
}

QString GridCrossingText(const TCalibration& Calibration, const TCoords& Read, TPoint Pixel) {
  const TCalibData& Data = Calibration.Data();
  double Easting = 0;
  double Northing = 0;
  Calibration.ToUTMInMapZone(Read.Latit, Read.Longit, Easting, Northing);
  const auto Find = [&Calibration](double North, double East, double& X, double& Y) {
    int32_t Column = 0;
    int32_t Row = 0;
    if (!Calibration.CalcPixelCoordsUTM(North, East, Column, Row)) return false;
    X = Column;
    Y = Row;
    return true;
  };
  const auto Found = RoundCrossing(RoundMetres, 1, Northing, Easting, Pixel, Find);
  if (!Found) return {};
  return TypedText(CalibPosition::OfUtm(Found->North, Found->East, Data.UTMZone, Data.UTMSouth));
}

}  // namespace

QString ProposedPosition(const TCalibration& Calibration, TPoint Pixel, ReadoutFormat Format) {
  TCoords Read;
  if (!Calibration.IsFitted() || !Calibration.ToGeo(Pixel.X, Pixel.Y, Read)) return {};
  if (std::abs(Read.Latit) > 90 || std::abs(Read.Longit) > 180) return {};
  if (Format == ReadoutFormat::Utm) {
    const bool InZone = Calibration.Model() == TCalibModel::cmUTM && Calibration.Data().UTMZone > 0;
    QString Text = InZone ? GridCrossingText(Calibration, Read, Pixel) : QString();
    if (!Text.isEmpty()) return Text;
  } else {
    const auto Find = [&Calibration](double Lat, double Long, double& X, double& Y) {
      return Calibration.ToPixel(Lat, Long, X, Y);
    };
    const auto Found = RoundCrossing(RoundSeconds, 3600, Read.Latit, Read.Longit, Pixel, Find);
    if (Found)
      return AngleText(Found->North, 'N', 'S') + QStringLiteral(", ") +
             AngleText(Found->East, 'E', 'W');
  }
  return PositionText(Read, Format, Calibration.Data().Ellipsoid, Calibration.Data().Resolution);
}

}  // namespace zav
