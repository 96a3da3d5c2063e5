// pass_trace.cpp - the path that the mouse has left.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <geomap/view/passes.h>
#include <platform/base/rounding.h>

namespace zav {

void DrawTrace(const TMouseTrace& Trace, const TViewState& View, double Scale, TPoint Origin,
               TCanvas& Device) {
  if (Trace.Count() < 1) return;
  const TPen OldPen = Device.Pen;
  const TBrush OldBrush = Device.Brush;
  Device.Pen = {};
  Device.Pen.Width = std::max(RoundHalfEven(Scale), 1);
  const auto At = [&](int32_t Index) {
    const TMouseTracePoint& Point = Trace.Point(Index);
    const TPoint P = MapImageToDevice(View, Scale, Point.X, Point.Y);
    return TPoint{RoundHalfEven(static_cast<double>(P.X) + Origin.X),
                  RoundHalfEven(static_cast<double>(P.Y) + Origin.Y)};
  };
  for (int32_t I = 2; I <= Trace.Count(); ++I) {
    if (!Trace.Connected(I)) continue;
    Device.Pen.Color = Trace.Point(I).Color;
    Device.Pen.Mode = (Trace.Point(I).Flags & mtfInvert) != 0 ? TPenMode::pmXor : TPenMode::pmCopy;
    const TPoint From = At(I - 1);
    const TPoint To = At(I);
    Device.MoveTo(From.X, From.Y);
    Device.LineTo(To.X, To.Y);
  }
  Device.Pen = OldPen;
  Device.Brush = OldBrush;
}

}  // namespace zav
