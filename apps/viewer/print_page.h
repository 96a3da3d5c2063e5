// print_page.h - a map on a page: caption above, map, scale and scale bar below.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_PRINT_PAGE_H
#define ZAV_APPS_VIEWER_PRINT_PAGE_H

#include <QRect>
#include <QString>

#include <platform/base/geometry.h>
#include <platform/host/printer.h>

namespace zav {

class TGeoMap;

struct PageSetup {
  bool WholeMap = true;  // false: what the window shows
  int Denominator = 0;   // of the scale; 0 = as large as the page holds
  bool Legend = true;    // caption, scale and scale bar
};

struct PagePlan {
  QRect Part;              // what is printed, map pixels; empty = nothing can be
  TRect Area;              // where, printer pixels
  double Factor = 0;       // printer pixels per map pixel
  double Denominator = 0;  // of the scale that comes out; 0 = not known
  bool Cut = false;        // the page does not hold all that was wanted, only its middle
};

// What a page will hold. A scale of a map whose resolution is not known fits nothing.
PagePlan PlanPage(const TGeoMap& Map, const TPrinter& Printer, const PageSetup& Setup);

// Draws it on the open page. Throws what the printer and handlers of the map throw.
void DrawPage(TGeoMap& Map, TPrinter& Printer, const PageSetup& Setup, const QString& Caption);

// "1:25,000" in the user's language; scales that came of fitting are rounded to three digits.
QString PaperScaleText(double Denominator);

// The longest round length (1, 2 or 5 times a power of ten) that is not longer than Metres.
double ScaleBarLength(double Metres);

}  // namespace zav

#endif
