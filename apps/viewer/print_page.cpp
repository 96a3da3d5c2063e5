// print_page.cpp - a map on a page.
// SPDX-License-Identifier: MIT
#include "print_page.h"

#include <algorithm>
#include <cmath>

#include <QCoreApplication>
#include <QLocale>

#include <geomap/geo_map.h>
#include <platform/base/rounding.h>
#include <platform/host/scaled_canvas.h>
#include <platform/qt/qt_convert.h>

#include "export_picture.h"

namespace zav {

namespace {

// Everything but the map is laid out in control pixels, 96 to the inch.
constexpr double PixelsPerMillimetre = ControlPixelsPerInch / 25.4;
constexpr double HeaderHeight = 9 * PixelsPerMillimetre;
constexpr double FooterHeight = 13 * PixelsPerMillimetre;
constexpr int32_t Gap = 6;
constexpr int32_t BarHeight = 6;
constexpr int32_t BarParts = 4;
constexpr double CaptionSize = 13;
constexpr double SmallestCaption = 6;
constexpr double LegendSize = 8;

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(PrintPage)
};

double PageScale(const TPrinter& Printer) { return Printer.PixelsPerInch() / ControlPixelsPerInch; }

// The scale that a factor stands for; 0 where the map's resolution is not known.
double DenominatorOf(const TGeoMap& Map, double Factor, double PixelsPerInch) {
  return PaperFactor(Map.CalibData().Resolution, Factor, PixelsPerInch);
}

// The caption as large as it fits into the width.
void DrawCaption(TCanvas& Canvas, const std::string& Caption, int32_t Width) {
  Canvas.Font.Styles = fsBold;
  Canvas.Font.Size = CaptionSize;
  while (Canvas.Font.Size > SmallestCaption && Canvas.TextExtent(Caption).Width > Width)
    Canvas.Font.Size -= 0.5;
  Canvas.TextOut(0, 0, Caption);
  Canvas.Font.Styles = 0;
}

QString LengthText(double Metres) {
  const bool Far = Metres >= 1000;
  const QLocale Locale;
  const QString Number = Locale.toString(Far ? Metres / 1000 : Metres, 'g', 10);
  return Far ? Texts::tr("%1 km").arg(Number) : Texts::tr("%1 m").arg(Number);
}

// Bar and lengths, from (0, Top) on.
void DrawScaleBar(TCanvas& Canvas, double PixelsPerMetre, double MostPixels, int32_t Top) {
  const double Length = ScaleBarLength(MostPixels / PixelsPerMetre);
  if (!(Length > 0)) return;
  const double Part = Length * PixelsPerMetre / BarParts;
  for (int32_t I = 0; I < BarParts; ++I) {
    Canvas.Brush = {I % 2 == 0 ? clBlack : clWhite};
    Canvas.Rectangle(RoundHalfEven(I * Part), Top, RoundHalfEven((I + 1) * Part) + 1,
                     Top + BarHeight);
  }
  Canvas.Brush.Style = TBrushStyle::bsClear;
  Canvas.Font.Size = LegendSize;
  Canvas.TextOut(0, Top + BarHeight + 2, "0");
  const std::string End = FromQString(LengthText(Length));
  const int32_t Middle = RoundHalfEven(BarParts * Part) - Canvas.TextExtent(End).Width / 2;
  Canvas.TextOut(Middle, Top + BarHeight + 2, End);
}

void DrawLegend(const TGeoMap& Map, TPrinter& Printer, const PagePlan& Plan, const PageSetup& Setup,
                const QString& Caption) {
  const TSize Page = Printer.PageSize();
  const double Scale = PageScale(Printer);
  TScaledCanvas Canvas(Printer.PageCanvas({0, 0, Page.Width, Page.Height}), Scale, Plan.Area.Left,
                       0);
  const int32_t Width = RoundHalfEven(Plan.Area.Width() / Scale);
  const int32_t Top = RoundHalfEven(Plan.Area.Top / Scale);
  const int32_t Bottom = RoundHalfEven(Plan.Area.Bottom / Scale);
  Canvas.Brush.Style = TBrushStyle::bsClear;
  Canvas.Rectangle(0, Top, Width, Bottom);
  DrawCaption(Canvas, FromQString(Caption), RoundHalfEven((Page.Width - Plan.Area.Left) / Scale));
  if (!(Plan.Denominator > 0)) return;
  const double PixelsPerMetre = Plan.Factor / Scale / Map.CalibData().Resolution;
  DrawScaleBar(Canvas, PixelsPerMetre, Width / 3.0, Bottom + Gap);
  const QString Told = PaperScaleText(Plan.Denominator);
  const std::string Text =
      FromQString(Setup.Denominator > 0 ? Told : Texts::tr("about %1").arg(Told));
  Canvas.Font.Size = LegendSize + 2;
  Canvas.TextOut(Width - Canvas.TextExtent(Text).Width, Bottom + Gap, Text);
}

// The middle Length of a range, moved so that it lies within it.
struct TRange {
  int First, Length;
};
TRange MiddleOf(int First, int Length, double Most) {
  const int Shown = std::min(Length, std::max(static_cast<int>(std::floor(Most)), 1));
  return {First + (Length - Shown) / 2, Shown};
}

}  // namespace

PagePlan PlanPage(const TGeoMap& Map, const TPrinter& Printer, const PageSetup& Setup) {
  PagePlan Plan;
  const QRect Wanted =
      Setup.WholeMap ? QRect(0, 0, Map.MapImgWidth(), Map.MapImgHeight()) : VisibleMapPart(Map);
  const double Scale = PageScale(Printer);
  const double Header = Setup.Legend ? HeaderHeight * Scale : 0;
  const double Width = Printer.PageSize().Width;
  const double Height =
      Printer.PageSize().Height - Header - (Setup.Legend ? FooterHeight * Scale : 0);
  if (Wanted.isEmpty() || Width < 1 || Height < 1) return Plan;
  const bool True = Setup.Denominator > 0;
  Plan.Factor =
      True ? PaperFactor(Map.CalibData().Resolution, Setup.Denominator, Printer.PixelsPerInch())
           : std::min(Width / Wanted.width(), Height / Wanted.height());
  if (!(Plan.Factor > 0)) return Plan;
  Plan.Denominator =
      True ? Setup.Denominator : DenominatorOf(Map, Plan.Factor, Printer.PixelsPerInch());
  // A fitted part fills the page but for rounding.
  const double Fits = True ? 1 : 1 + 1e-9;
  const TRange X = MiddleOf(Wanted.x(), Wanted.width(), Width / Plan.Factor * Fits);
  const TRange Y = MiddleOf(Wanted.y(), Wanted.height(), Height / Plan.Factor * Fits);
  Plan.Part = QRect(X.First, Y.First, X.Length, Y.Length);
  Plan.Cut = Plan.Part != Wanted;
  const int32_t DrawnWidth = std::max(RoundHalfEven(X.Length * Plan.Factor), 1);
  const int32_t DrawnHeight = std::max(RoundHalfEven(Y.Length * Plan.Factor), 1);
  const int32_t Left = std::max(RoundHalfEven((Width - DrawnWidth) / 2), 0);
  const int32_t Top = RoundHalfEven(Header);
  Plan.Area = {Left, Top, Left + DrawnWidth, Top + DrawnHeight};
  return Plan;
}

void DrawPage(TGeoMap& Map, TPrinter& Printer, const PageSetup& Setup, const QString& Caption) {
  const PagePlan Plan = PlanPage(Map, Printer, Setup);
  if (Plan.Part.isEmpty()) return;
  DrawMapPart(Map, Printer.PageCanvas(Plan.Area),
              {{Plan.Part.x(), Plan.Part.y()},
               Plan.Factor,
               PageScale(Printer),
               {Plan.Area.Width(), Plan.Area.Height()},
               true});
  if (Setup.Legend) DrawLegend(Map, Printer, Plan, Setup, Caption);
}

QString PaperScaleText(double Denominator) {
  if (!(Denominator > 0)) return {};
  double Rounded = Denominator;
  if (Denominator != std::floor(Denominator)) {
    const double Step = std::pow(10, std::floor(std::log10(Denominator)) - 2);
    Rounded = std::max(RoundHalfEven(Denominator / Step) * Step, 1.0);
  }
  return QStringLiteral("1:%1").arg(QLocale().toString(Rounded, 'f', 0));
}

double ScaleBarLength(double Metres) {
  if (!(Metres > 0) || std::isinf(Metres)) return 0;
  const double Power = std::pow(10, std::floor(std::log10(Metres)));
  for (const double Times : {5.0, 2.0})
    if (Power * Times <= Metres) return Power * Times;
  return Power;
}

}  // namespace zav
