/// @file
/// countries.h - the country catalogue: codes, a central point, the capital.
///
/// For applications, for example to centre a map on a country or its capital; nothing in the
/// library reads it. It is of 2006 and tells countries of that time, dissolved ones too
/// (Netherlands Antilles, Serbia and Montenegro), with the codes and capitals that they had.
///
/// - Source: codes from FIPS PUB 10-4 and ISO 3166-1, which differ for many countries (Germany is
///   "gm" and "de"), those of dissolved countries from ISO 3166-3; central points as in the CIA
///   World Factbook, where those are within the country; capitals, with their positions and
///   altitudes, from the GeoNames gazetteer.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_COUNTRIES_H
#define ZAV_GEOBASICS_COUNTRIES_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include <platform/base/api.h>
#include <platform/base/short_string.h>

namespace zav {

/// Codes are in lower case, angles in degrees, north and east positive.
struct TCountryData {
  TShortString<40> Name;      ///< in English, as the catalogue sorts it: "Korea, North"
  TShortString<2> Fips10;     ///< code of FIPS PUB 10-4
  TShortString<2> ISO3166_2;  ///< code of ISO 3166-1, two letters
  TShortString<3> ISO3166_3;  ///< the same, three letters
  double CLat = 0;            ///< latitude of a central point, degrees
  double CLong = 0;           ///< its longitude
  TShortString<31> Capital;   ///< empty where there is none
  double CapLat = 0;          ///< the capital's latitude, degrees; 0 where there is none
  double CapLong = 0;         ///< its longitude
  int32_t CapAlt = 0;         ///< metres above sea level
};

/// Number of rows of CountryData.
inline constexpr size_t NumCountries = 231;

/// The countries, sorted by name.
extern ZAVGEO_API const std::array<TCountryData, NumCountries> CountryData;

/// A country by its ISO code of two or three letters, by its FIPS code, by its name. Case does not
/// count, accents do not count in names; "Korea, North" is "North Korea" too, and "Burma;Myanmar"
/// either of both. Null for what is unknown.
ZAVGEO_API const TCountryData* FindCountryByISO(std::string_view Code);
/// The same by the FIPS code.
ZAVGEO_API const TCountryData* FindCountryByFips(std::string_view Code);
/// The same by the name.
ZAVGEO_API const TCountryData* FindCountryByName(std::string_view Name);
/// By ISO code, else by name. No FIPS codes: "au" is Austria there, Australia here.
ZAVGEO_API const TCountryData* FindCountry(std::string_view CodeOrName);

/// The countries that have a capital of that name: Kingston is the capital of two.
ZAVGEO_API std::vector<const TCountryData*> FindCountriesByCapital(std::string_view Capital);

}  // namespace zav

#endif
