// pen_tip.h - the round tip of a pen wider than one pixel, and what it covers along a line.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_RASTER_PEN_TIP_H
#define ZAV_PLATFORM_RASTER_PEN_TIP_H

#include <cstdint>
#include <limits>
#include <vector>

#include <platform/base/geometry.h>
#include <platform/raster/spans.h>

namespace zav {

// Pixels Left..Right-1 of a row, all from the pixel of the line.
struct TTipRow {
  int64_t Y, Left, Right;
};

// The rows of the tip: an ellipse of Width x Width pixels, which reaches one pixel further to the
// right and below when Width is even.
std::vector<TTipRow> TipOf(int32_t Width);

// The rows that a tip covers as it is moved along a line. A tip is convex and a line monotone, so
// each row is one run of pixels.
class TTipTrail {
 public:
  explicit TTipTrail(int32_t Width) : FTip(TipOf(Width)) {}

  // Makes room for the rows First..Last-1; what the tip covers beyond them is left out.
  void Start(int64_t First, int64_t Last);
  void Put(int64_t X, int64_t Y);
  // Adds the rows covered since the last call.
  void MoveTo(TSpans& Spans, const TRect& Clip);

 private:
  struct TRun {
    int64_t Left = std::numeric_limits<int64_t>::max();
    int64_t Right = std::numeric_limits<int64_t>::min();
  };
  std::vector<TTipRow> FTip;
  std::vector<TRun> FRuns;
  int64_t FTop = 0;
};

}  // namespace zav

#endif
