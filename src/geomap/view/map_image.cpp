// map_image.cpp - see map_image.h.
// SPDX-License-Identifier: MIT
#include <geomap/view/map_image.h>

#include <algorithm>
#include <utility>

#include <platform/base/rounding.h>
#include <platform/raster/raster_canvas.h>

namespace zav {
namespace {

// The scaled map may be at most this much larger than the image along each side, so that a page of
// high resolution takes no memory beyond its own.
constexpr double MaxCacheFactor = 2;

TSize SizeOf(const TBitmap& Bitmap) noexcept { return {Bitmap.Width(), Bitmap.Height()}; }

void StretchWhole(const TBitmap& From, TBitmap& To, TStretchMode Mode) {
  TRasterCanvas(To).StretchDraw(
      {0, 0, To.Width(), To.Height()}, From,
      {0, 0, static_cast<double>(From.Width()), static_cast<double>(From.Height())}, Mode);
}

}  // namespace

void CheckMapPixels(TSize Size, int64_t Limit) {
  if (static_cast<int64_t>(Size.Width) * Size.Height <= Limit) return;
  throw EZAVGeoMapError("Cannot use map image, maximum of " + std::to_string(MaxMapPixels) +
                        " pixels exceeded (size of map is " + std::to_string(Size.Width) + " x " +
                        std::to_string(Size.Height) + ")");
}

std::optional<TBitmap> ReadMapBitmap(const std::string& Path, const TImageProgress& Progress) {
  const TImageKind Kind = ImageKindOfName(Path);
  if (Kind == TImageKind::ikUnknown) return std::nullopt;
  CheckMapPixels(ReadImageSize(Path, Kind), MaxDecodablePixels);
  return LoadImageFile(Path, Kind, Progress);
}

TStampedBitmap TMapImage::Exchange(TStampedBitmap Bitmap) {
  InvalidateCache();
  return {std::exchange(FFile, std::move(Bitmap.File)),
          std::exchange(FBitmap, std::move(Bitmap.Bitmap))};
}

void TMapImage::Accept(const std::string& Name) {
  CheckMapPixels(SizeOf(FBitmap), MaxMapPixels);
  FName = Name;
  FWidth = FBitmap.Width();
  FHeight = FBitmap.Height();
}

void TMapImage::Forget() noexcept {
  FName.clear();
  FWidth = 0;
  FHeight = 0;
}

void TMapImage::Resize(double Factor, TStretchMode Mode) {
  const TSize Size = {RoundHalfEven(FBitmap.Width() * Factor),
                      RoundHalfEven(FBitmap.Height() * Factor)};
  CheckMapPixels(Size, MaxDecodablePixels);
  TBitmap Scaled(Size.Width, Size.Height, FBitmap.PixelFormat());
  StretchWhole(FBitmap, Scaled, Mode);
  SetBitmap(std::move(Scaled));
  FWidth = FBitmap.Width();
  FHeight = FBitmap.Height();
}

void TMapImage::UpdateCache(double Magnification, double Scale, bool AntiAlias, double Limit) {
  if (!(Magnification < Limit) || Magnification * Scale > MaxCacheFactor) return;
  if (CacheHolds(Magnification, Scale) && FCache.AntiAlias == AntiAlias) return;
  InvalidateCache();  // until the new one is whole: memory may run out
  FCache.Bitmap.SetSize(RoundHalfEven(FBitmap.Width() * Magnification * Scale),
                        RoundHalfEven(FBitmap.Height() * Magnification * Scale));
  StretchWhole(FBitmap, FCache.Bitmap,
               AntiAlias ? TStretchMode::smHalftone : TStretchMode::smColorOnColor);
  FCache.Magnification = Magnification;
  FCache.Scale = Scale;
  FCache.AntiAlias = AntiAlias;
}

bool TMapImage::CacheHolds(double Magnification, double Scale) const noexcept {
  return FCache.Magnification == Magnification && FCache.Scale == Scale;
}

}  // namespace zav
