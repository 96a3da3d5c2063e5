// landmark_picker.h - which landmark is under the mouse.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LANDMARK_PICKER_H
#define ZAV_APPS_VIEWER_LANDMARK_PICKER_H

#include <QPointF>

#include <geomap/view/landmark_pixels.h>

namespace zav {

class TGeoMap;

class LandmarkPicker {
 public:
  // The landmark nearest to a pixel of the control, at most Distance control pixels away; of
  // equally near ones the one that is drawn last. Only of classes that are shown. 0 = none. Keeps
  // pixels between calls, so that only what has changed is converted.
  int at(const TGeoMap& Map, QPointF Control, double Distance);

 private:
  TLandMarkPixels FPixels;
};

}  // namespace zav

#endif
