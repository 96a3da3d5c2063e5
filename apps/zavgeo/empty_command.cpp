// empty_command.cpp - zavgeo map empty: a map of a rectangle of degrees with a labelled grid.
// SPDX-License-Identifier: MIT
#include <geomap/geo_map.h>
#include <platform/base/paths.h>
#include <platform/base/text.h>
#include <platform/qt/qt_host.h>

#include <memory>

#include "headless_qt.h"
#include "option_values.h"
#include "program.h"

namespace zav {

namespace {

struct TEmptyOptions {
  std::string Box, Grid, Size, Output;
};

struct TEmptyPlan {
  double South = 0, West = 0, North = 0, East = 0;
  double LatGrid = 1, LongGrid = 1;
  TSize Size{};
};

TEmptyPlan PlanOf(const TEmptyOptions& Options) {
  const std::vector<double> Box = NumbersOfOption("--box", Options.Box, 4);
  TEmptyPlan Plan{Box[0], Box[1], Box[2], Box[3]};
  RequireRange("--box: latitude", Plan.South, -90, 90);
  RequireRange("--box: latitude", Plan.North, -90, 90);
  RequireRange("--box: longitude", Plan.West, -360, 360);
  RequireRange("--box: longitude", Plan.East, -360, 360);
  if (Plan.South >= Plan.North) throw EUsageError("--box: south is not below north");
  if (Plan.West >= Plan.East)
    throw EUsageError(
        "--box: west is not below east; a map across 180 degrees goes on beyond it: 170 to 190");
  const std::vector<double> Grid = NumbersOfOption("--grid", Options.Grid, 2);
  if (!(Grid[0] > 0 && Grid[1] > 0)) throw EUsageError("--grid: both distances must be above 0");
  Plan.LatGrid = Grid[0];
  Plan.LongGrid = Grid[1];
  Plan.Size = SizeOfOption("--size", Options.Size, 100, MaxMapPixels);
  if (!SameText(ExtensionOf(Options.Output), ".xml"))
    throw EUsageError("-o " + Options.Output + " must end in .xml; the image is written beside it");
  return Plan;
}

int MakeEmptyMap(const TEmptyOptions& Options) {
  const TEmptyPlan Plan = PlanOf(Options);
  CheckMapPixels(Plan.Size, MaxMapPixels);
  const THeadlessQt Application;
  TQtHost Host;
  TGeoMap Map(nullptr, Host);
  Map.SetSuppressPaint(true);
  Map.CreateAndLoadEmptyMap(Options.Output, Plan.South, Plan.West, Plan.North, Plan.East,
                            Plan.LatGrid, Plan.LongGrid, Plan.Size.Width, Plan.Size.Height,
                            nullptr);
  return 0;
}

}  // namespace

void AddEmptyCommand(TProgram& Program, CLI::App& Map) {
  const auto Options = std::make_shared<TEmptyOptions>();
  CLI::App& Command = *Map.add_subcommand(
      "empty", "Makes a map of a rectangle of degrees: parallels and meridians, calibrated");
  Command.add_option("--box", Options->Box, "SOUTH,WEST,NORTH,EAST in degrees")->required();
  Command.add_option("--grid", Options->Grid, "LAT,LONG: degrees between the lines")->required();
  Command.add_option("--size", Options->Size, "WIDTHxHEIGHT in pixels, each 100 or more")
      ->required();
  Command
      .add_option("-o,--output", Options->Output,
                  "calibration file to write, .xml; the image is written beside it as .bmp")
      ->required();
  Command.callback(
      [&Program, Options] { Program.Run = [Options] { return MakeEmptyMap(*Options); }; });
}

}  // namespace zav
