// pass_image.cpp - the map image and the background around it.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

#include <geomap/view/passes.h>
#include <platform/base/rounding.h>

namespace zav {
namespace {

// The part of a target of Size pixels that is surely covered when the source from From to To is
// stretched over it and the image has the pixels 0..ImageSize-1. A pixel less at the image's edges
// costs nothing: the image is drawn over the background.
struct TCoveredRange {
  int32_t First = 0;
  int32_t End = 0;
};

TCoveredRange CoveredRange(int32_t Size, double From, double To, int32_t ImageSize) {
  if (!(To > From)) return {};  // a control of one pixel that shows less than a map pixel
  const double PixelsPerSource = Size / (To - From);
  const double First = From >= 0 ? 0 : std::ceil(-From * PixelsPerSource) + 1;
  const double End = To <= ImageSize ? Size : std::floor((ImageSize - From) * PixelsPerSource) - 1;
  return {std::clamp(RoundHalfEven(First), 0, Size), std::clamp(RoundHalfEven(End), 0, Size)};
}

void DrawBackground(const TRenderScene& Scene, const TBitmap& Bitmap, const TRectDouble& Source,
                    TCanvas& Device) {
  const TSize Size = Scene.DeviceSize();
  const TCoveredRange X = CoveredRange(Size.Width, Source.Left, Source.Right, Bitmap.Width());
  const TCoveredRange Y = CoveredRange(Size.Height, Source.Top, Source.Bottom, Bitmap.Height());
  Device.Brush = {Scene.Look.ColorBackGnd, TBrushStyle::bsSolid};
  if (X.First >= X.End || Y.First >= Y.End) {
    Device.FillRect({0, 0, Size.Width, Size.Height});
    return;
  }
  const TRect Sides[] = {{0, 0, Size.Width, Y.First},
                         {0, Y.End, Size.Width, Size.Height},
                         {0, Y.First, X.First, Y.End},
                         {X.End, Y.First, Size.Width, Y.End}};
  for (const TRect& Side : Sides) {
    if (!Side.Empty()) Device.FillRect(Side);
  }
}

// The source that is stretched over the whole target. On a screen of ordinary resolution its ends
// are whole map pixels; elsewhere the pixels of the target are what counts.
TRectDouble SourceOf(const TRenderScene& Scene) {
  const TSize Size = Scene.DeviceSize();
  const double Factor = Scene.View.Magnification * Scene.Scale;
  const TPoint From = Scene.View.TopLeft;
  TRectDouble Source{static_cast<double>(From.X), static_cast<double>(From.Y),
                     From.X + Size.Width / Factor, From.Y + Size.Height / Factor};
  if (Scene.Scale == 1 && Scene.OnScreen) {
    Source.Right = RoundHalfEven(Source.Right);
    Source.Bottom = RoundHalfEven(Source.Bottom);
  }
  return Source;
}

}  // namespace

void DrawImage(const TRenderScene& Scene, TMapImage& Image, TCanvas& Device) {
  const TViewState& View = Scene.View;
  const TSize Size = Scene.DeviceSize();
  if (Scene.OnScreen) {
    Image.UpdateCache(View.Magnification, Scene.Scale, Scene.Look.AntiAlias,
                      Scene.Look.CacheMagLimit);
  }
  if (Scene.OnScreen && Image.CacheHolds(View.Magnification, Scene.Scale)) {
    const double Factor = View.Magnification * Scene.Scale;
    const double X = RoundHalfEven(View.TopLeft.X * Factor);
    const double Y = RoundHalfEven(View.TopLeft.Y * Factor);
    const TRect Source = {RoundHalfEven(X), RoundHalfEven(Y), RoundHalfEven(X + Size.Width),
                          RoundHalfEven(Y + Size.Height)};
    const TBitmap& Cached = Image.Cache().Bitmap;
    DrawBackground(Scene, Cached, {X, Y, X + Size.Width, Y + Size.Height}, Device);
    Device.CopyRect(0, 0, Cached, Source);
    return;
  }
  const TRectDouble Source = SourceOf(Scene);
  DrawBackground(Scene, Image.Bitmap(), Source, Device);
  Device.StretchDraw(
      {0, 0, Size.Width, Size.Height}, Image.Bitmap(), Source,
      Scene.Look.AntiAlias ? TStretchMode::smHalftone : TStretchMode::smColorOnColor);
}

}  // namespace zav
