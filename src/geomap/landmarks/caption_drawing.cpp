// caption_drawing.cpp - see caption_drawing.h.
// SPDX-License-Identifier: MIT
#include <geomap/landmarks/caption_drawing.h>

#include <algorithm>
#include <cmath>

#include <platform/base/rounding.h>

namespace zav {
namespace {

constexpr double Pi = 3.141592653589793;

// How many halves of a text's size its top left corner is away from the aligned point, along the
// text and up from it.
int32_t HalvesAlong(THorizontalAlignment Alignment) noexcept {
  return Alignment == THorizontalAlignment::haRight    ? 2
         : Alignment == THorizontalAlignment::haCenter ? 1
                                                       : 0;
}
int32_t HalvesUp(TVerticalAlignment Alignment) noexcept {
  return Alignment == TVerticalAlignment::vaMiddle   ? 1
         : Alignment == TVerticalAlignment::vaBottom ? 2
                                                     : 0;
}

}  // namespace

TCaptionPlace PlaceCaption(TCanvas& Canvas, TPoint At, const TLMTextProperties& Caption,
                           double Scale) {
  const std::string_view Text = Caption.Text.View();
  if (Text.empty()) return {At, {}};
  Canvas.Font = {Caption.FontName, Caption.Size * Scale, Caption.FontStyles, Caption.FGColor,
                 Caption.Direction};
  const TSize Size = Canvas.TextExtent(Text);
  // Whole halves: an odd pixel counts to the right and below.
  const int32_t HalfWidth = Size.Width / 2;
  const int32_t HalfHeight = Size.Height / 2;
  const double Along = HalvesAlong(Caption.HAlignment) * static_cast<double>(HalfWidth);
  const double Up = HalvesUp(Caption.VAlignment) * static_cast<double>(HalfHeight);
  const double Angle = Caption.Direction * Pi / 180;
  const double OX = RoundHalfEven(-Along * std::cos(Angle) - Up * std::sin(Angle));
  const double OY = RoundHalfEven(Along * std::sin(Angle) - Up * std::cos(Angle));
  return {{RoundHalfEven(At.X + RoundHalfEven(Caption.dx * Scale) + OX),
           RoundHalfEven(At.Y + RoundHalfEven(Caption.dy * Scale) + OY)},
          Size};
}

TRect CaptionBox(const TCaptionPlace& Place, int32_t Direction) noexcept {
  const double X = Place.TopLeft.X;
  const double Y = Place.TopLeft.Y;
  const double Angle = Direction * Pi / 180;
  const double AlongX = Place.Size.Width * std::cos(Angle);
  const double AlongY = -Place.Size.Width * std::sin(Angle);
  const double DownX = Place.Size.Height * std::sin(Angle);
  const double DownY = Place.Size.Height * std::cos(Angle);
  const auto [Left, Right] = std::minmax({0.0, AlongX, DownX, AlongX + DownX});
  const auto [Top, Bottom] = std::minmax({0.0, AlongY, DownY, AlongY + DownY});
  return {RoundHalfEven(std::floor(X + Left)), RoundHalfEven(std::floor(Y + Top)),
          RoundHalfEven(std::ceil(X + Right)), RoundHalfEven(std::ceil(Y + Bottom))};
}

void DrawLandMarkCaption(TCanvas& Canvas, TPoint At, const TLMTextProperties& Caption,
                         double Scale) {
  const std::string_view Text = Caption.Text.View();
  if (Text.empty()) return;
  Canvas.Brush = {Caption.BGColor,
                  Caption.Transparent ? TBrushStyle::bsClear : TBrushStyle::bsSolid};
  const TCaptionPlace Place = PlaceCaption(Canvas, At, Caption, Scale);
  Canvas.TextOut(Place.TopLeft.X, Place.TopLeft.Y, Text);
}

}  // namespace zav
