// reduced_copy.cpp - maps made smaller: the image, and the pixels of its calibration.
// SPDX-License-Identifier: MIT
#include "common/reduced_copy.h"

#include <geomap/calibration/calib_file.h>
#include <geomap/errors.h>
#include <geomap/landmarks/xml_records.h>
#include <geomap/view/map_image.h>
#include <platform/base/atomic_file.h>
#include <platform/base/read_file.h>
#include <platform/base/rounding.h>
#include <platform/base/text.h>
#include <platform/codec/decoding.h>
#include <platform/codec/jpeg_writer.h>
#include <platform/raster/stretch.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <sstream>
#include <system_error>

#include "common/relative_name.h"

namespace zav {

namespace {

// The caption of the first calibration in a file; its reader gives it in lower case.
std::string SpelledCaption(const std::string& File) {
  std::istringstream Text(ReadWholeTextFile(File));
  for (std::string Line; std::getline(Text, Line);) {
    const std::string Lower = LowerCase(Line);
    if (Lower.find("<geomap") != std::string::npos && Lower.find("tarvoline") != std::string::npos)
      return FindAttribute(Line, "caption");
  }
  return {};
}

void WriteReducedCalibration(TSize Size, TSize From, const TMapFiles& Old, const TMapFiles& New) {
  TCalibration Whole;
  if (!LoadCalibration(Old.Calibration, "", Whole))
    throw EZAVGeoMapError(Old.Calibration + ": holds no calibration");
  TCalibData Data = Whole.Data();
  ReducePixels(Data, From, Size);
  Data.MapFName = NameFromFolderOf(New.Calibration, New.Image);
  Data.Caption = SpelledCaption(Old.Calibration);
  TCalibration Small;
  Small.SetImageSize(Size.Width, Size.Height);
  Small.SetData(Data, Whole.Model());
  SaveCalData(New.Calibration, "", Small.Data(), Small.Model(), New.Calibration + ": ");
}

}  // namespace

TSize ReducedSize(TSize Size, int32_t Longest) {
  const int32_t Side = std::max(Size.Width, Size.Height);
  if (Side <= Longest) return Size;
  const auto Reduced = [&](int32_t Each) {
    return std::max(RoundHalfEven(static_cast<double>(Each) * Longest / Side), 1);
  };
  return {Reduced(Size.Width), Reduced(Size.Height)};
}

int32_t LongestForMap(TSize Size) {
  const double Area = static_cast<double>(Size.Width) * Size.Height;
  if (Area <= MaxMapPixels) return std::max(Size.Width, Size.Height);
  int32_t Longest = RoundHalfEven(
      std::floor(std::max(Size.Width, Size.Height) * std::sqrt(MaxMapPixels / Area)) + 1);
  const auto Fits = [&] {
    const TSize Small = ReducedSize(Size, Longest);
    return static_cast<int64_t>(Small.Width) * Small.Height <= MaxMapPixels;
  };
  while (!Fits()) --Longest;
  return Longest;
}

TBitmap ReducedBitmap(const TBitmap& Bitmap, TSize Size) {
  TBitmap Small(Size.Width, Size.Height, Bitmap.PixelFormat());
  Stretch(Small, {0, 0, Size.Width, Size.Height}, Bitmap,
          {0, 0, static_cast<double>(Bitmap.Width()), static_cast<double>(Bitmap.Height())},
          TStretchMode::smHalftone);
  return Small;
}

TPoint ReducedPixel(TPoint Pixel, TSize From, TSize To) {
  return {RoundHalfEven((Pixel.X + 0.5) * To.Width / From.Width - 0.5),
          RoundHalfEven((Pixel.Y + 0.5) * To.Height / From.Height - 0.5)};
}

void ReducePixels(TCalibData& Data, TSize From, TSize To) {
  for (TCalibLine& Line : Data.CalLines)
    for (TPoint& P : Line.CalPoints) P = ReducedPixel(P, From, To);
  for (TCalQuad& Quad : Data.CalQuads) {
    const TPoint P = ReducedPixel({Quad.MapX, Quad.MapY}, From, To);
    Quad.MapX = P.X;
    Quad.MapY = P.Y;
  }
}

bool IsSameFile(const std::string& A, const std::string& B) {
  std::error_code Error;
  return std::filesystem::equivalent(A, B, Error) && !Error;
}

void WriteReducedMap(const TBitmap& Bitmap, TSize From, const TMapFiles& Old,
                     const TMapFiles& New) {
  const TImageProgress NoOne;
  TPercentReport Report(NoOne);
  TAtomicFile Image(New.Image);
  EncodeJpeg(Bitmap, CopyQuality, New.Image, Image, Report);
  Image.Sync();
  if (!New.Calibration.empty())
    WriteReducedCalibration({Bitmap.Width(), Bitmap.Height()}, From, Old, New);
  Image.Commit();
}

}  // namespace zav
