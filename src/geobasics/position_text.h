/// @file
/// position_text.h - positions as people write them: written and read in one place.
///
/// Read are decimal degrees, degrees and minutes, degrees, minutes and seconds, with symbols,
/// blanks or colons, with hemisphere letters before or after or with signs; metres of UTM and UPS;
/// MGRS. "." and "," are decimal separators under every locale; ";", "," or blanks part the two
/// coordinates:
/// @code{.unparsed}
///   47.5 8.25    47,5; 8,25    N 47 30.5, E 8 15    47 deg 30' 00" N, 8 deg 15' 00" E
///   8.25 E 47.5 N    -33.4489 -70.6693    47:30:36 8:15:00    lat 47.5, lon 8.25
///   32T 470693 5150563    32N 470693.5 mE 5150563 mN    470693 5150563
///   Z 2426773 mE 1530125 mN    UPS north 2426773 1530125    32T MS 70693 50563    ZGC2677330125
/// @endcode
/// What may mean two things is refused.
///
/// Every digit counts: a number is the one nearest to the digits typed.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_POSITION_TEXT_H
#define ZAV_GEOBASICS_POSITION_TEXT_H

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <geobasics/ellipsoids.h>
#include <platform/base/api.h>

namespace zav {

/// How a position is written.
enum class TNotation : uint8_t {
  ntDegrees = 0,            ///< decimal degrees
  ntDegreesMinutes,         ///< degrees and minutes
  ntDegreesMinutesSeconds,  ///< degrees, minutes and seconds
  ntUTM,                    ///< zone, easting and northing
  ntUPS,                    ///< hemisphere, x and y of the polar grid
  ntMGRS                    ///< grid reference of UTM or UPS
};

/// Names of the notations, indexed by TNotation.
inline constexpr std::array<std::string_view, 6> NotationId{"degrees", "minutes", "seconds",
                                                            "utm",     "ups",     "mgrs"};
/// A notation by its name, upper and lower case alike.
ZAVGEO_API std::optional<TNotation> FindNotation(std::string_view Id) noexcept;

/// Why a text is no position, in words for people.
class ZAVGEO_API EPositionTextError : public EZAVGeoBasicsError {
 public:
  /// Column is counted in characters, from 1.
  EPositionTextError(const std::string& Reason, int Column)
      : EZAVGeoBasicsError(Reason), FColumn(Column) {}
  /// The character that is wrong, counted from 1; one behind the last where something is missing.
  int Column() const noexcept { return FColumn; }

 private:
  int FColumn;
};

/// Degrees, north and east positive.
struct TGeoPosition {
  double Lat = 0;   ///< -90..90
  double Long = 0;  ///< longitude
  friend bool operator==(const TGeoPosition&, const TGeoPosition&) = default;
};

/// A position as it was typed. Of angles (the first three notations) Degrees is set, of grids the
/// rest. Of MGRS it is the centre of the square, in metres of UTM or, with zone 0, UPS.
struct TWrittenPosition {
  TNotation Notation = TNotation::ntDegrees;  ///< how it was written
  TGeoPosition Degrees;                       ///< latitude -90..90, longitude -360..360
  int Zone = 0;                               ///< UTM zone 1..60; 0 = not told, none for UPS
  bool South = false;                         ///< southern hemisphere
  double Easting = 0;                         ///< metres
  double Northing = 0;                        ///< metres
  std::string Note;  ///< how a text that has two meanings was understood; mostly empty
};

/// Reads a position in any notation. A letter behind a zone is a latitude band, so that "32S" lies
/// between 32 and 40 degrees north; where the northing does not, it is the southern hemisphere, and
/// "32N" is the northern one. "32 south" is always that. Throws EPositionTextError.
ZAVGEO_API TWrittenPosition ParsePositionText(std::string_view Text);

/// The degrees of what was typed, the longitude from -180 to 180 for grids. Nothing for UTM metres
/// without a zone, or more than a degree beyond the limits of UTM.
ZAVGEO_API std::optional<TGeoPosition> DegreesOf(const TWrittenPosition& Typed,
                                                 TGeoEllipsoid Ellipsoid);

/// Both at once. Throws EPositionTextError for what has no degrees, too.
ZAVGEO_API TGeoPosition PositionFromText(std::string_view Text,
                                         TGeoEllipsoid Ellipsoid = TGeoEllipsoid::gelWGS84);

/// One angle ("10 30 E", "-47.5"): -90..90 for a latitude, -360..360 for a longitude. Throws
/// EPositionTextError.
ZAVGEO_API double LatitudeFromText(std::string_view Text);
/// The same for a longitude.
ZAVGEO_API double LongitudeFromText(std::string_view Text);

/// The position with Decimals digits (0..12) of the last unit, as
/// @code{.unparsed}
///   47.50000 N, 8.25000 E     with degree signs; the same with minutes, or minutes and seconds
///   32T 470693 mE 5150563 mN; Z 2426773 mE 1530125 mN; 32T MS 70693 50563
/// @endcode
/// MGRS has squares of a metre, ten times smaller for each decimal up to 3, ten times larger for
/// each one below 0 down to -5; its digits are cut, all others rounded half to even.
/// PositionFromText gives the position back within half a unit of the last digit, longitude 180 as
/// -180.
///
/// Longitudes are brought to -180..180 by full turns. Throws EZAVGeoBasicsError for what is not on
/// the globe, or outside the grid: UTM 80 south to 84 north, UPS beyond 83.5 north and 79.5 south.
ZAVGEO_API std::string PositionToText(const TGeoPosition& Position, TNotation Notation,
                                      int Decimals,
                                      TGeoEllipsoid Ellipsoid = TGeoEllipsoid::gelWGS84);

/// The decimals that tell a metre on the ground, or less: 5, 3, 2, 0, 0, 0.
ZAVGEO_API int MetreDecimals(TNotation Notation) noexcept;

}  // namespace zav

#endif
