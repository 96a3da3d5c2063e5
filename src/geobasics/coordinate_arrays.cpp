// coordinate_arrays.cpp - see coordinate_arrays.h; the loops are in arrays/.
// SPDX-License-Identifier: MIT
#include <geobasics/coordinate_arrays.h>

#include <algorithm>
#include <array>

#include <geobasics/arrays/kernels.h>
#include <geobasics/datums.h>
#include <geobasics/helmert_step.h>
#include <geobasics/utm.h>

namespace zav {

namespace {

// Points whose meridians are looked up together.
constexpr size_t BlockSize = 256;

template <typename... TOther>
void RequireLength(size_t Length, const TOther&... Others) {
  if (((Others.size() != Length) || ...))
    throw EZAVGeoBasicsError("arrays of coordinates have different lengths");
}

// Calls Convert(Start, Length, Meridians) block by block; Zone(Index) is the zone of a point.
template <typename TZone, typename TConvert>
void ForEachBlock(size_t Count, TZone Zone, TConvert Convert) {
  std::array<double, BlockSize> Meridians{};
  for (size_t Start = 0; Start < Count; Start += BlockSize) {
    const size_t Length = std::min(BlockSize, Count - Start);
    for (size_t I = 0; I < Length; ++I) Meridians[I] = UTMCentralMeridian(Zone(Start + I));
    Convert(Start, Length, TMeridians{Meridians.data(), 1});
  }
}

}  // namespace

const TArrayKernels& ArrayKernels() noexcept {
#if defined(ZAVGEO_AVX2_KERNELS)
  static const bool HasAvx2 = __builtin_cpu_supports("avx2") != 0;
  if (HasAvx2) return Avx2ArrayKernels;
#endif
  return PlainArrayKernels;
}

TEllipsoidAxes KernelAxes(TGeoEllipsoid Ellipsoid) noexcept { return AxesOf(Ellipsoid); }

void LatLongToUTMZone(std::span<const double> Lat, std::span<const double> Long, int Zone,
                      TGeoEllipsoid Ellipsoid, std::span<double> Easting,
                      std::span<double> Northing) {
  RequireLength(Lat.size(), Long, Easting, Northing);
  const double Meridian = UTMCentralMeridian(Zone);
  ArrayKernels().ToUTM({Lat.data(), Long.data(), nullptr}, {&Meridian, 0}, Ellipsoid,
                       {Easting.data(), Northing.data(), nullptr}, Lat.size());
}

void LatLongToUTM(std::span<const double> Lat, std::span<const double> Long,
                  TGeoEllipsoid Ellipsoid, std::span<int> Zone, std::span<double> Easting,
                  std::span<double> Northing) {
  RequireLength(Lat.size(), Long, Zone, Easting, Northing);
  const auto ZoneOf = [&](size_t I) {
    char Band = ' ';
    GeoToUTMZone(Lat[I], Long[I], Zone[I], Band);
    return Zone[I];
  };
  ForEachBlock(Lat.size(), ZoneOf, [&](size_t Start, size_t Length, TMeridians Meridians) {
    ArrayKernels().ToUTM({&Lat[Start], &Long[Start], nullptr}, Meridians, Ellipsoid,
                         {&Easting[Start], &Northing[Start], nullptr}, Length);
  });
}

void UTMToLatLong(std::span<const double> Easting, std::span<const double> Northing, int Zone,
                  bool SouthHemi, TGeoEllipsoid Ellipsoid, std::span<double> Lat,
                  std::span<double> Long) {
  RequireLength(Easting.size(), Northing, Lat, Long);
  const double Meridian = UTMCentralMeridian(Zone);
  ArrayKernels().FromUTM({Easting.data(), Northing.data(), nullptr}, {&Meridian, 0}, nullptr,
                         SouthHemi, Ellipsoid, {Lat.data(), Long.data(), nullptr}, Easting.size());
}

void UTMToLatLong(std::span<const double> Easting, std::span<const double> Northing,
                  std::span<const int> Zone, std::span<const THemisphere> Hemisphere,
                  TGeoEllipsoid Ellipsoid, std::span<double> Lat, std::span<double> Long) {
  RequireLength(Easting.size(), Northing, Zone, Hemisphere, Lat, Long);
  const auto ZoneOf = [&](size_t I) { return Zone[I]; };
  ForEachBlock(Easting.size(), ZoneOf, [&](size_t Start, size_t Length, TMeridians Meridians) {
    ArrayKernels().FromUTM({&Easting[Start], &Northing[Start], nullptr}, Meridians,
                           &Hemisphere[Start], false, Ellipsoid,
                           {&Lat[Start], &Long[Start], nullptr}, Length);
  });
}

void LatLongToUPS(std::span<const double> Lat, std::span<const double> Long,
                  TGeoEllipsoid Ellipsoid, std::span<double> X, std::span<double> Y) {
  RequireLength(Lat.size(), Long, X, Y);
  ArrayKernels().ToUPS({Lat.data(), Long.data(), nullptr}, Ellipsoid, {X.data(), Y.data(), nullptr},
                       Lat.size());
}

void UPSToLatLong(std::span<const double> X, std::span<const double> Y, bool SouthHemi,
                  TGeoEllipsoid Ellipsoid, std::span<double> Lat, std::span<double> Long) {
  RequireLength(X.size(), Y, Lat, Long);
  ArrayKernels().FromUPS({X.data(), Y.data(), nullptr}, SouthHemi, Ellipsoid,
                         {Lat.data(), Long.data(), nullptr}, X.size());
}

void GeoToCartesian(std::span<const double> Lat, std::span<const double> Long,
                    std::span<const double> Height, TGeoEllipsoid Ellipsoid, std::span<double> X,
                    std::span<double> Y, std::span<double> Z) {
  RequireLength(Lat.size(), Long, Height, X, Y, Z);
  ArrayKernels().ToCartesian({Lat.data(), Long.data(), Height.data()}, Ellipsoid,
                             {X.data(), Y.data(), Z.data()}, Lat.size());
}

void ExactCartesianToGeo(std::span<const double> X, std::span<const double> Y,
                         std::span<const double> Z, TGeoEllipsoid Ellipsoid, std::span<double> Lat,
                         std::span<double> Long, std::span<double> Height) {
  RequireLength(X.size(), Y, Z, Lat, Long, Height);
  ArrayKernels().FromCartesian({X.data(), Y.data(), Z.data()}, Ellipsoid,
                               {Lat.data(), Long.data(), Height.data()}, X.size());
}

int ExactHelmertTransform(int SourceDatum, std::span<const double> Lat,
                          std::span<const double> Long, std::span<const double> Height,
                          int TargetDatum, std::span<double> Lat2, std::span<double> Long2,
                          std::span<double> Height2) {
  RequireLength(Lat.size(), Long, Height, Lat2, Long2, Height2);
  if (DatumRow(TargetDatum) == nullptr) return -2;
  if (DatumRow(SourceDatum) == nullptr) return -1;
  return ArrayKernels().Helmert({Lat.data(), Long.data(), Height.data()}, SourceDatum, TargetDatum,
                                HelmertStep(SourceDatum), HelmertStep(TargetDatum),
                                {Lat2.data(), Long2.data(), Height2.data()}, Lat.size());
}

}  // namespace zav
