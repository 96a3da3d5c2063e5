// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <platform/raster/raster_canvas.h>

#include "pictures.h"

namespace zav {
namespace {

using TWide = __int128;

constexpr int32_t Width = 31;
constexpr int32_t Height = 27;

TWide FloorDivide(TWide A, TWide B) { return A / B - (A % B != 0 && (A < 0) != (B < 0) ? 1 : 0); }

// The place across the longer axis, at a position along it, from the rule alone: the nearest whole
// number to A1 + (Position - B1) * (A2 - A1) / (B2 - B1), the lower one of two equally near.
int64_t Across(int64_t Position, int64_t B1, int64_t A1, int64_t B2, int64_t A2) {
  const TWide Run = B2 - B1;
  const TWide Twice = 2 * static_cast<TWide>(Position - B1) * (A2 - A1);
  const TWide Sign = Run < 0 ? -1 : 1;
  return static_cast<int64_t>(A1 - FloorDivide(Run * Sign - Twice * Sign, 2 * Run * Sign));
}

TBitmap LineByRule(TPoint From, TPoint To, TPixelFormat Format) {
  TBitmap Result(Width, Height, Format);
  const int64_t DX = std::abs(static_cast<int64_t>(To.X) - From.X);
  const int64_t DY = std::abs(static_cast<int64_t>(To.Y) - From.Y);
  const auto Between = [](int64_t V, int64_t First, int64_t Excluded) {
    return V != Excluded && V >= std::min(First, Excluded) && V <= std::max(First, Excluded);
  };
  if (DX >= DY) {
    for (int32_t X = 0; X < Width; ++X) {
      if (!Between(X, From.X, To.X)) continue;
      const int64_t Y = Across(X, From.X, From.Y, To.X, To.Y);
      if (Y >= 0 && Y < Height) Result.SetPixel(X, static_cast<int32_t>(Y), clWhite);
    }
  } else {
    for (int32_t Y = 0; Y < Height; ++Y) {
      if (!Between(Y, From.Y, To.Y)) continue;
      const int64_t X = Across(Y, From.Y, From.X, To.Y, To.X);
      if (X >= 0 && X < Width) Result.SetPixel(static_cast<int32_t>(X), Y, clWhite);
    }
  }
  return Result;
}

struct TDrawing {
  explicit TDrawing(TPixelFormat Format = TPixelFormat::pf15bit)
      : Bitmap(Width, Height, Format), Canvas(Bitmap) {
    Canvas.Pen.Color = clWhite;
  }
  void Line(TPoint From, TPoint To) {
    Canvas.MoveTo(From.X, From.Y);
    Canvas.LineTo(To.X, To.Y);
  }
  TBitmap Bitmap;
  TRasterCanvas Canvas;
};

TEST(Lines, LeaveOutTheLastPixelAndBreakTiesUpAndLeft) {
  TBitmap Bitmap(5, 3, TPixelFormat::pf15bit);
  TRasterCanvas Canvas(Bitmap);
  Canvas.Pen.Color = clWhite;
  Canvas.MoveTo(0, 0);
  Canvas.LineTo(4, 2);
  EXPECT_EQ(AsText(Bitmap), "##...\n..##.\n.....\n");
  Bitmap = TBitmap(5, 3, TPixelFormat::pf15bit);
  Canvas.MoveTo(4, 2);
  Canvas.LineTo(0, 0);
  EXPECT_EQ(AsText(Bitmap), ".#...\n..##.\n....#\n");
}

TEST(Lines, FollowTheRuleWhereverTheirEndsAre) {
  TRandom Random(4);
  for (int32_t Round = 0; Round < 30000; ++Round) {
    const TPixelFormat Format = AllFormats[Random.Bits() % 3];
    TPoint From = Random.Point();
    TPoint To = Random.Point();
    // Ends far away on both sides of a pixel in view, which is where an error term goes wrong.
    if (Round % 2 == 0) {
      const TPoint Seen{Random.Whole(0, Width - 1), Random.Whole(0, Height - 1)};
      To = {static_cast<int32_t>(std::clamp<int64_t>(2LL * Seen.X - From.X, INT32_MIN, INT32_MAX)),
            static_cast<int32_t>(std::clamp<int64_t>(2LL * Seen.Y - From.Y, INT32_MIN, INT32_MAX))};
    }
    TDrawing Drawing(Format);
    Drawing.Line(From, To);
    ASSERT_EQ(Drawing.Bitmap, LineByRule(From, To, Format))
        << From.X << ' ' << From.Y << " to " << To.X << ' ' << To.Y;
  }
}

TEST(Lines, DotsRunOnAlongLinesAndUnderClipping) {
  TDrawing Drawing;
  Drawing.Canvas.Pen.Style = TPenStyle::psDot;
  Drawing.Canvas.MoveTo(-4, 0);  // off, then on from 2 on
  Drawing.Canvas.LineTo(4, 0);
  Drawing.Canvas.LineTo(4, 9);
  const std::vector<TPoint> Path{{-4, 0}, {4, 0}, {4, 9}};
  TDrawing Poly;
  Poly.Canvas.Pen.Style = TPenStyle::psDot;
  Poly.Canvas.Polyline(Path);
  EXPECT_EQ(Drawing.Bitmap, Poly.Bitmap);
  std::vector<TPoint> On;
  for (int32_t Y = 0; Y < Height; ++Y) {
    for (int32_t X = 0; X < Width; ++X) {
      if (Drawing.Bitmap.Pixel(X, Y) != clBlack) On.push_back({X, Y});
    }
  }
  // Pixels 6..8, 12..14 and the end of the run of 18 of the path are on.
  EXPECT_EQ(On, (std::vector<TPoint>{{2, 0}, {3, 0}, {4, 0}, {4, 4}, {4, 5}, {4, 6}}));
  Drawing.Bitmap = TBitmap(Width, Height, TPixelFormat::pf15bit);
  Drawing.Line({2, 2}, {6, 2});
  EXPECT_EQ(Drawing.Bitmap.Pixel(2, 2), clWhite) << "a new start begins with a dot";
  EXPECT_EQ(Drawing.Bitmap.Pixel(5, 2), clBlack);
}

// A pen of two pixels makes the picture of a line with doubled pixels.
TEST(Lines, WidePensDoubleStraightLines) {
  struct TCase {
    TPoint From, To, DoubleFrom, DoubleTo;
  };
  for (const TCase& Case :
       {TCase{{2, 3}, {9, 3}, {4, 6}, {17, 6}}, TCase{{4, 9}, {4, 2}, {8, 18}, {8, 5}}}) {
    TDrawing Single;
    Single.Line(Case.From, Case.To);
    TDrawing Double;
    Double.Canvas.Pen.Width = 2;
    Double.Line(Case.DoubleFrom, Case.DoubleTo);
    for (int32_t Y = 0; Y < Height; ++Y) {
      for (int32_t X = 0; X < Width; ++X) {
        ASSERT_EQ(Double.Bitmap.Pixel(X, Y), Single.Bitmap.Pixel(X / 2, Y / 2)) << X << ' ' << Y;
      }
    }
  }
  // Round: five rows of 3, 5, 5, 5, 3 pixels about the one pixel of the line.
  TBitmap Dot(7, 7, TPixelFormat::pf32bit);
  TRasterCanvas Canvas(Dot);
  Canvas.Pen = {.Color = clWhite, .Width = 5};
  Canvas.MoveTo(3, 3);
  Canvas.LineTo(4, 3);
  EXPECT_EQ(AsText(Dot), ".......\n..###..\n.#####.\n.#####.\n.#####.\n..###..\n.......\n");
}

// A wide line in the middle of a larger bitmap and the same line cut by the sides of a small one.
TEST(Lines, WidePensAreTheSameUnderClipping) {
  TRandom Random(13);
  constexpr int32_t Margin = 100;
  for (int32_t Round = 0; Round < 4000; ++Round) {
    TPen Pen{.Color = clWhite, .Width = Random.Whole(2, 7)};
    if (Round % 4 == 0) Pen.Style = TPenStyle::psDot;
    std::vector<TPoint> Points(3);
    for (TPoint& P : Points) P = {Random.Whole(-60, 90), Random.Whole(-60, 90)};
    TDrawing Small;
    Small.Canvas.Pen = Pen;
    Small.Canvas.Polyline(Points);
    TBitmap Large(Width + 2 * Margin, Height + 2 * Margin, TPixelFormat::pf15bit);
    TRasterCanvas Canvas(Large);
    Canvas.Pen = Pen;
    for (TPoint& P : Points) P = {P.X + Margin, P.Y + Margin};
    Canvas.Polyline(Points);
    TDrawing Middle;
    Middle.Canvas.CopyRect(0, 0, Large, {Margin, Margin, Margin + Width, Margin + Height});
    ASSERT_EQ(AsText(Small.Bitmap), AsText(Middle.Bitmap)) << "round " << Round;
  }
}

// On black, exclusive-or of every pixel once is the same as drawing; on anything, twice restores.
TEST(Lines, ExclusiveOrTouchesEachPixelOnce) {
  TRandom Random(5);
  for (int32_t Round = 0; Round < 3000; ++Round) {
    const TPixelFormat Format = AllFormats[Random.Bits() % 3];
    std::vector<TPoint> Points(Random.Bits() % 6);
    for (TPoint& P : Points) P = Random.Point();
    TDrawing Copied(Format);
    TPen& Pen = Copied.Canvas.Pen;
    Pen.Style = Round % 3 == 0 ? TPenStyle::psDot : TPenStyle::psSolid;
    Pen.Width = Random.Whole(0, 6) % 5;
    Copied.Canvas.Polyline(Points);
    TDrawing Inverted(Format);
    Inverted.Canvas.Pen = Pen;
    Inverted.Canvas.Pen.Mode = TPenMode::pmXor;
    Inverted.Canvas.Polyline(Points);
    ASSERT_EQ(Inverted.Bitmap, Copied.Bitmap);
    const TBitmap Before = Random.Picture(Width, Height, Format);
    Inverted.Bitmap = Before;
    Inverted.Canvas.Pen.Color = Random.Bits();
    for (int32_t Time = 0; Time < 2; ++Time) {
      for (const TPoint P : Points) Inverted.Canvas.LineTo(P.X, P.Y);
      Inverted.Canvas.MoveTo(0, 0);
    }
    // The same start both times: the first run began where the canvas had been left.
    ASSERT_EQ(Inverted.Bitmap, Before);
  }
}

}  // namespace
}  // namespace zav
