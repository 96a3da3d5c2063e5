// countries.cpp - the rows of the country catalogue.
// SPDX-License-Identifier: MIT
#include <geobasics/countries.h>

namespace zav {

// Name, FIPS 10-4, ISO alpha-2, ISO alpha-3, central latitude and longitude, capital, its latitude,
// longitude and altitude.
// clang-format off
const std::array<TCountryData, 6> CountryData{{
    {"Afghanistan",    "af", "af", "afg",  33.0,    65.0, "Kabul",      34.5309,   69.1368, 1807},
    {"Algeria",        "ag", "dz", "dza",  28.0,     3.0, "Algiers",    36.7658,    3.0319,    0},
    {"American Samoa", "aq", "as", "asm", -14.33, -170.0, "Pago Pago", -14.2793, -170.701,    49},
    {"Antarctica",     "ay", "aq", "ata", -90.0,     0.0, "",          -90.0,       0.0,       0},
    {"Germany",        "gm", "de", "deu",  51.0,     9.0, "Berlin",     52.5163,   13.3276,   34},
    {"Zimbabwe",       "zi", "zw", "zwe", -20.0,    30.0, "Harare",    -17.8292,   31.054,  1480},
}};
// clang-format on

}  // namespace zav
