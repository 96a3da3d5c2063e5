// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <platform/raster/lines.h>
#include <platform/raster/raster_canvas.h>
#include <platform/raster/shapes.h>

#include "pictures.h"

namespace zav {
namespace {

using TWide = __int128;

constexpr int32_t Width = 34;
constexpr int32_t Height = 29;

TBitmap Ground(TPixelFormat Format = TPixelFormat::pf15bit) { return {Width, Height, Format}; }

constexpr TPen WhitePen{.Color = clWhite};
constexpr TPen NoPen{.Style = TPenStyle::psClear};
constexpr TBrush GrayBrush{.Color = clGray};
constexpr TBrush NoBrush{.Style = TBrushStyle::bsClear};

TEST(Shapes, RectanglesCoverTheirBoxInEitherOrder) {
  struct TCase {
    TRect Box;
    TPen Pen;
    TBrush Brush;
    const char* Picture;
  };
  const TCase Cases[] = {
      {{1, 0, 5, 3}, WhitePen, GrayBrush, ".####.\n.#oo#.\n.####.\n......\n"},
      {{5, 3, 1, 0}, WhitePen, NoBrush, ".####.\n.#..#.\n.####.\n......\n"},
      {{1, 0, 5, 3}, NoPen, GrayBrush, ".oooo.\n.oooo.\n.oooo.\n......\n"},
      {{2, 1, 3, 2}, WhitePen, GrayBrush, "......\n..#...\n......\n......\n"},
      {{2, 1, 2, 4}, WhitePen, GrayBrush, "......\n......\n......\n......\n"},
      {{2, 1, 6, 1}, WhitePen, GrayBrush, "......\n......\n......\n......\n"},
      {{-9, -9, 3, 2}, WhitePen, GrayBrush, "oo#...\n###...\n......\n......\n"},
      {{0, -9, 6, 99},
       {.Color = clWhite, .Width = 2},
       GrayBrush,
       "##oo##\n##oo##\n##oo##\n##oo##\n"},
      {{0, 0, 6, 4},
       {.Color = clWhite, .Style = TPenStyle::psDot},
       NoBrush,
       "###...\n.....#\n#....#\n##...#\n"},
  };
  for (const TPixelFormat Format : AllFormats) {
    for (const TCase& Case : Cases) {
      TBitmap Bitmap(6, 4, Format);
      DrawRectangle(Bitmap, Case.Box, Case.Pen, Case.Brush);
      EXPECT_EQ(AsText(Bitmap), Case.Picture);
    }
  }
}

TEST(Shapes, FillRectIgnoresPenAndBrushStyle) {
  TBitmap Bitmap(3, 2, TPixelFormat::pf15bit);
  TRasterCanvas Canvas(Bitmap);
  Canvas.Brush = {.Color = clWhite, .Style = TBrushStyle::bsClear};
  Canvas.FillRect({1, -5, 99, 1});
  EXPECT_EQ(AsText(Bitmap), ".##\n...\n");
}

// Against the true curve through the outermost pixel centres: what it encloses is covered, and what
// it does not even touch is not.
TEST(Shapes, EllipsesOfAllSizesAreSymmetricClosedAndTouchTheirBox) {
  for (int32_t W = 1; W <= 40; ++W) {
    for (int32_t H = 1; H <= 40; ++H) {
      TBitmap Bitmap(W + 2, H + 2, TPixelFormat::pf32bit);
      DrawEllipse(Bitmap, {1, 1, W + 1, H + 1}, WhitePen, GrayBrush);
      TBitmap Filled(W + 2, H + 2, TPixelFormat::pf32bit);
      DrawEllipse(Filled, {1, 1, W + 1, H + 1}, NoPen, GrayBrush);
      const double A = (W - 1) / 2.0;
      const double B = (H - 1) / 2.0;
      const auto Inside = [&](double X, double Y) {
        const double U = A > 0 ? X / A : X > 0 ? 2 : 0;
        const double V = B > 0 ? Y / B : Y > 0 ? 2 : 0;
        return U * U + V * V <= 1;
      };
      bool Left = false;
      bool Top = false;
      for (int32_t Y = 0; Y < H + 2; ++Y) {
        for (int32_t X = 0; X < W + 2; ++X) {
          const TColor Color = Bitmap.Pixel(X, Y);
          const bool Covered = Color != clBlack;
          ASSERT_EQ(Color, Bitmap.Pixel(W + 1 - X, Y));
          ASSERT_EQ(Color, Bitmap.Pixel(X, H + 1 - Y));
          ASSERT_EQ(Covered, Filled.Pixel(X, Y) != clBlack);
          const double DX = std::abs(X - 1 - A);
          const double DY = std::abs(Y - 1 - B);
          ASSERT_TRUE(Covered || !Inside(DX, DY)) << W << 'x' << H;
          if (Covered) {
            ASSERT_TRUE(Inside(std::max(DX - 0.5, 0.0), std::max(DY - 0.5, 0.0))) << W << 'x' << H;
          }
          if (Color == clGray) {
            for (const TPoint D : {TPoint{1, 0}, TPoint{-1, 0}, TPoint{0, 1}, TPoint{0, -1}}) {
              ASSERT_NE(Bitmap.Pixel(X + D.X, Y + D.Y), clBlack) << "leak at " << W << 'x' << H;
            }
          }
          Left = Left || (X == 1 && Covered);
          Top = Top || (Y == 1 && Covered);
        }
      }
      ASSERT_TRUE(Left && Top) << W << 'x' << H;
    }
  }
}

TEST(Shapes, EllipsesMayBeHugeOrWideLined) {
  TBitmap Bitmap(9, 7, TPixelFormat::pf15bit);
  DrawEllipse(Bitmap, {0, 0, 9, 7}, {.Color = clWhite, .Width = 2}, GrayBrush);
  EXPECT_EQ(AsText(Bitmap),
            "..#####..\n.#######.\n###ooo###\n##ooooo##\n###ooo###\n.#######.\n..#####..\n");
  // A quarter turn of the largest ellipse goes through the bitmap's corner and is nearly straight.
  Bitmap = TBitmap(9, 7, TPixelFormat::pf15bit);
  constexpr int32_t Far = INT32_MAX;
  DrawEllipse(Bitmap, {-Far, 3, Far, Far}, WhitePen, NoBrush);
  EXPECT_EQ(AsText(Bitmap),
            ".........\n.........\n.........\n#########\n.........\n.........\n"
            ".........\n");
}

enum class TPlace { Inside, Side, Outside };

// By the even-odd rule in exact arithmetic, for one pixel centre.
TPlace PlaceOf(TPoint P, const std::vector<TPoint>& Points) {
  bool Odd = false;
  for (size_t I = 0; I < Points.size(); ++I) {
    TPoint A = Points[I];
    TPoint B = Points[(I + 1) % Points.size()];
    if (A.Y > B.Y) std::swap(A, B);
    const TWide Cross =
        static_cast<TWide>(static_cast<int64_t>(B.X) - A.X) * (P.Y - A.Y) -
        static_cast<TWide>(static_cast<int64_t>(B.Y) - A.Y) * (static_cast<int64_t>(P.X) - A.X);
    const bool Within =
        P.X >= std::min(A.X, B.X) && P.X <= std::max(A.X, B.X) && P.Y >= A.Y && P.Y <= B.Y;
    if (Cross == 0 && Within) return TPlace::Side;
    // Cross < 0: the side passes left of the point.
    if (A.Y <= P.Y && P.Y < B.Y && Cross < 0) Odd = !Odd;
  }
  return Odd ? TPlace::Inside : TPlace::Outside;
}

TEST(Shapes, PolygonFillMeetsItsOutlineWithoutGapOrLeak) {
  TRandom Random(6);
  int64_t Seen = 0;
  for (int32_t Round = 0; Round < 6000; ++Round) {
    const TPixelFormat Format = AllFormats[Random.Bits() % 3];
    std::vector<TPoint> Points(1 + Random.Bits() % 7);
    for (TPoint& P : Points) P = Random.Point();
    TBitmap Bitmap = Ground(Format);
    DrawPolygon(Bitmap, Points, WhitePen, GrayBrush);
    TBitmap Outline = Ground(Format);
    DrawPolyline(Outline, Points, true, WhitePen);
    for (int32_t Y = 0; Y < Height; ++Y) {
      for (int32_t X = 0; X < Width; ++X) {
        const TPlace Place = PlaceOf({X, Y}, Points);
        const bool OnLine = Outline.Pixel(X, Y) != clBlack;
        ASSERT_TRUE(OnLine || Place != TPlace::Side);
        const char Wanted = OnLine ? '#' : Place == TPlace::Inside ? 'o' : '.';
        const TColor Color = Bitmap.Pixel(X, Y);
        const char Found = Color == clBlack ? '.' : Color == clWhite ? '#' : 'o';
        ASSERT_EQ(Found, Wanted) << "round " << Round << " at " << X << ' ' << Y;
        if (Found != 'o') continue;
        ++Seen;
        for (const TPoint D : {TPoint{1, 0}, TPoint{0, 1}, TPoint{-1, 0}, TPoint{0, -1}}) {
          const TPoint N{X + D.X, Y + D.Y};
          if (N.X < 0 || N.Y < 0 || N.X >= Width || N.Y >= Height) continue;
          ASSERT_NE(Bitmap.Pixel(N.X, N.Y), clBlack) << "leak in round " << Round;
        }
      }
    }
  }
  EXPECT_GT(Seen, 100000) << "the polygons must be in view";
}

TEST(Shapes, DegeneratePolygons) {
  const std::pair<std::vector<TPoint>, const char*> Cases[] = {
      {{}, "....\n....\n"},
      {{{1, 1}}, "....\n.#..\n"},
      {{{1, 1}, {1, 1}, {1, 1}}, "....\n.#..\n"},
      {{{0, 1}, {3, 1}}, "....\n####\n"},
      {{{0, 0}, {3, 0}, {1, 0}}, "####\n....\n"},
  };
  for (const auto& [Points, Picture] : Cases) {
    TBitmap Bitmap(4, 2, TPixelFormat::pf15bit);
    TRasterCanvas Canvas(Bitmap);
    Canvas.Pen = WhitePen;
    Canvas.Brush = GrayBrush;
    Canvas.Polygon(Points);
    EXPECT_EQ(AsText(Bitmap), Picture);
  }
}

// Two triangles without outline that share a side cover their quadrangle once.
TEST(Shapes, NeighbouringFillsNeitherOverlapNorLeaveGaps) {
  TRandom Random(7);
  for (int32_t Round = 0; Round < 2000; ++Round) {
    std::vector<TPoint> Quad(4);
    for (TPoint& P : Quad) P = Random.Point();
    TPen Invert = NoPen;
    Invert.Mode = TPenMode::pmXor;
    TBitmap Whole = Ground();
    DrawPolygon(Whole, Quad, Invert, GrayBrush);
    TBitmap Parts = Ground();
    DrawPolygon(Parts, std::vector{Quad[0], Quad[1], Quad[2]}, Invert, GrayBrush);
    DrawPolygon(Parts, std::vector{Quad[0], Quad[2], Quad[3]}, Invert, GrayBrush);
    ASSERT_EQ(Parts, Whole);
  }
}

TEST(Shapes, ExclusiveOrTouchesEachPixelOnce) {
  TRandom Random(8);
  for (int32_t Round = 0; Round < 6000; ++Round) {
    const TPixelFormat Format = AllFormats[Random.Bits() % 3];
    TPen Pen = WhitePen;
    Pen.Style = static_cast<TPenStyle>(Random.Bits() % 3);
    Pen.Width = Random.Whole(0, 8) % 6;
    const TBrush Brush = Random.Bits() % 4 == 0 ? NoBrush : GrayBrush;
    std::vector<TPoint> Points(2 + Random.Bits() % 6);
    for (TPoint& P : Points) P = Random.Point();
    const TRect Box{Points[0].X, Points[0].Y, Points[1].X, Points[1].Y};
    const auto Draw = [&](TBitmap& Bitmap, TPenMode Mode) {
      Pen.Mode = Mode;
      if (Round % 3 == 0) DrawRectangle(Bitmap, Box, Pen, Brush);
      if (Round % 3 == 1) DrawEllipse(Bitmap, Box, Pen, Brush);
      if (Round % 3 == 2) DrawPolygon(Bitmap, Points, Pen, Brush);
    };
    TBitmap Copied = Ground(Format);
    TBitmap Inverted = Copied;
    Draw(Copied, TPenMode::pmCopy);
    Draw(Inverted, TPenMode::pmXor);
    ASSERT_EQ(Inverted, Copied) << "round " << Round;
    const TBitmap Before = Random.Picture(Width, Height, Format);
    TBitmap Twice = Before;
    Draw(Twice, TPenMode::pmXor);
    Draw(Twice, TPenMode::pmXor);
    ASSERT_EQ(Twice, Before) << "round " << Round;
  }
}

}  // namespace
}  // namespace zav
