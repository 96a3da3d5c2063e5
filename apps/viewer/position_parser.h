// position_parser.h - a position as a person types it.
//
// Decimal degrees, degrees and minutes, degrees, minutes and seconds, with symbols or blanks, with
// hemisphere letters before or after or with signs; UTM metres with or without a zone. "." and ","
// as decimal separators under every locale; ";" , "," or blanks between the two coordinates:
//   47.5 8.25    47,5; 8,25    N 47 30.5, E 8 15    47 deg 30' 00" N, 8 deg 15' 00" E
//   8.25 E 47.5 N    -33.4489 -70.6693
//   32T 470693 5150563    32N 470693.5 mE 5150563 mN    470693 5150563 (in the map's zone)
// Every digit counts: the number is the one nearest to the digits typed.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_POSITION_PARSER_H
#define ZAV_APPS_VIEWER_POSITION_PARSER_H

#include <optional>

#include <QString>

#include "calib_items.h"

namespace zav {

struct TypedPosition {
  std::optional<CalibPosition> Position;  // empty when the text is no position
  QString Problem;                        // why, for people, with an example where it helps
  QString Note;  // how a text that has two meanings was understood; mostly empty
};

// A letter behind a zone is a latitude band, as in the read-out, so that "32S" lies between 32 and
// 40 degrees north; where the northing does not, it is the southern hemisphere. "32 south" is
// always that.
TypedPosition ParseTypedPosition(const QString& Text);

// One angle ("10 30 E", "-47.5"), for the value of a graticule line: -360..360 for a meridian,
// -90..90 for a parallel.
struct TypedAngle {
  std::optional<double> Degrees;
  QString Problem;
};
TypedAngle ParseTypedAngle(const QString& Text, TGratLineKind Kind);

// The position as text with all its digits, in the form in which it was typed:
// "47.512345678, 8.25" or "32N 470693.25 mE 5150563 mN". ParseTypedPosition gives the very same
// position.
QString TypedText(const CalibPosition& Position);

}  // namespace zav

#endif
