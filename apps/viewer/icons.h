// icons.h - the viewer's icons, drawn when they are needed: sharp at every size and pixel ratio,
// and in the colours of the desktop's theme, light or dark.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_ICONS_H
#define ZAV_APPS_VIEWER_ICONS_H

#include <QIcon>

namespace zav {

enum class ViewerIcon {
  OpenFile,
  OpenFolder,
  ZoomIn,
  ZoomOut,
  Fit,
  ActualSize,
  Back,
  Forward,
  Graticule,
  MapList,
  MapFiner,
  MapCoarser,
  AtlasZoom,
  Copy,
  Save,
  Undo,
  Redo,
  Calibrate,
  Warning,
  Pan,
  PanHorizontal,
  PanVertical,
  ZoomBox,
  ZoomDrag,
  Measure,
  SelectRect,
  Trace,
  Landmark,
  LandmarkSelect,
  LandmarkAdd,
  LandmarkDelete,
  LandmarkDeleteCircle,
  LandmarkDeleteRectangle,
  Application,  // in colours of its own
};

QIcon MakeIcon(ViewerIcon Icon);

}  // namespace zav

#endif
