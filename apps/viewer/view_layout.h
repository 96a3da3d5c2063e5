// view_layout.h - where the viewer puts a map in its window, and how dense a graticule it draws.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_VIEW_LAYOUT_H
#define ZAV_APPS_VIEWER_VIEW_LAYOUT_H

#include <geomap/view/view_state.h>
#include <platform/base/color.h>
#include <platform/base/geometry.h>
#include <platform/host/canvas.h>

namespace zav {

// The view nearest to View in which the map fills the control; where the map is smaller than the
// control it stands in the middle.
TViewState TidyView(const TViewState& View, TSize Control, TSize Map);

// The same point in the middle of the control under another magnification.
TViewState WithMagnification(const TViewState& View, TSize Control, double Magnification);

// The whole map in the middle, no larger than Largest control pixels per map pixel. View itself
// when map or control has no area.
TViewState FittedView(const TViewState& View, TSize Control, TSize Map, double Largest);

// Paints over what reaches beyond the map image, such as the ends of graticule lines.
void CoverMargin(const TViewState& View, TSize Control, TSize Map, TColor Color, TCanvas& Canvas);

// A round graticule spacing in degrees that gives lines some 70 to 180 control pixels apart; 0 when
// the resolution is not known.
double GraticuleSpacing(double MetresPerPixel, double Magnification);

}  // namespace zav

#endif
