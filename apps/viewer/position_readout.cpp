// position_readout.cpp - a position as people write it, as precise as the map can tell.
// SPDX-License-Identifier: MIT
#include "position_readout.h"

#include <algorithm>
#include <cmath>

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <geobasics/position_text.h>
#include <platform/base/rounding.h>

namespace zav {

namespace {

constexpr double MetresPerDegree = 111320;  // on the equator

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(PositionReadout)
};

TNotation NotationOf(ReadoutFormat Format) {
  switch (Format) {
    case ReadoutFormat::DegreesMinutes:
      return TNotation::ntDegreesMinutes;
    case ReadoutFormat::DegreesMinutesSeconds:
      return TNotation::ntDegreesMinutesSeconds;
    case ReadoutFormat::Utm:
      return TNotation::ntUTM;
    case ReadoutFormat::Ups:
      return TNotation::ntUPS;
    case ReadoutFormat::Mgrs:
      return TNotation::ntMGRS;
    default:
      return TNotation::ntDegrees;
  }
}

// Units of the format's last number in a degree.
double UnitsPerDegree(ReadoutFormat Format) {
  switch (Format) {
    case ReadoutFormat::DegreesMinutes:
      return 60;
    case ReadoutFormat::DegreesMinutesSeconds:
      return 3600;
    case ReadoutFormat::Utm:
    case ReadoutFormat::Ups:
    case ReadoutFormat::Mgrs:
      return MetresPerDegree;
    default:
      return 1;
  }
}

}  // namespace

QString ReadoutFormatName(ReadoutFormat Format) {
  switch (Format) {
    case ReadoutFormat::Degrees:
      return Texts::tr("Degrees");
    case ReadoutFormat::DegreesMinutes:
      return Texts::tr("Degrees and minutes");
    case ReadoutFormat::DegreesMinutesSeconds:
      return Texts::tr("Degrees, minutes and seconds");
    case ReadoutFormat::Utm:
      return Texts::tr("UTM");
    case ReadoutFormat::Ups:
      return Texts::tr("UPS");
    case ReadoutFormat::Mgrs:
      return Texts::tr("MGRS");
  }
  return {};
}

ReadoutFormat NextReadoutFormat(ReadoutFormat Format) {
  const auto Found = std::find(AllReadoutFormats.begin(), AllReadoutFormats.end(), Format);
  if (Found == AllReadoutFormats.end() || Found + 1 == AllReadoutFormats.end())
    return AllReadoutFormats.front();
  return *(Found + 1);
}

int ReadoutDecimals(ReadoutFormat Format, double MetresPerPixel) {
  if (!std::isfinite(MetresPerPixel) || MetresPerPixel <= 0) {
    constexpr std::array<int, AllReadoutFormats.size()> Unknown{5, 3, 1, 0, 0, 0};
    return Unknown.at(static_cast<size_t>(Format));
  }
  const double UnitsPerPixel = MetresPerPixel / MetresPerDegree * UnitsPerDegree(Format);
  const bool Squares = Format == ReadoutFormat::Mgrs;
  const int Coarsest = Squares ? -5 : 0;
  const int Finest = Squares ? 3 : 6;
  return std::clamp(static_cast<int>(std::ceil(-std::log10(UnitsPerPixel))), Coarsest, Finest);
}

QString PositionText(const TCoords& Position, ReadoutFormat Format, TGeoEllipsoid Ellipsoid,
                     double MetresPerPixel) {
  if (!std::isfinite(Position.Latit) || !std::isfinite(Position.Longit) ||
      std::abs(Position.Latit) > 90 || std::abs(Position.Longit) > 1e6)
    return {};
  if (Format == ReadoutFormat::Utm && (Position.Latit < -80 || Position.Latit > 84))
    return Texts::tr("outside UTM (80\u00b0 S to 84\u00b0 N)");
  if (Format == ReadoutFormat::Ups && Position.Latit > -79.5 && Position.Latit < 83.5)
    return Texts::tr("outside UPS (the poles to 79.5\u00b0 S and 83.5\u00b0 N)");
  return QString::fromStdString(PositionToText({Position.Latit, Position.Longit},
                                               NotationOf(Format),
                                               ReadoutDecimals(Format, MetresPerPixel), Ellipsoid));
}

QString PixelText(QPointF MapPixel) {
  return QStringLiteral("%1, %2").arg(RoundHalfEven(MapPixel.x())).arg(RoundHalfEven(MapPixel.y()));
}

QString ScaleText(double MetresPerPixel, double Magnification, double DotsPerInch) {
  if (!(MetresPerPixel > 0) || !(Magnification > 0) || !(DotsPerInch > 0)) return {};
  const double Scale = MetresPerPixel / Magnification * DotsPerInch / 0.0254;
  if (!std::isfinite(Scale) || Scale < 1 || Scale > 1e15) return {};
  const double Step = std::pow(10, std::max(0.0, std::floor(std::log10(Scale)) - 1));
  const double Rounded = RoundHalfEven(Scale / Step) * Step;
  return Texts::tr("Scale 1:%1").arg(QLocale().toString(static_cast<qlonglong>(Rounded)));
}

std::optional<TCoords> ParsePosition(const QString& Text) {
  const QStringList Parts = Text.split(QLatin1Char(','));
  if (Parts.size() != 2) return std::nullopt;
  bool LatOk = false;
  bool LongOk = false;
  const TCoords Position{Parts[0].toDouble(&LatOk), Parts[1].toDouble(&LongOk)};
  const bool OnGlobe = std::abs(Position.Latit) <= 90 && std::abs(Position.Longit) <= 180;
  if (!LatOk || !LongOk || !OnGlobe) return std::nullopt;
  return Position;
}

}  // namespace zav
