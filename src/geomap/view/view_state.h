/// @file
/// view_state.h - which part of a map image a control shows: a value and the arithmetic on it.
///
/// Three kinds of pixels meet here: control pixels (origin at the control's top left), map pixels
/// (origin at the image's top left), and between them the magnification, control pixels per map
/// pixel. Nothing here knows a control, an image or a window.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_VIEW_STATE_H
#define ZAV_GEOMAP_VIEW_VIEW_STATE_H

#include <platform/base/api.h>
#include <platform/base/geometry.h>

namespace zav {

/// What users can set; fitting to the page and stored views may lie outside.
constexpr double MinMagnification = 0.5;
/// The largest magnification that users can set.
constexpr double MaxMagnification = 2.0;

/// Which part of the map is shown, and how large.
struct TViewState {
  TPoint TopLeft;              ///< the map pixel at the control's top left corner
  double Magnification = 1.0;  ///< control pixels per map pixel
  friend bool operator==(const TViewState&, const TViewState&) = default;
};

/// Map pixel of a control pixel. Results beyond the range of int32_t stop at its ends.
ZAVGEO_API TPoint ControlToMapImage(const TViewState& View, TPoint Control) noexcept;
/// The control pixel of a map pixel, likewise.
ZAVGEO_API TPoint MapImageToControl(const TViewState& View, TPoint Map) noexcept;
/// The same for a target with Scale device pixels per control pixel.
ZAVGEO_API TPoint MapImageToDevice(const TViewState& View, double Scale, double MapX,
                                   double MapY) noexcept;

/// Moves the view so that it lies inside the map; a map smaller than the control begins at (0, 0).
ZAVGEO_API TViewState Confine(const TViewState& View, TSize Control, TSize Map) noexcept;
/// Brings a map pixel to the control's centre; may leave the map.
ZAVGEO_API TViewState CenterOn(const TViewState& View, TPoint MapPixel, TSize Control) noexcept;
/// The same without leaving the map.
ZAVGEO_API TViewState CenterInside(const TViewState& View, TPoint MapPixel, TSize Control,
                                   TSize Map) noexcept;
/// The whole map, as large as it fits, from (0, 0). The magnification may leave its usual limits;
/// it stays as it is where map or control has no area.
ZAVGEO_API TViewState FitPage(const TViewState& View, TSize Control, TSize Map) noexcept;
/// The view a drag leads to that began at AnchorTopLeft and moved by Drag control pixels.
ZAVGEO_API TViewState PanBy(const TViewState& View, TPoint AnchorTopLeft, TPoint Drag) noexcept;

/// Zooming in steps about a point of the control, as a mouse wheel does. Every view of a gesture is
/// computed from its start, so that nothing adds up: the map position under the point stays within
/// half a map pixel, and as many steps back as had an effect lead to exactly the view it began
/// with.
class ZAVGEO_API TZoomGesture {
 public:
  /// Each step multiplies the magnification by the fourth root of 2, so four steps double it.
  static constexpr int StepsPerDoubling = 4;

  /// The view after Steps more steps, in when positive, about the control pixel Center. A step
  /// stops at the limits of the magnification and does nothing there; from outside the limits the
  /// first step goes to the nearest. Map is the size to confine to; an empty one does not confine.
  /// A view other than the last one returned begins a new gesture.
  TViewState Zoom(const TViewState& View, TPoint Center, int Steps, TSize Control, TSize Map);

 private:
  double MagnificationAt(int Step) const noexcept;
  void Begin(const TViewState& View) noexcept;
  void Hold(TPoint Center) noexcept;

  bool FActive = false;
  TViewState FStart;  // magnifications are counted from here
  TViewState FLast;   // what Zoom returned last
  int FStep = 0;      // steps from FStart to FLast
  double FLeft = 0;   // the corner of FLast before it was rounded
  double FTop = 0;
  TPoint FCenter;    // the control pixel
  double FMapX = 0;  // the map position that stays under it
  double FMapY = 0;
  bool FOnePoint = false;  // it has been the same since FStart
};

}  // namespace zav

#endif
