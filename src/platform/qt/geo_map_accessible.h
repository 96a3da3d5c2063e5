/// @file
/// geo_map_accessible.h - what screen readers and other assistive programs are told of a map.
///
/// Every GeoMapWidget has it without doing anything. Its role is QAccessible::Canvas, and its
/// texts:
///
/// @code
///   Name         the widget's accessibleName(), else the map's caption, else "Map"
///   Description  accessibleDescription(), else the magnification and the position of the middle
///   Value        the position under the mouse; empty where there is none
/// @endcode
///
/// ValueChanged is sent when the position under the mouse is another one, DescriptionChanged and
/// NameChanged when the view or the map are. The landmarks that are seen are children, behind the
/// child widgets, with name and place on the screen. Texts are translated in the context
/// "zav::GeoMapWidget".
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_QT_GEO_MAP_ACCESSIBLE_H
#define ZAV_PLATFORM_QT_GEO_MAP_ACCESSIBLE_H

#include <map>
#include <vector>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QRect>
#include <QSize>
#include <QString>

#include <geomap/landmarks/landmark_store.h>
#include <geomap/view/view_state.h>
#include <platform/base/api.h>

namespace zav {

class GeoMapWidget;

/// What a GeoMapWidget tells.
class ZAVGEO_API GeoMapAccessible : public QAccessibleWidget {
 public:
  /// At most so many landmarks are children, the first ones of the list.
  static constexpr int MostLandmarks = 300;

  /// Made by Qt when a program asks for it.
  explicit GeoMapAccessible(GeoMapWidget* Widget);
  ~GeoMapAccessible() override;

  /// The texts above.
  QString text(QAccessible::Text Kind) const override;
  /// Child widgets, then landmarks.
  int childCount() const override;
  /// From 0; nullptr for none. Interfaces of landmarks stay valid as objects until this one goes.
  QAccessibleInterface* child(int Index) const override;
  /// At a place of the screen: a landmark goes before the widgets.
  QAccessibleInterface* childAt(int X, int Y) const override;
  /// -1 for none of its own, or a landmark that is not seen.
  int indexOfChild(const QAccessibleInterface* Child) const override;

  /// The landmark's square on the screen, empty when it is not seen. Number from 1.
  QRect landmarkRect(int32_t Number) const;

 private:
  GeoMapWidget* mapWidget() const;
  QString description() const;
  const std::vector<int32_t>& seen() const;

  // Those in view; found again when view or landmarks are others.
  mutable std::vector<int32_t> FSeen;
  mutable TViewState FSeenView;
  mutable TLandMarkList FSeenList;
  mutable QSize FSeenSize;
  mutable TClassVisibility FSeenClasses{};
  mutable bool FSeenKnown = false;
  mutable std::map<int32_t, QAccessible::Id> FChildren;  // of landmarks, by their number
};

/// Tells assistive programs of the widget from now on. The widget's constructor calls it.
void FollowForAccessibility(GeoMapWidget& Widget);

}  // namespace zav

#endif
