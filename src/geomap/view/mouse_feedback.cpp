// mouse_feedback.cpp - see mouse_feedback.h.
// SPDX-License-Identifier: MIT
#include <geomap/view/mouse_feedback.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

#include <platform/host/canvas.h>
#include <platform/host/control.h>

namespace zav {
namespace {

// Slanted lines are shown in pieces of about this size: small ones cover fewer pixels, but each
// costs the window some time of its own.
constexpr int64_t PieceSize = 32;
constexpr int64_t MostPieces = 40;

int32_t Narrowed(int64_t Value) noexcept {
  return static_cast<int32_t>(std::clamp<int64_t>(Value, INT32_MIN, INT32_MAX));
}

// The area between two points, and the pixels about it that a pen of one control pixel touches.
TRect AreaOf(int64_t X1, int64_t Y1, int64_t X2, int64_t Y2) noexcept {
  return {Narrowed(std::min(X1, X2) - 1), Narrowed(std::min(Y1, Y2) - 1),
          Narrowed(std::max(X1, X2) + 2), Narrowed(std::max(Y1, Y2) + 2)};
}

void AddLineAreas(TPoint From, TPoint To, std::vector<TRect>& Areas) {
  const int64_t X = From.X;
  const int64_t Y = From.Y;
  const int64_t DX = To.X - X;
  const int64_t DY = To.Y - Y;
  const int64_t Pieces = std::min(std::min(std::abs(DX), std::abs(DY)) / PieceSize + 1, MostPieces);
  for (int64_t I = 0; I < Pieces; ++I) {
    Areas.push_back(AreaOf(X + DX * I / Pieces, Y + DY * I / Pieces, X + DX * (I + 1) / Pieces,
                           Y + DY * (I + 1) / Pieces));
  }
}

void AddBoxAreas(TPoint From, TPoint To, std::vector<TRect>& Areas) {
  const auto [Left, Right] = std::minmax(From.X, To.X);
  const auto [Top, Bottom] = std::minmax(From.Y, To.Y);
  // The outline lies inside the corners.
  Areas.push_back({Left, Top, Right, Top + 1});
  Areas.push_back({Left, Bottom - 1, Right, Bottom});
  Areas.push_back({Left, Top, Left + 1, Bottom});
  Areas.push_back({Right - 1, Top, Right, Bottom});
}

bool IsEmpty(const TFeedbackShape& Shape) noexcept {
  switch (Shape.Kind) {
    case TFeedbackKind::fkLine:
      return Shape.From == Shape.To;
    case TFeedbackKind::fkBox:
    case TFeedbackKind::fkDottedBox:
      return Shape.From.X == Shape.To.X || Shape.From.Y == Shape.To.Y;
    case TFeedbackKind::fkNone:
      break;
  }
  return true;
}

}  // namespace

void DrawFeedback(const TFeedbackShape& Shape, TCanvas& Canvas) {
  if (IsEmpty(Shape)) return;
  const TPen OldPen = std::exchange(Canvas.Pen, {clWhite, TPenStyle::psSolid, TPenMode::pmXor, 1});
  const TBrush OldBrush = std::exchange(Canvas.Brush, {clWhite, TBrushStyle::bsClear});
  const auto& [Kind, From, To] = Shape;
  if (Kind == TFeedbackKind::fkLine) {
    Canvas.MoveTo(From.X, From.Y);
    Canvas.LineTo(To.X, To.Y);
  } else {
    if (Kind == TFeedbackKind::fkDottedBox) Canvas.Pen.Style = TPenStyle::psDot;
    Canvas.Rectangle(From.X, From.Y, To.X, To.Y);
  }
  Canvas.Pen = OldPen;
  Canvas.Brush = OldBrush;
}

void AddFeedbackAreas(const TFeedbackShape& Shape, std::vector<TRect>& Areas) {
  if (IsEmpty(Shape)) return;
  if (Shape.Kind == TFeedbackKind::fkLine)
    AddLineAreas(Shape.From, Shape.To, Areas);
  else
    AddBoxAreas(Shape.From, Shape.To, Areas);
}

void TMouseFeedback::Show(const TFeedbackShape& Shape, TControlWindow& Window) {
  if (Shape == FShape) return;
  std::vector<TRect> Areas;
  for (const TFeedbackShape& Each : {FShape, Shape}) {
    DrawFeedback(Each, Window.Canvas());
    AddFeedbackAreas(Each, Areas);
  }
  FShape = Shape;
  if (!Areas.empty()) Window.Show(Areas);
}

}  // namespace zav
