// atlas_navigator.h - from map to map by clicks and by the wheel, and the names of outlines.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_ATLAS_NAVIGATOR_H
#define ZAV_APPS_VIEWER_ATLAS_NAVIGATOR_H

#include <functional>
#include <optional>

#include <QObject>
#include <QPointF>
#include <QString>

#include <geomap/calibration/calib_data.h>
#include <platform/qt/geo_atlas_widget.h>

namespace zav {

// A position at a pixel of the map's widget, counted by the pixel's corner.
struct AtlasPlace {
  TCoords Position;
  QPointF Control;
};

// Only says where the user wants to go: whether the map can be shown is found out by whoever shows
// it.
class AtlasNavigator final : public QObject {
  Q_OBJECT

 public:
  // The widget must outlive this object.
  // TitleOf: the name of a registered map for people.
  AtlasNavigator(GeoAtlasWidget& Widget, std::function<QString(int Index)> TitleOf,
                 QObject* Parent);

  // While on, clicks on the map go to other maps: with the left button to a more detailed one, with
  // the right one to a less detailed one.
  void setClicks(bool On);
  bool clicks() const { return FClicks; }

  // The map to go to from a place in a direction, 1 to more detail, -1 to less; 0 for none.
  int mapFrom(const TCoords& Position, int Direction) const;
  // What is at a pixel of the widget; nothing without a calibration.
  std::optional<AtlasPlace> placeAt(QPointF Control) const;

  // Puts a position under a pixel of the widget, within half a pixel of the map, so that the scale
  // on the screen changes as little as the limits of magnification allow. Before: the metres per
  // pixel on the screen.
  void arriveUnder(const AtlasPlace& Place, double MetresOnScreen);
  // Puts it in the middle, as far as the edges of the map allow, at the map's own size.
  void arriveInTheMiddle(const TCoords& Position);
  double metresOnScreen() const;

 signals:
  // By the wheel the place is to stay where it is, by a click it is to get into the middle.
  void wheeled(int Index, const AtlasPlace& Place);
  void clicked(int Index, const AtlasPlace& Place);
  // There is no map to go to.
  void nothingThere(int Direction);
  void givenUp();  // Esc ends the clicks

 protected:
  bool eventFilter(QObject* Watched, QEvent* Event) override;

 private:
  TGeoMap& map() const { return FWidget.mapWidget().map(); }
  bool atLimit(int Direction) const;
  bool wheel(QPointF Control, int Units);
  bool press(QPointF Control, int Direction);
  QString captionAt(QPointF Control) const;

  GeoAtlasWidget& FWidget;
  std::function<QString(int Index)> FTitleOf;
  bool FClicks = false;
  int FWheelUnits = 0;
};

}  // namespace zav

#endif
