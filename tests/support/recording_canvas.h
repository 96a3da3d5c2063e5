// recording_canvas.h - a canvas that writes down what is drawn, one line of text a call.
//
// Lines look like these; colours are BBGGRR as in TColor, and what is usual is left out:
//   MoveTo 1,2
//   LineTo 3,4 pen 0000FF            (then " dot", " clear", " xor", " w2" where they apply)
//   Polyline 1,2 3,4 pen 000000
//   Polygon 1,2 3,4 5,6 pen 000000 brush FFFFFF       ("brush clear")
//   Rectangle 1,2 3,4 pen ... brush ...               (the same for Ellipse)
//   FillRect 1,2 3,4 brush C0C0C0
//   TextOut 5,6 "text" font MS Sans Serif 8 000000 brush clear     (" bold", " dir 45" ...)
//   CopyRect 1,2 from 0,0 10,10
//   StretchDraw 0,0 10,10 from 0.5,0 5,5 smooth
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_SUPPORT_RECORDING_CANVAS_H
#define ZAV_TESTS_SUPPORT_RECORDING_CANVAS_H

#include <platform/host/canvas.h>

#include <string>
#include <vector>

namespace zav {

class TRecordingCanvas final : public TCanvas {
 public:
  std::vector<std::string> Lines;

  // All lines with a line feed after each.
  std::string Text() const;
  // How many lines begin with Beginning.
  size_t CountOf(std::string_view Beginning) const;

  void MoveTo(int32_t X, int32_t Y) override;
  void LineTo(int32_t X, int32_t Y) override;
  void Polyline(std::span<const TPoint> Points) override;
  void Polygon(std::span<const TPoint> Points) override;
  void Rectangle(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) override;
  void Ellipse(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) override;
  void FillRect(const TRect& Area) override;
  void TextOut(int32_t X, int32_t Y, std::string_view Text) override;
  // Six by thirteen pixels a byte at 8 points, in proportion at other sizes. Not written down.
  TSize TextExtent(std::string_view Text) override;
  void CopyRect(int32_t X, int32_t Y, const TBitmap& Bitmap, const TRect& Source) override;
  void StretchDraw(const TRect& Dest, const TBitmap& Bitmap, const TRectDouble& Source,
                   TStretchMode Mode) override;

 private:
  std::string PenText() const;
  std::string BrushText() const;
  std::string FontText() const;
};

}  // namespace zav

#endif
