// map_commands.cpp - zavgeo map info, map to-pixel, map to-geo.
// SPDX-License-Identifier: MIT
#include <geomap/calibration/calib_file.h>
#include <platform/base/text_format.h>

#include <memory>

#include "common/geo_columns.h"
#include "map_file.h"
#include "program.h"

namespace zav {

namespace {

struct TMapOptions {
  std::string MapFile;
  TTableOptions Table;
  bool Exact = false;
};

TMapFile LoadFitted(const std::string& File) {
  TMapFile Map = LoadMapFile(File);
  if (!Map.Calibration.IsFitted())
    throw EZAVGeoMapError(File + ": the calibration is not complete");
  return Map;
}

template <typename T>
void PrintProperty(std::string_view Name, const T& Value) {
  TRow Row;
  Row << Name << Value;
  Print(Row);
}

void PrintCorners(const TCalibData& Data) {
  constexpr struct {
    TCorners Corner;
    const char* Name;
  } Corners[] = {{gcoTopLeft, "top_left"},
                 {gcoTopRight, "top_right"},
                 {gcoBottomLeft, "bottom_left"},
                 {gcoBottomRight, "bottom_right"}};
  for (const auto& Each : Corners) {
    PrintProperty(Each.Name + std::string("_lat"), Data.Corners[Each.Corner].Latit);
    PrintProperty(Each.Name + std::string("_long"), Data.Corners[Each.Corner].Longit);
  }
}

int PrintInfo(const TMapOptions& Options) {
  const TMapFile Map = LoadMapFile(Options.MapFile);
  const TCalibration& Calibration = Map.Calibration;
  const TCalibData& Data = Calibration.Data();
  PrintProperty("property", "value");
  PrintProperty("caption", std::string_view(Data.Caption));
  PrintProperty("image", std::string_view(Data.MapFName));
  PrintProperty("image_found", !Map.ImagePath.empty());
  if (!Map.ImagePath.empty()) {
    PrintProperty("width", Calibration.ImageWidth());
    PrintProperty("height", Calibration.ImageHeight());
  }
  PrintProperty("model", CalibModelKeyword(Calibration.Model()));
  PrintProperty("fitted", Calibration.IsFitted());
  PrintProperty("control_points", Data.NumCalQuads);
  PrintProperty("graticule_lines", Data.NumCalLines);
  PrintProperty("ellipsoid", GeoEllipsoidId[static_cast<size_t>(Data.Ellipsoid)]);
  if (Data.UTMZone > 0) {
    PrintProperty("zone", Data.UTMZone);
    PrintProperty("hemisphere", Data.UTMSouth ? "south" : "north");
  }
  PrintProperty("resolution_m_per_px", Data.Resolution);
  PrintCorners(Data);
  return 0;
}

int ToPixel(const TMapOptions& Options) {
  const TMapFile Map = LoadFitted(Options.MapFile);
  return ConvertTable(Options.Table, {LatColumn, LongColumn}, {"x", "y", "valid"},
                      [&](const TTable& In, TRow& Out) {
                        const double Lat = In.Latitude(0);
                        const double Long = In.Longitude(1);
                        double ExactX = 0;
                        double ExactY = 0;
                        int32_t X = 0;
                        int32_t Y = 0;
                        const bool Known = Map.Calibration.ToPixel(Lat, Long, ExactX, ExactY);
                        if (!Known || !Map.Calibration.CalcPixelCoords(Lat, Long, X, Y))
                          Out << ""
                              << "" << false;
                        else if (Options.Exact)
                          Out << ExactX << ExactY << true;
                        else
                          Out << X << Y << true;
                      });
}

int ToGeo(const TMapOptions& Options) {
  const TMapFile Map = LoadFitted(Options.MapFile);
  return ConvertTable(Options.Table, {{"x|pixel_x"}, {"y|pixel_y"}}, {"lat", "long", "valid"},
                      [&](const TTable& In, TRow& Out) {
                        TCoords Position;
                        if (Map.Calibration.ToGeo(In.Number(0), In.Number(1), Position))
                          Out << Position.Latit << Position.Longit << true;
                        else
                          Out << ""
                              << "" << false;
                      });
}

using TMapCommand = int (*)(const TMapOptions& Options);

std::pair<CLI::App*, std::shared_ptr<TMapOptions>> AddMapCommand(TProgram& Program, CLI::App& Map,
                                                                 const char* Name,
                                                                 const char* Description,
                                                                 TMapCommand Run) {
  const auto Options = std::make_shared<TMapOptions>();
  CLI::App& Command = *Map.add_subcommand(Name, Description);
  Command.add_option("MAP", Options->MapFile, "calibration file")->required();
  Command.callback(
      [&Program, Options, Run] { Program.Run = [Options, Run] { return Run(*Options); }; });
  return {&Command, Options};
}

}  // namespace

void AddMapCommands(TProgram& Program) {
  CLI::App& Map = *Program.App.add_subcommand("map", "Reads, converts and draws a calibrated map");
  Map.require_subcommand(0, 1);
  AddMapCommand(Program, Map, "info", "Tells what a calibration file holds", PrintInfo);
  const auto [Pixel, PixelOptions] =
      AddMapCommand(Program, Map, "to-pixel", "lat,long gives x,y,valid", ToPixel);
  AddTableOptions(*Pixel, PixelOptions->Table);
  Pixel->add_flag("--exact", PixelOptions->Exact, "do not round pixels");
  const auto [Geo, GeoOptions] =
      AddMapCommand(Program, Map, "to-geo", "x,y gives lat,long,valid", ToGeo);
  AddTableOptions(*Geo, GeoOptions->Table);
  AddRenderCommand(Program, Map);
  AddShrinkCommand(Program, Map);
  AddEmptyCommand(Program, Map);
}

}  // namespace zav
