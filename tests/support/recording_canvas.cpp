// recording_canvas.cpp - see recording_canvas.h.
// SPDX-License-Identifier: MIT
#include <support/recording_canvas.h>

#include <platform/base/rounding.h>
#include <platform/base/text_format.h>

#include <algorithm>

namespace zav {
namespace {

std::string Pair(double X, double Y) { return " " + ShortestNumber(X) + "," + ShortestNumber(Y); }

std::string List(std::span<const TPoint> Points) {
  std::string text;
  for (const TPoint& p : Points) text += Pair(p.X, p.Y);
  return text;
}

template <class TArea>
std::string Box(const TArea& Area) {
  return Pair(Area.Left, Area.Top) + Pair(Area.Right, Area.Bottom);
}

}  // namespace

std::string TRecordingCanvas::Text() const {
  std::string text;
  for (const std::string& line : Lines) text += line + "\n";
  return text;
}

size_t TRecordingCanvas::CountOf(std::string_view Beginning) const {
  return static_cast<size_t>(
      std::count_if(Lines.begin(), Lines.end(),
                    [&](const std::string& line) { return line.starts_with(Beginning); }));
}

std::string TRecordingCanvas::PenText() const {
  std::string text = " pen " + Hex(Pen.Color, 6);
  if (Pen.Style == TPenStyle::psDot) text += " dot";
  if (Pen.Style == TPenStyle::psClear) text += " clear";
  if (Pen.Mode == TPenMode::pmXor) text += " xor";
  if (Pen.Width != 1) text += " w" + IntegerText(Pen.Width);
  return text;
}

std::string TRecordingCanvas::BrushText() const {
  return Brush.Style == TBrushStyle::bsClear ? " brush clear" : " brush " + Hex(Brush.Color, 6);
}

std::string TRecordingCanvas::FontText() const {
  std::string text =
      " font " + Font.Name + " " + ShortestNumber(Font.Size) + " " + Hex(Font.Color, 6);
  if (Font.Styles & fsBold) text += " bold";
  if (Font.Styles & fsItalic) text += " italic";
  if (Font.Styles & fsUnderline) text += " underline";
  if (Font.Styles & fsStrikeOut) text += " strikeout";
  if (Font.Direction != 0) text += " dir " + IntegerText(Font.Direction);
  return text;
}

void TRecordingCanvas::MoveTo(int32_t X, int32_t Y) { Lines.push_back("MoveTo" + Pair(X, Y)); }

void TRecordingCanvas::LineTo(int32_t X, int32_t Y) {
  Lines.push_back("LineTo" + Pair(X, Y) + PenText());
}

void TRecordingCanvas::Polyline(std::span<const TPoint> Points) {
  Lines.push_back("Polyline" + List(Points) + PenText());
}

void TRecordingCanvas::Polygon(std::span<const TPoint> Points) {
  Lines.push_back("Polygon" + List(Points) + PenText() + BrushText());
}

void TRecordingCanvas::Rectangle(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) {
  Lines.push_back("Rectangle" + Pair(X1, Y1) + Pair(X2, Y2) + PenText() + BrushText());
}

void TRecordingCanvas::Ellipse(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) {
  Lines.push_back("Ellipse" + Pair(X1, Y1) + Pair(X2, Y2) + PenText() + BrushText());
}

void TRecordingCanvas::FillRect(const TRect& Area) {
  Lines.push_back("FillRect" + Box(Area) + BrushText());
}

void TRecordingCanvas::TextOut(int32_t X, int32_t Y, std::string_view Text) {
  Lines.push_back("TextOut" + Pair(X, Y) + " \"" + std::string(Text) + "\"" + FontText() +
                  BrushText());
}

TSize TRecordingCanvas::TextExtent(std::string_view Text) {
  return {RoundHalfEven(6 * Font.Size / 8 * static_cast<double>(Text.size())),
          RoundHalfEven(13 * Font.Size / 8)};
}

void TRecordingCanvas::CopyRect(int32_t X, int32_t Y, const TBitmap& /*Bitmap*/,
                                const TRect& Source) {
  Lines.push_back("CopyRect" + Pair(X, Y) + " from" + Box(Source));
}

void TRecordingCanvas::StretchDraw(const TRect& Dest, const TBitmap& /*Bitmap*/,
                                   const TRectDouble& Source, TStretchMode Mode) {
  Lines.push_back("StretchDraw" + Box(Dest) + " from" + Box(Source) +
                  (Mode == TStretchMode::smHalftone ? " smooth" : " nearest"));
}

}  // namespace zav
