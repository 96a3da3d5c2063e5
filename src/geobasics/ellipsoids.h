/// @file
/// ellipsoids.h - the catalogue of reference ellipsoids and what follows from two axes.
///
/// The catalogue holds semi-major and semi-minor axis only; flattenings and eccentricities are
/// always derived from them, so that the table is the one source of an ellipsoid's shape.
///
/// - Source: axes as published with the national datums in the EPSG geodetic parameter data set and
///   in DMA TR 8350.2, "Department of Defense World Geodetic System 1984".
/// - Convention: a reciprocal flattening of 0 means a sphere; it is never infinite.
/// - Units: metres.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_ELLIPSOIDS_H
#define ZAV_GEOBASICS_ELLIPSOIDS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include <platform/base/api.h>
#include <platform/base/errors.h>

namespace zav {

/// Thrown by the functions of geobasics.
class ZAVGEO_API EZAVGeoBasicsError : public EZAVError {
 public:
  using EZAVError::EZAVError;
};

/// A hemisphere; the equator belongs to the north.
enum class THemisphere : uint8_t {
  hemiNorth = 0,  ///< northings from 0 at the equator
  hemiSouth = 1   ///< northings up to 10000000 at the equator
};

/// The ordinals are a contract: tables are indexed by them and new ellipsoids go to the end.
enum class TGeoEllipsoid : uint8_t {
  gelWGS84 = 0,      ///< WGS 1984
  gelWGS72,          ///< WGS 1972
  gelWGS66,          ///< WGS 1966
  gelWGS60,          ///< WGS 1960
  gelClrk80RGS,      ///< Clarke 1880 RGS
  gelClrk66,         ///< Clarke 1866
  gelBess41,         ///< Bessel 1841
  gelBess41Jap,      ///< Bessel 1841 (Japan)
  gelBess41Nam,      ///< Bessel 1841 (Namibia)
  gelNewInt67,       ///< New International 1967
  gelInt24,          ///< International 1924
  gelEver69,         ///< Everest 1969 (Malaysia)
  gelEver56,         ///< Everest 1956 (India)
  gelEver48,         ///< Everest 1948
  gelEver30Ind,      ///< Everest 1830 (India 1937 adj.)
  gelEverPak,        ///< Everest (Pakistan)
  gelEverest,        ///< Everest (1967 Definition)
  gelGRS80,          ///< GRS 1980
  gelAiry30,         ///< Airy 1830
  gelModifAiry,      ///< Modified Airy
  gelFish68,         ///< Fisher 1968
  gelFish60,         ///< Fisher 1960
  gelModifFish60,    ///< Modified Fisher 1960
  gelAuNat65,        ///< Australian Nat 1965
  gelKrass40,        ///< Krassovsky 1940
  gelHough60,        ///< Hough 1960
  gelSphere,         ///< Normal Sphere
  gelIndo74,         ///< Indonesian 1974
  gelHelm06,         ///< Helmert 1906
  gelSGS85,          ///< SGS 1985
  gelSAm69,          ///< South American 1969
  gelATS77,          ///< ATS77
  gelAuthSph,        ///< Authalic Sphere
  gelBesselMod,      ///< Bessel Modified
  gelCGCS2000,       ///< CGCS2000
  gelClrk58,         ///< Clarke 1858
  gelClrk66Mich,     ///< Clarke 1866 Michigan
  gelClrk80,         ///< Clarke 1880
  gelClrk80Arc,      ///< Clarke 1880 (Arc)
  gelClrk80Benoit,   ///< Clarke 1880 (Benoit)
  gelClrk80IGN,      ///< Clarke 1880 (IGN)
  gelClrk80intfoot,  ///< Clarke 1880 (international foot)
  gelClrk80SGA22,    ///< Clarke 1880 (SGA 1922)
  gelDan76,          ///< Danish 1876
  gelEver30,         ///< Everest (1830 Definition)
  gelEver75,         ///< Everest 1830 (1975 Definition)
  gelGEM10C,         ///< GEM 10C
  gelGRS67,          ///< GRS 1967
  gelGRS67Mod,       ///< GRS 1967 Modified
  gelHughes80,       ///< Hughes 1980
  gelIAG75,          ///< IAG 1975
  gelInt24AuthSph,   ///< International 1924 Authalic Sphere
  gelOSU86F,         ///< OSU86F
  gelOSU91A,         ///< OSU91A
  gelPlessis17,      ///< Plessis 1817
  gelPopVisSphere,   ///< Popular Visualisation Sphere
  gelPZ90,           ///< PZ-90
  gelStruve60,       ///< Struve 1860
  gelWarOffice,      ///< War Office
  gelHongKong63,     ///< Hong Kong 1963
  gelNahrwan29,      ///< Nahrwan 1929
};

/// Semi-major axis A and semi-minor axis B in metres; equal for a sphere.
struct TEllipsoidAxes {
  double A = 0;  ///< semi-major, metres
  double B = 0;  ///< semi-minor, metres
  friend bool operator==(const TEllipsoidAxes&, const TEllipsoidAxes&) = default;
};

namespace detail {

struct TEllipsoidRow {
  std::string_view Id;
  std::string_view Name;
  TEllipsoidAxes Axes;
};

// clang-format off
inline constexpr std::array<TEllipsoidRow, 61> EllipsoidRows{{
    {"gelWGS84",          "WGS 1984",                            {   6378137.0, 6356752.314245}},  // 0
    {"gelWGS72",          "WGS 1972",                            {   6378135.0, 6356750.519915}},  // 1
    {"gelWGS66",          "WGS 1966",                            {   6378145.0, 6356759.769356}},  // 2
    {"gelWGS60",          "WGS 1960",                            {   6378165.0, 6356783.286959}},  // 3
    {"gelClrk80RGS",      "Clarke 1880 RGS",                     { 6378249.145,  6356514.86955}},  // 4
    {"gelClrk66",         "Clarke 1866",                         {   6378206.4,      6356583.8}},  // 5
    {"gelBess41",         "Bessel 1841",                         { 6377397.155,  6356078.96284}},  // 6
    {"gelBess41Jap",      "Bessel 1841 (Japan)",                 { 6377397.155,    6356078.963}},  // 7
    {"gelBess41Nam",      "Bessel 1841 (Namibia)",               { 6377483.865, 6356165.382966}},  // 8
    {"gelNewInt67",       "New International 1967",              {   6378157.5,      6356772.2}},  // 9
    {"gelInt24",          "International 1924",                  {   6378388.0,  6356911.94613}},  // 10
    {"gelEver69",         "Everest 1969 (Malaysia)",             { 6377295.664, 6356094.667915}},  // 11
    {"gelEver56",         "Everest 1956 (India)",                { 6377301.243, 6356100.228368}},  // 12
    {"gelEver48",         "Everest 1948",                        { 6377304.063,    6356103.039}},  // 13
    {"gelEver30Ind",      "Everest 1830 (India 1937 adj.)",      {6377276.3452,   6356075.4133}},  // 14
    {"gelEverPak",        "Everest (Pakistan)",                  { 6377309.613, 6356108.570542}},  // 15
    {"gelEverest",        "Everest (1967 Definition)",           { 6377298.556, 6356097.550301}},  // 16
    {"gelGRS80",          "GRS 1980",                            {   6378137.0,  6356752.31414}},  // 17
    {"gelAiry30",         "Airy 1830",                           { 6377563.396,     6356256.91}},  // 18
    {"gelModifAiry",      "Modified Airy",                       { 6377340.189,    6356034.448}},  // 19
    {"gelFish68",         "Fisher 1968",                         {   6378150.0, 6356768.337303}},  // 20
    {"gelFish60",         "Fisher 1960",                         {   6378166.0, 6356784.283666}},  // 21
    {"gelModifFish60",    "Modified Fisher 1960",                {   6378155.0,   6356773.3205}},  // 22
    {"gelAuNat65",        "Australian Nat 1965",                 {   6378160.0,    6356774.719}},  // 23
    {"gelKrass40",        "Krassovsky 1940",                     {   6378245.0,   6356863.0188}},  // 24
    {"gelHough60",        "Hough 1960",                          {   6378270.0, 6356794.343479}},  // 25
    {"gelSphere",         "Normal Sphere",                       {   6370997.0,      6370997.0}},  // 26
    {"gelIndo74",         "Indonesian 1974",                     {   6378160.0, 6356774.504086}},  // 27
    {"gelHelm06",         "Helmert 1906",                        {   6378200.0, 6356818.169628}},  // 28
    {"gelSGS85",          "SGS 1985",                            {   6378136.0, 6356751.301569}},  // 29
    {"gelSAm69",          "South American 1969",                 {   6378160.0,    6356774.719}},  // 30
    {"gelATS77",          "ATS77",                               {   6378135.0, 6356750.304922}},  // 31
    {"gelAuthSph",        "Authalic Sphere",                     {   6371000.0,      6371000.0}},  // 32
    {"gelBesselMod",      "Bessel Modified",                     { 6377492.018, 6356173.508713}},  // 33
    {"gelCGCS2000",       "CGCS2000",                            {   6378137.0,  6356752.31414}},  // 34
    {"gelClrk58",         "Clarke 1858",                         {6378293.6452, 6356617.987671}},  // 35
    {"gelClrk66Mich",     "Clarke 1866 Michigan",                {6378450.0475,  6356826.62144}},  // 36
    {"gelClrk80",         "Clarke 1880",                         {6378249.1448, 6356514.966196}},  // 37
    {"gelClrk80Arc",      "Clarke 1880 (Arc)",                   { 6378249.145, 6356514.966399}},  // 38
    {"gelClrk80Benoit",   "Clarke 1880 (Benoit)",                { 6378300.789,    6356566.435}},  // 39
    {"gelClrk80IGN",      "Clarke 1880 (IGN)",                   {   6378249.2,      6356515.0}},  // 40
    {"gelClrk80intfoot",  "Clarke 1880 (international foot)",    {6378306.3696,    6356571.996}},  // 41
    {"gelClrk80SGA22",    "Clarke 1880 (SGA 1922)",              {   6378249.2, 6356514.996942}},  // 42
    {"gelDan76",          "Danish 1876",                         {6377019.2567, 6355762.525844}},  // 43
    {"gelEver30",         "Everest (1830 Definition)",           {6377299.3656,  6356098.35901}},  // 44
    {"gelEver75",         "Everest 1830 (1975 Definition)",      { 6377299.151,  6356098.14512}},  // 45
    {"gelGEM10C",         "GEM 10C",                             {   6378137.0, 6356752.314245}},  // 46
    {"gelGRS67",          "GRS 1967",                            {   6378160.0, 6356774.516091}},  // 47
    {"gelGRS67Mod",       "GRS 1967 Modified",                   {   6378160.0, 6356774.719195}},  // 48
    {"gelHughes80",       "Hughes 1980",                         {   6378273.0,    6356889.449}},  // 49
    {"gelIAG75",          "IAG 1975",                            {   6378140.0, 6356755.288158}},  // 50
    {"gelInt24AuthSph",   "International 1924 Authalic Sphere",  {   6371228.0,      6371228.0}},  // 51
    {"gelOSU86F",         "OSU86F",                              {   6378136.2, 6356751.516927}},  // 52
    {"gelOSU91A",         "OSU91A",                              {   6378136.3, 6356751.616592}},  // 53
    {"gelPlessis17",      "Plessis 1817",                        {   6376523.0, 6355862.933256}},  // 54
    {"gelPopVisSphere",   "Popular Visualisation Sphere",        {   6378137.0,      6378137.0}},  // 55
    {"gelPZ90",           "PZ-90",                               {   6378136.0, 6356751.361746}},  // 56
    {"gelStruve60",       "Struve 1860",                         {   6378298.3,  6356657.14267}},  // 57
    {"gelWarOffice",      "War Office",                          {   6378300.0, 6356751.689189}},  // 58
    {"gelHongKong63",     "Hong Kong 1963",                      {   6378235.6,  6356560.13971}},  // 59
    {"gelNahrwan29",      "Nahrwan 1929",                        { 6378300.782,  6356566.42744}},  // 60
}};
// clang-format on

template <typename T, typename Field>
constexpr std::array<T, EllipsoidRows.size()> EllipsoidColumn(Field Of) {
  std::array<T, EllipsoidRows.size()> Column{};
  for (size_t i = 0; i < Column.size(); ++i) Column[i] = Of(EllipsoidRows[i]);
  return Column;
}

}  // namespace detail

/// Number of rows of the catalogue.
inline constexpr size_t NumGeoEllipsoids = detail::EllipsoidRows.size();
static_assert(NumGeoEllipsoids == static_cast<size_t>(TGeoEllipsoid::gelNahrwan29) + 1);

/// Identifiers as text ("gelWGS84"), indexed by the ordinal of TGeoEllipsoid.
inline constexpr auto GeoEllipsoidId = detail::EllipsoidColumn<std::string_view>(
    [](const detail::TEllipsoidRow& Row) { return Row.Id; });
/// Names for people ("WGS 1984"), likewise.
inline constexpr auto GeoEllipsoidName = detail::EllipsoidColumn<std::string_view>(
    [](const detail::TEllipsoidRow& Row) { return Row.Name; });
/// Axes, likewise.
inline constexpr auto GeoEllipsoidData = detail::EllipsoidColumn<TEllipsoidAxes>(
    [](const detail::TEllipsoidRow& Row) { return Row.Axes; });

/// The axes of an ellipsoid. An ordinal outside the catalogue is the caller's error; gelWGS84 then.
constexpr const TEllipsoidAxes& AxesOf(TGeoEllipsoid Ellipsoid) noexcept {
  const auto Row = static_cast<size_t>(Ellipsoid);
  return GeoEllipsoidData[Row < NumGeoEllipsoids ? Row : 0];
}

/// Finds an ellipsoid by its identifier, upper and lower case alike; nothing when there is none.
ZAVGEO_API std::optional<TGeoEllipsoid> FindGeoEllipsoid(std::string_view Id) noexcept;
/// The same; gelWGS84 for an unknown identifier.
ZAVGEO_API TGeoEllipsoid GeoEllipsoidFromId(std::string_view Id) noexcept;

/// First eccentricity squared, 1 - B*B/(A*A).
ZAVGEO_API double GeoEllEccSquared(TGeoEllipsoid Ellipsoid) noexcept;
/// The same from two axes in either order.
ZAVGEO_API double GeoEllEccSquared(double A, double B) noexcept;
/// The same from the reciprocal flattening; 0 for a sphere.
ZAVGEO_API double GeoEllEccSquared(double RecipFlat) noexcept;

/// Reciprocal flattening 1/f with f = 1 - B/A; 0 for a sphere.
ZAVGEO_API double RecipFlattening(TGeoEllipsoid Ellipsoid) noexcept;
/// The same from two axes; 0 where they are equal.
ZAVGEO_API double RecipFlattening(double A, double B) noexcept;
/// The same from the eccentricity squared; quiet NaN outside 0..1. Never throws.
ZAVGEO_API double RecipFlattening(double EccSquared) noexcept;

/// Semi-minor axis from the semi-major axis and the reciprocal flattening.
/// Throws EZAVGeoBasicsError "invalid reciprocal flattening" when RecipFlat is negative.
ZAVGEO_API double EllipsoidMinAxFlat(double MajAx, double RecipFlat);
/// Semi-minor axis from the semi-major axis and the eccentricity squared; NaN when that is above 1.
/// Throws EZAVGeoBasicsError "invalid eccentricity" when EccSquared is negative.
ZAVGEO_API double EllipsoidMinAxEcc(double MajAx, double EccSquared);

}  // namespace zav

#endif
