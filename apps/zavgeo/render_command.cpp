// render_command.cpp - zavgeo map render: a map as a PNG picture, without a display.
// SPDX-License-Identifier: MIT
#include <geomap/geo_map.h>
#include <platform/base/atomic_file.h>
#include <platform/base/rounding.h>
#include <platform/base/text.h>
#include <platform/qt/qt_host.h>
#include <platform/qt/qt_image.h>

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <memory>
#include <optional>

#include "common/free_captions.h"
#include "common/landmark_files.h"
#include "headless_qt.h"
#include "map_file.h"
#include "option_values.h"
#include "program.h"

namespace zav {

namespace {

constexpr int32_t MaxSide = 16384;

struct TRenderOptions {
  std::string MapFile, Size, Center, Magnification, LandMarks, Output;
  std::string Graticule = "none";
  std::string Captions = "free";
  bool Fit = false;
};

struct TRenderPlan {
  std::optional<TSize> Size;
  std::optional<TCoords> Center;
  std::optional<double> Magnification;
  bool Fit = false;
  TShowGrat Graticule = TShowGrat::sgNone;
  TCaptions Captions = TCaptions::Free;
};

TShowGrat GraticuleOf(const std::string& Kind) {
  // In the order of TShowGrat; the viewer takes the same names.
  constexpr std::string_view Kinds[] = {
      "none", "points", "lines", "points-and-lines", "utm-grid", "points-and-utm-grid"};
  for (size_t i = 0; i < std::size(Kinds); ++i)
    if (SameText(Kind, Kinds[i])) return static_cast<TShowGrat>(i);
  throw EUsageError("unknown graticule \"" + Kind +
                    "\": none, points, lines, points-and-lines, utm-grid or points-and-utm-grid");
}

TCaptions CaptionsOf(const std::string& Name) {
  if (SameText(Name, "all")) return TCaptions::All;
  if (SameText(Name, "free")) return TCaptions::Free;
  if (SameText(Name, "none")) return TCaptions::None;
  throw EUsageError("--captions \"" + Name + "\" is none of all, free, none");
}

TRenderPlan PlanOf(const TRenderOptions& Options) {
  TRenderPlan Plan;
  // With neither a centre nor a magnification the whole map is fitted in.
  Plan.Fit = Options.Fit || (Options.Center.empty() && Options.Magnification.empty());
  Plan.Graticule = GraticuleOf(Options.Graticule);
  Plan.Captions = CaptionsOf(Options.Captions);
  if (!Options.Size.empty()) {
    Plan.Size = SizeOfOption("--size", Options.Size, 1, MaxSide);
  }
  if (!Options.Center.empty()) {
    const std::vector<double> Center = NumbersOfOption("--center", Options.Center, 2);
    RequireRange("--center", Center[0], -90, 90);
    RequireRange("--center", Center[1], -360, 360);
    Plan.Center = {Center[0], Center[1]};
  }
  if (!Options.Magnification.empty()) {
    Plan.Magnification = ParseNumber(Options.Magnification);
    if (!Plan.Magnification) throw EUsageError("--magnification is not a number");
    RequireRange("--magnification", *Plan.Magnification, 0.01, 100);
  }
  return Plan;
}

// The picture's size where none was asked for: the whole map.
TSize WholeMap(const TCalibration& Calibration, double Magnification) {
  const double Width = Calibration.ImageWidth() * Magnification;
  const double Height = Calibration.ImageHeight() * Magnification;
  RequireRange("--magnification", std::max(Width, Height), 0, MaxSide);
  return {std::max(RoundHalfEven(Width), 1), std::max(RoundHalfEven(Height), 1)};
}

void ShowPart(TGeoMap& Map, const TRenderPlan& Plan) {
  if (Plan.Fit) return Map.ZoomFitPage();
  Map.SetView({0, 0}, Plan.Magnification.value_or(1));
  if (!Plan.Center) return;
  TPoint Pixel;
  const bool Known = Map.CalcPixelCoords(Plan.Center->Latit, Plan.Center->Longit, Pixel.X, Pixel.Y);
  if (!Known || Pixel.X < 0 || Pixel.Y < 0 || Pixel.X >= Map.MapImgWidth() ||
      Pixel.Y >= Map.MapImgHeight())
    throw EZAVGeoMapError("the centre is outside the map");
  Map.BringLocationToCenter(Plan.Center->Latit, Plan.Center->Longit);
}

void SavePng(const std::string& Path, const TBitmap& Bitmap, TSize Size) {
  const QImage Picture = WrapBitmap(Bitmap).copy(0, 0, Size.Width, Size.Height);
  QByteArray Bytes;
  QBuffer Buffer(&Bytes);
  if (!Buffer.open(QIODevice::WriteOnly) ||
      !Picture.convertToFormat(QImage::Format_RGB32).save(&Buffer, "PNG"))
    throw EInOutError(Path, "the picture cannot be encoded");
  WriteWholeFile(Path, std::string_view(Bytes.constData(), static_cast<size_t>(Bytes.size())));
}

int Render(const TRenderOptions& Options) {
  const TRenderPlan Plan = PlanOf(Options);
  const TMapFile File = LoadMapFile(Options.MapFile);
  if (File.ImagePath.empty())
    throw EInOutError(Options.MapFile,
                      "the image " + File.Calibration.Data().MapFName + " was not found");
  TLandMarkList LandMarks;
  if (!Options.LandMarks.empty()) LandMarks = LoadLandMarkFile(Options.LandMarks, "").List;
  const TSize Size =
      Plan.Size ? *Plan.Size : WholeMap(File.Calibration, Plan.Magnification.value_or(1));

  const THeadlessQt Application;
  TQtHost Host;
  TGeoMap Map(nullptr, Host);
  Map.SetSuppressPaint(true);
  Map.SetSize(Size.Width, Size.Height);
  Map.SetFrameStyle(TFrameStyle::fsNone);
  Map.SetGratInMapZone(true);
  Map.SetShowGrat(Plan.Graticule);
  Map.SetMapImgName(File.ImagePath);
  Map.SetCalibration(File.Calibration.Data(), File.Calibration.Model());
  Map.SetThinningSeed(0);
  Map.SetLandMarks(LandMarks);
  TFreeCaptions Captions(Map);
  Captions.SetCaptions(Plan.Captions);
  ShowPart(Map, Plan);
  Map.ConstructInternalMapImg();
  SavePng(Options.Output, Map.InternalMapImg(), Size);
  return 0;
}

}  // namespace

void AddRenderCommand(TProgram& Program, CLI::App& Map) {
  const auto Options = std::make_shared<TRenderOptions>();
  CLI::App& Command = *Map.add_subcommand("render", "Draws a map as a PNG picture");
  Command.add_option("MAP", Options->MapFile, "calibration file")->required();
  Command.add_option("--size", Options->Size, "WIDTHxHEIGHT in pixels; else the whole map");
  auto* const Center =
      Command.add_option("--center", Options->Center, "LAT,LONG in the middle of the picture");
  auto* const Magnification =
      Command.add_option("--magnification", Options->Magnification, "pixels per map pixel");
  Command.add_flag("--fit", Options->Fit, "the whole map in the picture")
      ->excludes(Magnification)
      ->excludes(Center);
  Command
      .add_option("--graticule", Options->Graticule,
                  "none, points, lines, points-and-lines, utm-grid or points-and-utm-grid")
      ->capture_default_str();
  Command.add_option("--landmarks", Options->LandMarks, "landmark file to draw on the map");
  Command
      .add_option("--captions", Options->Captions,
                  "of the landmarks: all; free, those that do not lie over one before; none")
      ->capture_default_str();
  Command.add_option("-o,--output", Options->Output, "PNG file to write")->required();
  Command.callback([&Program, Options] { Program.Run = [Options] { return Render(*Options); }; });
}

}  // namespace zav
