// grid_commands.cpp - zavgeo utm and zavgeo ups, both directions.
// SPDX-License-Identifier: MIT
#include <geobasics/ups.h>
#include <geobasics/utm.h>
#include <platform/base/text.h>

#include <cmath>
#include <memory>

#include "common/geo_columns.h"
#include "program.h"

namespace zav {

namespace {

struct TGridOptions {
  TTableOptions Table;
  std::string Ellipsoid = "gelWGS84";
  bool Inverse = false;
};

// The longitude turned into -180 (included) .. 180 (excluded).
double Turned(double Long) { return Long >= 180 ? Long - 360 : Long < -180 ? Long + 360 : Long; }

bool SouthOfBand(const std::string& Text) {
  const std::string Letter = UpperCase(Text);
  if (Letter.size() != 1 ||
      std::string_view("CDEFGHJKLMNPQRSTUVWX").find(Letter[0]) == std::string_view::npos)
    throw ELineError("band \"" + Text + "\" is no letter from C to X");
  return Letter[0] < 'N';
}

void PrintPosition(double Lat, double Long, TRow& Out) {
  if (!std::isfinite(Lat) || !std::isfinite(Long) || std::fabs(Lat) > 90)
    throw ELineError("the position is outside the grid");
  Out << Lat << Long;
}

int UtmForward(const TGridOptions& Options, TGeoEllipsoid Ellipsoid) {
  return ConvertTable(
      Options.Table, {LatColumn, LongColumn}, {"zone", "band", "easting", "northing"},
      [&](const TTable& In, TRow& Out) {
        const double Lat = In.Latitude(0);
        const double Long = Turned(In.Longitude(1));
        int Zone = 0;
        char Band = ' ';
        GeoToUTMZone(Lat, Long, Zone, Band);
        if (Zone == 0) throw ELineError("lat " + In.Text(0) + " is outside the UTM grid, -80..84");
        double Easting = 0;
        double Northing = 0;
        LatLongToUTM(Lat, Long, Ellipsoid, Zone, Easting, Northing);
        Out << Zone << std::string_view(&Band, 1) << Easting << Northing;
      });
}

int UtmInverse(const TGridOptions& Options, TGeoEllipsoid Ellipsoid) {
  return ConvertTable(
      Options.Table, {{"zone"}, {"band", true}, {"easting"}, {"northing"}, {"hemisphere", true}},
      {"lat", "long"}, [&](const TTable& In, TRow& Out) {
        const double Zone = In.Number(0, 1, 60);
        if (Zone != std::floor(Zone)) throw ELineError("zone " + In.Text(0) + " is not whole");
        if (In.Text(1).empty() && In.Text(4).empty())
          throw ELineError("neither band nor hemisphere is there");
        const bool South = In.Text(4).empty() ? SouthOfBand(In.Text(1)) : IsSouth(In.Text(4));
        double Lat = 0;
        double Long = 0;
        // Wide enough for the neighbouring zones' positions.
        UTMToLatLong(In.Number(2, 0, 1000000), In.Number(3, 0, 10000000), static_cast<int>(Zone),
                     South, Ellipsoid, Lat, Long);
        PrintPosition(Lat, Long, Out);
      });
}

int UpsForward(const TGridOptions& Options, TGeoEllipsoid Ellipsoid) {
  return ConvertTable(Options.Table, {LatColumn, LongColumn}, {"hemisphere", "x", "y"},
                      [&](const TTable& In, TRow& Out) {
                        const double Lat = In.Latitude(0);
                        double X = 0;
                        double Y = 0;
                        LatLongToUPS(Lat, Turned(In.Longitude(1)), Ellipsoid, X, Y);
                        Out << (Lat < 0 ? "south" : "north") << X << Y;
                      });
}

int UpsInverse(const TGridOptions& Options, TGeoEllipsoid Ellipsoid) {
  return ConvertTable(Options.Table, {{"hemisphere"}, {"x|easting"}, {"y|northing"}},
                      {"lat", "long"}, [&](const TTable& In, TRow& Out) {
                        double Lat = 0;
                        double Long = 0;
                        UPSToLatLong(In.Number(1), In.Number(2), IsSouth(In.Text(0)), Ellipsoid,
                                     Lat, Long);
                        PrintPosition(Lat, Long, Out);
                      });
}

using TConversion = int (*)(const TGridOptions& Options, TGeoEllipsoid Ellipsoid);

void AddGridCommand(TProgram& Program, const char* Name, const char* Description,
                    TConversion Forward, TConversion Inverse) {
  const auto Options = std::make_shared<TGridOptions>();
  CLI::App& Command = *Program.App.add_subcommand(Name, Description);
  AddTableOptions(Command, Options->Table);
  Command.add_flag("--inverse", Options->Inverse, "from the grid to degrees");
  Command.add_option("--ellipsoid", Options->Ellipsoid, "identifier of the ellipsoid")
      ->capture_default_str();
  Command.callback([&Program, Options, Forward, Inverse] {
    Program.Run = [Options, Forward, Inverse] {
      const TGeoEllipsoid Ellipsoid = EllipsoidOfOption(Options->Ellipsoid);
      return (Options->Inverse ? Inverse : Forward)(*Options, Ellipsoid);
    };
  });
}

}  // namespace

void AddGridCommands(TProgram& Program) {
  AddGridCommand(
      Program, "utm",
      "UTM coordinates: lat,long gives zone,band,easting,northing; --inverse the reverse",
      UtmForward, UtmInverse);
  AddGridCommand(Program, "ups",
                 "UPS coordinates: lat,long gives hemisphere,x,y; --inverse the reverse",
                 UpsForward, UpsInverse);
}

}  // namespace zav
