// countries.h - the country catalogue: codes, a central point, the capital.
//
// For applications, for example to centre a map on a country or its capital; nothing in the library
// reads it.
//
// Source: codes from FIPS PUB 10-4 and ISO 3166-1, which differ for many countries (Germany is "gm"
//         and "de"); central points as in the CIA World Factbook; capitals from public gazetteers.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_COUNTRIES_H
#define ZAV_GEOBASICS_COUNTRIES_H

#include <array>
#include <cstdint>

#include <platform/base/short_string.h>

namespace zav {

// Codes are in lower case, angles in degrees, north and east positive.
struct TCountryData {
  TShortString<40> Name;
  TShortString<2> Fips10;
  TShortString<2> ISO3166_2;
  TShortString<3> ISO3166_3;
  double CLat = 0;
  double CLong = 0;
  TShortString<31> Capital;  // empty where there is none
  double CapLat = 0;
  double CapLong = 0;
  int32_t CapAlt = 0;  // metres above sea level
};

// Sorted by name.
extern const std::array<TCountryData, 6> CountryData;

}  // namespace zav

#endif
