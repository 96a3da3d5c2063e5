// empty_map.cpp - see empty_map.h.
// SPDX-License-Identifier: MIT
#include <geomap/view/empty_map.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include <geomap/errors.h>
#include <geomap/view/map_image.h>
#include <platform/base/degrees.h>
#include <platform/base/rounding.h>

namespace zav {
namespace {

constexpr int32_t OuterFrameInset = 26;
constexpr double SecondsLimit = 0.06;  // grid distances up to this are told in seconds
constexpr int32_t MaxLabelDecimals = 6;
constexpr TColor LineColor = RgbColor(160, 160, 160);

// One direction of the grid: the multiples of Dist between Low and High.
struct TGridLines {
  double First = 0;  // number of the first multiple
  double Stride = 1;
  int32_t Count = 0;  // no more than pixels
  double Dist = 1;

  double Value(double Index) const noexcept { return (First + Index * Stride) * Dist; }
};

// Pixels is the length of the direction. A multiple that misses a border by rounding counts.
TGridLines GridLines(double Low, double High, double Dist, double Pixels) {
  TGridLines Lines;
  Lines.Dist = Dist;
  const double PerPixel = (High - Low) / Dist / Pixels;
  constexpr double Rounding = 1e-9;  // of a grid distance
  Lines.First = std::ceil(Low / Dist - Rounding);
  const double Last = std::floor(High / Dist + Rounding);
  if (!(High > Low) || !std::isfinite(PerPixel)) return Lines;
  if (!std::isfinite(Lines.First) || !std::isfinite(Last) || Last < Lines.First) return Lines;
  Lines.Stride = std::max(1.0, std::ceil(PerPixel));
  Lines.Count = static_cast<int32_t>((Last - Lines.First) / Lines.Stride) + 1;
  return Lines;
}

TGridLines Parallels(const TEmptyMap& Map) {
  return GridLines(Map.LatLow, Map.LatHigh, Map.LatGridDist, Map.Height - 2 * Map.Inset());
}

TGridLines Meridians(const TEmptyMap& Map) {
  return GridLines(Map.LongLow, Map.LongHigh, Map.LongGridDist, Map.Width - 2 * Map.Inset());
}

template <typename TDraw>
void ForEachValue(const TGridLines& Lines, TDraw Draw) {
  for (int32_t Index = 0; Index < Lines.Count; ++Index) Draw(Lines.Value(Index));
}

// Decimals that tell multiples of a distance apart in this unit.
int32_t DecimalsOf(double Dist) {
  int32_t Decimals = 0;
  double Scaled = Dist;
  while (Decimals < MaxLabelDecimals && std::fabs(Scaled - std::nearbyint(Scaled)) > 1e-6) {
    Scaled *= 10;
    ++Decimals;
  }
  return Decimals;
}

std::string DegreeText(double Value, double Dist) {
  const double Degrees = std::fabs(Value);
  if (Dist <= SecondsLimit)
    return DegreeToStr(Degrees, TDegreeFormat::dfDegreesMinutesSeconds, DecimalsOf(Dist * 3600));
  if (std::nearbyint(Dist) == Dist) return DegreeToStr(Degrees, TDegreeFormat::dfDegrees, 0);
  return DegreeToStr(Degrees, TDegreeFormat::dfDegreesMinutes, DecimalsOf(Dist * 60));
}

// Takes labels in order of importance; one that does not fit any more is dropped.
class TLabelPlaces {
 public:
  TLabelPlaces(const TEmptyMap& Map, TCanvas& Canvas) : FMap(Map), FCanvas(Canvas) {}

  void AddParallel(double Lat) {
    const std::string Text = EmptyMapLatitudeText(Lat, FMap.LatGridDist);
    const TSize Size = FCanvas.TextExtent(Text);
    const int32_t Row = RoundHalfEven(FMap.PixelY(Lat));
    if (FMap.Margin) {
      // Upwards in both side bands.
      const int32_t Top = Moved(Row - Size.Width / 2, Size.Width, 0, FMap.Height);
      const int32_t Left = (OuterFrameInset - Size.Height) / 2;
      const int32_t Right = FMap.Width - OuterFrameInset + Left;
      for (const int32_t X : {Left, Right})
        Add(Text, {X, Top, X + Size.Height, Top + Size.Width}, true);
    } else {
      const int32_t Top = Row >= Size.Height ? Row - Size.Height : Row + 1;
      Add(Text, {0, Top, Size.Width, Top + Size.Height}, false);
    }
    FParallels = Labels.size();
  }

  void AddMeridian(double Long) {
    const std::string Text = EmptyMapLongitudeText(Long, FMap.LongGridDist);
    const TSize Size = FCanvas.TextExtent(Text);
    const int32_t Column = RoundHalfEven(FMap.PixelX(Long));
    if (FMap.Margin) {
      // Off the side bands.
      const int32_t Left =
          Moved(Column - Size.Width / 2, Size.Width, OuterFrameInset, FMap.Width - OuterFrameInset);
      const int32_t Top = (OuterFrameInset - Size.Height) / 2;
      for (const int32_t Y : {FMap.Height - OuterFrameInset + Top, Top})
        Add(Text, {Left, Y, Left + Size.Width, Y + Size.Height}, false);
    } else {
      const int32_t Left = Column + 1 + Size.Width <= FMap.Width ? Column + 1 : Column - Size.Width;
      TRect Box{Left, FMap.Height - Size.Height, Left + Size.Width, FMap.Height};
      // In the corner the parallel's label stands already; this one goes over it.
      for (int Step = 0; Step < 2 && Overlaps(Box, FParallels); ++Step) {
        Box.Top -= Size.Height;
        Box.Bottom -= Size.Height;
      }
      Add(Text, Box, false);
    }
  }

  std::vector<TEmptyMapLabel> Labels;

 private:
  // The begin of a stretch that is moved between two limits, as far as it fits.
  static int32_t Moved(int32_t Begin, int32_t Length, int32_t Low, int32_t High) {
    return std::max(Low, std::min(Begin, High - Length));
  }

  bool Overlaps(const TRect& Box, size_t Count) const {
    return std::any_of(Labels.begin(), Labels.begin() + static_cast<std::ptrdiff_t>(Count),
                       [&](const TEmptyMapLabel& Each) {
                         return Box.Left < Each.Box.Right && Each.Box.Left < Box.Right &&
                                Box.Top < Each.Box.Bottom && Each.Box.Top < Box.Bottom;
                       });
  }

  void Add(const std::string& Text, const TRect& Box, bool Upward) {
    if (Box.Left < 0 || Box.Top < 0 || Box.Right > FMap.Width || Box.Bottom > FMap.Height ||
        Overlaps(Box, Labels.size()))
      return;
    const TPoint At{Box.Left, Upward ? Box.Bottom : Box.Top};
    Labels.push_back({Text, At, Upward, Box});
  }

  const TEmptyMap& FMap;
  TCanvas& FCanvas;
  size_t FParallels = 0;  // the first labels are those of parallels
};

void DrawFrameLine(const TEmptyMap& Map, TCanvas& Canvas, int32_t Inset) {
  const int32_t Right = Map.Width - Inset;
  const int32_t Bottom = Map.Height - Inset;
  const TPoint Line[] = {
      {Inset, Inset}, {Right, Inset}, {Right, Bottom}, {Inset, Bottom}, {Inset, Inset}};
  Canvas.Polyline(Line);
}

void DrawGridLines(const TEmptyMap& Map, TCanvas& Canvas) {
  const int32_t Inset = Map.Inset();
  ForEachValue(Parallels(Map), [&](double Lat) {
    const int32_t Y = RoundHalfEven(Map.PixelY(Lat));
    const TPoint Line[] = {{Inset, Y}, {Map.Width - Inset, Y}};
    Canvas.Polyline(Line);
  });
  ForEachValue(Meridians(Map), [&](double Long) {
    const int32_t X = RoundHalfEven(Map.PixelX(Long));
    const TPoint Line[] = {{X, Inset}, {X, Map.Height - Inset}};
    Canvas.Polyline(Line);
  });
}

}  // namespace

double TEmptyMap::PixelX(double Long) const noexcept {
  return Inset() + (Long - LongLow) / (LongHigh - LongLow) * (Width - 2 * Inset());
}

double TEmptyMap::PixelY(double Lat) const noexcept {
  return Height - Inset() - (Lat - LatLow) / (LatHigh - LatLow) * (Height - 2 * Inset());
}

TEmptyMap MakeEmptyMap(double Lat1, double Long1, double Lat2, double Long2, double LatGridDist,
                       double LongGridDist, int32_t Width, int32_t Height, bool Margin) {
  for (const double Each : {Lat1, Long1, Lat2, Long2})
    if (!std::isfinite(Each)) throw EZAVGeoMapError("a corner of the map is not a position");
  if (Lat1 > Lat2) std::swap(Lat1, Lat2);
  if (Long1 > Long2) std::swap(Long1, Long2);
  const auto Distance = [](double Degrees) { return Degrees > 0 ? Degrees : 1.0; };
  return {Lat1,
          Long1,
          Lat2,
          Long2,
          Distance(LatGridDist),
          Distance(LongGridDist),
          std::max(Width, MinEmptyMapSide),
          std::max(Height, MinEmptyMapSide),
          Margin};
}

std::string EmptyMapLatitudeText(double Lat, double GridDist) {
  return std::string(1, ' ').append(DegreeText(Lat, GridDist)) + (Lat >= 0 ? " N " : " S ");
}

std::string EmptyMapLongitudeText(double Long, double GridDist) {
  return std::string(1, ' ').append(DegreeText(Long, GridDist)) + (Long >= 0 ? " E " : " W ");
}

std::vector<TEmptyMapLabel> EmptyMapLabels(const TEmptyMap& Map, TCanvas& Canvas) {
  TLabelPlaces Places(Map, Canvas);
  ForEachValue(Parallels(Map), [&](double Lat) { Places.AddParallel(Lat); });
  ForEachValue(Meridians(Map), [&](double Long) { Places.AddMeridian(Long); });
  return std::move(Places.Labels);
}

void DrawEmptyMap(const TEmptyMap& Map, TCanvas& Canvas) {
  Canvas.Pen = {};
  Canvas.Brush = {};
  Canvas.Font = {};
  Canvas.FillRect({0, 0, Map.Width, Map.Height});
  if (Map.Margin) {
    DrawFrameLine(Map, Canvas, EmptyMapMargin);
    Canvas.Pen.Style = TPenStyle::psDot;
    DrawFrameLine(Map, Canvas, OuterFrameInset);
  }
  Canvas.Pen.Color = LineColor;
  DrawGridLines(Map, Canvas);
  // On their ground, labels are read across the lines of the other direction.
  for (const TEmptyMapLabel& Each : EmptyMapLabels(Map, Canvas)) {
    Canvas.Font.Direction = Each.Upward ? 90 : 0;
    Canvas.TextOut(Each.At.X, Each.At.Y, Each.Text);
  }
  Canvas.Pen = {};
  Canvas.Font = {};
}

TCalibData EmptyMapCalibration(const TEmptyMap& Map) {
  TCalibData Data;
  Data.MapFName = UnknownMapImgName;
  Data.Caption = "Map generated by TGeoMap";
  Data.Corners[gcoTopLeft] = {Map.LatHigh, Map.LongLow};
  Data.Corners[gcoBottomLeft] = {Map.LatLow, Map.LongLow};
  Data.Corners[gcoBottomRight] = {Map.LatLow, Map.LongHigh};
  Data.Corners[gcoTopRight] = {Map.LatHigh, Map.LongHigh};
  const int32_t Inset = Map.Inset();
  const double Wide = Map.Width - 2 * Inset;
  const double High = Map.Height - 2 * Inset;
  for (int32_t Column = 0; Column < 3; ++Column) {
    for (int32_t Row = 0; Row < 3; ++Row) {
      TCalQuad& Quad = Data.CalQuads[static_cast<size_t>(Data.NumCalQuads++)];
      Quad.Latitude = Map.LatLow + Row * (Map.LatHigh - Map.LatLow) / 2.0;
      Quad.Longitude = Map.LongLow + Column * (Map.LongHigh - Map.LongLow) / 2.0;
      Quad.MapX = RoundHalfEven(Column * Wide / 2.0 + Inset);
      Quad.MapY = RoundHalfEven(Map.Height - Inset - Row * High / 2.0);
    }
  }
  return Data;
}

}  // namespace zav
