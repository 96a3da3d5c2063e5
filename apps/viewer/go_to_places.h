// go_to_places.h - what can be typed to go somewhere: a position in any notation, a country or a
// capital by its name or code.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_GO_TO_PLACES_H
#define ZAV_APPS_VIEWER_GO_TO_PLACES_H

#include <optional>

#include <QString>
#include <QStringList>

#include <geobasics/ellipsoids.h>
#include <geomap/calibration/calib_data.h>

namespace zav {

struct GoToPlace {
  QString Name;  // of a country or capital; empty for a position
  TCoords Position;
};

struct GoToResult {
  std::optional<GoToPlace> Place;
  QString Problem;  // why there is none, for people
};

// Grid metres are those of the ellipsoid. A name of a country goes before the same name of a
// capital
// ("Luxembourg"); a capital of two countries is not chosen between.
GoToResult FindPlace(const QString& Text, TGeoEllipsoid Ellipsoid);

// Texts that FindPlace understands, to choose from: "Austria (at)", "Vienna, capital of Austria".
QStringList AllPlaceNames();

}  // namespace zav

#endif
