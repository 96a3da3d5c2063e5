// calibrate_command.cpp - zavgeo calibrate: a calibration file from control points.
// SPDX-License-Identifier: MIT
#include <geomap/calibration/calib_file.h>
#include <platform/base/text.h>
#include <platform/base/text_format.h>
#include <platform/codec/image_file.h>

#include <cmath>
#include <memory>

#include "calibration_report.h"
#include "common/calibration_doubts.h"
#include "common/calibration_points.h"
#include "common/geo_columns.h"
#include "common/relative_name.h"
#include "program.h"

namespace zav {

namespace {

struct TCalibrateOptions {
  std::string Model, Points, Image, Caption, Zone, Hemisphere, Output;
  std::string Ellipsoid = "gelWGS84";
};

TPointsOptions PointsOptionsOf(const TCalibrateOptions& Options) {
  TPointsOptions Result;
  const auto Model = FindCalibModel(Options.Model);
  if (!Model || *Model == TCalibModel::cmUndefined)
    throw EUsageError("unknown model \"" + Options.Model + "\"");
  Result.Model = *Model;
  Result.Ellipsoid = EllipsoidOfOption(Options.Ellipsoid);
  if (!Options.Zone.empty()) {
    const auto Zone = ParseNumber(Options.Zone);
    if (!Zone || *Zone < 1 || *Zone > 60 || *Zone != std::floor(*Zone))
      throw EUsageError("--zone " + Options.Zone + " is not from 1 to 60");
    Result.Zone = static_cast<int>(*Zone);
  }
  try {
    if (!Options.Hemisphere.empty()) Result.South = IsSouth(Options.Hemisphere);
  } catch (const ELineError& Error) {
    throw EUsageError(Error.what());
  }
  return Result;
}

int Calibrate(const TCalibrateOptions& Options) {
  const TPointsOptions PointsOptions = PointsOptionsOf(Options);
  const TSize Size = ReadImageSize(Options.Image, ImageKindOfName(Options.Image));
  TCalibData Data = ReadCalibrationItems(Options.Points, PointsOptions);
  if (Data.NumCalQuads + Data.NumCalLines == 0)
    throw EInOutError(Options.Points, "holds no points");
  Data.MapFName = NameFromFolderOf(Options.Output, Options.Image);
  Data.Caption = Options.Caption;

  TCalibration Calibration;
  Calibration.SetImageSize(Size.Width, Size.Height);
  Calibration.SetData(Data, PointsOptions.Model);
  const std::vector<TResidual> Table = Residuals(Calibration);
  PrintResiduals(Calibration, Table);
  for (const TDoubt& Doubt : FindDoubts(Calibration, Table))
    PrintWarning(DoubtText(Doubt, Calibration, Table));
  if (Data.UTMZone == 60)
    PrintWarning("the file cannot hold zone 60; the map will not convert when it is read again");
  SaveCalData(Options.Output, "", Calibration.Data(), Calibration.Model(), Options.Output + ": ");
  return 0;
}

}  // namespace

void AddCalibrateCommand(TProgram& Program) {
  const auto Options = std::make_shared<TCalibrateOptions>();
  CLI::App& Command = *Program.App.add_subcommand(
      "calibrate",
      "Fits a model to control points, prints how far each is off, and writes a calibration file");
  Command
      .add_option("--model", Options->Model,
                  "equirect, utm, millercylindrical, conicconformal, biquadraticpn, parabolicip")
      ->required();
  Command
      .add_option(
          "--points", Options->Points,
          "table: lat,long,pixel_x,pixel_y; northing,easting,zone,hemisphere,pixel_x,pixel_y "
          "(utm); kind,value,pixel_x,pixel_y (parabolicip)")
      ->required();
  Command.add_option("--image", Options->Image, "the map image, .jpg or .bmp")->required();
  Command.add_option("--caption", Options->Caption, "name of the map");
  Command.add_option("--zone", Options->Zone, "UTM zone, where the points do not tell");
  Command.add_option("--hemisphere", Options->Hemisphere, "north or south, likewise");
  Command.add_option("--ellipsoid", Options->Ellipsoid, "identifier of the ellipsoid")
      ->capture_default_str();
  Command.add_option("-o,--output", Options->Output, "calibration file to write")->required();
  Command.callback(
      [&Program, Options] { Program.Run = [Options] { return Calibrate(*Options); }; });
}

}  // namespace zav
