// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <platform/raster/axis_map.h>
#include <platform/raster/stretch.h>

#include <cmath>
#include <limits>

#include "pictures.h"

namespace zav {
namespace {

// The weights of source pixels for one target pixel that covers Begin..End, from the definition.
std::vector<double> WeightsOf(double Begin, double End, int32_t Size) {
  std::vector<double> Weights(static_cast<size_t>(Size));
  const double Scale = End - Begin;
  if (Scale < 1) {
    const double Position = std::clamp((Begin + End) / 2 - 0.5, 0.0, Size - 1.0);
    const double Fraction = Position - std::floor(Position);
    const size_t Left = static_cast<size_t>(Position);
    Weights[Left] += 1 - Fraction;
    if (Fraction > 0) Weights[Left + 1] += Fraction;
    return Weights;
  }
  const double From = std::max(Begin, 0.0);
  const double To = std::min<double>(End, Size);
  for (int32_t I = 0; I < Size; ++I) {
    const double Covered = std::min(To, I + 1.0) - std::max<double>(From, I);
    Weights[static_cast<size_t>(I)] = std::max(Covered, 0.0) / (To - From);
  }
  return Weights;
}

struct TRgb {
  double Value[3];
};

// The source as numbers, and its average or interpolation under one target pixel.
class TReference {
 public:
  explicit TReference(const TBitmap& Source) : FSource(Source) {}

  // False when the pixel's middle lies outside the source.
  bool At(const TRect& Dest, const TRectDouble& Part, int32_t X, int32_t Y, TStretchMode Mode,
          TRgb& Color) const {
    const double ScaleX = (Part.Right - Part.Left) / (Dest.Right - Dest.Left);
    const double ScaleY = (Part.Bottom - Part.Top) / (Dest.Bottom - Dest.Top);
    const double Left = Part.Left + (X - Dest.Left) * ScaleX;
    const double Top = Part.Top + (Y - Dest.Top) * ScaleY;
    // A middle exactly between two pixels belongs to the right or lower one.
    const double MiddleX = Left + ScaleX / 2 + 1e-9;
    const double MiddleY = Top + ScaleY / 2 + 1e-9;
    if (MiddleX < 0 || MiddleY < 0 || MiddleX >= FSource.Width() || MiddleY >= FSource.Height()) {
      return false;
    }
    Color = {};
    if (Mode == TStretchMode::smColorOnColor) {
      Add(Color, static_cast<int32_t>(MiddleX), static_cast<int32_t>(MiddleY), 1);
      return true;
    }
    const std::vector<double> Across = WeightsOf(Left, Left + ScaleX, FSource.Width());
    const std::vector<double> Down = WeightsOf(Top, Top + ScaleY, FSource.Height());
    for (int32_t J = 0; J < FSource.Height(); ++J) {
      if (Down[static_cast<size_t>(J)] == 0) continue;
      for (int32_t I = 0; I < FSource.Width(); ++I) {
        const double Weight = Across[static_cast<size_t>(I)] * Down[static_cast<size_t>(J)];
        if (Weight > 0) Add(Color, I, J, Weight);
      }
    }
    return true;
  }

 private:
  void Add(TRgb& Color, int32_t X, int32_t Y, double Weight) const {
    const TColor Pixel = FSource.Pixel(X, Y);
    Color.Value[0] += RedOf(Pixel) * Weight;
    Color.Value[1] += GreenOf(Pixel) * Weight;
    Color.Value[2] += BlueOf(Pixel) * Weight;
  }
  const TBitmap& FSource;
};

void ExpectNear(TColor Found, const TRgb& Wanted, TPixelFormat Format) {
  const int32_t Channels[3] = {RedOf(Found), GreenOf(Found), BlueOf(Found)};
  for (int32_t C = 0; C < 3; ++C) {
    const double V = Wanted.Value[C];
    // Half a level for rounding and a tenth for the integer weights.
    constexpr double Most = 0.6;
    if (Format != TPixelFormat::pf15bit) {
      ASSERT_NEAR(Channels[C], V, Most);
    } else {
      ASSERT_GE(Channels[C] / 8, static_cast<int32_t>(std::ceil(V - Most)) / 8);
      ASSERT_LE(Channels[C] / 8, static_cast<int32_t>(std::floor(V + Most)) / 8);
    }
  }
}

void CompareWithReference(const TBitmap& Source, TPixelFormat Format, const TRect& Dest,
                          const TRectDouble& Part, TStretchMode Mode, TRandom& Random) {
  const TBitmap Before = Random.Picture(40, 30, Format);
  TBitmap Target = Before;
  Stretch(Target, Dest, Source, Part, Mode);
  const TReference Reference(Source);
  for (int32_t Y = 0; Y < 30; ++Y) {
    for (int32_t X = 0; X < 40; ++X) {
      TRgb Color{};
      const bool Drawn = X >= Dest.Left && X < Dest.Right && Y >= Dest.Top && Y < Dest.Bottom &&
                         Reference.At(Dest, Part, X, Y, Mode, Color);
      if (!Drawn) {
        ASSERT_EQ(Target.Pixel(X, Y), Before.Pixel(X, Y)) << X << ' ' << Y;
      } else {
        ExpectNear(Target.Pixel(X, Y), Color, Format);
        if (testing::Test::HasFatalFailure()) {
          FAIL() << "at " << X << ' ' << Y << " of " << Dest.Left << ' ' << Dest.Top << ' '
                 << Dest.Right << ' ' << Dest.Bottom << " from " << Part.Left << ' ' << Part.Top
                 << ' ' << Part.Right << ' ' << Part.Bottom;
        }
      }
    }
  }
}

TEST(Stretch, AgreesWithTheDefinition) {
  TRandom Random(9);
  for (int32_t Round = 0; Round < 1200; ++Round) {
    const TPixelFormat From = AllFormats[Random.Bits() % 3];
    const TPixelFormat To = AllFormats[Random.Bits() % 3];
    const TBitmap Source = Random.Picture(Random.Whole(1, 90), Random.Whole(1, 70), From);
    // From a hundredth to a hundred times the size, wholly or partly in view, often sticking out.
    const TRect Dest{Random.Whole(-60, 20), Random.Whole(-50, 15), Random.Whole(21, 120),
                     Random.Whole(16, 90)};
    TRectDouble Part{Random.Real(-20, 40), Random.Real(-20, 30), 0, 0};
    Part.Right = Part.Left + std::exp(Random.Real(0, 7));
    Part.Bottom = Part.Top + std::exp(Random.Real(0, 7));
    if (Round % 4 == 0) Part = {0, 0, Source.Width() * 1.0, Source.Height() * 1.0};
    const TStretchMode Mode =
        Round % 5 == 0 ? TStretchMode::smColorOnColor : TStretchMode::smHalftone;
    CompareWithReference(Source, To, Dest, Part, Mode, Random);
    ASSERT_FALSE(HasFatalFailure()) << "round " << Round;
  }
}

// Scales that have a way of their own: one to one, one half, whole ones and their neighbours.
TEST(Stretch, SpecialScalesAgreeWithTheDefinition) {
  TRandom Random(10);
  for (const TPixelFormat From : AllFormats) {
    for (const TPixelFormat To : AllFormats) {
      const TBitmap Source = Random.Picture(83, 65, From);
      for (const double Scale : {1.0, 2.0, 3.0, 0.5, 0.25, 1.0001, 1.9999, 14.0, 14.01, 40.0}) {
        for (const double Offset : {0.0, 1.0, 0.5, -3.0}) {
          const TRect Dest{2, 1, 39, 28};
          const TRectDouble Part{Offset, Offset + 2, Offset + 37 * Scale, Offset + 2 + 27 * Scale};
          CompareWithReference(Source, To, Dest, Part, TStretchMode::smHalftone, Random);
          ASSERT_FALSE(HasFatalFailure()) << Scale << ' ' << Offset;
        }
      }
    }
  }
}

TEST(Stretch, OneColourStaysOneColour) {
  for (const TColor Color : {clWhite, clBlack, RgbColor(255, 1, 127)}) {
    TBitmap Source(70, 60, TPixelFormat::pf32bit);
    for (int32_t I = 0; I < 70 * 60; ++I) Source.SetPixel(I % 70, I / 70, Color);
    for (int32_t Step = 0; Step < 38; ++Step) {
      const double Width = 0.7 * std::pow(1.13, Step);
      TBitmap Target(23, 19, TPixelFormat::pf32bit);
      Stretch(Target, {0, 0, 23, 19}, Source, {0.3, 0.4, 0.3 + Width, 0.4 + Width * 0.8},
              TStretchMode::smHalftone);
      for (int32_t I = 0; I < 23 * 19; ++I) ASSERT_EQ(Target.Pixel(I % 23, I / 23), Color);
    }
  }
}

TRectDouble Moved(const TRectDouble& Part, double X, double Y) {
  return {Part.Left + X, Part.Top + Y, Part.Right + X, Part.Bottom + Y};
}

void ExpectSamePart(const TBitmap& Part, const TBitmap& Whole, TPoint Shift, int32_t Round) {
  for (int32_t Y = 0; Y < Part.Height(); ++Y) {
    for (int32_t X = 0; X < Part.Width(); ++X) {
      if (X + Shift.X < 0 || Y + Shift.Y < 0 || X + Shift.X >= Whole.Width() ||
          Y + Shift.Y >= Whole.Height()) {
        continue;
      }
      ASSERT_EQ(Part.Pixel(X, Y), Whole.Pixel(X + Shift.X, Y + Shift.Y)) << "round " << Round;
    }
  }
}

TEST(Stretch, PartsAndPannedViewsHaveThePixelsOfTheWhole) {
  TRandom Random(11);
  const TBitmap Source = Random.Picture(300, 200, TPixelFormat::pf32bit);
  for (int32_t Round = 0; Round < 600; ++Round) {
    const TPixelFormat Format = Round % 2 == 0 ? TPixelFormat::pf15bit : TPixelFormat::pf32bit;
    const TStretchMode Mode =
        Round % 3 == 0 ? TStretchMode::smColorOnColor : TStretchMode::smHalftone;
    // Magnifications that people choose, as well as any.
    constexpr double Usual[] = {0.1, 0.25, 1 / 3.0, 0.5, 0.6, 2 / 3.0, 0.9, 1, 1.25, 1.7, 2, 3.3};
    const double Magnification =
        Round % 2 == 0 ? Usual[Random.Bits() % 12] : std::exp(Random.Real(-3, 2));
    const double X = Round % 5 < 3 ? Random.Whole(-40, 200) : Random.Real(-40, 200);
    const double Y = Round % 5 < 3 ? Random.Whole(-40, 150) : Random.Real(-40, 150);
    const TRectDouble Part{X, Y, X + 60 / Magnification, Y + 50 / Magnification};
    TBitmap Whole(60, 50, Format);
    Stretch(Whole, {0, 0, 60, 50}, Source, Part, Mode);

    // The right lower part through a smaller target: the whole rectangles, shifted.
    TBitmap Corner(33, 27, Format);
    Stretch(Corner, {-27, -23, 33, 27}, Source, Part, Mode);
    ExpectSamePart(Corner, Whole, {27, 23}, Round);
    // In two halves, each with its own rectangles.
    TBitmap Halves(60, 50, Format);
    const double Middle = X + 23 / Magnification;
    Stretch(Halves, {0, 0, 23, 50}, Source, {X, Y, Middle, Part.Bottom}, Mode);
    Stretch(Halves, {23, 0, 60, 50}, Source, {Middle, Y, Part.Right, Part.Bottom}, Mode);
    ExpectSamePart(Halves, Whole, {0, 0}, Round);
    // Panned by whole target pixels.
    const TPoint Pan{Random.Whole(-9, 9), Random.Whole(-9, 9)};
    TBitmap Panned(60, 50, Format);
    Stretch(Panned, {0, 0, 60, 50}, Source,
            Moved(Part, Pan.X / Magnification, Pan.Y / Magnification), Mode);
    ExpectSamePart(Panned, Whole, Pan, Round);
    ASSERT_FALSE(HasFatalFailure());
  }
}

// The mapping itself, to the last bit: pictures would show a difference rarely.
TEST(Stretch, MappingDoesNotDependOnTheLastBitsOfTheRectangles) {
  for (const double Magnification : {0.1, 0.3, 1 / 3.0, 0.6, 2 / 3.0, 1.0, 1.1, 1.7, 2.0, 3.3}) {
    for (int32_t From = 0; From < 400; From += 7) {
      const TAxisMap Here(0, 1000, 1000, From, From + 1000 / Magnification, 100000);
      for (const int32_t Pan : {1, 3, 10, 77, 400}) {
        const double Moved = From + Pan / Magnification;
        const TAxisMap There(0, 1000, 1000, Moved, Moved + 1000 / Magnification, 100000);
        ASSERT_EQ(There.Begin(0), Here.Begin(Pan)) << Magnification << ' ' << From;
        ASSERT_EQ(There.Middle(500), Here.Middle(500 + Pan)) << Magnification << ' ' << From;
      }
    }
  }
}

TEST(Stretch, ExtremeRatios) {
  TBitmap One(1, 1, TPixelFormat::pf24bit);
  One.SetPixel(0, 0, clRed);
  for (const TStretchMode Mode : {TStretchMode::smColorOnColor, TStretchMode::smHalftone}) {
    TBitmap Long(5000, 3, TPixelFormat::pf15bit);
    Stretch(Long, {0, 0, 5000, 3}, One, {0, 0, 1, 1}, Mode);
    for (int32_t I = 0; I < 15000; ++I) ASSERT_EQ(Long.Pixel(I % 5000, I / 5000), clRed);
  }
  // The left half white, the rest black, and every second row darker by a third.
  TBitmap Long(5000, 3, TPixelFormat::pf32bit);
  for (int32_t I = 0; I < 7500; ++I) {
    Long.SetPixel(I % 2500, I / 2500, I / 2500 == 1 ? 0x555555U : clWhite);
  }
  TBitmap Dot(1, 1, TPixelFormat::pf32bit);
  Stretch(Dot, {0, 0, 1, 1}, Long, {0, 0, 5000, 3}, TStretchMode::smHalftone);
  EXPECT_NEAR(RedOf(Dot.Pixel(0, 0)), (255 + 85 + 255) / 6.0, 1);
  const TBitmap Before = Dot;
  Stretch(Dot, {0, 0, 1, 1}, Long, {5e8, 0, 5e9, 1e-300}, TStretchMode::smHalftone);
  EXPECT_EQ(Dot, Before);
}

TEST(Stretch, DrawsNothingFromNonsense) {
  TRandom Random(12);
  const TBitmap Source = Random.Picture(9, 9, TPixelFormat::pf32bit);
  const TBitmap Before = Random.Picture(8, 8, TPixelFormat::pf15bit);
  constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
  constexpr double Infinity = std::numeric_limits<double>::infinity();
  constexpr TRect All{0, 0, 8, 8};
  const std::pair<TRect, TRectDouble> Cases[] = {
      {{4, 0, 4, 8}, {0, 0, 9, 9}}, {{8, 0, 0, 8}, {0, 0, 9, 9}},
      {All, {3, 0, 3, 9}},          {All, {9, 0, 0, 9}},
      {All, {NaN, 0, 9, 9}},        {All, {0, 0, 9, NaN}},
      {All, {0, -Infinity, 9, 9}},  {All, {0, 0, Infinity, 9}},
      {All, {9, 0, 18, 9}},         {{9, 9, 20, 20}, {0, 0, 9, 9}},
      {All, {-1e308, 0, 1e308, 9}},
  };
  for (const auto& [Dest, Part] : Cases) {
    for (const TStretchMode Mode : {TStretchMode::smColorOnColor, TStretchMode::smHalftone}) {
      TBitmap Target = Before;
      Stretch(Target, Dest, Source, Part, Mode);
      EXPECT_EQ(Target, Before);
      Stretch(Target, Dest, TBitmap(), Part, Mode);
    }
  }
  TBitmap Self = Source;
  Stretch(Self, {0, 0, 9, 9}, Self, {2, 2, 5, 5}, TStretchMode::smHalftone);
  TBitmap Other(9, 9, TPixelFormat::pf32bit);
  Stretch(Other, {0, 0, 9, 9}, Source, {2, 2, 5, 5}, TStretchMode::smHalftone);
  EXPECT_EQ(Self, Other) << "from itself as from a copy";
}

}  // namespace
}  // namespace zav
