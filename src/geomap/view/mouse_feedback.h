/// @file
/// mouse_feedback.h - the line or box that follows the mouse, drawn over the picture by inverting
/// it.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_MOUSE_FEEDBACK_H
#define ZAV_GEOMAP_VIEW_MOUSE_FEEDBACK_H

#include <cstdint>
#include <vector>

#include <platform/base/api.h>
#include <platform/base/geometry.h>

namespace zav {

class TCanvas;
class TControlWindow;

/// What follows the mouse over the picture.
enum class TFeedbackKind : uint8_t {
  fkNone,      ///< nothing
  fkLine,      ///< a rubber band
  fkBox,       ///< a zoom box
  fkDottedBox  ///< a selection
};

/// From and To are control pixels: the ends of a line, or two opposite corners of a box. Lines and
/// boxes exclude their last pixel as everywhere, so one from a point to itself is empty.
struct TFeedbackShape {
  TFeedbackKind Kind = TFeedbackKind::fkNone;  ///< what it is
  TPoint From;                                 ///< end or corner
  TPoint To;                                   ///< the other one
  friend bool operator==(const TFeedbackShape&, const TFeedbackShape&) = default;
};

/// Draws the shape in exclusive-or mode, so that drawing it again restores every pixel. Pen and
/// brush are as before afterwards.
ZAVGEO_API void DrawFeedback(const TFeedbackShape& Shape, TCanvas& Canvas);

/// Narrow areas of control pixels that hold all pixels of the shape: the edges of a box, pieces of
/// a line. Added to Areas.
ZAVGEO_API void AddFeedbackAreas(const TFeedbackShape& Shape, std::vector<TRect>& Areas);

/// Knows which shape is on the window's buffer, so that only what is there is taken away.
class ZAVGEO_API TMouseFeedback {
 public:
  /// Draws the shape in place of the one that is there, and shows the areas of both. Window.Show()
  /// is the last thing it does, because that may destroy the control.
  void Show(const TFeedbackShape& Shape, TControlWindow& Window);
  /// The buffer was drawn anew, or what is on it stays there.
  void Forget() noexcept { FShape = {}; }
  /// What is on the buffer.
  const TFeedbackShape& Shape() const noexcept { return FShape; }

 private:
  TFeedbackShape FShape;
};

}  // namespace zav

#endif
