// SPDX-License-Identifier: MIT
#include "platform/raster/shapes.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "platform/raster/ellipse_rows.h"
#include "platform/raster/lines.h"

namespace zav {

namespace {

// A rectangle in 64 bits, so that its sides may be longer than 32 bits tell.
struct TBox {
  int64_t Left, Top, Right, Bottom;

  TBox Shrunk(int64_t By) const { return {Left + By, Top + By, Right - By, Bottom - By}; }
  int64_t Width() const { return Right - Left; }
  int64_t Height() const { return Bottom - Top; }
};

TBox Ordered(const TRect& Box) {
  return {std::min(Box.Left, Box.Right), std::min(Box.Top, Box.Bottom),
          std::max(Box.Left, Box.Right), std::max(Box.Top, Box.Bottom)};
}

// One row of a shape: outline Left..InnerLeft-1 and InnerRight..Right-1, fill between them.
struct TShapeRow {
  int64_t Left, InnerLeft, InnerRight, Right;
};

// The outline of a shape lies between two boxes; the inner one may be empty.
struct TOutline {
  TBox Outer;
  TBox Inner;
  bool None;  // no outline at all, the fill takes its place
  bool Thin;
};

TOutline OutlineOf(const TBox& Box, const TPen& Pen) {
  if (Pen.Style == TPenStyle::psClear) return {Box, Box, true, false};
  const int64_t Width = std::max(Pen.Width, 1);
  return {Box, Box.Shrunk(Width), false, Width == 1};
}

bool HasRow(const TBox& Box, int64_t Y) {
  return Box.Width() > 0 && Y >= Box.Top && Y < Box.Bottom;
}

class TRectangleShape {
 public:
  explicit TRectangleShape(const TOutline& Shape) : FShape(Shape) {}

  TShapeRow operator()(int64_t Y) const {
    const TBox& Outer = FShape.Outer;
    if (!HasRow(FShape.Inner, Y)) return {Outer.Left, Outer.Right, Outer.Right, Outer.Right};
    return {Outer.Left, FShape.Inner.Left, FShape.Inner.Right, Outer.Right};
  }

 private:
  TOutline FShape;
};

// The extents of an ellipse in coordinates of the bitmap. Each row is asked for up to three times
// in a row, so the last few are kept.
class TEllipse {
 public:
  explicit TEllipse(const TBox& Box) : FBox(Box), FRows(Box.Width(), Box.Height()) {}

  TEllipseRows::TExtent Extent(int64_t Y) {
    TKept& Kept = FKept[static_cast<size_t>((Y - FBox.Top) & 1)];
    if (Kept.Y != Y || !Kept.Valid) {
      const auto Extent = FRows.Extent(Y - FBox.Top);
      Kept = {true, Y, {Extent.Left + FBox.Left, Extent.Right + FBox.Left}};
    }
    return Kept.Extent;
  }

 private:
  struct TKept {
    bool Valid = false;
    int64_t Y = 0;
    TEllipseRows::TExtent Extent{};
  };
  TBox FBox;
  TEllipseRows FRows;
  std::array<TKept, 2> FKept;
};

class TEllipseShape {
 public:
  explicit TEllipseShape(const TOutline& Shape)
      : FShape(Shape), FOuter(Shape.Outer), FInner(Shape.Inner) {}

  TShapeRow operator()(int64_t Y) {
    const auto [Left, Right] = FOuter.Extent(Y);
    if (FShape.None) return {Left, Left, Right, Right};
    if (!FShape.Thin) {
      if (!HasRow(FShape.Inner, Y)) return {Left, Right, Right, Right};
      const auto [InnerLeft, InnerRight] = FInner.Extent(Y);
      return {Left, InnerLeft, InnerRight, Right};
    }
    // Thin: the pixels with a neighbour outside, beside them or in the next row away from the
    // centre.
    const bool Upper = 2 * (Y - FShape.Outer.Top) < FShape.Outer.Height() - 1;
    const int64_t Next = Upper ? Y - 1 : Y + 1;
    if (!HasRow(FShape.Outer, Next)) return {Left, Right, Right, Right};
    const auto [NextLeft, NextRight] = FOuter.Extent(Next);
    const int64_t InnerLeft = std::max(Left + 1, NextLeft);
    const int64_t InnerRight = std::min(Right - 1, NextRight);
    if (InnerLeft >= InnerRight) return {Left, Right, Right, Right};
    return {Left, InnerLeft, InnerRight, Right};
  }

 private:
  TOutline FShape;
  TEllipse FOuter;
  TEllipse FInner;
};

// Paints the visible rows of a shape that has at most one run of fill in each.
template <class TShape>
void PaintRows(TBitmap& Target, const TOutline& Shape, const TPen& Pen, const TBrush& Brush) {
  TShape RowOf(Shape);
  const bool Xor = Pen.Mode == TPenMode::pmXor;
  const int64_t Width = Target.Width();
  const auto Paint = [&](int64_t Y, int64_t Left, int64_t Right, const TInk& Ink) {
    FillSpan(Target,
             {static_cast<int32_t>(Y), static_cast<int32_t>(std::clamp<int64_t>(Left, 0, Width)),
              static_cast<int32_t>(std::clamp<int64_t>(Right, 0, Width))},
             Ink);
  };
  const int64_t First = std::max<int64_t>(Shape.Outer.Top, 0);
  const int64_t Last = std::min<int64_t>(Shape.Outer.Bottom, Target.Height());
  for (int64_t Y = First; Y < Last; ++Y) {
    const TShapeRow Row = RowOf(Y);
    if (!Shape.None) {
      Paint(Y, Row.Left, Row.InnerLeft, {Pen.Color, Xor});
      Paint(Y, Row.InnerRight, Row.Right, {Pen.Color, Xor});
    }
    if (Brush.Style == TBrushStyle::bsSolid) {
      Paint(Y, Row.InnerLeft, Row.InnerRight, {Brush.Color, Xor});
    }
  }
}

// A side of a polygon, followed from row to row. At a row K rows below its upper end it lies
// X + K * Run / Rise across; Whole and Rest are the quotient and the remainder of K * Run.
struct TSide {
  int64_t First;  // the first visible row
  int64_t Last;   // the row after the last
  int64_t X;
  bool Leftward;
  uint64_t Rise;
  uint64_t StepWhole, StepRest;
  uint64_t Whole, Rest;

  void Advance() {
    Whole += StepWhole;
    Rest += StepRest;
    if (Rest >= Rise) {
      Rest -= Rise;
      ++Whole;
    }
  }
  // The first pixel at or right of the side.
  int64_t Crossing() const {
    const int64_t Shift = static_cast<int64_t>(Whole);
    return Leftward ? X - Shift : X + Shift + (Rest > 0 ? 1 : 0);
  }
};

// The sides that cross a visible row, from the top down.
std::vector<TSide> SidesOf(std::span<const TPoint> Points, const TRect& Clip) {
  std::vector<TSide> Sides;
  Sides.reserve(Points.size());
  for (size_t I = 0; I < Points.size(); ++I) {
    TPoint Upper = Points[I];
    TPoint Lower = Points[I + 1 < Points.size() ? I + 1 : 0];
    if (Upper.Y > Lower.Y) std::swap(Upper, Lower);
    const int64_t First = std::max(Upper.Y, Clip.Top);
    const int64_t Last = std::min(Lower.Y, Clip.Bottom);
    if (First >= Last) continue;
    const int64_t DX = static_cast<int64_t>(Lower.X) - Upper.X;
    const uint64_t Run = static_cast<uint64_t>(DX < 0 ? -DX : DX);
    const uint64_t Rise = static_cast<uint64_t>(static_cast<int64_t>(Lower.Y) - Upper.Y);
    // Below 2^64, because both factors are below 2^32.
    const uint64_t Product = static_cast<uint64_t>(First - Upper.Y) * Run;
    Sides.push_back({First, Last, Upper.X, DX < 0, Rise, Run / Rise, Run % Rise, Product / Rise,
                     Product % Rise});
  }
  std::sort(Sides.begin(), Sides.end(),
            [](const TSide& A, const TSide& B) { return A.First < B.First; });
  return Sides;
}

}  // namespace

TSpans PolygonInside(std::span<const TPoint> Points, const TRect& Clip) {
  TSpans Inside;
  if (Points.size() < 3 || Clip.Empty()) return Inside;
  std::vector<TSide> Sides = SidesOf(Points, Clip);
  std::vector<TSide*> Active;
  std::vector<int64_t> Crossings;
  size_t Next = 0;
  int64_t Y = Sides.empty() ? 0 : Sides[0].First;
  while (Next < Sides.size() || !Active.empty()) {
    if (Active.empty()) Y = Sides[Next].First;
    for (; Next < Sides.size() && Sides[Next].First == Y; ++Next) Active.push_back(&Sides[Next]);
    Crossings.clear();
    for (TSide* Side : Active) {
      Crossings.push_back(Side->Crossing());
      Side->Advance();
    }
    std::sort(Crossings.begin(), Crossings.end());
    for (size_t I = 0; I + 1 < Crossings.size(); I += 2) {
      AddSpan(Inside, Clip, Y, Crossings[I], Crossings[I + 1]);
    }
    ++Y;
    std::erase_if(Active, [&](const TSide* Side) { return Side->Last <= Y; });
  }
  MergeSpans(Inside);
  return Inside;
}

void DrawRectangle(TBitmap& Target, const TRect& Box, const TPen& Pen, const TBrush& Brush) {
  const TBox Area = Ordered(Box);
  if (Area.Width() == 0 || Area.Height() == 0) return;
  const TOutline Shape = OutlineOf(Area, Pen);
  if (Pen.Style == TPenStyle::psDot) {
    // The fill ends where it does within a solid outline, so that the gaps show what was there.
    PaintRows<TRectangleShape>(Target, {Shape.Inner, Shape.Inner, true, false}, Pen, Brush);
    // The brush of the outline reaches the sides of the box and not beyond.
    const int64_t Width = std::max(Pen.Width, 1);
    const int64_t Before = (Width - 1) / 2;
    const int64_t After = Width - Before;
    const TPoint First{static_cast<int32_t>(Area.Left + Before),
                       static_cast<int32_t>(Area.Top + Before)};
    const TPoint Last{static_cast<int32_t>(std::max(Area.Right - After, Area.Left + Before)),
                      static_cast<int32_t>(std::max(Area.Bottom - After, Area.Top + Before))};
    const std::array<TPoint, 4> Corners{{First, {Last.X, First.Y}, Last, {First.X, Last.Y}}};
    DrawPolyline(Target, Corners, true, Pen);
    return;
  }
  PaintRows<TRectangleShape>(Target, Shape, Pen, Brush);
}

void DrawEllipse(TBitmap& Target, const TRect& Box, const TPen& Pen, const TBrush& Brush) {
  const TBox Area = Ordered(Box);
  if (Area.Width() == 0 || Area.Height() == 0) return;
  PaintRows<TEllipseShape>(Target, OutlineOf(Area, Pen), Pen, Brush);
}

void DrawPolygon(TBitmap& Target, std::span<const TPoint> Points, const TPen& Pen,
                 const TBrush& Brush) {
  const TRect Clip{0, 0, Target.Width(), Target.Height()};
  const bool Xor = Pen.Mode == TPenMode::pmXor;
  const bool Filled = Brush.Style == TBrushStyle::bsSolid;
  TSpans Inside;
  if (Filled) Inside = PolygonInside(Points, Clip);
  if (!Xor) {
    // The outline goes over the fill, which is the same as leaving it out, and cheaper.
    FillSpans(Target, Inside, {Brush.Color, false});
    DrawPolyline(Target, Points, true, Pen);
    return;
  }
  const TSpans Outline = PolylineSpans(Points, true, Pen, Clip);
  FillSpans(Target, SpansWithout(Inside, Outline), {Brush.Color, true});
  FillSpans(Target, Outline, {Pen.Color, true});
}

}  // namespace zav
