// symbol_drawing.cpp - see symbol_drawing.h.
// SPDX-License-Identifier: MIT
#include <geomap/landmarks/symbol_drawing.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>

#include <platform/base/rounding.h>

namespace zav {
namespace {

constexpr double Pi = 3.141592653589793;
constexpr double HalfHeadAngle = 0.3490658503988659;  // 20 degrees
constexpr double TriangleAngle = 2.0943951023931953;  // 120 degrees
constexpr int32_t SmallCross = 4;                     // reach of what stands for an unknown shape

int32_t Clamped(int64_t Value) noexcept {
  return static_cast<int32_t>(std::clamp<int64_t>(Value, std::numeric_limits<int32_t>::min(),
                                                  std::numeric_limits<int32_t>::max()));
}

// Draws about a point, in pixels from it.
class TAbout {
 public:
  TAbout(TCanvas& Canvas, int32_t X, int32_t Y) : FCanvas(Canvas), FX(X), FY(Y) {}

  TPoint At(int64_t DX, int64_t DY) const noexcept { return {Clamped(FX + DX), Clamped(FY + DY)}; }
  TPoint At(TPoint P) const noexcept { return At(P.X, P.Y); }

  void Line(int64_t X1, int64_t Y1, int64_t X2, int64_t Y2) const {
    const TPoint From = At(X1, Y1);
    const TPoint To = At(X2, Y2);
    FCanvas.MoveTo(From.X, From.Y);
    FCanvas.LineTo(To.X, To.Y);
  }
  void Path(std::initializer_list<TPoint> Points) const {
    bool First = true;
    for (const TPoint& Each : Points) {
      const TPoint P = At(Each);
      First ? FCanvas.MoveTo(P.X, P.Y) : FCanvas.LineTo(P.X, P.Y);
      First = false;
    }
  }
  void Polygon(const std::array<TPoint, 3>& Points) const {
    const std::array<TPoint, 3> Moved = {At(Points[0]), At(Points[1]), At(Points[2])};
    FCanvas.Polygon(Moved);
  }
  void Polygon(const std::array<TPoint, 4>& Points) const {
    const std::array<TPoint, 4> Moved = {At(Points[0]), At(Points[1]), At(Points[2]),
                                         At(Points[3])};
    FCanvas.Polygon(Moved);
  }
  void Rectangle(int64_t X1, int64_t Y1, int64_t X2, int64_t Y2) const {
    const TPoint A = At(X1, Y1);
    const TPoint B = At(X2, Y2);
    FCanvas.Rectangle(A.X, A.Y, B.X, B.Y);
  }
  void Ellipse(int64_t X1, int64_t Y1, int64_t X2, int64_t Y2) const {
    const TPoint A = At(X1, Y1);
    const TPoint B = At(X2, Y2);
    FCanvas.Ellipse(A.X, A.Y, B.X, B.Y);
  }

 private:
  TCanvas& FCanvas;
  int64_t FX;
  int64_t FY;
};

void DrawPlus(TCanvas& Canvas, const TAbout& About, const TSymbolShape& Shape, TColor FG,
              TColor BG) {
  const int64_t S = Shape.Size;
  if (Shape.Filled) {
    Canvas.Pen.Color = BG;
    for (int64_t DX = -1; DX <= 1; ++DX) {
      for (int64_t DY = -1; DY <= 1; ++DY) {
        About.Line(DX, DY - S, DX, DY + S + 1);
        About.Line(DX - S, DY, DX + S + 1, DY);
      }
    }
  }
  Canvas.Pen.Color = FG;
  About.Line(0, -S, 0, S + 1);
  About.Line(-S, 0, S + 1, 0);
}

void DrawCross(TCanvas& Canvas, const TAbout& About, const TSymbolShape& Shape, TColor FG,
               TColor BG) {
  const int64_t S = Shape.Size;
  if (Shape.Filled) {
    Canvas.Pen.Color = BG;
    for (int64_t DX = -1; DX <= 1; ++DX) {
      for (int64_t DY = -1; DY <= 1; ++DY) {
        About.Line(S + DX, DY - S, DX - S - 1, DY + S + 1);
        About.Line(DX - S, DY - S, DX + S + 1, DY + S + 1);
      }
    }
  }
  Canvas.Pen.Color = FG;
  About.Line(-S, -S, S + 1, S + 1);
  About.Line(-S, S, S + 1, -S - 1);
}

void DrawBox(TCanvas& Canvas, const TAbout& About, const TSymbolShape& Shape, TColor FG,
             TColor BG) {
  const int32_t S = Shape.Size;
  const int32_t N = Clamped(-int64_t{S});
  Canvas.Pen.Color = Shape.Filled ? BG : FG;
  About.Path({{N, N}, {N, S}, {S, S}, {S, N}, {N, N}});
  if (!Shape.Filled) return;
  Canvas.Pen.Color = FG;
  Canvas.Brush.Color = BG;
  About.Rectangle(int64_t{N} + 1, int64_t{N} + 1, S, S);
}

void DrawCrossBox(TCanvas& Canvas, const TAbout& About, const TSymbolShape& Shape, TColor FG,
                  TColor BG) {
  DrawBox(Canvas, About, Shape, FG, BG);
  const int64_t S = Shape.Size;
  if (Shape.Filled) {
    About.Line(1 - S, S - 1, S, -S);
    About.Line(S - 1, S - 1, -S, -S);
  } else {
    About.Line(-S, -S, S, S);
    About.Line(-S, S, S, -S);
  }
}

void DrawHead(const TAbout& About, bool Filled, TPoint Tip, TPoint Barb1, TPoint Barb2) {
  if (Filled) {
    About.Polygon(std::array{Tip, Barb1, Barb2});
  } else {
    About.Path({Tip, Barb1});
    About.Path({Tip, Barb2});
  }
}

void DrawSpade(const TAbout& About, bool Filled, int32_t S) {
  const TPoint Right = {S, 0};
  const TPoint Below = {0, S};
  const TPoint Left = {Clamped(-int64_t{S}), 0};
  const TPoint Above = {0, Left.X};
  if (Filled) {
    About.Polygon(std::array{Right, Below, Left, Above});
  } else {
    About.Path({Above, Right, Below, Left, Above});
  }
}

// The shapes that take pen and brush as they are set for them.
void DrawOutlined(TCanvas& Canvas, const TAbout& About, const TSymbolShape& Shape) {
  const int64_t S = Shape.Size;
  const auto& P = Shape.Points;
  switch (Shape.Kind) {
    case TLandMarkElement::lmTriangle:
      return Shape.Filled ? About.Polygon(P) : About.Path({P[0], P[1], P[2], P[0]});
    case TLandMarkElement::lmCircle:
      if (!Shape.Filled) Canvas.Brush.Style = TBrushStyle::bsClear;
      return About.Ellipse(-S, -S, S, S);
    case TLandMarkElement::lmArrowFrom:
      About.Path({{0, 0}, P[0]});
      return DrawHead(About, Shape.Filled, P[0], P[1], P[2]);
    case TLandMarkElement::lmArrowTo:
      About.Path({P[0], {0, 0}});
      return DrawHead(About, Shape.Filled, {0, 0}, P[1], P[2]);
    default:
      return DrawSpade(About, Shape.Filled, Shape.Size);
  }
}

}  // namespace

TSymbolShape ShapeOfSymbol(int32_t x, int32_t y, const TSymbolProperties& Symbol) noexcept {
  TSymbolShape Shape{Symbol.Kind, !Symbol.Transparent, Symbol.Size, {}};
  const double R = Symbol.Direction / 180.0 * Pi;
  // Distance pixels in direction R + Turn, from the symbol's middle.
  const auto PointAt = [&](int32_t Distance, double Turn) {
    const int64_t AtX = RoundHalfEven(x + Distance * std::sin(R + Turn));
    const int64_t AtY = RoundHalfEven(y - Distance * std::cos(R + Turn));
    return TPoint{Clamped(AtX - x), Clamped(AtY - y)};
  };
  // From the head's tip to a barb of lmArrowTo.
  const auto Barb = [&](double Turn) {
    return TPoint{RoundHalfEven(Symbol.Size * std::sin(R + Turn)),
                  Clamped(-int64_t{RoundHalfEven(Symbol.Size * std::cos(R + Turn))})};
  };
  const auto Back = [](TPoint From, TPoint By) {
    return TPoint{Clamped(int64_t{From.X} - By.X), Clamped(int64_t{From.Y} - By.Y)};
  };
  switch (Symbol.Kind) {
    case TLandMarkElement::lmTriangle:
      Shape.Points = {PointAt(Symbol.Size, 0), PointAt(Symbol.Size, TriangleAngle),
                      PointAt(Symbol.Size, -TriangleAngle)};
      break;
    case TLandMarkElement::lmArrowFrom: {
      const TPoint Tip = PointAt(Symbol.Length, 0);
      Shape.Points = {Tip, Back(Tip, Barb(HalfHeadAngle)), Back(Tip, Barb(-HalfHeadAngle))};
      break;
    }
    case TLandMarkElement::lmArrowTo:
      Shape.Points = {PointAt(Symbol.Length, 0), Barb(HalfHeadAngle), Barb(-HalfHeadAngle)};
      break;
    default:
      break;
  }
  return Shape;
}

void DrawSymbolShape(TCanvas& Canvas, int32_t x, int32_t y, const TSymbolShape& Shape,
                     TColor ColorFG, TColor ColorBG) {
  const TAbout About(Canvas, x, y);
  switch (Shape.Kind) {
    case TLandMarkElement::lmPlus:
      return DrawPlus(Canvas, About, Shape, ColorFG, ColorBG);
    case TLandMarkElement::lmSquare:
      return DrawBox(Canvas, About, Shape, ColorFG, ColorBG);
    case TLandMarkElement::lmCrossBox:
      return DrawCrossBox(Canvas, About, Shape, ColorFG, ColorBG);
    case TLandMarkElement::lmCross:
      return DrawCross(Canvas, About, Shape, ColorFG, ColorBG);
    case TLandMarkElement::lmTriangle:
    case TLandMarkElement::lmCircle:
    case TLandMarkElement::lmArrowFrom:
    case TLandMarkElement::lmArrowTo:
    case TLandMarkElement::lmSpade:
      Canvas.Pen.Color = ColorFG;
      Canvas.Brush.Color = ColorBG;
      return DrawOutlined(Canvas, About, Shape);
    case TLandMarkElement::lmUserDef:
      return;
  }
  Canvas.Pen.Color = ColorFG;
  About.Line(-SmallCross, 0, SmallCross + 1, 0);
  About.Line(0, -SmallCross, 0, SmallCross + 1);
}

void DrawLandMarkSymbolOnCanvas(TCanvas& Canvas, int32_t x, int32_t y,
                                const TSymbolProperties& Symbol) {
  DrawSymbolShape(Canvas, x, y, ShapeOfSymbol(x, y, Symbol), Symbol.FGColor, Symbol.BGColor);
}

void DrawLandMarkSymbolOnCanvas(TCanvas& Canvas, int32_t x, int32_t y, TLandMarkElement Element,
                                TColor ColorFG, TColor ColorBG, int32_t Size, int32_t Direction,
                                int32_t Length, bool Transparent) {
  DrawLandMarkSymbolOnCanvas(Canvas, x, y,
                             {Element, Size, ColorFG, ColorBG, Transparent, Direction, Length});
}

}  // namespace zav
