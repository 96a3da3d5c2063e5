// empty_map_test.cpp - maps that the control makes itself: lines, labels, calibration, files.
// SPDX-License-Identifier: MIT
#include <geomap/view/empty_map.h>
#include <gtest/gtest.h>
#include <platform/base/read_file.h>
#include <support/failing_file_ops.h>
#include <support/recording_canvas.h>
#include <support/temp_folder.h>

#include <cmath>
#include <limits>
#include <memory>

#include "map_support.h"

namespace zav {
namespace {

TEST(EmptyMap, LinesAreDrawnWhereDegreesAre) {
  TRecordingCanvas Canvas;
  // Corners the wrong way round; 10 pixels a degree east, 20 north. Multiples below a southern
  // border are outside.
  DrawEmptyMap(MakeEmptyMap(2.5, -2, -2.5, 18, 2, 5, 200, 100, false), Canvas);
  const char* const Expected[] = {
      "Polyline 0,90 200,90 pen A0A0A0",   "Polyline 0,50 200,50 pen A0A0A0",
      "Polyline 0,10 200,10 pen A0A0A0",   "Polyline 20,0 20,100 pen A0A0A0",
      "Polyline 70,0 70,100 pen A0A0A0",   "Polyline 120,0 120,100 pen A0A0A0",
      "Polyline 170,0 170,100 pen A0A0A0",
  };
  ASSERT_GE(Canvas.Lines.size(), 8U) << Canvas.Text();
  EXPECT_EQ(Canvas.Lines[0], "FillRect 0,0 200,100 brush FFFFFF");
  for (size_t I = 0; I < std::size(Expected); ++I) EXPECT_EQ(Canvas.Lines[I + 1], Expected[I]);

  TRecordingCanvas Framed;
  DrawEmptyMap(MakeEmptyMap(0, 0, 1, 1, 1, 1, 160, 120, true), Framed);
  EXPECT_EQ(Framed.Lines[1], "Polyline 30,30 130,30 130,90 30,90 30,30 pen 000000");
  EXPECT_EQ(Framed.Lines[2], "Polyline 26,26 134,26 134,94 26,94 26,26 pen 000000 dot");
  EXPECT_EQ(Framed.Lines[3], "Polyline 30,90 130,90 pen A0A0A0 dot");
  EXPECT_EQ(Framed.CountOf("Polyline"), 6U);

  // No grid distance makes more lines than pixels, and the borders are always lines.
  for (const double Dist : {1e-9, 1e-300, 0.1, 0.3}) {
    TRecordingCanvas Dense;
    DrawEmptyMap(MakeEmptyMap(0, 0, 0.9, 0.9, Dist, 5, 100, 100, false), Dense);
    EXPECT_LE(Dense.CountOf("Polyline"), 103U) << Dist;
    EXPECT_GE(Dense.CountOf("Polyline 0,100 "), Dist < 1e-200 ? 0U : 1U) << Dist;
    if (Dist >= 0.1) {
      EXPECT_EQ(Dense.CountOf("Polyline 0,0 100,0"), 1U) << Dist;
    }
  }
  // Beyond all numbers there are no lines.
  TRecordingCanvas Far;
  DrawEmptyMap(MakeEmptyMap(1e308, 0, 1.0000000000000002e308, 1, 0.1, 5, 100, 100, false), Far);
  EXPECT_EQ(Far.CountOf("Polyline"), 1U);
  for (const double Same : {0.0, 90.0}) {
    TRecordingCanvas Nothing;
    DrawEmptyMap(MakeEmptyMap(Same, 10, Same, 10, 1, 1, 100, 100, true), Nothing);
    EXPECT_EQ(Nothing.CountOf("Polyline"), 2U);
  }
}

TEST(EmptyMap, LabelsTellTheDegreesOfTheirGrid) {
  const struct {
    double Value, Dist;
    const char* North;
    const char* East;
  } Cases[] = {
      {45, 1, " 45° N ", " 45° E "},
      {-45, 5, " 45° S ", " 45° W "},
      {0, 10, " 0° N ", " 0° E "},
      {45.5, 0.5, " 45°30' N ", " 45°30' E "},
      {-1.5, 1.5, " 1°30' S ", " 1°30' W "},
      {10.05, 0.05, " 10°03'00\" N ", " 10°03'00\" E "},
      {10.06, 0.06, " 10°03'36\" N ", " 10°03'36\" E "},
      {0.07, 0.07, " 0°04.2' N ", " 0°04.2' E "},
      {0.0001, 0.0001, " 0°00'00.36\" N ", " 0°00'00.36\" E "},
  };
  for (const auto& Case : Cases) {
    EXPECT_EQ(EmptyMapLatitudeText(Case.Value, Case.Dist), Case.North);
    EXPECT_EQ(EmptyMapLongitudeText(Case.Value, Case.Dist), Case.East);
  }
}

TEST(EmptyMap, LabelsStayApartAndInside) {
  TRecordingCanvas Canvas;
  for (const bool Margin : {false, true}) {
    for (const double Dist : {0.01, 0.1, 0.5, 1.0, 7.0}) {
      for (const auto& [Width, Height] : {std::pair{100, 100}, {733, 411}, {1200, 100}}) {
        const TEmptyMap Map = MakeEmptyMap(-12, 120, 11, 190, Dist, Dist, Width, Height, Margin);
        const auto Labels = EmptyMapLabels(Map, Canvas);
        for (size_t I = 0; I < Labels.size(); ++I) {
          const TRect& Box = Labels[I].Box;
          EXPECT_TRUE(Box.Left >= 0 && Box.Top >= 0 && Box.Right <= Width && Box.Bottom <= Height);
          for (size_t K = 0; K < I; ++K) {
            const TRect& Other = Labels[K].Box;
            EXPECT_FALSE(Box.Left < Other.Right && Other.Left < Box.Right &&
                         Box.Top < Other.Bottom && Other.Top < Box.Bottom)
                << Labels[I].Text << Labels[K].Text;
          }
        }
      }
    }
  }
  // Where there is room every line has its label; in the frame it has two.
  EXPECT_EQ(EmptyMapLabels(MakeEmptyMap(45, 10, 50, 20, 1, 1, 1000, 500, false), Canvas).size(),
            6U + 11U);
  EXPECT_EQ(EmptyMapLabels(MakeEmptyMap(45, 10, 50, 20, 1, 1, 1000, 500, true), Canvas).size(),
            2 * (6U + 11U));
}

struct TDrawn {
  TGeoMap* Sender = nullptr;
  double Values[4] = {};
  int32_t Width = 0, Height = 0;
} Drawn;

// A plain function, as applications have.
void DrawDot(TGeoMap* Sender, TCanvas& Canvas, double LatLow, double LongLow, double LatHigh,
             double LongHigh, int32_t Width, int32_t Height) {
  Drawn = {Sender, {LatLow, LongLow, LatHigh, LongHigh}, Width, Height};
  Canvas.Brush.Color = clRed;
  Canvas.FillRect({Width - 40, 7, Width - 38, 9});
}

TEST(EmptyMap, IsCalibratedInTheControl) {
  TTestMap T;
  int Painted = T.Seen.Paints;
  T.Map.CreateEmptyMapInMemory(50, 20, 45, 10, 1, 0, 1000, 500, false, DrawDot);
  EXPECT_EQ(T.Seen.Paints, Painted + 1);
  EXPECT_EQ(T.Map.MapImgFile(), "$unknown$");
  EXPECT_EQ(T.Map.GetMapCaption(), "Map generated by TGeoMap");
  EXPECT_EQ(T.Map.CalibModel(), TCalibModel::cmEquiRect);
  EXPECT_EQ(T.Map.CalibData().NumCalQuads, 9);
  EXPECT_EQ(T.Map.CalibData().CalQuads[8], (TCalQuad{50, 20, 1000, 0}));
  EXPECT_EQ(T.Map.MapBitmap().PixelFormat(), TPixelFormat::pf24bit);
  EXPECT_EQ(T.Map.MapBitmap().Pixel(961, 8), clRed);
  EXPECT_EQ(Drawn.Sender, &T.Map);
  EXPECT_EQ((std::vector<double>(Drawn.Values, Drawn.Values + 4)),
            (std::vector<double>{45, 10, 50, 20}));
  EXPECT_EQ(Drawn.Width, 1000);

  bool Valid = false;
  EXPECT_NEAR(T.Map.CalcLatitude(0, 500, Valid), 45, 1e-9);
  EXPECT_NEAR(T.Map.CalcLongitude(0, 500, Valid), 10, 1e-9);
  EXPECT_NEAR(T.Map.CalcLatitude(500, 250, Valid), 47.5, 1e-9);
  EXPECT_NEAR(T.Map.CalcLongitude(500, 250, Valid), 15, 1e-9);

  T.Map.CreateEmptyMapInMemory(45, 10, 50, 20, 1, 1, 50, 101, true, nullptr);
  EXPECT_EQ(T.Map.MapImgWidth(), 100);
  int32_t X = 0, Y = 0;
  EXPECT_TRUE(T.Map.CalcPixelCoords(50, 10, X, Y));
  EXPECT_EQ((TPoint{X, Y}), (TPoint{30, 30}));
  EXPECT_TRUE(T.Map.CalcPixelCoords(45, 20, X, Y));
  EXPECT_EQ((TPoint{X, Y}), (TPoint{70, 71}));

  const double NaN = std::numeric_limits<double>::quiet_NaN();
  const auto Refused = [&](double Lat, int32_t Side) {
    return ErrorOf<EZAVGeoMapError>(
        [&] { T.Map.CreateEmptyMapInMemory(Lat, 1, 2, 3, 1, 1, Side, Side, false, nullptr); });
  };
  EXPECT_NE(Refused(NaN, 100).find("Component \"GeoMap1\": "), std::string::npos);
  EXPECT_NE(Refused(1, 40000).find("40000 x 40000"), std::string::npos);
  EXPECT_EQ(T.Map.MapImgWidth(), 100);
}

TEST(EmptyMap, IsWrittenAndLoaded) {
  const TTempFolder Folder;
  TTestMap T;
  const auto Create = [&](const std::string& Name, int32_t Side) {
    return ErrorOf<EZAVError>([&] {
      T.Map.CreateAndLoadEmptyMap(Folder / Name, 45, 10, 50, 20, 0.5, 1, Side, 500, DrawDot);
    });
  };
  EXPECT_EQ(Create("Alps.xml", 1000), "");
  EXPECT_EQ(Folder.Names(), (std::vector<std::string>{"Alps.bmp", "Alps.xml"}));
  EXPECT_EQ(T.Map.MapImgWidth(), 1000);
  EXPECT_EQ(T.Map.MapBitmap().Pixel(961, 8), clRed);
  bool Valid = false;
  EXPECT_NEAR(T.Map.CalcLongitude(500, 250, Valid), 15, 1e-5);
  EXPECT_NEAR(T.Map.CalibData().Corners[gcoTopLeft].Latit, 50, 1e-5);

  // What could not be loaded, or named in the file, is not written either.
  EXPECT_NE(Create("large.xml", 6001).find("size of map is 6001 x 500"), std::string::npos);
  EXPECT_NE(Create("a\"b.xml", 100), "");
  EXPECT_EQ(Folder.Names().size(), 2U);

  // Each file is the old or the new one.
  const std::string Image = ReadWholeTextFile(Folder / "Alps.bmp");
  const std::string Calibration = ReadWholeTextFile(Folder / "Alps.xml");
  TFailingFileOps Ops;
  const TFileOpsOverride With(Ops);
  int Failures = 0;
  for (int Operation = 1;; ++Operation) {
    Ops.Arm(Operation);
    const std::string Error = Create("Alps.xml", 800);
    if (!Ops.Failed()) break;
    ++Failures;
    EXPECT_NE(Error, "");
    EXPECT_EQ(Folder.Names().size(), 2U) << Operation;
    EXPECT_TRUE(ReadWholeTextFile(Folder / "Alps.xml") == Calibration) << Operation;
    EXPECT_EQ(ReadImageSize(Folder / "Alps.bmp", TImageKind::ikBmp).Height, 500);
  }
  EXPECT_GT(Failures, 4);
  EXPECT_NE(ReadWholeTextFile(Folder / "Alps.bmp"), Image);
}

TEST(EmptyMap, TheHandlerMayDestroyTheControl) {
  TTestHost Host;
  const TTempFolder Folder;
  for (const bool File : {false, true}) {
    auto Map = std::make_unique<TGeoMap>(nullptr, Host);
    const auto Destroy = [&](TGeoMap*, TCanvas&, double, double, double, double, int32_t, int32_t) {
      Map.reset();
    };
    if (File)
      Map->CreateAndLoadEmptyMap(Folder / "m.xml", 0, 0, 1, 1, 1, 1, 100, 100, Destroy);
    else
      Map->CreateEmptyMapInMemory(0, 0, 1, 1, 1, 1, 100, 100, true, Destroy);
    EXPECT_EQ(Map, nullptr);
  }
  EXPECT_TRUE(Folder.Names().empty());
}

}  // namespace
}  // namespace zav
