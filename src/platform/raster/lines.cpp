// SPDX-License-Identifier: MIT
#include "platform/raster/lines.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <vector>

#include "platform/raster/pen_tip.h"
#include "platform/raster/pixel.h"

namespace zav {

namespace {

constexpr int64_t DotLength = 3;

int64_t CeilDivide(int64_t A, int64_t B) { return A / B + (A % B > 0 ? 1 : 0); }

// A line along its axes: step I lies Shift(I) = floor((2 I Minor + Major - Bias) / (2 Major))
// pixels across. Bias 1 rounds ties down, 0 rounds them up; which of the two leads toward minus
// infinity depends on the direction. All products fit in 64 bits, because both lengths are below
// 2^32.
struct TSlope {
  uint64_t Major = 0;
  uint64_t Minor = 0;
  uint64_t Bias = 0;

  // The first step whose shift is at least Wanted; Major when there is none.
  int64_t FirstStepWith(int64_t Wanted) const {
    if (Wanted <= 0) return 0;
    if (static_cast<uint64_t>(Wanted) > Minor) return static_cast<int64_t>(Major);
    const uint64_t Product = Major * static_cast<uint64_t>(Wanted);
    const int64_t Rest = 2 * static_cast<int64_t>(Product % Minor) + static_cast<int64_t>(Bias) -
                         static_cast<int64_t>(Major);
    return static_cast<int64_t>(Product / Minor) +
           CeilDivide(Rest, 2 * static_cast<int64_t>(Minor));
  }
};

// The range of I, from first to before last, for which Start + I * Direction is in Low..High-1.
struct TRange {
  int64_t First;
  int64_t Last;
};
TRange StepsInside(int64_t Start, int32_t Direction, int64_t Low, int64_t High) {
  return Direction > 0 ? TRange{Low - Start, High - Start}
                       : TRange{Start - High + 1, Start - Low + 1};
}

bool Contains(const TRect& Clip, TPoint P) {
  return P.X >= Clip.Left && P.X < Clip.Right && P.Y >= Clip.Top && P.Y < Clip.Bottom;
}

// Moves the start to the first visible step and cuts the count.
void ClipSteps(TLineSteps& Line, const TSlope& Slope, bool AlongX, const TRect& Clip) {
  const TRange Along = AlongX ? StepsInside(Line.X, Line.MajorX, Clip.Left, Clip.Right)
                              : StepsInside(Line.Y, Line.MajorY, Clip.Top, Clip.Bottom);
  const TRange Across = AlongX ? StepsInside(Line.Y, Line.MinorY, Clip.Top, Clip.Bottom)
                               : StepsInside(Line.X, Line.MinorX, Clip.Left, Clip.Right);
  const int64_t First = std::max({int64_t{0}, Along.First, Slope.FirstStepWith(Across.First)});
  // Shift 0 is seen from step 0 on, so a range that ends at or before it has no steps.
  const int64_t Last =
      Across.Last <= 0 ? 0 : std::min({Line.Length, Along.Last, Slope.FirstStepWith(Across.Last)});
  Line.Count = std::max(Last - First, int64_t{0});
  if (Line.Count == 0) return;

  const uint64_t Product = static_cast<uint64_t>(First) * Slope.Minor;
  int64_t Shift = static_cast<int64_t>(Product / Slope.Major);
  Line.Error = 2 * (Product % Slope.Major) + Slope.Major - Slope.Bias;
  if (Line.Error >= Line.ErrorLimit) {
    Line.Error -= Line.ErrorLimit;
    ++Shift;
  }
  Line.Skipped = First;
  Line.X += First * Line.MajorX + Shift * Line.MinorX;
  Line.Y += First * Line.MajorY + Shift * Line.MinorY;
}

// Calls Put(X, Y, Index along the whole line) for each visible pixel.
template <class TPut>
void ForEachPixel(const TLineSteps& Line, TPut&& Put) {
  int64_t X = Line.X;
  int64_t Y = Line.Y;
  uint64_t Error = Line.Error;
  for (int64_t I = 0; I < Line.Count; ++I) {
    Put(X, Y, Line.Skipped + I);
    X += Line.MajorX;
    Y += Line.MajorY;
    Error += Line.ErrorStep;
    if (Error >= Line.ErrorLimit) {
      Error -= Line.ErrorLimit;
      X += Line.MinorX;
      Y += Line.MinorY;
    }
  }
}

// The loop that draws nearly everything: one address, one error term, no branch but the loop's.
// Calls Put with the address of each visible pixel, which must lie in the bitmap.
template <class TPixel, class TPut>
void ForEachAddress(TBitmap& Target, const TLineSteps& Line, TPut&& Put) noexcept {
  const ptrdiff_t Stride = static_cast<ptrdiff_t>(Target.Stride());
  const ptrdiff_t Size = static_cast<ptrdiff_t>(sizeof(TPixel));
  const ptrdiff_t Major = Line.MajorX * Size + Line.MajorY * Stride;
  const ptrdiff_t Minor = Line.MinorX * Size + Line.MinorY * Stride;
  const ptrdiff_t Both = Major + Minor;
  const int64_t Limit = static_cast<int64_t>(Line.ErrorLimit);
  const int64_t Step = static_cast<int64_t>(Line.ErrorStep) - Limit;
  int64_t Error = static_cast<int64_t>(Line.Error);
  uint8_t* Address = Target.Row(static_cast<int32_t>(Line.Y)) + Line.X * Size;
  for (int64_t I = Line.Count;;) {
    Put(Address);
    // Left before the next address is formed, which may lie outside the bitmap.
    if (--I <= 0) break;
    // All ones when the limit is not reached. A mask and no branch, because the steps of a line
    // cannot be predicted.
    const int64_t Straight = (Error + Step) >> 63;
    Error += Step + (Straight & Limit);
    Address += Both - (Straight & Minor);
  }
}

void DrawThin(TBitmap& Target, const TLineSteps& Line, const TInk& Ink) noexcept {
  WithPixelOf(Target.PixelFormat(), [&](auto Kind) {
    using TPixel = decltype(Kind);
    const TPixel Value = TPixel::Of(Ink.Color);
    const auto At = [](uint8_t* Address) { return reinterpret_cast<TPixel*>(Address); };
    if (Ink.Xor) {
      ForEachAddress<TPixel>(Target, Line, [=](uint8_t* Address) { At(Address)->Xor(Value); });
    } else {
      ForEachAddress<TPixel>(Target, Line, [=](uint8_t* Address) { *At(Address) = Value; });
    }
  });
}

// The widest pen whose tip is put down whole at each pixel, which is the quickest for short lines.
constexpr int32_t WidestStamp = 4;

// The same pixels as of the trail of the tip. Every tip must lie in the bitmap.
void DrawStamped(TBitmap& Target, const TLineSteps& Line, int32_t Width, TColor Color) {
  static const std::array<std::vector<TTipRow>, WidestStamp + 1> Tips{TipOf(0), TipOf(1), TipOf(2),
                                                                      TipOf(3), TipOf(4)};
  WithPixelOf(Target.PixelFormat(), [&](auto Kind) {
    using TPixel = decltype(Kind);
    std::array<ptrdiff_t, WidestStamp * WidestStamp> Offsets{};
    size_t Count = 0;
    for (const TTipRow& Row : Tips[static_cast<size_t>(Width)]) {
      for (int64_t X = Row.Left; X < Row.Right; ++X) {
        Offsets[Count++] = Row.Y * static_cast<ptrdiff_t>(Target.Stride()) +
                           X * static_cast<ptrdiff_t>(sizeof(TPixel));
      }
    }
    const TPixel Value = TPixel::Of(Color);
    ForEachAddress<TPixel>(Target, Line, [&](uint8_t* Address) {
      for (size_t I = 0; I < Count; ++I) *reinterpret_cast<TPixel*>(Address + Offsets[I]) = Value;
    });
  });
}

bool DotIsOn(int64_t Phase, int32_t Width) {
  const int64_t Unit = DotLength * Width;
  return Phase % (2 * Unit) < Unit;
}

// A brush wider than this is cut down; it covers any screen or page many times.
constexpr int32_t MaxPenWidth = 4096;

int32_t WidthOf(const TPen& Pen) { return std::clamp(Pen.Width, 1, MaxPenWidth); }

TRect Grown(const TRect& Area, int32_t By) {
  constexpr int32_t Low = std::numeric_limits<int32_t>::min();
  constexpr int32_t High = std::numeric_limits<int32_t>::max();
  return {std::max(Area.Left, Low + By) - By, std::max(Area.Top, Low + By) - By,
          std::min(Area.Right, High - By) + By, std::min(Area.Bottom, High - By) + By};
}

// Collects the pixels of lines one after the other; not merged.
class TLineCollector {
 public:
  TLineCollector(const TPen& Pen, const TRect& Clip, int64_t Phase)
      : FPen(Pen),
        FWidth(WidthOf(Pen)),
        FClip(Clip),
        FTrail(FWidth > 1 ? FWidth : 0),
        FPhase(Phase) {}

  void Add(TPoint From, TPoint To) {
    if (FPen.Style == TPenStyle::psClear) return;
    const TLineSteps Line = StepsOfLine(From, To, Grown(FClip, FWidth));
    const bool Dotted = FPen.Style == TPenStyle::psDot;
    StartTrail(From.Y, To.Y);
    bool WasOn = true;
    ForEachPixel(Line, [&](int64_t X, int64_t Y, int64_t Index) {
      const bool On = !Dotted || DotIsOn(FPhase + Index, FWidth);
      // The gap between two dots ends a run, else the rows would close it.
      if (WasOn && !On) FTrail.MoveTo(FSpans, FClip);
      if (On) PutPixel(X, Y);
      WasOn = On;
    });
    FTrail.MoveTo(FSpans, FClip);
    FPhase += Line.Length;
  }

  void AddPoint(TPoint P) {
    StartTrail(P.Y, P.Y);
    PutPixel(P.X, P.Y);
    FTrail.MoveTo(FSpans, FClip);
  }

  TSpans& Spans() { return FSpans; }
  int64_t Phase() const { return FPhase; }

 private:
  void StartTrail(int64_t Y1, int64_t Y2) {
    if (FWidth == 1) return;
    FTrail.Start(std::max<int64_t>(std::min(Y1, Y2) - FWidth, FClip.Top),
                 std::min<int64_t>(std::max(Y1, Y2) + FWidth + 1, FClip.Bottom));
  }

  void PutPixel(int64_t X, int64_t Y) {
    if (FWidth > 1) {
      FTrail.Put(X, Y);
    } else {
      AddSpan(FSpans, FClip, Y, X, X + 1);
    }
  }

  TPen FPen;
  int32_t FWidth;
  TRect FClip;
  TTipTrail FTrail;
  int64_t FPhase;
  TSpans FSpans;
};

template <class TVisit>
void ForEachLine(std::span<const TPoint> Points, bool Closed, TVisit&& Visit) {
  for (size_t I = 1; I < Points.size(); ++I) Visit(Points[I - 1], Points[I]);
  if (Closed && Points.size() > 1) Visit(Points.back(), Points.front());
}

bool AllCoincide(std::span<const TPoint> Points) {
  return !Points.empty() &&
         std::all_of(Points.begin(), Points.end(), [&](TPoint P) { return P == Points[0]; });
}

TRect BoundsOf(const TBitmap& Target) { return {0, 0, Target.Width(), Target.Height()}; }

TInk InkOf(const TPen& Pen) { return {Pen.Color, Pen.Mode == TPenMode::pmXor}; }

// Kept out of DrawLine, whose common case must stay small.
[[gnu::noinline]] void DrawOtherLine(TBitmap& Target, TPoint From, TPoint To, const TPen& Pen,
                                     int64_t& Phase) {
  if (Pen.Style == TPenStyle::psClear) return;
  const TRect Bounds = BoundsOf(Target);
  const bool Plain = Pen.Style == TPenStyle::psSolid && Pen.Mode == TPenMode::pmCopy;
  if (Plain && Pen.Width <= WidestStamp) {
    const TRect Inner = {WidestStamp, WidestStamp, Bounds.Right - WidestStamp,
                         Bounds.Bottom - WidestStamp};
    if (Contains(Inner, From) && Contains(Inner, To)) {
      const TLineSteps Line = StepsOfLine(From, To, Bounds);
      Phase += Line.Length;
      if (Line.Count > 0) DrawStamped(Target, Line, Pen.Width, Pen.Color);
      return;
    }
  }
  TLineCollector Collector(Pen, Bounds, Phase);
  Collector.Add(From, To);
  Phase = Collector.Phase();
  // Wide dots may touch each other, so they are merged before they invert.
  if (Pen.Mode == TPenMode::pmXor) MergeSpans(Collector.Spans());
  FillSpans(Target, Collector.Spans(), InkOf(Pen));
}

}  // namespace

TLineSteps StepsOfLine(TPoint From, TPoint To, const TRect& Clip) noexcept {
  const int64_t DX = static_cast<int64_t>(To.X) - From.X;
  const int64_t DY = static_cast<int64_t>(To.Y) - From.Y;
  const int64_t LengthX = std::abs(DX);
  const int64_t LengthY = std::abs(DY);
  const int32_t DirectionX = DX < 0 ? -1 : 1;
  const int32_t DirectionY = DY < 0 ? -1 : 1;
  const bool AlongX = LengthX >= LengthY;

  TLineSteps Line;
  Line.Length = std::max(LengthX, LengthY);
  if (Line.Length == 0) return Line;
  TSlope Slope;
  Slope.Major = static_cast<uint64_t>(Line.Length);
  Slope.Minor = static_cast<uint64_t>(std::min(LengthX, LengthY));
  // Chosen without branches: directions of short lines cannot be predicted.
  Line.MajorX = AlongX ? DirectionX : 0;
  Line.MajorY = AlongX ? 0 : DirectionY;
  Line.MinorX = DirectionX - Line.MajorX;
  Line.MinorY = DirectionY - Line.MajorY;
  Slope.Bias = Line.MinorX + Line.MinorY > 0 ? 1 : 0;
  Line.X = From.X;
  Line.Y = From.Y;
  Line.Count = Line.Length;
  Line.Error = Slope.Major - Slope.Bias;
  Line.ErrorStep = 2 * Slope.Minor;
  Line.ErrorLimit = 2 * Slope.Major;
  if (!Contains(Clip, From) || !Contains(Clip, To)) ClipSteps(Line, Slope, AlongX, Clip);
  return Line;
}

void DrawLine(TBitmap& Target, TPoint From, TPoint To, const TPen& Pen, int64_t& Phase) {
  if (Pen.Style != TPenStyle::psSolid || Pen.Width > 1) {
    DrawOtherLine(Target, From, To, Pen, Phase);
    return;
  }
  const TLineSteps Line = StepsOfLine(From, To, BoundsOf(Target));
  if (Line.Count > 0) DrawThin(Target, Line, InkOf(Pen));
  Phase += Line.Length;
}

void DrawPolyline(TBitmap& Target, std::span<const TPoint> Points, bool Closed, const TPen& Pen) {
  if (Pen.Mode == TPenMode::pmXor || (Closed && AllCoincide(Points))) {
    FillSpans(Target, PolylineSpans(Points, Closed, Pen, BoundsOf(Target)), InkOf(Pen));
    return;
  }
  int64_t Phase = 0;
  ForEachLine(Points, Closed,
              [&](TPoint From, TPoint To) { DrawLine(Target, From, To, Pen, Phase); });
}

TSpans PolylineSpans(std::span<const TPoint> Points, bool Closed, const TPen& Pen,
                     const TRect& Clip) {
  if (Pen.Style == TPenStyle::psClear) return {};
  TLineCollector Collector(Pen, Clip, 0);
  ForEachLine(Points, Closed, [&](TPoint From, TPoint To) { Collector.Add(From, To); });
  if (Closed && AllCoincide(Points)) Collector.AddPoint(Points[0]);
  MergeSpans(Collector.Spans());
  return std::move(Collector.Spans());
}

}  // namespace zav
