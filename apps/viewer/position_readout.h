// position_readout.h - a position as people write it, as precise as the map can tell.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_POSITION_READOUT_H
#define ZAV_APPS_VIEWER_POSITION_READOUT_H

#include <array>
#include <optional>

#include <QPointF>
#include <QString>

#include <geobasics/ellipsoids.h>
#include <geomap/calibration/calib_data.h>

namespace zav {

enum class ReadoutFormat { Degrees, DegreesMinutes, DegreesMinutesSeconds, Utm, Ups, Mgrs };

inline constexpr std::array AllReadoutFormats{ReadoutFormat::Degrees,
                                              ReadoutFormat::DegreesMinutes,
                                              ReadoutFormat::DegreesMinutesSeconds,
                                              ReadoutFormat::Utm,
                                              ReadoutFormat::Ups,
                                              ReadoutFormat::Mgrs};

// Name of the format for menus.
QString ReadoutFormatName(ReadoutFormat Format);
// The format after this one, the first after the last.
ReadoutFormat NextReadoutFormat(ReadoutFormat Format);

// Decimals so that the last digit is no coarser than a pixel, and at most a tenth of it. 5, 3, 1
// and 0 decimals when MetresPerPixel is not known (0, negative or not finite). Of MGRS, squares
// larger than a metre have decimals below 0.
int ReadoutDecimals(ReadoutFormat Format, double MetresPerPixel);

// A position in degrees as text, grids on the given ellipsoid. A position that is not finite or not
// on the globe (latitude beyond 90) gives an empty text; a longitude beyond 180 is brought back by
// full turns. UTM and UPS beyond their limits say so in words.
QString PositionText(const TCoords& Position, ReadoutFormat Format, TGeoEllipsoid Ellipsoid,
                     double MetresPerPixel);

// The pixel of the map image in which the point lies, "1204, 318".
QString PixelText(QPointF MapPixel);

// "Scale 1:1 200 000" in the language's own digits grouping: metres on the ground for a metre on a
// screen of the given dots per inch, two significant digits. Empty when it is not known.
QString ScaleText(double MetresPerPixel, double Magnification, double DotsPerInch);

// Two numbers "LAT,LONG" in degrees, "." as decimal separator under every locale. Nothing when the
// text is anything else or the position is not on the globe (-90..90, -180..180).
std::optional<TCoords> ParsePosition(const QString& Text);

}  // namespace zav

#endif
