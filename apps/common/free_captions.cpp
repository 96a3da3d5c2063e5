// free_captions.cpp - see free_captions.h.
// SPDX-License-Identifier: MIT
#include "common/free_captions.h"

#include <algorithm>
#include <cmath>

#include <geomap/landmarks/caption_drawing.h>
#include <geomap/landmarks/symbol_drawing.h>

namespace zav {

namespace {

constexpr int32_t CellWidth = 96;
constexpr int32_t CellHeight = 32;
constexpr int32_t LargestBox = 4000;  // of what is asked about, pixels

bool Overlap(const TRect& A, const TRect& B) noexcept {
  return A.Left < B.Right && B.Left < A.Right && A.Top < B.Bottom && B.Top < A.Bottom;
}

int64_t CellOf(int32_t Column, int32_t Row) noexcept { return int64_t{Column} * 1000003 + Row; }

// Degrees that two positions may differ and be the same place of a map.
constexpr double FarthestOff = 5;

}  // namespace

bool IsPlacedRight(const TCalibration& Calibration, double Lat, double Long) {
  double X = 0;
  double Y = 0;
  TCoords Back;
  if (!Calibration.ToPixel(Lat, Long, X, Y) || !Calibration.ToGeo(X, Y, Back)) return false;
  const double East = std::remainder(Back.Longit - Long, 360);
  return std::fabs(Back.Latit - Lat) < FarthestOff &&
         (std::fabs(East) < FarthestOff || std::fabs(Lat) > 90 - FarthestOff);
}

TFreeCaptions::~TFreeCaptions() { Detach(); }

void TFreeCaptions::Detach() {
  if (!FAttached) return;
  FMap.OnBeforeRenderData = nullptr;
  FMap.OnDrawLandmark = nullptr;
  FAttached = false;
}

void TFreeCaptions::SetCaptions(TCaptions Captions) {
  FCaptions = Captions;
  Update();
}

void TFreeCaptions::Update() {
  const int32_t Count = FMap.NumLandMarks();
  if (Count == 0 || Count > MostLandMarks) return Detach();
  if (FAttached) return;
  FAttached = true;
  FMap.OnBeforeRenderData = [this](TGeoMap*, TCanvas&) { FTaken.clear(); };
  FMap.OnDrawLandmark = [this](TGeoMap*, bool& Handled, TCanvas& Canvas, TPoint Position,
                               const TLandMark& LandMark) {
    Handled = Draw(Canvas, Position, LandMark);
  };
}

bool TFreeCaptions::Draw(TCanvas& Canvas, TPoint Position, const TLandMark& LandMark) {
  const TSize Drawn = FMap.DrawnSize();
  const bool Inside =
      Position.X > 0 && Position.Y > 0 && Position.X < Drawn.Width && Position.Y < Drawn.Height;
  if (!Inside) return false;
  if (!IsPlacedRight(FMap.Calibration(), LandMark.Latitude, LandMark.Longitude)) return true;
  if (FCaptions == TCaptions::All || LandMark.Caption.Text.View().empty()) return false;
  if (FCaptions == TCaptions::Free) {
    const TCaptionPlace Place = PlaceCaption(Canvas, Position, LandMark.Caption);
    if (Take(CaptionBox(Place, LandMark.Caption.Direction))) return false;
  }
  const int32_t HighLight = FMap.HighLightLandMark();
  if (HighLight != 0 && LandMark == FMap.LandMarks()[HighLight]) return false;
  Canvas.Pen = {};
  Canvas.Brush = {};
  DrawLandMarkSymbolOnCanvas(Canvas, Position.X, Position.Y, LandMark.SymbolProps);
  return true;
}

bool TFreeCaptions::Take(const TRect& Box) {
  if (Box.Right - Box.Left > LargestBox || Box.Bottom - Box.Top > LargestBox) return true;
  const auto ForCells = [&](const auto& Each) {
    for (int32_t Column = Box.Left / CellWidth - 1; Column <= Box.Right / CellWidth; ++Column)
      for (int32_t Row = Box.Top / CellHeight - 1; Row <= Box.Bottom / CellHeight; ++Row)
        if (!Each(FTaken[CellOf(Column, Row)])) return false;
    return true;
  };
  const bool Free = ForCells([&](const std::vector<TRect>& Taken) {
    return std::none_of(Taken.begin(), Taken.end(),
                        [&](const TRect& Other) { return Overlap(Box, Other); });
  });
  if (Free) {
    ForCells([&](std::vector<TRect>& Taken) {
      Taken.push_back(Box);
      return true;
    });
  }
  return Free;
}

}  // namespace zav
