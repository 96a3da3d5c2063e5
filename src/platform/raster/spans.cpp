// SPDX-License-Identifier: MIT
#include "platform/raster/spans.h"

#include <algorithm>
#include <cstddef>

#include "platform/raster/pixel.h"

namespace zav {

namespace {

template <class TPixel>
void PaintRun(TPixel* First, TPixel* Last, const TInk& Ink) noexcept {
  const TPixel Value = TPixel::Of(Ink.Color);
  if (Ink.Xor) {
    for (; First != Last; ++First) First->Xor(Value);
  } else {
    std::fill(First, Last, Value);
  }
}

}  // namespace

void FillSpan(TBitmap& Target, const TSpan& Span, const TInk& Ink) noexcept {
  if (Span.Y < 0 || Span.Y >= Target.Height()) return;
  const int32_t Left = std::max(Span.Left, 0);
  const int32_t Right = std::min(Span.Right, Target.Width());
  if (Left >= Right) return;
  WithPixelOf(Target.PixelFormat(), [&](auto Kind) {
    auto* Row = PixelRow<decltype(Kind)>(Target, Span.Y);
    PaintRun(Row + Left, Row + Right, Ink);
  });
}

void FillSpans(TBitmap& Target, const TSpans& Spans, const TInk& Ink) noexcept {
  for (const TSpan& Span : Spans) FillSpan(Target, Span, Ink);
}

void AddSpan(TSpans& Spans, const TRect& Clip, int64_t Y, int64_t Left, int64_t Right) {
  if (Y < Clip.Top || Y >= Clip.Bottom) return;
  const int64_t First = std::max<int64_t>(Left, Clip.Left);
  const int64_t Last = std::min<int64_t>(Right, Clip.Right);
  if (First >= Last) return;
  Spans.push_back(
      {static_cast<int32_t>(Y), static_cast<int32_t>(First), static_cast<int32_t>(Last)});
}

void MergeSpans(TSpans& Spans) {
  if (Spans.empty()) return;
  std::sort(Spans.begin(), Spans.end(), [](const TSpan& A, const TSpan& B) {
    return A.Y != B.Y ? A.Y < B.Y : A.Left < B.Left;
  });
  size_t Kept = 0;
  for (size_t I = 1; I < Spans.size(); ++I) {
    TSpan& Last = Spans[Kept];
    if (Spans[I].Y == Last.Y && Spans[I].Left <= Last.Right) {
      Last.Right = std::max(Last.Right, Spans[I].Right);
    } else {
      Spans[++Kept] = Spans[I];
    }
  }
  Spans.resize(Kept + 1);
}

TSpans SpansWithout(const TSpans& A, const TSpans& B) {
  TSpans Result;
  size_t J = 0;
  for (const TSpan& Span : A) {
    int32_t Left = Span.Left;
    while (J < B.size() && (B[J].Y < Span.Y || (B[J].Y == Span.Y && B[J].Right <= Left))) ++J;
    // A span of B may also cut the next one of A, so J stays on it.
    for (size_t K = J; K < B.size() && B[K].Y == Span.Y && B[K].Left < Span.Right; ++K) {
      if (B[K].Left > Left) Result.push_back({Span.Y, Left, B[K].Left});
      Left = std::max(Left, B[K].Right);
    }
    if (Left < Span.Right) Result.push_back({Span.Y, Left, Span.Right});
  }
  return Result;
}

}  // namespace zav
