// position_parser.cpp - a position as a person types it, for the calibration's items.
// SPDX-License-Identifier: MIT
#include "position_parser.h"

#include <charconv>
#include <iterator>

#include <geobasics/position_text.h>
#include <geobasics/utm.h>

#include "reason_text.h"

namespace zav {

namespace {

CalibPosition CalibPositionOf(const TWrittenPosition& Written) {
  const bool Angles = Written.Notation <= TNotation::ntDegreesMinutesSeconds;
  const bool Metres = !Angles && (Written.Zone != 0 || Written.Notation == TNotation::ntUTM);
  if (Metres)
    return CalibPosition::OfUtm(Written.Northing, Written.Easting, Written.Zone, Written.South);
  // UPS metres always have degrees; a map has no grid of them to keep them in.
  const TGeoPosition Degrees =
      DegreesOf(Written, TGeoEllipsoid::gelWGS84).value_or(Written.Degrees);
  return CalibPosition::OfDegrees(Degrees.Lat, Degrees.Long);
}

QString FixedNumber(double Value) {
  char Buffer[400];
  const auto [End, Error] =
      std::to_chars(std::begin(Buffer), std::end(Buffer), Value, std::chars_format::fixed);
  return QString::fromLatin1(Buffer, static_cast<qsizetype>(End - Buffer));
}

}  // namespace

TypedPosition ParseTypedPosition(const QString& Text) {
  TypedPosition Result;
  try {
    const TWrittenPosition Written = ParsePositionText(Text.toStdString());
    Result.Position = CalibPositionOf(Written);
    Result.Note = ReasonText(Written.Note);
  } catch (const EPositionTextError& Error) {
    Result.Problem = ReasonText(Error.what());
  }
  return Result;
}

TypedAngle ParseTypedAngle(const QString& Text, TGratLineKind Kind) {
  try {
    const std::string Typed = Text.toStdString();
    return {Kind == TGratLineKind::gtlMeridian ? LongitudeFromText(Typed) : LatitudeFromText(Typed),
            {}};
  } catch (const EPositionTextError& Error) {
    return {std::nullopt, ReasonText(Error.what())};
  }
}

QString TypedText(const CalibPosition& Position) {
  if (!Position.IsUtm)
    return FixedNumber(Position.Degrees.Latit) + QStringLiteral(", ") +
           FixedNumber(Position.Degrees.Longit);
  QString Text = FixedNumber(Position.Metres.Easting) + QStringLiteral(" mE ") +
                 FixedNumber(Position.Metres.Northing) + QStringLiteral(" mN");
  if (Position.Zone == 0) return Text;
  QString Letter;
  if (const auto Degrees = DegreesOf(Position, {})) {
    const std::string ZoneAndBand = GeoToUTMZone(Degrees->Latit, 0);
    if (!ZoneAndBand.empty()) Letter = QLatin1Char(ZoneAndBand.back());
  }
  // On the equator the letter could tell the other hemisphere.
  const bool LetterIsSouth = Letter < QLatin1String("N");
  if (Letter.isEmpty() || LetterIsSouth != Position.South)
    Letter = Position.South ? QStringLiteral(" south") : QStringLiteral(" north");
  return QString::number(Position.Zone) + Letter + QLatin1Char(' ') + Text;
}

}  // namespace zav
