// SPDX-License-Identifier: MIT
#include <geomap/landmarks/symbol_drawing.h>
#include <geomap/landmarks/symbol_stamps.h>
#include <gtest/gtest.h>
#include <platform/base/paths.h>
#include <platform/base/random.h>
#include <platform/codec/image_file.h>
#include <platform/host/scaled_canvas.h>
#include <platform/raster/raster_canvas.h>
#include <support/recording_canvas.h>

#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

namespace zav {
namespace {

using enum TLandMarkElement;
constexpr auto NoElement = static_cast<TLandMarkElement>(10);
constexpr TColor FG = clBlue;
constexpr TColor BG = clYellow;
constexpr TColor Ground = clSilver;

TBitmap Paper(int32_t Width, int32_t Height, TPixelFormat Format = TPixelFormat::pf32bit) {
  TBitmap Bitmap(Width, Height, Format);
  TRasterCanvas Canvas(Bitmap);
  Canvas.Brush.Color = Ground;
  Canvas.FillRect({0, 0, Width, Height});
  return Bitmap;
}

// The calls for a symbol about (10, 20), worked out by hand.
TEST(Symbol, CallsOfEachShape) {
  struct TCase {
    TSymbolProperties Symbol;  // element, size, colours, transparent, direction, length
    std::string Calls;
  };
  // "!": with the pen in the other colour.
  const std::string Halo = "MoveTo 7,17 LineTo 7,23! LineTo 13,23! LineTo 13,17! LineTo 7,17! ";
  const std::string Outline = "MoveTo 7,17 LineTo 7,23 LineTo 13,23 LineTo 13,17 LineTo 7,17";
  const TCase Cases[] = {
      {{lmSquare, 3, FG, BG, false}, Halo + "Rectangle 8,18 13,23"},
      {{lmSquare, 3, FG, BG, true}, Outline},
      {{lmTriangle, 6, FG, BG, false, 0, 0}, "Polygon 10,14 15,23 5,23"},
      {{lmTriangle, 6, FG, BG, false, 90, 0}, "Polygon 16,20 7,25 7,15"},
      {{lmTriangle, 6, FG, BG, true, 90, 0}, "MoveTo 16,20 LineTo 7,25 LineTo 7,15 LineTo 16,20"},
      {{lmCircle, 3, FG, BG, false}, "Ellipse 7,17 13,23"},
      {{lmCircle, 3, FG, BG, true}, "Ellipse 7,17 13,23 clear"},
      {{lmArrowFrom, 5, FG, BG, false, 90, 10},
       "MoveTo 10,20 LineTo 20,20 Polygon 20,20 15,18 15,22"},
      {{lmArrowFrom, 5, FG, BG, true, 90, 10},
       "MoveTo 10,20 LineTo 20,20 MoveTo 20,20 LineTo 15,18 MoveTo 20,20 LineTo 15,22"},
      {{lmArrowFrom, 5, FG, BG, false, -270, 0},
       "MoveTo 10,20 LineTo 10,20 Polygon 10,20 5,18 5,22"},
      {{lmArrowTo, 5, FG, BG, false, 0, 10}, "MoveTo 10,10 LineTo 10,20 Polygon 10,20 12,15 8,15"},
      {{lmArrowTo, 5, FG, BG, true, 0, 10},
       "MoveTo 10,10 LineTo 10,20 MoveTo 10,20 LineTo 12,15 MoveTo 10,20 LineTo 8,15"},
      {{lmCrossBox, 3, FG, BG, false},
       Halo + "Rectangle 8,18 13,23 MoveTo 8,22 LineTo 13,17 MoveTo 12,22 LineTo 7,17"},
      {{lmCrossBox, 3, FG, BG, true},
       Outline + " MoveTo 7,17 LineTo 13,23 MoveTo 7,23 LineTo 13,17"},
      {{lmSpade, 3, FG, BG, false}, "Polygon 13,20 10,23 7,20 10,17"},
      {{lmSpade, 3, FG, BG, true},
       "MoveTo 10,17 LineTo 13,20 LineTo 10,23 LineTo 7,20 LineTo 10,17"},
      {{lmUserDef, 3, FG, BG, false}, ""},
      {{NoElement, 9, FG, BG, false}, "MoveTo 6,20 LineTo 15,20 MoveTo 10,16 LineTo 10,25"},
  };
  for (const TCase& Case : Cases) {
    TRecordingCanvas Canvas;
    DrawLandMarkSymbolOnCanvas(Canvas, 10, 20, Case.Symbol);
    std::string Calls;
    for (std::string Line : Canvas.Lines) {
      const bool Clear = Line.ends_with(" clear");
      const bool OfBG = Line.find(" pen 00FFFF") != Line.npos;
      EXPECT_TRUE(OfBG || Line.starts_with("MoveTo") || Line.find(" pen FF0000") != Line.npos);
      if (const size_t At = Line.find(" pen"); At != Line.npos) Line.resize(At);
      Calls += (Calls.empty() ? "" : " ") + Line + (OfBG ? "!" : "") + (Clear ? " clear" : "");
    }
    EXPECT_EQ(Calls, Case.Calls);
  }
}

// Both crosses have as their halo all pixels that touch them.
TEST(Symbol, CrossesAndTheirHalo) {
  for (const TLandMarkElement Kind : {lmPlus, lmCross}) {
    for (const int32_t Size : {0, 1, 7}) {
      for (const bool Transparent : {false, true}) {
        TBitmap Bitmap = Paper(41, 41);
        TRasterCanvas Canvas(Bitmap);
        DrawLandMarkSymbolOnCanvas(Canvas, 20, 20, Kind, FG, BG, Size, 45, 9, Transparent);
        EXPECT_EQ(Canvas.Pen.Color, FG);
        const auto IsOn = [&](int32_t X, int32_t Y) {
          if (std::abs(X) > Size || std::abs(Y) > Size) return false;
          return Kind == lmPlus ? X == 0 || Y == 0 : std::abs(X) == std::abs(Y);
        };
        for (int32_t Y = -20; Y <= 20; ++Y) {
          for (int32_t X = -20; X <= 20; ++X) {
            bool Touches = false;
            for (int32_t I = 0; I < 9; ++I) Touches |= IsOn(X + I % 3 - 1, Y + I / 3 - 1);
            const TColor Expected = IsOn(X, Y) ? FG : Touches && !Transparent ? BG : Ground;
            ASSERT_EQ(Bitmap.Pixel(20 + X, 20 + Y), Expected) << X << ',' << Y << " size " << Size;
          }
        }
      }
    }
  }
}

TEST(Symbol, OnlyAnUnfilledCircleChangesTheBrushStyle) {
  for (uint8_t Kind = 0; Kind <= 10; ++Kind) {
    for (const TBrushStyle Style : {TBrushStyle::bsSolid, TBrushStyle::bsClear}) {
      for (const bool Transparent : {false, true}) {
        TRecordingCanvas Canvas;
        Canvas.Brush.Style = Style;
        const auto Element = static_cast<TLandMarkElement>(Kind);
        DrawLandMarkSymbolOnCanvas(Canvas, 0, 0, Element, FG, BG, 5, 0, 9, Transparent);
        EXPECT_EQ(Canvas.Brush.Style,
                  Transparent && Element == lmCircle ? TBrushStyle::bsClear : Style);
      }
    }
  }
}

// --- the legend ----------------------------------------------------------------------------------

// A row each for a shape filled and not: sizes 0 to 20, then eight directions at size 9.
TBitmap Legend() {
  constexpr int32_t RowHeight = 46;
  TBitmap Bitmap = Paper(1000, 11 * 2 * RowHeight, TPixelFormat::pf24bit);
  TRasterCanvas Canvas(Bitmap);
  int32_t Y = RowHeight / 2;
  for (uint8_t Kind = 0; Kind <= 10; ++Kind) {
    for (const bool Transparent : {false, true}) {
      int32_t X = 0;
      const auto Draw = [&](int32_t Size, int32_t Direction, int32_t Length) {
        Canvas.Brush = {};
        DrawLandMarkSymbolOnCanvas(Canvas, X, Y, static_cast<TLandMarkElement>(Kind), FG, BG, Size,
                                   Direction, Length, Transparent);
      };
      for (int32_t Size = 0; Size <= 20; ++Size) {
        X += Size + 4;
        Draw(Size, 0, 16);
        X += Size + 3;
      }
      for (int32_t Direction = 0; Direction < 360; Direction += 45) {
        X += 24;
        Draw(9, Direction, 21);
        X += 24;
      }
      Y += RowHeight;
    }
  }
  return Bitmap;
}

// An uncompressed picture, to be looked at.
void WriteBmp(const std::string& Path, const TBitmap& Bitmap) {
  const size_t Size = Bitmap.Stride() * static_cast<size_t>(Bitmap.Height());
  std::string Bytes = "BM";
  const auto Put = [&](size_t Value, int Count) {
    for (int I = 0; I < Count; ++I) Bytes += static_cast<char>(Value >> (8 * I));
  };
  for (const size_t Value : {54 + Size, size_t{0}, size_t{54}, size_t{40}}) Put(Value, 4);
  Put(static_cast<size_t>(Bitmap.Width()), 4);
  Put(static_cast<size_t>(Bitmap.Height()), 4);
  Put(1, 2);
  Put(24, 2);
  for (int I = 0; I < 6; ++I) Put(0, 4);
  for (int32_t Y = Bitmap.Height() - 1; Y >= 0; --Y) {
    Bytes.append(reinterpret_cast<const char*>(Bitmap.Row(Y)), Bitmap.Stride());
  }
  FILE* File = std::fopen(Path.c_str(), "wb");
  ASSERT_NE(File, nullptr);
  std::fwrite(Bytes.data(), 1, Bytes.size(), File);
  std::fclose(File);
}

TEST(Symbol, LegendOfAllShapes) {
  const std::string Golden = ZAVGEO_TEST_DATA "/symbols/legend.bmp";
  const TBitmap Drawn = Legend();
  if (FileExists(Golden) &&
      LoadImageFile(Golden, TImageKind::ikBmp) == Drawn.Converted(TPixelFormat::pf32bit)) {
    return;
  }
  const std::string Actual = testing::TempDir() + "legend_actual.bmp";
  WriteBmp(Actual, Drawn);
  FAIL() << "see " << Actual << "; if it is right: convert " << Actual
         << " -type Palette -compress RLE BMP3:" << Golden;
}

// --- stamps --------------------------------------------------------------------------------------

TEST(Symbol, StampsAreThePixelsOfDrawing) {
  TSymbolStamps Stamps;
  TRandom Random(3);
  const auto Below = [&](int32_t Limit) {
    return static_cast<int32_t>(Random.Next() % static_cast<uint64_t>(Limit));
  };
  constexpr TPixelFormat Formats[] = {TPixelFormat::pf15bit, TPixelFormat::pf24bit,
                                      TPixelFormat::pf32bit};
  for (int32_t Round = 0; Round < 6000; ++Round) {
    const TSymbolProperties Symbol = {static_cast<TLandMarkElement>(Below(11)),
                                      Below(24) - 3,
                                      FG,
                                      BG,
                                      Below(2) == 0,
                                      15 * Below(50) - 360,
                                      Below(30) - 3};
    const double Scale = Round % 3 == 0 ? 1.0 : Round % 3 == 1 ? 2.0 : 1.25;
    const TPoint At = {Below(140) - 20, Below(140) - 20};  // also beyond the edges
    TBitmap Expected = Paper(100, 100, Formats[Round % 3]);
    TBitmap Stamped = Expected;
    TRasterCanvas Device(Expected);
    if (Scale == 1) {
      DrawLandMarkSymbolOnCanvas(Device, At.X, At.Y, Symbol);
    } else {
      TScaledCanvas Canvas(Device, Scale, At.X, At.Y);
      DrawLandMarkSymbolOnCanvas(Canvas, 0, 0, Symbol);
    }
    Stamps.Draw(Stamped, At, Symbol, Scale);
    ASSERT_EQ(Stamped, Expected) << "element " << static_cast<int>(Symbol.Kind) << " size "
                                 << Symbol.Size << " direction " << Symbol.Direction << " scale "
                                 << Scale << " at " << At.X << ',' << At.Y;
  }
}

TEST(Symbol, NoNumberIsTooLarge) {
  constexpr int32_t Low = std::numeric_limits<int32_t>::min();
  constexpr int32_t High = std::numeric_limits<int32_t>::max();
  TSymbolStamps Stamps;
  TBitmap Bitmap = Paper(50, 50);
  TRasterCanvas Canvas(Bitmap);
  for (uint8_t Kind = 0; Kind <= 10; ++Kind) {
    for (const int32_t Huge : {Low, -100000, 100000, High}) {
      for (const bool Transparent : {false, true}) {
        const TSymbolProperties Symbol = {
            static_cast<TLandMarkElement>(Kind), Huge, FG, BG, Transparent, Huge, Huge};
        for (const TPoint At : {TPoint{25, 25}, TPoint{Low, High}, TPoint{High, Low}}) {
          DrawLandMarkSymbolOnCanvas(Canvas, At.X, At.Y, Symbol);
          Stamps.Draw(Bitmap, At, Symbol, 1);
          Stamps.Draw(Bitmap, At, Symbol, 3);
        }
      }
    }
  }
}

}  // namespace
}  // namespace zav
