// position_parser.h - a position as a person types it, for the calibration's items.
//
// The spellings are those of geobasics/position_text.h: degrees with minutes and seconds, UTM, UPS
// and MGRS. UTM metres may do without a zone; they are in the map's own then.
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
