// position_angles.h - angles among the tokens of a typed position; internal.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_POSITION_ANGLES_H
#define ZAV_GEOBASICS_POSITION_ANGLES_H

#include <geobasics/position_tokens.h>

namespace zav::detail {

enum class TAxis { Unknown, Latitude, Longitude };

size_t CountOf(const TTokens& All, TSymbol Kind);

// Latitude and longitude, in the order that letters tell, else latitude first; Notation is the
// finer of both. EndColumn is told where something is missing. Throws EPositionTextError.
TGeoPosition ReadTwoAngles(TTokens All, int EndColumn, TNotation& Notation);

// One angle of the axis, within its limits. Throws EPositionTextError.
double ReadOneAngle(TTokens All, TAxis Of, int EndColumn);

}  // namespace zav::detail

#endif
