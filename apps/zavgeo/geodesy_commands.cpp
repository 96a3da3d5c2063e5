// geodesy_commands.cpp - zavgeo cartesian, datum, countries and datums.
// SPDX-License-Identifier: MIT
#include <geobasics/cartesian.h>
#include <geobasics/countries.h>
#include <geobasics/helmert.h>
#include <platform/base/text_format.h>

#include <cmath>
#include <memory>
#include <optional>

#include "common/geo_columns.h"
#include "program.h"

namespace zav {

namespace {

constexpr TColumn HeightColumn{"height|h|alt|altitude|elevation", true};

double HeightOf(const TTable& In, size_t Column) {
  return In.Text(Column).empty() ? 0 : In.Number(Column);
}

// Zero without a sign.
double Unsigned0(double Value) { return Value + 0.0; }

// --- cartesian -----------------------------------------------------------------------------------

struct TCartesianOptions {
  TTableOptions Table;
  std::string Ellipsoid = "gelWGS84";
  bool Inverse = false;
};

int CartesianForward(const TCartesianOptions& Options, TGeoEllipsoid Ellipsoid) {
  return ConvertTable(Options.Table, {LatColumn, LongColumn, HeightColumn}, {"x", "y", "z"},
                      [&](const TTable& In, TRow& Out) {
                        double X = 0;
                        double Y = 0;
                        double Z = 0;
                        GeoToCartesian(In.Latitude(0), In.Longitude(1), HeightOf(In, 2), Ellipsoid,
                                       X, Y, Z);
                        Out << Unsigned0(X) << Unsigned0(Y) << Unsigned0(Z);
                      });
}

int CartesianInverse(const TCartesianOptions& Options, TGeoEllipsoid Ellipsoid) {
  return ConvertTable(Options.Table, {{"x"}, {"y"}, {"z"}}, {"lat", "long", "height"},
                      [&](const TTable& In, TRow& Out) {
                        double Lat = 0;
                        double Long = 0;
                        double Height = 0;
                        ExactCartesianToGeo(In.Number(0), In.Number(1), In.Number(2), Ellipsoid,
                                            Lat, Long, Height);
                        if (!std::isfinite(Height))
                          throw ELineError("the position is too far away");
                        Out << Unsigned0(Lat) << Unsigned0(Long) << Unsigned0(Height);
                      });
}

void AddCartesianCommand(TProgram& Program) {
  const auto Options = std::make_shared<TCartesianOptions>();
  CLI::App& Command = *Program.App.add_subcommand(
      "cartesian",
      "Earth-centred coordinates: lat,long[,height] gives x,y,z in metres; --inverse the reverse");
  AddTableOptions(Command, Options->Table);
  Command.add_flag("--inverse", Options->Inverse, "from x,y,z to lat,long,height");
  Command.add_option("--ellipsoid", Options->Ellipsoid, "identifier of the ellipsoid")
      ->capture_default_str();
  Command.callback([&Program, Options] {
    Program.Run = [Options] {
      const TGeoEllipsoid Ellipsoid = EllipsoidOfOption(Options->Ellipsoid);
      return (Options->Inverse ? CartesianInverse : CartesianForward)(*Options, Ellipsoid);
    };
  });
}

// --- datum ---------------------------------------------------------------------------------------

struct TDatumOptions {
  TTableOptions Table;
  std::string From;
  std::string To;
  bool Exact = false;
};

std::string DatumText(int Row) {
  const TDatumRow& Datum = *DatumRow(Row);
  return IntegerText(Row) + " (" + std::string(Datum.Area) + ")";
}

// The row that an option tells by its number or its name. Throws EUsageError.
int RowOfOption(const std::string& Text) {
  if (const auto Number = ParseNumber(Text)) {
    if (*Number < 1 || *Number > NumDatumRows || *Number != std::floor(*Number))
      throw EUsageError("there is no datum row " + Text + "; rows are 1.." +
                        IntegerText(NumDatumRows));
    return static_cast<int>(*Number);
  }
  const std::vector<int> Rows = FindDatumRows(Text);
  if (Rows.empty())
    throw EUsageError("unknown datum \"" + Text + "\"; \"zavgeo datums\" lists them");
  if (Rows.size() == 1) return Rows[0];
  std::string Choice;
  for (const int Row : Rows) Choice += (Choice.empty() ? "" : ", ") + DatumText(Row);
  throw EUsageError("\"" + Text + "\" has a row for each area; name one by its number: " + Choice);
}

void WarnOfUnpublished(int Row) {
  const TDatumRow& Datum = *DatumRow(Row);
  if (!Datum.Published)
    PrintWarning("no public source has parameters of " + std::string(Datum.Name) + ", row " +
                 IntegerText(Row) + "; those of another datum of that area are used");
}

const char* ReasonOf(int Code) {
  return Code == -4 ? "long is outside -180..180" : "lat is outside -90..90";
}

int ConvertDatum(const TDatumOptions& Options) {
  const int From = RowOfOption(Options.From);
  const int To = RowOfOption(Options.To);
  WarnOfUnpublished(From);
  if (To != From) WarnOfUnpublished(To);
  const auto Transform = Options.Exact ? ExactHelmertTransform : HelmertTransform;
  bool Failed = false;
  bool HalfTurn = false;
  const int Status =
      ConvertTable(Options.Table, {LatColumn, LongColumn, HeightColumn},
                   {"lat", "long", "height", "code"}, [&](const TTable& In, TRow& Out) {
                     const double Long = In.Number(1);
                     double Lat2 = 0;
                     double Long2 = 0;
                     double Height2 = 0;
                     const int Code = Transform(From, In.Number(0), Long, HeightOf(In, 2), To, Lat2,
                                                Long2, Height2);
                     if (Code != 0) {
                       if (Options.Table.Strict) throw ELineError(ReasonOf(Code));
                       PrintError(In.Place() + ": " + ReasonOf(Code));
                       Failed = true;
                       Out << ""
                           << ""
                           << "" << Code;
                       return;
                     }
                     if (!std::isfinite(Lat2) || !std::isfinite(Long2) || !std::isfinite(Height2))
                       throw ELineError("the position cannot be converted; --exact may");
                     HalfTurn |= !Options.Exact && std::fabs(Long) > 90 && std::fabs(Lat2) < 90;
                     Out << Unsigned0(Lat2) << Unsigned0(Long2) << Unsigned0(Height2) << Code;
                   });
  if (HalfTurn)
    PrintWarning(
        "longitudes beyond 90 degrees came out 180 degrees off; --exact gives them in place");
  return Failed ? 1 : Status;
}

void AddDatumCommand(TProgram& Program) {
  const auto Options = std::make_shared<TDatumOptions>();
  CLI::App& Command = *Program.App.add_subcommand(
      "datum",
      "Shifts lat,long[,height] from one geodetic datum to another: lat,long,height,code.\n"
      "The code is 0, -3 for a latitude and -4 for a longitude that is out of range.");
  AddTableOptions(Command, Options->Table);
  Command
      .add_option("--from", Options->From, "row or name of the datum; \"zavgeo datums\" lists them")
      ->required();
  Command.add_option("--to", Options->To, "row or name of the datum")->required();
  Command.add_flag("--exact", Options->Exact,
                   "all quadrants, and the exact inverse of the target's parameters");
  Command.callback(
      [&Program, Options] { Program.Run = [Options] { return ConvertDatum(*Options); }; });
}

// --- lists ---------------------------------------------------------------------------------------

void PrintCountry(const TCountryData& Each) {
  TRow Row;
  Row << Each.Name.View() << Each.Fips10.View() << Each.ISO3166_2.View() << Each.ISO3166_3.View()
      << Each.CLat << Each.CLong << Each.Capital.View() << Each.CapLat << Each.CapLong
      << Each.CapAlt;
  Print(Row);
}

// All of them, or those that Text means: a code, a name, or a capital.
int PrintCountries(const std::string& Text) {
  std::vector<const TCountryData*> Found;
  if (const TCountryData* Country = Text.empty() ? nullptr : FindCountry(Text))
    Found.push_back(Country);
  else if (!Text.empty())
    Found = FindCountriesByCapital(Text);
  else
    for (const TCountryData& Each : CountryData) Found.push_back(&Each);
  if (Found.empty()) throw EZAVGeoBasicsError("unknown country \"" + Text + "\"");
  TRow Row;
  for (const char* Name : {"name", "fips10", "iso2", "iso3", "lat", "long", "capital",
                           "capital_lat", "capital_long", "capital_alt"})
    Row << Name;
  Print(Row);
  for (const TCountryData* Each : Found) PrintCountry(*Each);
  return 0;
}

int PrintDatums(const std::string& Name) {
  std::vector<int> Rows = FindDatumRows(Name);
  if (Name.empty())
    for (int Row = 1; Row <= NumDatumRows; ++Row) Rows.push_back(Row);
  if (Rows.empty()) throw EZAVGeoBasicsError("unknown datum \"" + Name + "\"");
  TRow Row;
  for (const char* Column :
       {"row", "name", "area", "ellipsoid", "dx", "dy", "dz", "ds", "rx", "ry", "rz"})
    Row << Column;
  Print(Row);
  for (const int Number : Rows) {
    const TDatumRow& Datum = *DatumRow(Number);
    Row << Number << Datum.Name << Datum.Area
        << GeoEllipsoidId[static_cast<size_t>(Datum.Ellipsoid)];
    for (const double Value :
         {Datum.Dx, Datum.Dy, Datum.Dz, Datum.Ds, Datum.Rx, Datum.Ry, Datum.Rz})
      Row << Value;
    Print(Row);
  }
  return 0;
}

void AddListCommand(TProgram& Program, const char* Name, const char* Description,
                    const char* OptionName, const char* OptionText,
                    int (*List)(const std::string&)) {
  const auto Text = std::make_shared<std::string>();
  CLI::App& Command = *Program.App.add_subcommand(Name, Description);
  Command.add_option(OptionName, *Text, OptionText);
  Command.callback([&Program, Text, List] { Program.Run = [Text, List] { return List(*Text); }; });
}

}  // namespace

void AddGeodesyCommands(TProgram& Program) {
  AddCartesianCommand(Program);
  AddDatumCommand(Program);
  AddListCommand(Program, "countries", "Lists the countries: codes, central point, capital",
                 "COUNTRY", "only this one: an ISO code, a name or a capital", PrintCountries);
  AddListCommand(
      Program, "datums",
      "Lists the geodetic datums: shift in metres, scale in parts per million, rotations "
      "in arc seconds",
      "NAME", "only the rows of this datum", PrintDatums);
}

}  // namespace zav
