// SPDX-License-Identifier: MIT
#include "platform/raster/pen_tip.h"

#include <algorithm>
#include <cstddef>

#include "platform/raster/ellipse_rows.h"

namespace zav {

std::vector<TTipRow> TipOf(int32_t Width) {
  std::vector<TTipRow> Tip;
  const TEllipseRows Rows(Width, Width);
  const int64_t Back = (Width - 1) / 2;
  for (int32_t I = 0; I < Width; ++I) {
    const auto [Left, Right] = Rows.Extent(I);
    Tip.push_back({I - Back, Left - Back, Right - Back});
  }
  return Tip;
}

void TTipTrail::Start(int64_t First, int64_t Last) {
  FTop = First;
  FRuns.assign(static_cast<size_t>(std::max<int64_t>(Last - First, 0)), TRun{});
}

void TTipTrail::Put(int64_t X, int64_t Y) {
  for (const TTipRow& Row : FTip) {
    const int64_t Index = Y + Row.Y - FTop;
    if (Index < 0 || Index >= static_cast<int64_t>(FRuns.size())) continue;
    TRun& Run = FRuns[static_cast<size_t>(Index)];
    Run.Left = std::min(Run.Left, X + Row.Left);
    Run.Right = std::max(Run.Right, X + Row.Right);
  }
}

void TTipTrail::MoveTo(TSpans& Spans, const TRect& Clip) {
  for (size_t I = 0; I < FRuns.size(); ++I) {
    TRun& Run = FRuns[I];
    if (Run.Left >= Run.Right) continue;
    AddSpan(Spans, Clip, FTop + static_cast<int64_t>(I), Run.Left, Run.Right);
    Run = {};
  }
}

}  // namespace zav
