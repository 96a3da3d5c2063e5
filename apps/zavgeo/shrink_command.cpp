// shrink_command.cpp - zavgeo map shrink: a smaller copy of a scan and of its calibration.
// SPDX-License-Identifier: MIT
#include <platform/base/paths.h>
#include <platform/codec/image_file.h>
#include <platform/qt/qt_image_file.h>

#include <cmath>
#include <memory>
#include <optional>

#include "common/reduced_copy.h"
#include "program.h"

namespace zav {

namespace {

struct TShrinkOptions {
  std::string Image, MapFile, Longest, Output;
};

struct TShrinkPlan {
  int32_t Longest = 0;
  TImageKind Kind = TImageKind::ikUnknown;
  std::string NewMapFile;
};

TShrinkPlan PlanOf(const TShrinkOptions& Options) {
  TShrinkPlan Plan;
  const auto Longest = ParseNumber(Options.Longest);
  if (!Longest || !(*Longest >= 1) || *Longest > INT32_MAX || *Longest != std::floor(*Longest))
    throw EUsageError("--longest " + Options.Longest + " is no number of pixels");
  Plan.Longest = static_cast<int32_t>(*Longest);
  if (ImageKindOfName(Options.Output) != TImageKind::ikJpeg)
    throw EUsageError("the copy is a JPEG file: " + Options.Output + " must end in .jpg or .jpeg");
  Plan.Kind = ImageKindOfName(Options.Image);
  if (!Options.MapFile.empty()) Plan.NewMapFile = StripExtension(Options.Output) + ".xml";
  return Plan;
}

// The originals are worth more than any copy.
void RefuseToOverwrite(const TShrinkOptions& Options, const TShrinkPlan& Plan) {
  for (const std::string& Written : {Options.Output, Plan.NewMapFile})
    for (const std::string& Read : {Options.Image, Options.MapFile})
      if (!Written.empty() && !Read.empty() && IsSameFile(Written, Read))
        throw EUsageError("the copy would overwrite " + Read + "; give -o another name");
}

int Shrink(const TShrinkOptions& Options) {
  const TShrinkPlan Plan = PlanOf(Options);
  RefuseToOverwrite(Options, Plan);
  // JPEG and BMP are read by the library itself, other kinds by Qt.
  const bool Own = Plan.Kind != TImageKind::ikUnknown;
  const TSize From = Own ? ReadImageSize(Options.Image, Plan.Kind) : ReadQtImageSize(Options.Image);
  const TSize To = ReducedSize(From, Plan.Longest);
  if (To == From)
    throw EInOutError(Options.Image, "is not larger than " + Options.Longest + " pixels already");
  const TBitmap Image = Own ? LoadImageFile(Options.Image, Plan.Kind) : LoadQtImage(Options.Image);
  WriteReducedMap(ReducedBitmap(Image, To), From, {Options.Image, Options.MapFile},
                  {Options.Output, Plan.NewMapFile});
  return 0;
}

}  // namespace

void AddShrinkCommand(TProgram& Program, CLI::App& Map) {
  const auto Options = std::make_shared<TShrinkOptions>();
  CLI::App& Command = *Map.add_subcommand(
      "shrink",
      "Writes a smaller copy of a scan, and of its calibration: the points move with the pixels");
  Command.add_option("IMAGE", Options->Image, "the scan: JPEG, BMP, PNG, TIFF")->required();
  Command.add_option("MAP", Options->MapFile,
                     "its calibration file; the copy's is written beside the copy");
  Command.add_option("--longest", Options->Longest, "pixels that the longer side is to have")
      ->required();
  Command.add_option("-o,--output", Options->Output, "JPEG file to write; never an input")
      ->required();
  Command.callback([&Program, Options] { Program.Run = [Options] { return Shrink(*Options); }; });
}

}  // namespace zav
